#pragma once

#include "DeviceSpec.h"
#include "EventLoop.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace FieldDevice {

/// What changes in a device while it runs.
struct DeviceState
{
    std::string address;
    int port = 0;
    std::string user;
    std::string password;
    std::string contact; ///< of its owner, told at its initialisation
    bool initialized = true;
    std::string mask = "255.0.0.0";
    std::string gateway;
    std::string next_address; ///< ONVIF: after the next restart; empty: the same
    std::string next_mask;
    nlohmann::json time_zone; ///< as it was told; null: never
    bool time_zone_support = true;
    bool refuse_password = false;
    int slow_ms = 0;
    bool present = true;
    nlohmann::json persons = nlohmann::json::object(); ///< by ID, as they were sent
    bool refuse_fingerprints = false; ///< takes persons without them
    int finger_ms = 1500; ///< how long it takes until a finger is on the reader; below 0: none comes
    bool finger_empty = false; ///< the finger cannot be read
    std::int64_t finger_since = 0; ///< when the reader began to wait
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(DeviceState, address, port, user, password, contact,
    initialized, mask, gateway, next_address, next_mask, time_zone, time_zone_support, refuse_password,
    slow_ms, present, persons, refuse_fingerprints, finger_ms, finger_empty, finger_since)

/// One simulated device. Any thread.
class Device
{
public:
    explicit Device(DeviceSpec spec);

    const DeviceSpec& Spec() const { return m_spec; }
    DeviceState State() const;
    /// "address:port" of the list; stays when the device moves.
    std::string Key() const { return Address{m_spec.address, m_spec.port}.Text(); }

private:
    friend class Fleet;
    const DeviceSpec m_spec;
    mutable std::mutex m_mutex;
    DeviceState m_state;
    std::shared_ptr<Listener> m_pListener; ///< the fleet's; also of a callback that is using it
};

/// All simulated devices and what they listen on. The devices stay the same until the end; any thread.
class Fleet
{
public:
    /// Called on the loop's thread with a new connection, which is the callee's.
    using Connected = std::function<void(Device&, int nSocket)>;

    /// sStateFile: where states are kept over restarts; may be empty. Throws std::runtime_error when that
    /// file cannot be read.
    Fleet(EventLoop& loop, std::vector<DeviceSpec> vecSpecs, std::string sStateFile);

    /// Opens the listeners of the devices that are present; answers how many took.
    int Start(const Connected& connected);

    const std::vector<std::unique_ptr<Device>>& Devices() const { return m_vecDevices; }
    /// The device that is there now; nullptr: none.
    Device* Find(const Address& address) const;

    /// Changes a state and keeps it. The address, the port and the presence are Move's and SetPresent's.
    void Change(Device& device, const std::function<void(DeviceState&)>& change);
    /// False when the new address cannot be listened on: nothing is changed then.
    bool Move(Device& device, const std::string& sHost, const std::string& sMask);
    /// False when its address is taken.
    bool SetPresent(Device& device, bool bPresent);

private:
    std::shared_ptr<Listener> Listen(Device& device, const Address& address);
    void Replace(Device& device, std::shared_ptr<Listener> pListener);
    void Load();
    void Save();

    EventLoop& m_loop;
    const std::string m_sStateFile;
    Connected m_connected;
    std::vector<std::unique_ptr<Device>> m_vecDevices;
    std::mutex m_changes; ///< one change at a time
};

} // namespace FieldDevice
