#pragma once

#include <FingerprintReader/FingerprintReader.h>

#include <chrono>

/// What happens at the simulated fingerprint reader. Without any of these calls a finger is put on it about
/// half a second after each image that was taken. One state a process; any thread.
namespace FingerprintReader::Simulation {

enum class Call
{
    Open,
    Delete,
    Image,
    Generate,
    Merge,
    Store,
    Read
};

/// As at the start of the process.
FINGERPRINTREADER_EXPORT void Reset();
/// The finger is there whenever it is asked for, without a wait.
FINGERPRINTREADER_EXPORT void SetFingerAtOnce();
/// That call fails with the code from now on.
FINGERPRINTREADER_EXPORT void SetFails(Call call, int nErrorCode);
/// The next nTimes images show no finger.
FINGERPRINTREADER_EXPORT void SetNoFinger(int nTimes);
/// Unplugged, every call fails; plugged in again, the reader has to be opened again.
FINGERPRINTREADER_EXPORT void SetPlugged(bool bPlugged);
/// The reader is unplugged at the nth image from now on (from 1).
FINGERPRINTREADER_EXPORT void UnplugAtImage(int nImage);
/// The values that CmdMergeChar and CmdStoreChar leave.
FINGERPRINTREADER_EXPORT void SetValues(int nMergeValue, int nStoredValue);
/// Each call of that kind takes so long.
FINGERPRINTREADER_EXPORT void SetDuration(Call call, std::chrono::milliseconds duration);

} // namespace FingerprintReader::Simulation
