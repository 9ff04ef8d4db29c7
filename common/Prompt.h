#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace Common {

/// A question titled "Prompt" with OK and Cancel; true for OK.
bool AskPrompt(QWidget* pParent, const QString& sText);
/// Lists what failed in a batch, one line an item.
void ShowFailures(QWidget* pParent, const QString& sText, const QStringList& listFailures);
/// sPrefix followed by the text of the error, for a notification.
QString FailureText(const QString& sPrefix, int nErrorCode);

} // namespace Common
