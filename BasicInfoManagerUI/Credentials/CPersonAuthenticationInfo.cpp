#include "CPersonAuthenticationInfo.h"

#include "CFingerName.h"
#include "CInputFinger.h"
#include "CredentialRules.h"
#include "CredentialTables.h"
#include "ui_CPersonAuthenticationInfo.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <VxGUI/VxNotification.h>
#include <common/CRowButtonDelegate.h>
#include <common/CTableModel.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QHeaderView>
#include <QShortcut>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonAuthenticationInfo)
};

enum Column : int
{
    ColumnName, ///< the key: names of one person's fingerprints differ
    ColumnOperation
};

} // namespace

CPersonAuthenticationInfo::CPersonAuthenticationInfo(
    UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CPersonAuthenticationInfo>())
    , m_pInterfaceSet(pInterfaceSet)
    , m_pModel(new Common::CTableModel(
          {{Text::tr("Fingerprint Name"), true}, {Text::tr("Operation"), true}}, ColumnName, -1, this))
{
    m_pUi->setupUi(this);
    m_pUi->wgtCards->SetConfig(pInterfaceSet->GetLocalConfig());
    SetUpFingerprints();
    connect(m_pUi->wgtCards, &CIssueCard::SignalChanged, this, &CPersonAuthenticationInfo::SignalChanged);
    connect(m_pUi->wgtUnlockPassword, &CUnlockPasswordUI::SignalChanged, this,
        &CPersonAuthenticationInfo::SignalChanged);
    RebuildFingerprints();
}

CPersonAuthenticationInfo::~CPersonAuthenticationInfo() = default;

void CPersonAuthenticationInfo::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    Common::LoadStyleSheet(this, QStringLiteral("BasicInfoManagerUI/Personnel"));
    // Captions in the table are painted as links.
    QPalette palette = m_pUi->tableFingerprints->palette();
    palette.setColor(QPalette::Link, Trv::GetColor(QStringLiteral("accent")));
    m_pUi->tableFingerprints->setPalette(palette);
}

void CPersonAuthenticationInfo::SetUpFingerprints()
{
    QTreeView* const pTable = m_pUi->tableFingerprints;
    pTable->setModel(m_pModel);
    pTable->setColumnWidth(ColumnName, 260);
    auto* const pButtons = new Common::CRowButtonDelegate(
        {{ActionCancelDuress, QIcon(), Text::tr("Duress Fingerprint")},
            {ActionSetDuress, QIcon(), Text::tr("Non-duress Fingerprint")},
            {ActionRename, Trv::GetIcon(QStringLiteral("edit")), Text::tr("Rename")},
            {ActionDelete, Trv::GetIcon(QStringLiteral("delete")), Text::tr("Delete")}},
        this);
    // The caption says how it is; pressing it makes it the other.
    pButtons->SetOfferRule([this](const QModelIndex& index, int nAction) {
        const bool bDuress = m_vecFingerprints[std::size_t(index.row())].bDuress;
        if (nAction == ActionCancelDuress)
            return bDuress;
        return nAction == ActionSetDuress ? !bDuress : !m_bReadOnly;
    });
    connect(pButtons, &Common::CRowButtonDelegate::SignalButtonClicked, this,
        [this](const QModelIndex& index, int nAction) { OnFingerAction(index.row(), nAction); });
    pTable->setItemDelegateForColumn(ColumnOperation, pButtons);
    const std::pair<Qt::Key, int> keys[] = {{Qt::Key_F2, ActionRename}, {Qt::Key_Delete, ActionDelete}};
    for (const auto& [key, nAction] : keys) {
        auto* const pShortcut = new QShortcut(key, pTable, nullptr, nullptr, Qt::WidgetShortcut);
        connect(pShortcut, &QShortcut::activated, this, [this, nAction = nAction] {
            OnFingerAction(m_pUi->tableFingerprints->currentIndex().row(), nAction);
        });
    }
    m_pUi->m_pBtnAddFingerprint->setIcon(Trv::GetIcon(QStringLiteral("fingerprint")));
    connect(m_pUi->m_pBtnAddFingerprint, &QAbstractButton::clicked, this,
        &CPersonAuthenticationInfo::AddFingerprint);
}

void CPersonAuthenticationInfo::SetPerson(const AccessControlLogical::Person_t& person)
{
    CloseDialogs();
    m_pUi->wgtCards->SetCards(person.vecCards);
    m_pUi->wgtUnlockPassword->SetPerson(person);
    m_vecFingerprints = person.vecFingerprints;
    RebuildFingerprints();
}

void CPersonAuthenticationInfo::FillPerson(AccessControlLogical::Person_t& person) const
{
    person.vecCards = m_pUi->wgtCards->GetCards();
    person.vecFingerprints = m_vecFingerprints;
    m_pUi->wgtUnlockPassword->FillPerson(person);
}

QString CPersonAuthenticationInfo::CheckInput()
{
    const QString sFailure = m_pUi->wgtCards->CheckInput();
    return sFailure.isEmpty() ? m_pUi->wgtUnlockPassword->CheckInput() : sFailure;
}

