#pragma once

#include "CSession.h"
#include "Failure.h"
#include "IConfigPage.h"

#include <VxGUI/VxNotification.h>

#include <QWidget>

#include <functional>
#include <vector>

namespace Common {

/// Base of all pages: knows connection and rights, shows its style sheet, ends with everything below it, and
/// keeps what it has to say to itself while nobody sees it. User-interface thread.
class CPage : public QWidget, public IConfigPage
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the page's work. The style sheet is that of the page's object
    /// name in sSkinFolder, empty: none.
    CPage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, const QString& sSkinFolder,
        QWidget* pParent = nullptr);

    /// MessageLeave: asks the forms of the page that hold input.
    bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) override;
    /// Ends every call and registration of the page and of all below it, and destroys its dialogs. The page
    /// stays as it looks.
    void UninitUI() final;

    bool IsConnected() const { return m_session.IsConnected(); }
    bool HasRight(const char* pszCode) const { return m_session.HasRight(pszCode); }
    UICommonMdl::CInterfaceSetManager* GetInterfaceSet() const { return m_pInterfaceSet; }

    /// A passing message; a hidden page says nothing.
    void Notify(const QString& sText, VxGUI::NotificationKind kind);
    /// A failed request as a passing message: sPrefix and the text of the code.
    /// Runs it now or, while the page that pWidget is on is hidden, when that is shown.
    static void WhenShownAt(QWidget* pWidget, std::function<void()> act);
    void NotifyFailure(const QString& sPrefix, int nErrorCode);
    /// How a batch failed: the items that did, as a list, and why the rest was not done; nothing when all
    /// went well. The page may be gone when it returns.
    void TellFailures(const QString& sPrefix, const QVector<Failure>& vecFailures, int nErrorCode);
    /// Runs it now or, on a hidden page, when the page is shown: what opens a window, and must not be lost.
    /// The page may be gone when it returns.
    void WhenShown(std::function<void()> act);

protected:
    CSession& GetSession() { return m_session; }
    /// Since UninitUI nothing may be started.
    bool HasEnded() const { return m_bEnded; }

    /// The connection was lost, or is back.
    virtual void OnConnectionChanged(bool /*bConnected*/) { }
    /// The user's rights are others now.
    virtual void OnRightsChanged() { }

    void showEvent(QShowEvent* pEvent) override;

private:
    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    QString m_sSkinFolder;
    CSession m_session;
    std::vector<std::function<void()>> m_vecWhenShown;
    bool m_bEnded = false;
};

} // namespace Common
