#pragma once

#include "SecretBox.h"
#include "devices/DeviceDriver.h"
#include "store/Database.h"

#include <GroupLogical/GroupRecords.h>

#include <optional>
#include <string>

namespace Platform {

/// The rows of the table of devices. Within a transaction of the caller; faults are ServiceError.
namespace DeviceRecords {

/// The number behind a device ID; nullopt for a text that no device has as its ID.
std::optional<qlonglong> NumberOf(const std::string& sDeviceId);
/// Without its secrets; nullopt when there is none.
std::optional<GroupLogical::DeviceAddInfo_t> Find(Database& database, const std::string& sDeviceId);

/// The secrets as they are kept; nullopt leaves what is there.
struct Sealed
{
    std::optional<std::string> optPassword;
    std::optional<std::string> optSipPassword;
};
/// Seals the record's secrets; empty ones become nullopt.
Sealed Seal(const SecretBox& box, const GroupLogical::DeviceAddInfo_t& device);

/// Answers the number of the new device.
qlonglong Insert(Database& database, const GroupLogical::DeviceAddInfo_t& device, const Sealed& sealed);
/// The first of so many numbers for devices to come.
qlonglong TakeNumbers(Database& database, std::size_t nCount);
/// As above, with a number that was taken before.
void Insert(
    Database& database, qlonglong nId, const GroupLogical::DeviceAddInfo_t& device, const Sealed& sealed);
/// Everything of the record but its ID; a changed address starts as not probed.
void Update(Database& database, const GroupLogical::DeviceAddInfo_t& device, const Sealed& sealed);
void SetPassword(Database& database, const std::string& sDeviceId, const std::string& sSealed);

/// How the device is talked to.
struct Login
{
    std::string sName;
    std::string sProtocol;
    DeviceAccess access; ///< its password is empty when it is not known
};
std::optional<Login> FindLogin(Database& database, const SecretBox& box, const std::string& sDeviceId);
/// ID of the device with that address and port; empty: there is none.
std::string FindByAddress(Database& database, const std::string& sAddress, int nPort);

} // namespace DeviceRecords

} // namespace Platform
