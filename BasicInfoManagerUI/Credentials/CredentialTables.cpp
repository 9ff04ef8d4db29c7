#include "CredentialTables.h"

#include <Trv/QSkin.h>

#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <QTreeView>

namespace BasicInfoManagerUI {

namespace {
constexpr int MaxRows = 6;
constexpr int Padding = 8;
constexpr int Spacing = 6;
} // namespace

void CMarkDelegate::paint(
    QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(pPainter, option, index);
    const QStringList listTexts = index.data(MarkTexts).toStringList();
    const QStringList listTokens = index.data(MarkTokens).toStringList();
    pPainter->save();
    pPainter->setRenderHint(QPainter::Antialiasing);
    const int nHeight = option.fontMetrics.height() + 4;
    QRect rect(option.rect.left() + Padding, option.rect.center().y() - nHeight / 2, 0, nHeight);
    for (int n = 0; n < qMin(listTexts.size(), listTokens.size()); ++n) {
        rect.setWidth(option.fontMetrics.horizontalAdvance(listTexts[n]) + 2 * Padding);
        pPainter->setPen(Qt::NoPen);
        pPainter->setBrush(Trv::GetColor(listTokens[n] + QStringLiteral("-soft")));
        pPainter->drawRoundedRect(rect, 4, 4);
        pPainter->setPen(Trv::GetColor(listTokens[n]));
        pPainter->drawText(rect, Qt::AlignCenter, listTexts[n]);
        rect.moveLeft(rect.right() + 1 + Spacing);
    }
    pPainter->restore();
}

bool CMarkDelegate::helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView,
    const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (pEvent->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(pEvent, pView, option, index);
    QToolTip::showText(pEvent->globalPos(), index.data(Qt::AccessibleTextRole).toString(), pView);
    return true;
}

void FitToRows(QTreeView* pTable)
{
    pTable->ensurePolished();
    const int nRows = qMin(pTable->model()->rowCount(), MaxRows);
    const int nRowHeight = nRows > 0 ? pTable->sizeHintForRow(0) : 0;
    pTable->setFixedHeight(
        pTable->header()->sizeHint().height() + nRows * nRowHeight + 2 * pTable->frameWidth() + 2);
}

} // namespace BasicInfoManagerUI
