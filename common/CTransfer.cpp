#include "CTransfer.h"

#include <VxGUI/VxWaitDialog.h>

#include <QCoreApplication>
#include <QtConcurrent>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CTransfer)
};

constexpr int DelayMs = 500;
constexpr int Unknown = -1;

} // namespace

CTransfer::CTransfer(QWidget* pWindow, QObject* pOwner)
    : CPageWork(pOwner)
    , m_pWindow(pWindow)
{
    m_delay.setParent(this);
    m_delay.setSingleShot(true);
    m_delay.setInterval(DelayMs);
    connect(&m_delay, &QTimer::timeout, this, &CTransfer::ShowWindow);
    connect(&m_written, &QFutureWatcher<QString>::finished, this, &CTransfer::OnWritten);
}

CTransfer::~CTransfer()
{
    End();
    m_written.waitForFinished();
}

void CTransfer::Start(const QString& sText, std::function<void()> cancel, Shown shown)
{
    if (m_bEnded)
        return;
    Finish();
    m_sText = sText;
    m_cancel = std::move(cancel);
    if (shown == Shown::AtOnce)
        ShowWindow();
    else
        m_delay.start();
}

void CTransfer::ShowWindow()
{
    // Who went to another page meanwhile is not called back.
    if (!m_pWindow->isVisible())
        return;
    m_pDialog = new VxGUI::VxWaitDialog(m_sText, m_pWindow);
    m_pDialog->setAttribute(Qt::WA_DeleteOnClose);
    m_pDialog->SetProgress(Unknown);
    m_pDialog->SetCancellable(bool(m_cancel));
    connect(m_pDialog, &VxGUI::VxWaitDialog::SignalCancelled, this, &CTransfer::GiveUp);
    m_pDialog->open();
}

void CTransfer::SetProgress(qint64 nDone, qint64 nTotal)
{
    if (m_pDialog)
        m_pDialog->SetProgress(
            nTotal > 0 ? int(qBound(qint64(0), nDone * 100 / nTotal, qint64(100))) : Unknown);
}

void CTransfer::Write(std::function<QString()> write, std::function<void(const QString& sError)> then)
{
    if (m_bEnded)
        return;
    m_cancel = nullptr;
    m_then = std::move(then);
    if (m_pDialog) {
        m_pDialog->SetText(Text::tr("Writing the file"));
        m_pDialog->SetProgress(Unknown);
        m_pDialog->SetCancellable(false);
    }
    m_written.setFuture(QtConcurrent::run(std::move(write)));
}

void CTransfer::OnWritten()
{
    if (m_bEnded)
        return;
    const auto then = std::exchange(m_then, nullptr);
    Finish();
    then(m_written.result());
}

void CTransfer::Finish()
{
    m_delay.stop();
    m_cancel = nullptr;
    if (m_pDialog)
        m_pDialog->accept();
    m_pDialog = nullptr;
}

void CTransfer::GiveUp()
{
    if (const auto cancel = std::exchange(m_cancel, nullptr))
        cancel();
    Finish();
}

void CTransfer::End()
{
    if (std::exchange(m_bEnded, true))
        return;
    Q_EMIT SignalEnding();
    GiveUp();
}

} // namespace Common
