#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QString>

class QWidget;

namespace VxGUI {

/// Marks the label of a field that must be filled with a "*" behind its text, in the skin's colour for
/// danger, and says "required" in the field's accessible name; or takes both away. The label is the one whose
/// buddy the field is, else the one that stands before it in its row. Without a label the accessible name
/// alone tells. To be called again after the field got another accessible name. A VxLineEdit with SetRequired
/// does it by itself. Both are borrowed. User-interface thread.
VXGUI_EXPORT void MarkRequired(QWidget* pField, bool bRequired = true);

/// What the field is called, without the word that marks it: its accessible name, else the text of its label.
VXGUI_EXPORT QString GetFieldName(QWidget* pField);

/// Whether the field is marked.
VXGUI_EXPORT bool IsMarkedRequired(const QWidget* pField);

} // namespace VxGUI
