#include <FingerprintReader/FingerprintReader.h>

#include "SimulatedFingerprintReader.h"

#include <VxGUI/VxSingleton.h>

#include <array>
#include <map>
#include <mutex>
#include <random>
#include <thread>

namespace FingerprintReader {

namespace {

using Simulation::Call;
using Clock = std::chrono::steady_clock;

constexpr int TemplateBytes = 810;
constexpr int Buffers = 3;
constexpr int Slot = 1;
constexpr std::chrono::milliseconds FingerDelay{500};

/// What is set from outside.
struct Behaviour
{
    std::map<Call, int> mapFailures;
    std::map<Call, std::chrono::milliseconds> mapDurations;
    bool bFingerAtOnce = false;
    int nNoFinger = 0;
    int nUnplugAt = 0; ///< images until then; 0: never
    int nMergeValue = MergeValue;
    int nStoredValue = StoredValue;
};

struct Reader
{
    std::mutex mutex;
    Behaviour behaviour;
    bool bPlugged = true;
    bool bOpen = false;
    bool bImage = false;
    std::array<bool, Buffers> arrFilled{};
    bool bMerged = false;
    bool bStored = false;
    std::array<unsigned char, TemplateBytes> arrTemplate{};
    Clock::time_point fingerFrom{}; ///< when the finger is put on
};

Reader& TheReader()
{
    return *VxGUI::VxSingleton<Reader>::Instance();
}

/// Does what every call does first; false, with the error, when the reader cannot go on.
bool Begin(Reader& reader, std::unique_lock<std::mutex>& lock, Call call, int* pErrorCode)
{
    const auto duration = reader.behaviour.mapDurations.find(call);
    if (duration != reader.behaviour.mapDurations.end()) {
        const auto length = duration->second;
        lock.unlock();
        std::this_thread::sleep_for(length);
        lock.lock();
    }
    const auto failure = reader.behaviour.mapFailures.find(call);
    *pErrorCode = ErrorNone;
    if (!reader.bPlugged)
        *pErrorCode = ErrorNoReader;
    else if (call != Call::Open && !reader.bOpen)
        *pErrorCode = ErrorNotOpen;
    else if (failure != reader.behaviour.mapFailures.end())
        *pErrorCode = failure->second;
    return *pErrorCode == ErrorNone;
}

int Fail(int* pErrorCode, int nErrorCode)
{
    *pErrorCode = nErrorCode;
    return 0;
}

void Unplug(Reader& reader)
{
    reader.bPlugged = false;
    reader.bOpen = false;
}

} // namespace

int ConfigCommParameterUDisk(int* pErrorCode)
{
    Reader& reader = TheReader();
    std::unique_lock lock(reader.mutex);
    if (!Begin(reader, lock, Call::Open, pErrorCode))
        return 0;
    reader.bOpen = true;
    return 1;
}

int CmdDelChar(int nSlot, int* pErrorCode)
{
    Reader& reader = TheReader();
    std::unique_lock lock(reader.mutex);
    if (!Begin(reader, lock, Call::Delete, pErrorCode))
        return 0;
    if (nSlot != Slot)
        return Fail(pErrorCode, ErrorSlot);
    reader.bStored = reader.bMerged = reader.bImage = false;
    reader.arrFilled = {};
    reader.fingerFrom = Clock::now() + FingerDelay;
    return 1;
}

int CmdGetRedressImage(int* pErrorCode)
{
    Reader& reader = TheReader();
    std::unique_lock lock(reader.mutex);
    if (reader.behaviour.nUnplugAt > 0 && --reader.behaviour.nUnplugAt == 0)
        Unplug(reader);
    if (!Begin(reader, lock, Call::Image, pErrorCode))
        return 0;
    const bool bKeptAway = reader.behaviour.nNoFinger > 0;
    if (bKeptAway)
        --reader.behaviour.nNoFinger;
    if (bKeptAway || (!reader.behaviour.bFingerAtOnce && Clock::now() < reader.fingerFrom)) {
        *pErrorCode = ErrorNoFinger;
        return 1;
    }
    reader.bImage = true;
    reader.fingerFrom = Clock::now() + FingerDelay;
    return 1;
}

int CmdGenChar(int nBuffer, int* pErrorCode)
{
    Reader& reader = TheReader();
    std::unique_lock lock(reader.mutex);
    if (!Begin(reader, lock, Call::Generate, pErrorCode))
        return 0;
    if (nBuffer < 1 || nBuffer > Buffers)
        return Fail(pErrorCode, ErrorSlot);
    if (!reader.bImage)
        return Fail(pErrorCode, ErrorBadImage);
    reader.bImage = false;
    reader.arrFilled[std::size_t(nBuffer - 1)] = true;
    return 1;
}

int CmdMergeChar(int* pValue, int* pErrorCode)
{
    Reader& reader = TheReader();
    std::unique_lock lock(reader.mutex);
    if (!Begin(reader, lock, Call::Merge, pErrorCode))
        return 0;
    for (const bool bFilled : reader.arrFilled) {
        if (!bFilled || *pValue != MergeValue)
            return Fail(pErrorCode, ErrorMerge);
    }
    *pValue = reader.behaviour.nMergeValue;
    reader.bMerged = true;
    return 1;
}

int CmdStoreChar(int nSlot, int* pValue, int* pErrorCode)
{
    Reader& reader = TheReader();
    std::unique_lock lock(reader.mutex);
    if (!Begin(reader, lock, Call::Store, pErrorCode))
        return 0;
    if (nSlot != Slot || !reader.bMerged)
        return Fail(pErrorCode, ErrorSlot);
    std::random_device random;
    for (unsigned char& byte : reader.arrTemplate)
        byte = static_cast<unsigned char>(random());
    *pValue = reader.behaviour.nStoredValue;
    reader.bStored = true;
    return 1;
}

int CmdReadCharDirect_xAlg(int nSlot, unsigned char* pTemplate, int* pnSize, int* pErrorCode)
{
    Reader& reader = TheReader();
    std::unique_lock lock(reader.mutex);
    if (!Begin(reader, lock, Call::Read, pErrorCode))
        return 0;
    if (nSlot != Slot || !reader.bStored || *pnSize < TemplateBytes)
        return Fail(pErrorCode, ErrorSlot);
    std::copy(reader.arrTemplate.begin(), reader.arrTemplate.end(), pTemplate);
    *pnSize = TemplateBytes;
    return 1;
}

namespace Simulation {

void Reset()
{
    Reader& reader = TheReader();
    const std::lock_guard lock(reader.mutex);
    reader.behaviour = {};
    reader.bPlugged = true;
    reader.bOpen = false;
}

void SetFingerAtOnce()
{
    const std::lock_guard lock(TheReader().mutex);
    TheReader().behaviour.bFingerAtOnce = true;
}

void SetFails(Call call, int nErrorCode)
{
    const std::lock_guard lock(TheReader().mutex);
    TheReader().behaviour.mapFailures[call] = nErrorCode;
}

void SetNoFinger(int nTimes)
{
    const std::lock_guard lock(TheReader().mutex);
    TheReader().behaviour.nNoFinger = nTimes;
}

void SetPlugged(bool bPlugged)
{
    const std::lock_guard lock(TheReader().mutex);
    if (bPlugged)
        TheReader().bPlugged = true;
    else
        Unplug(TheReader());
}

void UnplugAtImage(int nImage)
{
    const std::lock_guard lock(TheReader().mutex);
    TheReader().behaviour.nUnplugAt = nImage;
}

void SetValues(int nMergeValue, int nStoredValue)
{
    const std::lock_guard lock(TheReader().mutex);
    TheReader().behaviour.nMergeValue = nMergeValue;
    TheReader().behaviour.nStoredValue = nStoredValue;
}

void SetDuration(Call call, std::chrono::milliseconds duration)
{
    const std::lock_guard lock(TheReader().mutex);
    TheReader().behaviour.mapDurations[call] = duration;
}

} // namespace Simulation

} // namespace FingerprintReader
