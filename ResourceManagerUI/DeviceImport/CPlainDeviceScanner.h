#pragma once

#include "ImportFileRow.h"

#include <vector>

namespace ResourceManagerUI {

/// Reads devices in the form that programs write them: elements "Device" one after the other, attributes in
/// quotes, nothing else. Many times faster than a parser that builds a tree; what it does not know it leaves
/// to such a one.
class CPlainDeviceScanner
{
public:
    /// The bytes are changed: values end with a NUL, and references in them are replaced. nLine is the line
    /// of the first byte.
    CPlainDeviceScanner(char* pBegin, char* pEnd, int nLine);

    /// Adds the rows. False when something else stands there, or there are more than nMaxRows; then the
    /// bytes and the rows are of no use.
    bool Scan(std::vector<ImportFileRow>& vecRows, std::size_t nMaxRows);

private:
    std::string_view GetRest() const { return {m_pAt, static_cast<std::size_t>(m_pEnd - m_pAt)}; }
    bool SkipBlanks();
    bool SkipComment();
    bool ScanDevice(std::vector<ImportFileRow>& vecRows);
    bool ScanAttribute(ImportFileRow& row, std::size_t nPlace);
    bool ScanValue(char quote);
    bool ScanUncommon(char*& pWrite);
    bool ScanReference(char*& pWrite);

    char* m_pAt; ///< what comes next
    char* m_pEnd;
    int m_nLine;
    CImportFieldFinder m_fields;
};

} // namespace ResourceManagerUI
