#include "DeviceWriter.h"

#include "services/TextRules.h"

namespace Platform {

DeviceWriter::DeviceWriter(Database& database)
    : m_database(database)
{
}

std::string DeviceWriter::AddOrganization(
    const std::string& sParentCode, const std::string& sName, const std::string& sRemark)
{
    std::string sCode = std::to_string(m_database.NextNumber(QStringLiteral("organization")));
    const QVariant code = TextValue(sCode);
    m_database.Run(QStringLiteral("INSERT INTO organization (code, parent_code, name, name_key, remark) "
                                  "VALUES (?, ?, ?, ?, ?)"),
        {code, TextValue(sParentCode), TextValue(sName), TextValue(FoldCase(sName)), TextValue(sRemark)});
    m_database.Run(
        QStringLiteral("INSERT INTO organization_ancestor (ancestor, code, distance) SELECT ancestor, "
                       "CAST(? AS TEXT), distance + 1 FROM organization_ancestor WHERE code = ?"),
        {code, TextValue(sParentCode)});
    m_database.Run(
        QStringLiteral("INSERT INTO organization_ancestor (ancestor, code, distance) VALUES (?, ?, 0)"),
        {code, code});
    return sCode;
}

qlonglong DeviceWriter::AddDevice(const GroupLogical::DeviceAddInfo_t& device)
{
    const auto nId = static_cast<qlonglong>(m_database.NextNumber(QStringLiteral("device")));
    m_database.Run(
        QStringLiteral(
            "INSERT INTO device (id, name, name_key, address, address_key, port, search_key, category, "
            "model, org_code, manufacturer, protocol, access_direction, serial_number, user_name, "
            "remark, video_channels, alarm_inputs, alarm_outputs) "
            "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        {nId, TextValue(device.sName), TextValue(FoldCase(device.sName)), TextValue(device.sIp),
            TextValue(AddressSortKey(device.sIp)), device.nPort,
            TextValue(DeviceSearchKey(device.sName, device.sIp)), device.nCategory, TextValue(device.sModel),
            TextValue(device.sOrgCode), TextValue(device.sManufacturer), TextValue(device.sProtocol),
            device.nAccessDirection, TextValue(device.sSerialNumber), TextValue(device.sUserName),
            TextValue(device.sRemark), device.nVideoChannels, device.nAlarmInputs, device.nAlarmOutputs});
    return nId;
}

void DeviceWriter::AddReference(qlonglong nDeviceId, int nKind, const std::string& sName)
{
    m_database.Run(QStringLiteral("INSERT INTO device_reference (device_id, kind, name) VALUES (?, ?, ?)"),
        {nDeviceId, nKind, TextValue(sName)});
}

void DeviceWriter::AddTask(qlonglong nDeviceId, int nKind)
{
    m_database.Run(
        QStringLiteral("INSERT INTO device_task (device_id, kind) VALUES (?, ?)"), {nDeviceId, nKind});
}

} // namespace Platform
