#include <VxGUI/VxWaitAnimation.h>

#include <QMovie>

namespace VxGUI {

VxWaitAnimation::VxWaitAnimation(QWidget* pParent)
    : QLabel(pParent)
    , m_pMovie(new QMovie(this))
{
    setMovie(m_pMovie);
}

void VxWaitAnimation::SetAnimation(const QString& sPath)
{
    m_pMovie->stop();
    m_pMovie->setFileName(sPath);
    if (isVisible())
        m_pMovie->start();
}

void VxWaitAnimation::showEvent(QShowEvent* pEvent)
{
    QLabel::showEvent(pEvent);
    m_pMovie->start();
}

void VxWaitAnimation::hideEvent(QHideEvent* pEvent)
{
    QLabel::hideEvent(pEvent);
    m_pMovie->stop();
}

} // namespace VxGUI
