#include "ConnectionFixture.h"

#include <GroupLogical/IGroupManager.h>
#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <UICommonMdl/ErrorCodes.h>
#include <UICommonMdl/ILocalConfig.h>
#include <UICommonMdl/ITransferManager.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <mutex>

using GroupLogical::IGroupManagerObserver;
using PlatformLogic::CPlatformClient;

namespace {

const QString PagePath = QStringLiteral("/api/v1/device/page");

/// Keeps what comes on the network thread.
class Recorder : public IGroupManagerObserver, public RemoteConfigLogical::ISystemConfigObserver
{
public:
    void OnNotifyGroupManagerState(const IGroupManagerObserver::Answer& pAnswer) override
    {
        const std::lock_guard lock(m_mutex);
        m_vecAnswers.push_back(*pAnswer);
    }
    void OnNotifySystemConfigState(const ISystemConfigObserver::Answer& pAnswer) override
    {
        const std::lock_guard lock(m_mutex);
        m_vecStates.push_back(pAnswer->nResultCode);
    }
    std::vector<IGroupManagerObserver::Param> Answers()
    {
        const std::lock_guard lock(m_mutex);
        return m_vecAnswers;
    }
    std::vector<int> States()
    {
        const std::lock_guard lock(m_mutex);
        return m_vecStates;
    }

private:
    std::mutex m_mutex;
    std::vector<IGroupManagerObserver::Param> m_vecAnswers;
    std::vector<int> m_vecStates;
};

class ConnectionTest : public ConnectionFixture
{
protected:
    ConnectionTest()
    {
        m_pClient->GetGroupManager()->AddObserver(&m_recorder);
        m_pClient->GetRemoteConfigManager()->AddObserver(&m_recorder);
        QObject::connect(m_pClient.get(), &CPlatformClient::SignalSessionEnded, m_pClient.get(),
            [this] { ++m_nSessionsEnded; });
    }
    ~ConnectionTest() override { m_pClient.reset(); }

    Recorder m_recorder;
    int m_nSessionsEnded = 0;
};

constexpr int LongRows = 5000;

/// A page of many rows, more than is read at once; the last one has that version.
QByteArray LongPage(const QByteArray& lastVersion)
{
    QByteArray body = R"({"code":0,"data":{"vecDevices":[)";
    for (int n = 1; n < LongRows; ++n)
        body +=
            R"({"sName":"A device with a name that takes some room on its way to the page","nVersion":1},)";
    return body + R"({"nVersion":)" + lastVersion + R"(}],"nTotal":5000}})";
}

struct AnswerCase
{
    const char* pszName;
    ScriptedServer::Script script;
    int nErrorCode;
    const char* pszDetail;
    std::size_t nRows = 0;
};

void PrintTo(const AnswerCase& param, std::ostream* pStream)
{
    *pStream << param.pszName;
}

class AnswerTest : public ConnectionTest, public testing::WithParamInterface<AnswerCase>
{
};

} // namespace

TEST_P(AnswerTest, EveryRequestHasExactlyOneAnswer)
{
    SignIn();
    if (GetParam().nErrorCode == UICommonMdl::ErrorTimeOut)
        m_pClient->SetRequestTimeOut(300);
    m_server.SetScript(PagePath, GetParam().script);
    const int nFirst = m_pClient->GetGroupManager()->QueryDevicePage({});
    const int nSecond = m_pClient->GetGroupManager()->QueryDevicePage({});
    ASSERT_GT(nFirst, 0);
    ASSERT_NE(nFirst, nSecond);
    WaitFor([&] { return m_recorder.Answers().size() >= 2 && m_pClient->GetOpenRequestCount() == 0; });
    const auto vecAnswers = m_recorder.Answers();
    ASSERT_EQ(vecAnswers.size(), 2U);
    EXPECT_EQ(m_server.RequestCount(PagePath), 2) << "what may have been done is not asked for again";
    EXPECT_THAT((std::vector<int>{vecAnswers[0].nSequence, vecAnswers[1].nSequence}),
        testing::UnorderedElementsAre(nFirst, nSecond));
    for (const auto& answer : vecAnswers) {
        EXPECT_EQ(answer.nResultCode, IGroupManagerObserver::ResultQueryDevicePage);
        EXPECT_EQ(answer.nErrorCode, GetParam().nErrorCode);
        EXPECT_EQ(answer.sErrorDetail, GetParam().pszDetail);
        EXPECT_EQ(answer.devicePage.vecDevices.size(), GetParam().nRows);
    }
}

