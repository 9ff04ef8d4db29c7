#pragma once

#include "PhotoRules.h"

#include <QDialog>

#include <optional>

namespace BasicInfoManagerUI {

/// The picture with the frame that cuts it: moved and resized by mouse, arrow keys (with Shift by large
/// steps) and the keys + and -. User-interface thread.
class CPhotoFrameView : public QWidget
{
    Q_OBJECT

public:
    explicit CPhotoFrameView(const QImage& image, QWidget* pParent = nullptr);

    /// In pixels of the picture.
    QRectF GetFrame() const { return m_frame; }
    /// Where the frame stands in the widget.
    QRectF GetShownFrame() const;

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    QRectF GetPictureRect() const;
    QPointF ToPicture(const QPointF& place) const;
    std::optional<FrameCorner> CornerAt(const QPointF& place) const;
    void UpdateCursor(const QPointF& place);
    void SetFrame(const QRectF& frame);

    QImage m_image;
    QPixmap m_scaled; ///< the picture as it is shown
    QRectF m_frame;
    std::optional<FrameCorner> m_optCorner; ///< that is pulled
    bool m_bMoving = false;
    QPointF m_last; ///< place of the mouse in the picture
};

/// The dialog "Cut Photo". Deletes itself when it is closed. User-interface thread.
class CCutPhotoDlg : public QDialog
{
    Q_OBJECT

public:
    CCutPhotoDlg(const QImage& image, QWidget* pParent);

    void accept() override;

Q_SIGNALS:
    /// The user confirmed: the photo as a JPEG file.
    void SignalPhoto(const QByteArray& baJpeg);

private:
    QImage m_image;
    CPhotoFrameView* m_pView;
};

} // namespace BasicInfoManagerUI
