#include "CVerticalButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace ResourceManagerUI {

void CVerticalButton::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = QRect(QPoint(), option.rect.size().transposed());
    QStylePainter painter(this);
    painter.rotate(90);
    painter.translate(0, -width());
    painter.drawControl(QStyle::CE_PushButton, option);
}

} // namespace ResourceManagerUI