void CPersonAuthenticationInfo::ShowClashes(
    const std::vector<AccessControlLogical::PersonClash_t>& vecClashes)
{
    m_pUi->wgtCards->ShowClashes(CredentialRules::GetClashingCards(vecClashes));
}

void CPersonAuthenticationInfo::SetReadOnly(bool bReadOnly)
{
    m_bReadOnly = bReadOnly;
    if (bReadOnly)
        CloseDialogs();
    m_pUi->wgtCards->SetReadOnly(bReadOnly);
    m_pUi->wgtUnlockPassword->SetReadOnly(bReadOnly);
    m_pUi->m_pBtnAddFingerprint->setVisible(!bReadOnly);
    RebuildFingerprints();
}

void CPersonAuthenticationInfo::SetConnected(bool bConnected)
{
    m_bConnected = bConnected;
    if (auto* const pDialog = findChild<CInputFinger*>())
        pDialog->SetConnected(bConnected);
}

void CPersonAuthenticationInfo::CloseDialogs()
{
    // Deleted at once: what they are about to say is of another person.
    for (QDialog* const pDialog : findChildren<QDialog*>())
        delete pDialog;
}

void CPersonAuthenticationInfo::AddFingerprint()
{
    if (m_vecFingerprints.size() >= AccessControlLogical::FingerprintLimit) {
        VxGUI::VxNotification::Show(
            this, Text::tr("Add 3 fingerprints at most."), VxGUI::NotificationKind::Warning);
        return;
    }
    auto* const pDialog = new CInputFinger(m_pInterfaceSet, this);
    pDialog->SetConnected(m_bConnected);
    connect(pDialog, &CInputFinger::SignalCollected, this,
        [this](const QString& sTemplate) { AskName(sTemplate.toStdString()); });
    pDialog->open();
}

void CPersonAuthenticationInfo::AskName(const std::string& sTemplate)
{
    auto* const pDialog = new CFingerName(m_vecFingerprints, -1, this);
    connect(pDialog, &CFingerName::SignalNamed, this, [this, sTemplate](const QString& sName) {
        AccessControlLogical::Fingerprint_t fingerprint;
        fingerprint.sName = sName.toStdString();
        fingerprint.sTemplate = sTemplate;
        m_vecFingerprints.push_back(fingerprint);
        OnFingerprintsChanged();
    });
    pDialog->open();
}

void CPersonAuthenticationInfo::OnFingerAction(int nRow, int nAction)
{
    if (m_bReadOnly || nRow < 0 || nRow >= int(m_vecFingerprints.size()))
        return;
    if (nAction == ActionRename) {
        Rename(nRow);
    } else if (nAction == ActionDelete) {
        Delete(nRow);
    } else {
        m_vecFingerprints[std::size_t(nRow)].bDuress = nAction == ActionSetDuress;
        OnFingerprintsChanged();
    }
}

void CPersonAuthenticationInfo::Rename(int nRow)
{
    auto* const pDialog = new CFingerName(m_vecFingerprints, nRow, this);
    // The dialog is modal, and goes with the person: the row stays the same.
    connect(pDialog, &CFingerName::SignalNamed, this, [this, nRow](const QString& sName) {
        m_vecFingerprints[std::size_t(nRow)].sName = sName.toStdString();
        OnFingerprintsChanged();
    });
    pDialog->open();
}

void CPersonAuthenticationInfo::Delete(int nRow)
{
    const AccessControlLogical::Fingerprint_t fingerprint = m_vecFingerprints[std::size_t(nRow)];
    if (!Common::AskPrompt(this, Text::tr("Are you sure to delete the fingerprint?")))
        return;
    const auto it = std::find(m_vecFingerprints.begin(), m_vecFingerprints.end(), fingerprint);
    if (it == m_vecFingerprints.end())
        return;
    m_vecFingerprints.erase(it);
    OnFingerprintsChanged();
}

void CPersonAuthenticationInfo::OnFingerprintsChanged()
{
    RebuildFingerprints();
    Q_EMIT SignalChanged();
}

void CPersonAuthenticationInfo::RebuildFingerprints()
{
    QVector<Common::CTableModel::Row> vecRows;
    for (const auto& fingerprint : m_vecFingerprints) {
        auto* const pOperation = Common::CTableModel::MakeItem();
        pOperation->setData(
            fingerprint.bDuress ? Text::tr("Duress Fingerprint") : Text::tr("Non-duress Fingerprint"),
            Qt::AccessibleTextRole);
        vecRows.append(Common::CTableModel::Row{
            Common::CTableModel::MakeItem(QString::fromStdString(fingerprint.sName)), pOperation});
    }
    m_pModel->SetRows(vecRows);
    m_pUi->tableFingerprints->setVisible(!m_vecFingerprints.empty());
    m_pUi->lbNoFingerprints->setVisible(m_vecFingerprints.empty());
    m_pUi->lbFingerprintCount->setText(
        QStringLiteral("%1/%2").arg(m_vecFingerprints.size()).arg(AccessControlLogical::FingerprintLimit));
    FitToRows(m_pUi->tableFingerprints);
}

} // namespace BasicInfoManagerUI
