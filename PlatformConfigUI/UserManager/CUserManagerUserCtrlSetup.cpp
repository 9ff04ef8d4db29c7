#include "CUserListHeader.h"
#include "CUserListView.h"
#include "CUserManagerUserCtrl.h"
#include "ui_CUserManagerUserCtrl.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/ILocalConfig.h>
#include <VxGUI/VxWaitDialog.h>

#include <QShortcut>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerUserCtrl)
};

constexpr int PushDelayMs = 200;
constexpr int WaitDelayMs = 400;
const QString PageSizeKey = QStringLiteral("UserManager/PageSize");

} // namespace

CUserManagerUserCtrl::CUserManagerUserCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CPage(pInterfaceSet, QStringLiteral("PlatformConfigUI/UserManagerUI"), pParent)
    , m_pLocalConfig(pInterfaceSet->GetLocalConfig())
    , m_pUi(std::make_unique<Ui::CUserManagerUserCtrl>())
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    m_pUi->lbConnection->Watch(GetSession());
    SetUpToolBar();
    SetUpList();
    SetUpShortcuts();
    SetUpTimers();
    UpdateRights();
    if (IsConnected())
        OnQueryCurrentPage();
    else
        OnConnectionChanged(false);
}

CUserManagerUserCtrl::~CUserManagerUserCtrl() = default;

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

void CUserManagerUserCtrl::SetUpTimers()
{
    using Observer = UserLogical::IUserManagerObserve;
    for (const int nResultCode : {Observer::ResultUsersChanged, Observer::ResultRolesChanged}) {
        m_calls.OnPush(nResultCode, [this](const Param&) {
            if (IsConnected() && !m_queryTimer.isActive())
                m_queryTimer.start();
        });
    }
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
