#pragma once

#include <GroupLogical/GroupRecords.h>

#include <UserLogical/UserRecords.h>

#include <QString>
#include <QStringList>

#include <vector>

namespace ResourceManagerUI {

/// What a device page is asked for, as the page keeps it.
struct DeviceQuery
{
    int nPage = 1; ///< as the page bar reports it; 0 while it has no row
    int nPageSize = 20;
    QString sOrgCode; ///< empty: every organisation
    int nSortField = GroupLogical::SortByIp;
    Qt::SortOrder sortOrder = Qt::DescendingOrder;
    int nOnlineState = GroupLogical::StateAll;
    int nCategory = 0;
    QString sSearchText; ///< as typed
};

/// The request for that query; the search text is percent-encoded UTF-8.
GroupLogical::DevicePageRequest_t BuildPageRequest(const DeviceQuery& query);

/// Devices that one delete request takes.
inline constexpr int DeleteBatchSize = 5;
/// Devices that one move request takes.
inline constexpr int MoveBatchSize = 1000;
/// Takes the next batch off the list: at most DeleteBatchSize ids; empty when none is left.
std::vector<std::string> TakeDeleteBatch(std::vector<std::string>& vecIds);

/// Why a device could not be deleted, as the user reads it.
QString GetDeleteFailureText(const GroupLogical::FailedItem_t& item);
/// True for a device that a record plan or an alarm scheme holds; those texts begin with its name.
bool IsHeldByConfiguration(int nErrorCode);

/// One label for each kind of configuration that refers to a device, with the names below it; kinds without
/// a reference are left out.
QStringList GetReferenceLines(const std::vector<GroupLogical::DeviceReference_t>& vecReferences);

/// The roles that give a user access.
QString GetRoleNames(const UserLogical::DeviceAccess_t& access);
/// Those whose user or one of whose roles holds the text, whatever its case; all for an empty one.
std::vector<UserLogical::DeviceAccess_t> FindAccess(
    const std::vector<UserLogical::DeviceAccess_t>& vecAccess, const QString& sText);

} // namespace ResourceManagerUI
