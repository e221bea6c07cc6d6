// Sounds and vibrations of the platform's audio services.
#pragma once

#include <cstdint>

using SystemSoundID = std::uint32_t;

extern "C" {
void AudioServicesPlaySystemSound(SystemSoundID sound);
void AudioServicesPlayAlertSound(SystemSoundID sound);
}
