#pragma once

#include <QtGlobal>

#if defined(FINGERPRINTREADER_LIBRARY)
#define FINGERPRINTREADER_EXPORT Q_DECL_EXPORT
#else
#define FINGERPRINTREADER_EXPORT Q_DECL_IMPORT
#endif

/// The fingerprint reader on USB. Each call returns non-zero when the reader did it, and 0 when it did not,
/// with the reason in *pErrorCode; pointers are borrowed and not null. Calls may take as long as the reader
/// does: a thread of their own makes them, one thread at a time. They throw nothing.
namespace FingerprintReader {

enum Error : int
{
    ErrorNone = 0,
    ErrorPackage = 1, ///< the reader's answer was not understood
    ErrorNoFinger = 2,
    ErrorNoReader = 3, ///< none is plugged in, or not any more
    ErrorNotOpen = 4,
    ErrorBadImage = 6, ///< no features in the image
    ErrorMerge = 10, ///< the images are not of one finger
    ErrorSlot = 11, ///< no such slot or buffer, or it is empty
};

/// Value that MergeChar takes and leaves, and that StoreChar leaves.
inline constexpr int MergeValue = 100;
inline constexpr int StoredValue = 0;

/// Opens the reader. Again and again is allowed.
FINGERPRINTREADER_EXPORT int ConfigCommParameterUDisk(int* pErrorCode);
/// Clears the stored template of a slot.
FINGERPRINTREADER_EXPORT int CmdDelChar(int nSlot, int* pErrorCode);
/// Takes an image. Without a finger it succeeds with ErrorNoFinger.
FINGERPRINTREADER_EXPORT int CmdGetRedressImage(int* pErrorCode);
/// Makes the features of the image into buffer 1, 2 or 3.
FINGERPRINTREADER_EXPORT int CmdGenChar(int nBuffer, int* pErrorCode);
/// Merges the three buffers. *pValue is MergeValue before and, when they fit, after the call.
FINGERPRINTREADER_EXPORT int CmdMergeChar(int* pValue, int* pErrorCode);
/// Stores the merged template in the slot. *pValue is that of CmdMergeChar before, and StoredValue after the
/// call when it was stored.
FINGERPRINTREADER_EXPORT int CmdStoreChar(int nSlot, int* pValue, int* pErrorCode);
/// Reads the template of the slot into pTemplate. *pnSize: room there in bytes before, bytes read after the
/// call.
FINGERPRINTREADER_EXPORT int CmdReadCharDirect_xAlg(
    int nSlot, unsigned char* pTemplate, int* pnSize, int* pErrorCode);

} // namespace FingerprintReader
