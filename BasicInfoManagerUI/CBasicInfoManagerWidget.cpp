#include "CBasicInfoManagerWidget.h"

#include "PersonManager/CPersonManagerCtrl.h"

namespace BasicInfoManagerUI {

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
    return new CPersonManagerCtrl(pInterfaceSet, pParent);
}

} // namespace BasicInfoManagerUI
