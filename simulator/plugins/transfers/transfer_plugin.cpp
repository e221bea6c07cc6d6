#include <utility>

#include "simulator/plugins/transfers/transfer_thread.hpp"
#include "simulator/url_loading/transfers.hpp"

void brim_start_transfer(url_loading::Request request, url_loading::Completion completion) {
  transfers::TransferThread::shared().start(
      std::make_unique<transfers::Transfer>(std::move(request), std::move(completion)));
}
