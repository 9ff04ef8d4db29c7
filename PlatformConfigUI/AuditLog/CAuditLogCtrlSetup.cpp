#include "AuditRules.h"
#include "CAuditExport.h"
#include "CAuditLogCtrl.h"
#include "CAuditModel.h"
#include "ui_CAuditLogCtrl.h"

#include <Trv/QSkin.h>

#include <QHeaderView>
#include <QShortcut>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAuditLogCtrl)
};

constexpr const char* RightExportAudit = "004003";

} // namespace

CAuditLogCtrl::CAuditLogCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CPage(pInterfaceSet, QStringLiteral("PlatformConfigUI/AuditLog"), pParent)
    , m_pUi(std::make_unique<Ui::CAuditLogCtrl>())
    , m_pModel(new CAuditModel(this))
    , m_pExport(new CAuditExport(pInterfaceSet, this))
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    m_pUi->lbConnection->Watch(GetSession());
    SetUpFilters();
    SetUpButtons();
    SetUpList();
    SetUpShortcuts();
    SetUpExport();
    ReadFilters(m_request);
    OnConnectionChanged(IsConnected());
}

CAuditLogCtrl::~CAuditLogCtrl() = default;

void CAuditLogCtrl::SetUpFilters()
{
    const std::pair<int, QString> periods[] = {{PeriodToday, Text::tr("Today")},
        {PeriodLast7Days, Text::tr("Last 7 Days")}, {PeriodLast30Days, Text::tr("Last 30 Days")},
        {PeriodAll, Text::tr("All")}, {PeriodOwn, Text::tr("Own Range")}};
    for (const auto& [nPeriod, sText] : periods)
        m_pUi->cmbPeriod->addItem(sText, nPeriod);
    m_pUi->cmbPeriod->setCurrentIndex(m_pUi->cmbPeriod->findData(PeriodLast7Days));
    OnPeriodChanged();
    connect(m_pUi->cmbPeriod, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &CAuditLogCtrl::OnPeriodChanged);

    const QVector<AuditChoice> vecChoices = GetAuditChoices();
    for (const AuditChoice& choice : vecChoices) {
        const bool bOperation = !choice.bGroup && !choice.sCode.isEmpty();
        m_pUi->cmbOperation->addItem(
            bOperation ? QStringLiteral("    ") + choice.sText : choice.sText, choice.sCode);
        if (!choice.bGroup)
            continue;
        QFont font = m_pUi->cmbOperation->font();
        font.setBold(true);
        m_pUi->cmbOperation->setItemData(m_pUi->cmbOperation->count() - 1, font, Qt::FontRole);
    }
    for (QLineEdit* pEdit : {m_pUi->edtUser, m_pUi->edtAddress, m_pUi->edtObject})
        connect(pEdit, &QLineEdit::returnPressed, this, &CAuditLogCtrl::OnSearch);
}

void CAuditLogCtrl::SetUpButtons()
{
    m_pUi->btnExport->setIcon(Trv::GetIcon(QStringLiteral("export")));
    m_pUi->btnRefresh->setIcon(Trv::GetIcon(QStringLiteral("refresh")));
    m_pUi->btnRefresh->setShortcut(Qt::Key_F5);
    connect(m_pUi->btnSearch, &QAbstractButton::clicked, this, &CAuditLogCtrl::OnSearch);
    connect(m_pUi->btnReset, &QAbstractButton::clicked, this, &CAuditLogCtrl::OnReset);
    connect(m_pUi->btnExport, &QAbstractButton::clicked, this, &CAuditLogCtrl::OnExport);
    connect(m_pUi->btnRefresh, &QAbstractButton::clicked, this, &CAuditLogCtrl::QueryPage);
    connect(m_pUi->wgtListState, &VxGUI::VxEmptyState::SignalAction, this, &CAuditLogCtrl::QueryPage);
    connect(m_pUi->m_pPageCtrl, &UICommonMdl::CNumberPageCtrl::SignalCurrentPageChanged, this,
        &CAuditLogCtrl::QueryPage);
    connect(m_pUi->m_pPageCtrl, &UICommonMdl::CNumberPageCtrl::SignalPageSizeChanged, this,
        &CAuditLogCtrl::QueryPage);
}

void CAuditLogCtrl::SetUpList()
{
    m_pUi->treeAudit->setModel(m_pModel);
    m_pUi->treeAudit->setColumnHidden(AuditColumnId, true);
    const int widths[] = {150, 110, 120, 170, 140, 280};
    for (int nColumn = 0; nColumn < AuditColumnAfter; ++nColumn)
        m_pUi->treeAudit->header()->resizeSection(nColumn, widths[nColumn]);
    connect(m_pUi->treeAudit, &QAbstractItemView::doubleClicked, this, &CAuditLogCtrl::ShowDetails);
}

void CAuditLogCtrl::SetUpShortcuts()
{
    for (const int nKey : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* pShortcut = new QShortcut(nKey, m_pUi->treeAudit, nullptr, nullptr, Qt::WidgetShortcut);
        connect(pShortcut, &QShortcut::activated, this,
            [this] { ShowDetails(m_pUi->treeAudit->currentIndex()); });
        for (QWidget* pField :
            {static_cast<QWidget*>(m_pUi->m_dtFrom), static_cast<QWidget*>(m_pUi->m_dtTo)}) {
            auto* pSearch = new QShortcut(nKey, pField, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
            connect(pSearch, &QShortcut::activated, this, &CAuditLogCtrl::OnSearch);
        }
    }
    auto* pFind = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(pFind, &QShortcut::activated, m_pUi->edtUser, [this] {
        m_pUi->edtUser->setFocus();
        m_pUi->edtUser->selectAll();
    });
}

void CAuditLogCtrl::UpdateButtons()
{
    const bool bMayExport = HasRight(RightExportAudit);
    m_pUi->btnSearch->setEnabled(IsConnected());
    m_pUi->btnReset->setEnabled(IsConnected());
    m_pUi->btnRefresh->setEnabled(IsConnected() && !m_calls.IsPending());
    m_pUi->btnExport->setEnabled(IsConnected() && bMayExport && m_pModel->rowCount() > 0);
    m_pUi->btnExport->setToolTip(
        bMayExport ? QString() : Text::tr("You do not have the right to export the audit log."));
}

} // namespace PlatformConfigUI
