// Haptic feedback, as strong as the device supports. Main thread.
#pragma once

// Confirms an executed action, if the setting vibrate_on_send is on.
void confirmWithHaptic();

// Vibrates for a test banner, regardless of the setting.
void vibrate();
