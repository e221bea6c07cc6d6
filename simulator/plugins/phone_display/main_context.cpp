#include "simulator/plugins/phone_display/main_context.hpp"

#include <poll.h>
#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/run_loop.hpp"

namespace phone_display {

namespace {

// The maximum number of times that dispatch() runs the context before other work of the main thread runs.
constexpr int maxPasses = 16;

std::uint32_t epollEvents(const GPollFD& polled) {
  return (polled.events & G_IO_IN ? EPOLLIN : 0U) | (polled.events & G_IO_OUT ? EPOLLOUT : 0U) |
         (polled.events & G_IO_PRI ? EPOLLPRI : 0U);
}

}  // namespace

MainContext::MainContext(int displayDescriptor, std::function<void()> whenDisplayLost)
    : context_(g_main_context_default()),
      displayDescriptor_(displayDescriptor),
      whenDisplayLost_(std::move(whenDisplayLost)),
      events_(epoll_create1(EPOLL_CLOEXEC)),
      timer_(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)) {
  // GLib wakes an owned context when another thread adds a source to it.
  g_main_context_acquire(context_);
  epoll_event event = {};
  event.events = EPOLLIN;
  event.data.fd = timer_.get();
  epoll_ctl(events_.get(), EPOLL_CTL_ADD, timer_.get(), &event);
  foundation::watchDescriptor(events_.get(), [this] { dispatch(); });
  dispatch();
}

MainContext::~MainContext() {
  foundation::unwatchDescriptor(events_.get());
  g_main_context_release(context_);
}

void MainContext::dispatch() {
  const objc::AutoreleasePool pool;
  std::uint64_t expirations = 0;
  [[maybe_unused]] const ssize_t size = read(timer_.get(), &expirations, sizeof expirations);
  for (int pass = 0; pass < maxPasses && !isDisplayLost_; ++pass) {
    // GTK ends the process when it uses a connection that the server has closed.
    if (hasDisplayHungUp()) return loseDisplay();
    int priority = 0;
    g_main_context_prepare(context_, &priority);
    const int timeout = query(priority);
    g_poll(polled_.data(), static_cast<guint>(polled_.size()), 0);
    if (g_main_context_check(context_, priority, polled_.data(), static_cast<int>(polled_.size())) == FALSE) {
      watchDescriptors();
      return setTimer(timeout);
    }
    g_main_context_dispatch(context_);
  }
  if (!isDisplayLost_) setTimer(0);
}

void MainContext::loseDisplay() {
  if (std::exchange(isDisplayLost_, true)) return;
  foundation::unwatchDescriptor(events_.get());
  whenDisplayLost_();
}

bool MainContext::hasDisplayHungUp() const {
  pollfd display = {displayDescriptor_, POLLIN, 0};
  return poll(&display, 1, 0) > 0 && (display.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

int MainContext::query(int priority) {
  int timeout = -1;
  polled_.resize(polled_.capacity());
  while (true) {
    const int count =
        g_main_context_query(context_, priority, &timeout, polled_.data(), static_cast<int>(polled_.size()));
    const bool fits = static_cast<std::size_t>(count) <= polled_.size();
    polled_.resize(static_cast<std::size_t>(count));
    if (fits) return timeout;
  }
}

// Sets the events of all descriptors each time, because a descriptor can have been closed and its number reused.
void MainContext::watchDescriptors() {
  std::vector<int> current;
  for (const GPollFD& polled : polled_) {
    epoll_event event = {};
    event.data.fd = polled.fd;
    for (const GPollFD& same : polled_)
      if (same.fd == polled.fd) event.events |= epollEvents(same);
    if (epoll_ctl(events_.get(), EPOLL_CTL_MOD, polled.fd, &event) != 0)
      epoll_ctl(events_.get(), EPOLL_CTL_ADD, polled.fd, &event);
    current.push_back(polled.fd);
  }
  for (const int descriptor : watched_)
    if (std::ranges::find(current, descriptor) == current.end())
      epoll_ctl(events_.get(), EPOLL_CTL_DEL, descriptor, nullptr);
  watched_ = std::move(current);
}

void MainContext::setTimer(int milliseconds) {
  constexpr int millisecondsInSecond = 1000;
  constexpr int nanosecondsInMillisecond = 1'000'000;
  itimerspec setting = {};
  if (milliseconds >= 0) {
    setting.it_value.tv_sec = milliseconds / millisecondsInSecond;
    // A time of zero would stop the timer.
    setting.it_value.tv_nsec = std::max(1, milliseconds % millisecondsInSecond * nanosecondsInMillisecond);
  }
  timerfd_settime(timer_.get(), 0, &setting, nullptr);
}

}  // namespace phone_display
