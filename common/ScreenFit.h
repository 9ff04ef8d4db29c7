#pragma once

#include <QSize>

class QWidget;

namespace Common {

/// The wanted size of a window, or what the screen of its parent leaves for it: with its frame it is seen
/// whole.
QSize FitToScreen(const QWidget* pWindow, QSize wanted);

} // namespace Common
