// Reports which files in a folder change. Uses inotify.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace foundation {

// Watches a folder until the process ends. The object must never be destroyed. Creates the folder if it is missing, and
// creates it again if it is removed. Main thread.
class FolderWatch {
 public:
  // The run loop calls `changed` with the name of a changed file. The name is empty if any of the files can have
  // changed.
  FolderWatch(std::filesystem::path folder, std::function<void(const std::string& name)> changed);
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

 private:
  void addWatch();
  void readEvents();

  std::filesystem::path folder_;
  std::function<void(const std::string&)> changed_;
  int descriptor_;
};

}  // namespace foundation
