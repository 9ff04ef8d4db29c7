#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ResourceManagerUI {

/// The attributes of a device in an import file.
enum ImportField : unsigned char
{
    FieldName,
    FieldConnect,
    FieldAddress,
    FieldDomain,
    FieldPort,
    FieldUserName,
    FieldPassword,
    FieldCategory,
    FieldProtocol,
    FieldManufacturer,
    FieldModel,
    FieldSerialNumber,
    FieldRegisterId,
    FieldOrganization,
    FieldCount
};
inline constexpr std::array<std::string_view, FieldCount> ImportFieldNames = {"name", "connect", "address",
    "domain", "port", "username", "password", "category", "protocol", "manufacturer", "model", "sn",
    "registerid", "organization"};

/// A device as a view into the bytes of its file: 100,000 of them cost a few megabytes.
class ImportFileRow
{
public:
    ImportFileRow() = default;
    /// pszElement: the element's name in the bytes; nLine: from 1.
    ImportFileRow(const char* pszElement, int nLine)
        : m_pszElement(pszElement)
        , m_nLine(nLine)
    {
    }

    enum class Added
    {
        Good,
        Twice, ///< the field has its text already
        TooFar, ///< more than 64 KB behind the element's name
    };
    /// pszText ends with a NUL and lies behind the element's name.
    Added Add(ImportField field, const char* pszText)
    {
        const std::ptrdiff_t nOffset = pszText - m_pszElement;
        if (nOffset > UINT16_MAX)
            return Added::TooFar;
        if (m_offsets[field] != 0)
            return Added::Twice;
        m_offsets[field] = static_cast<std::uint16_t>(nOffset);
        return Added::Good;
    }

    int GetLine() const { return m_nLine; }
    /// Empty when the device has no such attribute.
    const char* GetText(ImportField field) const
    {
        return m_offsets[field] == 0 ? "" : m_pszElement + m_offsets[field];
    }

private:
    const char* m_pszElement = nullptr;
    int m_nLine = 0;
    std::array<std::uint16_t, FieldCount> m_offsets{}; ///< from the element's name; 0: none
};

/// Finds the fields of attributes. Rows of one file have their attributes in one order as a rule: each is
/// first compared with the one that stood at its place in the row before.
class CImportFieldFinder
{
public:
    CImportFieldFinder() { m_expected.fill(FieldCount); }

    /// nPlace: place of the attribute in its element. FieldCount when no field has that name: a list of
    /// failed rows carries "line" and "reason", and other programs may have attributes of their own.
    ImportField Find(std::size_t nPlace, std::string_view sName)
    {
        if (nPlace >= m_expected.size())
            return Search(sName);
        ImportField& expected = m_expected[nPlace];
        if (expected == FieldCount || ImportFieldNames[expected] != sName)
            expected = Search(sName);
        return expected;
    }

private:
    static ImportField Search(std::string_view sName)
    {
        unsigned char nField = 0;
        while (nField < FieldCount && ImportFieldNames[nField] != sName)
            ++nField;
        return static_cast<ImportField>(nField);
    }

    std::array<ImportField, FieldCount> m_expected{};
};

} // namespace ResourceManagerUI
