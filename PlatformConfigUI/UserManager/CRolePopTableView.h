#pragma once

#include <UserLogical/UserRecords.h>

#include <QTreeView>

namespace Common {
class CTableModel;
}

namespace PlatformConfigUI {

/// Roles with a check box each. User-interface thread.
class CRolePopTableView : public QTreeView
{
    Q_OBJECT

public:
    explicit CRolePopTableView(QWidget* pParent = nullptr);

    void SetRoles(const std::vector<UserLogical::Role_t>& vecRoles, const QStringList& listCheckedIds);
    /// Hides the roles whose name does not hold the text, whatever its case. Their checks stay.
    void SetFilter(const QString& sText);
    /// IDs, in the order of the rows.
    QStringList GetCheckedIds() const;
    /// Checks or unchecks what is shown.
    void SetShownChecked(bool bChecked);
    /// Whether none, some or all of what is shown is checked.
    Qt::CheckState GetShownSummary() const;
    bool IsNothingShown() const;

Q_SIGNALS:
    void SignalChecksChanged();

private:
    void Toggle(const QModelIndex& index);

    Common::CTableModel* m_pModel;
    QString m_sFilter;
};

} // namespace PlatformConfigUI
