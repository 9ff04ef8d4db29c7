#include "CIssueCard.h"

#include "CredentialTables.h"
#include "ui_CIssueCard.h"

#include <Trv/QSkin.h>
#include <VxGUI/VxNotification.h>
#include <common/CRowButtonDelegate.h>
#include <common/CTableModel.h>
#include <common/Prompt.h>

#include <QAction>
#include <QHeaderView>
#include <QLineEdit>
#include <QShortcut>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CIssueCard)
};

enum Column : int
{
    ColumnCardNo, ///< the key
    ColumnMarks,
    ColumnOperation
};

} // namespace

CIssueCard::CIssueCard(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CIssueCard>())
    , m_pModel(new Common::CTableModel(
          {{Text::tr("Card No."), true}, {Text::tr("Mark"), true}, {Text::tr("Operation"), true}},
          ColumnCardNo, -1, this))
{
    m_pUi->setupUi(this);
    SetUpField();
    SetUpTable();
    EndChange();
    Rebuild();
}

CIssueCard::~CIssueCard() = default;

void CIssueCard::SetUpField()
{
    using namespace CredentialRules;
    VxGUI::VxLineEdit* const pField = m_pUi->m_pEditCardNo;
    pField->SetRule(AccessControlLogical::CardNumber,
        Text::tr("The card number length cannot exceed %1 characters."),
        Text::tr("Only allow letters and numbers."));
    connect(pField, &VxGUI::VxLineEdit::returnPressed, this, &CIssueCard::Confirm);
    connect(pField, &VxGUI::VxLineEdit::textChanged, this,
        [this](const QString& sText) { m_pUi->wgtReaderBar->SetPaused(!sText.isEmpty()); });
    // What is being entered is a change of the person already: leaving it asks first.
    connect(pField, &VxGUI::VxLineEdit::textEdited, this, &CIssueCard::SignalChanged);
    connect(m_pUi->m_pBtnConfirmCard, &QAbstractButton::clicked, this, &CIssueCard::Confirm);
    connect(m_pUi->m_pBtnCancelChange, &QAbstractButton::clicked, this, &CIssueCard::EndChange);
    auto* const pEscape =
        new QShortcut(Qt::Key_Escape, pField, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(pEscape, &QShortcut::activated, this, &CIssueCard::EndChange);
    connect(m_pUi->wgtReaderBar, &CCardReaderBar::SignalCardNo, this, &CIssueCard::OnCardRead);
    connect(m_pUi->wgtReaderBar, &CCardReaderBar::SignalBadCard, this, &CIssueCard::SetHint);
}

void CIssueCard::SetUpTable()
{
    QTreeView* const pTable = m_pUi->tableCards;
    pTable->setModel(m_pModel);
    pTable->setColumnWidth(ColumnCardNo, 200);
    pTable->setColumnWidth(ColumnMarks, 240);
    pTable->setItemDelegateForColumn(ColumnMarks, new CMarkDelegate(this));
    auto* const pButtons = new Common::CRowButtonDelegate(
        {{ActionMain, Trv::GetIcon(QStringLiteral("main")), Text::tr("Main Card")},
            {ActionDuress, Trv::GetIcon(QStringLiteral("duress")), Text::tr("Duress Card")},
            {ActionLock, Trv::GetIcon(QStringLiteral("lock")), Text::tr("Freeze")},
            {ActionUnlock, Trv::GetIcon(QStringLiteral("unlock")), Text::tr("UnLock Card")},
            {ActionChange, Trv::GetIcon(QStringLiteral("edit")), Text::tr("Change Card")},
            {ActionDelete, Trv::GetIcon(QStringLiteral("delete")), Text::tr("Delete")}},
        this);
    pButtons->SetOfferRule(
        [this](const QModelIndex& index, int nAction) { return IsOffered(index.row(), nAction); });
    connect(pButtons, &Common::CRowButtonDelegate::SignalButtonClicked, this,
        [this](const QModelIndex& index, int nAction) { OnAction(m_pModel->GetId(index.row()), nAction); });
    pTable->setItemDelegateForColumn(ColumnOperation, pButtons);

    pTable->setContextMenuPolicy(Qt::ActionsContextMenu);
    AddRowAction(ActionMain, Text::tr("Main Card"));
    AddRowAction(ActionDuress, Text::tr("Duress Card"));
    AddRowAction(ActionLock, Text::tr("Freeze"));
    AddRowAction(ActionUnlock, Text::tr("UnLock Card"));
    AddRowAction(ActionChange, Text::tr("Change Card"), Qt::Key_F2);
    AddRowAction(ActionDelete, Text::tr("Delete"), Qt::Key_Delete);
    connect(pTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this](const QModelIndex& index) {
            for (QAction* const pAction : qAsConst(m_vecActions))
                pAction->setVisible(!m_bReadOnly && IsOffered(index.row(), pAction->data().toInt()));
        });
}

