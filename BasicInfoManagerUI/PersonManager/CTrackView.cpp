#include "CTrackView.h"

#include <Trv/QSkin.h>

#include <QDateTime>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

namespace BasicInfoManagerUI {

namespace {

constexpr int LabelWidth = 190;
constexpr int AxisHeight = 34;
constexpr int LaneHeight = 44;
constexpr int Margin = 48; ///< of the time line, left and right
constexpr int StopWidth = 14; ///< what a stop takes at least, on the average
constexpr int StopRadius = 5;
constexpr int MarkWidth = 110;
constexpr int NearDistance = 8;

QColor Token(const char* pszToken)
{
    return Trv::GetColor(QLatin1String(pszToken));
}

} // namespace

CTrackView::CTrackView(QWidget* pParent)
    : QAbstractScrollArea(pParent)
{
    setFocusPolicy(Qt::StrongFocus);
    horizontalScrollBar()->setSingleStep(StopWidth);
    verticalScrollBar()->setSingleStep(LaneHeight);
}

void CTrackView::SetTrack(const Track& track)
{
    m_track = track;
    m_nCurrent = -1;
    UpdateScrollBars();
    SetCurrentStop(track.vecStops.size() - 1);
    viewport()->update();
}

int CTrackView::GetPlotWidth() const
{
    return qMax(viewport()->width() - LabelWidth, m_track.vecStops.size() * StopWidth + 2 * Margin);
}

int CTrackView::PlaceOf(qint64 nTime) const
{
    const qint64 nFirst = m_track.vecStops.first().nTime;
    const qint64 nPeriod = qMax(qint64(1), m_track.vecStops.last().nTime - nFirst);
    const int nWidth = GetPlotWidth() - 2 * Margin;
    return LabelWidth + Margin + int((nTime - nFirst) * nWidth / nPeriod) - horizontalScrollBar()->value();
}

QPoint CTrackView::GetStopPlace(int nStop) const
{
    const TrackStop& stop = m_track.vecStops[nStop];
    return {PlaceOf(stop.nTime),
        AxisHeight + stop.nLane * LaneHeight + LaneHeight / 2 - verticalScrollBar()->value()};
}

int CTrackView::StopAt(const QPoint& place) const
{
    int nBest = -1;
    int nDistance = NearDistance + 1;
    for (int n = 0; n < m_track.vecStops.size() && place.x() >= LabelWidth; ++n) {
        const int nHere = (GetStopPlace(n) - place).manhattanLength();
        if (nHere < nDistance) {
            nDistance = nHere;
            nBest = n;
        }
    }
    return nBest;
}

void CTrackView::UpdateScrollBars()
{
    const QSize size = viewport()->size();
    horizontalScrollBar()->setPageStep(qMax(1, size.width() - LabelWidth));
    horizontalScrollBar()->setRange(0, GetPlotWidth() - (size.width() - LabelWidth));
    const int nHeight = AxisHeight + m_track.listLanes.size() * LaneHeight;
    verticalScrollBar()->setPageStep(size.height());
    verticalScrollBar()->setRange(0, qMax(0, nHeight - size.height()));
}

void CTrackView::SetCurrentStop(int nStop)
{
    if (nStop == m_nCurrent || nStop < 0 || nStop >= m_track.vecStops.size())
        return;
    m_nCurrent = nStop;
    const QPoint place = GetStopPlace(nStop);
    if (place.x() < LabelWidth + Margin)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + place.x() - LabelWidth - Margin);
    else if (place.x() > viewport()->width() - Margin)
        horizontalScrollBar()->setValue(
            horizontalScrollBar()->value() + place.x() - viewport()->width() + Margin);
    if (place.y() < AxisHeight + LaneHeight / 2)
        verticalScrollBar()->setValue(m_track.vecStops[nStop].nLane * LaneHeight);
    else if (place.y() > viewport()->height() - LaneHeight / 2)
        verticalScrollBar()->setValue(
            verticalScrollBar()->value() + place.y() - viewport()->height() + LaneHeight / 2);
    viewport()->update();
    Q_EMIT SignalStopChanged(nStop);
}

void CTrackView::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), Token("surface"));
    if (m_track.vecStops.isEmpty())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    DrawMarks(painter);
    DrawStops(painter);
    DrawNames(painter);
    DrawLegend(painter);
}

void CTrackView::DrawMarks(QPainter& painter) const
{
    const qint64 nFirst = m_track.vecStops.first().nTime;
    const qint64 nLast = m_track.vecStops.last().nTime;
    const qint64 nStep = GetTimeStep(nLast - nFirst, qMax(1, (GetPlotWidth() - 2 * Margin) / MarkWidth));
    // Marks stand on the round hours and days of the local time.
    const qint64 nOffset = QDateTime::fromSecsSinceEpoch(nFirst).offsetFromUtc();
    for (qint64 n = (nFirst + nOffset + nStep - 1) / nStep * nStep - nOffset; n <= nLast; n += nStep) {
        const int nPlace = PlaceOf(n);
        painter.setPen(Token("border"));
        painter.drawLine(nPlace, AxisHeight - 6, nPlace, viewport()->height());
        painter.setPen(Token("text-muted"));
        const QDateTime time = QDateTime::fromSecsSinceEpoch(n);
        painter.drawText(QRect(nPlace - MarkWidth / 2, 4, MarkWidth, AxisHeight - 10), Qt::AlignCenter,
            time.toString(nStep < 60 ? QStringLiteral("HH:mm:ss") : QStringLiteral("MM-dd HH:mm")));
    }
}

