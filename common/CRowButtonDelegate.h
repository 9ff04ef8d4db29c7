#pragma once

#include <QIcon>
#include <QPersistentModelIndex>
#include <QStyledItemDelegate>
#include <QVector>

#include <functional>

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
    /// Whether a row has the button of that role.
    using OfferRule = std::function<bool(const QModelIndex& index, int nRole)>;
    /// Why a button that a row has cannot be used now, translated; empty: it can.
    using ObstacleRule = std::function<QString(const QModelIndex& index, int nRole)>;

    CRowButtonDelegate(const QVector<RowButton>& vecButtons, QObject* pParent = nullptr);

    /// Without a rule every row has every button. The others of a row close up to one that it lacks.
    void SetOfferRule(OfferRule rule) { m_rule = std::move(rule); }
    /// Without a rule nothing stands in the way. A button that cannot be used is greyed and says why.
    void SetObstacleRule(ObstacleRule rule) { m_obstacleRule = std::move(rule); }

    void paint(
        QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool editorEvent(QEvent* pEvent, QAbstractItemModel* pModel, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
    bool helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

    /// Where button nButton of a cell with that rectangle stands: in a row with all buttons, or in that row
    /// (null when it lacks the button).
    QRect GetButtonRect(const QRect& cell, const QFontMetrics& metrics, int nButton) const;
    QRect GetButtonRect(
        const QRect& cell, const QFontMetrics& metrics, int nButton, const QModelIndex& index) const;

Q_SIGNALS:
    void SignalButtonClicked(const QModelIndex& index, int nRole);

private:
    bool IsOffered(const QModelIndex& index, int nButton) const;
    QString GetObstacle(const QModelIndex& index, int nButton) const;
    int ButtonAt(const QPoint& pos, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    QVector<RowButton> m_vecButtons;
    OfferRule m_rule;
    ObstacleRule m_obstacleRule;
    QPersistentModelIndex m_hoverIndex;
    int m_nHoverButton = -1;
    int m_nPressedButton = -1;
};

} // namespace Common
