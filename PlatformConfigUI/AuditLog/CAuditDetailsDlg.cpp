#include "CAuditDetailsDlg.h"

#include "AuditRules.h"
#include "CAuditModel.h"
#include "ui_CAuditDetailsDlg.h"

#include <common/StyleSheet.h>

#include <QHeaderView>
#include <QTreeWidgetItem>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAuditDetailsDlg)
};

constexpr int FieldWidth = 180;
constexpr int BeforeWidth = 280;

} // namespace

CAuditDetailsDlg::CAuditDetailsDlg(const UserLogical::AuditEntry_t& entry, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CAuditDetailsDlg>())
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("CAuditDetailsDlg"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setModal(true);
    ShowHead(entry);
    ShowChanges(entry);
    connect(m_pUi->btnClose, &QAbstractButton::clicked, this, &QDialog::accept);
    Common::LoadStyleSheet(this, QStringLiteral("PlatformConfigUI/AuditLog"));
}

CAuditDetailsDlg::~CAuditDetailsDlg() = default;

void CAuditDetailsDlg::ShowHead(const UserLogical::AuditEntry_t& entry)
{
    const QStringList listTexts = GetAuditTexts(entry);
    const std::pair<QLabel*, int> labels[] = {{m_pUi->lbTimeText, AuditColumnTime},
        {m_pUi->lbUserText, AuditColumnUser}, {m_pUi->lbAddressText, AuditColumnAddress},
        {m_pUi->lbObjectText, AuditColumnObject}};
    m_pUi->lbOperationText->setText(listTexts[AuditColumnOperation]);
    for (const auto& [pLabel, nColumn] : labels)
        pLabel->setText(listTexts[nColumn].isEmpty() ? QStringLiteral("\u2013") : listTexts[nColumn]);
}

void CAuditDetailsDlg::ShowChanges(const UserLogical::AuditEntry_t& entry)
{
    const QVector<AuditChange> vecChanges = GetChanges(entry.sBefore, entry.sAfter);
    for (const AuditChange& change : vecChanges)
        new QTreeWidgetItem(m_pUi->treeChanges, {change.sField, change.sBefore, change.sAfter});
    m_pUi->treeChanges->header()->resizeSection(0, FieldWidth);
    m_pUi->treeChanges->header()->resizeSection(1, BeforeWidth);
    m_pUi->wgtNoChange->SetState(
        VxGUI::VxEmptyState::Kind::Empty, Text::tr("This operation changed no field."));
    m_pUi->stackChanges->setCurrentWidget(
        vecChanges.isEmpty() ? static_cast<QWidget*>(m_pUi->wgtNoChange) : m_pUi->treeChanges);
    (vecChanges.isEmpty() ? static_cast<QWidget*>(m_pUi->btnClose) : m_pUi->treeChanges)->setFocus();
}

} // namespace PlatformConfigUI
