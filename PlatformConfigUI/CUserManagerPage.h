#pragma once

#include <common/CPage.h>

class QStackedWidget;
class QTabBar;

namespace PlatformConfigUI {

/// What the entry "User" opens: the pages of users, roles and the log, one tab each. User-interface thread.
class CUserManagerPage : public Common::CPage
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the page.
    explicit CUserManagerPage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);

private:
    void OnRightsChanged() override;
    template <class Page>
    void AddPage(const QString& sTitle);

    QTabBar* m_pTabs;
    QStackedWidget* m_pStack;
};

} // namespace PlatformConfigUI
