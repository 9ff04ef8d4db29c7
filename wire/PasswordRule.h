#pragma once

#include <UserLogical/UserRecords.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace wire {

enum class PasswordFault
{
    None,
    Length,
    Classes,
    Character,
    UserName
};

/// The platform's password rule, the same in client and server: as long as UserLogical::UserPassword says,
/// printable ASCII, no blank and none of ' " ; : &, of at least two of the classes lower case, upper case,
/// digits, others; neither the user name nor the user name backwards (whatever the case).
inline PasswordFault CheckPassword(std::string_view password, std::string_view userName)
{
    const int nLength = UICommonMdl::CountCharacters(password);
    if (nLength < UserLogical::UserPassword.nMin || nLength > UserLogical::UserPassword.nMax)
        return PasswordFault::Length;
    bool lower = false, upper = false, digit = false, other = false;
    for (const char c : password) {
        if (c <= ' ' || c > '~' || std::string_view("'\";:&").find(c) != std::string_view::npos)
            return PasswordFault::Character;
        if (c >= 'a' && c <= 'z')
            lower = true;
        else if (c >= 'A' && c <= 'Z')
            upper = true;
        else if (c >= '0' && c <= '9')
            digit = true;
        else
            other = true;
    }
    if (int(lower) + int(upper) + int(digit) + int(other) < 2)
        return PasswordFault::Classes;
    const auto folded = [](std::string_view text) {
        std::string result(text);
        std::transform(result.begin(), result.end(), result.begin(),
            [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
        return result;
    };
    const std::string name = folded(userName);
    const std::string word = folded(password);
    if (!name.empty() && (word == name || word == std::string(name.rbegin(), name.rend())))
        return PasswordFault::UserName;
    return PasswordFault::None;
}

} // namespace wire
