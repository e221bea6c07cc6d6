// Receives notifications from other processes of the phone, which ask the home screen to show them.
#pragma once

#include <functional>

#include "simulator/process/bulletin_message.hpp"

namespace springboard {

// Listens on a socket in the root. Calls `present` for each bulletin while the main thread processes external events.
// Ignores invalid messages. If the socket cannot be created, prints an error and receives no bulletins. Call this once,
// after the home screen has started. Main thread.
void listenForBulletins(std::function<void(const process::Bulletin&)> present);
// Closes and removes the socket of this process. Main thread.
void stopListeningForBulletins();

}  // namespace springboard
