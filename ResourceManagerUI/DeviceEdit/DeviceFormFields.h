#pragma once

#include "DeviceFormRules.h"

#include <QComboBox>

#include <vector>

namespace Common {
class CTreeComboBox;
}
namespace VxGUI {
class VxLineEdit;
}

/// What device forms do with their widgets. User-interface thread.
namespace ResourceManagerUI::FormFields {

/// Role of the key that records hold, beside the number in Qt::UserRole.
inline constexpr int KeyRole = Qt::UserRole + 1;

/// Declares the checks of that text on the field: typing limit, live hint and the order on CheckInput. What
/// addresses and ports are is not among them: MakeKeyedField keeps other input out.
void DeclareChecks(VxGUI::VxLineEdit* pEdit, DeviceField field);
/// Takes only what sExpression matches, typed key by key: input methods cannot compose there. Enter is told
/// also while the text is unfinished, so that its check can say so.
void MakeKeyedField(VxGUI::VxLineEdit* pEdit, const QString& sExpression = GetIpExpression());

void AddChoice(QComboBox* pCombo, const QString& sText, int nCode, const QString& sKey = QString());
/// Key of the current choice; empty without one.
QString GetKey(const QComboBox* pCombo);
/// Chooses by the key. A key that the list lacks is added to it, as the record has it.
void SelectKey(QComboBox* pCombo, const QString& sKey);
/// Text of the choice with that key or number; where there is none, the key or the number itself.
QString GetText(const QComboBox* pCombo, const std::string& sKey);
QString GetText(const QComboBox* pCombo, int nCode);
int GetCode(const QComboBox* pCombo);
/// Chooses by the number; false when there is none.
bool SelectCode(QComboBox* pCombo, int nCode);

/// Has the combo box show the tree, and proposes the organisation, or the root when it is not there.
void FillOrganizations(Common::CTreeComboBox* pCombo,
    const std::vector<GroupLogical::Organization_t>& vecOrganizations, const QString& sCode);

} // namespace ResourceManagerUI::FormFields
