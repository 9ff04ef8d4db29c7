#include "CBatchIssueCard.h"

#include "CIssueCardModel.h"
#include "ui_CBatchIssueCard.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UserLogical/RightCodes.h>
#include <VxGUI/VxNotification.h>
#include <common/CRowButtonDelegate.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QHeaderView>
#include <QShortcut>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CBatchIssueCard)
};

constexpr int RoleRemove = 1;
constexpr int NextRowDelay = 500;
/// Numbers that a message names; all of them are marked in the table.
constexpr int MaxNamed = 10;

} // namespace

CBatchIssueCard::CBatchIssueCard(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CBatchIssueCard>())
    , m_pModel(new CIssueCardModel(this))
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
    , m_guard(this)
{
    m_pUi->setupUi(this);
    m_pUi->m_pBtnBack->setIcon(Trv::GetIcon(QStringLiteral("back")));
    m_pUi->m_pBtnSaveBatch->setProperty("role", QStringLiteral("primary"));
    m_pUi->wgtBatchReaderBar->SetConfig(pInterfaceSet->GetLocalConfig());
    m_pUi->wgtNoPersons->SetState(VxGUI::VxEmptyState::Kind::Empty, Text::tr("No persons"));
    SetUpTable();
    m_guard.SetDirtyCheck([this] { return IsDirty(); });
    m_guard.SetClose([this] { Finish(false); });
    m_guard.SetQuestion(Text::tr("The card numbers are not saved. Are you sure to leave?"));
    m_guard.SetBusyCheck([this] { return m_bSaving; },
        Text::tr("It is not known yet whether the cards are issued. Are you sure to leave?"));
    m_nextTimer.setSingleShot(true);
    m_nextTimer.setInterval(NextRowDelay);
    connect(&m_nextTimer, &QTimer::timeout, this, &CBatchIssueCard::GoToNextRow);
    connect(m_pUi->wgtBatchReaderBar, &CCardReaderBar::SignalCardNo, this, &CBatchIssueCard::OnCardRead);
    connect(m_pUi->wgtBatchReaderBar, &CCardReaderBar::SignalBadCard, this,
        [this](const QString& sText) { VxGUI::VxNotification::Show(this, sText); });
    connect(m_pUi->m_pBtnSaveBatch, &QAbstractButton::clicked, this, &CBatchIssueCard::Save);
    connect(m_pUi->m_pBtnCancelBatch, &QAbstractButton::clicked, this, &CBatchIssueCard::Leave);
    connect(m_pUi->m_pBtnBack, &QAbstractButton::clicked, this, &CBatchIssueCard::Leave);
    auto* const pSave =
        new QShortcut(QKeySequence::Save, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(pSave, &QShortcut::activated, this, &CBatchIssueCard::Save);
    auto* const pEscape =
        new QShortcut(Qt::Key_Escape, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(pEscape, &QShortcut::activated, this, &CBatchIssueCard::Leave);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this, &CBatchIssueCard::ShowState);
    connect(&m_session, &Common::CSession::SignalRightsChanged, this, &CBatchIssueCard::ShowState);
    ShowState();
}

CBatchIssueCard::~CBatchIssueCard() = default;

void CBatchIssueCard::SetUpTable()
{
    QTreeView* const pTable = m_pUi->tableIssueCard;
    pTable->setModel(m_pModel);
    pTable->setColumnWidth(CIssueCardModel::ColumnName, 260);
    pTable->setColumnWidth(CIssueCardModel::ColumnCardNo, 260);
    pTable->setItemDelegateForColumn(CIssueCardModel::ColumnCardNo, new CCardNoDelegate(this));
    auto* const pButtons = new Common::CRowButtonDelegate(
        {{RoleRemove, Trv::GetIcon(QStringLiteral("delete")), Text::tr("Delete")}}, this);
    pTable->setItemDelegateForColumn(CIssueCardModel::ColumnOperation, pButtons);
    connect(pButtons, &Common::CRowButtonDelegate::SignalButtonClicked, this,
        [this](const QModelIndex& index) { RemovePerson(index.row()); });
    connect(pTable, &QAbstractItemView::clicked, this, [pTable](const QModelIndex& index) {
        if (index.column() == CIssueCardModel::ColumnCardNo)
            pTable->edit(index);
    });
    auto* const pDelete = new QShortcut(Qt::Key_Delete, pTable, nullptr, nullptr, Qt::WidgetShortcut);
    connect(pDelete, &QShortcut::activated, this, [this] { RemovePerson(CurrentRow()); });
}

void CBatchIssueCard::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    Common::LoadStyleSheet(this, QStringLiteral("BasicInfoManagerUI/Personnel"));
}

