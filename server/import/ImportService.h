#pragma once

#include "ImportRules.h"
#include "services/AuditService.h"
#include "services/Context.h"
#include "services/DeviceService.h"
#include "services/JobService.h"
#include "services/SecretBox.h"
#include "store/DatabasePool.h"

#include <wire/Records.h>

#include <QByteArray>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace Platform {

/// Imports of devices. An import is begun, gets its rows, and then runs as a job: its rows are checked, and
/// the good ones are written in one transaction, so that a server that stops in the middle has imported
/// nothing. Rows that fail are kept for an hour as a list to download. Any thread; faults are ServiceError.
class ImportService
{
public:
    static constexpr std::size_t RowLimit = 200000;
    static constexpr std::size_t ChunkLimit = 2000; ///< rows of one request
    static constexpr std::size_t WaitingLimit = 8; ///< imports of one account that are kept

    /// All are borrowed.
    ImportService(DatabasePool& pool, JobService& jobs, DeviceService& devices, const AuditService& audit,
        const SecretBox& box);

    wire::Job Begin(const Context& context, const wire::BeginImportRequest& request);
    void AddRows(const Context& context, const wire::ImportRowsRequest& request);
    /// An import from a sheet, ready to run.
    wire::UploadedSheet Upload(const Context& context, const QByteArray& baFile, const std::string& sOrgCode);
    /// Items of the job: GroupLogical::ImportFailure_t; its summary: GroupLogical::ImportState_t.
    void Run(const Context& context, const wire::RunImportRequest& request);

    struct File
    {
        QByteArray baContent;
        std::string sName;
        std::string sType; ///< MIME type
    };
    /// The rows that a finished import did not bring in, with what is wrong with them. Throws ErrorNotFound.
    File FailureList(const Context& context, const std::string& sJob);
    static File Template(const std::string& sKind);

private:
    struct Import;
    class Runner;

    std::shared_ptr<Import> Find(const Context& context, const std::string& sJob);
    std::shared_ptr<Import> Create(
        const Context& context, const std::string& sOrgCode, const std::string& sSource);
    int CountExisting(const Import& import);

    DatabasePool& m_pool;
    JobService& m_jobs;
    DeviceService& m_devices;
    const AuditService& m_audit;
    const SecretBox& m_box;
    std::mutex m_mutex;
    std::map<std::string, std::shared_ptr<Import>> m_mapImports; ///< by job
};

} // namespace Platform
