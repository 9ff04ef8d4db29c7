#include "CUserManagerPage.h"

#include "AuditLog/CAuditLogCtrl.h"
#include "RoleManager/CRoleManagerCtrl.h"
#include "UserManager/CUserManagerUserCtrl.h"

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
    : CPage(pInterfaceSet, QStringLiteral("PlatformConfigUI/UserManagerUI"), pParent)
    , m_pTabs(new QTabBar)
    , m_pStack(new QStackedWidget)
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
    OnRightsChanged();
    connect(m_pTabs, &QTabBar::currentChanged, m_pStack, &QStackedWidget::setCurrentIndex);
}

template <class Page>
void CUserManagerPage::AddPage(const QString& sTitle)
{
    auto* const pPage = new Page(GetInterfaceSet(), m_pStack);
    m_pStack->addWidget(pPage);
    m_pTabs->addTab(sTitle);
}

void CUserManagerPage::OnRightsChanged()
{
    m_pTabs->setTabVisible(m_pTabs->count() - 1, HasRight(RightAuditLog));
}

} // namespace PlatformConfigUI
