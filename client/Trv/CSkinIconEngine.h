#pragma once

#include <QIconEngine>
#include <QSvgRenderer>

#include <memory>

namespace Trv {

/// One drawing of the skin as an icon. Disabled it has the colour of disabled texts: what a style makes of a
/// light drawing on a dark ground is brighter than the drawing. User-interface thread.
class CSkinIconEngine : public QIconEngine
{
public:
    explicit CSkinIconEngine(const QString& sPath);

    void paint(QPainter* pPainter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;

private:
    QString m_sPath;
    std::shared_ptr<QSvgRenderer> m_pDrawing; ///< read when it is first painted
};

} // namespace Trv
