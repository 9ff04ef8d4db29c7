#include "AuthorizationService.h"

#include "Log.h"
#include "PersonRecords.h"
#include "PersonRules.h"
#include "ServiceError.h"
#include "services/DeviceRecords.h"
#include "services/Parallel.h"

#include <wire/Operations.h>

namespace Platform {

using AccessControlLogical::AuthorizeException_t;

namespace {

/// Value of the column state.
enum State : int
{
    StatePending = 0,
    StateDone = 1,
    StateFailed = 2
};

constexpr std::size_t DevicesAtATime = 8;
constexpr int TasksAtATime = 200;
constexpr auto RetryPause = std::chrono::seconds(2);

/// The device does not take anything, whatever is sent.
bool IsOfDevice(int nCode)
{
    switch (nCode) {
    case UICommonMdl::ErrorDeviceUnreachable:
    case UICommonMdl::ErrorDeviceTimeOut:
    case UICommonMdl::ErrorDevicePassword:
    case UICommonMdl::ErrorDeviceNotSupported:
    case UICommonMdl::ErrorDeviceNotInitialized:
        return true;
    default:
        return false;
    }
}

std::string RefusalsText(const std::vector<PersonRefusal>& vecRefusals)
{
    nlohmann::json json = nlohmann::json::array();
    for (const PersonRefusal& refusal : vecRefusals)
        json.push_back(
            {{"credential", refusal.nCredential}, {"code", refusal.nCode}, {"text", refusal.sText}});
    return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

/// One exception for each thing that the device refused.
void Append(std::vector<AuthorizeException_t>& vecExceptions, const AuthorizeException_t& common,
    const std::string& sRefusals)
{
    const nlohmann::json json = nlohmann::json::parse(sRefusals, nullptr, false);
    if (!json.is_array())
        return;
    for (const nlohmann::json& refusal : json) {
        AuthorizeException_t exception = common;
        exception.nCredential = refusal.value("credential", 0);
        exception.nErrorCode = refusal.value("code", 0);
        exception.sDetail = refusal.value("text", "");
        vecExceptions.push_back(std::move(exception));
    }
}

} // namespace

AuthorizationService::AuthorizationService(DatabasePool& pool, EventHub& hub, JobService& jobs,
    const SecretBox& box, const Drivers& drivers, const PhotoStore& photos)
    : m_pool(pool)
    , m_hub(hub)
    , m_jobs(jobs)
    , m_box(box)
    , m_drivers(drivers)
    , m_photos(photos)
    , m_thread([this](const std::stop_token& stop) { Serve(stop); })
{
}

AuthorizationService::~AuthorizationService()
{
    m_thread.request_stop();
    m_thread.join();
}

void AuthorizationService::PersonChanged(Database& database, const std::string& sPersonId)
{
    const auto nId = static_cast<qlonglong>(PersonRules::NumberOf(sPersonId).value_or(0));
    const QString sWanted = QStringLiteral(
        "SELECT d.device_id FROM person_access_group g JOIN access_group_door d ON d.group_id = g.choice_id "
        "WHERE g.person_id = ? UNION "
        "SELECT f.device_id FROM person_lift_floor p JOIN lift_floor f ON f.id = p.choice_id "
        "WHERE p.person_id = ?");
    database.Run(
        QStringLiteral("UPDATE person_authorization SET removal = 1, state = 0, revision = revision + 1 "
                       "WHERE person_id = ? AND device_id NOT IN (")
            + sWanted + QLatin1Char(')'),
        {nId, nId, nId});
    database.Run(
        QStringLiteral("INSERT INTO person_authorization (person_id, device_id, removal, state, revision) "
                       "SELECT CAST(? AS BIGINT), w.device_id, 0, 0, 1 FROM (")
            + sWanted
            + QStringLiteral(") w WHERE 1 = 1 ON CONFLICT (person_id, device_id) DO UPDATE SET removal = 0, "
                             "state = 0, revision = person_authorization.revision + 1"),
        {nId, nId, nId});
}

void AuthorizationService::PersonsRemoved(
    Database& database, const QString& sCondition, const QVariantList& values)
{
    database.Run(
        QStringLiteral("UPDATE person_authorization SET removal = 1, state = 0, revision = revision + 1 "
                       "WHERE ")
            + sCondition,
        values);
}

void AuthorizationService::SendSoon()
{
    const std::lock_guard lock(m_mutex);
    m_bWork = true;
    m_changed.notify_all();
}

void AuthorizationService::DevicesOnline(const std::vector<std::int64_t>& vecDeviceIds)
{
    int nWaiting = 0;
    m_pool.Write([&](Database& database) {
        for (const std::int64_t nDeviceId : vecDeviceIds)
            nWaiting +=
                database
                    .Run(QStringLiteral("UPDATE person_authorization SET state = 0 WHERE device_id = ? "
                                        "AND state = 2 AND error_code IN (?, ?)"),
                        {static_cast<qlonglong>(nDeviceId), int(UICommonMdl::ErrorDeviceUnreachable),
                            int(UICommonMdl::ErrorDeviceTimeOut)})
                    .Affected();
    });
    if (nWaiting > 0)
        SendSoon();
}

void AuthorizationService::Serve(const std::stop_token& stop)
{
    std::unique_lock lock(m_mutex);
    while (m_changed.wait(lock, stop, [this] { return m_bWork; }) && !stop.stop_requested()) {
        m_bWork = false;
        lock.unlock();
        bool bBusy = false;
        try {
            const std::vector<std::int64_t> vecDevices = PendingDevices();
            ForEachInParallel(
                vecDevices, stop,
                [&](std::int64_t nDeviceId) {
                    try {
                        ServeDevice(nDeviceId, stop);
                    } catch (const ServiceError& error) {
                        Log::Warning("authorization", "Rights could not be brought to a device",
                            {{"device", std::to_string(nDeviceId)}, {"error", error.Detail()}});
                    }
                },
                DevicesAtATime);
            if (!vecDevices.empty())
                m_hub.Publish(wire::event::PersonsChanged);
        } catch (const ServiceError&) {
            bBusy = true;
        }
        lock.lock();
        if (bBusy) {
            // The database did not answer; nothing is lost, and nobody may call again.
            m_changed.wait_for(lock, stop, RetryPause, [] { return false; });
            m_bWork = true;
        }
    }
}

std::vector<std::int64_t> AuthorizationService::PendingDevices()
{
    return m_pool.Read([](Database& database) {
        std::vector<std::int64_t> vecDevices;
        Rows rows = database.Run(
            QStringLiteral("SELECT DISTINCT device_id FROM person_authorization WHERE state = 0"));
        while (rows.Next())
            vecDevices.push_back(rows.Big(0));
        return vecDevices;
    });
}

std::vector<AuthorizationService::Task> AuthorizationService::Pending(std::int64_t nDeviceId)
{
    return m_pool.Read([nDeviceId](Database& database) {
        std::vector<Task> vecTasks;
        Rows rows =
            database.Run(QStringLiteral("SELECT person_id, removal, revision FROM person_authorization "
                                        "WHERE device_id = ? AND state = 0 LIMIT ?"),
                {static_cast<qlonglong>(nDeviceId), TasksAtATime});
        while (rows.Next())
            vecTasks.push_back({rows.Big(0), nDeviceId, rows.Int(1) != 0, rows.Big(2)});
        return vecTasks;
    });
}

std::shared_ptr<std::mutex> AuthorizationService::LockOf(std::int64_t nDeviceId)
{
    const std::lock_guard lock(m_mutex);
    auto& pLock = m_mapLocks[nDeviceId];
    if (!pLock)
        pLock = std::make_shared<std::mutex>();
    return pLock;
}

void AuthorizationService::ServeDevice(std::int64_t nDeviceId, const std::stop_token& stop)
{
    for (auto vecTasks = Pending(nDeviceId); !vecTasks.empty(); vecTasks = Pending(nDeviceId)) {
        for (const Task& task : vecTasks) {
            if (stop.stop_requested())
                return;
            if (Send(task))
                continue;
            // The others would wait for the same time-out.
            m_pool.Write([&](Database& database) {
                database.Run(
                    QStringLiteral("UPDATE person_authorization SET state = 2, "
                                   "(error_code, refusals) = (SELECT f.error_code, f.refusals "
                                   "FROM person_authorization f WHERE f.person_id = ? AND f.device_id = ?) "
                                   "WHERE device_id = ? AND state = 0"),
                    {static_cast<qlonglong>(task.nPersonId), static_cast<qlonglong>(nDeviceId),
                        static_cast<qlonglong>(nDeviceId)});
            });
            return;
        }
    }
}

bool AuthorizationService::Send(const Task& task)
{
    const auto pLock = LockOf(task.nDeviceId);
    const std::lock_guard lock(*pLock);
    std::vector<PersonRefusal> vecRefusals;
    try {
        SendOne(task, vecRefusals);
    } catch (const DeviceError& error) {
        vecRefusals = {{AccessControlLogical::CredentialPerson, error.Code(), error.what()}};
    }
    Keep(task, vecRefusals);
    return vecRefusals.empty() || !IsOfDevice(vecRefusals.front().nCode);
}

void AuthorizationService::SendOne(const Task& task, std::vector<PersonRefusal>& vecRefusals)
{
    const std::string sPersonId = std::to_string(task.nPersonId);
    std::optional<PersonRecords::Credentials> optCredentials;
    const auto optLogin = m_pool.Read([&](Database& database) {
        if (!task.bRemoval)
            optCredentials = PersonRecords::FindCredentials(database, m_box, sPersonId);
        return DeviceRecords::FindLogin(database, m_box, std::to_string(task.nDeviceId));
    });
    if (!optLogin)
        return;
    DeviceDriver* const pDriver = m_drivers.Find(optLogin->sProtocol);
    if (!pDriver)
        throw DeviceError(UICommonMdl::ErrorDeviceNotSupported);
    if (!optCredentials) {
        pDriver->RemovePerson(optLogin->access, sPersonId);
        return;
    }
    DevicePerson person{std::move(optCredentials->person), {}};
    if (!optCredentials->sPhoto.empty())
        person.sPhoto = m_photos.Read(optCredentials->sPhoto).toBase64().toStdString();
    vecRefusals = pDriver->PutPerson(optLogin->access, person);
}

void AuthorizationService::Keep(const Task& task, const std::vector<PersonRefusal>& vecRefusals)
{
    const auto nPerson = static_cast<qlonglong>(task.nPersonId);
    const auto nDevice = static_cast<qlonglong>(task.nDeviceId);
    const auto nRevision = static_cast<qlonglong>(task.nRevision);
    m_pool.Write([&](Database& database) {
        // With another revision the person was changed meanwhile, and has to be sent again.
        if (vecRefusals.empty() && task.bRemoval)
            database.Run(
                QStringLiteral("DELETE FROM person_authorization WHERE person_id = ? AND device_id = ? "
                               "AND revision = ?"),
                {nPerson, nDevice, nRevision});
        else
            database.Run(
                QStringLiteral("UPDATE person_authorization SET state = ?, error_code = ?, refusals = ? "
                               "WHERE person_id = ? AND device_id = ? AND revision = ?"),
                {vecRefusals.empty() ? int(StateDone) : int(StateFailed),
                    vecRefusals.empty() ? 0 : vecRefusals.front().nCode,
                    TextValue(vecRefusals.empty() ? std::string() : RefusalsText(vecRefusals)), nPerson,
                    nDevice, nRevision});
    });
}

wire::AuthorizeExceptions AuthorizationService::Exceptions(const Context& context, const wire::PersonId& id)
{
    const auto nId = static_cast<qlonglong>(PersonRules::NumberOf(id.sPersonId).value_or(0));
    return m_pool.Read([&](Database& database) {
        wire::AuthorizeExceptions answer;
        std::map<std::string, std::string> mapChannels;
        {
            Rows rows = database.Run(
                QStringLiteral(
                    "SELECT DISTINCT d.device_id, d.channel, d.channel_name FROM person_access_group g "
                    "JOIN access_group_door d ON d.group_id = g.choice_id WHERE g.person_id = ? "
                    "ORDER BY d.device_id, d.channel"),
                {nId});
            while (rows.Next()) {
                std::string& sChannels = mapChannels[rows.Text(0)];
                sChannels += (sChannels.empty() ? "" : ", ") + rows.Text(2);
            }
        }
        QVariantList values{nId};
        const QString sReached = context.Scope().AndDevice(QStringLiteral("d.id"), values);
        Rows rows = database.Run(
            QLatin1String("SELECT a.device_id, d.name, p.name, a.removal, a.refusals "
                          "FROM person_authorization a JOIN device d ON d.id = a.device_id "
                          "LEFT JOIN person p ON p.id = a.person_id WHERE a.person_id = ? AND a.state = 2")
                + sReached + QLatin1String(" ORDER BY d.name_key"),
            values);
        while (rows.Next()) {
            AuthorizeException_t exception;
            exception.sPersonId = id.sPersonId;
            exception.sDeviceId = rows.Text(0);
            exception.sDeviceName = rows.Text(1);
            exception.sPersonName = rows.Text(2);
            exception.bRemoval = rows.Int(3) != 0;
            exception.sChannelName = mapChannels[exception.sDeviceId];
            Append(answer.vecExceptions, exception, rows.Text(4));
        }
        return answer;
    });
}

wire::Job AuthorizationService::Reissue(const Context& context, const wire::PersonId& id)
{
    const bool bKnown = m_pool.Write([&](Database& database) {
        if (!PersonRecords::Find(database, id.sPersonId))
            return false;
        PersonChanged(database, id.sPersonId);
        return true;
    });
    if (!bKnown)
        throw ServiceError(UICommonMdl::ErrorNotFound);
    return m_jobs.Run(context, [this, context, id](Job& job) {
        const std::vector<Task> vecTasks = m_pool.Read([&](Database& database) {
            std::vector<Task> vecFound;
            const auto nId = static_cast<qlonglong>(PersonRules::NumberOf(id.sPersonId).value_or(0));
            Rows rows = database.Run(QStringLiteral("SELECT device_id, removal, revision FROM "
                                                    "person_authorization WHERE person_id = ?"),
                {nId});
            while (rows.Next())
                vecFound.push_back({nId, rows.Big(0), rows.Int(1) != 0, rows.Big(2)});
            return vecFound;
        });
        job.SetTotal(static_cast<int>(vecTasks.size()));
        ForEachInParallel(
            vecTasks, job.StopToken(),
            [this](const Task& task) {
                try {
                    Send(task);
                } catch (const ServiceError& error) {
                    Log::Warning("authorization", "A right could not be brought to a device",
                        {{"device", std::to_string(task.nDeviceId)}, {"error", error.Detail()}});
                }
            },
            DevicesAtATime);
        for (const AuthorizeException_t& exception : Exceptions(context, id).vecExceptions)
            job.AddItem(exception);
        m_hub.Publish(wire::event::PersonsChanged);
    });
}

} // namespace Platform
