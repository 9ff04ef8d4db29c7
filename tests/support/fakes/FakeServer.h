#pragma once

#include <PlatformLogic/IServerConnection.h>
#include <wire/Operations.h>

#include <QObject>
#include <QThread>

#include <atomic>
#include <concepts>
#include <deque>
#include <map>
#include <mutex>
#include <set>
#include <string_view>
#include <thread>
#include <vector>

/// One request that a manager sent.
struct FakeCall
{
    std::string sOperation; ///< as it travels: "role/delete"
    int nSequence = 0; ///< 0: it was refused
    nlohmann::json request;

    template <class Op>
    typename Op::Request Request() const
    {
        return request.get<typename Op::Request>();
    }
};

/// What the managers are connected with instead of a server: keeps every request, and answers when and how
/// the test says, each one exactly once. Without an automatic answer a request is held until the test answers
/// it; only jobs are started at once, and report when the test says so. Requests and answers go through their
/// codec. Handlers run on a thread of their own, as those of a connection do, and have run when the call that
/// caused them returns.
class FakeServer : public PlatformLogic::IServerConnection
{
public:
    using EventHandler = std::function<void(const std::string& sName, const std::string& sData)>;

    FakeServer();
    ~FakeServer() override { Stop(); }
    /// Cancels what is open and ends the thread; nothing may be sent afterwards.
    void Stop();

    // What the managers see. Delays are over at once.

    int Send(const std::string& sOperation, const QByteArray& body, DataHandler onData, AnswerHandler onEnd,
        int nDelayMs) override;
    void CloseSession(OpenRequests openRequests) override;

    /// Out of reach: what is open ends with ErrorDisconnected, and so does what is sent until it is back.
    void SetReachable(bool bReachable);

    // What the test says of an operation, from now on.

    /// maker(request, answer) fills the answer; a number that it returns is an error code.
    template <class Op, std::invocable<const typename Op::Request&, typename Op::Answer&> Maker>
    void AnswerAlways(Maker maker)
    {
        SetAutomatic(Op::Name, [maker = std::move(maker)](const FakeCall& call) mutable {
            typename Op::Answer answer;
            int nErrorCode = 0;
            if constexpr (std::is_void_v<decltype(maker(call.Request<Op>(), answer))>)
                maker(call.Request<Op>(), answer);
            else
                nErrorCode = maker(call.Request<Op>(), answer);
            return Reply{nErrorCode, {}, Encode(answer)};
        });
    }
    template <class Op>
    void AnswerAlways(const typename Op::Answer& answer)
    {
        SetAutomatic(Op::Name, [sData = Encode(answer)](const FakeCall&) { return Reply{0, {}, sData}; });
    }
    template <class Op>
    void FailAlways(int nErrorCode)
    {
        SetAutomatic(Op::Name, [nErrorCode](const FakeCall&) { return Reply{nErrorCode, {}, "{}"}; });
    }
    template <class Op>
    void Hold()
    {
        SetAutomatic(Op::Name, {});
    }
    /// All but the session, which only the host asks for.
    void HoldAll();
    /// Requests are answered 0, as managers answer their calls while nobody is signed in.
    template <class Op>
    void Refuse()
    {
        const std::lock_guard lock(m_mutex);
        m_setRefused.emplace(Op::Name);
    }

    // What the test says of one request that is held; may be late and in any order.

    template <class Op>
    void Answer(const FakeCall& call, const typename Op::Answer& answer = {})
    {
        End(call, {0, {}, Encode(answer)});
    }
    template <class Op>
    void AnswerLast(const typename Op::Answer& answer = {})
    {
        Answer<Op>(Last<Op>(), answer);
    }
    /// Without an error code it succeeds, with nothing in its answer.
    void Fail(const FakeCall& call, int nErrorCode, const std::string& sDetail = {})
    {
        End(call, {nErrorCode, sDetail, "{}"});
    }
    template <class Op>
    void FailLast(int nErrorCode, const std::string& sDetail = {})
    {
        Fail(Last<Op>(), nErrorCode, sDetail);
    }
    /// What there is new of the job that the request started.
    void Report(const FakeCall& started, const wire::JobState& state) { ReportJob(JobOf(started), state); }
    template <class Op>
    void ReportLast(const wire::JobState& state)
    {
        Report(Last<Op>(), state);
    }
    void ReportJob(const std::string& sJob, const wire::JobState& state);
    static std::string JobOf(const FakeCall& started) { return "job-" + std::to_string(started.nSequence); }

