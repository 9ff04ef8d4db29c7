#pragma once

#include "ServiceError.h"
#include "services/Context.h"

#include <wire/Operation.h>
#include <wire/Records.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Platform {

/// A request as it came in.
struct RawRequest
{
    std::string sOperation;
    std::string sProtocolVersion; ///< value of the header; empty when it is missing
    std::string sToken; ///< empty when there is none
    std::string sClientAddress;
    bool bLoopback = false;
    std::string sBody;
};

struct RawResponse
{
    int nStatus = 200;
    std::string sBody;
};

/// The table of operations. An operation's access rule comes with its type and is checked before its handler
/// is reached; there is no other way to add one. Registering ends before the first request; Handle is called
/// on any thread.
class Dispatcher
{
public:
    using FindSession = std::function<std::optional<Context>(const std::string& sToken)>;
    /// Called before an operation's handler; may throw ServiceError.
    using Interceptor = std::function<void(std::string_view sOperation)>;

    explicit Dispatcher(FindSession findSession);

    /// handler(const Context&, const Op::Request&) answers an Op::Answer, or throws ServiceError.
    template <class Op>
    void Register(std::function<typename Op::Answer(const Context&, const typename Op::Request&)> handler)
    {
        Add({std::string(Op::Name), Op::AccessRule, std::string(Op::Right)},
            [handler = std::move(handler)](const Context& context, const nlohmann::json& body) {
                std::string sAnswer;
                AppendJson(sAnswer, handler(context, body.get<typename Op::Request>()));
                return sAnswer;
            });
    }

    /// Register with a method of a service that takes the context and the request, either, or neither, and
    /// answers an Op::Answer, or nothing for an operation without data. The service outlives the table.
    template <class Op, class Service, class Method>
    void Bind(Service& service, Method method)
    {
        using Request = typename Op::Request;
        Register<Op>([&service, method](const Context& context, const Request& request) {
            const auto call = [&]() -> decltype(auto) {
                if constexpr (std::is_invocable_v<Method, Service&, const Context&, const Request&>)
                    return std::invoke(method, service, context, request);
                else if constexpr (std::is_invocable_v<Method, Service&, const Context&>)
                    return std::invoke(method, service, context);
                else if constexpr (std::is_invocable_v<Method, Service&, const Request&>)
                    return std::invoke(method, service, request);
                else
                    return std::invoke(method, service);
            };
            if constexpr (std::is_void_v<decltype(call())>) {
                call();
                return typename Op::Answer{};
            } else {
                return call();
            }
        });
    }

    RawResponse Handle(const RawRequest& request) const;
    /// The session that a request's token stands for, for the event stream. Throws ServiceError.
    Context Authenticate(const RawRequest& request) const;
    /// As Authenticate, for requests that have no protocol version: files.
    Context AuthenticateToken(const RawRequest& request) const;
    void SetInterceptor(Interceptor interceptor);

    struct Rule
    {
        std::string sName;
        wire::Access access;
        std::string sRight;
    };
    std::vector<Rule> Rules() const;

    static RawResponse Failure(int nCode, const std::string& sDetail = {});

private:
    using Handler = std::function<std::string(const Context&, const nlohmann::json&)>;
    struct Entry
    {
        Rule rule;
        Handler handler;
    };

    void Add(Rule rule, Handler handler);
    Context Admit(const RawRequest& request, const Rule& rule) const;
    std::string Run(const RawRequest& request) const;
    static nlohmann::json Parse(const std::string& sBody);

    FindSession m_findSession;
    std::map<std::string, Entry, std::less<>> m_mapEntries;
    std::shared_ptr<const Interceptor> m_pInterceptor;
};

} // namespace Platform
