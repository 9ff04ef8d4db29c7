#pragma once

#include "FingerReaderCalls.h"

#include <common/CCalls.h>

#include <QDialog>
#include <QTimer>

#include <memory>

namespace Ui {
class CInputFinger;
}
namespace UICommonMdl {
class ILocalConfig;
} // namespace UICommonMdl

namespace BasicInfoManagerUI {

class CReadFingerByDevice;
class CReadUSB;

/// Enrols one finger, at the reader on USB or at an access-control device. Deletes itself when it is closed.
/// User-interface thread.
class CInputFinger : public QDialog
{
    Q_OBJECT

public:
    /// Kept in the settings as "AuthenFinger/type".
    enum ReaderType : int
    {
        ReaderNone = 0,
        ReaderUsb = 1,
        ReaderDevice = 2
    };

    /// pInterfaceSet is borrowed and outlives the dialog.
    CInputFinger(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent);
    ~CInputFinger() override;

    /// Other calls of the reader on USB, before it is used first.
    void SetReaderCalls(const FingerReaderCalls& calls) { m_readerCalls = calls; }
    /// How long a device may take to capture.
    void SetCaptureTimeOut(std::chrono::milliseconds timeOut);
    /// Without a connection a device cannot capture.
    void SetConnected(bool bConnected);
    void done(int nResult) override;

Q_SIGNALS:
    /// A finger was enrolled: its template in Base64. The dialog closes after it.
    void SignalCollected(const QString& sTemplate);

private:
    using GroupParam = GroupLogical::IGroupManagerObserver::Param;
    enum class State
    {
        Idle,
        Collecting,
        Failed,
        Collected
    };
    void SetUpReaders();
    void OnTypeChanged();
    void QueryDevices();
    void OnDevices(const GroupParam& param);
    void ShowDeviceState(const QString& sText);
    void Start();
    void StartUsb();
    void OnPress(int nPress);
    void OnCollected(const QString& sTemplate);
    void Fail(const QString& sText);
    void ShowState(State state);
    void ShowPresses(int nPresses);
    void ShowTip(const QString& sText, bool bGood);
    int GetType() const;

    std::unique_ptr<Ui::CInputFinger> m_pUi;
    UICommonMdl::ILocalConfig* m_pConfig;
    FingerReaderCalls m_readerCalls;
    std::unique_ptr<CReadUSB> m_pUsb;
    CReadFingerByDevice* m_pDevice;
    State m_state = State::Idle;
    bool m_bConnected = true;
    QTimer m_tipTimer;
    QTimer m_closeTimer;
    Common::CCalls<GroupLogical::IGroupManagerObserver> m_calls;
};

} // namespace BasicInfoManagerUI
