#pragma once

#include "DeviceService.h"
#include "SecretBox.h"
#include "devices/Drivers.h"
#include "store/DatabasePool.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace Platform {

/// Reads the channels of devices that have come online into their records, with what is not known of them yet
/// (model, serial number), on threads of its own. A device that does not tell is left as it is until it comes
/// online again.
class ChannelReader
{
public:
    /// All are borrowed.
    ChannelReader(DatabasePool& pool, DeviceService& devices, const SecretBox& box, const Drivers& drivers);
    /// Waits for the devices that are being asked.
    ~ChannelReader();
    ChannelReader(const ChannelReader&) = delete;
    ChannelReader& operator=(const ChannelReader&) = delete;

    /// Any thread.
    void ReadSoon(const std::vector<std::int64_t>& vecIds);

private:
    void Serve(const std::stop_token& stop);
    void ReadOne(std::int64_t nId);
    bool Keep(const std::string& sDeviceId, const DeviceIdentity& identity, const ChannelCounts& channels);

    DatabasePool& m_pool;
    DeviceService& m_devices;
    const SecretBox& m_box;
    const Drivers& m_drivers;
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::deque<std::int64_t> m_queue;
    std::set<std::int64_t> m_setWaiting; ///< what is in the queue
    std::vector<std::jthread> m_vecThreads;
};

} // namespace Platform
