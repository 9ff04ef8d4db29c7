#include "CClientApp.h"

#include "CEmbeddedServer.h"
#include "CMainWindow.h"
#include "CPluginHost.h"
#include "CScreenshotTour.h"
#include "CSignInDlg.h"

#include <PlatformLogic/CPlatformClient.h>
#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/ILocalConfig.h>
#include <VxGUI/VxMessageBox.h>

#include <QApplication>
#include <QDir>
#include <QRandomGenerator>
#include <QSslCertificate>
#include <QStandardPaths>

#include <cstdio>

namespace ClientApp {

namespace {

const QString SkinKey = QStringLiteral("Client/Skin");

/// A password for a throwaway account that nobody has to type.
QString MakePassword()
{
    quint32 random[4];
    QRandomGenerator::system()->fillRange(random);
    QString sPassword = QStringLiteral("Aa1-");
    for (const quint32 nPart : random)
        sPassword += QString::number(nPart, 36).left(6);
    return sPassword;
}

bool Fail(const QString& sText)
{
    fprintf(stderr, "%s\n", qPrintable(sText));
    return false;
}

} // namespace

CClientApp::CClientApp(const ClientOptions& options)
    : m_options(options)
{
}

CClientApp::~CClientApp()
{
    m_pTour.reset();
    m_pSignIn.reset();
    m_pWindow.reset();
}

bool CClientApp::Start()
{
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    if (!SetUpFolders() || !SetUpTls(tls))
        return false;
    m_pClient = std::make_unique<PlatformLogic::CPlatformClient>(m_sConfigDir);
    const QString sKept = m_pClient->GetLocalConfig()->GetValue(SkinKey, QStringLiteral("light")).toString();
    ApplySkin(m_options.sSkin.isEmpty() ? sKept : m_options.sSkin);

    m_pPlugin = std::make_unique<CPluginHost>();
    const QString sPlugin =
        m_options.sPluginPath.isEmpty() ? CPluginHost::DefaultPath() : m_options.sPluginPath;
    const QString sError = m_pPlugin->Load(sPlugin, m_pClient.get());
    if (!sError.isEmpty())
        return Fail(tr("The configuration module could not be loaded: %1").arg(sError));

    connect(m_pClient.get(), &PlatformLogic::CPlatformClient::SignalSessionEnded, this,
        &CClientApp::OnSessionEnded);
    m_pSignIn = std::make_unique<CSignInDlg>(*m_pClient);
    connect(m_pSignIn.get(), &QDialog::accepted, this, &CClientApp::OnSignedIn);
    connect(m_pSignIn.get(), &QDialog::rejected, this, &CClientApp::OnSignInGivenUp, Qt::QueuedConnection);
    if (!m_options.sScreenshotDir.isEmpty())
        m_pTour = std::make_unique<CScreenshotTour>(*m_pClient, *m_pSignIn, m_options.sScreenshotDir);

    m_pSignIn->show();
    if (m_options.server.isEmpty()) {
        StartServer();
    } else {
        m_pClient->SetServer(m_options.server, tls);
        AskForSignIn();
    }
    return true;
}

bool CClientApp::SetUpFolders()
{
    if (m_options.bDemo && m_options.sDataDir.isEmpty())
        m_sDataDir = m_demoDir.path();
    else if (!m_options.sDataDir.isEmpty())
        m_sDataDir = m_options.sDataDir;
    else
        m_sDataDir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const bool bOwnFolder = m_options.bDemo || !m_options.sDataDir.isEmpty();
    m_sConfigDir =
        bOwnFolder ? m_sDataDir : QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    if (m_sDataDir.isEmpty() || !QDir().mkpath(m_sDataDir) || !QDir().mkpath(m_sConfigDir))
        return Fail(tr("The data folder cannot be created: %1").arg(m_sDataDir));
    return true;
}

bool CClientApp::SetUpTls(QSslConfiguration& tls) const
{
    if (m_options.sCaFile.isEmpty())
        return true;
    const QList<QSslCertificate> listCertificates = QSslCertificate::fromPath(m_options.sCaFile);
    if (listCertificates.isEmpty())
        return Fail(tr("No certificate could be read from %1").arg(m_options.sCaFile));
    tls.setCaCertificates(tls.caCertificates() + listCertificates);
    return true;
}

void CClientApp::StartServer()
{
    m_pSignIn->ShowWaiting(tr("Starting the server..."));
    m_pServer = std::make_unique<CEmbeddedServer>();
    connect(m_pServer.get(), &CEmbeddedServer::SignalReady, this, &CClientApp::OnServerReady);
    connect(m_pServer.get(), &CEmbeddedServer::SignalFailed, this, &CClientApp::OnServerFailed);
    m_pServer->Start(m_sDataDir, m_options.bDemo);
}

void CClientApp::OnServerReady(const QUrl& url)
{
    m_pClient->SetServer(url);
    if (m_options.bDemo)
        StartDemoDevices();
    AskForSignIn();
}

void CClientApp::StartDemoDevices()
{
    m_pServer->StartFieldDevices(m_sDataDir);
    // The simulated devices are on the loopback network, where nobody would look for devices.
    UICommonMdl::ILocalConfig* const pConfig = m_pClient->GetLocalConfig();
    if (pConfig->GetValue(QStringLiteral("AutoSearchIP/StartIP")).toString().isEmpty()) {
        pConfig->SetValue(QStringLiteral("AutoSearchIP/StartIP"), QStringLiteral("127.30.0.1"));
        pConfig->SetValue(QStringLiteral("AutoSearchIP/EndIP"), QStringLiteral("127.30.0.255"));
    }
}

void CClientApp::OnServerFailed(const QString& sReason)
{
    fprintf(stderr, "%s\n", qPrintable(sReason));
    if (!m_options.sScreenshotDir.isEmpty()) {
        QApplication::exit(1);
        return;
    }
    m_pSignIn->ShowFailure(sReason);
    m_pSignIn->show();
}

void CClientApp::AskForSignIn()
{
    if (m_options.bDemo)
        m_pSignIn->SignInAtOnce(QStringLiteral("system"), MakePassword());
    else
        m_pSignIn->Connect();
}

void CClientApp::OnSignedIn()
{
    const std::string sUser = m_pClient->GetUserManager()->GetUserName();
    // The same account goes on where it was, with its input; another one starts anew.
    if (m_pWindow && sUser == m_sWindowUser) {
        m_pWindow->OnRightsChanged();
        return;
    }
    CloseWindow();
    m_sWindowUser = sUser;
    OpenWindow();
}

void CClientApp::OnSignInGivenUp()
{
    if (!m_pWindow)
        QApplication::quit();
    else if (m_pWindow->MayLeave())
        OnSignOut(); // another account may sign in now
    else
        OnSessionEnded();
}

void CClientApp::OpenWindow()
{
    m_pWindow = std::make_unique<CMainWindow>(*m_pClient, m_pPlugin->GetTopLevelWidget());
    connect(m_pWindow.get(), &CMainWindow::SignalSignOut, this, &CClientApp::OnSignOut, Qt::QueuedConnection);
    connect(
        m_pWindow.get(), &CMainWindow::SignalSwitchSkin, this, &CClientApp::SwitchSkin, Qt::QueuedConnection);
    m_pWindow->resize(QSize(1280, 800).boundedTo(m_pWindow->screen()->availableSize()));
    m_pWindow->show();
    if (m_pTour)
        m_pTour->Start(*m_pWindow);
}

void CClientApp::CloseWindow()
{
    m_pWindow.reset();
}

void CClientApp::OnSessionEnded()
{
    if (!m_pWindow)
        return;
    m_pSignIn->AskAgain(
        QString::fromStdString(m_sWindowUser), tr("Your session has ended. Please sign in again."));
    m_pSignIn->setWindowModality(Qt::ApplicationModal);
    m_pSignIn->show();
}

void CClientApp::OnSignOut()
{
    // The dialog first: with no window left open the client would end.
    m_pSignIn->setWindowModality(Qt::NonModal);
    m_pSignIn->show();
    CloseWindow();
    m_sWindowUser.clear();
    m_pClient->SignOut();
    m_pSignIn->Connect();
}

void CClientApp::ApplySkin(const QString& sSkin)
{
    Trv::SetSkin(sSkin);
    // What style sheets cannot say: the colours of texts that stand in for missing ones, links and
    // selections.
    QPalette palette = qApp->palette();
    palette.setColor(QPalette::PlaceholderText, Trv::GetColor(QStringLiteral("text-muted")));
    palette.setColor(QPalette::Link, Trv::GetColor(QStringLiteral("accent")));
    palette.setColor(QPalette::Window, Trv::GetColor(QStringLiteral("window")));
    palette.setColor(QPalette::WindowText, Trv::GetColor(QStringLiteral("text")));
    palette.setColor(QPalette::Base, Trv::GetColor(QStringLiteral("surface")));
    palette.setColor(QPalette::Text, Trv::GetColor(QStringLiteral("text")));
    qApp->setPalette(palette);
    QString sStyleSheet;
    if (Trv::loadStyleSheet(Trv::GetSkinPath(QStringLiteral("Client.qss"), QString()), sStyleSheet))
        qApp->setStyleSheet(sStyleSheet);
}

void CClientApp::SwitchSkin()
{
    const QString sSkin =
        Trv::GetSkin() == QLatin1String("light") ? QStringLiteral("dark") : QStringLiteral("light");
    m_pClient->GetLocalConfig()->SetValue(SkinKey, sSkin);
    ApplySkin(sSkin);
    // Pages load their style sheets and pictures when they are built: with the other look they are built
    // anew.
    CloseWindow();
    OpenWindow();
}

} // namespace ClientApp
