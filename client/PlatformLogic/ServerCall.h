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
    const auto pAnswer = std::make_shared<TypedAnswer<typename Op::Answer>>();
    return connection.Send(
        std::string(Op::Name), QByteArray::fromStdString(sBody),
        [pAnswer](const nlohmann::json& data, double dWhole) {
            try {
                MergeJson(data, pAnswer->data, dWhole);
            } catch (const std::exception&) {
                pAnswer->nErrorCode = UICommonMdl::ErrorBadAnswer;
            }
        },
        [pAnswer, handler = std::move(handler)](const ServerAnswer& end) {
            pAnswer->nSequence = end.nSequence;
            pAnswer->sDetail = end.sDetail;
            if (end.nErrorCode != UICommonMdl::ErrorNone)
                pAnswer->nErrorCode = end.nErrorCode;
            if (pAnswer->nErrorCode != UICommonMdl::ErrorNone)
                pAnswer->data = {};
            handler(std::move(*pAnswer));
        },
        nDelayMs);
}

} // namespace PlatformLogic
