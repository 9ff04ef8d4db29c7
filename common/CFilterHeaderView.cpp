#include "CFilterHeaderView.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>

namespace Common {

namespace {
constexpr int FunnelSize = 16;
constexpr int FunnelMargin = 6;
constexpr int CheckMargin = 7; // as the boxes of the rows below stand
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

QRect CFilterHeaderView::SectionRect(int nSection) const
{
    return {sectionViewportPosition(nSection), 0, sectionSize(nSection), viewport()->height()};
}

QRect CFilterHeaderView::GetFilterRect(int nSection) const
{
    const QRect rect = SectionRect(nSection);
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
    const int nSection = logicalIndexAt(pEvent->pos());
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
    if (logicalIndexAt(pEvent->pos()) != nPressed)
        return;
    if (nPressed == m_nCheckSection)
        Q_EMIT SignalCheckAll(m_checkState != Qt::Checked);
    else
        OpenFilter(nPressed);
}

void CFilterHeaderView::OpenFilter(int nSection)
{
    auto* pMenu = new QMenu(this);
    pMenu->setObjectName(QStringLiteral("menuFilter"));
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    const Filter& filter = m_mapFilters[nSection];
    for (const FilterOption& choice : filter.vecOptions) {
        QAction* pAction = pMenu->addAction(choice.sText);
        pAction->setCheckable(true);
        pAction->setChecked(choice.nValue == filter.nValue);
        connect(pAction, &QAction::triggered, this,
            [this, nSection, nValue = choice.nValue] { Q_EMIT SignalFilterChosen(nSection, nValue); });
    }
    pMenu->popup(viewport()->mapToGlobal(GetFilterRect(nSection).bottomLeft()));
}

void CFilterHeaderView::contextMenuEvent(QContextMenuEvent* pEvent)
{
    auto* pMenu = new QMenu(this);
    pMenu->setObjectName(QStringLiteral("menuColumns"));
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    for (const int nSection : qAsConst(m_vecOptional)) {
        QAction* pAction = pMenu->addAction(model()->headerData(nSection, Qt::Horizontal).toString());
        pAction->setCheckable(true);
        pAction->setChecked(!isSectionHidden(nSection));
        connect(pAction, &QAction::toggled, this, [this, nSection](bool bShown) {
            setSectionHidden(nSection, !bShown);
            Q_EMIT SignalColumnStateChanged(nSection, bShown ? 1 : 0);
        });
    }
    pMenu->popup(pEvent->globalPos());
}

} // namespace Common