INSTANTIATE_TEST_SUITE_P(Answers, AnswerTest,
    testing::Values(
        AnswerCase{"success",
            ScriptedServer::Answer(R"({"code":0,"data":{"vecDevices":[],"nTotal":0,"nPage":1}})"), 0, ""},
        AnswerCase{"long", ScriptedServer::Answer(LongPage("1")), 0, "", LongRows},
        AnswerCase{"long_with_a_field_of_wrong_type_at_its_end", ScriptedServer::Answer(LongPage("\"1\"")),
            UICommonMdl::ErrorBadAnswer, ""},
        AnswerCase{"long_of_a_length_beyond_all_memory",
            [](QTcpSocket& socket, const QByteArray&) {
                socket.write(
                    "HTTP/1.1 200 OK\r\nContent-Length: 9000000000000000000\r\n\r\n" + LongPage("1"));
                socket.disconnectFromHost();
            },
            UICommonMdl::ErrorDisconnected, ""},
        AnswerCase{"long_and_cut",
            [](QTcpSocket& socket, const QByteArray&) {
                socket.write("HTTP/1.1 200 OK\r\nContent-Length: 9999999\r\n\r\n" + LongPage("1"));
                socket.disconnectFromHost();
            },
            UICommonMdl::ErrorDisconnected, ""},
        AnswerCase{"refused", ScriptedServer::Answer(R"({"code":23,"detail":"001001"})"),
            UICommonMdl::ErrorNoRight, "001001"},
        AnswerCase{"error_status_with_body", ScriptedServer::Answer(R"({"code":3})", "413 Payload Too Large"),
            UICommonMdl::ErrorTooLarge, ""},
        AnswerCase{"not_json", ScriptedServer::Answer("<html>"), UICommonMdl::ErrorBadAnswer, ""},
        AnswerCase{"wrapper_without_code", ScriptedServer::Answer(R"({"data":{}})"),
            UICommonMdl::ErrorBadAnswer, ""},
        AnswerCase{"field_of_wrong_type", ScriptedServer::Answer(R"({"code":0,"data":{"nTotal":"many"}})"),
            UICommonMdl::ErrorBadAnswer, ""},
        AnswerCase{"cut_before_the_answer", [](QTcpSocket& socket, const QByteArray&) { socket.abort(); },
            UICommonMdl::ErrorDisconnected, ""},
        AnswerCase{"closed_before_the_answer",
            [](QTcpSocket& socket, const QByteArray&) { socket.disconnectFromHost(); },
            UICommonMdl::ErrorDisconnected, ""},
        AnswerCase{"cut_inside_the_answer",
            [](QTcpSocket& socket, const QByteArray&) {
                socket.write("HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\n{\"code\":0");
                socket.flush();
                socket.disconnectFromHost();
            },
            UICommonMdl::ErrorDisconnected, ""},
        AnswerCase{"silence", [](QTcpSocket&, const QByteArray&) {}, UICommonMdl::ErrorTimeOut, ""}),
    [](const auto& info) { return info.param.pszName; });

TEST_F(ConnectionTest, CallsAreRefusedWithoutASession)
{
    EXPECT_LE(m_pClient->GetGroupManager()->QueryDevicePage({}), 0);
    EXPECT_LE(m_pClient->GetRemoteConfigManager()->QueryDictionary(), 0);
    EXPECT_EQ(m_pClient->GetUserManager()->GetUserRight(), nullptr);
    SignIn();
    EXPECT_TRUE(m_pClient->GetUserManager()->GetUserRight()->HasRight("001001"));
    EXPECT_FALSE(m_pClient->GetUserManager()->GetUserRight()->HasRight("003001"));
    m_pClient->SignOut();
    EXPECT_LE(m_pClient->GetGroupManager()->QueryDevicePage({}), 0);
    EXPECT_EQ(m_server.RequestCount(PagePath), 0);
}

TEST_F(ConnectionTest, OpenRequestsAreAnsweredWhenTheClientEnds)
{
    SignIn();
    m_server.SetScript(PagePath, [](QTcpSocket&, const QByteArray&) {});
    const int nSequence = m_pClient->GetGroupManager()->QueryDevicePage({});
    WaitFor([&] { return m_server.RequestCount(PagePath) == 1; });
    m_pClient.reset();
    const auto vecAnswers = m_recorder.Answers();
    ASSERT_EQ(vecAnswers.size(), 1U);
    EXPECT_EQ(vecAnswers[0].nSequence, nSequence);
    EXPECT_EQ(vecAnswers[0].nErrorCode, UICommonMdl::ErrorCancelled);
}

TEST_F(ConnectionTest, ALostServerIsSeenAndFoundAgain)
{
    using RemoteConfigLogical::ISystemConfigObserver;
    SignIn();
    m_server.CutAll();
    WaitFor([&] { return !m_recorder.States().empty(); });
    EXPECT_FALSE(m_pClient->GetRemoteConfigManager()->IsServerConnected());
    m_pClient->GetGroupManager()->QueryDevicePage({});
    WaitFor([&] { return !m_recorder.Answers().empty(); });
    EXPECT_EQ(m_recorder.Answers()[0].nErrorCode, UICommonMdl::ErrorDisconnected);
    m_server.Listen();
    WaitFor([&] { return m_recorder.States().size() == 2; });
    EXPECT_EQ(m_recorder.States(),
        (std::vector<int>{ISystemConfigObserver::ResultServerDisconnected,
            ISystemConfigObserver::ResultServerReconnected}));
}

