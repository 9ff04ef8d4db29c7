#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QString>

class QFontMetrics;

namespace VxGUI {

/// The title on two lines when one of nWidth (pixels) is too narrow for it, broken at the blank that leaves
/// the lines most alike; what is still too wide is elided.
VXGUI_EXPORT QString WrapTitle(const QString& sTitle, const QFontMetrics& metrics, int nWidth);

} // namespace VxGUI
