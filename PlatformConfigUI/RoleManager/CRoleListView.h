#pragma once

#include <UserLogical/UserRecords.h>
#include <common/CListView.h>

namespace PlatformConfigUI {

class CRoleModel;

/// The list of roles with their operations. User-interface thread.
class CRoleListView : public Common::CListView
{
    Q_OBJECT

public:
    /// What is done with a role.
    enum RowRole : int
    {
        RoleEdit = 1,
        RoleDelete,
        RoleDetails
    };

    explicit CRoleListView(QWidget* pParent = nullptr);

    CRoleModel* GetRoles() const { return m_pModel; }
    void SetRoles(const std::vector<UserLogical::Role_t>& vecRoles);
    /// Whether roles may be changed; otherwise rows offer to be looked at only.
    void SetChangeable(bool bChangeable);
    /// Whether the role of that ID is in the list and the operation can be had.
    bool IsAllowed(const QString& sId, int nRole) const;

Q_SIGNALS:
    /// nRole: a RowRole that is allowed.
    void SignalOperation(int nRole, const QString& sRoleId);

protected:
    bool IsOffered(const QModelIndex& index, int nRole) const override;
    bool IsInMenu(const QModelIndex& index, int nRole) const override;
    void RaiseOperation(int nRole, const QModelIndex& index) override;
    void OpenRow(const QModelIndex& index) override;

private:
    CRoleModel* m_pModel;
    bool m_bChangeable = true;
};

} // namespace PlatformConfigUI
