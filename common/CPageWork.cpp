#include "CPageWork.h"

#include <QPointer>

namespace Common {

CPageWork::CPageWork(QObject* pOwner)
    : QObject(pOwner)
{
}

void CPageWork::EndBelow(const QObject* pTop)
{
    // Ending one may destroy others: a dialog's calls go with the dialog.
    QVector<QPointer<CPageWork>> vecWork;
    for (CPageWork* pWork : pTop->findChildren<CPageWork*>())
        vecWork.append(pWork);
    for (const QPointer<CPageWork>& pWork : qAsConst(vecWork)) {
        if (pWork)
            pWork->End();
    }
}

} // namespace Common
