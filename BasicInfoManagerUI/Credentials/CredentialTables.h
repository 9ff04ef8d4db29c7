#pragma once

#include <QStyledItemDelegate>

class QTreeView;

namespace BasicInfoManagerUI {

/// Marks of a row, painted as coloured labels: MarkTexts and, for each, the colour token of MarkTokens. The
/// tool tip is the accessible text.
class CMarkDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    static constexpr int MarkTexts = Qt::UserRole + 1; ///< QStringList
    static constexpr int MarkTokens = Qt::UserRole + 2; ///< QStringList; each has a "-soft" sister

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(
        QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
};

/// Makes the table as high as its rows, up to a few: it stands in a page that scrolls.
void FitToRows(QTreeView* pTable);

} // namespace BasicInfoManagerUI
