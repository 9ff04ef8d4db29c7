#pragma once

#include <QString>

class QWidget;

namespace Common {

/// Loads the style sheet that is named after the widget's object name from the skin directory; a failed load
/// leaves the widget as it is.
void LoadStyleSheet(QWidget* pWidget, const QString& sSkinFolder);

} // namespace Common
