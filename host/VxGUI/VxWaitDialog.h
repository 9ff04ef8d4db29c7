#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

namespace VxGUI {

/// A modal dialog during long work, with progress and, where the work can be given up, a "Cancel" button. It
/// cannot be closed otherwise: its owner closes it with accept() when the work has ended. User-interface
/// thread.
class VXGUI_EXPORT VxWaitDialog : public QDialog
{
    Q_OBJECT

public:
    explicit VxWaitDialog(const QString& sText, QWidget* pParent = nullptr);

    void SetText(const QString& sText);
    /// nPercent from 0 to 100; below 0: how much is not known.
    void SetProgress(int nPercent);
    void SetCancellable(bool bCancellable);

Q_SIGNALS:
    void SignalCancelled();

public Q_SLOTS:
    void reject() override;

private:
    QLabel* m_pText;
    QProgressBar* m_pProgress;
    QPushButton* m_pCancel;
};

} // namespace VxGUI
