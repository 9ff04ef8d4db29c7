#include "CUserListHeader.h"
#include "CUserListView.h"
#include "CUserManagerUserCtrl.h"
#include "ui_CUserManagerUserCtrl.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/ILocalConfig.h>
#include <VxGUI/VxWaitDialog.h>
#include <common/StyleSheet.h>

#include <QDialog>
#include <QShortcut>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerUserCtrl)
};

constexpr int PushDelayMs = 200;
constexpr int WaitDelayMs = 400;
const QString SkinFolder = QStringLiteral("PlatformConfigUI/UserManagerUI");
const QString PageSizeKey = QStringLiteral("UserManager/PageSize");

} // namespace

CUserManagerUserCtrl::CUserManagerUserCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QWidget(pParent)
    , m_pManager(pInterfaceSet->GetUserManager())
    , m_pRemoteManager(pInterfaceSet->GetRemoteConfigManager())
    , m_pLocalConfig(pInterfaceSet->GetLocalConfig())
    , m_pUi(std::make_unique<Ui::CUserManagerUserCtrl>())
{
    Common::RegisterSignalTypes();
    m_pUi->setupUi(this);
    m_pUi->lbConnection->hide();
    SetUpToolBar();
    SetUpList();
    SetUpShortcuts();
    SetUpObservers();
    Common::LoadStyleSheet(this, SkinFolder);
    UpdateRights();
    if (m_pRemoteManager && !m_pRemoteManager->IsServerConnected())
        SetConnected(false);
    else
        OnQueryCurrentPage();
}

CUserManagerUserCtrl::~CUserManagerUserCtrl() = default;

bool CUserManagerUserCtrl::OnMsg(int, QVariant*, void*)
{
    return false;
}

void CUserManagerUserCtrl::UninitUI()
{
    m_bReleased = true;
    m_pSystemAdapter.reset();
    m_pLoginAdapter.reset();
    m_pUserAdapter.reset();
    m_requests.Clear();
    m_queryTimer.stop();
    OnStopWaitImmediately();
    qDeleteAll(findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly));
}

void CUserManagerUserCtrl::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    Common::LoadStyleSheet(this, SkinFolder);
}

void CUserManagerUserCtrl::SetUpToolBar()
{
    const struct
    {
        QPushButton* pButton;
        const char* pszIcon;
        void (CUserManagerUserCtrl::*slot)();
    } buttons[] = {{m_pUi->btnAdd, "add", &CUserManagerUserCtrl::OnBtnAddClicked},
        {m_pUi->btnDelete, "delete", &CUserManagerUserCtrl::OnBtnDeleteClicked},
        {m_pUi->btnImportDomain, "import-user", &CUserManagerUserCtrl::OnBtnImportClicked},
        {m_pUi->btnSyncDomain, "sync", &CUserManagerUserCtrl::OnBtnSyncClicked},
        {m_pUi->btnRefresh, "refresh", &CUserManagerUserCtrl::OnQueryCurrentPage}};
    for (const auto& button : buttons) {
        button.pButton->setIcon(Trv::GetIcon(QLatin1String(button.pszIcon)));
        connect(button.pButton, &QAbstractButton::clicked, this, button.slot);
    }
    m_pUi->edtSearchUser->SetBackgroundText(Text::tr("Username"));
    connect(m_pUi->edtSearchUser, &VxGUI::VxSearchBox::SignalSearch, this, [this] {
        m_sSearchText = m_pUi->edtSearchUser->text().trimmed();
        QueryFirstPage();
    });
}

