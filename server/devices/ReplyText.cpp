#include "ReplyText.h"

#include <nlohmann/json.hpp>

#include <arpa/inet.h>

#include <cctype>

namespace Platform::ReplyText {

namespace {

constexpr std::size_t MaxCharacters = 128;
constexpr std::size_t MacDigits = 12;

bool IsUtf8(std::string_view sText)
{
    try {
        nlohmann::json(std::string(sText)).dump();
        return true;
    } catch (const nlohmann::json::exception&) {
        return false;
    }
}

bool IsContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U;
}

} // namespace

std::string Clean(std::string_view sText)
{
    if (!IsUtf8(sText))
        return {};
    std::string sClean;
    std::size_t nCharacters = 0;
    for (const char c : sText) {
        if (!IsContinuation(c) && ++nCharacters > MaxCharacters)
            break;
        if (std::iscntrl(static_cast<unsigned char>(c)) == 0)
            sClean += c;
    }
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

bool IsIpv4(const std::string& sText)
{
    in_addr address{};
    return inet_pton(AF_INET, sText.c_str(), &address) == 1;
}

} // namespace Platform::ReplyText
