#include "CUserListView.h"

#include "CUserListHeader.h"
#include "CUserModel.h"

#include <Trv/QSkin.h>
#include <common/CCheckDelegate.h>
#include <common/CRowButtonDelegate.h>

#include <QCoreApplication>
#include <QMenu>
#include <QScrollBar>
#include <QShortcut>

namespace PlatformConfigUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserListView)
};
} // namespace

CUserListView::CUserListView(QWidget* pParent)
    : QTreeView(pParent)
    , m_pModel(new CUserModel(this))
    , m_pHeader(new CUserListHeader(this))
    , m_pRowButtons(new Common::CRowButtonDelegate(
          {{RoleLock, Trv::GetIcon(QStringLiteral("lock")), Text::tr("Lock")},
              {RoleUnlock, Trv::GetIcon(QStringLiteral("unlock")), Text::tr("Unlock")},
              {RoleEdit, Trv::GetIcon(QStringLiteral("edit")), Text::tr("Edit")},
              {RoleDelete, Trv::GetIcon(QStringLiteral("delete")), Text::tr("Delete")},
              {RoleDetails, Trv::GetIcon(QStringLiteral("details")), Text::tr("User Details")}},
          this))
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setMouseTracking(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setModel(m_pModel);
    SetUpColumns();
    SetUpKeys();
    m_pRowButtons->setObjectName(QStringLiteral("rowButtons"));
    m_pRowButtons->SetOfferRule(
        [this](const QModelIndex& index, int nRole) { return IsOffered(index, nRole); });
    connect(m_pRowButtons, &Common::CRowButtonDelegate::SignalButtonClicked, this,
        [this](const QModelIndex& index, int nRole) { RaiseOperation(nRole, index); });
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() != UserColumnCheck && index.column() != UserColumnOperation)
            OpenUser(index);
    });
    connect(this, &QWidget::customContextMenuRequested, this, &CUserListView::OnContextMenu);
    connect(m_pHeader, &Common::CFilterHeaderView::SignalCheckAll, m_pModel, &CUserModel::SetAllChecked);
    connect(m_pModel, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& index) {
        if (index.column() == UserColumnCheck)
            OnChecksChanged();
    });
}

void CUserListView::SetUpColumns()
{
    m_pHeader->setObjectName(QStringLiteral("headerUsers"));
    setHeader(m_pHeader);
    m_pHeader->SetCheckSection(UserColumnCheck);
    m_pHeader->setMinimumSectionSize(40);
    m_pHeader->setStretchLastSection(true);
    // A view that does not sort by itself takes this away from the header that it gets.
    m_pHeader->setSectionsClickable(true);
    const int widths[] = {40, 220, 360, 130, 150, 140};
    for (int nColumn = 0; nColumn < UserColumnCount; ++nColumn)
        m_pHeader->resizeSection(nColumn, widths[nColumn]);
    m_pHeader->setSectionResizeMode(UserColumnCheck, QHeaderView::Fixed);
    setItemDelegateForColumn(UserColumnCheck, new Common::CCheckDelegate(this));
    setItemDelegateForColumn(UserColumnOperation, m_pRowButtons);
}

void CUserListView::SetUpKeys()
{
    const auto add = [this](const QKeySequence& keys, auto action) {
        auto* const pShortcut = new QShortcut(keys, this, nullptr, nullptr, Qt::WidgetShortcut);
        connect(pShortcut, &QShortcut::activated, this, action);
    };
    for (const int nKey : {Qt::Key_Return, Qt::Key_Enter})
        add(nKey, [this] { RaiseOperation(RoleDetails, currentIndex()); });
    add(Qt::Key_F2, [this] { RaiseOperation(RoleEdit, currentIndex()); });
    add(Qt::Key_Delete, [this] { RaiseOperation(RoleDelete, currentIndex()); });
    add(Qt::Key_Space, [this] { OnToggleChecks(); });
    add(QKeySequence(QStringLiteral("Alt+S")), [this] { m_pHeader->OpenFilter(UserColumnStatus); });
    add(QKeySequence(QStringLiteral("Alt+T")), [this] { m_pHeader->OpenFilter(UserColumnType); });
}

