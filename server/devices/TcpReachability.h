#pragma once

#include "Reachability.h"

#include <memory>

namespace Platform {

/// A device is online when its port takes a TCP connection. Connections are tried side by side, never more
/// than nConcurrency; host names are looked up on threads of their own, and a name that is not found in the
/// time of one connection counts as unknown until the next time.
class TcpReachability : public Reachability
{
public:
    TcpReachability(int nConcurrency, int nTimeoutMs);
    ~TcpReachability() override;

    void Check(const std::vector<ProbeTarget>& vecTargets, const Found& found, std::stop_token stop) override;

private:
    class Names;
    const int m_nConcurrency;
    const int m_nTimeoutMs;
    std::shared_ptr<Names> m_pNames;
};

} // namespace Platform
