// Haptic feedback. Each device uses the best feedback that it supports. Main thread.
#pragma once

// Confirms an executed action. Does nothing if the setting vibrate_on_send is off.
void confirmWithHaptic();

// Vibrates for a test banner, regardless of the setting.
void vibrate();
