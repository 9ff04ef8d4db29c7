#include "PersonFields.h"

#include <VxGUI/VxLineEdit.h>

#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

namespace BasicInfoManagerUI::PersonFields {

void DeclareChecks(VxGUI::VxLineEdit* pEdit, PersonField field)
{
    for (const PersonFieldCheck& check : GetPersonFieldChecks(field)) {
        if (check.kind == PersonFieldCheck::Required)
            pEdit->SetRequired(check.sMessage);
        else if (check.kind == PersonFieldCheck::Limit)
            pEdit->SetLimit(check.rule, check.sMessage);
        else if (check.kind == PersonFieldCheck::Forbidden)
            pEdit->SetForbidden(check.rule, check.sMessage);
        else
            pEdit->SetCheck(check.pHolds, check.sMessage);
    }
}

QString Check(VxGUI::VxLineEdit* pEdit, PersonField field)
{
    QString sFailure = pEdit->CheckInput();
    if (sFailure.isEmpty())
        sFailure = CheckPersonFieldOnSave(field, pEdit->text().trimmed());
    if (!sFailure.isEmpty())
        ShowHint(pEdit, sFailure);
    return sFailure;
}

void ShowHint(VxGUI::VxLineEdit* pEdit, const QString& sText)
{
    pEdit->SetErrorHint(sText);
    pEdit->setFocus();
}

void SetText(VxGUI::VxLineEdit* pEdit, const std::string& sText)
{
    pEdit->setText(QString::fromStdString(sText));
    pEdit->GetLineEdit()->setCursorPosition(0);
    pEdit->ClearErrorHint();
}

std::string GetText(const VxGUI::VxLineEdit* pEdit)
{
    return pEdit->text().trimmed().toStdString();
}

void MakePrimary(QPushButton* pButton)
{
    pButton->setProperty("role", QStringLiteral("primary"));
    pButton->setDefault(true);
    // The button box has given it its looks already.
    pButton->style()->unpolish(pButton);
    pButton->style()->polish(pButton);
}

} // namespace BasicInfoManagerUI::PersonFields
