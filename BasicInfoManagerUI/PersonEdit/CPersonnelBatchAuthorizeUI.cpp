#include "CPersonnelBatchAuthorizeUI.h"

namespace BasicInfoManagerUI {

CPersonnelBatchAuthorizeUI::CPersonnelBatchAuthorizeUI(UICommonMdl::CInterfaceSetManager*, QWidget* pParent)
    : QWidget(pParent)
{
}

void CPersonnelBatchAuthorizeUI::SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>&) { }
void CPersonnelBatchAuthorizeUI::SetConnected(bool) { }
bool CPersonnelBatchAuthorizeUI::IsDirty() const
{
    return false;
}
QString CPersonnelBatchAuthorizeUI::GetTitle()
{
    return QStringLiteral("Batch Authorize");
}

} // namespace BasicInfoManagerUI
