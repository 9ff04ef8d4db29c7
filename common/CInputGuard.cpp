#include "CInputGuard.h"

#include "Prompt.h"

#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

namespace Common {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CInputGuard)
};
} // namespace

CInputGuard::CInputGuard(QWidget* pForm)
    : CPageWork(pForm)
    , m_pForm(pForm)
    , m_sQuestion(Text::tr("Are you sure to cancel?"))
{
}

bool CInputGuard::MayLeave()
{
    return !IsDirty() || AskPrompt(m_pForm, m_sQuestion);
}

bool CInputGuard::Leave()
{
    if (!MayLeave())
        return false;
    OnLeft();
    if (m_close)
        m_close();
    return true;
}

bool CInputGuard::LeaveBelow(QWidget* pTop)
{
    QVector<QPointer<CInputGuard>> vecGuards;
    for (CInputGuard* const pGuard : pTop->findChildren<CInputGuard*>())
        vecGuards.append(pGuard);
    for (const QPointer<CInputGuard>& pGuard : qAsConst(vecGuards)) {
        if (pGuard && pGuard->IsHoldingInput() && !pGuard->Leave())
            return false;
    }
    return true;
}

void CInputGuard::End()
{
    m_isDirty = nullptr;
    m_close = nullptr;
}

} // namespace Common
