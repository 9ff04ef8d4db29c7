#pragma once

#include <wire/Operations.h>

#include <QUrl>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace ServerTest {

struct Reply
{
    int nStatus = 0; ///< 0: no answer
    int nCode = -100; ///< UICommonMdl::ErrorCode
    std::string sDetail;
    nlohmann::json data;
};

/// A client that speaks the protocol by hand.
class ApiClient
{
public:
    explicit ApiClient(const QUrl& url);

    Reply Post(const std::string& sOperation, const std::string& sBody);
    /// Signs in and keeps the token.
    Reply SignIn(const std::string& sName, const std::string& sPassword);

    template <class Op>
    Reply Call(const typename Op::Request& request = {})
    {
        return Post(std::string(Op::Name), nlohmann::json(request).dump());
    }
    /// The answer of an operation that has to succeed; throws otherwise.
    template <class Op>
    typename Op::Answer Get(const typename Op::Request& request = {})
    {
        const Reply reply = Call<Op>(request);
        if (reply.nCode != 0)
            throw std::runtime_error("code " + std::to_string(reply.nCode) + ' ' + reply.sDetail);
        return reply.data.template get<typename Op::Answer>();
    }

    /// A file by GET, with the token; its body is in sDetail when it is no JSON.
    Reply Download(const std::string& sPath);
    Reply Upload(const std::string& sPath, const std::string& sBody);
    /// Reads a job until its end: its last state with all items.
    wire::JobState Finish(const wire::Job& job);

    std::string sToken;
    std::string sVersion = std::to_string(wire::ProtocolVersion);

private:
    std::string m_sBase;
};

/// Reads an event stream on a thread of its own.
class EventReader
{
public:
    EventReader(const QUrl& url, const std::string& sToken);
    ~EventReader();
    EventReader(const EventReader&) = delete;
    EventReader& operator=(const EventReader&) = delete;

    /// True when that text has come, waiting for it.
    bool WaitFor(const std::string& sText, std::chrono::milliseconds timeOut = std::chrono::seconds(15));
    /// True when the server ended the stream, waiting for it.
    bool WaitForEnd();
    int Status() const { return m_nStatus; }

private:
    bool Append(const char* pText, std::size_t nSize);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::string m_sText;
    bool m_bEnded = false;
    std::atomic<bool> m_bStop{false};
    std::atomic<int> m_nStatus{0};
    std::thread m_thread;
};

} // namespace ServerTest
