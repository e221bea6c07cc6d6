// System sounds and vibrations. Any thread.
#pragma once

#include <cstdint>

using SystemSoundID = std::uint32_t;

extern "C" {
void AudioServicesPlaySystemSound(SystemSoundID sound);
void AudioServicesPlayAlertSound(SystemSoundID sound);
}
