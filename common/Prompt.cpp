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
    // The parent may take the dialog along.
    const QPointer<QWidget> guard(pParent);
    const QPointer<QDialog> pDialog(new CDeletePromptDlg(Text::tr("Prompt"), sQuestion, listNames, pParent));
    const bool bOk = VxGUI::VxDialogService::Current()->Show(
        pDialog, {true, sQuestion, CDeletePromptDlg::GetNameLines(listNames)});
    delete pDialog;
    return bOk && guard == pParent;
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
    const QPointer<CFailureListDlg> pDialog(new CFailureListDlg(sHead, vecFailures, pParent));
    pDialog->setWindowTitle(Text::tr("Prompt"));
    VxGUI::VxDialogService::Current()->Show(pDialog, {false, sHead, pDialog->GetLines()});
    delete pDialog;
}

void ShowFailures(QWidget* pParent, const QString& sText, const QStringList& listFailures)
{
    const QString sSeparator = QStringLiteral(": ");
    QVector<Failure> vecFailures;
    for (const QString& sLine : listFailures) {
        const int nReason = sLine.indexOf(sSeparator);
        vecFailures.append(nReason < 0
                ? Failure{sLine, QString()}
                : Failure{sLine.left(nReason), sLine.mid(nReason + sSeparator.size())});
    }
    ShowFailures(pParent, sText, vecFailures);
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
