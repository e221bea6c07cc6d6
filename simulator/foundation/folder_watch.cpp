#include "simulator/foundation/folder_watch.hpp"

#include <sys/inotify.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <system_error>
#include <utility>

#include "simulator/foundation/run_loop.hpp"

namespace foundation {

namespace {

constexpr std::uint32_t fileEvents = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr std::uint32_t folderRemovedEvents = IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED | IN_UNMOUNT;

}  // namespace

FolderWatch::FolderWatch(std::filesystem::path folder, std::function<void(const std::string&)> changed)
    : folder_(std::move(folder)), changed_(std::move(changed)), descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  addWatch();
  if (descriptor_ >= 0) watchDescriptor(descriptor_, [this] { readEvents(); });
}

void FolderWatch::addWatch() {
  std::error_code error;
  std::filesystem::create_directories(folder_, error);
  if (inotify_add_watch(descriptor_, folder_.c_str(), fileEvents | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR) < 0)
    std::fprintf(stderr, "cannot watch %s for changes: %s\n", folder_.c_str(), std::strerror(errno));
}

void FolderWatch::readEvents() {
  alignas(inotify_event) char buffer[16384];
  for (ssize_t size = read(descriptor_, buffer, sizeof buffer); size > 0;
       size = read(descriptor_, buffer, sizeof buffer)) {
    for (ssize_t position = 0; position < size;) {
      const auto* event = reinterpret_cast<const inotify_event*>(buffer + position);
      position += static_cast<ssize_t>(sizeof *event + event->len);
      if ((event->mask & folderRemovedEvents) != 0) addWatch();
      changed_(event->len == 0 ? "" : event->name);
    }
  }
}

}  // namespace foundation
