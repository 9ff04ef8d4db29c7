#pragma once

#include <VxGUI/VxEmptyState.h>

namespace Common {

/// Stands in for a page that this version does not have, and says so.
class CNotAvailablePage : public VxGUI::VxEmptyState
{
    Q_OBJECT

public:
    /// sTitle is the translated name of the missing page.
    explicit CNotAvailablePage(const QString& sTitle, QWidget* pParent = nullptr);
};

} // namespace Common