void CTrackView::DrawNames(QPainter& painter) const
{
    // The names stay while the time line scrolls below them.
    painter.fillRect(QRect(0, 0, LabelWidth, viewport()->height()), Token("surface-alt"));
    for (int nLane = 0; nLane < m_track.listLanes.size(); ++nLane) {
        const int nTop = AxisHeight + nLane * LaneHeight - verticalScrollBar()->value();
        painter.setPen(Token("border"));
        painter.drawLine(0, nTop, LabelWidth, nTop);
        painter.setPen(Token("text"));
        const QRect label(12, nTop, LabelWidth - 24, LaneHeight);
        painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeft,
            painter.fontMetrics().elidedText(m_track.listLanes[nLane], Qt::ElideMiddle, label.width()));
    }
    painter.setPen(Token("border"));
    painter.drawLine(LabelWidth, 0, LabelWidth, viewport()->height());
}

void CTrackView::DrawLegend(QPainter& painter) const
{
    const QRect corner(0, 0, LabelWidth, AxisHeight);
    painter.fillRect(corner, Token("surface-alt"));
    painter.drawLine(LabelWidth, 0, LabelWidth, AxisHeight);
    const struct
    {
        QString sText;
        TrackStop stop;
    } entries[] = {{GetDirectionText(true), {0, 0, true, true}},
        {GetDirectionText(false), {0, 0, false, true}}, {GetResultText(false), {0, 0, true, false}}};
    int nLeft = 12 + StopRadius;
    for (const auto& entry : entries) {
        DrawStop(painter, {nLeft, corner.center().y()}, entry.stop);
        painter.setPen(Token("text-muted"));
        nLeft += StopRadius + 5;
        painter.drawText(
            QRect(nLeft, 0, LabelWidth, AxisHeight), Qt::AlignVCenter | Qt::AlignLeft, entry.sText);
        nLeft += painter.fontMetrics().horizontalAdvance(entry.sText) + StopRadius + 10;
    }
}

void CTrackView::DrawStop(QPainter& painter, const QPoint& place, const TrackStop& stop)
{
    const QColor colour = Token(stop.bOpened ? "accent" : "danger");
    painter.setPen(QPen(colour, 2));
    painter.setBrush(stop.bEntry ? colour : Token("surface"));
    painter.drawEllipse(place, StopRadius, StopRadius);
}

void CTrackView::DrawStops(QPainter& painter) const
{
    painter.setPen(Token("border"));
    for (int nLane = 0; nLane <= m_track.listLanes.size(); ++nLane) {
        const int nTop = AxisHeight + nLane * LaneHeight - verticalScrollBar()->value();
        painter.drawLine(LabelWidth, nTop, viewport()->width(), nTop);
    }
    QPolygon way;
    for (int n = 0; n < m_track.vecStops.size(); ++n)
        way.append(GetStopPlace(n));
    painter.setPen(QPen(Token("accent"), 1.5));
    painter.drawPolyline(way);
    for (int n = 0; n < m_track.vecStops.size(); ++n) {
        if (n == m_nCurrent) {
            painter.setPen(QPen(Token("focus"), 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawEllipse(way[n], StopRadius + 4, StopRadius + 4);
        }
        DrawStop(painter, way[n], m_track.vecStops[n]);
    }
}

void CTrackView::resizeEvent(QResizeEvent* pEvent)
{
    QAbstractScrollArea::resizeEvent(pEvent);
    UpdateScrollBars();
}

void CTrackView::keyPressEvent(QKeyEvent* pEvent)
{
    switch (pEvent->key()) {
    case Qt::Key_Left:
        SetCurrentStop(m_nCurrent - 1);
        break;
    case Qt::Key_Right:
        SetCurrentStop(m_nCurrent + 1);
        break;
    case Qt::Key_Home:
        SetCurrentStop(0);
        break;
    case Qt::Key_End:
        SetCurrentStop(m_track.vecStops.size() - 1);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(pEvent);
    }
}

void CTrackView::mousePressEvent(QMouseEvent* pEvent)
{
    SetCurrentStop(StopAt(pEvent->pos()));
}

bool CTrackView::viewportEvent(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(pEvent);
    const auto* pHelp = static_cast<QHelpEvent*>(pEvent);
    const int nStop = StopAt(pHelp->pos());
    if (nStop < 0) {
        QToolTip::hideText();
        return true;
    }
    const TrackStop& stop = m_track.vecStops[nStop];
    QToolTip::showText(pHelp->globalPos(),
        GetTimeText(stop.nTime) + QLatin1Char('\n') + m_track.listLanes[stop.nLane] + QLatin1Char('\n')
            + GetDirectionText(stop.bEntry) + QStringLiteral(", ") + GetResultText(stop.bOpened),
        viewport());
    return true;
}

} // namespace BasicInfoManagerUI
