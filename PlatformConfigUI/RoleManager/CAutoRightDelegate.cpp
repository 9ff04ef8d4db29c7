#include "CAutoRightDelegate.h"

#include "CDeviceRightModel.h"

#include <Trv/QSkin.h>

#include <QMouseEvent>
#include <QPainter>

namespace PlatformConfigUI {

namespace {

constexpr QSize SwitchSize(32, 16);
constexpr int LeftMargin = 8;
constexpr int KnobMargin = 2;
constexpr qreal InheritedOpacity = 0.5;

} // namespace

QRect CAutoRightDelegate::GetSwitchRect(const QRect& cell)
{
    QRect rect(QPoint(), SwitchSize);
    rect.moveTopLeft({cell.left() + LeftMargin, cell.center().y() - SwitchSize.height() / 2});
    return rect;
}

void CAutoRightDelegate::paint(
    QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(pPainter, option, index);
    const int nState = index.data(CDeviceRightModel::RoleAuto).toInt();
    if (nState == CDeviceRightModel::AutoNone)
        return;
    const bool bOn = nState != CDeviceRightModel::AutoOff;
    const QRect track = GetSwitchRect(option.rect);
    const int nSide = track.height() - 2 * KnobMargin;
    QRect knob(track.left() + KnobMargin, track.top() + KnobMargin, nSide, nSide);
    if (bOn)
        knob.moveRight(track.right() - KnobMargin);
    pPainter->save();
    pPainter->setRenderHint(QPainter::Antialiasing);
    if (nState == CDeviceRightModel::AutoInherited || !option.state.testFlag(QStyle::State_Enabled))
        pPainter->setOpacity(InheritedOpacity);
    pPainter->setPen(Qt::NoPen);
    pPainter->setBrush(Trv::GetColor(bOn ? QStringLiteral("accent") : QStringLiteral("border-strong")));
    pPainter->drawRoundedRect(track, track.height() / 2.0, track.height() / 2.0);
    pPainter->setBrush(Trv::GetColor(bOn ? QStringLiteral("on-accent") : QStringLiteral("surface")));
    pPainter->drawEllipse(knob);
    pPainter->restore();
}

bool CAutoRightDelegate::editorEvent(
    QEvent* pEvent, QAbstractItemModel*, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (pEvent->type() != QEvent::MouseButtonPress && pEvent->type() != QEvent::MouseButtonRelease)
        return false;
    const auto* const pMouse = static_cast<QMouseEvent*>(pEvent);
    const bool bInside =
        pMouse->button() == Qt::LeftButton && GetSwitchRect(option.rect).contains(pMouse->pos());
    if (pEvent->type() == QEvent::MouseButtonPress) {
        m_pressed = bInside ? index : QModelIndex();
        return bInside;
    }
    const bool bClicked = bInside && m_pressed == index;
    m_pressed = QModelIndex();
    if (bClicked)
        Q_EMIT SignalToggled(index);
    return bClicked;
}

} // namespace PlatformConfigUI