void CIssueCard::AddRowAction(int nAction, const QString& sText, const QKeySequence& shortcut)
{
    auto* const pAction = new QAction(sText, m_pUi->tableCards);
    pAction->setData(nAction);
    pAction->setShortcut(shortcut);
    pAction->setShortcutContext(Qt::WidgetShortcut);
    pAction->setVisible(false);
    connect(pAction, &QAction::triggered, this,
        [this, nAction] { OnAction(m_pModel->GetId(m_pUi->tableCards->currentIndex().row()), nAction); });
    m_pUi->tableCards->addAction(pAction);
    m_vecActions.append(pAction);
}

bool CIssueCard::IsOffered(int nCard, int nAction) const
{
    if (nCard < 0 || nCard >= int(m_vecCards.size()))
        return false;
    const bool bLocked = m_vecCards[std::size_t(nCard)].bLocked;
    return !(nAction == ActionLock && bLocked) && !(nAction == ActionUnlock && !bLocked);
}

void CIssueCard::SetConfig(UICommonMdl::ILocalConfig* pConfig)
{
    m_pUi->wgtReaderBar->SetConfig(pConfig);
}

void CIssueCard::SetCards(const CredentialRules::Cards& vecCards)
{
    m_vecCards = vecCards;
    for (auto& card : m_vecCards)
        card.sCardNo = CredentialRules::ToCardNo(QString::fromStdString(card.sCardNo));
    m_listClashes.clear();
    EndChange();
    m_pUi->wgtReaderBar->StopReading();
    Rebuild();
}

QString CIssueCard::CheckInput()
{
    VxGUI::VxLineEdit* const pField = m_pUi->m_pEditCardNo;
    return m_bReadOnly || pField->text().isEmpty() || Confirm() ? QString() : pField->GetErrorHint();
}

void CIssueCard::ShowClashes(const QStringList& listCardNos)
{
    m_listClashes = listCardNos;
    for (QString& sCardNo : m_listClashes)
        sCardNo = sCardNo.toUpper();
    Rebuild();
    for (const QString& sCardNo : qAsConst(m_listClashes)) {
        const int nRow = m_pModel->FindRow(sCardNo);
        if (nRow < 0)
            continue;
        m_pUi->tableCards->setCurrentIndex(m_pModel->index(nRow, ColumnCardNo));
        m_pUi->tableCards->setFocus();
        break;
    }
}

void CIssueCard::SetReadOnly(bool bReadOnly)
{
    m_bReadOnly = bReadOnly;
    m_pUi->wgtCardEntry->setVisible(!bReadOnly);
    m_pUi->tableCards->setColumnHidden(ColumnOperation, bReadOnly);
    EndChange();
    m_pUi->wgtReaderBar->StopReading();
    Rebuild();
}

void CIssueCard::OnCardRead(const QString& sCardNo)
{
    m_pUi->m_pEditCardNo->setText(sCardNo);
    m_pUi->m_pEditCardNo->setFocus();
    Q_EMIT SignalChanged();
}

void CIssueCard::SetHint(const QString& sText)
{
    m_pUi->m_pEditCardNo->SetErrorHint(sText);
}

bool CIssueCard::Confirm()
{
    VxGUI::VxLineEdit* const pField = m_pUi->m_pEditCardNo;
    const int nChanged =
        m_sChanged.isEmpty() ? -1 : CredentialRules::FindCard(m_vecCards, m_sChanged.toStdString());
    const QString sFailure = CredentialRules::CheckNewCard(m_vecCards, pField->text(), nChanged);
    if (!sFailure.isEmpty()) {
        SetHint(sFailure);
        pField->setFocus();
        return false;
    }
    const std::string sCardNo = CredentialRules::ToCardNo(pField->text());
    if (nChanged < 0) {
        m_vecCards.emplace_back();
        m_vecCards.back().sCardNo = sCardNo;
    } else {
        m_vecCards[std::size_t(nChanged)].sCardNo = sCardNo;
    }
    EndChange();
    OnCardsChanged();
    return true;
}

void CIssueCard::StartChange(const QString& sCardNo)
{
    m_sChanged = sCardNo;
    m_pUi->lbChangeCard->setText(Text::tr("Enter the new number of card %1.").arg(sCardNo));
    m_pUi->lbChangeCard->show();
    m_pUi->m_pBtnCancelChange->show();
    m_pUi->m_pEditCardNo->setText({});
    m_pUi->m_pEditCardNo->setFocus();
}

void CIssueCard::EndChange()
{
    m_sChanged.clear();
    m_pUi->lbChangeCard->hide();
    m_pUi->m_pBtnCancelChange->hide();
    m_pUi->m_pEditCardNo->setText({});
    m_pUi->m_pEditCardNo->ClearErrorHint();
}

