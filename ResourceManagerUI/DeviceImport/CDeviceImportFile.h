#pragma once

#include "ImportFileRow.h"

#include <GroupLogical/GroupRecords.h>

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace pugi {
class xml_node;
}

namespace ResourceManagerUI {

/// An XML device file: the root element "DeviceManager" with its "version", and a "Device" element for each
/// device. The texts are kept as they stand; the server checks them. Any thread, one at a time.
class CDeviceImportFile
{
public:
    enum class Status
    {
        Read,
        Unreadable, ///< the file cannot be opened or read
        TooLarge, ///< above MaxBytes
        Invalid, ///< not an XML device file
        TooOld, ///< of a version below 2.0
        TooManyRows, ///< above MaxRows
        Empty, ///< holds no device
    };
    static constexpr qint64 MaxBytes = 256LL * 1024 * 1024;
    static constexpr std::size_t MaxRows = 200'000;

    CDeviceImportFile() = default;
    ~CDeviceImportFile() = default;
    CDeviceImportFile(const CDeviceImportFile&) = delete;
    CDeviceImportFile& operator=(const CDeviceImportFile&) = delete;

    /// Reads the file whole; called once.
    Status Load(const QString& sPath);

    /// Valid for as long as the file object lives.
    const std::vector<ImportFileRow>& GetRows() const { return m_vecRows; }
    /// What stands where devices should and cannot be read as one, with its line and reason in words, without
    /// an error code.
    const std::vector<GroupLogical::ImportFailure_t>& GetUnreadable() const { return m_vecUnreadable; }

    static GroupLogical::ImportRow_t MakeImportRow(const ImportFileRow& row);
    /// Translated text of a status; empty for Read.
    static QString GetStatusText(Status status);

private:
    Status ReadBytes(const QString& sPath);
    std::optional<Status> LoadPlain();
    Status LoadByParser();
    bool AddRows(const pugi::xml_node& root, const std::vector<std::size_t>& vecLineEnds);
    bool AddRow(const pugi::xml_node& device, int nLine, CImportFieldFinder& fields);

    std::unique_ptr<char[]> m_pBytes; ///< the file, parsed in place: the rows point into it
    std::size_t m_nBytes = 0;
    std::vector<ImportFileRow> m_vecRows;
    std::vector<GroupLogical::ImportFailure_t> m_vecUnreadable;
};

} // namespace ResourceManagerUI
