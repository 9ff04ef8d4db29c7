#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

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

    /// pInterfaceSet is borrowed.
    CDisplayQRcodeDlg(
        const UICommonMdl::CInterfaceSetManager* pInterfaceSet, const QString& sPersonId, QWidget* pParent);

    void Start();

private:
    using Param = AccessControlLogical::IPersonManagerObserver::Param;
    /// A connection that is back brings a fresh code.
    void OnConnectionChanged(bool bConnected);
    void Query();
    void OnAnswer(const Param& param);
    void ShowFailed(int nErrorCode);

    QString m_sPersonId;
    QLabel* m_pCode;
    QLabel* m_pValid;
    QWidget* m_pCodePage;
    VxGUI::VxEmptyState* m_pState;
    QStackedLayout* m_pPages;
    QTimer m_timer;
    Common::CSession m_session;
    Common::CCalls<AccessControlLogical::IPersonManagerObserver> m_calls;
};

} // namespace BasicInfoManagerUI
