#include "CPersonnelInfoUI.h"

namespace BasicInfoManagerUI {

CPersonnelInfoUI::CPersonnelInfoUI(UICommonMdl::CInterfaceSetManager*, QWidget* pParent)
    : QWidget(pParent)
{
}

void CPersonnelInfoUI::AddPerson(const QString&) { }
void CPersonnelInfoUI::EditPerson(const QString&) { }
void CPersonnelInfoUI::ShowPerson(const QString&) { }
void CPersonnelInfoUI::SetConnected(bool) { }
bool CPersonnelInfoUI::IsDirty() const
{
    return false;
}

} // namespace BasicInfoManagerUI
