#include "CFilterHeaderView.h"

#include <Trv/QSkin.h>

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CFilterHeaderView)
};

constexpr int FunnelSize = 16;
constexpr int FunnelMargin = 6;
constexpr int CheckMargin = 7; // as the boxes of the rows below stand

/// Choices that exclude each other, with the mark of such.
QAction* AddChoice(QMenu* pMenu, QActionGroup* pGroup, const QString& sText, bool bChosen)
{
    QAction* const pAction = pMenu->addAction(sText);
    pAction->setCheckable(true);
    pAction->setChecked(bChosen);
    pGroup->addAction(pAction);
    return pAction;
}

} // namespace

CFilterHeaderView::CFilterHeaderView(QWidget* pParent)
    : QHeaderView(Qt::Horizontal, pParent)
{
    setHighlightSections(false);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void CFilterHeaderView::SetCheckSection(int nSection)
{
    m_nCheckSection = nSection;
}

void CFilterHeaderView::SetCheckState(Qt::CheckState state)
{
    if (m_checkState == state)
        return;
    m_checkState = state;
    viewport()->update();
}

void CFilterHeaderView::SetFilterIcons(const QIcon& icon, const QIcon& activeIcon)
{
    m_filterIcon = icon;
    m_activeFilterIcon = activeIcon;
}

void CFilterHeaderView::SetFilter(int nSection, const QVector<FilterOption>& vecOptions)
{
    m_mapFilters[nSection].vecOptions = vecOptions;
    viewport()->update();
}

void CFilterHeaderView::SetFilterValue(int nSection, int nValue)
{
    Filter& filter = m_mapFilters[nSection];
    filter.nValue = nValue;
    filter.bSet = !filter.vecOptions.isEmpty() && filter.vecOptions.first().nValue != nValue;
    viewport()->update();
}

void CFilterHeaderView::SetOptionalSections(const QVector<int>& vecSections)
{
    m_vecOptional = vecSections;
}

void CFilterHeaderView::SetSortSections(const QVector<int>& vecSections)
{
    if (m_vecSorting.isEmpty() && !vecSections.isEmpty()) {
        setSectionsClickable(true);
        connect(this, &QHeaderView::sectionClicked, this, &CFilterHeaderView::OnSectionClicked);
    }
    m_vecSorting = vecSections;
}

void CFilterHeaderView::SetSort(int nSection, Qt::SortOrder order)
{
    m_nSort = nSection;
    m_sortOrder = order;
    setSortIndicatorShown(nSection >= 0);
    setSortIndicator(nSection, order);
}

void CFilterHeaderView::OnSectionClicked(int nSection)
{
    // The base has moved its arrow already, whatever was clicked.
    setSortIndicator(m_nSort, m_sortOrder);
    if (!m_vecSorting.contains(nSection))
        return;
    const bool bTurn = nSection == m_nSort;
    const bool bAscending = m_sortOrder == Qt::AscendingOrder;
    ChooseSort(nSection, bTurn == bAscending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void CFilterHeaderView::ChooseSort(int nSection, Qt::SortOrder order)
{
    if (nSection == m_nSort && order == m_sortOrder)
        return;
    SetSort(nSection, order);
    Q_EMIT SignalSortChosen(nSection, order);
}

void CFilterHeaderView::SetFrozenSection(int nSection)
{
    m_nFrozen = nSection;
    viewport()->update();
}

bool CFilterHeaderView::IsFrozenOverOthers() const
{
    return m_nFrozen >= 0 && !isSectionHidden(m_nFrozen)
        && sectionViewportPosition(m_nFrozen) + sectionSize(m_nFrozen) > viewport()->width();
}

QRect CFilterHeaderView::GetSectionRect(int nSection) const
{
    const int nWidth = sectionSize(nSection);
    const bool bOver = nSection == m_nFrozen && IsFrozenOverOthers();
    const int nLeft = bOver ? qMax(0, viewport()->width() - nWidth) : sectionViewportPosition(nSection);
    return {nLeft, 0, nWidth, viewport()->height()};
}

int CFilterHeaderView::SectionAt(const QPoint& pos) const
{
    if (IsFrozenOverOthers() && GetSectionRect(m_nFrozen).contains(pos))
        return m_nFrozen;
    return logicalIndexAt(pos);
}

void CFilterHeaderView::paintEvent(QPaintEvent* pEvent)
{
    QHeaderView::paintEvent(pEvent);
    if (!IsFrozenOverOthers())
        return;
    QPainter painter(viewport());
    const QRect rect = GetSectionRect(m_nFrozen);
    painter.fillRect(rect, Trv::GetColor(QStringLiteral("surface-alt")));
    paintSection(&painter, rect, m_nFrozen);
    painter.fillRect(QRect(rect.left(), 0, 1, rect.height()), Trv::GetColor(QStringLiteral("border-strong")));
}

QRect CFilterHeaderView::GetFilterRect(int nSection) const
{
    const QRect rect = GetSectionRect(nSection);
    return {
        rect.right() - FunnelMargin - FunnelSize, rect.center().y() - FunnelSize / 2, FunnelSize, FunnelSize};
}

void CFilterHeaderView::paintSection(QPainter* pPainter, const QRect& rect, int nSection) const
{
    pPainter->save();
    QHeaderView::paintSection(pPainter, rect, nSection);
    pPainter->restore();
    if (nSection == m_nCheckSection) {
        QStyleOptionButton option;
        option.initFrom(this);
        option.state.setFlag(QStyle::State_On, m_checkState == Qt::Checked);
        option.state.setFlag(QStyle::State_Off, m_checkState == Qt::Unchecked);
        option.state.setFlag(QStyle::State_NoChange, m_checkState == Qt::PartiallyChecked);
        const QSize size(style()->pixelMetric(QStyle::PM_IndicatorWidth, &option, this),
            style()->pixelMetric(QStyle::PM_IndicatorHeight, &option, this));
        option.rect = QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, size,
            rect.adjusted(CheckMargin, 0, -CheckMargin, 0));
        style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &option, pPainter, this);
    }
    const auto it = m_mapFilters.constFind(nSection);
    if (it != m_mapFilters.constEnd())
        (it->bSet ? m_activeFilterIcon : m_filterIcon).paint(pPainter, GetFilterRect(nSection));
}

QSize CFilterHeaderView::sectionSizeFromContents(int nSection) const
{
    QSize size = QHeaderView::sectionSizeFromContents(nSection);
    if (m_mapFilters.contains(nSection))
        size.rwidth() += FunnelSize + 2 * FunnelMargin;
    return size;
}

void CFilterHeaderView::mousePressEvent(QMouseEvent* pEvent)
{
    const int nSection = SectionAt(pEvent->pos());
    // Its borders are not those of the sections below it.
    if (nSection >= 0 && nSection == m_nFrozen && IsFrozenOverOthers())
        return;
    const bool bFunnel = m_mapFilters.contains(nSection) && GetFilterRect(nSection).contains(pEvent->pos());
    const bool bBox = nSection >= 0 && nSection == m_nCheckSection;
    m_nPressed = pEvent->button() == Qt::LeftButton && (bFunnel || bBox) ? nSection : -1;
    if (m_nPressed < 0)
        QHeaderView::mousePressEvent(pEvent);
}

void CFilterHeaderView::mouseReleaseEvent(QMouseEvent* pEvent)
{
    const int nPressed = std::exchange(m_nPressed, -1);
    if (nPressed < 0) {
        QHeaderView::mouseReleaseEvent(pEvent);
        return;
    }
    if (SectionAt(pEvent->pos()) != nPressed)
        return;
    if (nPressed == m_nCheckSection)
        Q_EMIT SignalCheckAll(m_checkState != Qt::Checked);
    else
        OpenFilter(nPressed);
}

void CFilterHeaderView::mouseMoveEvent(QMouseEvent* pEvent)
{
    if (pEvent->buttons() == Qt::NoButton && IsFrozenOverOthers() && SectionAt(pEvent->pos()) == m_nFrozen)
        unsetCursor();
    else
        QHeaderView::mouseMoveEvent(pEvent);
}

void CFilterHeaderView::mouseDoubleClickEvent(QMouseEvent* pEvent)
{
    if (!IsFrozenOverOthers() || SectionAt(pEvent->pos()) != m_nFrozen)
        QHeaderView::mouseDoubleClickEvent(pEvent);
}

void CFilterHeaderView::OpenFilter(int nSection)
{
    auto* pMenu = new QMenu(this);
    pMenu->setObjectName(QStringLiteral("menuFilter"));
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    auto* const pGroup = new QActionGroup(pMenu);
    const Filter& filter = m_mapFilters[nSection];
    for (const FilterOption& choice : filter.vecOptions) {
        const QAction* const pAction = AddChoice(pMenu, pGroup, choice.sText, choice.nValue == filter.nValue);
        connect(pAction, &QAction::triggered, this,
            [this, nSection, nValue = choice.nValue] { Q_EMIT SignalFilterChosen(nSection, nValue); });
    }
    pMenu->popup(viewport()->mapToGlobal(GetFilterRect(nSection).bottomLeft()));
}

void CFilterHeaderView::AddSortMenu(QMenu* pMenu)
{
    QMenu* const pSort = pMenu->addMenu(Text::tr("Sort By"));
    pSort->setObjectName(QStringLiteral("menuSort"));
    auto* const pSections = new QActionGroup(pSort);
    for (const int nSection : qAsConst(m_vecSorting)) {
        const QString sText = model()->headerData(nSection, Qt::Horizontal).toString();
        const QAction* const pAction = AddChoice(pSort, pSections, sText, nSection == m_nSort);
        connect(pAction, &QAction::triggered, this, [this, nSection] { ChooseSort(nSection, m_sortOrder); });
    }
    pSort->addSeparator();
    auto* const pOrders = new QActionGroup(pSort);
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        const QString sText = order == Qt::AscendingOrder ? Text::tr("Ascending") : Text::tr("Descending");
        QAction* const pAction = AddChoice(pSort, pOrders, sText, order == m_sortOrder);
        pAction->setEnabled(m_nSort >= 0);
        connect(pAction, &QAction::triggered, this, [this, order] { ChooseSort(m_nSort, order); });
    }
    pMenu->addSeparator();
}

