#include "DeviceService.h"

#include "ServiceError.h"

#include <wire/Operations.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>

namespace Platform {

using GroupLogical::DeviceAddInfo_t;
using GroupLogical::FailedItem_t;

namespace {

/// The number behind a device ID; nullopt for a text that no device has as its ID.
std::optional<qlonglong> NumberOf(const std::string& sDeviceId)
{
    qlonglong nId = 0;
    const char* const pEnd = sDeviceId.data() + sDeviceId.size();
    const auto [pStop, fault] = std::from_chars(sDeviceId.data(), pEnd, nId);
    if (fault != std::errc() || pStop != pEnd || std::to_string(nId) != sDeviceId)
        return std::nullopt;
    return nId;
}

std::optional<DeviceAddInfo_t> Find(Database& database, const std::string& sDeviceId)
{
    const std::optional<qlonglong> optId = NumberOf(sDeviceId);
    if (!optId)
        return std::nullopt;
    Rows rows = database.Run(
        QStringLiteral("SELECT name, address, port, category, model, org_code, manufacturer, protocol, "
                       "access_direction, serial_number, user_name, remark, video_channels, alarm_inputs, "
                       "alarm_outputs, version FROM device WHERE id = ?"),
        {*optId});
    if (!rows.Next())
        return std::nullopt;
    DeviceAddInfo_t device;
    device.sDeviceId = sDeviceId;
    device.sName = rows.Text(0);
    device.sIp = rows.Text(1);
    device.nPort = rows.Int(2);
    device.nCategory = rows.Int(3);
    device.sModel = rows.Text(4);
    device.sOrgCode = rows.Text(5);
    device.sManufacturer = rows.Text(6);
    device.sProtocol = rows.Text(7);
    device.nAccessDirection = rows.Int(8);
    device.sSerialNumber = rows.Text(9);
    device.sUserName = rows.Text(10);
    device.sRemark = rows.Text(11);
    device.nVideoChannels = rows.Int(12);
    device.nAlarmInputs = rows.Int(13);
    device.nAlarmOutputs = rows.Int(14);
    device.nVersion = rows.Big(15);
    return device;
}

std::vector<GroupLogical::DeviceReference_t> ReferencesOf(Database& database, const std::string& sDeviceId)
{
    std::vector<GroupLogical::DeviceReference_t> vecReferences;
    Rows rows = database.Run(
        QStringLiteral("SELECT kind, name FROM device_reference WHERE device_id = ? ORDER BY kind, name"),
        {NumberOf(sDeviceId).value_or(0)});
    while (rows.Next())
        vecReferences.push_back({sDeviceId, rows.Int(0), rows.Text(1)});
    return vecReferences;
}

int ErrorOfTask(int nKind)
{
    switch (nKind) {
    case TaskExtractingLogs:
        return UICommonMdl::ErrorDeviceExtractingLogs;
    case TaskExtractingPersons:
        return UICommonMdl::ErrorDeviceExtractingPersons;
    case TaskGettingRecordings:
        return UICommonMdl::ErrorDeviceGettingRecordings;
    default:
        return UICommonMdl::ErrorDeviceUpdating;
    }
}

int ErrorOfReference(int nKind)
{
    switch (nKind) {
    case GroupLogical::RefRecordPlan:
        return UICommonMdl::ErrorDeviceUsedByRecordPlan;
    case GroupLogical::RefAlarmScheme:
        return UICommonMdl::ErrorDeviceUsedByAlarmScheme;
    default:
        return UICommonMdl::ErrorReferenced;
    }
}

/// Why the device cannot be deleted; nullopt when it can.
std::optional<FailedItem_t> Obstacle(Database& database, const DeviceAddInfo_t& device, int nMode)
{
    {
        Rows rows = database.Run(QStringLiteral("SELECT MIN(kind) FROM device_task WHERE device_id = ?"),
            {NumberOf(device.sDeviceId).value_or(0)});
        if (rows.Next() && !rows.IsNull(0))
            return FailedItem_t{device.sDeviceId, device.sName, ErrorOfTask(rows.Int(0)), {}};
    }
    if (nMode == GroupLogical::DeleteForced)
        return std::nullopt;
    const auto vecReferences = ReferencesOf(database, device.sDeviceId);
    if (vecReferences.empty())
        return std::nullopt;
    // Record plans and alarm schemes have messages of their own and go before the others.
    FailedItem_t failed{device.sDeviceId, device.sName, UICommonMdl::ErrorReferenced, {}};
    for (const int nKind : {GroupLogical::RefAlarmScheme, GroupLogical::RefRecordPlan})
        if (std::any_of(vecReferences.begin(), vecReferences.end(),
                [nKind](const auto& reference) { return reference.nKind == nKind; }))
            failed.nErrorCode = ErrorOfReference(nKind);
    for (const auto& reference : vecReferences)
        failed.sDetail += (failed.sDetail.empty() ? "" : ", ") + reference.sName;
    return failed;
}

std::vector<std::string> CheckedIds(const std::vector<std::string>& vecIds)
{
    if (vecIds.size() > DeviceService::BatchLimit)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "vecDeviceIds");
    std::vector<std::string> vecUnique;
    std::set<std::string> seen;
    for (const std::string& sId : vecIds)
        if (seen.insert(sId).second)
            vecUnique.push_back(sId);
    return vecUnique;
}

FailedItem_t Unknown(const std::string& sDeviceId)
{
    return {sDeviceId, {}, UICommonMdl::ErrorNotFound, {}};
}

} // namespace

