#include "CPersonManagerCtrl.h"

#include "CPersonnelListView.h"
#include "ui_CPersonManagerCtrl.h"

#include <Credentials/CBatchIssueCard.h>
#include <PersonEdit/CPersonnelBatchAuthorizeUI.h>
#include <PersonEdit/CPersonnelInfoUI.h>
#include <Trv/QSkin.h>
#include <UICommonMdl/CDepartmentModelManager.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/ILocalConfig.h>
#include <common/CFlowLayout.h>

#include <QMenu>
#include <QShortcut>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonManagerCtrl)
};

constexpr int PushDelayMs = 200;
constexpr int DefaultTreeWidth = 204;
constexpr int DeleteMenuHeight = 34;
constexpr std::chrono::minutes ReissueTimeOut{10};
const QString TreeWidthKey = QStringLiteral("PersonManager/TreeWidth");
const QString PageSizeKey = QStringLiteral("PersonManager/PageSize");

} // namespace

CPersonManagerCtrl::CPersonManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CPage(pInterfaceSet, QStringLiteral("BasicInfoManagerUI/Personnel"), pParent)
    , m_pLocalConfig(pInterfaceSet->GetLocalConfig())
    , m_pDepartments(UICommonMdl::CDepartmentModelManager::Instance()->GetDepartmentModel())
    , m_pUi(std::make_unique<Ui::CPersonManagerCtrl>())
    , m_calls(pInterfaceSet, this)
    , m_reissueCalls(pInterfaceSet, this)
    , m_groupCalls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("CPersonnelManagerCtrl"));
    m_pUi->lbConnection->Watch(GetSession());
    m_reissueCalls.SetLimit(ReissueTimeOut);
    SetUpTree();
    SetUpToolBar();
    SetUpList();
    SetUpPages();
    SetUpShortcuts();
    RestoreLayout();
    OnGroupChanged();
    SetUpObservers();
    if (!IsConnected()) {
        OnConnectionChanged(false);
        return;
    }
    QueryDepartments();
    Q_EMIT SgnFirstQueryPersonList();
}

CPersonManagerCtrl::~CPersonManagerCtrl() = default;

void CPersonManagerCtrl::SetUpTree()
{
    const struct
    {
        QToolButton* pButton;
        const char* pszIcon;
        void (CPersonManagerCtrl::*slot)();
        QKeySequence keys;
    } operations[] = {{m_pUi->m_btnAddOrg, "add", &CPersonManagerCtrl::OnBtnAddOrgClicked, Qt::Key_Insert},
        {m_pUi->m_btnModifyOrg, "edit", &CPersonManagerCtrl::OnBtnModifyOrgClicked, Qt::Key_F2},
        {m_pUi->m_btnDelOrg, "delete", &CPersonManagerCtrl::OnBtnDelOrgClicked, Qt::Key_Delete}};
    for (const auto& operation : operations) {
        operation.pButton->setIcon(Trv::GetIcon(QLatin1String(operation.pszIcon)));
        connect(operation.pButton, &QAbstractButton::clicked, this, operation.slot);
        auto* pAction =
            new QAction(operation.pButton->icon(), operation.pButton->toolTip(), m_pUi->m_pTreeWnd);
        pAction->setShortcut(operation.keys);
        pAction->setShortcutContext(Qt::WidgetShortcut);
        connect(pAction, &QAction::triggered, this, operation.slot);
        m_pUi->m_pTreeWnd->addAction(pAction);
    }
    m_pUi->m_pSearchOrg->SetBackgroundText(Text::tr("Person Group"));
    m_pUi->m_pTreeWnd->SetTreeModel(m_pDepartments);
    connect(
        m_pUi->m_pSearchOrg, &QLineEdit::textChanged, m_pUi->m_pTreeWnd, &Common::CSearchTreeView::SetFilter);
    connect(m_pUi->m_pTreeWnd, &Common::CSearchTreeView::SignalCurrentIndexChanged, this, [this] {
        OnGroupChanged();
        QueryFirstPage();
    });
    connect(UICommonMdl::CDepartmentModelManager::Instance(),
        &UICommonMdl::CDepartmentModelManager::SignalDepartmentModelFinish, this,
        &CPersonManagerCtrl::OnDepartmentModelFinish);
    connect(
        m_pUi->wgtTreeState, &VxGUI::VxEmptyState::SignalAction, this, &CPersonManagerCtrl::QueryDepartments);
}

