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

// As many as the platform opens.
constexpr long maxConnectionsToOneHost = 6;
// Bounds what bodies of hostile servers can hold together.
constexpr long maxConnections = 16;
constexpr int maxSleep = 60'000;

// Signals are for the main thread, and a connection that the other side has closed must not end the process.
class BlockedSignals {
 public:
  BlockedSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
  }
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;
  ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &before, nullptr); }

 private:
  sigset_t before = {};
};

}  // namespace

TransferThread& TransferThread::shared() {
  static TransferThread& thread = []() -> TransferThread& {
    curl_global_init(CURL_GLOBAL_DEFAULT);
    auto* const made = new TransferThread;
    // After the libraries' own, so before them at the process's end.
    std::atexit([] { shared().stop(); });
    return *made;
  }();
  return thread;
}

TransferThread::TransferThread() : multi(curl_multi_init()) {
  curl_multi_setopt(multi, CURLMOPT_MAX_HOST_CONNECTIONS, maxConnectionsToOneHost);
  curl_multi_setopt(multi, CURLMOPT_MAX_TOTAL_CONNECTIONS, maxConnections);
  const BlockedSignals inherited;
  thread = std::thread([this] { run(); });
}

void TransferThread::start(std::unique_ptr<Transfer> transfer) {
  {
    const std::lock_guard lock(mutex);
    added.push_back(std::move(transfer));
  }
  changed.notify_one();
  curl_multi_wakeup(multi);
}

void TransferThread::stop() {
  {
    const std::lock_guard lock(mutex);
    stopping = true;
  }
  changed.notify_one();
  curl_multi_wakeup(multi);
  // A completion may end the process.
  if (thread.get_id() == std::this_thread::get_id()) {
    thread.detach();
  } else if (thread.joinable()) {
    thread.join();
  }
}

void TransferThread::run() {
  // Completions hold and release objects.
  GSRegisterCurrentThread();
  while (waitForWork()) {
    takeNew();
    int count = 0;
    curl_multi_perform(multi, &count);
    finishDone();
    failSilent();
    if (!running.empty()) curl_multi_poll(multi, nullptr, 0, millisecondsToNextDeadline(), nullptr);
  }
}

// False when the process ends.
bool TransferThread::waitForWork() {
  std::unique_lock lock(mutex);
  if (running.empty()) changed.wait(lock, [this] { return stopping || !added.empty(); });
  return !stopping;
}

void TransferThread::takeNew() {
  const std::lock_guard lock(mutex);
  for (std::unique_ptr<Transfer>& transfer : added) {
    CURL* const handle = transfer->handle();
    curl_multi_add_handle(multi, handle);
    running.emplace(handle, std::move(transfer));
  }
  added.clear();
}

std::unique_ptr<Transfer> TransferThread::remove(CURL* handle) {
  curl_multi_remove_handle(multi, handle);
  return std::move(running.extract(handle).mapped());
}

void TransferThread::finishDone() {
  const objc::AutoreleasePool pool;
  int remaining = 0;
  while (const CURLMsg* message = curl_multi_info_read(multi, &remaining)) {
    const CURLcode result = message->data.result;
    remove(message->easy_handle)->finish(result);
  }
}

void TransferThread::failSilent() {
  const objc::AutoreleasePool pool;
  std::vector<CURL*> silent;
  const Clock::time_point now = Clock::now();
  for (const auto& [handle, transfer] : running)
    if (transfer->deadline() <= now) silent.push_back(handle);
  for (CURL* handle : silent) remove(handle)->timeOut();
}

int TransferThread::millisecondsToNextDeadline() const {
  Clock::time_point next = Clock::now() + std::chrono::milliseconds(maxSleep);
  for (const auto& [handle, transfer] : running) next = std::min(next, transfer->deadline());
  const auto remaining = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now()).count();
  return static_cast<int>(std::clamp<decltype(remaining)>(remaining, 0, maxSleep));
}

}  // namespace transfers
