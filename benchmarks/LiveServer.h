#pragma once

#include "Bench.h"
#include "BenchServer.h"

#include <PlatformLogic/CPlatformClient.h>
#include <UICommonMdl/CInterfaceSetManager.h>

#include <QTemporaryDir>

/// A client that is signed in to a server of its own.
class LiveServer
{
public:
    explicit LiveServer(const QStringList& listSeeds)
        : m_server(listSeeds)
        , m_client(m_folder.path())
    {
        m_client.SetServer(m_server.Url());
        SignIn();
        m_interfaces.AddAbstractResourceManager(&m_client);
    }
    ~LiveServer() { m_client.SignOut(); }
    LiveServer(const LiveServer&) = delete;
    LiveServer& operator=(const LiveServer&) = delete;

    QString DatabasePath() const { return m_server.DatabasePath(); }
    QUrl Url() const { return m_server.Url(); }
    UICommonMdl::CInterfaceSetManager* Interfaces() { return &m_interfaces; }
    UICommonMdl::ILocalConfig* Config() const { return m_client.GetLocalConfig(); }

private:
    void SignIn()
    {
        bool bSetUp = false;
        bool bSignedIn = false;
        QObject context;
        QObject::connect(&m_client, &PlatformLogic::CPlatformClient::SignalSetUp, &context,
            [&](int nErrorCode) { bSetUp = nErrorCode == 0; });
        QObject::connect(&m_client, &PlatformLogic::CPlatformClient::SignalSignIn, &context,
            [&](int nErrorCode) { bSignedIn = nErrorCode == 0; });
        m_client.SetUp(m_server.Password());
        WaitUntil([&] { return bSetUp; });
        m_client.SignIn(QStringLiteral("system"), m_server.Password());
        WaitUntil([&] { return bSignedIn; });
    }

    BenchServer m_server;
    QTemporaryDir m_folder;
    PlatformLogic::CPlatformClient m_client;
    UICommonMdl::CInterfaceSetManager m_interfaces;
};
