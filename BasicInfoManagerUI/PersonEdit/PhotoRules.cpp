#include "PhotoRules.h"

#include <AccessControlLogical/PersonRecords.h>

#include <QBuffer>
#include <QFile>
#include <QImageReader>

namespace BasicInfoManagerUI {

namespace {
constexpr qint64 FileLimit = qint64(20) * 1024 * 1024;
constexpr qint64 PixelLimit = 100'000'000;
constexpr int ReadSide = 2048; ///< pixels that a picture has at most when it is read
constexpr qreal Ratio = qreal(PhotoWidth) / PhotoHeight;
constexpr qreal LeastFrameWidth = 30;
constexpr int BestQuality = 92;
constexpr int WorstQuality = 40;
constexpr int QualityStep = 8;
} // namespace

QImage ReadPhotoFile(const QString& sPath)
{
    QFile file(sPath);
    if (!file.open(QIODevice::ReadOnly) || file.size() > FileLimit)
        return {};
    return ReadPhotoData(file.read(FileLimit + 1));
}

QImage ReadPhotoData(const QByteArray& baJpeg)
{
    // The decoder fills the rest of a picture that was cut off with grey: its end must be there.
    const bool bWhole = baJpeg.startsWith("\xff\xd8\xff") && baJpeg.lastIndexOf("\xff\xd9") > 0;
    if (!bWhole || baJpeg.size() > FileLimit)
        return {};
    QBuffer buffer;
    buffer.setData(baJpeg);
    QImageReader reader(&buffer, "jpeg");
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty() || qint64(size.width()) * size.height() > PixelLimit)
        return {};
    if (qMax(size.width(), size.height()) > ReadSide)
        reader.setScaledSize(size.scaled(ReadSide, ReadSide, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    return reader.read();
}

QRectF MakeFirstFrame(const QSizeF& picture)
{
    const qreal dWidth = qMin(picture.width(), picture.height() * Ratio);
    const QSizeF size(dWidth, dWidth / Ratio);
    return {QPointF((picture.width() - size.width()) / 2, (picture.height() - size.height()) / 2), size};
}

QRectF MoveFrame(const QRectF& frame, const QPointF& offset, const QSizeF& picture)
{
    QRectF moved = frame.translated(offset);
    moved.moveLeft(qBound(0.0, moved.left(), qMax(0.0, picture.width() - frame.width())));
    moved.moveTop(qBound(0.0, moved.top(), qMax(0.0, picture.height() - frame.height())));
    return moved;
}

QRectF ResizeFrame(const QRectF& frame, FrameCorner corner, const QPointF& target, const QSizeF& picture)
{
    const bool bLeft = corner == FrameCorner::TopLeft || corner == FrameCorner::BottomLeft;
    const bool bTop = corner == FrameCorner::TopLeft || corner == FrameCorner::TopRight;
    const QPointF fixed(bLeft ? frame.right() : frame.left(), bTop ? frame.bottom() : frame.top());
    const qreal dWanted = qMax(bLeft ? fixed.x() - target.x() : target.x() - fixed.x(),
        (bTop ? fixed.y() - target.y() : target.y() - fixed.y()) * Ratio);
    const qreal dRoom = qMin(bLeft ? fixed.x() : picture.width() - fixed.x(),
        (bTop ? fixed.y() : picture.height() - fixed.y()) * Ratio);
    const qreal dWidth = qMin(qMax(dWanted, LeastFrameWidth), dRoom);
    const QSizeF size(dWidth, dWidth / Ratio);
    return {
        QPointF(bLeft ? fixed.x() - size.width() : fixed.x(), bTop ? fixed.y() - size.height() : fixed.y()),
        size};
}

QRectF ScaleFrame(const QRectF& frame, qreal dFactor, const QSizeF& picture)
{
    const qreal dMost = MakeFirstFrame(picture).width();
    const qreal dWidth = qMin(qMax(frame.width() * dFactor, LeastFrameWidth), dMost);
    QRectF scaled(QPointF(), QSizeF(dWidth, dWidth / Ratio));
    scaled.moveCenter(frame.center());
    return MoveFrame(scaled, {}, picture);
}

QByteArray CutPhoto(const QImage& image, const QRectF& frame)
{
    const QImage cut = image.copy(frame.toAlignedRect().intersected(image.rect()));
    if (cut.isNull())
        return {};
    const QImage photo = cut.scaled(PhotoWidth, PhotoHeight, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                             .convertToFormat(QImage::Format_RGB32);
    for (int nQuality = BestQuality; nQuality >= WorstQuality; nQuality -= QualityStep) {
        QByteArray baJpeg;
        QBuffer buffer(&baJpeg);
        if (!photo.save(&buffer, "jpg", nQuality))
            return {};
        if (std::size_t(baJpeg.size()) <= AccessControlLogical::PhotoSizeLimit)
            return baJpeg;
    }
    return {};
}

} // namespace BasicInfoManagerUI
