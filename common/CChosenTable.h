#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>

class QLabel;
class QTableView;
namespace Common {

class CTableModel;

/// A short list of what was chosen, known by ids, with a remove icon in every row; it grows with its rows.
/// User-interface thread.
class CChosenTable : public QWidget
{
    Q_OBJECT

public:
    /// Texts of the row of an id, one a column.
    using RowTexts = std::function<QStringList(const QString& sId)>;

    explicit CChosenTable(QWidget* pParent = nullptr);

    /// The headers before "Operation", and what stands there when nothing is chosen. Once, before all else.
    void SetUp(const QStringList& listHeaders, const QString& sEmptyText);
    /// The list takes the height that there is instead of that of its rows.
    void SetFilling();
    /// Draws the rows again with these texts.
    void SetRowTexts(RowTexts rowTexts);
    void SetIds(const QStringList& listIds);
    const QStringList& GetIds() const { return m_listIds; }
    /// Without remove icons.
    void SetReadOnly(bool bReadOnly);
    QTableView* GetView() const { return m_pView; }

Q_SIGNALS:
    /// The user removed one.
    void SignalRemoved(const QString& sId);

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void Remove(const QString& sId);
    void FillRows();
    void FitHeight();

    QTableView* m_pView;
    QLabel* m_pEmpty;
    CTableModel* m_pModel = nullptr;
    RowTexts m_rowTexts;
    QStringList m_listIds;
    int m_nTextColumns = 0;
    bool m_bFilling = false;
};

} // namespace Common
