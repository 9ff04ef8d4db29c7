#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>

namespace Platform {

/// Milliseconds since 1970, UTC. Replaceable, so that expiry can be tested.
using Clock = std::function<std::int64_t()>;

/// Who asks, as an operation sees it.
struct Context
{
    std::int64_t nAccountId = 0; ///< 0: nobody is signed in
    std::string sUserName;
    std::string sTokenHash;
    std::shared_ptr<const std::set<std::string>> pRights; ///< null when nobody is signed in
    std::string sClientAddress;
    bool bLoopback = false; ///< the client runs on the server's own machine
};

} // namespace Platform
