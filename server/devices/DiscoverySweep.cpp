#include "DiscoverySweep.h"

#include "DiscoverySocket.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>

namespace Platform {

namespace {

using RemoteConfigLogical::SearchDeviceInfo_t;
using SteadyClock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int PollMs = 20;
constexpr int BusyMs = 2;
/// All drivers together; switches and small devices lose what comes much faster.
constexpr int DatagramsPerMs = 20;
constexpr int MaxBurst = 200;
constexpr int ReceivedAtOnce = 256;
/// An address that claims to be more devices than this is not believed any further.
constexpr int MaxDevicesOfAddress = 64;

struct Range
{
    std::uint32_t nStart = 0;
    std::uint32_t nEnd = 0; ///< the last one
    bool Holds(std::uint32_t nAddress) const { return nAddress >= nStart && nAddress <= nEnd; }
};

std::optional<std::uint32_t> ToNumber(const std::string& sAddress)
{
    in_addr address{};
    if (inet_pton(AF_INET, sAddress.c_str(), &address) != 1)
        return std::nullopt;
    return ntohl(address.s_addr);
}

std::string ToText(std::uint32_t nAddress)
{
    const in_addr address{htonl(nAddress)};
    char buffer[INET_ADDRSTRLEN];
    return inet_ntop(AF_INET, &address, buffer, sizeof(buffer));
}

std::optional<Range> ReadRange(const std::string& sStartIp, const std::string& sEndIp)
{
    if (sStartIp.empty() && sEndIp.empty())
        return std::nullopt;
    const auto optStart = ToNumber(sStartIp);
    const auto optEnd = ToNumber(sEndIp);
    if (!optStart || !optEnd || *optStart > *optEnd)
        throw std::invalid_argument("not a range of addresses");
    if (*optEnd - *optStart >= DiscoverySweep::MaxAddresses)
        throw std::invalid_argument("too many addresses");
    return Range{*optStart, *optEnd};
}

/// The machine's IPv4 addresses, each with its interface: a probe to a group goes out by each.
std::vector<DiscoverySocket::Way> Ways()
{
    std::vector<DiscoverySocket::Way> vecWays;
    ifaddrs* pFirst = nullptr;
    if (getifaddrs(&pFirst) != 0)
        return vecWays;
    for (const ifaddrs* pEntry = pFirst; pEntry; pEntry = pEntry->ifa_next) {
        const bool bIpv4 = pEntry->ifa_addr && pEntry->ifa_addr->sa_family == AF_INET;
        const bool bGroups = (pEntry->ifa_flags & (IFF_MULTICAST | IFF_LOOPBACK)) != 0;
        if (!bIpv4 || !bGroups || (pEntry->ifa_flags & IFF_UP) == 0)
            continue;
        const auto* const pAddress = reinterpret_cast<const sockaddr_in*>(pEntry->ifa_addr);
        vecWays.push_back(
            {static_cast<int>(if_nametoindex(pEntry->ifa_name)), ntohl(pAddress->sin_addr.s_addr)});
    }
    freeifaddrs(pFirst);
    return vecWays;
}

/// One driver's share of a sweep.
class Asker
{
public:
    Asker(const DeviceDriver& driver, const std::optional<Range>& optRange,
        const std::vector<DiscoverySocket::Way>& vecWays)
        : m_driver(driver)
        , m_optRange(optRange)
        , m_vecWays(vecWays)
        , m_optGroup(ToNumber(driver.DiscoveryGroup()))
    {
    }

    int Descriptor() const { return m_socket.Descriptor(); }
    bool IsDone() const { return m_nNext >= Targets(); }
    void BeginSending()
    {
        m_nNext = 0;
        m_sProbe = m_driver.DiscoveryProbe();
    }
    /// False when the buffers are full.
    bool SendNext();
    void Receive(const DiscoverySweep::Found& found);

private:
    /// First the group by each way, then the range.
    std::size_t Groups() const { return m_optGroup ? m_vecWays.size() : 0; }
    std::size_t Targets() const
    {
        return Groups() + (m_optRange ? m_optRange->nEnd - m_optRange->nStart + std::size_t{1} : 0);
    }
    void Tell(const SearchDeviceInfo_t& device, const DiscoverySweep::Found& found);

    const DeviceDriver& m_driver;
    const std::optional<Range> m_optRange;
    const std::vector<DiscoverySocket::Way>& m_vecWays;
    const std::optional<std::uint32_t> m_optGroup;
    DiscoverySocket m_socket;
    std::string m_sProbe;
    std::size_t m_nNext = 0;
    std::map<std::string, std::set<int>> m_mapTold; ///< ports by address
};

bool Asker::SendNext()
{
    const bool bGroup = m_nNext < Groups();
    const std::uint32_t nAddress =
        bGroup ? *m_optGroup : m_optRange->nStart + static_cast<std::uint32_t>(m_nNext - Groups());
    const DiscoverySocket::Way* const pWay = bGroup ? &m_vecWays[m_nNext] : nullptr;
    if (m_socket.Send(m_sProbe, nAddress, m_driver.DiscoveryPort(), pWay) == DiscoverySocket::Sent::Busy)
        return false;
    ++m_nNext;
    return true;
}

void Asker::Receive(const DiscoverySweep::Found& found)
{
    m_socket.Receive(ReceivedAtOnce, [&](std::string_view datagram, std::uint32_t nSender) {
        if (m_optRange && !m_optRange->Holds(nSender))
            return;
        for (const SearchDeviceInfo_t& device : m_driver.ReadReply(datagram, ToText(nSender)))
            Tell(device, found);
    });
}

void Asker::Tell(const SearchDeviceInfo_t& device, const DiscoverySweep::Found& found)
{
    const auto optAddress = ToNumber(device.sIp);
    if (!optAddress || (m_optRange && !m_optRange->Holds(*optAddress)))
        return;
    std::set<int>& ports = m_mapTold[device.sIp];
    if (ports.size() < MaxDevicesOfAddress && ports.insert(device.nPort).second)
        found(device);
}

/// The times of a sweep.
class Sweep
{
public:
    Sweep(int nTimeoutMs, int nSendings)
        : m_start(SteadyClock::now())
        , m_quiet(nTimeoutMs / 2)
        , m_interval(nTimeoutMs / 2 / nSendings)
        , m_nSendingsLeft(nSendings)
        , m_end(m_start + milliseconds(nTimeoutMs))
        , m_nextSending(m_start)
        , m_filled(m_start)
    {
    }

