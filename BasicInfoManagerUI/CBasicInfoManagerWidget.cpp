#include "CBasicInfoManagerWidget.h"

#include "PersonManager/CPersonManagerCtrl.h"

#include <UserLogical/RightCodes.h>
#include <common/CModulePage.h>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CBasicInfoManager)
};

} // namespace

CBasicInfoManagerWidget::CBasicInfoManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"002003", "BasicInfoManagerUI",
            QT_TRANSLATE_NOOP("CBasicInfoManagerWidget", "Person and Vehicle Info"),
            "CBasicInfoManagerWidget", QStringLiteral("BasicInfoManagerUI"),
            QStringLiteral("BasicInfo-d.png"), QString()})
{
}

QWidget* CBasicInfoManagerWidget::CreatePage(
    UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
{
    using Common::CModulePage;
    return new CModulePage(pInterfaceSet,
        {QStringLiteral("CBasicInfoManager"), QString(), GetWidgetTitle(QString(), 0),
            CModulePage::Look::Strip},
        {{UserLogical::RightChangePersons, Text::tr("Personnel List"), QStringLiteral("PersonManager"),
            &CModulePage::Make<CPersonManagerCtrl>}},
        pParent);
}

} // namespace BasicInfoManagerUI
