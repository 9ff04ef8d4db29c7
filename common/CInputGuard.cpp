#include "CInputGuard.h"

#include "Prompt.h"

#include <QCoreApplication>
#include <QPointer>
#include <QStackedWidget>
#include <QWidget>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CInputGuard)
};

/// Who is asked about a form has to see it.
void BringToFront(QWidget* pForm, const QWidget* pTop)
{
    for (QWidget* pPage = pForm; pPage && pPage != pTop; pPage = pPage->parentWidget()) {
        if (auto* const pStack = qobject_cast<QStackedWidget*>(pPage->parentWidget()))
            pStack->setCurrentWidget(pPage);
    }
}

} // namespace

CInputGuard::CInputGuard(QWidget* pForm)
    : CPageWork(pForm)
    , m_pForm(pForm)
{
}

void CInputGuard::SetBusyCheck(std::function<bool()> isBusy, const QString& sQuestion)
{
    m_isBusy = std::move(isBusy);
    m_sBusyQuestion = sQuestion;
}

bool CInputGuard::MayLeave()
{
    if (IsBusy())
        return AskPrompt(m_pForm, m_sBusyQuestion);
    return !IsDirty()
        || AskPrompt(m_pForm, m_sQuestion.isEmpty() ? Text::tr("Are you sure to cancel?") : m_sQuestion);
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
        if (!pGuard || !pGuard->IsHoldingInput())
            continue;
        BringToFront(pGuard->m_pForm, pTop);
        // A form that was closed meanwhile keeps nobody.
        if (!pGuard->Leave() && pGuard)
            return false;
    }
    return true;
}

void CInputGuard::End()
{
    m_isDirty = nullptr;
    m_isBusy = nullptr;
    m_close = nullptr;
}

} // namespace Common
