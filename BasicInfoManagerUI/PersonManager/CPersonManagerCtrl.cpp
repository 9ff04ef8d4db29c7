#include "CPersonManagerCtrl.h"

#include "CDisplayQRcodeDlg.h"
#include "CHistoryLogDlg.h"
#include "CMovePersonTree.h"
#include "CPersonAuthorizeAbnormalDlg.h"
#include "CPersonGroupPane.h"
#include "CPersonnelListView.h"
#include "PersonRules.h"

#include <Credentials/CBatchIssueCard.h>
#include <PersonEdit/CPersonnelBatchAuthorizeUI.h>
#include <PersonEdit/CPersonnelInfoUI.h>
#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/CNumberPageCtrl.h>
#include <UserLogical/RightCodes.h>
#include <VxGUI/VxSearchBox.h>
#include <common/CListStatus.h>
#include <common/Prompt.h>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>

namespace BasicInfoManagerUI {

using AccessControlLogical::IAccessControlManager;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonManagerCtrl)
};

constexpr int DeleteMenuHeight = 34;
constexpr int SearchLimit = 30;
constexpr int SearchMinimum = 160;
constexpr int SearchWidth = 260;
constexpr std::chrono::minutes ReissueTimeOut{10};

std::vector<std::string> ToIds(const QStringList& listIds)
{
    std::vector<std::string> vecIds;
    for (const QString& sId : listIds)
        vecIds.push_back(sId.toStdString());
    return vecIds;
}

QStringList FailedIds(const std::vector<AccessControlLogical::PersonFailure_t>& vecFailed)
{
    QStringList listIds;
    for (const AccessControlLogical::PersonFailure_t& failure : vecFailed)
        listIds.append(QString::fromStdString(failure.sPersonId));
    return listIds;
}

QVector<Common::Failure> FailuresOf(const std::vector<AccessControlLogical::PersonFailure_t>& vecFailed)
{
    QVector<Common::Failure> vecFailures;
    for (const AccessControlLogical::PersonFailure_t& failure : vecFailed)
        vecFailures.append({QStringLiteral("%1 (%2)").arg(QString::fromStdString(failure.sName),
                                QString::fromStdString(failure.sPersonId)),
            UICommonMdl::CErrorCode::GetErroCodeInfor(failure.nErrorCode)});
    return vecFailures;
}

QVector<Common::Failure> FailuresOf(
    const std::vector<AccessControlLogical::AuthorizeException_t>& vecExceptions)
{
    QVector<Common::Failure> vecFailures;
    for (const AccessControlLogical::AuthorizeException_t& exception : vecExceptions)
        vecFailures.append({QStringLiteral("%1, %2").arg(QString::fromStdString(exception.sDeviceName),
                                GetCredentialText(exception.nCredential)),
            GetExceptionReason(exception)});
    return vecFailures;
}

} // namespace

