#pragma once

#include "PersonFieldRules.h"

class QPushButton;
namespace VxGUI {
class VxLineEdit;
}

/// What the sections of a person do with their fields. User-interface thread.
namespace BasicInfoManagerUI::PersonFields {

/// Declares the checks of that text on the field.
void DeclareChecks(VxGUI::VxLineEdit* pEdit, PersonField field);
/// All checks, those on save too: the message that now stands at the field, with the focus there; else empty.
QString Check(VxGUI::VxLineEdit* pEdit, PersonField field);
/// Shows a text from elsewhere at the field, with the focus there.
void ShowHint(VxGUI::VxLineEdit* pEdit, const QString& sText);

void SetText(VxGUI::VxLineEdit* pEdit, const std::string& sText);
std::string GetText(const VxGUI::VxLineEdit* pEdit);

/// Marks the button that confirms a dialog.
void MakePrimary(QPushButton* pButton);

} // namespace BasicInfoManagerUI::PersonFields
