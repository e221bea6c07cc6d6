#include "simulator/url_loading/transfers.hpp"

#include <utility>

#include "simulator/foundation/plugin.hpp"

namespace url_loading {

void startTransfer(Request request, Completion completion) {
  static const auto start = reinterpret_cast<decltype(&brim_start_transfer)>(
      foundation::pluginFunction("transfers.so", "brim_start_transfer"));
  if (start == nullptr) {
    completion({.url = request.url, .error = UrlError::Unknown});
  } else {
    start(std::move(request), std::move(completion));
  }
}

}  // namespace url_loading
