#pragma once

#include <common/IConfigPage.h>
#include <common/ObserverAdapters.h>

#include <QWidget>

#include <vector>

class QStackedWidget;
class QTabBar;
namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace PlatformConfigUI {

/// What the entry "User" opens: the pages of users, roles and the log, one tab each. User-interface thread.
class CUserManagerPage : public QWidget, public Common::IConfigPage
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the page.
    explicit CUserManagerPage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);

    bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) override;
    void UninitUI() override;

private:
    template <class Page>
    void AddPage(const QString& sTitle);
    void ShowPagesByRight();

    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    QTabBar* m_pTabs;
    QStackedWidget* m_pStack;
    std::vector<Common::IConfigPage*> m_vecPages;
    Common::CLoginManagerAdapter m_login;
};

} // namespace PlatformConfigUI
