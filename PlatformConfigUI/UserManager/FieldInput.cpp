#include "FieldInput.h"

#include <VxGUI/VxLineEdit.h>

#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace PlatformConfigUI {

void RefuseOtherInput(VxGUI::VxLineEdit* pField, const QRegularExpression& pattern, const QString& sMessage)
{
    QLineEdit* const pEdit = pField->GetLineEdit();
    pEdit->setValidator(new QRegularExpressionValidator(pattern, pEdit));
    if (sMessage.isEmpty())
        return;
    QObject::connect(
        pEdit, &QLineEdit::inputRejected, pField, [pField, sMessage] { pField->SetErrorHint(sMessage); });
}

} // namespace PlatformConfigUI
