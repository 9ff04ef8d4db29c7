#include "DeviceService.h"

#include "DeviceRecords.h"
#include "DeviceRules.h"
#include "ServiceError.h"
#include "TextRules.h"
#include "accounts/RoleGrants.h"

#include <wire/Operations.h>

#include <algorithm>
#include <optional>
#include <set>

namespace Platform {

using DeviceRecords::Find;
using DeviceRecords::NumberOf;
using GroupLogical::DeviceAddInfo_t;
using GroupLogical::FailedItem_t;

namespace {

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

void CheckOrganization(Database& database, const Context& context, const std::string& sOrgCode)
{
    context.Scope().CheckOrganization(database, sOrgCode);
    Rows rows =
        database.Run(QStringLiteral("SELECT 1 FROM organization WHERE code = ?"), {TextValue(sOrgCode)});
    if (!rows.Next())
        throw ServiceError(UICommonMdl::ErrorNotFound, "sOrgCode");
}

/// nullopt for a device that is not there, or that the account does not reach.
std::optional<DeviceAddInfo_t> FindReached(
    Database& database, const Context& context, const std::string& sDeviceId)
{
    if (!context.Scope().HoldsDevice(database, NumberOf(sDeviceId).value_or(0)))
        return std::nullopt;
    return Find(database, sDeviceId);
}

DeviceAddInfo_t Checked(const DeviceAddInfo_t& device, DeviceRules::Secrets secrets)
{
    DeviceAddInfo_t cleaned = DeviceRules::Cleaned(device);
    if (const std::string sField = DeviceRules::FaultyField(cleaned, secrets); !sField.empty())
        throw ServiceError(UICommonMdl::ErrorInvalidInput, sField);
    return cleaned;
}

FailedItem_t Unknown(const std::string& sDeviceId)
{
    return {sDeviceId, {}, UICommonMdl::ErrorNotFound, {}};
}

} // namespace

DeviceService::DeviceService(DatabasePool& pool, EventHub& hub, const AuditService& audit,
    Generations& generations, const SecretBox& box, AddressChanged addressChanged)
    : m_pool(pool)
    , m_hub(hub)
    , m_audit(audit)
    , m_generations(generations)
    , m_box(box)
    , m_addressChanged(std::move(addressChanged))
    , m_pages(generations)
{
}

GroupLogical::DevicePage_t DeviceService::QueryPage(
    const Context& context, const GroupLogical::DevicePageRequest_t& request)
{
    return m_pool.Read([&](Database& database) { return m_pages.Page(database, context.Scope(), request); });
}

GroupLogical::DevicePage_t DeviceService::Export(
    const Context& context, const GroupLogical::DevicePageRequest_t& request)
{
    return m_pool.Read([&](Database& database) { return m_pages.All(database, context.Scope(), request); });
}

DeviceAddInfo_t DeviceService::QueryDetail(const Context& context, const wire::DeviceId& id)
{
    return m_pool.Read([&](Database& database) {
        context.Scope().CheckDevice(database, id.sDeviceId);
        auto optDevice = Find(database, id.sDeviceId);
        if (!optDevice)
            throw ServiceError(UICommonMdl::ErrorNotFound);
        return *optDevice;
    });
}

wire::DeviceReferences DeviceService::QueryReferences(const Context& context, const wire::DeviceId& id)
{
    return m_pool.Read([&](Database& database) {
        context.Scope().CheckDevice(database, id.sDeviceId);
        if (!Find(database, id.sDeviceId))
            throw ServiceError(UICommonMdl::ErrorNotFound);
        return wire::DeviceReferences{ReferencesOf(database, id.sDeviceId)};
    });
}

wire::DeviceTypes DeviceService::QueryTypes(const Context& context)
{
    return m_pool.Read([&context](Database& database) {
        wire::DeviceTypes types;
        QVariantList values;
        // One step down the index a category, however many devices there are.
        QString sSql = QStringLiteral(
            "WITH RECURSIVE found (category) AS (SELECT MIN(category) FROM device UNION ALL "
            "SELECT (SELECT MIN(d.category) FROM device d WHERE d.category > found.category) FROM found "
            "WHERE found.category IS NOT NULL) SELECT category FROM found WHERE category IS NOT NULL");
        if (!context.Scope().IsAll())
            sSql = QLatin1String("SELECT DISTINCT d.category FROM device d WHERE ")
                + context.Scope().DeviceTerm(QStringLiteral("d.id"), DeviceScope::Way::Collect, values)
                + QLatin1String(" ORDER BY d.category");
        Rows rows = database.Run(sSql, values);
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
            const auto optDevice = FindReached(database, context, sId);
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
        CheckOrganization(database, context, request.sOrgCode);
        wire::BatchAnswer failed;
        std::vector<std::string> vecMoved;
        for (const std::string& sId : vecIds) {
            const auto optBefore = FindReached(database, context, sId);
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
            vecMoved.push_back(sId);
        }
        RoleGrants::DevicesArrived(database, vecMoved);
        return failed;
    });
    if (answer.vecFailed.size() < vecIds.size())
        Changed();
    return answer;
}

void DeviceService::CheckUnique(Database& database, const DeviceAddInfo_t& device)
{
    const qlonglong nOwn = NumberOf(device.sDeviceId).value_or(0);
    const auto check = [&](const QString& sCondition, QVariantList values, int nCode, const char* szField) {
        values << nOwn;
        Rows rows = database.Run(QStringLiteral("SELECT 1 FROM device WHERE ") + sCondition
                + QStringLiteral(" AND id <> ? LIMIT 1"),
            values);
        if (rows.Next())
            throw ServiceError(nCode, szField);
    };
    check(QStringLiteral("name_key = ?"), {TextValue(FoldCase(device.sName))}, UICommonMdl::ErrorNameExists,
        "sName");
    const std::string& sAddress = DeviceRules::AddressOf(device);
    if (!sAddress.empty())
        check(QStringLiteral("address_key = ? AND port = ?"),
            {TextValue(AddressSortKey(sAddress)), device.nPort}, UICommonMdl::ErrorAddressExists,
            DeviceRules::AddressField(device));
    if (!device.sRegisterId.empty())
        check(QStringLiteral("register_id <> '' AND register_id = ?"), {TextValue(device.sRegisterId)},
            UICommonMdl::ErrorRegisterIdExists, "sRegisterId");
    if (device.nAddMode == GroupLogical::AddByP2P)
        check(QStringLiteral("add_mode = 5 AND serial_number = ?"), {TextValue(device.sSerialNumber)},
            UICommonMdl::ErrorSerialNumberExists, "sSerialNumber");
}

std::string DeviceService::AddOne(Database& database, const Context& context, DeviceAddInfo_t device)
{
    device.nVersion = 1;
    CheckUnique(database, device);
    device.sDeviceId =
        std::to_string(DeviceRecords::Insert(database, device, DeviceRecords::Seal(m_box, device)));
    m_audit.Write(database, context, wire::AddDevice::Name, device.sDeviceId, nullptr, device);
    return device.sDeviceId;
}

wire::DeviceAddAnswer DeviceService::AddSegment(
    Database& database, const Context& context, const DeviceAddInfo_t& device)
{
    wire::DeviceAddAnswer answer;
    for (const std::string& sAddress : DeviceRules::SegmentAddresses(device.sIpStart, device.sIpEnd)) {
        DeviceAddInfo_t one = device;
        one.nAddMode = GroupLogical::AddByIp;
        one.sIp = sAddress;
        one.sIpStart.clear();
        one.sIpEnd.clear();
        one.sName += ' ' + sAddress;
        try {
            one = Checked(one, DeviceRules::Secrets::Required);
            answer.vecAddedIds.push_back(AddOne(database, context, one));
        } catch (const ServiceError& error) {
            if (error.Code() < UICommonMdl::ErrorVersionConflict
                && error.Code() != UICommonMdl::ErrorInvalidInput)
                throw;
            answer.vecFailed.push_back({sAddress, one.sName, error.Code(), error.Detail()});
        }
    }
    return answer;
}

wire::DeviceAddAnswer DeviceService::Add(const Context& context, const DeviceAddInfo_t& device)
{
    const DeviceAddInfo_t checked = Checked(device, DeviceRules::Secrets::Required);
    wire::DeviceAddAnswer answer = m_pool.Write([&](Database& database) {
        CheckOrganization(database, context, checked.sOrgCode);
        wire::DeviceAddAnswer added = checked.nAddMode == GroupLogical::AddBySegment
            ? AddSegment(database, context, checked)
            : wire::DeviceAddAnswer{{AddOne(database, context, checked)}, {}};
        RoleGrants::DevicesArrived(database, added.vecAddedIds);
        return added;
    });
    if (!answer.vecAddedIds.empty())
        AddressesChanged(answer.vecAddedIds);
    return answer;
}

DeviceAddInfo_t DeviceService::Modify(const Context& context, const DeviceAddInfo_t& device)
{
    DeviceAddInfo_t after = Checked(device, DeviceRules::Secrets::Optional);
    if (after.nAddMode == GroupLogical::AddBySegment)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "nAddMode");
    after = m_pool.Write([&](Database& database) {
        const auto optBefore = FindReached(database, context, after.sDeviceId);
        if (!optBefore)
            throw ServiceError(UICommonMdl::ErrorNotFound);
        if (optBefore->nVersion != after.nVersion)
            throw ServiceError(UICommonMdl::ErrorVersionConflict);
        // A device may stay where it is, although that organisation is not reached itself.
        if (after.sOrgCode != optBefore->sOrgCode)
            CheckOrganization(database, context, after.sOrgCode);
        CheckUnique(database, after);
        ++after.nVersion;
        DeviceRecords::Update(database, after, DeviceRecords::Seal(m_box, after));
        if (after.sOrgCode != optBefore->sOrgCode)
            RoleGrants::DevicesArrived(database, {after.sDeviceId});
        m_audit.Write(database, context, wire::ModifyDevice::Name, after.sDeviceId, *optBefore, after);
        return *Find(database, after.sDeviceId);
    });
    AddressesChanged({after.sDeviceId});
    return after;
}

void DeviceService::Changed()
{
    ++m_generations.devices;
    m_hub.Publish(wire::event::DevicesChanged);
}

void DeviceService::AddressesChanged(const std::vector<std::string>& vecDeviceIds)
{
    Changed();
    m_addressChanged(vecDeviceIds);
}

} // namespace Platform
