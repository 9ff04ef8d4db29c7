#pragma once

#include "PhotoStore.h"
#include "devices/Drivers.h"
#include "http/EventHub.h"
#include "services/Context.h"
#include "services/JobService.h"
#include "services/SecretBox.h"
#include "store/DatabasePool.h"

#include <wire/Records.h>

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

namespace Platform {

/// Brings the rights of persons to the devices that their permissions name, and takes them away there. What
/// has to be done is written in the transaction of the change, so that a stop loses nothing, and is worked
/// off on a thread of its own, devices side by side. What fails stays failed until the person is changed or
/// re-issued; what failed because a device could not be reached is tried again when it comes online. Any
/// thread; faults are ServiceError.
class AuthorizationService
{
public:
    /// All are borrowed.
    AuthorizationService(DatabasePool& pool, EventHub& hub, JobService& jobs, const SecretBox& box,
        const Drivers& drivers, const PhotoStore& photos);
    /// Waits for the devices that are being talked to.
    ~AuthorizationService();
    AuthorizationService(const AuthorizationService&) = delete;
    AuthorizationService& operator=(const AuthorizationService&) = delete;

    /// The person is another one now, or new: notes what its devices have to be told.
    static void PersonChanged(Database& database, const std::string& sPersonId);
    /// Persons are about to be deleted: notes that their rights go. sCondition is on person_id.
    static void PersonsRemoved(Database& database, const QString& sCondition, const QVariantList& values);
    /// Begins with what is noted, after the transaction.
    void SendSoon();
    void DevicesOnline(const std::vector<std::int64_t>& vecDeviceIds);

    wire::AuthorizeExceptions Exceptions(const Context& context, const wire::PersonId& id);
    /// A job that sends everything of the person again; its items are what is left: AuthorizeException_t.
    wire::Job Reissue(const Context& context, const wire::PersonId& id);

private:
    struct Task
    {
        std::int64_t nPersonId = 0;
        std::int64_t nDeviceId = 0;
        bool bRemoval = false;
        std::int64_t nRevision = 0;
    };

    void Serve(const std::stop_token& stop);
    std::vector<std::int64_t> PendingDevices();
    std::vector<Task> Pending(std::int64_t nDeviceId);
    void ServeDevice(std::int64_t nDeviceId, const std::stop_token& stop);
    /// False when the device as a whole does not take anything now.
    bool Send(const Task& task);
    void SendOne(const Task& task, std::vector<PersonRefusal>& vecRefusals);
    void Keep(const Task& task, const std::vector<PersonRefusal>& vecRefusals);
    std::shared_ptr<std::mutex> LockOf(std::int64_t nDeviceId);

    DatabasePool& m_pool;
    EventHub& m_hub;
    JobService& m_jobs;
    const SecretBox& m_box;
    const Drivers& m_drivers;
    const PhotoStore& m_photos;
    std::mutex m_mutex; ///< guards the following
    std::condition_variable_any m_changed;
    bool m_bWork = true; ///< what an earlier run has left is looked for first
    std::map<std::int64_t, std::shared_ptr<std::mutex>> m_mapLocks;
    std::jthread m_thread;
};

} // namespace Platform