void CUserManagerUserCtrl::SetUpList()
{
    const CUserListView* const pList = m_pUi->listUsers;
    connect(pList, &CUserListView::SignalOperation, this, &CUserManagerUserCtrl::OnOperation);
    connect(pList, &CUserListView::SignalChecksChanged, this, &CUserManagerUserCtrl::UpdateButtons);
    connect(pList->GetHeader(), &CUserListHeader::SignalFilterChanged, this,
        &CUserManagerUserCtrl::QueryFirstPage);
    connect(
        m_pUi->wgtListState, &VxGUI::VxEmptyState::SignalAction, this, &CUserManagerUserCtrl::OnStateAction);
    if (m_pLocalConfig)
        m_pUi->wgtPager->SetPageSize(m_pLocalConfig->GetValue(PageSizeKey).toInt());
    connect(m_pUi->wgtPager, &UICommonMdl::CNumberPageCtrl::SignalCurrentPageChanged, this,
        &CUserManagerUserCtrl::OnQueryCurrentPage);
    connect(
        m_pUi->wgtPager, &UICommonMdl::CNumberPageCtrl::SignalPageSizeChanged, this, [this](int nPageSize) {
            if (m_pLocalConfig)
                m_pLocalConfig->SetValue(PageSizeKey, nPageSize);
            QueryFirstPage();
        });
}

void CUserManagerUserCtrl::SetUpShortcuts()
{
    const auto add = [this](const QKeySequence& keys, auto action) {
        auto* const pShortcut = new QShortcut(keys, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        connect(pShortcut, &QShortcut::activated, this, action);
    };
    add(QKeySequence::New, [this] { m_pUi->btnAdd->click(); });
    add(Qt::Key_F5, [this] { m_pUi->btnRefresh->click(); });
    add(QKeySequence::Find, [this] { m_pUi->edtSearchUser->setFocus(); });
}

void CUserManagerUserCtrl::SetUpObservers()
{
    // The signals are emitted on threads of the host; what they mean happens on this one.
    connect(this, &CUserManagerUserCtrl::SignalNotifyUserManagerState, this,
        &CUserManagerUserCtrl::OnNotifyUserManagerState, Qt::QueuedConnection);
    connect(this, &CUserManagerUserCtrl::SignalDisconnectCms, this, &CUserManagerUserCtrl::OnDisconnectCms,
        Qt::QueuedConnection);
    connect(this, &CUserManagerUserCtrl::SignalReconnectCms, this, &CUserManagerUserCtrl::OnReconnectCms,
        Qt::QueuedConnection);
    connect(this, &CUserManagerUserCtrl::SignalShowNotify, this, &CUserManagerUserCtrl::OnShowNotify,
        Qt::QueuedConnection);
    m_pSystemAdapter = std::make_unique<Common::CSystemConfigAdapter>(m_pRemoteManager);
    m_pLoginAdapter = std::make_unique<Common::CLoginManagerAdapter>(m_pManager);
    m_pUserAdapter = std::make_unique<Common::CUserManagerAdapter>(m_pManager);
    connect(m_pSystemAdapter.get(), &Common::CSystemConfigAdapter::SignalState, this,
        &CUserManagerUserCtrl::OnSystemState, Qt::QueuedConnection);
    connect(m_pLoginAdapter.get(), &Common::CLoginManagerAdapter::SignalState, this,
        &CUserManagerUserCtrl::OnLoginState, Qt::QueuedConnection);
    connect(m_pUserAdapter.get(), &Common::CUserManagerAdapter::SignalState, this,
        &CUserManagerUserCtrl::SignalNotifyUserManagerState, Qt::DirectConnection);

    m_queryTimer.setSingleShot(true);
    m_queryTimer.setInterval(PushDelayMs);
    connect(&m_queryTimer, &QTimer::timeout, this, &CUserManagerUserCtrl::OnQueryCurrentPage);
    m_waitTimer.setSingleShot(true);
    m_waitTimer.setInterval(WaitDelayMs);
    connect(&m_waitTimer, &QTimer::timeout, this, [this] {
        m_pWaitDialog = new VxGUI::VxWaitDialog(m_sWaitText, this);
        m_pWaitDialog->setAttribute(Qt::WA_DeleteOnClose);
        m_pWaitDialog->SetCancellable(false);
        m_pWaitDialog->SetProgress(-1);
        m_pWaitDialog->open();
    });
}

} // namespace PlatformConfigUI
