#pragma once

#include <UserLogical/UserRecords.h>

#include <QSet>
#include <QTreeView>

namespace Common {
class CTableModel;
}

namespace PlatformConfigUI {

/// Users of the directory, numbered. Where they can be ticked, a ticked one stays so while others are listed.
/// User-interface thread.
class CDomainUserView : public QTreeView
{
    Q_OBJECT

public:
    explicit CDomainUserView(QWidget* pParent = nullptr);

    /// Before the first users are shown.
    void SetCheckable();
    void SetUsers(const std::vector<UserLogical::DomainUser_t>& vecUsers);
    int GetCount() const;
    /// All names that are listed, in their order.
    QStringList GetNames() const;

    /// Names, by name; also of users that are not listed now.
    QStringList GetTicked() const;
    void SetTicked(const QStringList& listNames);
    /// Ticks what is listed, or nothing of it.
    void TickListed(bool bTicked);
    /// Whether none, some or all of what is listed is ticked.
    Qt::CheckState GetListedSummary() const;

Q_SIGNALS:
    void SignalTickedChanged();

private:
    QString NameAt(int nRow) const;
    void OnItemChanged(QStandardItem* pItem);
    void Toggle(const QModelIndex& index);
    void ShowTicks();

    Common::CTableModel* m_pModel = nullptr;
    bool m_bCheckable = false;
    QSet<QString> m_setTicked;
};

} // namespace PlatformConfigUI
