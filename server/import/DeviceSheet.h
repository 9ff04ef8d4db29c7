#pragma once

#include <GroupLogical/GroupRecords.h>

#include <QByteArray>

#include <string>
#include <utility>
#include <vector>

namespace Platform {

/// Device sheets: what their columns mean.
namespace DeviceSheet {

enum class Kind
{
    Devices,
    Intercom, ///< video intercom devices: no column for the category
};

struct Content
{
    Kind kind = Kind::Devices;
    std::vector<GroupLogical::ImportRow_t> vecRows;
    std::vector<std::pair<int, std::string>> vecFormulas; ///< line and heading of cells that are computed
};

/// Rows below the heading row. Columns are found by their headings, whatever their order and case; "Line" and
/// "Reason" of a failure list are skipped. Throws ServiceError: ErrorNotSpreadsheet, ErrorSheetColumns (an
/// unknown, missing or double heading, named by the detail), ErrorTooManyRows.
Content Read(const QByteArray& baFile);

/// A sheet with the headings only.
QByteArray Template(Kind kind);
/// The rows with their reasons, as a sheet that can be mended and read again.
QByteArray FailureList(Kind kind, const std::vector<GroupLogical::ImportRow_t>& vecRows,
    const std::vector<std::string>& vecReasons);
/// The same for device files in XML.
QByteArray XmlFailureList(
    const std::vector<GroupLogical::ImportRow_t>& vecRows, const std::vector<std::string>& vecReasons);

} // namespace DeviceSheet

} // namespace Platform
