#include "TabOrder.h"

#include <QWidget>

namespace Common {

void SetTabOrder(const QVector<QWidget*>& vecOrder)
{
    if (vecOrder.isEmpty())
        return;
    QWidget last(vecOrder.first()->window());
    last.setFocusPolicy(Qt::TabFocus);
    for (int n = 1; n < vecOrder.size(); ++n)
        QWidget::setTabOrder(vecOrder[n - 1], vecOrder[n]);
}

QVector<QWidget*> GetTabStops(QWidget* pWidget)
{
    QVector<QWidget*> vecStops;
    QWidget* pNext = pWidget;
    do {
        const bool bWithin = pNext == pWidget || pWidget->isAncestorOf(pNext);
        if (bWithin && (pNext->focusPolicy() & Qt::TabFocus) && !pNext->focusProxy())
            vecStops.append(pNext);
        pNext = pNext->nextInFocusChain();
    } while (pNext != pWidget);
    return vecStops;
}

} // namespace Common
