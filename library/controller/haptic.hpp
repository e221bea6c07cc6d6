// The feedback that confirms an action, as strong as the device can.
#pragma once

// Plays it when the setting "vibrate_on_send" is on.
void confirmWithHaptic();

// The plain vibration of a test banner, whatever the setting.
void vibrate();