TEST_F(ConnectionTest, PushesReachTheObserversWithNumberZero)
{
    SignIn();
    m_pStream->write("event: devices-changed\ndata: {}\n\nevent: organizations-changed\ndata: {}\n\n");
    WaitFor([&] { return m_recorder.Answers().size() == 2; });
    EXPECT_EQ(m_recorder.Answers()[0].nResultCode, IGroupManagerObserver::ResultDevicesChanged);
    EXPECT_EQ(m_recorder.Answers()[0].nSequence, 0);
    EXPECT_EQ(m_recorder.Answers()[1].nResultCode, IGroupManagerObserver::ResultOrganizationsChanged);
}

TEST_F(ConnectionTest, ARefusedTokenEndsTheSessionOnce)
{
    SignIn();
    m_server.SetScript(PagePath, ScriptedServer::Answer(R"({"code":20})", "401 Unauthorized"));
    m_pClient->GetGroupManager()->QueryDevicePage({});
    m_pClient->GetGroupManager()->QueryDevicePage({});
    WaitFor([&] { return m_nSessionsEnded > 0 && m_pClient->GetOpenRequestCount() == 0; });
    QCoreApplication::processEvents();
    EXPECT_EQ(m_nSessionsEnded, 1);
    EXPECT_FALSE(m_pClient->IsSignedIn());
    SignIn();
    EXPECT_TRUE(m_pClient->IsSignedIn());
}

TEST_F(ConnectionTest, ALateRefusalOfAnOlderSessionLeavesTheNewOne)
{
    SignIn();
    QPointer<QTcpSocket> pOpen;
    m_server.SetScript(PagePath, [&](QTcpSocket& socket, const QByteArray&) { pOpen = &socket; });
    m_pClient->GetGroupManager()->QueryDevicePage({});
    WaitFor([&] { return !pOpen.isNull(); });
    m_pClient->SignOut();
    SignIn();
    ScriptedServer::Answer(R"({"code":20})", "401 Unauthorized")(*pOpen, {});
    WaitFor([&] { return !m_recorder.Answers().empty(); });
    QCoreApplication::processEvents();
    EXPECT_TRUE(m_pClient->IsSignedIn());
    EXPECT_EQ(m_nSessionsEnded, 0);
}

TEST_F(ConnectionTest, ADownloadThatIsCutLeavesNoFile)
{
    QByteArray text;
    for (int n = 0; n < 20000; ++n)
        text += QByteArray::number(n * 7919) + '\n';
    auto* const pTransfers = static_cast<UICommonMdl::ITransferManager*>(
        m_pClient->FindManager(UICommonMdl::ITransferManager::InterfaceId));
    std::vector<int> vecEnds;
    QObject::connect(pTransfers, &UICommonMdl::ITransferManager::SignalFinished, m_pClient.get(),
        [&](int, int nErrorCode) { vecEnds.push_back(nErrorCode); });
    for (const bool bPacked : {false, true}) {
        const QByteArray body = bPacked ? qCompress(text).mid(4) : text;
        m_server.SetScript(QStringLiteral("/list"), [&](QTcpSocket& socket, const QByteArray&) {
            socket.write(QByteArray("HTTP/1.1 200 OK\r\n") + (bPacked ? "Content-Encoding: deflate\r\n" : "")
                + "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n"
                + body.left(body.size() / 2));
            socket.disconnectFromHost();
        });
        const QString sFile = m_folder.filePath(QStringLiteral("list.txt"));
        vecEnds.clear();
        EXPECT_GT(pTransfers->Download(QStringLiteral("/list"), sFile), 0);
        WaitFor([&] { return !vecEnds.empty(); });
        EXPECT_EQ(vecEnds, std::vector<int>{UICommonMdl::ErrorDisconnected}) << bPacked;
        EXPECT_FALSE(QFile::exists(sFile));
    }
}

TEST_F(ConnectionTest, SettingsAreThereInTheNextRun)
{
    m_pClient->GetLocalConfig()->SetValue(QStringLiteral("DeviceManager/HiddenColumns"), QVariantList{1, 5});
    m_pClient = std::make_unique<CPlatformClient>(m_folder.path());
    EXPECT_EQ(m_pClient->GetLocalConfig()
                  ->GetValue(QStringLiteral("DeviceManager/HiddenColumns"), QVariant())
                  .toList()
                  .size(),
        2);
    EXPECT_TRUE(QFile::exists(m_folder.filePath(QStringLiteral("Localcfg.ini"))));
}
