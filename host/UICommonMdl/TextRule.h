#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What the fields of records have to be like. The rules stand beside the records; the field that is typed
/// into, the editor and the server check with the same ones. Free of Qt. Any thread.
namespace UICommonMdl {

/// Whether a text may hold line breaks, tabs and other control characters.
enum class TextLines
{
    One,
    Several
};

/// A text field. Lengths are counted in characters of Unicode (code points), whatever they take in memory.
struct TextRule
{
    int nMin = 0; ///< above 0: the field must be filled
    int nMax = 0;
    const char* szForbidden = ""; ///< ASCII characters that the text must not hold
    const char* szAllowed = ""; ///< not empty: the ASCII characters that the text is made of
    TextLines lines = TextLines::One;
};

/// A field that holds a whole number; both ends are right.
struct NumberRule
{
    int nMin = 0;
    int nMax = 0;

    constexpr bool Allows(long long nValue) const { return nValue >= nMin && nValue <= nMax; }
};

inline constexpr const char* Digits = "0123456789";
inline constexpr const char* HexDigits = "0123456789abcdefABCDEF";
inline constexpr const char* PrintableAscii = " !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                              "[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~";

enum class TextFault
{
    None,
    Encoding, ///< no valid UTF-8
    Missing, ///< empty, and must not be
    TooShort,
    TooLong,
    Forbidden, ///< a character that the rule does not allow
    Control ///< a control character in a text of one line
};

/// Bytes of the character that a UTF-8 text begins with; 0 when it is empty or does not begin with a valid
/// one.
inline std::size_t LeadingCharacterSize(std::string_view text)
{
    if (text.empty())
        return 0;
    const auto byte = [&text](std::size_t n) { return static_cast<unsigned char>(text[n]); };
    const unsigned int nLead = byte(0);
    const std::size_t nSize = nLead < 0x80U ? 1
        : nLead < 0xc2U                     ? 0
        : nLead < 0xe0U                     ? 2
        : nLead < 0xf0U                     ? 3
                                            : 4;
    if (nSize == 0 || nLead > 0xf4U || text.size() < nSize)
        return 0;
    for (std::size_t n = 1; n < nSize; ++n)
        if ((byte(n) & 0xc0U) != 0x80U)
            return 0;
    // Neither longer than need be, nor half of a pair, nor beyond the last character.
    const bool bWrong = (nLead == 0xe0U && byte(1) < 0xa0U) || (nLead == 0xedU && byte(1) >= 0xa0U)
        || (nLead == 0xf0U && byte(1) < 0x90U) || (nLead == 0xf4U && byte(1) >= 0x90U);
    return bWrong ? 0 : nSize;
}

inline bool IsUtf8(std::string_view text)
{
    while (const std::size_t nSize = LeadingCharacterSize(text))
        text.remove_prefix(nSize);
    return text.empty();
}

/// Characters of a UTF-8 text. A byte that belongs to none counts as one.
inline int CountCharacters(std::string_view text)
{
    int nCount = 0;
    for (; !text.empty(); ++nCount) {
        const std::size_t nSize = LeadingCharacterSize(text);
        text.remove_prefix(nSize == 0 ? 1 : nSize);
    }
    return nCount;
}

/// The first nMax characters of a UTF-8 text; none of them is torn.
inline std::string CutText(std::string_view text, int nMax)
{
    std::size_t nEnd = 0;
    for (int n = 0; n < nMax && nEnd < text.size(); ++n) {
        const std::size_t nSize = LeadingCharacterSize(text.substr(nEnd));
        nEnd += nSize == 0 ? 1 : nSize;
    }
    return std::string(text.substr(0, nEnd));
}

inline bool IsControlCharacter(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20U || byte == 0x7fU;
}

inline bool HasControlCharacter(std::string_view text)
{
    for (const char c : text)
        if (IsControlCharacter(c))
            return true;
    return false;
}

inline bool IsTooLong(const TextRule& rule, std::string_view text)
{
    return CountCharacters(text) > rule.nMax;
}

/// True for a text with a character that the rule forbids or does not list.
inline bool HasForbidden(const TextRule& rule, std::string_view text)
{
    return text.find_first_of(rule.szForbidden) != std::string_view::npos
        || (*rule.szAllowed != '\0' && text.find_first_not_of(rule.szAllowed) != std::string_view::npos);
}

/// The first thing that is wrong with a text. Blanks count as any other character.
inline TextFault FindFault(const TextRule& rule, std::string_view text)
{
    if (!IsUtf8(text))
        return TextFault::Encoding;
    const int nCount = CountCharacters(text);
    if (nCount < rule.nMin)
        return nCount == 0 ? TextFault::Missing : TextFault::TooShort;
    if (nCount > rule.nMax)
        return TextFault::TooLong;
    if (HasForbidden(rule, text))
        return TextFault::Forbidden;
    return rule.lines == TextLines::One && HasControlCharacter(text) ? TextFault::Control : TextFault::None;
}

inline bool Holds(const TextRule& rule, std::string_view text)
{
    return FindFault(rule, text) == TextFault::None;
}

/// Whether a text that may be left out keeps to the rule when it is there.
inline bool HoldsIfFilled(const TextRule& rule, std::string_view text)
{
    return text.empty() || Holds(rule, text);
}

/// Whether a text is a number of that range, in decimal digits without sign and leading zeros.
inline bool IsNumber(const NumberRule& rule, std::string_view text)
{
    constexpr std::size_t MaxDigits = 10;
    if (text.empty() || text.size() > MaxDigits || text.find_first_not_of(Digits) != std::string_view::npos
        || (text.size() > 1 && text[0] == '0'))
        return false;
    long long nValue = 0;
    for (const char c : text)
        nValue = nValue * 10 + (c - '0');
    return rule.Allows(nValue);
}

/// A mail address: one "@", before it anything but blanks, "<" and ">", behind it a host of two labels or
/// more of ASCII letters, digits and hyphens. Its length is a matter of the field's rule.
inline bool IsMailAddress(std::string_view text)
{
    const std::size_t nAt = text.find('@');
    if (nAt == 0 || nAt == std::string_view::npos || text.find('@', nAt + 1) != std::string_view::npos
        || text.find_first_of(" <>") != std::string_view::npos || HasControlCharacter(text))
        return false;
    std::size_t nLabel = 0;
    std::size_t nLabels = 1;
    for (const char c : text.substr(nAt + 1)) {
        if (c == '.' && nLabel > 0) {
            nLabel = 0;
            ++nLabels;
        } else if ((c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-') {
            ++nLabel;
        } else {
            return false;
        }
    }
    return nLabel > 0 && nLabels > 1;
}

/// An IPv4 address: four numbers from 0 to 255 without leading zeros.
inline bool IsIpv4(std::string_view text)
{
    for (int nPart = 0; nPart < 4; ++nPart) {
        const std::size_t nEnd = nPart == 3 ? text.size() : text.find('.');
        if (nEnd == std::string_view::npos || !IsNumber({0, 255}, text.substr(0, nEnd)))
            return false;
        text.remove_prefix(nPart == 3 ? nEnd : nEnd + 1);
    }
    return true;
}

} // namespace UICommonMdl
