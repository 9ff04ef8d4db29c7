#include "CSearchTreeView.h"

#include <UICommonMdl/CCodeTreeModel.h>

#include <QCoreApplication>
#include <QHeaderView>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace Common {

using UICommonMdl::CCodeTreeModel;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CSearchTreeView)
};

constexpr int Indentation = 16;

} // namespace

CSearchTreeView::CSearchTreeView(QWidget* pParent)
    : QTreeView(pParent)
    , m_pProxy(new CTreeFilterProxyModel(this))
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIndentation(Indentation);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) { OnExpanded(index, true); });
    connect(
        this, &QTreeView::collapsed, this, [this](const QModelIndex& index) { OnExpanded(index, false); });
}

void CSearchTreeView::SetTreeModel(CCodeTreeModel* pModel)
{
    m_pModel = pModel;
    // Before the proxy hears of it, and the view through the proxy.
    connect(pModel, &QAbstractItemModel::rowsAboutToBeRemoved, this, &CSearchTreeView::OnAboutToBeRemoved);
    m_pProxy->setSourceModel(pModel);
    setModel(m_pProxy);
    // As wide as the rows in view, so that deep nodes can be scrolled to.
    header()->setStretchLastSection(false);
    header()->setResizeContentsPrecision(0);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    Restore();
}

void CSearchTreeView::OnAboutToBeRemoved(const QModelIndex& parent)
{
    // The whole tree goes: until Restore is called the view shows what comes in its place, no choice of
    // anybody.
    if (parent.isValid() || m_bKeeping)
        return;
    m_bKeeping = true;
    m_nScroll = verticalScrollBar()->value();
}

void CSearchTreeView::OnExpanded(const QModelIndex& index, bool bExpanded)
{
    // A search unfolds the ways to its matches; that ends with it.
    if (m_bKeeping || !m_pProxy->GetText().isEmpty())
        return;
    if (bExpanded)
        m_setExpanded.insert(CCodeTreeModel::GetCode(index));
    else
        m_setExpanded.remove(CCodeTreeModel::GetCode(index));
}

void CSearchTreeView::SetFilter(const QString& sText)
{
    const QString sWanted = sText.trimmed();
    if (sWanted == m_pProxy->GetText())
        return;
    {
        const QScopedValueRollback<bool> keeping(m_bKeeping, true);
        m_pProxy->SetText(sWanted);
        ShowKept();
    }
    if (currentIndex().isValid())
        scrollTo(currentIndex());
}

void CSearchTreeView::Restore()
{
    m_bKeeping = true;
    for (auto it = m_setExpanded.begin(); it != m_setExpanded.end();)
        it = m_pModel->FindCode(*it).isValid() ? std::next(it) : m_setExpanded.erase(it);
    if (!m_bFilled && m_pModel->rowCount() > 0) {
        m_bFilled = true;
        for (int nRow = 0; nRow < m_pModel->rowCount(); ++nRow)
            m_setExpanded.insert(CCodeTreeModel::GetCode(m_pModel->index(nRow, 0)));
    }
    ShowKept();
    verticalScrollBar()->setValue(m_nScroll);
    m_bKeeping = false;

    const bool bGone = !m_sCurrent.isEmpty() && !m_pModel->FindCode(m_sCurrent).isValid();
    if (bGone || (m_sCurrent.isEmpty() && m_bAlwaysCurrent && m_pModel->rowCount() > 0))
        ChangeCurrent(m_bAlwaysCurrent ? CCodeTreeModel::GetCode(m_pModel->index(0, 0)) : QString());
}

void CSearchTreeView::ShowKept()
{
    // Laid out once, when all is unfolded.
    scheduleDelayedItemsLayout();
    if (m_pProxy->GetText().isEmpty()) {
        for (const QString& sCode : qAsConst(m_setExpanded))
            setExpanded(FindCode(sCode), true);
    } else {
        expandAll();
    }
    ShowCurrent();
    executeDelayedItemsLayout();
    updateGeometries();
}

void CSearchTreeView::ShowCurrent()
{
    const QScopedValueRollback<bool> keeping(m_bKeeping, true);
    const bool bScrolls = hasAutoScroll();
    setAutoScroll(false);
    setCurrentIndex(FindCode(m_sCurrent));
    setAutoScroll(bScrolls);
}

void CSearchTreeView::ChangeCurrent(const QString& sCode)
{
    m_sCurrent = sCode;
    ShowCurrent();
    Q_EMIT SignalCurrentIndexChanged(currentIndex());
}

void CSearchTreeView::SelectCode(const QString& sCode)
{
    if (sCode == m_sCurrent || !m_pModel->FindCode(sCode).isValid())
        return;
    ChangeCurrent(sCode);
    if (currentIndex().isValid())
        scrollTo(currentIndex());
}

void CSearchTreeView::ClearCurrent()
{
    if (!m_sCurrent.isEmpty())
        ChangeCurrent(QString());
}

QModelIndex CSearchTreeView::FindCode(const QString& sCode) const
{
    return m_pModel ? m_pProxy->mapFromSource(m_pModel->FindCode(sCode)) : QModelIndex();
}

QModelIndex CSearchTreeView::FindMatch() const
{
    const QString sText = m_pProxy->GetText();
    // A search unfolds the whole tree.
    QModelIndex node = sText.isEmpty() ? QModelIndex() : m_pProxy->index(0, 0);
    while (node.isValid()
        && !(node.flags().testFlag(Qt::ItemIsEnabled)
            && node.data().toString().contains(sText, Qt::CaseInsensitive)))
        node = indexBelow(node);
    return node;
}

void CSearchTreeView::paintEvent(QPaintEvent* pEvent)
{
    QTreeView::paintEvent(pEvent);
    if (m_pProxy->GetText().isEmpty() || m_pProxy->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignHCenter | Qt::TextWordWrap,
        Text::tr("Nothing matches the search."));
}

void CSearchTreeView::resizeEvent(QResizeEvent* pEvent)
{
    QTreeView::resizeEvent(pEvent);
    header()->setMinimumSectionSize(viewport()->width());
}

void CSearchTreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (m_bKeeping || !current.isValid())
        return;
    const QString sCode = CCodeTreeModel::GetCode(current);
    if (sCode == m_sCurrent)
        return;
    m_sCurrent = sCode;
    Q_EMIT SignalCurrentIndexChanged(current);
}

} // namespace Common
