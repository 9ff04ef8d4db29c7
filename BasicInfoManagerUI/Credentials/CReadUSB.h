#pragma once

#include "FingerReaderCalls.h"

#include <QMutex>
#include <QThread>
#include <QWaitCondition>

namespace BasicInfoManagerUI {

/// Enrols fingers at the reader on USB, on a thread of its own. The object itself belongs to the
/// user-interface thread, where its signals arrive queued; once it is destroyed none does any more.
class CReadUSB : public QThread
{
    Q_OBJECT

public:
    enum Result : int
    {
        ResultCollected,
        ResultFailed,
        ResultOpenFailed
    };

    explicit CReadUSB(FingerReaderCalls calls = {}, QObject* pParent = nullptr);
    /// Ends the thread: waits for the call of the reader that is under way, and for nothing else.
    ~CReadUSB() override;

    /// Enrols one finger; SignalFingerData is the end of it. The reader is opened the first time, and again
    /// after one of its calls has failed.
    void StartCollect();
    /// Gives everything up; nothing is reported any more, and nothing can be started again.
    void StopCollect();

Q_SIGNALS:
    /// nResult is a Result; sData: the template in Base64 when it was collected, else empty.
    void SignalFingerData(int nResult, const QString& sData);
    /// The finger was pressed for the nth time (1 to 3).
    void SignalPlaySound(int nPress);

protected:
    void run() override;

private:
    enum class Step
    {
        Done,
        NoFinger,
        Failed,
        Stopped
    };
    bool WaitForStart();
    /// False when it was stopped meanwhile.
    bool Sleep(int nMilliseconds);
    bool IsStopped();
    Step Collect(QString& sData);
    Step TakeImage();
    Step MergeAndRead(QString& sData);

    const FingerReaderCalls m_calls;
    QMutex m_mutex; ///< guards what follows
    QWaitCondition m_wake;
    bool m_bStart = false;
    bool m_bStop = false;
};

} // namespace BasicInfoManagerUI