CPersonManagerCtrl::CPersonManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CListPage(pInterfaceSet, QStringLiteral("BasicInfoManagerUI/Personnel"), pParent)
    , m_pGroups(new CPersonGroupPane(pInterfaceSet, this))
    , m_pList(new CPersonnelListView)
    , m_pGroupName(new QLabel)
    , m_pSubGroups(new QCheckBox(Text::tr("Include Sub-Group")))
    , m_pSearch(new VxGUI::VxSearchBox)
    , m_pEditor(new CPersonnelInfoUI(pInterfaceSet))
    , m_pIssueCard(new CBatchIssueCard(pInterfaceSet))
    , m_pAuthorize(new CPersonnelBatchAuthorizeUI(pInterfaceSet))
    , m_calls(pInterfaceSet, this)
    , m_reissueCalls(pInterfaceSet, this)
    , m_groupPushes(pInterfaceSet, this)
{
    setObjectName(QStringLiteral("CPersonnelManagerCtrl"));
    GetPages()->setObjectName(QStringLiteral("stackPages"));
    GetFrame()->setObjectName(QStringLiteral("pagePersons"));
    GetFrame()->GetPager()->setObjectName(QStringLiteral("m_pPageFileCtrl"));
    SetTexts({Text::tr("Loading persons"), Text::tr("Failed to search for people list"),
        Text::tr("You have no permission to see persons."), Text::tr("There is no person in this group."),
        Text::tr("No person matches the search.")});
    m_reissueCalls.SetLimit(ReissueTimeOut);
    GetFrame()->SetList(m_pList);
    GetFrame()->SetTree(m_pGroups);
    GetFrame()->AddTitle(MakeTitle());
    GetFrame()->GetStatus()->SetTotalText(Text::tr("Persons: %1"));
    SetUpGroups();
    SetUpToolBar();
    SetUpSearch();
    SetUpPages();
    GetFrame()->Remember(pInterfaceSet->GetLocalConfig(), QStringLiteral("PersonManager"));
    connect(m_pList, &CPersonnelListView::SignalOperation, this, &CPersonManagerCtrl::OnOperation);
    connect(m_pList, &CPersonnelListView::SignalBtnAbnormalClicked, this,
        &CPersonManagerCtrl::OnBtnAbnormalClicked);
    m_calls.OnPush(AccessControlLogical::IPersonManagerObserver::ResultPersonsChanged,
        [this](const Param&) { QueryLater(); });
    connect(this, &CPersonManagerCtrl::SgnFirstQueryPersonList, this,
        &CPersonManagerCtrl::OnFirsQueryPersonList, Qt::QueuedConnection);
    Q_EMIT SgnFirstQueryPersonList();
}

QWidget* CPersonManagerCtrl::MakeTitle()
{
    m_pGroupName->setObjectName(QStringLiteral("lbPersonGroupName"));
    m_pGroupName->setTextFormat(Qt::PlainText);
    m_pGroupName->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_pSubGroups->setObjectName(QStringLiteral("cbContainSub"));
    m_pSubGroups->setChecked(true);
    connect(m_pSubGroups, &QCheckBox::toggled, this, &CPersonManagerCtrl::QueryFirstPage);
    auto* const pTitle = new QWidget;
    auto* const pLayout = new QHBoxLayout(pTitle);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(12);
    pLayout->addWidget(m_pGroupName, 1);
    pLayout->addWidget(m_pSubGroups);
    return pTitle;
}

void CPersonManagerCtrl::SetUpGroups()
{
    connect(m_pGroups, &CPersonGroupPane::SignalGroupChanged, this, [this] {
        ShowGroupName();
        QueryFirstPage();
    });
    connect(m_pGroups, &CPersonGroupPane::SignalTreeChanged, this, &CPersonManagerCtrl::ShowGroupName);
    connect(m_pGroups, &CPersonGroupPane::SignalGroupSaved, this, &CPersonManagerCtrl::OnGroupSaved);
    connect(m_pGroups, &CPersonGroupPane::SignalGroupDeleted, this, [this](const QString& sCode) {
        ForgetGroup(sCode, true);
        QueryRows();
    });
    connect(m_pGroups, &CPersonGroupPane::SignalNotice, this, &CPersonManagerCtrl::Notify);
    m_groupPushes.OnPush(AccessControlLogical::IDepartmentManagerObserver::ResultDepartmentsChanged,
        [this](const AccessControlLogical::IDepartmentManagerObserver::Param&) {
            m_bGroupsStale = true;
            QueryLater();
        });
    ShowGroupName();
}