    void Add(std::unique_ptr<Asker> pAsker) { m_vecAskers.push_back(std::move(pAsker)); }
    void Run(const DiscoverySweep::Found& found, const std::stop_token& stop)
    {
        while (!stop.stop_requested() && (IsSending() || SteadyClock::now() < m_end)) {
            const bool bBusy = Send();
            Wait(bBusy ? BusyMs : PollMs);
            for (const auto& pAsker : m_vecAskers)
                pAsker->Receive(found);
        }
    }

private:
    bool AllDone() const
    {
        return std::all_of(
            m_vecAskers.begin(), m_vecAskers.end(), [](const auto& pAsker) { return pAsker->IsDone(); });
    }
    bool IsSending() const { return m_nSendingsLeft > 0 || !AllDone(); }
    void BeginWhenDue(SteadyClock::time_point now);
    int Budget(SteadyClock::time_point now);
    bool Send();
    void Wait(int nMs);

    const SteadyClock::time_point m_start;
    const milliseconds m_quiet;
    const milliseconds m_interval;
    int m_nSendingsLeft;
    SteadyClock::time_point m_end;
    SteadyClock::time_point m_nextSending;
    SteadyClock::time_point m_filled; ///< the budget was filled up to this time
    int m_nBudget = MaxBurst;
    bool m_bBegun = false;
    std::vector<std::unique_ptr<Asker>> m_vecAskers;
};

void Sweep::BeginWhenDue(SteadyClock::time_point now)
{
    const bool bIdle = !m_bBegun || AllDone();
    if (m_nSendingsLeft == 0 || !bIdle || now < m_nextSending)
        return;
    m_bBegun = true;
    --m_nSendingsLeft;
    m_nextSending = std::max(m_nextSending + m_interval, now);
    for (const auto& pAsker : m_vecAskers)
        pAsker->BeginSending();
}

/// How many datagrams may go now.
int Sweep::Budget(SteadyClock::time_point now)
{
    const auto passed = std::chrono::duration_cast<milliseconds>(now - m_filled);
    m_filled += passed;
    m_nBudget = static_cast<int>(
        std::min<long long>(MaxBurst, m_nBudget + DatagramsPerMs * static_cast<long long>(passed.count())));
    return m_nBudget;
}

/// True when there is more to send soon.
bool Sweep::Send()
{
    const auto now = SteadyClock::now();
    BeginWhenDue(now);
    if (!m_bBegun || AllDone())
        return false;
    Budget(now);
    for (bool bAny = true; bAny && m_nBudget > 0;) {
        bAny = false;
        for (const auto& pAsker : m_vecAskers) {
            if (m_nBudget > 0 && !pAsker->IsDone() && pAsker->SendNext()) {
                --m_nBudget;
                bAny = true;
            }
        }
    }
    m_end = std::max(m_end, SteadyClock::now() + m_quiet);
    return true;
}

void Sweep::Wait(int nMs)
{
    std::vector<pollfd> vecPolled;
    vecPolled.reserve(m_vecAskers.size());
    for (const auto& pAsker : m_vecAskers)
        vecPolled.push_back({pAsker->Descriptor(), POLLIN, 0});
    poll(vecPolled.data(), vecPolled.size(), nMs);
}

} // namespace

DiscoverySweep::DiscoverySweep(int nTimeoutMs, int nSendings)
    : m_nTimeoutMs(std::max(1, nTimeoutMs))
    , m_nSendings(std::max(1, nSendings))
{
}

void DiscoverySweep::Run(const std::vector<DeviceDriver*>& vecDrivers, const std::string& sStartIp,
    const std::string& sEndIp, const Found& found, const std::stop_token& stop) const
{
    const auto optRange = ReadRange(sStartIp, sEndIp);
    const std::vector<DiscoverySocket::Way> vecWays = Ways();
    Sweep sweep(m_nTimeoutMs, m_nSendings);
    bool bAny = false;
    for (const DeviceDriver* pDriver : vecDrivers) {
        if (pDriver->DiscoveryPort() <= 0)
            continue;
        sweep.Add(std::make_unique<Asker>(*pDriver, optRange, vecWays));
        bAny = true;
    }
    if (bAny)
        sweep.Run(found, stop);
}

} // namespace Platform
