#include "Prompt.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxDialogService.h>

#include <QCoreApplication>

namespace Common {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Prompt)
};
} // namespace

bool AskPrompt(QWidget* pParent, const QString& sText)
{
    return VxGUI::VxDialogService::Current()->Question(pParent, Text::tr("Prompt"), sText);
}

void ShowFailures(QWidget* pParent, const QString& sText, const QStringList& listFailures)
{
    VxGUI::VxDialogService::Current()->Message(pParent, Text::tr("Prompt"),
        sText + QLatin1Char('\n') + Text::tr("Result of failure is shown below:"),
        listFailures.join(QLatin1Char('\n')));
}

QString FailureText(const QString& sPrefix, int nErrorCode)
{
    const QString sError = UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode);
    if (sError.isEmpty())
        return sPrefix;
    // A sentence is followed by a sentence, a phrase by its explanation.
    const QString sHead = sPrefix.trimmed();
    return sHead + (sHead.endsWith(QLatin1Char('.')) ? QStringLiteral(" ") : QStringLiteral(": ")) + sError;
}

} // namespace Common
