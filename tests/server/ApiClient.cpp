#include "ApiClient.h"

#include <httplib.h>

namespace ServerTest {

namespace {
constexpr std::chrono::seconds Deadline(15);
}

ApiClient::ApiClient(const QUrl& url)
    : m_sBase(url.toString().toStdString())
{
}

namespace {

Reply MakeReply(const httplib::Result& result)
{
    Reply reply;
    if (!result)
        return reply;
    reply.nStatus = result->status;
    const auto answer = nlohmann::json::parse(result->body, nullptr, false);
    if (!answer.is_object()) {
        reply.sDetail = result->body;
        return reply;
    }
    reply.nCode = answer.value(wire::AnswerCode, -100);
    reply.sDetail = answer.value(wire::AnswerDetail, std::string());
    if (answer.contains(wire::AnswerData))
        reply.data = answer[wire::AnswerData];
    return reply;
}

std::string WithToken(const std::string& sPath, const std::string& sToken)
{
    return sPath + (sPath.find('?') == std::string::npos ? "?token=" : "&token=") + sToken;
}

} // namespace

Reply ApiClient::Post(const std::string& sOperation, const std::string& sBody)
{
    httplib::Client client(m_sBase);
    client.set_read_timeout(Deadline);
    httplib::Headers headers{{wire::ProtocolVersionHeader, sVersion}};
    if (!sToken.empty())
        headers.emplace("Authorization", "Bearer " + sToken);
    return MakeReply(client.Post(wire::OperationPrefix + sOperation, headers, sBody, "application/json"));
}

Reply ApiClient::Download(const std::string& sPath)
{
    httplib::Client client(m_sBase);
    return MakeReply(client.Get(WithToken(sPath, sToken)));
}

Reply ApiClient::Upload(const std::string& sPath, const std::string& sBody)
{
    httplib::Client client(m_sBase);
    return MakeReply(client.Post(WithToken(sPath, sToken), sBody, "application/octet-stream"));
}

wire::JobState ApiClient::Finish(const wire::Job& job)
{
    nlohmann::json items = nlohmann::json::array();
    for (;;) {
        wire::JobState state = Get<wire::WaitJob>({job.sJob, static_cast<int>(items.size())});
        items.insert(items.end(), state.items.begin(), state.items.end());
        if (!state.bFinished)
            continue;
        state.items = items;
        return state;
    }
}

Reply ApiClient::SignIn(const std::string& sName, const std::string& sPassword)
{
    Reply reply = Call<wire::SignIn>({sName, sPassword, {}, {}});
    if (reply.nCode == 0)
        sToken = reply.data.get<wire::Session>().sToken;
    return reply;
}

EventReader::EventReader(const QUrl& url, const std::string& sToken)
{
    m_thread = std::thread([this, sBase = url.toString().toStdString(), sToken] {
        httplib::Client client(sBase);
        client.set_read_timeout(Deadline);
        const httplib::Headers headers{{wire::ProtocolVersionHeader, std::to_string(wire::ProtocolVersion)},
            {"Authorization", "Bearer " + sToken}};
        client.Get(
            wire::EventPath, headers,
            [this](const httplib::Response& response) {
                m_nStatus = response.status;
                return true;
            },
            [this](const char* pText, std::size_t nSize) { return Append(pText, nSize); });
        const std::lock_guard lock(m_mutex);
        m_bEnded = true;
        m_changed.notify_all();
    });
}

EventReader::~EventReader()
{
    m_bStop = true;
    m_thread.join();
}

bool EventReader::Append(const char* pText, std::size_t nSize)
{
    const std::lock_guard lock(m_mutex);
    m_sText.append(pText, nSize);
    m_changed.notify_all();
    return !m_bStop;
}

bool EventReader::WaitFor(const std::string& sText, std::chrono::milliseconds timeOut)
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, timeOut, [&] { return m_sText.find(sText) != std::string::npos; });
}

bool EventReader::WaitForEnd()
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, Deadline, [this] { return m_bEnded; });
}

} // namespace ServerTest
