#pragma once

#include <QTreeView>
#include <QVector>

#include <functional>

namespace UICommonMdl {
class ILocalConfig;
}

namespace Common {

class CColumnLayout;
class CFilterHeaderView;
class CRowButtonDelegate;
class CTableModel;

/// What the lists of pages share: check boxes with a check-all box, columns that fit what they hold, sorting,
/// operations at the end of each row that stay in view, keys, a context menu, and rows that are replaced
/// without losing what was checked, selected, current and in view. A derived list says which operations a row
/// has and asks for them by a signal of its own. User-interface thread.
class CListView : public QTreeView
{
    Q_OBJECT

public:
    /// One operation of a row.
    struct Operation
    {
        int nRole; ///< above 0, the list's own
        const char* pszIcon; ///< of the skin
        QString sText; ///< translated
    };

    explicit CListView(QWidget* pParent = nullptr);

    CTableModel* GetTable() const { return m_pTable; }
    /// Takes widths and shown columns from "<sPageKey>/Columns" and keeps them there. pConfig is borrowed,
    /// outlives the list and may be null.
    void RememberColumns(UICommonMdl::ILocalConfig* pConfig, const QString& sPageKey);
    /// Marks the first column with that key (Column::nSortKey) as the one the rows are sorted by; emits
    /// nothing.
    void SetSort(int nSortKey, Qt::SortOrder order);
    /// Whether the rows may be changed, as they may at first: it decides what the derived list offers.
    void SetChangeable(bool bChangeable);
    int GetSortKey() const { return m_nSortKey; }
    Qt::SortOrder GetSortOrder() const { return m_sortOrder; }

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& pos) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

Q_SIGNALS:
    /// The user wants that operation on the row of that id; the row has it.
    void SignalOperation(int nRole, const QString& sId);
    /// Rows were checked or replaced.
    void SignalChecksChanged();
    /// The user wants the rows in another order. nSortKey is that of the column.
    void SignalSortChanged(int nSortKey, Qt::SortOrder order);

protected:
    struct Columns
    {
        int nCheck; ///< below 0: rows cannot be checked
        int nName; ///< becomes current with its row
        int nOperation; ///< below 0: rows have no buttons
    };

    /// Once, by the constructor of the derived list. Takes model and header as children; the columns are as
    /// the model describes them.
    void SetUp(CTableModel* pModel, CFilterHeaderView* pHeader, const Columns& columns,
        const QVector<Operation>& vecButtons);
    /// The context menu's entries, and its object name.
    void SetMenu(const QString& sName, const QVector<Operation>& vecEntries);
    void AddKey(const QKeySequence& keys, const std::function<void()>& action);
    void AddKey(const QKeySequence& keys, int nRole);
    /// Calls replace, which changes the model's rows.
    void ReplaceRows(const std::function<void()>& replace);

    /// Whether the row has the operation as a button.
    virtual bool IsOffered(const QModelIndex& index, int nRole) const;
    /// Whether it is in the row's context menu; as a button when not overridden.
    virtual bool IsInMenu(const QModelIndex& index, int nRole) const;
    /// Why an operation that is offered cannot be done now, translated; empty: it can. Buttons and entries
    /// are disabled then and say so.
    virtual QString GetObstacle(const QModelIndex& index, int nRole) const;
    /// The operation was chosen on a row that may neither be there nor have it any more: SignalOperation when
    /// it is and has.
    virtual void RaiseOperation(int nRole, const QModelIndex& index);
    /// The row was double-clicked.
    virtual void OpenRow(const QModelIndex& index) = 0;
    bool IsChangeable() const { return m_bChangeable; }

    void drawRow(
        QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool viewportEvent(QEvent* pEvent) override;
    void scrollContentsBy(int nX, int nY) override;

private:
    void SetUpColumns();
    void SetUpButtons(const QVector<Operation>& vecButtons);
    void Perform(int nRole, const QModelIndex& index);
    void OnToggleChecks();
    void OnContextMenu(const QPoint& pos);
    void OnChecksChanged();
    void OnSortChosen(int nSection, Qt::SortOrder order);
    bool IsFrozenOverOthers() const;
    QStyleOptionViewItem FrozenOption(const QStyleOptionViewItem& row, const QModelIndex& index) const;

    CTableModel* m_pTable = nullptr;
    CFilterHeaderView* m_pFilterHeader = nullptr;
    CColumnLayout* m_pColumnLayout = nullptr;
    Columns m_columns{-1, 0, -1};
    int m_nSortKey = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    int m_nHoverRow = -1;
    bool m_bChangeable = true;
    QString m_sMenuName;
    QVector<Operation> m_vecMenu;
};

} // namespace Common
