#pragma once

#include <QHash>
#include <QMainWindow>

#include <memory>

namespace Ui {
class CMainWindow;
}
namespace PlatformLogic {
class CPlatformClient;
}
namespace VxPluginAPI {
class IAbstractWidget;
}

namespace ClientApp {

/// The client's window: the home page, and each page that was opened from it, kept for later openings.
/// User-interface thread.
class CMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Both are borrowed and outlive the window; pTopLevel is the plug-in's top-level widget.
    CMainWindow(PlatformLogic::CPlatformClient& client, VxPluginAPI::IAbstractWidget* pTopLevel);
    ~CMainWindow() override;

    void ShowHome();
    /// The same when the shown page agrees: it asks the user when input would be lost.
    void GoHome();
    /// Shows the page of the entry with that name; false when the user may not open it.
    bool OpenEntry(const std::string& sName);
    QWidget* GetShownPage() const;
    /// Asks every page that holds input; true when nothing keeps the user.
    bool MayLeave();
    bool HasOpenPages() const { return !m_hashPages.isEmpty(); }

Q_SIGNALS:
    void SignalSignOut();
    /// The user chose the other look.
    void SignalSwitchSkin();

public Q_SLOTS:
    /// Loads the style sheets of the present look again.
    void ReloadSkin();
    /// Rebuilds the home page for the present rights and leaves a page that is no longer allowed.
    void OnRightsChanged();

protected:
    void closeEvent(QCloseEvent* pEvent) override;

private:
    void BuildHome();
    void OpenWidget(VxPluginAPI::IAbstractWidget* pEntry);
    void OnConnectionChanged(bool bConnected);
    void UpdateUser();

    std::unique_ptr<Ui::CMainWindow> m_pUi;
    PlatformLogic::CPlatformClient& m_client;
    VxPluginAPI::IAbstractWidget* m_pTopLevel;
    /// Containers of the opened pages, by entry.
    QHash<VxPluginAPI::IAbstractWidget*, QWidget*> m_hashPages;
};

} // namespace ClientApp
