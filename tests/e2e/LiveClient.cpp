#include "LiveClient.h"

#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <ResourceManagerUI/CDeviceManagerCtrl.h>
#include <ResourceManagerUI/CDeviceModel.h>
#include <ResourceManagerUI/COrganizationTreeCtrl.h>
#include <UICommonMdl/CNumberPageCtrl.h>
#include <VxGUI/VxNotification.h>

#include <QLabel>

#include <gtest/gtest.h>

using TestSupport::TestServer;

LiveClient::LiveClient(TestServer& server, const std::string& sUser)
    : m_server(server)
    , m_client(m_folder.path())
{
    m_interfaces.AddAbstractResourceManager(&m_client);
    m_client.SetServer(server.Url());
    bool bAnswered = false;
    QObject context;
    QObject::connect(&m_client, &PlatformLogic::CPlatformClient::SignalSignIn, &context, [&](int nErrorCode) {
        EXPECT_EQ(nErrorCode, 0);
        bAnswered = true;
    });
    const int nStreams = server.StreamCount();
    m_client.SignIn(QString::fromStdString(sUser), QString::fromStdString(TestServer::AdminPassword()));
    PageDriver::WaitFor([&] { return bAnswered && server.StreamCount() > nStreams; });
}

LiveClient::~LiveClient()
{
    ClosePage();
}

PageDriver& LiveClient::OpenPage()
{
    m_pPage = std::make_unique<ResourceManagerUI::CDeviceManagerCtrl>(&m_interfaces);
    m_pDriver = std::make_unique<PageDriver>(*m_pPage, QSize(1500, 800));
    WaitIdle();
    return *m_pDriver;
}

void LiveClient::ClosePage()
{
    m_pDriver.reset();
    m_pPage.reset();
}

QTreeView* LiveClient::Table()
{
    return m_pDriver->Find<QTreeView>(QStringLiteral("treeDevice"));
}

ResourceManagerUI::COrganizationTreeCtrl* LiveClient::Tree()
{
    return m_pPage->findChild<ResourceManagerUI::COrganizationTreeCtrl*>();
}

QStringList LiveClient::Column(int nColumn)
{
    QStringList listTexts;
    const QAbstractItemModel* pModel = Table()->model();
    for (int nRow = 0; nRow < pModel->rowCount(); ++nRow)
        listTexts << pModel->index(nRow, nColumn).data().toString();
    return listTexts;
}

int LiveClient::Total()
{
    return m_pPage->findChild<UICommonMdl::CNumberPageCtrl*>(QStringLiteral("wgtTableFlip"))->GetTotalCount();
}

void LiveClient::CheckRow(const QString& sName)
{
    using namespace ResourceManagerUI;
    const QModelIndex index = m_pDriver->FindRow(Table(), ColumnName, sName);
    m_pDriver->ClickIndex(Table(), index.siblingAtColumn(ColumnCheck));
    EXPECT_EQ(index.siblingAtColumn(ColumnCheck).data(Qt::CheckStateRole).toInt(), Qt::Checked);
}

void LiveClient::SelectOrganization(const QString& sName)
{
    auto* pTree = Tree()->findChild<QTreeView*>(QStringLiteral("treeOrg"));
    pTree->expandAll();
    m_pDriver->ClickIndex(pTree, m_pDriver->FindRow(pTree, 0, sName));
    WaitIdle();
}

void LiveClient::Search(const QString& sText)
{
    m_pDriver->Type(QStringLiteral("editSearch"), sText);
    m_pDriver->Key(QStringLiteral("editSearch"), Qt::Key_Return);
    WaitIdle();
}

void LiveClient::WaitIdle()
{
    PageDriver::WaitFor([this] { return m_client.GetOpenRequestCount() == 0; });
    PageDriver::Settle();
    PageDriver::WaitFor([this] { return m_client.GetOpenRequestCount() == 0; });
    PageDriver::Settle();
}

void LiveClient::WaitReconnected()
{
    PageDriver::WaitFor([this] {
        return m_server.StreamCount() > 0 && m_client.GetRemoteConfigManager()->IsServerConnected();
    });
    PageDriver::Settle();
    PageDriver::WaitFor([this] { return m_pDriver->IsUsable(QStringLiteral("btnAdd")); });
    WaitIdle();
}

QString LiveClient::Notice()
{
    return VxGUI::VxNotification::CurrentText(m_pPage.get());
}
