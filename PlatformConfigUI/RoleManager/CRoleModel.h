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
    /// Checked roles that can be deleted.
    QStringList GetCheckedRoles() const;
    /// Whether none, some or all of those that can be deleted are checked.
    Qt::CheckState GetSummary() const;

    QVariant data(const QModelIndex& index, int nRole = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    bool IsBuiltIn(int nRow) const;

    std::vector<UserLogical::Role_t> m_vecRoles; ///< in the order of the rows
};

} // namespace PlatformConfigUI
