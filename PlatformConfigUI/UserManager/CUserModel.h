#pragma once

#include <UserLogical/UserRecords.h>
#include <common/CTableModel.h>

namespace PlatformConfigUI {

enum UserColumn : int
{
    UserColumnCheck = 0,
    UserColumnName, ///< key of every operation
    UserColumnRole,
    UserColumnStatus,
    UserColumnType,
    UserColumnOperation,
    UserColumnCount
};

/// What every cell of a row carries.
enum UserDataRole : int
{
    UserRoleName = Qt::UserRole, ///< user name
    UserRoleAllowed, ///< bool, whether the account can be locked and deleted: not the built-in one
    UserRoleLockState, ///< UserLogical::LockState
};

/// One page of users.
class CUserModel : public Common::CTableModel
{
    Q_OBJECT

public:
    explicit CUserModel(QObject* pParent = nullptr);

    void SetUsers(const std::vector<UserLogical::UserInfo_t>& vecUsers);
};

} // namespace PlatformConfigUI