bool CUserListView::IsOffered(const QModelIndex& index, int nRole) const
{
    if (nRole == RoleDetails)
        return !m_bChangeable;
    if (!m_bChangeable)
        return false;
    if (nRole == RoleEdit)
        return true;
    const bool bUsable = index.data(UserRoleLockState).toInt() == UserLogical::LockStateUsable;
    return index.data(UserRoleAllowed).toBool() && (nRole == RoleDelete || (nRole == RoleLock) == bUsable);
}

void CUserListView::RaiseOperation(int nRole, const QModelIndex& index)
{
    if (index.isValid() && (nRole == RoleDetails || IsOffered(index, nRole)))
        Q_EMIT SignalOperation(nRole, index.data(UserRoleName).toString());
}

void CUserListView::OpenUser(const QModelIndex& index)
{
    RaiseOperation(m_bChangeable ? RoleEdit : RoleDetails, index);
}

void CUserListView::SetChangeable(bool bChangeable)
{
    m_bChangeable = bChangeable;
    viewport()->update();
}

void CUserListView::SetUsers(const std::vector<UserLogical::UserInfo_t>& vecUsers)
{
    const QString sCurrent = currentIndex().data(UserRoleName).toString();
    const int nScroll = verticalScrollBar()->value();
    QStringList listSelected;
    for (const QModelIndex& index : selectionModel()->selectedRows(UserColumnName))
        listSelected.append(index.data(UserRoleName).toString());
    m_pModel->SetUsers(vecUsers);
    const int nCurrent = m_pModel->FindRow(sCurrent);
    if (nCurrent >= 0) {
        selectionModel()->setCurrentIndex(
            m_pModel->index(nCurrent, UserColumnName), QItemSelectionModel::NoUpdate);
        verticalScrollBar()->setValue(nScroll);
    }
    for (const QString& sName : qAsConst(listSelected)) {
        const QModelIndex index = m_pModel->index(m_pModel->FindRow(sName), UserColumnName);
        if (index.isValid())
            selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    OnChecksChanged();
}

void CUserListView::OnChecksChanged()
{
    m_pHeader->SetCheckState(m_pModel->GetCheckSummary());
    Q_EMIT SignalChecksChanged();
}

void CUserListView::OnToggleChecks()
{
    const QModelIndexList listRows = selectionModel()->selectedRows(UserColumnCheck);
    if (listRows.isEmpty())
        return;
    const bool bCheck = listRows.first().data(Qt::CheckStateRole).toInt() != Qt::Checked;
    for (const QModelIndex& index : listRows)
        m_pModel->setData(index, bCheck ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
}

void CUserListView::OnContextMenu(const QPoint& pos)
{
    const QModelIndex index = indexAt(pos);
    if (!index.isValid())
        return;
    auto* const pMenu = new QMenu(this);
    pMenu->setObjectName(QStringLiteral("menuUser"));
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    const struct
    {
        int nRole;
        const char* pszIcon;
        QString sText;
    } entries[] = {{RoleDetails, "details", Text::tr("User Details")}, {RoleEdit, "edit", Text::tr("Edit")},
        {RoleLock, "lock", Text::tr("Lock")}, {RoleUnlock, "unlock", Text::tr("Unlock")},
        {RoleDelete, "delete", Text::tr("Delete")}};
    for (const auto& entry : entries) {
        if (entry.nRole != RoleDetails && !IsOffered(index, entry.nRole))
            continue;
        QAction* const pAction = pMenu->addAction(Trv::GetIcon(QLatin1String(entry.pszIcon)), entry.sText);
        // The rows may be others by the time that the choice is made.
        connect(pAction, &QAction::triggered, this,
            [this, nRole = entry.nRole, sName = index.data(UserRoleName).toString()] {
                RaiseOperation(nRole, m_pModel->index(m_pModel->FindRow(sName), UserColumnName));
            });
    }
    pMenu->popup(viewport()->mapToGlobal(pos));
}

} // namespace PlatformConfigUI
