#pragma once

#include "ServerCall.h"

#include <functional>
#include <string>

namespace PlatformLogic {

/// How far work on the server is. Of its state items holds what is new.
struct JobReport
{
    int nSequence = 0; ///< of the request that started it
    int nErrorCode = 0; ///< UICommonMdl::ErrorCode; of the work as a whole
    std::string sDetail;
    bool bFinal = false; ///< the last report
    wire::JobState state;
    int nItems = 0; ///< items so far, with those of this report
};
/// Called on the network thread; the last time with bFinal.
using JobHandler = std::function<void(const JobReport& report)>;

/// Reads a job's results until it has ended. A connection that is lost meanwhile is waited for.
void FollowJob(IServerConnection& connection, const std::string& sJob, int nSequence, JobHandler handler);

/// Sends an operation that starts a job, and follows it. Answers the request's number; started is told the
/// job, on the network thread.
template <class Op>
int StartJob(IServerConnection& connection, const typename Op::Request& request, JobHandler handler,
    std::function<void(int nSequence, const std::string& sJob)> started = {})
{
    return CallServer<Op>(connection, request,
        [&connection, handler = std::move(handler), started = std::move(started)](
            TypedAnswer<wire::Job>&& answer) {
            if (answer.nErrorCode != UICommonMdl::ErrorNone) {
                handler({answer.nSequence, answer.nErrorCode, answer.sDetail, true, {}, 0});
                return;
            }
            if (started)
                started(answer.nSequence, answer.data.sJob);
            FollowJob(connection, answer.data.sJob, answer.nSequence, handler);
        });
}

/// The items of a report as records; those that cannot be read are left out.
template <class Record>
std::vector<Record> ItemsOf(const JobReport& report)
{
    std::vector<Record> vecRecords;
    for (const nlohmann::json& item : report.state.items) {
        try {
            vecRecords.push_back(item.get<Record>());
        } catch (const nlohmann::json::exception& error) {
            qWarning("An item of a job could not be read[%s].", error.what());
        }
    }
    return vecRecords;
}

} // namespace PlatformLogic
