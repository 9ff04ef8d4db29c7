#pragma once

#include <QTreeView>
#include <QVector>

#include <functional>

namespace Common {

class CFilterHeaderView;
class CRowButtonDelegate;
class CTableModel;

/// What the lists of pages share: check boxes with a check-all box, operations at the end of each row, keys,
/// a context menu, and rows that are replaced without losing what was checked, selected, current and in view.
/// A derived list says which operations a row has and asks for them by a signal of its own. User-interface
/// thread.
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

Q_SIGNALS:
    /// Rows were checked or replaced.
    void SignalChecksChanged();

protected:
    struct Columns
    {
        int nCheck;
        int nName; ///< becomes current with its row
        int nOperation;
    };

    /// Once, by the constructor of the derived list. Takes model and header as children; the widths are those
    /// of the columns in their order, in pixels.
    void SetUp(CTableModel* pModel, CFilterHeaderView* pHeader, const Columns& columns,
        const QVector<Operation>& vecButtons, const QVector<int>& vecWidths);
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
    /// The operation was chosen on a row that may not be there any more.
    virtual void RaiseOperation(int nRole, const QModelIndex& index) = 0;
    /// The row was double-clicked.
    virtual void OpenRow(const QModelIndex& index) = 0;

private:
    void OnToggleChecks();
    void OnContextMenu(const QPoint& pos);
    void OnChecksChanged();

    CTableModel* m_pTable = nullptr;
    CFilterHeaderView* m_pFilterHeader = nullptr;
    Columns m_columns{};
    QString m_sMenuName;
    QVector<Operation> m_vecMenu;
};

} // namespace Common