void CPersonManagerCtrl::SetUpToolBar()
{
    const Common::Need connection = GetFrame()->NeedsConnection();
    const Common::Need right =
        NeedsRight(UserLogical::RightChangePersons, Text::tr("You have no permission to change persons."));
    const QVector<Common::Need> vecChecked{
        connection, right, GetFrame()->NeedsChecked(Text::tr("Please select at least one person."))};
    Common::CToolBar* const pBar = GetToolBar();
    pBar->AddAction({"m_btnAdd", "add", Text::tr("Add"), [this] { OnBtnAddClicked(); }, {connection, right},
        QKeySequence::New});
    AddDeleteAction({connection, right});
    // Persons are neither imported nor exported yet.
    pBar->AddAction({"m_btnImport", "import", Text::tr("Import"), [] {}})->setVisible(false);
    pBar->AddAction({"m_btnExport", "export", Text::tr("Export"), [] {}})->setVisible(false);
    pBar->AddAction({"m_btnBatchIssuCard", "card", Text::tr("Batch Issue Card"),
        [this] { OnBtnBatchIssueCardClicked(); }, vecChecked});
    pBar->AddAction({"btnMoveTo", "move", Text::tr("Move To"),
        [this] { MovePersons(m_pList->GetPersons()->GetCheckedIds()); }, vecChecked});
    pBar->AddAction({"btnBatchAuthorize", "unlock", CPersonnelBatchAuthorizeUI::GetTitle(),
        [this] { OnBtnBatchAuthorizeClicked(); }, vecChecked});
    pBar->AddAction(
        {"btnRefresh", "refresh", Text::tr("Refresh"), [this] { QueryAll(); }, {connection}, Qt::Key_F5});
}

void CPersonManagerCtrl::AddDeleteAction(const QVector<Common::Need>& vecNeeds)
{
    const auto somebody = [this] {
        const bool bAny =
            GetFrame()->GetPager()->GetTotalCount() > 0 || m_pList->GetPersons()->GetCheckedCount() > 0;
        return bAny ? QString() : Text::tr("There is no person in this group.");
    };
    QAction* const pDelete = GetToolBar()->AddAction({"m_btnDel", "delete", Text::tr("Delete"),
        [this] { OnBtnDelClicked(); }, vecNeeds + QVector<Common::Need>{somebody}});
    auto* const pMenu = new QMenu(this);
    pMenu->setObjectName(QStringLiteral("menuDelete"));
    pMenu->setFixedHeight(DeleteMenuHeight);
    QAction* const pDeleteAll = pMenu->addAction(Text::tr("Delete All"));
    connect(pDeleteAll, &QAction::triggered, this, &CPersonManagerCtrl::OnDeleteAllClicked);
    // It stands beside "Delete" in the menu of what does not fit into the tool bar.
    const auto follow = [pDelete, pDeleteAll] {
        pDeleteAll->setEnabled(pDelete->isEnabled());
        pDeleteAll->setToolTip(pDelete->isEnabled() ? QString() : pDelete->toolTip());
    };
    connect(pDelete, &QAction::changed, pDeleteAll, follow);
    follow();
    GetToolBar()->SetMenu(pDelete, pMenu);
}

void CPersonManagerCtrl::SetUpSearch()
{
    m_pSearch->setObjectName(QStringLiteral("m_pSearchPerson"));
    m_pSearch->setMinimumWidth(SearchMinimum);
    m_pSearch->setMaximumWidth(SearchWidth);
    m_pSearch->setMaxLength(SearchLimit);
    m_pSearch->SetBackgroundText(Text::tr("ID/Name/Plate No."));
    m_pSearch->setAccessibleName(Text::tr("ID/Name/Plate No."));
    GetFrame()->SetSearch(m_pSearch);
    connect(m_pSearch, &VxGUI::VxSearchBox::SignalSearch, this, [this] {
        m_sSearchKey = m_pSearch->text().trimmed();
        QueryFirstPage();
    });
}

void CPersonManagerCtrl::SetUpPages()
{
    for (QWidget* const pPage : std::initializer_list<QWidget*>{m_pEditor, m_pIssueCard, m_pAuthorize})
        AddPage(pPage);
    connect(m_pEditor, &CPersonnelInfoUI::SignalBack, this, &CPersonManagerCtrl::ShowList);
    connect(m_pEditor, &CPersonnelInfoUI::SignalPersonSaved, this, &CPersonManagerCtrl::QueryRows);
    connect(m_pIssueCard, &CBatchIssueCard::SignalBack, this, &CPersonManagerCtrl::OnPageDone);
    connect(m_pAuthorize, &CPersonnelBatchAuthorizeUI::SignalBack, this, &CPersonManagerCtrl::OnPageDone);
}

