#include "Wheel.h"

#include <QEvent>
#include <QWidget>

namespace Common {

namespace {

class WheelFilter : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override
    {
        const auto* pWidget = qobject_cast<QWidget*>(pWatched);
        if (pEvent->type() != QEvent::Wheel || !pWidget || pWidget->hasFocus())
            return QObject::eventFilter(pWatched, pEvent);
        pEvent->ignore();
        return true;
    }
};

} // namespace

void KeepFromWheel(QWidget* pField)
{
    pField->setFocusPolicy(Qt::StrongFocus);
    pField->installEventFilter(new WheelFilter(pField));
}

} // namespace Common
