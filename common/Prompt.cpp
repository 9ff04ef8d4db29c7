#include "Prompt.h"

#include "CDeletePromptDlg.h"
#include "CFailureListDlg.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxDialogService.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>

namespace Common {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Prompt)
};
} // namespace

bool AskPrompt(QWidget* pParent, const QString& sText)
{
    const QPointer<QWidget> guard(pParent);
    return VxGUI::VxDialogService::Current()->Question(pParent, Text::tr("Prompt"), sText)
        && guard == pParent;
}

bool AskDelete(QWidget* pParent, const QString& sQuestion, const QStringList& listNames)
{
    auto* const pDialog = new CDeletePromptDlg(Text::tr("Prompt"), sQuestion, listNames, pParent);
    return ShowAndDelete(pDialog, {true, sQuestion, CDeletePromptDlg::GetNameLines(listNames)});
}

bool ShowAndDelete(
    QDialog* pDialog, const VxGUI::DialogSummary& summary, const std::function<void()>& onAccepted)
{
    // The parent may go meanwhile, and take the dialog along.
    const bool bParent = pDialog->parentWidget();
    const QPointer<QWidget> pParent(pDialog->parentWidget());
    const QPointer<QDialog> guard(pDialog);
    const bool bAccepted =
        VxGUI::VxDialogService::Current()->Show(pDialog, summary) && guard && (pParent || !bParent);
    if (bAccepted && onAccepted)
        onAccepted();
    delete guard;
    return bAccepted;
}

QString AskSaveFile(QWidget* pParent, const QString& sTitle, const QString& sProposal, const QString& sEnding)
{
    const QPointer<QWidget> guard(pParent);
    QString sPath =
        VxGUI::VxDialogService::Current()->SaveFile(pParent, sTitle, sProposal, QLatin1Char('*') + sEnding);
    if (sPath.isEmpty() || guard != pParent)
        return {};
    if (sPath.endsWith(sEnding, Qt::CaseInsensitive))
        return sPath;
    // The chooser asked about the name without the ending.
    sPath += sEnding;
    if (QFileInfo::exists(sPath)
        && !AskPrompt(pParent,
            Text::tr("The file %1 exists already. Are you sure to replace it?")
                .arg(QFileInfo(sPath).fileName())))
        return {};
    return sPath;
}

void ShowFailures(QWidget* pParent, const QString& sText, const QVector<Failure>& vecFailures)
{
    const QString sHead = sText + QLatin1Char('\n') + Text::tr("Result of failure is shown below:");
    auto* const pDialog = new CFailureListDlg(sHead, vecFailures, pParent);
    pDialog->setWindowTitle(Text::tr("Prompt"));
    ShowAndDelete(pDialog, {false, sHead, pDialog->GetLines()});
}

QString NoConnectionText()
{
    return Text::tr("No connection to the server.");
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