void CFilterHeaderView::PopUpMenu(const QPoint& globalPos)
{
    auto* pMenu = new QMenu(this);
    pMenu->setObjectName(QStringLiteral("menuColumns"));
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    if (!m_vecSorting.isEmpty())
        AddSortMenu(pMenu);
    for (const int nSection : qAsConst(m_vecOptional)) {
        QAction* pAction = pMenu->addAction(model()->headerData(nSection, Qt::Horizontal).toString());
        pAction->setCheckable(true);
        pAction->setChecked(!isSectionHidden(nSection));
        connect(pAction, &QAction::toggled, this, [this, nSection](bool bShown) {
            setSectionHidden(nSection, !bShown);
            Q_EMIT SignalColumnStateChanged(nSection, bShown ? 1 : 0);
        });
    }
    if (m_bResettable) {
        pMenu->addSeparator();
        connect(pMenu->addAction(Text::tr("Reset Columns")), &QAction::triggered, this,
            &CFilterHeaderView::SignalResetColumns);
    }
    if (pMenu->isEmpty())
        delete pMenu;
    else
        pMenu->popup(globalPos);
}

void CFilterHeaderView::OpenMenu()
{
    PopUpMenu(mapToGlobal(rect().bottomLeft()));
}

void CFilterHeaderView::contextMenuEvent(QContextMenuEvent* pEvent)
{
    PopUpMenu(pEvent->globalPos());
}

} // namespace Common
