// Transfers over the network, off the main thread.
#pragma once

#include <functional>

#include "simulator/url_loading/transfer_values.hpp"

namespace url_loading {

// Called once, on the transfers' own thread, which it must not keep waiting.
using Completion = std::function<void(Answer)>;

// Any thread. The completion may be called before this returns where the transfer cannot even begin. A process that
// ends leaves its transfers behind.
void startTransfer(Request request, Completion completion);

}  // namespace url_loading