void CBatchIssueCard::SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons)
{
    m_calls.ForgetAll();
    m_bSaving = false;
    m_nextTimer.stop();
    m_pUi->wgtBatchReaderBar->StopReading();
    QVector<CredentialRules::IssueRow> vecRows;
    for (const auto& person : vecPersons)
        vecRows.append({person.sPersonId, QString::fromStdString(person.sName), {}});
    m_pModel->SetRows(vecRows);
    m_pUi->m_dtEffectivePeriod->Reset();
    SelectRow(0);
    ShowState();
}

bool CBatchIssueCard::IsDirty() const
{
    const auto& vecRows = m_pModel->GetRows();
    return std::any_of(
        vecRows.begin(), vecRows.end(), [](const auto& row) { return !row.sCardNo.isEmpty(); });
}

int CBatchIssueCard::CurrentRow() const
{
    return m_pUi->tableIssueCard->currentIndex().row();
}

void CBatchIssueCard::SelectRow(int nRow)
{
    m_pUi->tableIssueCard->setCurrentIndex(m_pModel->index(nRow, CIssueCardModel::ColumnCardNo));
}

void CBatchIssueCard::RemovePerson(int nRow)
{
    if (nRow < 0 || nRow >= m_pModel->rowCount() || m_bSaving)
        return;
    m_pModel->RemoveRow(nRow);
    ShowState();
}

void CBatchIssueCard::OnCardRead(const QString& sCardNo)
{
    if (m_bSaving)
        return;
    const int nRow =
        CurrentRow() >= 0 ? CurrentRow() : CredentialRules::FindRowWithoutCard(m_pModel->GetRows(), 0);
    if (nRow < 0)
        return;
    const QVector<int> vecOthers = m_pModel->FindCards({sCardNo});
    if (!vecOthers.isEmpty() && vecOthers.first() != nRow) {
        VxGUI::VxNotification::Show(this, Text::tr("Card No. exist"));
        return;
    }
    // A field that is open would write its own text over the number.
    m_pUi->tableIssueCard->setFocus();
    m_pModel->SetCardNo(nRow, sCardNo);
    SelectRow(nRow);
    m_pUi->wgtBatchReaderBar->SetPaused(true);
    m_nextTimer.start();
}

void CBatchIssueCard::GoToNextRow()
{
    const int nNext = CredentialRules::FindRowWithoutCard(m_pModel->GetRows(), CurrentRow() + 1);
    if (nNext < 0) {
        m_pUi->wgtBatchReaderBar->StopReading();
        return;
    }
    SelectRow(nNext);
    m_pUi->tableIssueCard->scrollTo(m_pModel->index(nNext, CIssueCardModel::ColumnCardNo));
    m_pUi->wgtBatchReaderBar->SetPaused(false);
}

bool CBatchIssueCard::CheckInput()
{
    const CredentialRules::IssueProblem problem = CredentialRules::CheckIssueRows(m_pModel->GetRows());
    m_pModel->MarkRows(problem.vecRows);
    QString sFailure = problem.sText;
    if (!problem.vecRows.isEmpty())
        SelectRow(problem.vecRows.first());
    else
        sFailure = m_pUi->m_dtEffectivePeriod->CheckInput();
    if (sFailure.isEmpty() && std::size_t(m_pModel->rowCount()) > AccessControlLogical::PersonBatchLimit)
        sFailure = Text::tr("Cards can be issued to %1 persons at a time.")
                       .arg(AccessControlLogical::PersonBatchLimit);
    if (sFailure.isEmpty())
        return true;
    VxGUI::VxNotification::Show(this, sFailure, VxGUI::NotificationKind::Warning);
    return false;
}

