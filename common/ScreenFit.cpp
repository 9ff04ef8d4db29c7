#include "ScreenFit.h"

#include <QScreen>
#include <QWidget>

namespace Common {

namespace {
constexpr double ShareOfScreen = 0.9;
} // namespace

QSize FitToScreen(const QWidget* pWindow, QSize wanted)
{
    const QWidget* const pParent = pWindow->parentWidget();
    return wanted.boundedTo(
        (pParent ? pParent->window() : pWindow)->screen()->availableSize() * ShareOfScreen);
}

} // namespace Common
