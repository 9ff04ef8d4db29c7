#include "CScreenshotTour.h"

#include "CMainWindow.h"
#include "CSignInDlg.h"

#include <PlatformLogic/CPlatformClient.h>

#include <QApplication>
#include <QDir>
#include <QPixmap>

#include <cstdio>

namespace ClientApp {

namespace {
constexpr int TickMs = 100;
constexpr int QuietTicks = 5;
constexpr int MaxTicks = 200;
// The first look at the site waits for the devices to be probed, so that pictures show both states.
constexpr int FirstProbeTicks = 30;
} // namespace

CScreenshotTour::CScreenshotTour(
    PlatformLogic::CPlatformClient& client, CSignInDlg& signIn, const QString& sFolder)
    : m_client(client)
    , m_signIn(signIn)
    , m_sFolder(sFolder)
{
    connect(&m_timer, &QTimer::timeout, this, &CScreenshotTour::OnTick);
}

void CScreenshotTour::SaveSignIn()
{
    m_signIn.show();
    m_signIn.ShowForm(CSignInDlg::Mode::SetUp);
    Save(m_signIn, QStringLiteral("first-start"));
    m_signIn.ShowForm(CSignInDlg::Mode::SignIn);
    Save(m_signIn, QStringLiteral("sign-in"));
    m_signIn.hide();
}

void CScreenshotTour::Start(CMainWindow& window)
{
    m_pWindow = &window;
    QDir().mkpath(m_sFolder);
    SaveSignIn();
    for (const UserLogical::MenuRight_t& right : m_client.GetUserManager()->GetMenuRights())
        m_queEntries.push_back(right.sWidgetName);
    m_sName = QStringLiteral("home");
    m_nQuietTicks = QuietTicks - FirstProbeTicks;
    m_timer.start(TickMs);
}

void CScreenshotTour::OnTick()
{
    m_nQuietTicks = m_client.GetOpenRequestCount() > 0 ? qMin(m_nQuietTicks, 0) : m_nQuietTicks + 1;
    if (m_nQuietTicks < QuietTicks && ++m_nTicks < MaxTicks)
        return;
    Save(*m_pWindow, m_sName);
    OpenNext();
}

void CScreenshotTour::OpenNext()
{
    if (m_queEntries.empty()) {
        m_timer.stop();
        QApplication::exit(0);
        return;
    }
    m_sName = QString::fromStdString(m_queEntries.front());
    m_pWindow->OpenEntry(m_queEntries.front());
    m_queEntries.pop_front();
    m_nQuietTicks = 0;
    m_nTicks = 0;
}

void CScreenshotTour::Save(QWidget& widget, const QString& sName)
{
    const QString sPath = m_sFolder + QLatin1Char('/') + sName + QStringLiteral(".png");
    if (!widget.grab().save(sPath)) {
        fprintf(stderr, "%s could not be written.\n", qPrintable(sPath));
        QApplication::exit(1);
    }
}

} // namespace ClientApp
