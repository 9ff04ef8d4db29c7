#include "CCutPhotoDlg.h"

#include "PersonFields.h"

#include <Trv/QSkin.h>
#include <VxGUI/VxNotification.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CCutPhotoDlg)
};

constexpr qreal GripSize = 10;
constexpr qreal GripReach = 14; ///< how near the mouse takes a corner
constexpr qreal SmallStep = 1;
constexpr qreal LargeStep = 20;
constexpr qreal ScaleStep = 1.05;

const std::pair<FrameCorner, QPointF (*)(const QRectF&)> Corners[] = {
    {FrameCorner::TopLeft, [](const QRectF& rect) { return rect.topLeft(); }},
    {FrameCorner::TopRight, [](const QRectF& rect) { return rect.topRight(); }},
    {FrameCorner::BottomLeft, [](const QRectF& rect) { return rect.bottomLeft(); }},
    {FrameCorner::BottomRight, [](const QRectF& rect) { return rect.bottomRight(); }}};

} // namespace

CPhotoFrameView::CPhotoFrameView(const QImage& image, QWidget* pParent)
    : QWidget(pParent)
    , m_image(image)
    , m_frame(MakeFirstFrame(image.size()))
{
    setObjectName(QStringLiteral("wgtPhotoFrame"));
    setAccessibleName(Text::tr("Cut Photo"));
    setMinimumSize(420, 420);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

QRectF CPhotoFrameView::GetPictureRect() const
{
    const QSizeF size = QSizeF(m_image.size()).scaled(this->size(), Qt::KeepAspectRatio);
    return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

QPointF CPhotoFrameView::ToPicture(const QPointF& place) const
{
    const QRectF rect = GetPictureRect();
    return (place - rect.topLeft()) * (m_image.width() / rect.width());
}

QRectF CPhotoFrameView::GetShownFrame() const
{
    const QRectF rect = GetPictureRect();
    const qreal dScale = rect.width() / m_image.width();
    return {rect.topLeft() + m_frame.topLeft() * dScale, m_frame.size() * dScale};
}

std::optional<FrameCorner> CPhotoFrameView::CornerAt(const QPointF& place) const
{
    const QRectF shown = GetShownFrame();
    for (const auto& [corner, where] : Corners) {
        const QPointF distance = where(shown) - place;
        if (qAbs(distance.x()) <= GripReach && qAbs(distance.y()) <= GripReach)
            return corner;
    }
    return {};
}

void CPhotoFrameView::SetFrame(const QRectF& frame)
{
    m_frame = frame;
    update();
}

void CPhotoFrameView::resizeEvent(QResizeEvent*)
{
    m_scaled = QPixmap::fromImage(m_image.scaled(GetPictureRect().size().toSize() * devicePixelRatio(),
        Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void CPhotoFrameView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawPixmap(GetPictureRect(), m_scaled, m_scaled.rect());
    const QRectF shown = GetShownFrame();
    QPainterPath outside;
    outside.addRect(GetPictureRect());
    outside.addRect(shown);
    painter.fillPath(outside, QColor(0, 0, 0, 140));
    painter.setPen(QPen(Qt::white, hasFocus() ? 3 : 2));
    painter.drawRect(shown);
    for (const auto& [corner, where] : Corners) {
        QRectF grip(0, 0, GripSize, GripSize);
        grip.moveCenter(where(shown));
        painter.fillRect(grip, Trv::GetColor(QStringLiteral("accent")));
        painter.setPen(QPen(Qt::white, 1));
        painter.drawRect(grip);
    }
}

void CPhotoFrameView::UpdateCursor(const QPointF& place)
{
    const std::optional<FrameCorner> optCorner = m_optCorner ? m_optCorner : CornerAt(place);
    if (optCorner)
        setCursor(*optCorner == FrameCorner::TopLeft || *optCorner == FrameCorner::BottomRight
                ? Qt::SizeFDiagCursor
                : Qt::SizeBDiagCursor);
    else
        setCursor(GetShownFrame().contains(place) ? Qt::SizeAllCursor : Qt::ArrowCursor);
}

void CPhotoFrameView::mousePressEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() != Qt::LeftButton)
        return;
    m_optCorner = CornerAt(pEvent->localPos());
    m_bMoving = !m_optCorner && GetShownFrame().contains(pEvent->localPos());
    m_last = ToPicture(pEvent->localPos());
}

void CPhotoFrameView::mouseMoveEvent(QMouseEvent* pEvent)
{
    UpdateCursor(pEvent->localPos());
    const QPointF place = ToPicture(pEvent->localPos());
    if (m_optCorner)
        SetFrame(ResizeFrame(m_frame, *m_optCorner, place, m_image.size()));
    else if (m_bMoving)
        SetFrame(MoveFrame(m_frame, place - m_last, m_image.size()));
    m_last = place;
}

void CPhotoFrameView::mouseReleaseEvent(QMouseEvent*)
{
    m_optCorner.reset();
    m_bMoving = false;
}

void CPhotoFrameView::wheelEvent(QWheelEvent* pEvent)
{
    SetFrame(ScaleFrame(m_frame, pEvent->angleDelta().y() > 0 ? ScaleStep : 1 / ScaleStep, m_image.size()));
}

void CPhotoFrameView::keyPressEvent(QKeyEvent* pEvent)
{
    const qreal dStep = pEvent->modifiers().testFlag(Qt::ShiftModifier) ? LargeStep : SmallStep;
    const auto move = [&](qreal dX, qreal dY) {
        SetFrame(MoveFrame(m_frame, QPointF(dX, dY) * dStep, m_image.size()));
    };
    switch (pEvent->key()) {
    case Qt::Key_Left:
        return move(-1, 0);
    case Qt::Key_Right:
        return move(1, 0);
    case Qt::Key_Up:
        return move(0, -1);
    case Qt::Key_Down:
        return move(0, 1);
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return SetFrame(ScaleFrame(m_frame, ScaleStep, m_image.size()));
    case Qt::Key_Minus:
        return SetFrame(ScaleFrame(m_frame, 1 / ScaleStep, m_image.size()));
    default:
        QWidget::keyPressEvent(pEvent);
    }
}

CCutPhotoDlg::CCutPhotoDlg(const QImage& image, QWidget* pParent)
    : QDialog(pParent)
    , m_image(image)
    , m_pView(new CPhotoFrameView(image, this))
{
    setObjectName(QStringLiteral("CCutPhotoDlg"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setWindowTitle(Text::tr("Cut Photo"));
    auto* const pNote = new QLabel(
        Text::tr("Drag the frame or its corners. Arrow keys move it, + and - change its size."), this);
    pNote->setObjectName(QStringLiteral("lbCutNote"));
    pNote->setWordWrap(true);
    auto* const pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    PersonFields::MakePrimary(pButtons->button(QDialogButtonBox::Ok));
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(16, 16, 16, 16);
    pLayout->setSpacing(12);
    pLayout->addWidget(m_pView, 1);
    pLayout->addWidget(pNote);
    pLayout->addWidget(pButtons);
    connect(pButtons, &QDialogButtonBox::accepted, this, &CCutPhotoDlg::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_pView->setFocus();
}

void CCutPhotoDlg::accept()
{
    const QByteArray baJpeg = CutPhoto(m_image, m_pView->GetFrame());
    if (baJpeg.isEmpty()) {
        VxGUI::VxNotification::Show(this, Text::tr("Failed to load picture."));
        return;
    }
    Q_EMIT SignalPhoto(baJpeg);
    QDialog::accept();
}

} // namespace BasicInfoManagerUI
