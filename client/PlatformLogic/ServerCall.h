#pragma once

#include "IServerConnection.h"

#include <UICommonMdl/ErrorCodes.h>
#include <wire/Operations.h>

namespace PlatformLogic {

/// A typed answer: data is filled when nErrorCode is 0, else as default-constructed.
template <class Answer>
struct TypedAnswer
{
    int nSequence = 0;
    int nErrorCode = 0;
    std::string sDetail;
    Answer data;
};

/// For answers without data.
constexpr auto TakeNothing = [](auto&, wire::Nothing&&) {};

/// Sends one operation; the handler is called once, on the network thread. Answers the request's number
/// (above 0), which is sent after nDelayMs. Text that is not UTF-8 is replaced, never sent as it is.
template <class Op, class Handler>
int CallServer(
    IServerConnection& connection, const typename Op::Request& request, Handler handler, int nDelayMs = 0)
{
    const std::string sBody =
        nlohmann::json(request).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    return connection.Send(
        std::string(Op::Name), QByteArray::fromStdString(sBody),
        [handler = std::move(handler)](const ServerAnswer& raw) {
            TypedAnswer<typename Op::Answer> answer{raw.nSequence, raw.nErrorCode, raw.sDetail, {}};
            if (raw.nErrorCode == UICommonMdl::ErrorNone) {
                try {
                    raw.data.get_to(answer.data);
                } catch (const nlohmann::json::exception&) {
                    answer.nErrorCode = UICommonMdl::ErrorBadAnswer;
                }
            }
            handler(std::move(answer));
        },
        nDelayMs);
}

} // namespace PlatformLogic
