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
};

/// What the managers need of the connection to the server. Calls from any thread; handlers are called on the
/// network thread.
class IServerConnection
{
public:
    /// Takes the answer's data, null where it has none. Long data comes in parts, each with some fields only
    /// and the next items of a list; the whole is about dWhole times as large as what came so far. What came
    /// counts for nothing when the answer tells an error in the end.
    using DataHandler = std::function<void(const nlohmann::json& data, double dWhole)>;
    using AnswerHandler = std::function<void(const ServerAnswer& answer)>;
    /// What becomes of requests under way when the session is closed.
    enum class OpenRequests
    {
        Cancel, ///< they end with ErrorCancelled
        Keep ///< they end with their own answer
    };

    virtual ~IServerConnection() = default;

    /// Sends the operation with that JSON body, after so many milliseconds. The number is above 0, and onEnd
    /// is called exactly once with it, after the data; neither is called from within the call.
    virtual int Send(const std::string& sOperation, const QByteArray& body, DataHandler onData,
        AnswerHandler onEnd, int nDelayMs) = 0;
    /// Drops the token and the event stream.
    virtual void CloseSession(OpenRequests openRequests) = 0;
};

} // namespace PlatformLogic
