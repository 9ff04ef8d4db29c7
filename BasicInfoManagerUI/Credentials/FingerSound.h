#pragma once

namespace BasicInfoManagerUI {

/// A sound for the nth press of a finger (1 to 3): that of the skin when it has one, else the system's
/// signal. Silent without an audio device.
void PlayFingerSound(int nPress);

} // namespace BasicInfoManagerUI
