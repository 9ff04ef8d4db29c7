#include "DeviceWriter.h"

#include "services/DeviceRecords.h"
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
    return DeviceRecords::Insert(m_database, device, {});
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
