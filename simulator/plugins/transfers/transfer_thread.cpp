#include "simulator/plugins/transfers/transfer_thread.hpp"

#include <pthread.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <utility>

#include "objc/autorelease_pool.hpp"

extern "C" bool GSRegisterCurrentThread();

namespace transfers {

namespace {

// The maximum number of connections to one host. The platform has the same limit.
constexpr long maxConnectionsToOneHost = 6;
// The maximum number of connections. It limits the total size of the bodies that hostile servers can send at the same
// time.
constexpr long maxConnections = 16;
constexpr int maxSleepMilliseconds = 60'000;

// Blocks all signals in the current thread while the object exists. A thread that is started during that time inherits
// the mask. The main thread then handles all signals, and SIGPIPE from a closed connection does not end the process.
class BlockedSignals {
 public:
  BlockedSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &previous_);
  }
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;
  ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &previous_, nullptr); }

 private:
  sigset_t previous_ = {};
};

}  // namespace

TransferThread& TransferThread::shared() {
  static TransferThread& thread = []() -> TransferThread& {
    curl_global_init(CURL_GLOBAL_DEFAULT);
    auto* const created = new TransferThread;
    // Exit handlers run in reverse order of registration. Therefore, this handler runs before the handlers that the
    // libraries have registered in the lines above.
    std::atexit([] { shared().stop(); });
    return *created;
  }();
  return thread;
}

TransferThread::TransferThread() : multi_(curl_multi_init()) {
  curl_multi_setopt(multi_, CURLMOPT_MAX_HOST_CONNECTIONS, maxConnectionsToOneHost);
  curl_multi_setopt(multi_, CURLMOPT_MAX_TOTAL_CONNECTIONS, maxConnections);
  const BlockedSignals blockedSignals;
  thread_ = std::thread([this] { run(); });
}

void TransferThread::start(std::unique_ptr<Transfer> transfer) {
  {
    const std::lock_guard lock(mutex_);
    pending_.push_back(std::move(transfer));
  }
  changed_.notify_one();
  curl_multi_wakeup(multi_);
}

void TransferThread::stop() {
  {
    const std::lock_guard lock(mutex_);
    isStopping_ = true;
  }
  changed_.notify_one();
  curl_multi_wakeup(multi_);
  // If a completion exits the process, this function runs on the transfer thread, which cannot wait for its own end.
  if (thread_.get_id() == std::this_thread::get_id()) {
    thread_.detach();
  } else if (thread_.joinable()) {
    thread_.join();
  }
}

void TransferThread::run() {
  // Registers this thread with Foundation, because completions retain and release objects.
  GSRegisterCurrentThread();
  while (waitForWork()) {
    startPending();
    int count = 0;
    curl_multi_perform(multi_, &count);
    finishCompleted();
    endTimedOut();
    if (!running_.empty()) curl_multi_poll(multi_, nullptr, 0, millisecondsToNextDeadline(), nullptr);
  }
}

// Waits for transfers. Returns false if the thread must end.
bool TransferThread::waitForWork() {
  std::unique_lock lock(mutex_);
  if (running_.empty()) changed_.wait(lock, [this] { return isStopping_ || !pending_.empty(); });
  return !isStopping_;
}

void TransferThread::startPending() {
  const std::lock_guard lock(mutex_);
  for (std::unique_ptr<Transfer>& transfer : pending_) {
    CURL* const handle = transfer->handle();
    curl_multi_add_handle(multi_, handle);
    running_.emplace(handle, std::move(transfer));
  }
  pending_.clear();
}

std::unique_ptr<Transfer> TransferThread::remove(CURL* handle) {
  curl_multi_remove_handle(multi_, handle);
  return std::move(running_.extract(handle).mapped());
}

void TransferThread::finishCompleted() {
  const objc::AutoreleasePool pool;
  int remaining = 0;
  while (const CURLMsg* message = curl_multi_info_read(multi_, &remaining)) {
    const CURLcode result = message->data.result;
    remove(message->easy_handle)->finish(result);
  }
}

void TransferThread::endTimedOut() {
  const objc::AutoreleasePool pool;
  std::vector<CURL*> timedOut;
  const Clock::time_point now = Clock::now();
  for (const auto& [handle, transfer] : running_)
    if (transfer->deadline() <= now) timedOut.push_back(handle);
  for (CURL* handle : timedOut) remove(handle)->timeOut();
}

int TransferThread::millisecondsToNextDeadline() const {
  Clock::time_point next = Clock::now() + std::chrono::milliseconds(maxSleepMilliseconds);
  for (const auto& [handle, transfer] : running_) next = std::min(next, transfer->deadline());
  const auto remaining = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now()).count();
  return static_cast<int>(std::clamp<decltype(remaining)>(remaining, 0, maxSleepMilliseconds));
}

}  // namespace transfers
