#pragma once

#include <FingerprintReader/FingerprintReader.h>

#include <functional>

namespace BasicInfoManagerUI {

/// The calls of the fingerprint reader on USB.
struct FingerReaderCalls
{
    std::function<int(int*)> open = FingerprintReader::ConfigCommParameterUDisk;
    std::function<int(int, int*)> clear = FingerprintReader::CmdDelChar;
    std::function<int(int*)> takeImage = FingerprintReader::CmdGetRedressImage;
    std::function<int(int, int*)> makeFeatures = FingerprintReader::CmdGenChar;
    std::function<int(int*, int*)> merge = FingerprintReader::CmdMergeChar;
    std::function<int(int, int*, int*)> store = FingerprintReader::CmdStoreChar;
    std::function<int(int, unsigned char*, int*, int*)> read = FingerprintReader::CmdReadCharDirect_xAlg;
};

} // namespace BasicInfoManagerUI
