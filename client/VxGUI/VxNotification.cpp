#include <VxGUI/VxNotification.h>

#include <Trv/QSkin.h>

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

namespace VxGUI {

namespace {

const QString NotificationName = QStringLiteral("VxNotification");
constexpr int TopMargin = 16;
constexpr int SideMargin = 48;
constexpr int MaxWidth = 560;
constexpr int BaseTimeMs = 3000;
constexpr int TimePerCharacterMs = 40;

const char* KindName(NotificationKind kind)
{
    switch (kind) {
    case NotificationKind::Information:
        return "information";
    case NotificationKind::Success:
        return "success";
    case NotificationKind::Warning:
        return "warning";
    case NotificationKind::Error:
        break;
    }
    return "error";
}

VxNotification* Find(const QWidget* pAnchor)
{
    return pAnchor->window()->findChild<VxNotification*>(NotificationName, Qt::FindDirectChildrenOnly);
}

} // namespace

VxNotification::VxNotification(QWidget* pWindow)
    : QFrame(pWindow)
    , m_pIcon(new QLabel(this))
    , m_pText(new QLabel(this))
{
    setObjectName(NotificationName);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    m_pText->setWordWrap(true);
    m_pText->setTextFormat(Qt::PlainText);
    auto* pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(16, 10, 16, 10);
    pLayout->setSpacing(10);
    pLayout->addWidget(m_pIcon, 0, Qt::AlignTop);
    pLayout->addWidget(m_pText, 1);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        // Whoever still reads keeps it.
        if (underMouse())
            m_timer.start(BaseTimeMs);
        else
            hide();
    });
    pWindow->installEventFilter(this);
}

void VxNotification::Show(QWidget* pAnchor, const QString& sText, NotificationKind kind)
{
    VxNotification* pNotification = Find(pAnchor);
    if (!pNotification)
        pNotification = new VxNotification(pAnchor->window());
    pNotification->m_pText->setText(sText);
    pNotification->m_pIcon->setPixmap(Trv::GetIcon(QLatin1String(KindName(kind))).pixmap(QSize(18, 18)));
    pNotification->setProperty("kind", QLatin1String(KindName(kind)));
    pNotification->setAccessibleName(sText);
    pNotification->style()->unpolish(pNotification);
    pNotification->style()->polish(pNotification);
    pNotification->Place();
    pNotification->show();
    pNotification->raise();
    QAccessibleEvent event(pNotification, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
    pNotification->m_timer.start(BaseTimeMs + TimePerCharacterMs * sText.size());
}

QString VxNotification::CurrentText(const QWidget* pAnchor)
{
    const VxNotification* pNotification = Find(pAnchor);
    return pNotification && !pNotification->isHidden() ? pNotification->m_pText->text() : QString();
}

void VxNotification::Place()
{
    const QWidget* pWindow = parentWidget();
    const int nLimit = qMax(200, qMin(MaxWidth, pWindow->width() - 2 * SideMargin));
    m_pText->setMinimumWidth(0);
    const int nTextWidth = m_pText->fontMetrics().horizontalAdvance(m_pText->text()) + 2;
    const int nFrame = 16 * 2 + 10 + 18 + 4;
    const int nWidth = qMin(nLimit, nTextWidth + nFrame);
    const int nHeight =
        layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(nWidth) : sizeHint().height();
    setGeometry((pWindow->width() - nWidth) / 2, TopMargin, nWidth, nHeight);
}

bool VxNotification::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pWatched == parent() && pEvent->type() == QEvent::Resize && !isHidden())
        Place();
    return QFrame::eventFilter(pWatched, pEvent);
}

void VxNotification::mousePressEvent(QMouseEvent*)
{
    hide();
}

} // namespace VxGUI
