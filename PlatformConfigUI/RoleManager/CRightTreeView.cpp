#include "CRightTreeView.h"

#include <QAbstractProxyModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace PlatformConfigUI {

namespace {
constexpr int Indentation = 20;
}

CRightTreeView::CRightTreeView(QWidget* pParent)
    : QTreeView(pParent)
{
    setUniformRowHeights(true);
    setIndentation(Indentation);
    setAllColumnsShowFocus(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) { OnFolding(index, true); });
    connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& index) { OnFolding(index, false); });
}

void CRightTreeView::SetFilterModel(QAbstractProxyModel* pProxy, Folding folding)
{
    m_pProxy = pProxy;
    m_folding = folding;
    setModel(pProxy);
    // After the view itself; a search fills the filter anew, but not the tree.
    connect(pProxy, &QAbstractItemModel::modelReset, this, [this] {
        if (!m_bKeeping)
            Restart();
    });
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->setStretchLastSection(false);
}

void CRightTreeView::OnFolding(const QModelIndex& index, bool bUnfolded)
{
    if (m_bKeeping)
        return;
    const QModelIndex source = m_pProxy->mapToSource(index);
    // A search unfolds the ways to its matches; that ends with it.
    if (!m_bSearching) {
        if (bUnfolded == (m_folding == Folding::Folded))
            m_setOthers.insert(source);
        else
            m_setOthers.remove(source);
    }
    if (bUnfolded)
        Q_EMIT SignalUnfolded(source);
}

void CRightTreeView::Filter(const std::function<void()>& change, bool bSearching)
{
    const QPersistentModelIndex current = m_pProxy->mapToSource(currentIndex());
    const QScopedValueRollback<bool> keeping(m_bKeeping, true);
    m_bSearching = bSearching;
    change();
    ShowKept();
    if (current.isValid())
        setCurrentIndex(m_pProxy->mapFromSource(current));
}

void CRightTreeView::Restart()
{
    const QScopedValueRollback<bool> keeping(m_bKeeping, true);
    m_setOthers.clear();
    ShowKept();
}

void CRightTreeView::ShowKept()
{
    // Laid out once, when all is unfolded.
    scheduleDelayedItemsLayout();
    if (m_folding == Folding::Unfolded)
        expandAll();
    else if (m_bSearching)
        UnfoldLoaded(QModelIndex());
    if (!m_bSearching) {
        for (const QPersistentModelIndex& source : qAsConst(m_setOthers))
            setExpanded(m_pProxy->mapFromSource(source), m_folding == Folding::Folded);
    }
    executeDelayedItemsLayout();
}

void CRightTreeView::UnfoldLoaded(const QModelIndex& parent)
{
    for (int nRow = 0; nRow < model()->rowCount(parent); ++nRow) {
        const QModelIndex index = model()->index(nRow, 0, parent);
        if (!model()->hasChildren(index) || model()->canFetchMore(index))
            continue;
        expand(index);
        UnfoldLoaded(index);
    }
}

void CRightTreeView::keyPressEvent(QKeyEvent* pEvent)
{
    const QModelIndex index = currentIndex().siblingAtColumn(0);
    if (pEvent->key() == Qt::Key_Space && pEvent->modifiers() == Qt::NoModifier
        && index.flags().testFlag(Qt::ItemIsUserCheckable)) {
        const bool bChecked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        model()->setData(index, bChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
        return;
    }
    QTreeView::keyPressEvent(pEvent);
}

} // namespace PlatformConfigUI
