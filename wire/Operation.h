#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace wire {

/// Version of the protocol, sent with every request in the header "X-Protocol-Version". A server refuses
/// other ones.
inline constexpr int ProtocolVersion = 1;
inline constexpr const char* ProtocolVersionHeader = "X-Protocol-Version";

/// Requests go by POST to this prefix followed by the operation's name; events come from EventPath.
inline constexpr const char* OperationPrefix = "/api/v1/";
inline constexpr const char* EventPath = "/api/v1/events";

template <std::size_t N>
struct FixedString
{
    char text[N]{};
    constexpr FixedString(const char (&source)[N]) { std::copy_n(source, N, text); }
    constexpr std::string_view View() const { return {text, N - 1}; }
};

/// What an operation asks of its caller besides the protocol version.
enum class Access
{
    Anybody, ///< no session: sign-in and first start
    SignedIn, ///< any session
    ByRight, ///< a session whose user has the rights named by the operation, all of them
};

/// One operation: its name (the end of the path), the rights that it needs (codes with a blank between them)
/// and what it takes and answers.
template <FixedString NameText, Access AccessKind, FixedString RightText, class RequestType, class AnswerType>
struct Operation
{
    using Request = RequestType;
    using Answer = AnswerType;
    static constexpr std::string_view Name = NameText.View();
    static constexpr Access AccessRule = AccessKind;
    static constexpr std::string_view Right = RightText.View();
};

} // namespace wire
