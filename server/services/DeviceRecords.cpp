#include "DeviceRecords.h"

#include "DeviceRules.h"
#include "TextRules.h"

#include <charconv>

namespace Platform::DeviceRecords {

using GroupLogical::DeviceAddInfo_t;

namespace {

// One list for reading and writing; Values() and ReadDevice() follow its order.
#define DEVICE_COLUMNS                                                                                       \
    "name, address, port, category, model, org_code, manufacturer, protocol, access_direction, "             \
    "serial_number, user_name, remark, video_channels, alarm_inputs, alarm_outputs, add_mode, register_id, " \
    "device_type, series, server_id, led_type, sip_id, access_channels, decode_channels, lifts, "            \
    "lift_floors, pos_channels, combine, version"
#define DEVICE_MARKS "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?"
// What follows from name and address.
#define KEY_COLUMNS "name_key, address_key, search_key"

QVariantList Values(const DeviceAddInfo_t& device)
{
    const std::string& sAddress = DeviceRules::AddressOf(device);
    return {TextValue(device.sName), TextValue(sAddress), device.nPort, device.nCategory,
        TextValue(device.sModel), TextValue(device.sOrgCode), TextValue(device.sManufacturer),
        TextValue(device.sProtocol), device.nAccessDirection, TextValue(device.sSerialNumber),
        TextValue(device.sUserName), TextValue(device.sRemark), device.nVideoChannels, device.nAlarmInputs,
        device.nAlarmOutputs, device.nAddMode, TextValue(device.sRegisterId), TextValue(device.sDeviceType),
        TextValue(device.sSeries), TextValue(device.sServerId), device.nLedType, TextValue(device.sSipId),
        device.nAccessChannels, device.nDecodeChannels, device.nLifts, device.nLiftFloors,
        device.nPosChannels, device.bCombine ? 1 : 0, static_cast<qlonglong>(device.nVersion),
        TextValue(FoldCase(device.sName)), TextValue(AddressSortKey(sAddress)),
        TextValue(DeviceSearchKey(device.sName, sAddress))};
}

DeviceAddInfo_t ReadDevice(const Rows& rows)
{
    DeviceAddInfo_t device;
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
    device.nAddMode = rows.Int(15);
    device.sRegisterId = rows.Text(16);
    device.sDeviceType = rows.Text(17);
    device.sSeries = rows.Text(18);
    device.sServerId = rows.Text(19);
    device.nLedType = rows.Int(20);
    device.sSipId = rows.Text(21);
    device.nAccessChannels = rows.Int(22);
    device.nDecodeChannels = rows.Int(23);
    device.nLifts = rows.Int(24);
    device.nLiftFloors = rows.Int(25);
    device.nPosChannels = rows.Int(26);
    device.bCombine = rows.Int(27) != 0;
    device.nVersion = rows.Big(28);
    if (device.nAddMode == GroupLogical::AddByDomain)
        device.sDomain = device.sIp;
    return device;
}

} // namespace

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
    Rows rows = database.Run(QStringLiteral("SELECT " DEVICE_COLUMNS " FROM device WHERE id = ?"), {*optId});
    if (!rows.Next())
        return std::nullopt;
    DeviceAddInfo_t device = ReadDevice(rows);
    device.sDeviceId = sDeviceId;
    return device;
}

Sealed Seal(const SecretBox& box, const DeviceAddInfo_t& device)
{
    Sealed sealed;
    if (!device.sPassword.empty())
        sealed.optPassword = box.Seal(device.sPassword);
    if (!device.sSipPassword.empty())
        sealed.optSipPassword = box.Seal(device.sSipPassword);
    return sealed;
}

qlonglong TakeNumbers(Database& database, std::size_t nCount)
{
    return database.NextNumber(QStringLiteral("device"), static_cast<std::int64_t>(nCount));
}

qlonglong Insert(Database& database, const DeviceAddInfo_t& device, const Sealed& sealed)
{
    const qlonglong nId = TakeNumbers(database, 1);
    Insert(database, nId, device, sealed);
    return nId;
}

void Insert(Database& database, qlonglong nId, const DeviceAddInfo_t& device, const Sealed& sealed)
{
    QVariantList values = Values(device);
    values << nId << TextValue(sealed.optPassword.value_or(""))
           << TextValue(sealed.optSipPassword.value_or(""));
    database.Run(QStringLiteral("INSERT INTO device (" DEVICE_COLUMNS ", " KEY_COLUMNS
                                ", id, password_sealed, sip_password_sealed) VALUES (" DEVICE_MARKS
                                ", ?, ?, ?, ?, ?, ?)"),
        values);
}

void Update(Database& database, const DeviceAddInfo_t& device, const Sealed& sealed)
{
    const QVariant id = NumberOf(device.sDeviceId).value_or(0);
    // What is known of another address does not hold for the new one.
    database.Run(QStringLiteral("UPDATE device SET online_state = 0, offline_reason = ? "
                                "WHERE id = ? AND (address <> ? OR port <> ?)"),
        {static_cast<int>(GroupLogical::ReasonNotProbed), id, TextValue(DeviceRules::AddressOf(device)),
            device.nPort});
    QVariantList values = Values(device);
    values << id;
    database.Run(QStringLiteral("UPDATE device SET (" DEVICE_COLUMNS ", " KEY_COLUMNS ") = (" DEVICE_MARKS
                                ", ?, ?, ?) WHERE id = ?"),
        values);
    if (sealed.optPassword)
        SetPassword(database, device.sDeviceId, *sealed.optPassword);
    if (sealed.optSipPassword)
        database.Run(QStringLiteral("UPDATE device SET sip_password_sealed = ? WHERE id = ?"),
            {TextValue(*sealed.optSipPassword), id});
}

void SetPassword(Database& database, const std::string& sDeviceId, const std::string& sSealed)
{
    database.Run(QStringLiteral("UPDATE device SET password_sealed = ? WHERE id = ?"),
        {TextValue(sSealed), NumberOf(sDeviceId).value_or(0)});
}

std::optional<Login> FindLogin(Database& database, const SecretBox& box, const std::string& sDeviceId)
{
    Rows rows = database.Run(
        QStringLiteral(
            "SELECT name, protocol, address, port, user_name, password_sealed FROM device WHERE id = ?"),
        {NumberOf(sDeviceId).value_or(0)});
    if (!rows.Next())
        return std::nullopt;
    return Login{rows.Text(0), rows.Text(1),
        {rows.Text(2), rows.Int(3), rows.Text(4), box.Open(rows.Text(5)).value_or("")}};
}

std::string FindByAddress(Database& database, const std::string& sAddress, int nPort)
{
    if (sAddress.empty())
        return {};
    Rows rows = database.Run(
        QStringLiteral("SELECT id FROM device WHERE address_key = ? AND port = ? ORDER BY id LIMIT 1"),
        {TextValue(AddressSortKey(sAddress)), nPort});
    return rows.Next() ? std::to_string(rows.Big(0)) : std::string();
}

} // namespace Platform::DeviceRecords
