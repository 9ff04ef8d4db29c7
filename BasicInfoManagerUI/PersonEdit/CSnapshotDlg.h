#pragma once

#include "CCameraSource.h"

#include <QDialog>

class QPushButton;
class QStackedWidget;
namespace VxGUI {
class VxEmptyState;
}

namespace BasicInfoManagerUI {

/// Takes a picture with the camera of this machine. Deletes itself when it is closed. User-interface thread.
class CSnapshotDlg : public QDialog
{
    Q_OBJECT

public:
    explicit CSnapshotDlg(QWidget* pParent);
    ~CSnapshotDlg() override;

Q_SIGNALS:
    void SignalPicture(const QImage& image);

private:
    void StartCamera();
    void OnTakeClicked();
    void OnFailed(const QString& sText);

    std::unique_ptr<CCameraSource> m_pCamera;
    QWidget* m_pViewfinder = nullptr;
    QStackedWidget* m_pStack;
    VxGUI::VxEmptyState* m_pState;
    QPushButton* m_pTake;
};

} // namespace BasicInfoManagerUI
