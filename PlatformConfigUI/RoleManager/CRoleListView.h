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
    /// Whether the role of that ID is in the list and the operation can be had.
    bool IsAllowed(const QString& sId, int nRole) const;

protected:
    bool IsOffered(const QModelIndex& index, int nRole) const override;
    bool IsInMenu(const QModelIndex& index, int nRole) const override;
    void OpenRow(const QModelIndex& index) override;

private:
    CRoleModel* m_pModel;
};

} // namespace PlatformConfigUI
