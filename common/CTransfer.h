#pragma once

#include "CPageWork.h"

#include <QFutureWatcher>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <functional>

class QWidget;
namespace VxGUI {
class VxWaitDialog;
}

namespace Common {

/// Work of a page or dialog that takes its time: an export, a download, a change of many records. While it
/// lasts a window tells how far it is and, where the work can be given up, offers "Cancel". A member of its
/// owner, for one work at a time. User-interface thread.
class CTransfer : public CPageWork
{
    Q_OBJECT

public:
    /// The window stands over pWindow, which is borrowed and outlives this object.
    CTransfer(QWidget* pWindow, QObject* pOwner);
    /// As End; waits for a file that is being written.
    ~CTransfer() override;

    enum class Shown
    {
        AtOnce,
        AfterAMoment ///< not at all when the work is done by then
    };
    /// cancel gives the work up, for the user or at the end of the owner; none: it cannot be given up.
    void Start(const QString& sText, std::function<void()> cancel = nullptr, Shown shown = Shown::AtOnce);
    /// nTotal 0: not known.
    void SetProgress(qint64 nDone, qint64 nTotal);
    /// The last step, which cannot be given up any more: runs write on another thread, ends the work with it
    /// and has then told its error text, empty on success. write owns what it reads.
    void Write(std::function<QString()> write, std::function<void(const QString& sError)> then);
    /// The work has ended.
    void Finish();
    /// Gives up what can be given up; a file that is being written is written, and nobody told.
    void End() override;

private:
    void ShowWindow();
    void GiveUp();
    void OnWritten();

    QWidget* m_pWindow;
    QPointer<VxGUI::VxWaitDialog> m_pDialog;
    QString m_sText;
    std::function<void()> m_cancel;
    std::function<void(const QString& sError)> m_then;
    QTimer m_delay;
    QFutureWatcher<QString> m_written;
    bool m_bEnded = false;
};

} // namespace Common
