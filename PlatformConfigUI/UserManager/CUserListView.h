#pragma once

#include <UserLogical/UserRecords.h>

#include <QTreeView>

namespace Common {
class CRowButtonDelegate;
}

namespace PlatformConfigUI {

class CUserListHeader;
class CUserModel;

/// The list of users with its row operations, keys and context menu. It asks for operations by its signal.
/// User-interface thread.
class CUserListView : public QTreeView
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
    /// Replaces the rows; what was checked, current and in view stays so.
    void SetUsers(const std::vector<UserLogical::UserInfo_t>& vecUsers);
    /// Whether users may be changed; otherwise rows offer to be looked at only.
    void SetChangeable(bool bChangeable);

Q_SIGNALS:
    /// nRole: a RowRole.
    void SignalOperation(int nRole, const QString& sUserName);
    void SignalChecksChanged();

private:
    void SetUpColumns();
    void SetUpKeys();
    bool IsOffered(const QModelIndex& index, int nRole) const;
    void RaiseOperation(int nRole, const QModelIndex& index);
    void OpenUser(const QModelIndex& index);
    void OnContextMenu(const QPoint& pos);
    void OnToggleChecks();
    void OnChecksChanged();

    CUserModel* m_pModel;
    CUserListHeader* m_pHeader;
    Common::CRowButtonDelegate* m_pRowButtons;
    bool m_bChangeable = true;
};

} // namespace PlatformConfigUI
