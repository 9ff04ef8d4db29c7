#pragma once

#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace Platform {

/// A device as it is probed.
struct ProbeTarget
{
    std::int64_t nId = 0;
    std::string sAddress; ///< IPv4, IPv6 or host name; may be empty
    int nPort = 0;
};

struct ProbeResult
{
    int nOnlineState = 0; ///< GroupLogical::OnlineState
    int nOfflineReason = 0; ///< GroupLogical::OfflineReason

    bool operator==(const ProbeResult&) const = default;
};

/// Finds out whether devices answer. One class a way to ask them.
class Reachability
{
public:
    using Found = std::function<void(const ProbeTarget&, const ProbeResult&)>;

    virtual ~Reachability() = default;
    /// Probes every target and tells each result once, on the calling thread; returns early when stop is
    /// asked for.
    virtual void Check(
        const std::vector<ProbeTarget>& vecTargets, const Found& found, std::stop_token stop) = 0;
};

} // namespace Platform