    /// Who hears of events; set before there are any.
    void SetEventHandler(EventHandler handler) { m_eventHandler = std::move(handler); }
    template <class Record = wire::Nothing>
    void Push(const std::string& sEvent, const Record& record = {})
    {
        Run([=, this, sData = Encode(record)] { m_eventHandler(sEvent, sData); });
    }
    /// Pushes over and over from another thread until Join.
    void PushUntilJoin(const std::string& sEvent);
    void Join();
    /// Runs the work on the server's thread.
    void Run(const std::function<void()>& work);

    // What was sent.

    std::vector<FakeCall> Calls(std::string_view sOperation = {}) const;
    std::vector<FakeCall> OpenCalls() const;
    FakeCall Last(std::string_view sOperation) const;
    int Count(std::string_view sOperation) const { return int(Calls(sOperation).size()); }
    template <class Op>
    std::vector<FakeCall> Calls() const
    {
        return Calls(Op::Name);
    }
    template <class Op>
    FakeCall Last() const
    {
        return Last(Op::Name);
    }
    template <class Op>
    int Count() const
    {
        return Count(Op::Name);
    }
    /// As default-constructed when there was none.
    template <class Op>
    typename Op::Request LastRequest() const
    {
        return Last<Op>().template Request<Op>();
    }
    /// The last import that was sent, put together again.
    GroupLogical::ImportRequest_t LastImport() const;

private:
    struct Reply
    {
        int nErrorCode = 0;
        std::string sDetail;
        std::string sData; ///< JSON
    };
    using Maker = std::function<Reply(const FakeCall&)>;
    struct Handlers
    {
        DataHandler onData;
        AnswerHandler onEnd;
    };

    template <class Record>
    static std::string Encode(const Record& record)
    {
        using wire::AppendJson;
        std::string sJson;
        AppendJson(sJson, record);
        return sJson;
    }
    template <class... Ops>
    void StartJobs();
    void SetAutomatic(std::string_view sOperation, Maker maker);
    void End(const FakeCall& call, const Reply& reply);

    EventHandler m_eventHandler;
    mutable std::mutex m_mutex; ///< guards the six below
    bool m_bReachable = true;
    std::map<std::string, Maker> m_mapAutomatic;
    std::set<std::string> m_setRefused;
    int m_nLastSequence = 0;
    std::vector<FakeCall> m_vecCalls;
    std::map<int, Handlers> m_mapOpen;
    std::atomic<bool> m_bPushing = false;
    std::thread m_pusher;
    std::deque<std::function<void()>> m_queWork; ///< on the thread
    QObject m_context; ///< lives on the thread
    QThread m_thread;
};

/// What a job reports: results since the last report.
template <class Record>
wire::JobState MakeReport(const std::vector<Record>& vecItems, bool bFinished, int nErrorCode = 0)
{
    wire::JobState state;
    state.items = vecItems;
    state.bFinished = bFinished;
    state.nErrorCode = nErrorCode;
    return state;
}
/// The end of a job that tells its result once.
template <class Record>
wire::JobState MakeEnd(const Record& result, int nErrorCode = 0)
{
    wire::JobState state;
    state.bFinished = true;
    state.nErrorCode = nErrorCode;
    state.summary = result;
    return state;
}
/// What an import reports.
wire::JobState MakeImportReport(GroupLogical::ImportState_t import, bool bFinished, int nErrorCode = 0);
