#pragma once

#include "Column.h"

#include <QHash>
#include <QSet>
#include <QStandardItemModel>
#include <QVector>

#include <functional>

namespace Common {

/// A checked row, on this page or on another one.
struct CheckedItem
{
    QString sId;
    QString sLabel; ///< as the row was called when it was seen last
    QVariant vData; ///< CTableModel::KeptRole of its first cell
};

/// The rows of a list page, filled at once from one answer and found by their id. The id is the text of one
/// column; checks are the check state of another. User-interface thread.
class CTableModel : public QStandardItemModel
{
    Q_OBJECT

public:
    using Row = QVector<QStandardItem*>;
    /// What is kept of a checked row while it is not shown; in its first cell.
    static constexpr int KeptRole = Qt::UserRole + 100;

    /// nCheckColumn below 0: rows cannot be checked.
    CTableModel(
        const QVector<Column>& vecColumns, int nIdColumn, int nCheckColumn, QObject* pParent = nullptr);

    const QVector<Column>& GetColumns() const { return m_vecColumns; }
    int GetCheckColumn() const { return m_nCheckColumn; }
    /// From now on ids stay checked when their rows go, until ClearChecks or ForgetIds; the text of
    /// nLabelColumn is what they are called then. Otherwise only what is shown is checked.
    void KeepChecks(int nLabelColumn);
    /// Replaces all rows (taken; one item a column), with one notice to the views. Checks stay on the ids
    /// that are still there. Those of setUncheckable have no box.
    void SetRows(const QVector<Row>& vecRows, const QSet<QString>& setUncheckable = {});

    /// The tool tip of a cell is its text, for cells that are too narrow.
    QVariant data(const QModelIndex& index, int nRole = Qt::DisplayRole) const override;

    QString GetId(int nRow) const;
    /// -1 when no row has that id.
    int FindRow(const QString& sId) const;

    /// Everything that is checked: first the rows that are shown, in their order.
    QVector<CheckedItem> GetChecked() const;
    QStringList GetCheckedIds() const;
    int GetCheckedCount() const;
    /// What a row that is shown or checked is called; the id itself for another one.
    QString GetLabel(const QString& sId) const;
    /// Checks or unchecks the rows that are shown.
    void SetAllChecked(bool bChecked);
    /// Whether none, some or all of the rows that are shown and can be checked are checked.
    Qt::CheckState GetCheckSummary() const;
    /// These are checked, whether they are shown or not, and nothing else. Only with KeepChecks.
    void SetChecked(const QVector<CheckedItem>& vecChecked);
    /// Nothing is checked any more, on no page.
    void ClearChecks();
    /// These do not exist any more: they are not checked any more.
    void ForgetIds(const QStringList& listIds);

    /// A cell that cannot be edited.
    static QStandardItem* MakeItem(const QString& sText = QString());

Q_SIGNALS:
    /// Other ids are checked, or other rows are shown.
    void SignalChecksChanged();
    /// The rows are others, and complete.
    void SignalRowsReplaced();

private:
    bool IsRowChecked(int nRow) const;
    CheckedItem GetItem(int nRow) const;
    void TellChecks();
    void UncheckRows(const std::function<bool(const QString& sId)>& rule);

    QVector<Column> m_vecColumns;
    int m_nIdColumn;
    int m_nCheckColumn;
    int m_nLabelColumn;
    bool m_bKeepChecks = false;
    QHash<QString, int> m_mapRows;
    QVector<CheckedItem> m_vecElsewhere; ///< checked and not shown
};

} // namespace Common
