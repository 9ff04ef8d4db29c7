#include "CPlainDeviceScanner.h"

#include "XmlText.h"

#include <algorithm>

namespace ResourceManagerUI {

namespace {

constexpr std::string_view Opening = "<Device";
constexpr std::string_view Closing = "</Device>";
constexpr std::string_view CommentOpening = "<!--";
constexpr std::string_view CommentClosing = "-->";

/// What a byte is inside of a value.
enum class ByteKind : unsigned char
{
    Plain,
    Quote,
    Reference,
    Multibyte,
    Other ///< not allowed there, or turned into another one by a parser
};

constexpr std::array<ByteKind, 256> MakeByteKinds()
{
    std::array<ByteKind, 256> kinds{};
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (i < 0x20 || i == '<')
            kinds[i] = ByteKind::Other;
        else if (i >= 0x80)
            kinds[i] = ByteKind::Multibyte;
        else if (i == '"' || i == '\'')
            kinds[i] = ByteKind::Quote;
        else if (i == '&')
            kinds[i] = ByteKind::Reference;
    }
    return kinds;
}
constexpr std::array<ByteKind, 256> ByteKinds = MakeByteKinds();

ByteKind KindOf(char c)
{
    return ByteKinds[static_cast<unsigned char>(c)];
}

bool IsNameByte(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool StartsWith(std::string_view sText, std::string_view sStart)
{
    return sText.substr(0, sStart.size()) == sStart;
}

} // namespace

CPlainDeviceScanner::CPlainDeviceScanner(char* pBegin, char* pEnd, int nLine)
    : m_pAt(pBegin)
    , m_pEnd(pEnd)
    , m_nLine(nLine)
{
}

bool CPlainDeviceScanner::Scan(std::vector<ImportFileRow>& vecRows, std::size_t nMaxRows)
{
    while (true) {
        SkipBlanks();
        const std::string_view sRest = GetRest();
        if (sRest.empty())
            return true;
        const bool bRead =
            StartsWith(sRest, Opening) ? vecRows.size() < nMaxRows && ScanDevice(vecRows) : SkipComment();
        if (!bRead)
            return false;
    }
}

bool CPlainDeviceScanner::SkipBlanks()
{
    const char* const pBefore = m_pAt;
    for (; m_pAt != m_pEnd; ++m_pAt) {
        if (*m_pAt == '\n')
            ++m_nLine;
        else if (*m_pAt != ' ' && *m_pAt != '\t' && *m_pAt != '\r')
            break;
    }
    return m_pAt != pBefore;
}

bool CPlainDeviceScanner::SkipComment()
{
    const std::string_view sRest = GetRest();
    if (!StartsWith(sRest, CommentOpening))
        return false;
    const std::size_t nDashes = sRest.find("--", CommentOpening.size());
    if (nDashes == std::string_view::npos || !StartsWith(sRest.substr(nDashes), CommentClosing))
        return false;
    const std::string_view sComment = sRest.substr(0, nDashes);
    const bool bPlain = std::all_of(sComment.begin(), sComment.end(),
        [](char c) { return (c >= ' ' && c < 0x7F) || c == '\n' || c == '\r' || c == '\t'; });
    m_nLine += static_cast<int>(std::count(sComment.begin(), sComment.end(), '\n'));
    m_pAt += nDashes + CommentClosing.size();
    return bPlain;
}

bool CPlainDeviceScanner::ScanDevice(std::vector<ImportFileRow>& vecRows)
{
    ImportFileRow row(m_pAt + 1, m_nLine);
    m_pAt += Opening.size();
    for (std::size_t nPlace = 0;; ++nPlace) {
        const bool bBlanks = SkipBlanks();
        const std::string_view sRest = GetRest();
        if (StartsWith(sRest, "/>")) {
            m_pAt += 2;
            break;
        }
        if (StartsWith(sRest, ">") && StartsWith(sRest.substr(1), Closing)) {
            m_pAt += 1 + Closing.size();
            break;
        }
        if (!bBlanks || !ScanAttribute(row, nPlace))
            return false;
    }
    vecRows.push_back(row);
    return true;
}

bool CPlainDeviceScanner::ScanAttribute(ImportFileRow& row, std::size_t nPlace)
{
    const char* const pName = m_pAt;
    while (m_pAt != m_pEnd && IsNameByte(*m_pAt))
        ++m_pAt;
    const std::string_view sName(pName, static_cast<std::size_t>(m_pAt - pName));
    if (sName.empty() || m_pEnd - m_pAt < 3 || m_pAt[0] != '=' || (m_pAt[1] != '"' && m_pAt[1] != '\''))
        return false;
    const char quote = m_pAt[1];
    m_pAt += 2;
    const char* const pValue = m_pAt;
    const ImportField field = m_fields.Find(nPlace, sName);
    // Whether an attribute without a field stands there twice is for a parser to say.
    if (field == FieldCount)
        return false;
    return ScanValue(quote) && row.Add(field, pValue) == ImportFileRow::Added::Good;
}

bool CPlainDeviceScanner::ScanValue(char quote)
{
    char* pWrite = m_pAt; // behind m_pAt once a reference was replaced
    while (true) {
        char* const pPlain = m_pAt;
        while (m_pAt != m_pEnd && KindOf(*m_pAt) == ByteKind::Plain)
            ++m_pAt;
        pWrite = pWrite == pPlain ? m_pAt : std::copy(pPlain, m_pAt, pWrite);
        if (m_pAt == m_pEnd)
            return false;
        if (*m_pAt == quote) {
            ++m_pAt;
            *pWrite = '\0';
            return true;
        }
        if (!ScanUncommon(pWrite))
            return false;
    }
}

bool CPlainDeviceScanner::ScanUncommon(char*& pWrite)
{
    std::size_t nLength = 0;
    switch (KindOf(*m_pAt)) {
    case ByteKind::Plain:
    case ByteKind::Quote:
        nLength = 1;
        break;
    case ByteKind::Multibyte:
        nLength = Utf8Length(GetRest().substr(0, 4));
        break;
    case ByteKind::Reference:
        return ScanReference(pWrite);
    case ByteKind::Other:
        return false;
    }
    pWrite = std::copy_n(m_pAt, nLength, pWrite);
    m_pAt += nLength;
    return nLength > 0;
}

bool CPlainDeviceScanner::ScanReference(char*& pWrite)
{
    const XmlReference reference = ReadReference(GetRest().substr(0, 12));
    if (reference.nLength == 0)
        return false;
    pWrite = std::copy(reference.sText.begin(), reference.sText.end(), pWrite);
    m_pAt += reference.nLength;
    return true;
}

} // namespace ResourceManagerUI