void CPersonManagerCtrl::SetUpToolBar()
{
    const std::pair<QAbstractButton*, const char*> icons[] = {{m_pUi->m_btnAdd, "add"},
        {m_pUi->m_btnDel, "delete"}, {m_pUi->m_btnImport, "import"}, {m_pUi->m_btnExport, "export"},
        {m_pUi->m_btnBatchIssuCard, "card"}, {m_pUi->btnMoveTo, "move"}, {m_pUi->btnBatchAuthorize, "unlock"},
        {m_pUi->btnRefresh, "refresh"}};
    auto* const pFlow = new Common::CFlowLayout(m_pUi->wgtActions);
    for (const auto& [pButton, pszIcon] : icons) {
        pButton->setIcon(Trv::GetIcon(QLatin1String(pszIcon)));
        pFlow->addWidget(pButton);
    }
    m_pUi->m_btnImport->hide();
    m_pUi->m_btnExport->hide();
    m_pUi->btnBatchAuthorize->setText(CPersonnelBatchAuthorizeUI::GetTitle());

    auto* pMenu = new QMenu(m_pUi->m_btnDel);
    pMenu->setObjectName(QStringLiteral("menuDelete"));
    pMenu->setFixedHeight(DeleteMenuHeight);
    connect(pMenu->addAction(Text::tr("Delete All")), &QAction::triggered, this,
        &CPersonManagerCtrl::OnDeleteAllClicked);
    m_pUi->m_btnDel->setMenu(pMenu);

    connect(m_pUi->m_btnAdd, &QAbstractButton::clicked, this, &CPersonManagerCtrl::OnBtnAddClicked);
    connect(m_pUi->m_btnDel, &QAbstractButton::clicked, this, &CPersonManagerCtrl::OnBtnDelClicked);
    connect(m_pUi->m_btnBatchIssuCard, &QAbstractButton::clicked, this,
        &CPersonManagerCtrl::OnBtnBatchIssueCardClicked);
    connect(m_pUi->btnBatchAuthorize, &QAbstractButton::clicked, this,
        &CPersonManagerCtrl::OnBtnBatchAuthorizeClicked);
    connect(m_pUi->btnMoveTo, &QAbstractButton::clicked, this,
        [this] { MovePersons(GetCheckedIds(), m_pUi->btnMoveTo); });
    connect(m_pUi->btnRefresh, &QAbstractButton::clicked, this, &CPersonManagerCtrl::QueryAll);
}

void CPersonManagerCtrl::SetUpList()
{
    m_pUi->m_pSearchPerson->SetBackgroundText(Text::tr("ID/Name/Plate No."));
    m_pUi->m_pSearchPerson->setAccessibleName(Text::tr("ID/Name/Plate No."));
    const CPersonnelListView* const pList = m_pUi->m_pPersonnelListView;
    connect(pList, &CPersonnelListView::SignalOperation, this, &CPersonManagerCtrl::OnOperation);
    connect(pList, &CPersonnelListView::SignalBtnAbnormalClicked, this,
        &CPersonManagerCtrl::OnBtnAbnormalClicked);
    connect(pList, &CPersonnelListView::SignalChecksChanged, this, &CPersonManagerCtrl::UpdateButtons);
    connect(m_pUi->cbContainSub, &QCheckBox::toggled, this, &CPersonManagerCtrl::QueryFirstPage);
    connect(m_pUi->m_pSearchPerson, &VxGUI::VxSearchBox::SignalSearch, this, [this] {
        m_sSearchKey = m_pUi->m_pSearchPerson->text().trimmed();
        QueryFirstPage();
    });
    connect(m_pUi->m_pPageFileCtrl, &UICommonMdl::CNumberPageCtrl::SignalCurrentPageChanged, this,
        &CPersonManagerCtrl::QueryCurrentPage);
    connect(m_pUi->m_pPageFileCtrl, &UICommonMdl::CNumberPageCtrl::SignalPageSizeChanged, this,
        [this](int nPageSize) {
            if (m_pLocalConfig)
                m_pLocalConfig->SetValue(PageSizeKey, nPageSize);
            QueryFirstPage();
        });
    connect(m_pUi->wgtListState, &VxGUI::VxEmptyState::SignalAction, this, &CPersonManagerCtrl::QueryAll);
    connect(m_pUi->splitter, &QSplitter::splitterMoved, this, [this] {
        if (m_pLocalConfig)
            m_pLocalConfig->SetValue(TreeWidthKey, m_pUi->splitter->sizes().value(0));
    });
}

