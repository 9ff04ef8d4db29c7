#pragma once

#include <UserLogical/UserRecords.h>
#include <common/CTableModel.h>

#include <vector>

namespace PlatformConfigUI {

/// Columns of the log's list. The last one holds the row's id and is never shown.
enum AuditColumn : int
{
    AuditColumnTime,
    AuditColumnUser,
    AuditColumnAddress,
    AuditColumnOperation,
    AuditColumnObject,
    AuditColumnBefore,
    AuditColumnAfter,
    AuditColumnId,
    AuditColumnCount
};

/// One page of the log. User-interface thread.
class CAuditModel : public Common::CTableModel
{
    Q_OBJECT

public:
    explicit CAuditModel(QObject* pParent = nullptr);

    void SetEntries(const std::vector<UserLogical::AuditEntry_t>& vecEntries);
    /// Null when there is no such row.
    const UserLogical::AuditEntry_t* GetEntry(int nRow) const;

    /// The tool tip of a change is the whole of it, one line a field.
    QVariant data(const QModelIndex& index, int nRole = Qt::DisplayRole) const override;

private:
    std::vector<UserLogical::AuditEntry_t> m_vecEntries;
};

} // namespace PlatformConfigUI