bool CIssueCard::AskMark(bool bSet, const QString& sSetQuestion, const QString& sCancelQuestion)
{
    return Common::AskPrompt(this, bSet ? sSetQuestion : sCancelQuestion);
}

void CIssueCard::OnAction(const QString& sCardNo, int nAction)
{
    int nCard = CredentialRules::FindCard(m_vecCards, sCardNo.toStdString());
    if (nCard < 0 || m_bReadOnly)
        return;
    if (nAction == ActionChange) {
        StartChange(sCardNo);
        return;
    }
    const auto card = m_vecCards[std::size_t(nCard)];
    if (nAction == ActionDuress && !card.bDuress && CredentialRules::IsDuressTaken(m_vecCards, nCard)) {
        VxGUI::VxNotification::Show(this, Text::tr("Duress card exists already!"));
        return;
    }
    bool bGo = false;
    if (nAction == ActionMain)
        bGo = AskMark(!card.bMain, Text::tr("Are you sure to set this card as main card?"),
            Text::tr("Are you sure to cancel main card?"));
    else if (nAction == ActionDuress)
        bGo = AskMark(!card.bDuress, Text::tr("Are you sure to set this card as duress card?"),
            Text::tr("Are you sure to cancel duress card?"));
    else if (nAction == ActionDelete)
        bGo = AskMark(true, Text::tr("Are sure to delete the card?"), {});
    else
        bGo = AskMark(!card.bLocked,
            Text::tr("The card will not be used after it is locked, are sure to lock card?"),
            Text::tr("The card can be used after it is unlocked, are sure to unlock card?"));
    // The question ran an event loop: the cards may be others now.
    if (!bGo || (nCard = CredentialRules::FindCard(m_vecCards, sCardNo.toStdString())) < 0)
        return;
    if (nAction == ActionMain) {
        CredentialRules::ToggleMain(m_vecCards, nCard);
    } else if (nAction == ActionDuress) {
        m_vecCards[std::size_t(nCard)].bDuress = !card.bDuress;
    } else if (nAction == ActionDelete) {
        m_vecCards.erase(m_vecCards.begin() + nCard);
        if (m_sChanged == sCardNo)
            EndChange();
    } else {
        m_vecCards[std::size_t(nCard)].bLocked = !card.bLocked;
    }
    OnCardsChanged();
}

void CIssueCard::OnCardsChanged()
{
    Rebuild();
    Q_EMIT SignalChanged();
}

void CIssueCard::Rebuild()
{
    const QString sCurrent = m_pModel->GetId(m_pUi->tableCards->currentIndex().row());
    QVector<Common::CTableModel::Row> vecRows;
    for (const auto& card : m_vecCards) {
        const QString sCardNo = QString::fromStdString(card.sCardNo);
        Common::CTableModel::Row row{Common::CTableModel::MakeItem(sCardNo), Common::CTableModel::MakeItem(),
            Common::CTableModel::MakeItem()};
        QStringList listTexts;
        QStringList listTokens;
        const auto addMark = [&](bool bHas, const QString& sText, const char* pszToken) {
            if (!bHas)
                return;
            listTexts.append(sText);
            listTokens.append(QLatin1String(pszToken));
        };
        addMark(card.bMain, Text::tr("Main"), "information");
        addMark(card.bDuress, Text::tr("Thread"), "warning");
        addMark(card.bLocked, Text::tr("Locked"), "danger");
        if (m_listClashes.contains(sCardNo)) {
            addMark(true, Text::tr("Card No. exists already!"), "danger");
            row[ColumnCardNo]->setForeground(Trv::GetColor(QStringLiteral("danger")));
        }
        QStringList listStates{card.bMain ? Text::tr("Main Card") : Text::tr("Secondary Card"),
            card.bDuress ? Text::tr("Duress Card") : Text::tr("Non-duress Card")};
        if (card.bLocked)
            listStates.append(Text::tr("Locked"));
        row[ColumnMarks]->setData(listTexts, CMarkDelegate::MarkTexts);
        row[ColumnMarks]->setData(listTokens, CMarkDelegate::MarkTokens);
        row[ColumnMarks]->setData(listStates.join(QStringLiteral(", ")), Qt::AccessibleTextRole);
        vecRows.append(row);
    }
    m_pModel->SetRows(vecRows);
    const int nCurrent = m_pModel->FindRow(sCurrent);
    if (nCurrent >= 0)
        m_pUi->tableCards->setCurrentIndex(m_pModel->index(nCurrent, ColumnCardNo));
    m_pUi->tableCards->setVisible(!m_vecCards.empty());
    m_pUi->lbNoCards->setVisible(m_vecCards.empty());
    FitToRows(m_pUi->tableCards);
}

} // namespace BasicInfoManagerUI
