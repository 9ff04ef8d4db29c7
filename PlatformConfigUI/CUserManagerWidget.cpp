#include "CUserManagerWidget.h"

#include "AuditLog/CAuditLogCtrl.h"
#include "RoleManager/CRoleManagerCtrl.h"
#include "UserManager/CUserManagerUserCtrl.h"

#include <UserLogical/RightCodes.h>
#include <common/CModulePage.h>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerPage)
};

} // namespace

CUserManagerWidget::CUserManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {UserLogical::RightSeeUsers, "UserManagerWidget", QT_TRANSLATE_NOOP("CUserManagerWidget", "User"),
            "CUserManagerWidget", QStringLiteral("PlatformConfigUI/UserManagerUI"),
            QStringLiteral("usermanager_pane.png"), QStringLiteral("usermanager_pane-d.png")})
{
}

QWidget* CUserManagerWidget::CreatePage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
{
    using Common::CModulePage;
    return new CModulePage(pInterfaceSet,
        {QStringLiteral("CUserManagerPage"), QStringLiteral("PlatformConfigUI/UserManagerUI"),
            Text::tr("User"), CModulePage::Look::Tabs},
        {{UserLogical::RightSeeUsers, Text::tr("User"), QStringLiteral("UserManager"),
             &CModulePage::Make<CUserManagerUserCtrl>},
            {UserLogical::RightSeeUsers, Text::tr("Role"), QStringLiteral("RoleManager"),
                &CModulePage::Make<CRoleManagerCtrl>},
            {UserLogical::RightSeeAuditLog, Text::tr("Audit Log"), QStringLiteral("AuditLog"),
                &CModulePage::Make<CAuditLogCtrl>}},
        pParent);
}

} // namespace PlatformConfigUI
