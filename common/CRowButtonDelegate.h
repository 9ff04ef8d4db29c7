#pragma once

#include <QIcon>
#include <QPersistentModelIndex>
#include <QStyledItemDelegate>
#include <QVector>

namespace Common {

/// One button of every row.
struct RowButton
{
    int nRole; ///< what the page knows it by
    QIcon icon; ///< null: the text is shown instead
    QString sText; ///< tool tip, or caption
};

/// Paints the row operations of one column as small buttons: no widget a row. The view needs mouse tracking
/// for the hover. User-interface thread.
class CRowButtonDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    CRowButtonDelegate(const QVector<RowButton>& vecButtons, QObject* pParent = nullptr);

    void paint(
        QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool editorEvent(QEvent* pEvent, QAbstractItemModel* pModel, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
    bool helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

    /// Where button nButton of a cell with that rectangle stands.
    QRect GetButtonRect(const QRect& cell, const QFontMetrics& metrics, int nButton) const;

Q_SIGNALS:
    void SignalButtonClicked(const QModelIndex& index, int nRole);

private:
    int ButtonAt(const QPoint& pos, const QStyleOptionViewItem& option) const;

    QVector<RowButton> m_vecButtons;
    QPersistentModelIndex m_hoverIndex;
    int m_nHoverButton = -1;
    int m_nPressedButton = -1;
};

} // namespace Common