DeviceService::DeviceService(
    DatabasePool& pool, EventHub& hub, const AuditService& audit, Generations& generations)
    : m_pool(pool)
    , m_hub(hub)
    , m_audit(audit)
    , m_generations(generations)
    , m_pages(generations)
{
}

GroupLogical::DevicePage_t DeviceService::QueryPage(const GroupLogical::DevicePageRequest_t& request)
{
    return m_pool.Read([&](Database& database) { return m_pages.Page(database, request); });
}

GroupLogical::DevicePage_t DeviceService::Export(const GroupLogical::DevicePageRequest_t& request)
{
    return m_pool.Read([&](Database& database) { return m_pages.All(database, request); });
}

DeviceAddInfo_t DeviceService::QueryDetail(const wire::DeviceId& id)
{
    return m_pool.Read([&](Database& database) {
        auto optDevice = Find(database, id.sDeviceId);
        if (!optDevice)
            throw ServiceError(UICommonMdl::ErrorNotFound);
        return *optDevice;
    });
}

wire::DeviceReferences DeviceService::QueryReferences(const wire::DeviceId& id)
{
    return m_pool.Read([&](Database& database) {
        if (!Find(database, id.sDeviceId))
            throw ServiceError(UICommonMdl::ErrorNotFound);
        return wire::DeviceReferences{ReferencesOf(database, id.sDeviceId)};
    });
}

wire::DeviceTypes DeviceService::QueryTypes()
{
    return m_pool.Read([](Database& database) {
        wire::DeviceTypes types;
        // One step down the index a category, however many devices there are.
        Rows rows = database.Run(QStringLiteral(
            "WITH RECURSIVE found (category) AS (SELECT MIN(category) FROM device UNION ALL "
            "SELECT (SELECT MIN(d.category) FROM device d WHERE d.category > found.category) FROM found "
            "WHERE found.category IS NOT NULL) SELECT category FROM found WHERE category IS NOT NULL"));
        while (rows.Next())
            types.vecTypes.push_back(rows.Int(0));
        return types;
    });
}

wire::BatchAnswer DeviceService::Delete(const Context& context, const wire::DeleteDeviceRequest& request)
{
    if (request.nMode != GroupLogical::DeleteNormal && request.nMode != GroupLogical::DeleteForced)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "nMode");
    const std::vector<std::string> vecIds = CheckedIds(request.vecDeviceIds);
    wire::BatchAnswer answer = m_pool.Write([&](Database& database) {
        wire::BatchAnswer failed;
        for (const std::string& sId : vecIds) {
            const auto optDevice = Find(database, sId);
            if (!optDevice) {
                failed.vecFailed.push_back(Unknown(sId));
                continue;
            }
            if (auto optObstacle = Obstacle(database, *optDevice, request.nMode)) {
                failed.vecFailed.push_back(std::move(*optObstacle));
                continue;
            }
            // What refers to the device goes with it and is told in the log.
            nlohmann::json before = *optDevice;
            before["vecReferences"] = ReferencesOf(database, sId);
            database.Run(QStringLiteral("DELETE FROM device WHERE id = ?"), {NumberOf(sId).value_or(0)});
            m_audit.Write(database, context, wire::DeleteDevice::Name, sId, before, nullptr);
        }
        return failed;
    });
    if (answer.vecFailed.size() < vecIds.size())
        Changed();
    return answer;
}

wire::BatchAnswer DeviceService::Move(const Context& context, const wire::MoveDeviceRequest& request)
{
    const std::vector<std::string> vecIds = CheckedIds(request.vecDeviceIds);
    wire::BatchAnswer answer = m_pool.Write([&](Database& database) {
        {
            Rows rows = database.Run(
                QStringLiteral("SELECT 1 FROM organization WHERE code = ?"), {TextValue(request.sOrgCode)});
            if (!rows.Next())
                throw ServiceError(UICommonMdl::ErrorNotFound, "sOrgCode");
        }
        wire::BatchAnswer failed;
        for (const std::string& sId : vecIds) {
            const auto optBefore = Find(database, sId);
            if (!optBefore) {
                failed.vecFailed.push_back(Unknown(sId));
                continue;
            }
            if (optBefore->sOrgCode == request.sOrgCode)
                continue;
            DeviceAddInfo_t after = *optBefore;
            after.sOrgCode = request.sOrgCode;
            ++after.nVersion;
            database.Run(QStringLiteral("UPDATE device SET org_code = ?, version = ? WHERE id = ?"),
                {TextValue(after.sOrgCode), static_cast<qlonglong>(after.nVersion),
                    NumberOf(sId).value_or(0)});
            m_audit.Write(database, context, wire::MoveDevice::Name, sId, *optBefore, after);
        }
        return failed;
    });
    if (answer.vecFailed.size() < vecIds.size())
        Changed();
    return answer;
}

void DeviceService::Changed()
{
    ++m_generations.devices;
    m_hub.Publish(wire::event::DevicesChanged);
}

} // namespace Platform
