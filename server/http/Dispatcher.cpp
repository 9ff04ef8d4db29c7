#include "Dispatcher.h"

#include "Log.h"

namespace Platform {

namespace {

constexpr int DepthLimit = 16;

int StatusOf(int nCode)
{
    switch (nCode) {
    case UICommonMdl::ErrorMalformed:
        return 400;
    case UICommonMdl::ErrorNotSignedIn:
        return 401;
    case UICommonMdl::ErrorUnknownOperation:
        return 404;
    case UICommonMdl::ErrorTooLarge:
        return 413;
    case UICommonMdl::ErrorProtocolVersion:
        return 426;
    case UICommonMdl::ErrorServerBusy:
        return 503;
    default:
        return 200;
    }
}

/// Texts with a NUL cannot be stored by every database.
bool HasNul(const nlohmann::json& value)
{
    if (value.is_string())
        return value.get_ref<const std::string&>().find('\0') != std::string::npos;
    return value.is_structured() && std::any_of(value.begin(), value.end(), HasNul);
}

} // namespace

Dispatcher::Dispatcher(FindSession findSession)
    : m_findSession(std::move(findSession))
{
}

void Dispatcher::Add(Rule rule, Handler handler)
{
    std::string sName = rule.sName;
    m_mapEntries.emplace(std::move(sName), Entry{std::move(rule), std::move(handler)});
}

std::vector<Dispatcher::Rule> Dispatcher::Rules() const
{
    std::vector<Rule> vecRules;
    for (const auto& [sName, entry] : m_mapEntries)
        vecRules.push_back(entry.rule);
    return vecRules;
}

void Dispatcher::SetInterceptor(Interceptor interceptor)
{
    std::atomic_store(&m_pInterceptor,
        std::shared_ptr<const Interceptor>(std::make_shared<Interceptor>(std::move(interceptor))));
}

Context Dispatcher::Authenticate(const RawRequest& request) const
{
    if (request.sProtocolVersion != std::to_string(wire::ProtocolVersion))
        throw ServiceError(UICommonMdl::ErrorProtocolVersion,
            "The server speaks version " + std::to_string(wire::ProtocolVersion));
    return AuthenticateToken(request);
}

Context Dispatcher::AuthenticateToken(const RawRequest& request) const
{
    std::optional<Context> optContext = request.sToken.empty() ? std::nullopt : m_findSession(request.sToken);
    if (!optContext) {
        Log::Warning("http", "A request without a valid session was refused",
            {{"operation", request.sOperation}, {"client", request.sClientAddress}});
        throw ServiceError(UICommonMdl::ErrorNotSignedIn);
    }
    optContext->sClientAddress = request.sClientAddress;
    optContext->bLoopback = request.bLoopback;
    return *optContext;
}

Context Dispatcher::Admit(const RawRequest& request, const Rule& rule) const
{
    if (rule.access != wire::Access::Anybody) {
        Context context = Authenticate(request);
        if (rule.access == wire::Access::ByRight && !context.HasRights(rule.sRight)) {
            Log::Warning("http", "An operation was refused for want of a right",
                {{"operation", rule.sName}, {"user", context.sUserName}, {"client", context.sClientAddress}});
            throw ServiceError(UICommonMdl::ErrorNoRight);
        }
        return context;
    }
    if (request.sProtocolVersion != std::to_string(wire::ProtocolVersion))
        throw ServiceError(UICommonMdl::ErrorProtocolVersion,
            "The server speaks version " + std::to_string(wire::ProtocolVersion));
    Context context;
    context.sClientAddress = request.sClientAddress;
    context.bLoopback = request.bLoopback;
    return context;
}

nlohmann::json Dispatcher::Parse(const std::string& sBody)
{
    // No request nests deeply; a body that does is not worth building up.
    bool bTooDeep = false;
    nlohmann::json body = nlohmann::json::parse(
        sBody,
        [&bTooDeep](int nDepth, nlohmann::json::parse_event_t, nlohmann::json&) {
            bTooDeep = bTooDeep || nDepth > DepthLimit;
            return !bTooDeep;
        },
        false);
    if (bTooDeep || !body.is_object() || HasNul(body))
        throw ServiceError(UICommonMdl::ErrorMalformed, "The body is not a JSON object");
    return body;
}

std::string Dispatcher::Run(const RawRequest& request) const
{
    const auto it = m_mapEntries.find(request.sOperation);
    if (it == m_mapEntries.end())
        throw ServiceError(UICommonMdl::ErrorUnknownOperation);
    const Context context = Admit(request, it->second.rule);
    if (const auto pInterceptor = std::atomic_load(&m_pInterceptor); pInterceptor && *pInterceptor)
        (*pInterceptor)(request.sOperation);
    return it->second.handler(context, Parse(request.sBody));
}

RawResponse Dispatcher::Handle(const RawRequest& request) const
{
    try {
        return {200, R"({"code":0,"data":)" + Run(request) + '}'};
    } catch (const ServiceError& error) {
        return Failure(error.Code(), error.Detail());
    } catch (const nlohmann::json::exception& error) {
        return Failure(UICommonMdl::ErrorMalformed, error.what());
    } catch (const std::exception& error) {
        Log::Error(
            "http", "An operation failed", {{"operation", request.sOperation}, {"error", error.what()}});
        return Failure(UICommonMdl::ErrorInternal);
    }
}

RawResponse Dispatcher::Failure(int nCode, const std::string& sDetail)
{
    const nlohmann::json answer{{wire::AnswerCode, nCode}, {wire::AnswerDetail, sDetail}};
    return {StatusOf(nCode), answer.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)};
}

} // namespace Platform
