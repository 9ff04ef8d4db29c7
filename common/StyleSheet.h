#pragma once

#include <QString>

class QWidget;

namespace Common {

/// Loads the style sheet that is named after the widget's object name from the skin directory; a failed load
/// leaves the widget as it is.
void LoadStyleSheet(QWidget* pWidget, const QString& sSkinFolder);

/// Gives a button the look of that role ("primary", "danger", "flat", "link"), also one that has its look
/// already, as those of a button box have.
void SetButtonRole(QWidget* pButton, const QString& sRole);

} // namespace Common
