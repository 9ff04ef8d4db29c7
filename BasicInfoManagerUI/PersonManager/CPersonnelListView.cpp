#include "CPersonnelListView.h"

#include <Trv/QSkin.h>
#include <common/CCheckDelegate.h>
#include <common/CFilterHeaderView.h>
#include <common/CRowButtonDelegate.h>

#include <QCoreApplication>
#include <QMenu>
#include <QScrollBar>
#include <QShortcut>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonnelListView)
};
} // namespace

CPersonnelListView::CPersonnelListView(QWidget* pParent)
    : QTreeView(pParent)
    , m_pModel(new CPersonModel(this))
    , m_pHeader(new Common::CFilterHeaderView(this))
    , m_pRowButtons(new Common::CRowButtonDelegate(
          {{RoleEdit, Trv::GetIcon(QStringLiteral("edit")), Text::tr("Edit")},
              {RoleDelete, Trv::GetIcon(QStringLiteral("delete")), Text::tr("Delete")},
              {RoleHistory, Trv::GetIcon(QStringLiteral("history")), Text::tr("Query Log")},
              {RoleReissue, Trv::GetIcon(QStringLiteral("reissue")), Text::tr("Re-issue")},
              {RoleQrCode, Trv::GetIcon(QStringLiteral("qr-code")), Text::tr("QR Code")},
              {RoleAbnormal, Trv::GetIcon(QStringLiteral("warning")), Text::tr("Authorization error")}},
          this))
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setMouseTracking(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setIconSize(QSize(CPersonModel::PhotoSide, CPersonModel::PhotoSide));
    setModel(m_pModel);
    m_pHeader->setObjectName(QStringLiteral("headerPersons"));
    setHeader(m_pHeader);
    m_pHeader->SetCheckSection(PersonColumnCheck);
    m_pHeader->setMinimumSectionSize(40);
    m_pHeader->setStretchLastSection(true);
    m_pHeader->setSectionsClickable(true);
    const int widths[] = {40, 58, 72, 104, 74, 98, 96, 94, 56, 98, 78, 172};
    for (int nColumn = 0; nColumn < PersonColumnCount; ++nColumn)
        m_pHeader->resizeSection(nColumn, widths[nColumn]);
    m_pHeader->setSectionResizeMode(PersonColumnCheck, QHeaderView::Fixed);
    setItemDelegateForColumn(PersonColumnCheck, new Common::CCheckDelegate(this));
    setItemDelegateForColumn(PersonColumnOperation, m_pRowButtons);
    m_pRowButtons->setObjectName(QStringLiteral("rowButtons"));
    m_pRowButtons->SetOfferRule([this](const QModelIndex& index, int nRole) {
        const auto* pPerson = m_pModel->FindPerson(m_pModel->GetId(index.row()));
        return nRole != RoleAbnormal || (pPerson && pPerson->bAuthorizationError);
    });

    connect(m_pRowButtons, &Common::CRowButtonDelegate::SignalButtonClicked, this,
        [this](const QModelIndex& index, int nRole) { RaiseOperation(nRole, index); });
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() != PersonColumnCheck && index.column() != PersonColumnOperation)
            RaiseOperation(RoleEdit, index);
    });
    connect(this, &QWidget::customContextMenuRequested, this, &CPersonnelListView::OnContextMenu);
    connect(m_pHeader, &Common::CFilterHeaderView::SignalCheckAll, m_pModel, &CPersonModel::SetAllChecked);
    connect(m_pModel, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& index) {
        if (index.column() == PersonColumnCheck)
            OnChecksChanged();
    });
    SetUpKeys();
}

void CPersonnelListView::SetUpKeys()
{
    const auto add = [this](const QKeySequence& keys, auto action) {
        auto* pShortcut = new QShortcut(keys, this, nullptr, nullptr, Qt::WidgetShortcut);
        connect(pShortcut, &QShortcut::activated, this, action);
    };
    for (const int nKey : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2})
        add(nKey, [this] { RaiseOperation(RoleEdit, currentIndex()); });
    add(Qt::Key_Delete, [this] { RaiseOperation(RoleDelete, currentIndex()); });
    add(Qt::Key_Space, [this] { OnToggleChecks(); });
}

void CPersonnelListView::RaiseOperation(int nRole, const QModelIndex& index)
{
    const QString sId = m_pModel->GetId(index.row());
    const auto* pPerson = m_pModel->FindPerson(sId);
    if (!index.isValid() || !pPerson)
        return;
    if (nRole == RoleAbnormal)
        Q_EMIT SignalBtnAbnormalClicked(sId, QString::fromStdString(pPerson->sName));
    else
        Q_EMIT SignalOperation(nRole, sId);
}

void CPersonnelListView::SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons)
{
    const QString sCurrent = m_pModel->GetId(currentIndex().row());
    QStringList listSelected;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        listSelected.append(m_pModel->GetId(index.row()));
    const int nScroll = verticalScrollBar()->value();

    m_pModel->SetPersons(vecPersons);
    QItemSelection selection;
    for (const QString& sId : qAsConst(listSelected)) {
        const QModelIndex index = m_pModel->index(m_pModel->FindRow(sId), 0);
        selection.select(index, index);
    }
    const int nCurrent = m_pModel->FindRow(sCurrent);
    if (nCurrent >= 0) {
        selectionModel()->setCurrentIndex(
            m_pModel->index(nCurrent, PersonColumnName), QItemSelectionModel::NoUpdate);
        verticalScrollBar()->setValue(nScroll);
    }
    if (!selection.isEmpty())
        selectionModel()->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    OnChecksChanged();
}

void CPersonnelListView::OnChecksChanged()
{
    m_pHeader->SetCheckState(m_pModel->GetCheckSummary());
    Q_EMIT SignalChecksChanged();
}

void CPersonnelListView::OnToggleChecks()
{
    const QModelIndexList listRows = selectionModel()->selectedRows(PersonColumnCheck);
    if (listRows.isEmpty())
        return;
    const bool bCheck = listRows.first().data(Qt::CheckStateRole).toInt() != Qt::Checked;
    for (const QModelIndex& index : listRows)
        m_pModel->setData(index, bCheck ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
}

void CPersonnelListView::OnContextMenu(const QPoint& pos)
{
    const QModelIndex index = indexAt(pos);
    if (!index.isValid())
        return;
    auto* pMenu = new QMenu(this);
    pMenu->setObjectName(QStringLiteral("menuPerson"));
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    const struct
    {
        int nRole;
        const char* pszIcon;
        QString sText;
    } entries[] = {{RoleDetails, "details", Text::tr("Details")}, {RoleEdit, "edit", Text::tr("Edit")},
        {RoleMove, "move", Text::tr("Move To")}, {RoleDelete, "delete", Text::tr("Delete")},
        {RoleHistory, "history", Text::tr("History")}, {RoleQrCode, "qr-code", Text::tr("QR Code")}};
    for (const auto& entry : entries) {
        QAction* pAction = pMenu->addAction(Trv::GetIcon(QLatin1String(entry.pszIcon)), entry.sText);
        // The rows may be others by the time that the choice is made.
        connect(pAction, &QAction::triggered, this,
            [this, nRole = entry.nRole, sId = m_pModel->GetId(index.row())] {
                RaiseOperation(nRole, m_pModel->index(m_pModel->FindRow(sId), PersonColumnOperation));
            });
    }
    pMenu->popup(viewport()->mapToGlobal(pos));
}

} // namespace BasicInfoManagerUI
