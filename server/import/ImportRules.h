#pragma once

#include <GroupLogical/GroupRecords.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace Platform {

/// What an import file's texts mean.
namespace ImportRules {

/// Organisations by code and by name (folded), for rows that name one. A name that several have is none.
class OrganizationNames
{
public:
    void Add(const std::string& sCode, const std::string& sName);
    /// Code of that organisation; empty: there is none.
    std::string Find(const std::string& sText) const;

private:
    std::unordered_map<std::string, std::string> m_mapCodes;
    std::unordered_map<std::string, std::string> m_mapNames; ///< an empty code: not the only one
};

/// A row as a device, or why it is none.
struct Converted
{
    GroupLogical::DeviceAddInfo_t device;
    int nErrorCode = 0; ///< UICommonMdl::ErrorCode
    std::string sField; ///< of the record, "nPort"; see FieldHeading
};
/// sSource as in ImportRequest_t: devices of a cloud account need no password.
Converted Convert(const GroupLogical::ImportRow_t& row, const std::string& sSource,
    const std::string& sOrgCode, const OrganizationNames& organizations);

/// Heading of a record's field in import files: "Port" for "nPort".
std::string FieldHeading(const std::string& sField);
/// The address of a row, for messages.
const std::string& AddressOf(const GroupLogical::ImportRow_t& row);

/// Where rows of one file are the same device.
class DuplicateFinder
{
public:
    /// Line of the earlier row that is the same device, and the field in which; 0: there is none.
    std::pair<int, std::string> Add(const GroupLogical::DeviceAddInfo_t& device, int nLine);

private:
    std::unordered_map<std::string, int> m_mapLines;
};

} // namespace ImportRules

} // namespace Platform
