#pragma once

#include <common/CRequests.h>
#include <common/ObserverAdapters.h>

#include <QTimer>

namespace BasicInfoManagerUI {

/// Lets an access-control device capture a finger. User-interface thread.
class CReadFingerByDevice : public QObject
{
    Q_OBJECT

public:
    /// pManager is borrowed; null: every capture fails.
    explicit CReadFingerByDevice(
        AccessControlLogical::IAccessControlManager* pManager, QObject* pParent = nullptr);

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

    AccessControlLogical::IAccessControlManager* m_pManager;
    QTimer m_timer;
    Common::CRequests<Param> m_requests;
    Common::CPersonManagerAdapter m_adapter;
};

} // namespace BasicInfoManagerUI
