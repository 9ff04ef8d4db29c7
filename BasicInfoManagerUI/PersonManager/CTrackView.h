#pragma once

#include "TrackRules.h"

#include <QAbstractScrollArea>

namespace BasicInfoManagerUI {

/// Draws a track on a time line: a lane for each door, and a line from stop to stop. The arrow keys step from
/// stop to stop. User-interface thread.
class CTrackView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit CTrackView(QWidget* pParent = nullptr);

    /// The last stop becomes the current one.
    void SetTrack(const Track& track);
    const Track& GetTrack() const { return m_track; }
    /// -1: there is none.
    int GetCurrentStop() const { return m_nCurrent; }
    /// Where that stop stands, in coordinates of the viewport.
    QPoint GetStopPlace(int nStop) const;

Q_SIGNALS:
    void SignalStopChanged(int nStop);

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    bool viewportEvent(QEvent* pEvent) override;

private:
    int GetPlotWidth() const;
    int PlaceOf(qint64 nTime) const;
    /// -1: no stop is near.
    int StopAt(const QPoint& place) const;
    void SetCurrentStop(int nStop);
    void UpdateScrollBars();
    void DrawMarks(QPainter& painter) const;
    void DrawStops(QPainter& painter) const;
    void DrawNames(QPainter& painter) const;
    void DrawLegend(QPainter& painter) const;
    static void DrawStop(QPainter& painter, const QPoint& place, const TrackStop& stop);

    Track m_track;
    int m_nCurrent = -1;
};

} // namespace BasicInfoManagerUI
