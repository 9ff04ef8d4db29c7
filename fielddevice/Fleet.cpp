#include "Fleet.h"

#include <QSaveFile>

#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace FieldDevice {

using nlohmann::json;

Device::Device(DeviceSpec spec)
    : m_spec(std::move(spec))
{
    m_state.address = m_spec.address;
    m_state.port = m_spec.port;
    m_state.user = m_spec.user;
    m_state.password = m_spec.initialized ? m_spec.password : std::string();
    m_state.initialized = m_spec.initialized;
    m_state.time_zone_support = m_spec.time_zone_support;
    m_state.refuse_password = m_spec.refuse_password;
    m_state.slow_ms = m_spec.slow_ms;
    m_state.present = m_spec.present;
}

DeviceState Device::State() const
{
    const std::lock_guard lock(m_mutex);
    return m_state;
}

Fleet::Fleet(EventLoop& loop, std::vector<DeviceSpec> vecSpecs, std::string sStateFile)
    : m_loop(loop)
    , m_sStateFile(std::move(sStateFile))
{
    for (DeviceSpec& spec : vecSpecs)
        m_vecDevices.push_back(std::make_unique<Device>(std::move(spec)));
    Load();
}

int Fleet::Start(const Connected& connected)
{
    m_connected = connected;
    int nListening = 0;
    for (const auto& pDevice : m_vecDevices) {
        const DeviceState state = pDevice->State();
        if (!state.present)
            continue;
        pDevice->m_pListener = Listen(*pDevice, {state.address, state.port});
        nListening += pDevice->m_pListener ? 1 : 0;
    }
    return nListening;
}

std::shared_ptr<Listener> Fleet::Listen(Device& device, const Address& address)
{
    auto pListener = std::make_shared<Listener>(address);
    if (!pListener->IsOpen()) {
        std::fprintf(stderr, "%s cannot be listened on\n", address.Text().c_str());
        return nullptr;
    }
    m_loop.Watch(pListener->Descriptor(), [this, &device, pListener] {
        for (int nPeer = pListener->Accept(); nPeer >= 0; nPeer = pListener->Accept())
            m_connected(device, nPeer);
    });
    return pListener;
}

void Fleet::Replace(Device& device, std::shared_ptr<Listener> pListener)
{
    if (device.m_pListener)
        m_loop.Forget(device.m_pListener->Descriptor());
    device.m_pListener = std::move(pListener);
}

Device* Fleet::Find(const Address& address) const
{
    for (const auto& pDevice : m_vecDevices) {
        const std::lock_guard lock(pDevice->m_mutex);
        if (pDevice->m_state.port == address.nPort && pDevice->m_state.address == address.sHost)
            return pDevice.get();
    }
    return nullptr;
}

void Fleet::Change(Device& device, const std::function<void(DeviceState&)>& change)
{
    const std::lock_guard changes(m_changes);
    {
        const std::lock_guard lock(device.m_mutex);
        change(device.m_state);
    }
    Save();
}

bool Fleet::Move(Device& device, const std::string& sHost, const std::string& sMask)
{
    const std::lock_guard changes(m_changes);
    const DeviceState state = device.State();
    if (state.address != sHost) {
        auto pListener = Listen(device, {sHost, state.port});
        if (!pListener)
            return false;
        Replace(device, std::move(pListener));
    }
    {
        const std::lock_guard lock(device.m_mutex);
        device.m_state.address = sHost;
        device.m_state.mask = sMask;
    }
    Save();
    return true;
}

bool Fleet::SetPresent(Device& device, bool bPresent)
{
    const std::lock_guard changes(m_changes);
    const DeviceState state = device.State();
    if (state.present == bPresent)
        return true;
    auto pListener = bPresent ? Listen(device, {state.address, state.port}) : nullptr;
    if (bPresent && !pListener)
        return false;
    Replace(device, std::move(pListener));
    {
        const std::lock_guard lock(device.m_mutex);
        device.m_state.present = bPresent;
    }
    Save();
    return true;
}

void Fleet::Load()
{
    std::ifstream file(m_sStateFile);
    if (m_sStateFile.empty() || !file)
        return;
    const json states = json::parse(file, nullptr, false);
    if (!states.is_object())
        throw std::runtime_error(m_sStateFile + " does not hold states of devices");
    for (const auto& pDevice : m_vecDevices) {
        if (!states.contains(pDevice->Key()))
            continue;
        const auto state = states.at(pDevice->Key()).get<DeviceState>();
        if (!LoopbackNumber(state.address))
            throw std::runtime_error(state.address + " is not a loopback address");
        pDevice->m_state = state;
    }
}

void Fleet::Save()
{
    if (m_sStateFile.empty())
        return;
    json states = json::object();
    for (const auto& pDevice : m_vecDevices)
        states[pDevice->Key()] = pDevice->State();
    QSaveFile file(QString::fromStdString(m_sStateFile));
    const QByteArray text = QByteArray::fromStdString(states.dump(1));
    const bool bWritten = file.open(QIODevice::WriteOnly)
        && file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner)
        && file.write(text) == text.size() && file.commit();
    if (!bWritten)
        std::fprintf(stderr, "%s cannot be written\n", m_sStateFile.c_str());
}

} // namespace FieldDevice
