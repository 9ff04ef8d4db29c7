#include "CPage.h"

#include "CFailureListDlg.h"
#include "CInputGuard.h"
#include "Prompt.h"
#include "StyleSheet.h"

#include <VxPluginAPI/IAbstractWidget.h>

#include <QDialog>
#include <QMenu>
#include <QPointer>

namespace Common {

CPage::CPage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, const QString& sSkinFolder, QWidget* pParent)
    : QWidget(pParent)
    , m_pInterfaceSet(pInterfaceSet)
    , m_sSkinFolder(sSkinFolder)
    , m_session(pInterfaceSet, this)
{
    connect(&m_session, &CSession::SignalConnectionChanged, this,
        [this](bool bConnected) { OnConnectionChanged(bConnected); });
    connect(&m_session, &CSession::SignalRightsChanged, this, [this] { OnRightsChanged(); });
}

bool CPage::OnMsg(int nMsg, QVariant* pValue, void*)
{
    if (nMsg != VxPluginAPI::MessageLeave)
        return false;
    // Whoever has said no already is not asked by a second page.
    if (pValue && pValue->toBool())
        *pValue = CInputGuard::LeaveBelow(this);
    return true;
}

void CPage::UninitUI()
{
    m_bEnded = true;
    m_vecWhenShown.clear();
    CPageWork::EndBelow(this);
    for (QTimer* pTimer : findChildren<QTimer*>())
        pTimer->stop();
    for (QMenu* pMenu : findChildren<QMenu*>())
        pMenu->close();
    QVector<QPointer<QDialog>> vecDialogs;
    for (QDialog* pDialog : findChildren<QDialog*>())
        vecDialogs.append(pDialog);
    for (const QPointer<QDialog>& pDialog : qAsConst(vecDialogs)) {
        if (!pDialog)
            continue;
        // Closed without the questions of its own; one that waits for an answer gets a Cancel.
        const bool bOwn = pDialog->testAttribute(Qt::WA_DeleteOnClose);
        pDialog->QDialog::done(QDialog::Rejected);
        if (bOwn)
            delete pDialog;
    }
}

void CPage::Notify(const QString& sText, VxGUI::NotificationKind kind)
{
    if (isVisible() && !m_bEnded)
        VxGUI::VxNotification::Show(this, sText, kind);
}

void CPage::NotifyFailure(const QString& sPrefix, int nErrorCode)
{
    Notify(FailureText(sPrefix, nErrorCode), VxGUI::NotificationKind::Error);
}

void CPage::TellFailures(const QString& sPrefix, const QVector<Failure>& vecFailures, int nErrorCode)
{
    if (nErrorCode != UICommonMdl::ErrorNone)
        NotifyFailure(sPrefix, nErrorCode);
    if (!vecFailures.isEmpty())
        WhenShown([this, sPrefix, vecFailures] { ShowFailures(this, sPrefix, vecFailures); });
}

void CPage::WhenShownAt(QWidget* pWidget, std::function<void()> act)
{
    for (; pWidget; pWidget = pWidget->parentWidget()) {
        if (auto* const pPage = qobject_cast<CPage*>(pWidget)) {
            pPage->WhenShown(std::move(act));
            return;
        }
    }
    act();
}

void CPage::WhenShown(std::function<void()> act)
{
    if (m_bEnded)
        return;
    if (isVisible())
        act();
    else
        m_vecWhenShown.push_back(std::move(act));
}

void CPage::showEvent(QShowEvent* pEvent)
{
    if (!m_sSkinFolder.isEmpty())
        LoadStyleSheet(this, m_sSkinFolder);
    QWidget::showEvent(pEvent);
    if (m_vecWhenShown.empty())
        return;
    // Not from within the event: what is run may open a window and wait.
    QMetaObject::invokeMethod(
        this,
        [this] {
            const QPointer<CPage> pSelf(this);
            const std::vector<std::function<void()>> vecActs = std::exchange(m_vecWhenShown, {});
            for (const auto& act : vecActs) {
                if (pSelf)
                    pSelf->WhenShown(act);
            }
        },
        Qt::QueuedConnection);
}

} // namespace Common
