#pragma once

namespace UserLogical {

// The rights that pages ask for; IUserRight::HasRight takes them.

inline constexpr const char* RightChangeDevices = "001001001"; ///< and organisations
inline constexpr const char* RightConfigureDevices = "001001002";
inline constexpr const char* RightSeeUsers = "001002"; ///< and roles
inline constexpr const char* RightChangeUsers = "001002001";
inline constexpr const char* RightChangeRoles = "001002002";
inline constexpr const char* RightSeeAuditLog = "001002003";
inline constexpr const char* RightChangePersons = "002003001"; ///< and their groups
inline constexpr const char* RightExportDevices = "004002";
inline constexpr const char* RightExportAuditLog = "004003";

} // namespace UserLogical
