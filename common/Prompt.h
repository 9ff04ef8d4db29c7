#pragma once

#include "Failure.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

class QDialog;
class QWidget;

namespace VxGUI {
struct DialogSummary;
}

namespace Common {

/// A question titled "Prompt" with OK and Cancel; true for OK. False also when pParent is gone by then: who
/// asks goes on only with what is still there.
bool AskPrompt(QWidget* pParent, const QString& sText);
/// As AskPrompt, for a deletion: names what goes, and Enter at once does not delete it.
bool AskDelete(QWidget* pParent, const QString& sQuestion, const QStringList& listNames);
/// Shows a dialog of the module's own (taken) until it is closed, and runs onAccepted while it is still
/// there. False when it was not accepted, or the dialog or its parent is gone by then.
bool ShowAndDelete(
    QDialog* pDialog, const VxGUI::DialogSummary& summary, const std::function<void()>& onAccepted = {});
/// Where a file is to go; sEnding (".xlsx") is the filter, and added to a name without it. Empty: given up,
/// or pParent is gone by then.
QString AskSaveFile(
    QWidget* pParent, const QString& sTitle, const QString& sProposal, const QString& sEnding);
/// Lists what failed in a batch, each refusal once. Comes back when the list is closed; pParent may be gone
/// then.
void ShowFailures(QWidget* pParent, const QString& sText, const QVector<Failure>& vecFailures);
/// Why nothing can be done while the connection is lost.
QString NoConnectionText();
/// sPrefix followed by the text of the error, for a notification.
QString FailureText(const QString& sPrefix, int nErrorCode);

} // namespace Common
