#pragma once

#include <UserLogical/UserRecords.h>
#include <common/CTableModel.h>

namespace PlatformConfigUI {

enum RoleColumn : int
{
    RoleColumnCheck = 0,
    RoleColumnName,
    RoleColumnRemark,
    RoleColumnOperation,
    RoleColumnId, ///< key of every operation, never shown
    RoleColumnCount
};

/// The list of roles. The built-in one has no check box. User-interface thread.
class CRoleModel : public Common::CTableModel
{
    Q_OBJECT

public:
    explicit CRoleModel(QObject* pParent = nullptr);

    void SetRoles(const std::vector<UserLogical::Role_t>& vecRoles);
    /// Null when the list has no such role. Valid until the next change.
    const UserLogical::Role_t* FindRole(const QString& sId) const;

private:
    std::vector<UserLogical::Role_t> m_vecRoles; ///< in the order of the rows
};

} // namespace PlatformConfigUI
