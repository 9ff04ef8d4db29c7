#pragma once

namespace Common {

class CTreeComboBox;

/// Has the combo box show the tree of person groups, as it is and will be. Once. User-interface thread.
void ShowPersonGroups(CTreeComboBox* pCombo);

} // namespace Common
