#pragma once

#include <QByteArray>

#include <nlohmann/json.hpp>

#include <functional>
#include <string>

namespace PlatformLogic {

/// What a request was answered.
struct ServerAnswer
{
    int nSequence = 0;
    int nErrorCode = 0; ///< UICommonMdl::ErrorCode
    std::string sDetail;
    nlohmann::json data; ///< null on an error
};

/// What the managers need of the connection to the server. Calls from any thread; handlers are called on the
/// network thread.
class IServerConnection
{
public:
    using AnswerHandler = std::function<void(const ServerAnswer& answer)>;
    /// What becomes of requests under way when the session is closed.
    enum class OpenRequests
    {
        Cancel, ///< they end with ErrorCancelled
        Keep ///< they end with their own answer
    };

    virtual ~IServerConnection() = default;

    /// Sends the operation with that JSON body, after so many milliseconds. The number is above 0, and the
    /// handler is called exactly once with it, never from within the call.
    virtual int Send(
        const std::string& sOperation, const QByteArray& body, AnswerHandler handler, int nDelayMs) = 0;
    /// Drops the token and the event stream.
    virtual void CloseSession(OpenRequests openRequests) = 0;
};

} // namespace PlatformLogic