void CPersonManagerCtrl::ApplyRights()
{
    const bool bMayChange = HasRight(UserLogical::RightChangePersons);
    m_pList->SetChangeable(bMayChange);
    m_pGroups->SetObstacle(bMayChange ? QString() : Text::tr("You have no permission to change persons."));
    CListPage::ApplyRights();
}

void CPersonManagerCtrl::OnConnectionChanged(bool bConnected)
{
    if (!bConnected)
        m_pGroups->ShowTreeState(UICommonMdl::ErrorDisconnected);
    CListPage::OnConnectionChanged(bConnected);
}

void CPersonManagerCtrl::ClearFilters()
{
    m_pSearch->clear();
    m_sSearchKey.clear();
}

void CPersonManagerCtrl::QueryAll()
{
    m_bGroupsStale = true;
    QueryRows();
}

void CPersonManagerCtrl::Query()
{
    if (std::exchange(m_bGroupsStale, false))
        m_pGroups->Query();
    AccessControlLogical::PersonPageRequest_t request;
    request.sGroupCode = m_pGroups->GetCode().toStdString();
    request.bSubGroups = m_pSubGroups->isChecked();
    request.sSearchKey = m_sSearchKey.toStdString();
    request.nPage = qMax(1, GetFrame()->GetPager()->GetCurrentPage());
    request.nPageSize = GetFrame()->GetPager()->GetPageSize();
    m_calls.Latest<&IAccessControlManager::QueryPersonList>(request, [this](const Param& param) {
        ShowAnswer(param.nErrorCode, param.personPage.nTotal, param.personPage.nPage,
            [&] { m_pList->SetPersons(param.personPage.vecPersons); });
    });
}

void CPersonManagerCtrl::ShowGroupName()
{
    const QString sName = m_pGroups->GetName();
    m_pGroupName->setText(sName.isEmpty() ? Text::tr("All Persons") : sName);
    m_pGroupName->setToolTip(m_pGroupName->text());
}

void CPersonManagerCtrl::OnGroupSaved(const QString& sCode, bool bAddPerson)
{
    if (!bAddPerson) {
        // Rows show the names of their groups.
        QueryRows();
        return;
    }
    m_pEditor->AddPerson(sCode);
    ShowPage(m_pEditor);
}

void CPersonManagerCtrl::ForgetGroup(const QString& sGroupCode, bool bSubGroups, const QStringList& listLeft)
{
    QStringList listGone;
    for (const AccessControlLogical::PersonInfo_t& person : m_pList->GetPersons()->GetCheckedPersons()) {
        const QString sGroup = QString::fromStdString(person.sGroupCode);
        const QString sId = QString::fromStdString(person.sPersonId);
        const bool bGone = sGroup == sGroupCode || (bSubGroups && m_pGroups->IsWithin(sGroup, sGroupCode));
        if (bGone && !listLeft.contains(sId))
            listGone.append(sId);
    }
    m_pList->GetPersons()->ForgetIds(listGone);
}

void CPersonManagerCtrl::OnOperation(int nRole, const QString& sPersonId)
{
    switch (nRole) {
    case CPersonnelListView::RoleEdit:
        m_pEditor->EditPerson(sPersonId);
        ShowPage(m_pEditor);
        break;
    case CPersonnelListView::RoleDetails:
        m_pEditor->ShowPerson(sPersonId);
        ShowPage(m_pEditor);
        break;
    case CPersonnelListView::RoleDelete:
        DeletePersons({sPersonId});
        break;
    case CPersonnelListView::RoleMove:
        MovePersons({sPersonId});
        break;
    case CPersonnelListView::RoleHistory:
        ShowHistory(sPersonId);
        break;
    case CPersonnelListView::RoleReissue:
        ReissuePerson(sPersonId);
        break;
    case CPersonnelListView::RoleQrCode:
        ShowQrCode(sPersonId);
        break;
    }
}

void CPersonManagerCtrl::OnBtnDelClicked()
{
    const QStringList listIds = m_pList->GetPersons()->GetCheckedIds();
    if (listIds.isEmpty())
        Notify(Text::tr("Please select at least one person."), VxGUI::NotificationKind::Warning);
    else
        DeletePersons(listIds);
}

