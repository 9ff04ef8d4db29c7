#include "CUserManagerPage.h"

#include "AuditLog/CAuditLogCtrl.h"
#include "RoleManager/CRoleManagerCtrl.h"
#include "UserManager/CUserManagerUserCtrl.h"

#include <UICommonMdl/CInterfaceSetManager.h>
#include <UserLogical/IUserManager.h>
#include <common/StyleSheet.h>

#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace PlatformConfigUI {

namespace {

constexpr const char* RightAuditLog = "001002003";

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerPage)
};

} // namespace

CUserManagerPage::CUserManagerPage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QWidget(pParent)
    , m_pInterfaceSet(pInterfaceSet)
    , m_pTabs(new QTabBar)
    , m_pStack(new QStackedWidget)
    , m_login(pInterfaceSet->GetUserManager())
{
    setObjectName(QStringLiteral("CUserManagerPage"));
    m_pTabs->setObjectName(QStringLiteral("tabPages"));
    m_pTabs->setAccessibleName(Text::tr("User"));
    m_pTabs->setDrawBase(false);
    m_pTabs->setExpanding(false);
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    pLayout->addWidget(m_pTabs);
    pLayout->addWidget(m_pStack);

    AddPage<CUserManagerUserCtrl>(Text::tr("User"));
    AddPage<CRoleManagerCtrl>(Text::tr("Role"));
    AddPage<CAuditLogCtrl>(Text::tr("Audit Log"));
    ShowPagesByRight();
    connect(&m_login, &Common::CLoginManagerAdapter::SignalState, this, &CUserManagerPage::ShowPagesByRight,
        Qt::QueuedConnection);
    connect(m_pTabs, &QTabBar::currentChanged, m_pStack, &QStackedWidget::setCurrentIndex);
    Common::LoadStyleSheet(this, QStringLiteral("PlatformConfigUI/UserManagerUI"));
}

template <class Page>
void CUserManagerPage::AddPage(const QString& sTitle)
{
    auto* const pPage = new Page(m_pInterfaceSet, m_pStack);
    m_pStack->addWidget(pPage);
    m_vecPages.push_back(pPage);
    m_pTabs->addTab(sTitle);
}

void CUserManagerPage::ShowPagesByRight()
{
    UserLogical::IUserManager* const pManager = m_pInterfaceSet->GetUserManager();
    UserLogical::IUserRight* const pRight = pManager ? pManager->GetUserRight() : nullptr;
    // Without a session nothing is known of rights; what stands there stays.
    if (pRight)
        m_pTabs->setTabVisible(m_pTabs->count() - 1, pRight->HasRight(RightAuditLog));
}

bool CUserManagerPage::OnMsg(int nMsg, QVariant* pValue, void* pArgument)
{
    bool bTaken = false;
    for (Common::IConfigPage* pPage : m_vecPages)
        bTaken = pPage->OnMsg(nMsg, pValue, pArgument) || bTaken;
    return bTaken;
}

void CUserManagerPage::UninitUI()
{
    for (Common::IConfigPage* pPage : m_vecPages)
        pPage->UninitUI();
}

} // namespace PlatformConfigUI
