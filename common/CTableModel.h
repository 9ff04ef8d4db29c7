#pragma once

#include <QHash>
#include <QStandardItemModel>
#include <QVector>

namespace Common {

/// One column of a list.
struct TableColumn
{
    QString sHeader; ///< translated
    bool bShown; ///< shown as long as the user does not choose otherwise
};

/// The rows of a list page, filled at once from one answer and found by their id. The id is the text of one
/// column; checks are the check state of another. User-interface thread.
class CTableModel : public QStandardItemModel
{
    Q_OBJECT

public:
    using Row = QVector<QStandardItem*>;

    /// nCheckColumn below 0: rows cannot be checked.
    CTableModel(
        const QVector<TableColumn>& vecColumns, int nIdColumn, int nCheckColumn, QObject* pParent = nullptr);

    const QVector<TableColumn>& GetColumns() const { return m_vecColumns; }
    /// Replaces all rows (taken; one item a column), with one notice to the views. Checks stay on the ids
    /// that are still there.
    void SetRows(const QVector<Row>& vecRows);

    /// The tool tip of a cell is its text, for cells that are too narrow.
    QVariant data(const QModelIndex& index, int nRole = Qt::DisplayRole) const override;

    QString GetId(int nRow) const;
    /// -1 when no row has that id.
    int FindRow(const QString& sId) const;

    QStringList GetCheckedIds() const;
    void SetAllChecked(bool bChecked);
    /// Whether none, some or all rows are checked.
    Qt::CheckState GetCheckSummary() const;

    /// A cell that cannot be edited.
    static QStandardItem* MakeItem(const QString& sText = QString());

private:
    QVector<TableColumn> m_vecColumns;
    int m_nIdColumn;
    int m_nCheckColumn;
    QHash<QString, int> m_mapRows;
};

} // namespace Common