void CPersonManagerCtrl::DeletePersons(const QStringList& listIds)
{
    QStringList listNames;
    for (const QString& sId : listIds)
        listNames.append(m_pList->GetPersons()->GetLabel(sId));
    if (!Common::AskDelete(this,
            Text::tr(
                "Are you sure you want to delete the selected person(s)? After deletion, the person(s) in "
                "the group and the related permissions will be deleted."),
            listNames))
        return;
    SendNext({listIds, QString(), Text::tr("Failed to delete person"), {}});
}

void CPersonManagerCtrl::OnDeleteAllClicked()
{
    const QString sGroupCode = m_pGroups->GetCode();
    if (sGroupCode.isEmpty()) {
        Notify(Text::tr("Please select a person group."), VxGUI::NotificationKind::Warning);
        return;
    }
    const bool bSubGroups = m_pSubGroups->isChecked();
    if (!Common::AskDelete(this,
            Text::tr(
                "Are you sure you want to delete all persons? After deletion, all group members and related "
                "permissions will be deleted."),
            {m_pGroups->GetName()}))
        return;
    m_calls.Each<&IAccessControlManager::DeleteAllPersons>(sGroupCode.toStdString(), bSubGroups,
        [this, sGroupCode, bSubGroups](const Param& param) { OnAllDeleted(param, sGroupCode, bSubGroups); });
}

void CPersonManagerCtrl::OnAllDeleted(const Param& param, const QString& sGroupCode, bool bSubGroups)
{
    if (param.nErrorCode == UICommonMdl::ErrorNone)
        ForgetGroup(sGroupCode, bSubGroups, FailedIds(param.vecFailed));
    ShowOutcome(Text::tr("Failed to delete person"), FailuresOf(param.vecFailed), param.nErrorCode);
}

void CPersonManagerCtrl::MovePersons(const QStringList& listIds)
{
    auto* const pTree = new CMovePersonTree(this);
    connect(pTree, &CMovePersonTree::SignalOkClicked, this,
        [this, listIds](const QString& sGroupCode) { OnMoveConfirmed(listIds, sGroupCode); });
    // The button may be in the menu of what does not fit.
    const QWidget* const pButton = GetToolBar()->FindButton(QStringLiteral("btnMoveTo"));
    pTree->PopUp(
        pButton->isVisible() ? pButton : GetToolBar()->findChild<QWidget*>(QStringLiteral("btnMore")));
}

void CPersonManagerCtrl::OnMoveConfirmed(const QStringList& listIds, const QString& sGroupCode)
{
    if (sGroupCode.isEmpty())
        Notify(Text::tr("Please select a department."), VxGUI::NotificationKind::Warning);
    else
        SendNext({listIds, sGroupCode, Text::tr("Failed to move departments in batches."), {}});
}

void CPersonManagerCtrl::SendNext(const Batch& batch)
{
    Batch rest = batch;
    const QStringList listSent = batch.listLeft.mid(0, int(AccessControlLogical::PersonBatchLimit));
    rest.listLeft = batch.listLeft.mid(listSent.size());
    const auto onAnswer = [this, listSent, rest](
                              const Param& param) { OnBatchAnswer(param, listSent, rest); };
    if (batch.sGroupCode.isEmpty())
        m_calls.Each<&IAccessControlManager::DeletePersons>(ToIds(listSent), onAnswer);
    else
        m_calls.Each<&IAccessControlManager::MovePersons>(
            ToIds(listSent), batch.sGroupCode.toStdString(), onAnswer);
}

void CPersonManagerCtrl::OnBatchAnswer(const Param& param, const QStringList& listSent, Batch batch)
{
    batch.vecFailures += FailuresOf(param.vecFailed);
    if (param.nErrorCode == UICommonMdl::ErrorNone && batch.sGroupCode.isEmpty()) {
        QStringList listGone = listSent;
        for (const QString& sId : FailedIds(param.vecFailed))
            listGone.removeAll(sId);
        m_pList->GetPersons()->ForgetIds(listGone);
    }
    if (param.nErrorCode == UICommonMdl::ErrorNone && !batch.listLeft.isEmpty())
        SendNext(batch);
    else
        ShowOutcome(batch.sFailure, batch.vecFailures, param.nErrorCode);
}

