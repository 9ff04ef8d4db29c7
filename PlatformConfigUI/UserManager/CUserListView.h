#pragma once

#include <UserLogical/UserRecords.h>
#include <common/CListView.h>

namespace PlatformConfigUI {

class CUserListHeader;
class CUserModel;

/// The list of users with their operations. User-interface thread.
class CUserListView : public Common::CListView
{
    Q_OBJECT

public:
    /// What is done with a user.
    enum RowRole : int
    {
        RoleLock = 1,
        RoleUnlock,
        RoleEdit,
        RoleDelete,
        RoleDetails
    };

    explicit CUserListView(QWidget* pParent = nullptr);

    CUserModel* GetUsers() const { return m_pModel; }
    CUserListHeader* GetHeader() const { return m_pHeader; }
    void SetUsers(const std::vector<UserLogical::UserInfo_t>& vecUsers);

protected:
    bool IsOffered(const QModelIndex& index, int nRole) const override;
    bool IsInMenu(const QModelIndex& index, int nRole) const override;
    void OpenRow(const QModelIndex& index) override;

private:
    CUserModel* m_pModel;
    CUserListHeader* m_pHeader;
};

} // namespace PlatformConfigUI