void CBatchIssueCard::Save()
{
    if (!m_pUi->m_pBtnSaveBatch->isEnabled())
        return;
    // An open field hands in its text when the focus leaves it.
    m_pUi->tableIssueCard->setFocus();
    m_nextTimer.stop();
    m_pUi->wgtBatchReaderBar->StopReading();
    if (!CheckInput())
        return;
    std::vector<AccessControlLogical::IssueCard_t> vecCards;
    for (const CredentialRules::IssueRow& row : m_pModel->GetRows())
        vecCards.push_back({row.sPersonId, row.sCardNo.toStdString()});
    m_bSaving = true;
    m_calls.Each<&AccessControlLogical::IAccessControlManager::IssueCards>(vecCards,
        m_pUi->m_dtEffectivePeriod->GetFrom(), m_pUi->m_dtEffectivePeriod->GetTo(),
        [this](const Param& param) { OnIssued(param); });
    ShowState();
}

void CBatchIssueCard::OnIssued(const Param& param)
{
    m_bSaving = false;
    ShowState();
    if (param.nErrorCode == UICommonMdl::ErrorNone) {
        VxGUI::VxNotification::Show(
            this, Text::tr("The cards were issued."), VxGUI::NotificationKind::Success);
        Finish(true);
    } else if (param.nErrorCode == UICommonMdl::ErrorPersonDuplicate) {
        ShowClashes(param);
    } else {
        const QString sText = UICommonMdl::IsOutcomeUnknown(param.nErrorCode)
            ? Text::tr("It is not known whether the cards were issued. You can save again: cards that were "
                       "issued stay as they are.")
            : Text::tr("Failed to batch issue card.");
        VxGUI::VxNotification::Show(this, Common::FailureText(sText, param.nErrorCode));
    }
}

void CBatchIssueCard::ShowClashes(const Param& param)
{
    const QStringList listCards = CredentialRules::GetClashingCards(param.vecClashes);
    const QVector<int> vecRows = m_pModel->FindCards(listCards);
    m_pModel->MarkRows(vecRows);
    if (!vecRows.isEmpty())
        SelectRow(vecRows.first());
    QString sText = Text::tr("The card number already exists:") + QLatin1Char(' ')
        + listCards.mid(0, MaxNamed).join(QStringLiteral(", "));
    if (listCards.size() > MaxNamed)
        sText += QStringLiteral(", ") + QChar(0x2026);
    VxGUI::VxNotification::Show(this, sText);
}

void CBatchIssueCard::Leave()
{
    if (!m_bSaving)
        m_pUi->tableIssueCard->setFocus();
    m_guard.Leave();
}

void CBatchIssueCard::Finish(bool bIssued)
{
    SetPersons({});
    Q_EMIT SignalBack(bIssued);
}

void CBatchIssueCard::ShowState()
{
    const bool bAny = m_pModel->rowCount() > 0;
    m_pUi->lbBatchCount->setText(QStringLiteral("(%1)").arg(m_pModel->rowCount()));
    m_pUi->tableIssueCard->setVisible(bAny);
    m_pUi->wgtNoPersons->setVisible(!bAny);
    m_pUi->wgtBatchReaderBar->setEnabled(bAny && !m_bSaving);
    m_pUi->tableIssueCard->setEnabled(!m_bSaving);
    m_pUi->m_dtEffectivePeriod->setEnabled(bAny && !m_bSaving);
    const bool bMayChange = m_session.HasRight(UserLogical::RightChangePersons);
    m_pUi->m_pBtnSaveBatch->setEnabled(bAny && !m_bSaving && bMayChange && m_session.IsConnected());
    m_pUi->m_pBtnSaveBatch->setToolTip(
        bMayChange ? QString() : Text::tr("You have no permission to change persons."));
}

} // namespace BasicInfoManagerUI