void CPersonManagerCtrl::ShowOutcome(
    const QString& sFailure, const QVector<Common::Failure>& vecFailures, int nErrorCode)
{
    QueryRows();
    // Last: the page may be gone when the message is closed.
    TellFailures(sFailure, vecFailures, nErrorCode);
}

void CPersonManagerCtrl::ReissuePerson(const QString& sPersonId)
{
    Notify(Text::tr("The rights are being sent again."), VxGUI::NotificationKind::Information);
    const auto onAnswer = [this](const Param& param) {
        const QString sFailure = GetReissueFailure(param.nErrorCode, 0, int(param.vecExceptions.size()));
        if (sFailure.isEmpty())
            Notify(Text::tr("The rights were sent again."), VxGUI::NotificationKind::Success);
        else
            Notify(sFailure, VxGUI::NotificationKind::Error);
        QueryRows();
        if (!param.vecExceptions.empty())
            WhenShown([this, vecFailures = FailuresOf(param.vecExceptions)] {
                Common::ShowFailures(this, Text::tr("Details of authorization failure"), vecFailures);
            });
    };
    m_reissueCalls.Each<&IAccessControlManager::ReissuePersonRight>(sPersonId.toStdString(), onAnswer);
}

void CPersonManagerCtrl::OnBtnAbnormalClicked(const QString& sPersonId)
{
    auto* const pDialog = new CPersonAuthorizeAbnormalDlg(GetInterfaceSet(), sPersonId, this);
    connect(pDialog, &QDialog::finished, this, &CPersonManagerCtrl::QueryRows);
    pDialog->open();
    pDialog->Start();
}

void CPersonManagerCtrl::ShowHistory(const QString& sPersonId)
{
    auto* const pDialog =
        new CHistoryLogDlg(GetInterfaceSet(), sPersonId, m_pList->GetPersons()->GetLabel(sPersonId), this);
    pDialog->open();
    pDialog->Start();
}

void CPersonManagerCtrl::ShowQrCode(const QString& sPersonId)
{
    auto* const pDialog = new CDisplayQRcodeDlg(GetInterfaceSet(), sPersonId, this);
    pDialog->open();
    pDialog->Start();
}

void CPersonManagerCtrl::OnBtnAddClicked()
{
    const QString sGroupCode = m_pGroups->GetCode();
    m_pEditor->AddPerson(
        sGroupCode.isEmpty() ? QLatin1String(AccessControlLogical::RootDepartmentCode) : sGroupCode);
    ShowPage(m_pEditor);
}

void CPersonManagerCtrl::OnBtnBatchIssueCardClicked()
{
    m_pIssueCard->SetPersons(m_pList->GetPersons()->GetCheckedPersons());
    ShowPage(m_pIssueCard);
}

void CPersonManagerCtrl::OnBtnBatchAuthorizeClicked()
{
    m_pAuthorize->SetPersons(m_pList->GetPersons()->GetCheckedPersons());
    ShowPage(m_pAuthorize);
}

void CPersonManagerCtrl::OnPageDone(bool bChanged)
{
    ShowList();
    if (bChanged)
        QueryRows();
}

void CPersonManagerCtrl::LeavePage()
{
    if (GetShownPage() == m_pEditor)
        m_pEditor->Leave();
    else if (GetShownPage() == m_pIssueCard)
        m_pIssueCard->Leave();
    else
        m_pAuthorize->Leave();
}

void CPersonManagerCtrl::keyPressEvent(QKeyEvent* pEvent)
{
    const bool bBack = pEvent->key() == Qt::Key_Escape || pEvent->matches(QKeySequence::Back);
    if (bBack && GetShownPage())
        LeavePage();
    else
        CListPage::keyPressEvent(pEvent);
}

} // namespace BasicInfoManagerUI
