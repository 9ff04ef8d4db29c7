#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QString>

namespace VxGUI {

/// Characters of a text as the rules of fields count them: code points.
VXGUI_EXPORT int CountCharacters(const QString& sText);

/// The beginning of a text with at most nMax of these characters. What a reader takes for one character (a
/// letter with its accents, a composed emoji) is taken whole or not at all.
VXGUI_EXPORT QString CutText(const QString& sText, int nMax);

} // namespace VxGUI
