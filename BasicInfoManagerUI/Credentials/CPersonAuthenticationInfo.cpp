#include "CPersonAuthenticationInfo.h"

namespace BasicInfoManagerUI {

CPersonAuthenticationInfo::CPersonAuthenticationInfo(UICommonMdl::CInterfaceSetManager*, QWidget* pParent)
    : QWidget(pParent)
{
}

void CPersonAuthenticationInfo::SetPerson(const AccessControlLogical::Person_t&) { }
void CPersonAuthenticationInfo::FillPerson(AccessControlLogical::Person_t&) const { }
QString CPersonAuthenticationInfo::CheckInput()
{
    return {};
}
void CPersonAuthenticationInfo::ShowClashes(const std::vector<AccessControlLogical::PersonClash_t>&) { }
void CPersonAuthenticationInfo::SetReadOnly(bool) { }
void CPersonAuthenticationInfo::SetConnected(bool) { }

} // namespace BasicInfoManagerUI
