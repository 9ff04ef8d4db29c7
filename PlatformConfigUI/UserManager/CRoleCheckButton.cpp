#include "CRoleCheckButton.h"

#include "CRoleSelectPopView.h"

#include <Trv/QSkin.h>

namespace PlatformConfigUI {

CRoleCheckButton::CRoleCheckButton(QWidget* pParent)
    : QPushButton(pParent)
{
    setIcon(Trv::GetIcon(QStringLiteral("add")));
    connect(this, &QAbstractButton::clicked, this, &CRoleCheckButton::OnClicked);
}

void CRoleCheckButton::SetRoles(
    const std::vector<UserLogical::Role_t>& vecRoles, const QStringList& listChosenIds)
{
    const bool bOthers = m_vecRoles != vecRoles;
    m_vecRoles = vecRoles;
    m_listChosenIds = listChosenIds;
    if (m_pPopup && bOthers)
        m_pPopup->SetRoles(m_vecRoles, m_listChosenIds);
}

void CRoleCheckButton::OnClicked()
{
    m_pPopup = new CRoleSelectPopView(this);
    connect(m_pPopup, &CRoleSelectPopView::SignalChosenChanged, this, &CRoleCheckButton::SignalChosenChanged);
    m_pPopup->SetRoles(m_vecRoles, m_listChosenIds);
    m_pPopup->PopUp(this);
}

} // namespace PlatformConfigUI
