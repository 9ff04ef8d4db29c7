#include "CPersonManagerCtrl.h"

namespace BasicInfoManagerUI {

CPersonManagerCtrl::CPersonManagerCtrl(UICommonMdl::CInterfaceSetManager*, QWidget* pParent)
    : QWidget(pParent)
{
}

void CPersonManagerCtrl::Uninit() { }

} // namespace BasicInfoManagerUI
