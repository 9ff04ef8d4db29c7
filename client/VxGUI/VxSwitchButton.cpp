#include <VxGUI/VxSwitchButton.h>

#include <Trv/QSkin.h>

#include <QPainter>
#include <QStyleOptionFocusRect>

namespace VxGUI {

namespace {
constexpr QSize SwitchSize(36, 20);
constexpr int KnobMargin = 3;
} // namespace

VxSwitchButton::VxSwitchButton(QWidget* pParent)
    : QAbstractButton(pParent)
    , m_trackColor(Trv::GetColor(QStringLiteral("border-strong")))
    , m_checkedColor(Trv::GetColor(QStringLiteral("accent")))
    , m_knobColor(Trv::GetColor(QStringLiteral("on-accent")))
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize VxSwitchButton::sizeHint() const
{
    return SwitchSize + QSize(4, 4);
}

void VxSwitchButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1.0 : 0.4);
    QRectF track(QPointF(0, 0), SwitchSize);
    track.moveCenter(QRectF(rect()).center());
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? m_checkedColor : m_trackColor);
    painter.drawRoundedRect(track, track.height() / 2, track.height() / 2);
    const qreal nKnob = track.height() - 2 * KnobMargin;
    const qreal nLeft = isChecked() ? track.right() - KnobMargin - nKnob : track.left() + KnobMargin;
    painter.setBrush(m_knobColor);
    painter.drawEllipse(QRectF(nLeft, track.top() + KnobMargin, nKnob, nKnob));
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(m_checkedColor, 1));
        painter.drawRoundedRect(track.adjusted(-1.5, -1.5, 1.5, 1.5), track.height() / 2, track.height() / 2);
    }
}

} // namespace VxGUI
