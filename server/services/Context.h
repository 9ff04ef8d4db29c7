#pragma once

#include "DeviceScope.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace Platform {

/// Milliseconds since 1970, UTC. Replaceable, so that expiry can be tested.
using Clock = std::function<std::int64_t()>;

struct AccountRights;

/// Who asks, as an operation sees it.
struct Context
{
    std::int64_t nAccountId = 0; ///< 0: nobody is signed in
    std::string sUserName;
    std::string sTokenHash;
    std::shared_ptr<const AccountRights> pRights; ///< null when nobody is signed in
    std::string sClientAddress;
    bool bLoopback = false; ///< the client runs on the server's own machine

    /// Which devices the account reaches; nothing when nobody is signed in.
    const DeviceScope& Scope() const;
    /// Whether it has all of those rights: codes with a blank between them.
    bool HasRights(const std::string& sCodes) const;
};

} // namespace Platform
