#pragma once

#include <common/CCalls.h>

#include <QTimer>

namespace BasicInfoManagerUI {

/// Lets an access-control device capture a finger. User-interface thread.
class CReadFingerByDevice : public QObject
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CReadFingerByDevice(
        const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QObject* pParent = nullptr);

    /// How long a capture may take.
    void SetTimeOut(std::chrono::milliseconds timeOut) { m_timer.setInterval(timeOut); }
    /// Ends in exactly one of the signals, later or at once. A capture that is under way is given up.
    void Start(const QString& sDeviceId);
    /// What is captured from now on is dropped.
    void Stop();

Q_SIGNALS:
    /// The template in Base64.
    void SignalFingerData(const QString& sData);
    /// The translated reason.
    void SignalFailed(const QString& sText);

private:
    using Param = AccessControlLogical::IPersonManagerObserver::Param;
    void OnCaptured(const Param& param);
    void Fail(const QString& sText);

    QTimer m_timer;
    Common::CCalls<AccessControlLogical::IPersonManagerObserver> m_calls;
};

} // namespace BasicInfoManagerUI
