#include "CSkinIconEngine.h"

#include <Trv/QSkin.h>

#include <QPainter>
#include <QPixmapCache>

namespace Trv {

CSkinIconEngine::CSkinIconEngine(const QString& sPath)
    : m_sPath(sPath)
{
}

QPixmap CSkinIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/)
{
    const bool bDisabled = mode == QIcon::Disabled;
    const QString sKey =
        QStringLiteral("%1 %2x%3 %4").arg(m_sPath).arg(size.width()).arg(size.height()).arg(int(bDisabled));
    QPixmap pixmap;
    if (QPixmapCache::find(sKey, &pixmap))
        return pixmap;
    if (!m_pDrawing)
        m_pDrawing = std::make_shared<QSvgRenderer>(m_sPath);
    pixmap = QPixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const QSize fitted = m_pDrawing->defaultSize().scaled(size, Qt::KeepAspectRatio);
    const QPoint start((size.width() - fitted.width()) / 2, (size.height() - fitted.height()) / 2);
    m_pDrawing->render(&painter, QRect(start, fitted));
    if (bDisabled) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), GetColor(QStringLiteral("text-disabled")));
    }
    painter.end();
    QPixmapCache::insert(sKey, pixmap);
    return pixmap;
}

void CSkinIconEngine::paint(QPainter* pPainter, const QRect& rect, QIcon::Mode mode, QIcon::State state)
{
    const qreal fRatio = pPainter->device()->devicePixelRatioF();
    pPainter->drawPixmap(rect, pixmap(rect.size() * fRatio, mode, state));
}

QIconEngine* CSkinIconEngine::clone() const
{
    return new CSkinIconEngine(*this);
}

} // namespace Trv
