#include "CMainWindow.h"

#include "ui_CMainWindow.h"

#include <PlatformLogic/CPlatformClient.h>
#include <Trv/QSkin.h>
#include <UICommonMdl/CBasePanel.h>
#include <VxPluginAPI/IAbstractWidget.h>

#include <QCloseEvent>
#include <QMenu>
#include <QShortcut>

namespace ClientApp {

using VxPluginAPI::IAbstractWidget;

namespace {

bool AskToLeave(IAbstractWidget* pWidget)
{
    QVariant vMayLeave(true);
    pWidget->OnMsg(VxPluginAPI::MessageLeave, &vMayLeave, nullptr);
    return vMayLeave.toBool();
}

} // namespace

CMainWindow::CMainWindow(PlatformLogic::CPlatformClient& client, IAbstractWidget* pTopLevel)
    : m_pUi(std::make_unique<Ui::CMainWindow>())
    , m_client(client)
    , m_pTopLevel(pTopLevel)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("CMainWindow"));
    setWindowTitle(tr("Security Management"));
    m_pUi->btnHome->setToolTip(tr("Home (Alt+Home)"));
    m_pUi->btnHome->setAccessibleName(tr("Home"));
    m_pUi->btnSkin->setToolTip(tr("Switch between light and dark"));
    m_pUi->btnSkin->setAccessibleName(tr("Switch between light and dark"));
    m_pUi->btnUser->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_pUi->btnUser->setPopupMode(QToolButton::InstantPopup);
    auto* pMenu = new QMenu(m_pUi->btnUser);
    // Another client finds the server that this one has started by its address.
    pMenu->addAction(tr("Server: %1").arg(client.GetServer().toDisplayString()))->setEnabled(false);
    pMenu->addSeparator();
    connect(pMenu->addAction(tr("Sign Out")), &QAction::triggered, this, [this] {
        if (MayLeave())
            Q_EMIT SignalSignOut();
    });
    m_pUi->btnUser->setMenu(pMenu);
    m_pUi->lbConnection->setText(tr("Connection lost, trying again"));
    m_pUi->lbConnection->hide();

    connect(m_pUi->btnHome, &QToolButton::clicked, this, &CMainWindow::GoHome);
    connect(new QShortcut(QKeySequence(QStringLiteral("Alt+Home")), this), &QShortcut::activated, this,
        &CMainWindow::GoHome);
    connect(m_pUi->btnSkin, &QToolButton::clicked, this, [this] {
        if (MayLeave())
            Q_EMIT SignalSwitchSkin();
    });
    connect(
        &client, &PlatformLogic::CPlatformClient::SignalRightsChanged, this, &CMainWindow::OnRightsChanged);
    connect(&client, &PlatformLogic::CPlatformClient::SignalConnectionChanged, this,
        &CMainWindow::OnConnectionChanged);
    BuildHome();
    ReloadSkin();
    UpdateUser();
    ShowHome();
}

CMainWindow::~CMainWindow()
{
    // The entries stop their work before their pages and the home page go.
    m_pTopLevel->UninitUI();
}

void CMainWindow::BuildHome()
{
    QWidget* pHome = m_pTopLevel->GetWidget(m_pUi->pageHome);
    m_pUi->pageHome->setWidget(pHome);
    if (auto* pPanel = qobject_cast<UICommonMdl::CBasePanel*>(pHome))
        connect(pPanel, &UICommonMdl::CBasePanel::SignalOpenWidget, this, &CMainWindow::OpenWidget);
    QVariant vEnable(true);
    m_pTopLevel->OnMsg(VxPluginAPI::MessageAutoResize, &vEnable, nullptr);
}

void CMainWindow::ShowHome()
{
    m_pUi->stackPages->setCurrentWidget(m_pUi->pageHome);
    m_pUi->lbTitle->setText(tr("Configuration"));
    m_pUi->btnHome->setEnabled(false);
    // Not the button of the header that comes next.
    QWidget* const pHome = m_pUi->pageHome->widget();
    for (QWidget* pNext = pHome; pNext && (pNext == pHome || pHome->isAncestorOf(pNext));
         pNext = pNext->nextInFocusChain()) {
        if ((pNext->focusPolicy() & Qt::TabFocus) && pNext->isEnabled() && !pNext->isHidden()) {
            pNext->setFocus();
            return;
        }
    }
}

void CMainWindow::GoHome()
{
    IAbstractWidget* const pShown = m_hashPages.key(GetShownPage());
    if (!pShown || AskToLeave(pShown))
        ShowHome();
}

bool CMainWindow::MayLeave()
{
    return AskToLeave(m_pTopLevel);
}

void CMainWindow::closeEvent(QCloseEvent* pEvent)
{
    pEvent->setAccepted(MayLeave());
}

bool CMainWindow::OpenEntry(const std::string& sName)
{
    auto* pPanel = qobject_cast<UICommonMdl::CBasePanel*>(m_pTopLevel->GetWidget(m_pUi->pageHome));
    IAbstractWidget* pEntry = pPanel ? pPanel->CreateAbstractWidget(sName) : nullptr;
    if (!pEntry)
        return false;
    OpenWidget(pEntry);
    return true;
}

void CMainWindow::OpenWidget(IAbstractWidget* pEntry)
{
    QWidget*& pContainer = m_hashPages[pEntry];
    if (!pContainer) {
        pContainer = new QWidget(m_pUi->stackPages);
        auto* pLayout = new QVBoxLayout(pContainer);
        pLayout->setContentsMargins(0, 0, 0, 0);
        pLayout->addWidget(pEntry->GetWidget(pContainer));
        m_pUi->stackPages->addWidget(pContainer);
    }
    m_pUi->stackPages->setCurrentWidget(pContainer);
    m_pUi->lbTitle->setText(pEntry->GetWidgetTitle());
    m_pUi->btnHome->setEnabled(true);
}

QWidget* CMainWindow::GetShownPage() const
{
    return m_pUi->stackPages->currentWidget();
}

void CMainWindow::OnRightsChanged()
{
    QVariant vNothing;
    m_pTopLevel->OnMsg(VxPluginAPI::MessageRightsChanged, &vNothing, nullptr);
    IAbstractWidget* pShown = m_hashPages.key(GetShownPage());
    UserLogical::IUserRight* pRight = m_client.GetUserManager()->GetUserRight();
    if (pShown && !(pRight && pRight->HasRight(pShown->GetWidgetRight())))
        ShowHome();
    UpdateUser();
}

void CMainWindow::OnConnectionChanged(bool bConnected)
{
    m_pUi->lbConnection->setVisible(!bConnected);
}

void CMainWindow::UpdateUser()
{
    m_pUi->btnUser->setText(QString::fromStdString(m_client.GetUserManager()->GetUserName()));
}

void CMainWindow::ReloadSkin()
{
    QString sStyleSheet;
    if (Trv::loadStyleSheet(
            Trv::GetSkinPath(QStringLiteral("CMainWindow.qss"), QStringLiteral("Client")), sStyleSheet))
        setStyleSheet(sStyleSheet);
    m_pUi->btnHome->setIcon(Trv::GetIcon(QStringLiteral("home")));
    m_pUi->btnSkin->setIcon(Trv::GetIcon(QStringLiteral("theme")));
    m_pUi->btnUser->setIcon(Trv::GetIcon(QStringLiteral("user")));
}

} // namespace ClientApp
