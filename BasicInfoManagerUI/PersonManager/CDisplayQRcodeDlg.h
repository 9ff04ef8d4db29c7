#pragma once

#include <AccessControlLogical/IAccessControlManager.h>
#include <common/CRequests.h>
#include <common/ObserverAdapters.h>

#include <QDialog>
#include <QTimer>

class QLabel;
class QStackedLayout;
namespace VxGUI {
class VxEmptyState;
}

namespace BasicInfoManagerUI {

/// Shows the QR code of a person, a fresh one every two minutes. Deletes itself when it is closed.
/// User-interface thread.
class CDisplayQRcodeDlg : public QDialog
{
    Q_OBJECT

public:
    /// Between two codes, in milliseconds.
    static constexpr int RefreshMs = 120000;

    /// pManager is borrowed; null: every query is refused.
    CDisplayQRcodeDlg(
        AccessControlLogical::IAccessControlManager* pManager, const QString& sPersonId, QWidget* pParent);

    void Start();
    /// A connection that is back brings a fresh code.
    void SetConnected(bool bConnected);

private:
    using Param = AccessControlLogical::IPersonManagerObserver::Param;
    void Query();
    void OnAnswer(const Param& param);
    void ShowFailed(int nErrorCode);

    AccessControlLogical::IAccessControlManager* m_pManager;
    QString m_sPersonId;
    QLabel* m_pCode;
    QLabel* m_pValid;
    QWidget* m_pCodePage;
    VxGUI::VxEmptyState* m_pState;
    QStackedLayout* m_pPages;
    QTimer m_timer;
    Common::CRequests<Param> m_requests;
    Common::CPersonManagerAdapter m_adapter;
};

} // namespace BasicInfoManagerUI
