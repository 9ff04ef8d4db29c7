#include "ChannelReader.h"

#include "DeviceRecords.h"
#include "ServiceError.h"

#include <optional>

namespace Platform {

namespace {

constexpr std::size_t ThreadCount = 8;

/// What a device calls its model, as a record can hold it: the record has to be one that can be saved again.
std::string FittingModel(std::string sModel)
{
    std::erase_if(sModel,
        [](char c) { return UICommonMdl::HasForbidden(GroupLogical::DeviceModel, std::string_view(&c, 1)); });
    return UICommonMdl::CutText(sModel, GroupLogical::DeviceModel.nMax);
}

} // namespace

ChannelReader::ChannelReader(
    DatabasePool& pool, DeviceService& devices, const SecretBox& box, const Drivers& drivers)
    : m_pool(pool)
    , m_devices(devices)
    , m_box(box)
    , m_drivers(drivers)
{
    for (std::size_t i = 0; i < ThreadCount; ++i)
        m_vecThreads.emplace_back([this](const std::stop_token& stop) { Serve(stop); });
}

ChannelReader::~ChannelReader()
{
    for (std::jthread& thread : m_vecThreads)
        thread.request_stop();
}

void ChannelReader::ReadSoon(const std::vector<std::int64_t>& vecIds)
{
    const std::lock_guard lock(m_mutex);
    for (const std::int64_t nId : vecIds)
        if (m_setWaiting.insert(nId).second)
            m_queue.push_back(nId);
    m_changed.notify_all();
}

void ChannelReader::Serve(const std::stop_token& stop)
{
    std::unique_lock lock(m_mutex);
    while (m_changed.wait(lock, stop, [this] { return !m_queue.empty(); }) && !stop.stop_requested()) {
        const std::int64_t nId = m_queue.front();
        m_queue.pop_front();
        m_setWaiting.erase(nId);
        lock.unlock();
        try {
            ReadOne(nId);
        } catch (const DeviceError&) {
            // It does not tell, or not with this login.
        } catch (const ServiceError&) {
            // The database is busy: the device keeps what it has.
        }
        lock.lock();
    }
}

void ChannelReader::ReadOne(std::int64_t nId)
{
    const std::string sDeviceId = std::to_string(nId);
    const auto optLogin =
        m_pool.Read([&](Database& database) { return DeviceRecords::FindLogin(database, m_box, sDeviceId); });
    if (!optLogin || optLogin->access.sPassword.empty())
        return;
    DeviceDriver* const pDriver = m_drivers.Find(optLogin->sProtocol);
    if (!pDriver)
        return;
    const DeviceIdentity identity = pDriver->Identify(optLogin->access);
    const ChannelCounts channels = pDriver->Channels(optLogin->access);
    if (Keep(sDeviceId, identity, channels))
        m_devices.Changed();
}

bool ChannelReader::Keep(
    const std::string& sDeviceId, const DeviceIdentity& identity, const ChannelCounts& channels)
{
    return m_pool.Write([&](Database& database) {
        const auto optBefore = DeviceRecords::Find(database, sDeviceId);
        if (!optBefore)
            return false;
        GroupLogical::DeviceAddInfo_t after = *optBefore;
        after.nVideoChannels = channels.nVideo;
        after.nAlarmInputs = channels.nAlarmInputs;
        after.nAlarmOutputs = channels.nAlarmOutputs;
        after.nAccessChannels = channels.nAccess;
        after.nDecodeChannels = channels.nDecode;
        after.nLifts = channels.nLifts;
        after.nLiftFloors = channels.nLiftFloors;
        after.nPosChannels = channels.nPos;
        if (after.sModel.empty())
            after.sModel = FittingModel(identity.sModel);
        if (after.sSerialNumber.empty() && after.nAddMode != GroupLogical::AddByP2P)
            after.sSerialNumber = HoldsIfFilled(GroupLogical::DeviceSerialNumber, identity.sSerialNumber)
                ? identity.sSerialNumber
                : "";
        if (after == *optBefore)
            return false;
        // The version stays: what the device tells does not spoil an edit that is under way.
        DeviceRecords::Update(database, after, {});
        return true;
    });
}

} // namespace Platform
