#include "CChosenTable.h"

#include "CRowButtonDelegate.h"
#include "CTableModel.h"

#include <Trv/QSkin.h>

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

namespace Common {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CChosenTable)
};
constexpr int ColumnId = 0;
constexpr int RoleRemove = 1;
constexpr int RowHeight = 34;
constexpr int OperationWidth = 96;
constexpr int MaxRowsShown = 6;
} // namespace

CChosenTable::CChosenTable(QWidget* pParent)
    : QWidget(pParent)
    , m_pView(new QTableView(this))
    , m_pEmpty(new QLabel(this))
    , m_rowTexts([](const QString& sId) { return QStringList{sId}; })
{
    m_pView->setObjectName(QStringLiteral("tblChosen"));
    m_pEmpty->setObjectName(QStringLiteral("lbNothingChosen"));
    m_pEmpty->setWordWrap(true);
    m_pEmpty->setIndent(0);
    m_pView->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pView->setSelectionMode(QAbstractItemView::SingleSelection);
    m_pView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pView->setMouseTracking(true);
    m_pView->setShowGrid(false);
    m_pView->verticalHeader()->hide();
    m_pView->verticalHeader()->setDefaultSectionSize(RowHeight);
    m_pView->horizontalHeader()->setHighlightSections(false);
    m_pView->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_pView->setTabKeyNavigation(false);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pEmpty);
    pLayout->addWidget(m_pView);
}

void CChosenTable::SetUp(const QStringList& listHeaders, const QString& sEmptyText)
{
    m_pEmpty->setText(sEmptyText);
    m_nTextColumns = listHeaders.size();
    QVector<Column> vecColumns{{QString(), false}};
    for (const QString& sHeader : listHeaders)
        vecColumns.append({sHeader, true});
    vecColumns.append({Text::tr("Operation"), true});
    m_pModel = new CTableModel(vecColumns, ColumnId, -1, this);
    m_pView->setModel(m_pModel);
    m_pView->hideColumn(ColumnId);
    const int nOperation = m_nTextColumns + 1;
    for (int nColumn = 1; nColumn < nOperation; ++nColumn)
        m_pView->horizontalHeader()->setSectionResizeMode(nColumn, QHeaderView::Stretch);
    m_pView->setColumnWidth(nOperation, OperationWidth);
    auto* const pDelegate = new CRowButtonDelegate(
        {{RoleRemove, Trv::GetIcon(QStringLiteral("delete-danger")), Text::tr("Delete")}}, m_pView);
    m_pView->setItemDelegateForColumn(nOperation, pDelegate);
    // The row goes: the view must be done with the click before.
    connect(
        pDelegate, &CRowButtonDelegate::SignalButtonClicked, this,
        [this](const QModelIndex& index) { Remove(m_pModel->GetId(index.row())); }, Qt::QueuedConnection);
    m_pView->installEventFilter(this);
    FillRows();
}

void CChosenTable::Remove(const QString& sId)
{
    if (m_listIds.removeAll(sId) == 0)
        return;
    FillRows();
    Q_EMIT SignalRemoved(sId);
}

bool CChosenTable::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    const bool bOperations = !m_pView->isColumnHidden(m_nTextColumns + 1);
    if (pEvent->type() == QEvent::KeyPress && bOperations && m_pView->currentIndex().isValid()
        && static_cast<QKeyEvent*>(pEvent)->matches(QKeySequence::Delete)) {
        Remove(m_pModel->GetId(m_pView->currentIndex().row()));
        return true;
    }
    return QWidget::eventFilter(pWatched, pEvent);
}

void CChosenTable::SetRowTexts(RowTexts rowTexts)
{
    m_rowTexts = std::move(rowTexts);
    FillRows();
}

void CChosenTable::SetIds(const QStringList& listIds)
{
    m_listIds = listIds;
    FillRows();
}

void CChosenTable::SetFilling()
{
    m_bFilling = true;
    m_pView->setMinimumHeight(0);
    m_pView->setMaximumHeight(QWIDGETSIZE_MAX);
    m_pEmpty->setAlignment(Qt::AlignCenter);
    m_pEmpty->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CChosenTable::SetReadOnly(bool bReadOnly)
{
    m_pView->setColumnHidden(m_nTextColumns + 1, bReadOnly);
}

void CChosenTable::FillRows()
{
    if (!m_pModel)
        return;
    QVector<CTableModel::Row> vecRows;
    for (const QString& sId : m_listIds) {
        CTableModel::Row row{CTableModel::MakeItem(sId)};
        const QStringList listTexts = m_rowTexts(sId);
        for (int n = 0; n < m_nTextColumns; ++n)
            row.append(CTableModel::MakeItem(listTexts.value(n)));
        row.append(CTableModel::MakeItem());
        vecRows.append(row);
    }
    m_pModel->SetRows(vecRows);
    m_pEmpty->setVisible(m_listIds.isEmpty() && !m_pEmpty->text().isEmpty());
    m_pView->setVisible(!m_listIds.isEmpty() || m_pEmpty->text().isEmpty());
    FitHeight();
}

void CChosenTable::FitHeight()
{
    if (m_bFilling)
        return;
    const int nRows = qBound(1, m_listIds.size(), MaxRowsShown);
    m_pView->setFixedHeight(
        m_pView->horizontalHeader()->sizeHint().height() + nRows * RowHeight + 2 * m_pView->frameWidth());
}

} // namespace Common
