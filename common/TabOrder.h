#pragma once

#include <QVector>

class QWidget;

namespace Common {

/// Tab leads through those widgets, all in one window, in that order. Unlike a row of calls of
/// QWidget::setTabOrder it also works behind the last widget of the window that takes the focus: Qt 5.15
/// moves nothing there.
void SetTabOrder(const QVector<QWidget*>& vecOrder);

/// The widget itself and those within it that take the focus by Tab, in the order they have.
QVector<QWidget*> GetTabStops(QWidget* pWidget);

} // namespace Common
