#pragma once

#include "JobFollower.h"

#include <GroupLogical/GroupRecords.h>

#include <functional>
#include <memory>

namespace PlatformLogic {

/// Brings the rows of an import to the server piece by piece, starts it and follows it. Lives as long as its
/// requests; all of it but Start runs on the network thread.
class CImportSender : public std::enable_shared_from_this<CImportSender>
{
public:
    CImportSender(IServerConnection& connection, GroupLogical::ImportRequest_t request, JobHandler handler);

    /// Answers the request's number.
    int Start();
    /// Starts an import whose rows the server has already.
    static int StartUploaded(
        IServerConnection& connection, const wire::RunImportRequest& request, JobHandler handler);

private:
    void SendRows();
    static void Run(IServerConnection& connection, const wire::RunImportRequest& request, int nSequence,
        const JobHandler& handler, int nAttempt);
    void Fail(int nErrorCode, const std::string& sDetail);

    IServerConnection& m_connection;
    GroupLogical::ImportRequest_t m_request;
    const JobHandler m_handler;
    std::string m_sJob;
    int m_nSequence = 0;
    std::size_t m_nSent = 0;
};

} // namespace PlatformLogic
