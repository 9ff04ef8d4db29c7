#pragma once

#include <GroupLogical/IGroupManager.h>
#include <PlatformLogic/CPlatformClient.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>
#include <tests/support/server/TestServer.h>

#include <QTemporaryDir>
#include <QTreeView>

#include <memory>

namespace ResourceManagerUI {
class CDeviceManagerCtrl;
class COrganizationTreeCtrl;
} // namespace ResourceManagerUI

/// A client that is signed in to a real server, with the device page when it is opened.
class LiveClient
{
public:
    explicit LiveClient(TestSupport::TestServer& server, const std::string& sUser = "system");
    ~LiveClient();
    LiveClient(const LiveClient&) = delete;
    LiveClient& operator=(const LiveClient&) = delete;

    PlatformLogic::CPlatformClient& Client() { return m_client; }
    UICommonMdl::CInterfaceSetManager* Interfaces() { return &m_interfaces; }

    /// Opens the device page and waits until it shows its rows.
    PageDriver& OpenPage();
    void ClosePage();
    PageDriver& Driver() { return *m_pDriver; }
    ResourceManagerUI::CDeviceManagerCtrl* Page() { return m_pPage.get(); }
    QTreeView* Table();
    ResourceManagerUI::COrganizationTreeCtrl* Tree();

    /// Texts of one column of the table.
    QStringList Column(int nColumn);
    int Total();
    /// Checks the row whose name is sName by a click on its box.
    void CheckRow(const QString& sName);
    /// Selects an organisation of the tree by its name.
    void SelectOrganization(const QString& sName);
    /// Types a search and waits for the rows that it finds.
    void Search(const QString& sText);
    void WaitIdle();
    /// After a restart of the server: waits until the page works again.
    void WaitReconnected();
    QString Notice();

private:
    TestSupport::TestServer& m_server;
    QTemporaryDir m_folder;
    PlatformLogic::CPlatformClient m_client;
    UICommonMdl::CInterfaceSetManager m_interfaces;
    std::unique_ptr<ResourceManagerUI::CDeviceManagerCtrl> m_pPage;
    std::unique_ptr<PageDriver> m_pDriver;
};
