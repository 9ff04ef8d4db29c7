#pragma once

#include <UserLogical/UserRecords.h>

#include <QPointer>
#include <QPushButton>

namespace PlatformConfigUI {

class CRoleSelectPopView;

/// The button that pops up the roles to choose from. User-interface thread.
class CRoleCheckButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CRoleCheckButton(QWidget* pParent = nullptr);

    /// What there is and what of it is chosen; also while the choice is open.
    void SetRoles(const std::vector<UserLogical::Role_t>& vecRoles, const QStringList& listChosenIds);

Q_SIGNALS:
    void SignalChosenChanged(const QStringList& listIds);

private:
    void OnClicked();

    std::vector<UserLogical::Role_t> m_vecRoles;
    QStringList m_listChosenIds;
    QPointer<CRoleSelectPopView> m_pPopup;
};

} // namespace PlatformConfigUI
