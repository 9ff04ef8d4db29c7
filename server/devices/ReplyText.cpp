#include "ReplyText.h"

#include <UICommonMdl/TextRule.h>

#include <cctype>

namespace Platform::ReplyText {

namespace {

constexpr int MaxCharacters = 128;
constexpr std::size_t MacDigits = 12;

} // namespace

std::string Clean(std::string_view sText)
{
    if (!UICommonMdl::IsUtf8(sText))
        return {};
    std::string sClean = UICommonMdl::CutText(sText, MaxCharacters);
    std::erase_if(sClean, UICommonMdl::IsControlCharacter);
    const std::size_t nBegin = std::min(sClean.find_first_not_of(' '), sClean.size());
    return sClean.substr(nBegin, sClean.find_last_not_of(' ') + 1 - nBegin);
}

std::string Mac(std::string_view sText)
{
    std::string sDigits;
    for (const char c : sText) {
        if (std::isxdigit(static_cast<unsigned char>(c)) != 0)
            sDigits += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        else if (c != ':' && c != '-' && c != ' ')
            return {};
    }
    if (sDigits.size() != MacDigits)
        return {};
    for (std::size_t nColon = MacDigits - 2; nColon > 0; nColon -= 2)
        sDigits.insert(nColon, 1, ':');
    return sDigits;
}

} // namespace Platform::ReplyText
