// Receives the notifications that other processes of the phone ask the home screen to show.
#pragma once

#include <functional>

#include "simulator/process/bulletin_message.hpp"

namespace springboard {

// Listens on a socket in the root and calls `present` for each bulletin when the main thread processes external events.
// A message that is not valid is ignored. If the socket cannot be created, an error is printed and no bulletin is
// received. Call it once, after the home screen has started. Main thread.
void listenForBulletins(std::function<void(const process::Bulletin&)> present);

}  // namespace springboard
