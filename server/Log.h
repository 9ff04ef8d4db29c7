#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace Platform {

/// The server's log: one JSON object a line on the standard error. Any thread. Never give it a secret.
class Log
{
public:
    using Fields = std::initializer_list<std::pair<std::string_view, std::string>>;

    static void Info(std::string_view sComponent, std::string_view sMessage, Fields fields = {});
    static void Warning(std::string_view sComponent, std::string_view sMessage, Fields fields = {});
    static void Error(std::string_view sComponent, std::string_view sMessage, Fields fields = {});
    /// Turns records of the level "info" off, for programs that start many servers.
    static void SetQuiet(bool bQuiet);
};

} // namespace Platform
