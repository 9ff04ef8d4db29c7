#include "CReadFingerByDevice.h"

#include "CredentialLog.h"
#include "CredentialRules.h"

#include <common/Prompt.h>

#include <QCoreApplication>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CReadFingerByDevice)
};

constexpr std::chrono::milliseconds CaptureTimeOut{30000};

} // namespace

CReadFingerByDevice::CReadFingerByDevice(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QObject* pParent)
    : QObject(pParent)
    , m_calls(pInterfaceSet, this)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(CaptureTimeOut);
    connect(&m_timer, &QTimer::timeout, this, [this] { Fail(Text::tr("Fingerprint collection timeout.")); });
}

void CReadFingerByDevice::Start(const QString& sDeviceId)
{
    Stop();
    m_calls.Latest<&AccessControlLogical::IAccessControlManager::CaptureFingerprint>(
        sDeviceId.toStdString(), [this](const Param& param) { OnCaptured(param); });
    m_timer.start();
}

void CReadFingerByDevice::Stop()
{
    m_timer.stop();
    m_calls.ForgetAll();
}

void CReadFingerByDevice::OnCaptured(const Param& param)
{
    using namespace UICommonMdl;
    if (param.nErrorCode == ErrorDeviceTimeOut || param.nErrorCode == ErrorTimeOut) {
        Fail(Text::tr("Fingerprint collection timeout."));
    } else if (param.nErrorCode != ErrorNone) {
        Fail(Common::FailureText(Text::tr("Failed to collect fingerprint"), param.nErrorCode));
    } else if (!CredentialRules::IsTemplate(param.sFingerprintData)) {
        if (param.sFingerprintData.empty())
            qCInfo(LogCredentials, "m_strFingerprintData is empty.");
        Fail(Text::tr("Failed to collect fingerprint"));
    } else {
        Stop();
        Q_EMIT SignalFingerData(QString::fromStdString(param.sFingerprintData));
    }
}

void CReadFingerByDevice::Fail(const QString& sText)
{
    Stop();
    Q_EMIT SignalFailed(sText);
}

} // namespace BasicInfoManagerUI
