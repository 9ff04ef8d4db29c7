#include "JobFollower.h"

#include <memory>

namespace PlatformLogic {

namespace {

constexpr int JobRetryMs = 1000;
constexpr int JobRetryLimit = 120;

class Follower : public std::enable_shared_from_this<Follower>
{
public:
    Follower(IServerConnection& connection, std::string sJob, int nSequence, JobHandler handler)
        : m_connection(connection)
        , m_sJob(std::move(sJob))
        , m_nSequence(nSequence)
        , m_handler(std::move(handler))
    {
    }

    void Ask(int nDelayMs)
    {
        CallServer<wire::WaitJob>(
            m_connection, {m_sJob, m_nFrom},
            [pSelf = shared_from_this()](
                TypedAnswer<wire::JobState>&& answer) { pSelf->OnAnswer(std::move(answer)); },
            nDelayMs);
    }

private:
    void OnAnswer(TypedAnswer<wire::JobState>&& answer)
    {
        const bool bLost = answer.nErrorCode == UICommonMdl::ErrorDisconnected
            || answer.nErrorCode == UICommonMdl::ErrorTimeOut;
        if (bLost && ++m_nRetries <= JobRetryLimit) {
            // The work goes on without the client.
            Ask(JobRetryMs);
            return;
        }
        if (answer.nErrorCode != UICommonMdl::ErrorNone) {
            m_handler({m_nSequence, answer.nErrorCode, answer.sDetail, true, {}, m_nFrom});
            return;
        }
        m_nRetries = 0;
        m_nFrom += static_cast<int>(answer.data.items.size());
        const bool bFinal = answer.data.bFinished;
        m_handler({m_nSequence, bFinal ? answer.data.nErrorCode : UICommonMdl::ErrorNone,
            answer.data.sErrorDetail, bFinal, std::move(answer.data), m_nFrom});
        if (!bFinal)
            Ask(0);
    }

    IServerConnection& m_connection;
    const std::string m_sJob;
    const int m_nSequence;
    const JobHandler m_handler;
    int m_nFrom = 0;
    int m_nRetries = 0;
};

} // namespace

void FollowJob(IServerConnection& connection, const std::string& sJob, int nSequence, JobHandler handler)
{
    std::make_shared<Follower>(connection, sJob, nSequence, std::move(handler))->Ask(0);
}

} // namespace PlatformLogic
