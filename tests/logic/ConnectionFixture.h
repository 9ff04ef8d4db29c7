#pragma once

#include "ScriptedServer.h"

#include <PlatformLogic/CPlatformClient.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

inline void WaitFor(const std::function<bool()>& condition)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        ASSERT_LT(clock.elapsed(), 20000) << "waited in vain";
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    }
}

/// A client of a scripted server.
class ConnectionFixture : public testing::Test
{
protected:
    static constexpr const char* SignInPath = "/api/v1/session/sign-in";
    static constexpr const char* EventPath = "/api/v1/events";

    ConnectionFixture()
    {
        const QByteArray baSignedIn =
            R"({"code":0,"data":{"sToken":"t","sUserName":"system","vecRights":["001001"],
            "vecMenuRights":[{"sCode":"001001","sWidgetName":"ResourceManagerWidget","nEntryId":0}]}})";
        m_server.SetScript(QLatin1String(SignInPath), ScriptedServer::Answer(baSignedIn));
        m_server.SetScript(QStringLiteral("/api/v1/session/get"), ScriptedServer::Answer(baSignedIn));
        m_server.SetScript(QLatin1String(EventPath), [this](QTcpSocket& socket, const QByteArray&) {
            m_pStream = &socket;
            socket.write(
                "HTTP/1.1 200 OK\r\nContent-Type: text/event-stream\r\n\r\nevent: hello\ndata: {}\n\n");
        });
        m_pClient = std::make_unique<PlatformLogic::CPlatformClient>(m_folder.path());
        m_pClient->SetServer(m_server.Url());
        QObject::connect(m_pClient.get(), &PlatformLogic::CPlatformClient::SignalSignIn, m_pClient.get(),
            [this](int nErrorCode) { m_vecSignIns.push_back(nErrorCode); });
    }

    void SignIn()
    {
        m_vecSignIns.clear();
        m_pClient->SignIn(QStringLiteral("system"), QStringLiteral("secret"));
        WaitFor([&] { return !m_vecSignIns.empty() && m_server.RequestCount(QLatin1String(EventPath)) > 0; });
        ASSERT_EQ(m_vecSignIns.back(), 0);
    }

    QTemporaryDir m_folder;
    ScriptedServer m_server;
    QPointer<QTcpSocket> m_pStream;
    std::unique_ptr<PlatformLogic::CPlatformClient> m_pClient;
    std::vector<int> m_vecSignIns;
};
