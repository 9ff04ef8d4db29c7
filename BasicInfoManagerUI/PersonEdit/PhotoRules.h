#pragma once

#include <QByteArray>
#include <QImage>
#include <QRectF>
#include <QString>

/// Photos of persons: reading, framing and writing them, without widgets. Any thread.
namespace BasicInfoManagerUI {

/// Width and height of a photo in pixels; the frame that cuts it has their ratio.
inline constexpr int PhotoWidth = 480;
inline constexpr int PhotoHeight = 640;

/// Reads a JPEG file, scaled down to what a photo needs while it is decoded. Null when it cannot be read: too
/// large (20 MB, 100 million pixels), no JPEG picture, or damaged. Blocks: for a background thread.
QImage ReadPhotoFile(const QString& sPath);
QImage ReadPhotoData(const QByteArray& baJpeg);

/// The largest frame in the middle of a picture.
QRectF MakeFirstFrame(const QSizeF& picture);
/// The frame moved by that much, as far as the picture goes.
QRectF MoveFrame(const QRectF& frame, const QPointF& offset, const QSizeF& picture);

enum class FrameCorner
{
    TopLeft,
    TopRight,
    BottomLeft,
    BottomRight
};
/// The frame with one corner pulled towards a point; the opposite one stays, the ratio is kept, and it
/// neither leaves the picture nor becomes too small.
QRectF ResizeFrame(const QRectF& frame, FrameCorner corner, const QPointF& target, const QSizeF& picture);
/// The frame made larger or smaller about its middle.
QRectF ScaleFrame(const QRectF& frame, qreal dFactor, const QSizeF& picture);

/// What the frame shows, as the JPEG file of a photo that the server takes; empty when it cannot be made.
QByteArray CutPhoto(const QImage& image, const QRectF& frame);

} // namespace BasicInfoManagerUI
