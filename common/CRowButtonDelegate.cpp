#include "CRowButtonDelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace Common {

namespace {
constexpr int IconSize = 16;
constexpr int Padding = 4;
constexpr int Spacing = 4;
} // namespace

CRowButtonDelegate::CRowButtonDelegate(const QVector<RowButton>& vecButtons, QObject* pParent)
    : QStyledItemDelegate(pParent)
    , m_vecButtons(vecButtons)
{
}

bool CRowButtonDelegate::IsOffered(const QModelIndex& index, int nButton) const
{
    return !m_rule || !index.isValid() || m_rule(index, m_vecButtons[nButton].nRole);
}

QString CRowButtonDelegate::GetObstacle(const QModelIndex& index, int nButton) const
{
    return m_obstacleRule ? m_obstacleRule(index, m_vecButtons[nButton].nRole) : QString();
}

QRect CRowButtonDelegate::GetButtonRect(const QRect& cell, const QFontMetrics& metrics, int nButton) const
{
    return GetButtonRect(cell, metrics, nButton, QModelIndex());
}

QRect CRowButtonDelegate::GetButtonRect(
    const QRect& cell, const QFontMetrics& metrics, int nButton, const QModelIndex& index) const
{
    if (!IsOffered(index, nButton))
        return {};
    int nLeft = cell.left() + Padding;
    for (int n = 0;; ++n) {
        if (!IsOffered(index, n))
            continue;
        const RowButton& button = m_vecButtons[n];
        const int nContent = button.icon.isNull() ? metrics.horizontalAdvance(button.sText) : IconSize;
        const QRect rect(nLeft, cell.center().y() - IconSize / 2 - Padding, nContent + 2 * Padding,
            IconSize + 2 * Padding);
        if (n == nButton)
            return rect;
        nLeft = rect.right() + 1 + Spacing;
    }
}

int CRowButtonDelegate::ButtonAt(
    const QPoint& pos, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    for (int n = 0; n < m_vecButtons.size(); ++n) {
        if (GetButtonRect(option.rect, option.fontMetrics, n, index).contains(pos))
            return n;
    }
    return -1;
}

void CRowButtonDelegate::paint(
    QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(pPainter, option, index);
    const bool bAnyEnabled = option.state.testFlag(QStyle::State_Enabled);
    for (int n = 0; n < m_vecButtons.size(); ++n) {
        const QRect rect = GetButtonRect(option.rect, option.fontMetrics, n, index);
        if (rect.isNull())
            continue;
        const bool bEnabled = bAnyEnabled && GetObstacle(index, n).isEmpty();
        const bool bHover = bEnabled && n == m_nHoverButton && m_hoverIndex == index;
        if (bHover) {
            QColor background = option.palette.color(QPalette::Highlight);
            background.setAlpha(48);
            pPainter->fillRect(rect, background);
        }
        const RowButton& button = m_vecButtons[n];
        if (button.icon.isNull()) {
            pPainter->setPen(option.palette.color(bEnabled ? QPalette::Normal : QPalette::Disabled,
                bEnabled ? QPalette::Link : QPalette::Text));
            pPainter->drawText(rect, Qt::AlignCenter, button.sText);
        } else {
            button.icon.paint(pPainter, rect.adjusted(Padding, Padding, -Padding, -Padding), Qt::AlignCenter,
                bEnabled ? QIcon::Normal : QIcon::Disabled);
        }
    }
}

QSize CRowButtonDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QRect last = GetButtonRect(QRect(), option.fontMetrics, m_vecButtons.size() - 1);
    return QStyledItemDelegate::sizeHint(option, index)
        .expandedTo({last.right() + 1 + Padding, IconSize + 2 * Padding});
}

bool CRowButtonDelegate::editorEvent(
    QEvent* pEvent, QAbstractItemModel* pModel, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (pEvent->type() != QEvent::MouseMove && pEvent->type() != QEvent::MouseButtonPress
        && pEvent->type() != QEvent::MouseButtonRelease)
        return QStyledItemDelegate::editorEvent(pEvent, pModel, option, index);

    const auto* pMouse = static_cast<QMouseEvent*>(pEvent);
    const int nButton = ButtonAt(pMouse->pos(), option, index);
    if (pEvent->type() == QEvent::MouseMove) {
        const QPersistentModelIndex previous = std::exchange(m_hoverIndex, index);
        const int nPrevious = std::exchange(m_nHoverButton, nButton);
        if (auto* pView = qobject_cast<QAbstractItemView*>(const_cast<QWidget*>(option.widget));
            pView && (previous != m_hoverIndex || nPrevious != nButton)) {
            pView->update(previous);
            pView->update(index);
        }
        return nButton >= 0;
    }
    if (pMouse->button() != Qt::LeftButton)
        return false;
    if (pEvent->type() == QEvent::MouseButtonPress) {
        m_nPressedButton = nButton;
        return nButton >= 0;
    }
    if (std::exchange(m_nPressedButton, -1) != nButton || nButton < 0)
        return false;
    if (!GetObstacle(index, nButton).isEmpty())
        return true;
    Q_EMIT SignalButtonClicked(index, m_vecButtons[nButton].nRole);
    return true;
}

bool CRowButtonDelegate::helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView,
    const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const int nButton = ButtonAt(pEvent->pos(), option, index);
    if (nButton < 0)
        return QStyledItemDelegate::helpEvent(pEvent, pView, option, index);
    const QString sObstacle = GetObstacle(index, nButton);
    const QString& sText = m_vecButtons[nButton].sText;
    QToolTip::showText(
        pEvent->globalPos(), sObstacle.isEmpty() ? sText : sText + QLatin1Char('\n') + sObstacle, pView);
    return true;
}

} // namespace Common
