#pragma once

#include <GroupLogical/GroupRecords.h>

#include <string>
#include <vector>

namespace Platform {

/// What a device record has to be like, apart from what the database holds.
namespace DeviceRules {

/// Trims what people type with blanks around it, and empties what the record's way of adding does not have.
GroupLogical::DeviceAddInfo_t Cleaned(GroupLogical::DeviceAddInfo_t device);

enum class Secrets
{
    Required, ///< a device that is added by hand or from a file
    Optional, ///< a change, or a device of a cloud account: an empty password is none
};
/// Name of the first field that breaks its rule ("sName"); empty: none does. The record was cleaned. Fields
/// that other records give meaning to (organisation) are not looked at.
std::string FaultyField(const GroupLogical::DeviceAddInfo_t& device, Secrets secrets);

/// Where the device is reached: its domain name where it is added by one, else its address; may be empty.
const std::string& AddressOf(const GroupLogical::DeviceAddInfo_t& device);
/// Name of the field that AddressOf reads.
const char* AddressField(const GroupLogical::DeviceAddInfo_t& device);

/// The addresses of a segment, from the first to the last; empty when it is none.
std::vector<std::string> SegmentAddresses(const std::string& sStart, const std::string& sEnd);

} // namespace DeviceRules

} // namespace Platform