void CPersonManagerCtrl::SetUpPages()
{
    m_pEditor = new CPersonnelInfoUI(GetInterfaceSet(), this);
    m_pIssueCard = new CBatchIssueCard(GetInterfaceSet(), this);
    m_pAuthorize = new CPersonnelBatchAuthorizeUI(GetInterfaceSet(), this);
    for (QWidget* pPage : {static_cast<QWidget*>(m_pEditor), static_cast<QWidget*>(m_pIssueCard),
             static_cast<QWidget*>(m_pAuthorize)})
        m_pUi->stackPages->addWidget(pPage);
    m_pUi->stackPages->setCurrentWidget(m_pUi->pagePersons);

    const auto backAfter = [this](bool bChanged) {
        ShowList();
        if (bChanged)
            QueryCurrentPage();
    };
    connect(m_pEditor, &CPersonnelInfoUI::SignalBack, this, &CPersonManagerCtrl::ShowList);
    connect(m_pEditor, &CPersonnelInfoUI::SignalPersonSaved, this, &CPersonManagerCtrl::QueryCurrentPage);
    connect(m_pIssueCard, &CBatchIssueCard::SignalBack, this, backAfter);
    connect(m_pAuthorize, &CPersonnelBatchAuthorizeUI::SignalBack, this, backAfter);
}

void CPersonManagerCtrl::SetUpShortcuts()
{
    m_pUi->m_btnAdd->setShortcut(QKeySequence::New);
    m_pUi->btnRefresh->setShortcut(Qt::Key_F5);
    auto* pFind = new QShortcut(
        QKeySequence::Find, m_pUi->pagePersons, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(
        pFind, &QShortcut::activated, m_pUi->m_pSearchPerson, [this] { m_pUi->m_pSearchPerson->setFocus(); });
}

void CPersonManagerCtrl::SetUpObservers()
{
    m_calls.OnPush(AccessControlLogical::IPersonManagerObserver::ResultPersonsChanged,
        [this](const PersonParam&) { QueryLater(false); });
    m_groupCalls.OnPush(AccessControlLogical::IDepartmentManagerObserver::ResultDepartmentsChanged,
        [this](const DepartmentParam&) { QueryLater(true); });
    connect(this, &CPersonManagerCtrl::SgnFirstQueryPersonList, this,
        &CPersonManagerCtrl::OnFirsQueryPersonList, Qt::QueuedConnection);
    m_queryTimer.setSingleShot(true);
    m_queryTimer.setInterval(PushDelayMs);
    connect(&m_queryTimer, &QTimer::timeout, this, &CPersonManagerCtrl::OnQueryTimer);
}

void CPersonManagerCtrl::RestoreLayout()
{
    int nTreeWidth = DefaultTreeWidth;
    if (m_pLocalConfig) {
        nTreeWidth = m_pLocalConfig->GetValue(TreeWidthKey, DefaultTreeWidth).toInt();
        m_pUi->m_pPageFileCtrl->SetPageSize(m_pLocalConfig->GetValue(PageSizeKey).toInt());
    }
    m_pUi->splitter->setSizes({nTreeWidth, 1000});
    m_pUi->splitter->setStretchFactor(0, 0);
    m_pUi->splitter->setStretchFactor(1, 1);
}

} // namespace BasicInfoManagerUI
