#pragma once

#include <QDialog>

class QPushButton;

namespace Common {

/// Asks before something is deleted, and names what goes. The button that deletes is marked as dangerous, and
/// Enter at once does not press it. User-interface thread.
class CDeletePromptDlg : public QDialog
{
    Q_OBJECT

public:
    /// sTitle is that of the window; the first ten of the names are shown.
    CDeletePromptDlg(const QString& sTitle, const QString& sQuestion, const QStringList& listNames,
        QWidget* pParent = nullptr);

    /// The names as they are shown, one a line, and how many more there are.
    static QString GetNameLines(const QStringList& listNames);
};

} // namespace Common
