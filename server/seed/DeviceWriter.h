#pragma once

#include "store/Database.h"

#include <GroupLogical/GroupRecords.h>

#include <string>

namespace Platform {

/// Writes rows into the tables of a transaction, for the seeds.
class DeviceWriter
{
public:
    explicit DeviceWriter(Database& database);

    /// Answers the code of the new organisation.
    std::string AddOrganization(
        const std::string& sParentCode, const std::string& sName, const std::string& sRemark);
    /// Answers the number of the new device.
    qlonglong AddDevice(const GroupLogical::DeviceAddInfo_t& device);
    void AddReference(qlonglong nDeviceId, int nKind, const std::string& sName);
    void AddTask(qlonglong nDeviceId, int nKind);

private:
    Database& m_database;
};

} // namespace Platform
