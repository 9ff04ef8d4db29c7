#include "CReadUSB.h"

#include "CredentialLog.h"

#include <AccessControlLogical/PersonRecords.h>

#include <QDeadlineTimer>

namespace BasicInfoManagerUI {

Q_LOGGING_CATEGORY(LogCredentials, "person.credentials")

namespace {

constexpr int StartInterval = 50;
constexpr int ImageInterval = 500;
constexpr int MaxTries = 5;
constexpr int Presses = 3;
constexpr int Slot = 1;

/// Whether a call succeeded, without a word of an error; logged otherwise.
bool IsGood(const char* pszCall, int nResult, int nErrorCode)
{
    if (nResult != 0 && nErrorCode == FingerprintReader::ErrorNone)
        return true;
    qCInfo(LogCredentials, "%s failed. error code = %d", pszCall, nErrorCode);
    return false;
}

} // namespace

CReadUSB::CReadUSB(FingerReaderCalls calls, QObject* pParent)
    : QThread(pParent)
    , m_calls(std::move(calls))
{
}

CReadUSB::~CReadUSB()
{
    StopCollect();
    wait();
}

void CReadUSB::StartCollect()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_bStart = true;
        m_wake.wakeAll();
    }
    if (!isRunning())
        start();
}

void CReadUSB::StopCollect()
{
    const QMutexLocker lock(&m_mutex);
    m_bStop = true;
    m_wake.wakeAll();
}

bool CReadUSB::IsStopped()
{
    const QMutexLocker lock(&m_mutex);
    return m_bStop;
}

bool CReadUSB::WaitForStart()
{
    const QMutexLocker lock(&m_mutex);
    while (!m_bStart && !m_bStop)
        m_wake.wait(&m_mutex, StartInterval);
    m_bStart = false;
    return !m_bStop;
}

bool CReadUSB::Sleep(int nMilliseconds)
{
    const QMutexLocker lock(&m_mutex);
    const QDeadlineTimer deadline(nMilliseconds);
    while (!m_bStop && !deadline.hasExpired())
        m_wake.wait(&m_mutex, deadline);
    return !m_bStop;
}

void CReadUSB::run()
{
    bool bOpen = false;
    while (WaitForStart()) {
        int nErrorCode = 0;
        if (!bOpen) {
            const int nResult = m_calls.open(&nErrorCode);
            bOpen = IsGood("ConfigCommParameterUDisk", nResult, nErrorCode);
        }
        QString sData;
        const Step step = bOpen ? Collect(sData) : Step::Failed;
        if (IsStopped())
            return;
        if (!bOpen)
            Q_EMIT SignalFingerData(ResultOpenFailed, {});
        else
            Q_EMIT SignalFingerData(step == Step::Done ? ResultCollected : ResultFailed, sData);
        bOpen = bOpen && step != Step::Failed;
    }
}

CReadUSB::Step CReadUSB::Collect(QString& sData)
{
    int nErrorCode = 0;
    const int nCleared = m_calls.clear(Slot, &nErrorCode);
    if (!IsGood("CmdDelChar", nCleared, nErrorCode))
        return Step::Failed;
    for (int nPress = 1; nPress <= Presses; ++nPress) {
        const Step step = TakeImage();
        if (step != Step::Done)
            return step;
        const int nMade = m_calls.makeFeatures(nPress, &nErrorCode);
        if (!IsGood("CmdGenChar", nMade, nErrorCode))
            return Step::Failed;
        if (IsStopped())
            return Step::Stopped;
        Q_EMIT SignalPlaySound(nPress);
    }
    return MergeAndRead(sData);
}

CReadUSB::Step CReadUSB::TakeImage()
{
    for (int nTry = 1;; ++nTry) {
        if (IsStopped())
            return Step::Stopped;
        int nErrorCode = 0;
        const int nTaken = m_calls.takeImage(&nErrorCode);
        const bool bNoFinger = nTaken != 0 && nErrorCode == FingerprintReader::ErrorNoFinger;
        if (!bNoFinger)
            return IsGood("CmdGetRedressImage", nTaken, nErrorCode) ? Step::Done : Step::Failed;
        if (nTry == MaxTries)
            return Step::NoFinger;
        if (!Sleep(ImageInterval))
            return Step::Stopped;
    }
}

CReadUSB::Step CReadUSB::MergeAndRead(QString& sData)
{
    int nErrorCode = 0;
    int nValue = FingerprintReader::MergeValue;
    const int nMerged = m_calls.merge(&nValue, &nErrorCode);
    if (!IsGood("CmdMergeChar", nMerged, nErrorCode) || nValue != FingerprintReader::MergeValue)
        return Step::Failed;
    const int nStored = m_calls.store(Slot, &nValue, &nErrorCode);
    if (!IsGood("CmdStoreChar", nStored, nErrorCode) || nValue != FingerprintReader::StoredValue)
        return Step::Failed;
    QByteArray abTemplate(int(AccessControlLogical::TemplateSize), '\0');
    int nSize = abTemplate.size();
    const int nRead =
        m_calls.read(Slot, reinterpret_cast<unsigned char*>(abTemplate.data()), &nSize, &nErrorCode);
    if (!IsGood("CmdReadCharDirect_xAlg", nRead, nErrorCode))
        return Step::Failed;
    sData = QString::fromLatin1(abTemplate.toBase64());
    return Step::Done;
}

} // namespace BasicInfoManagerUI
