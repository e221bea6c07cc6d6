// Tells which files of one folder have changed, as the system reports it.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace foundation {

// Watches for as long as the process lives; the folder is made where it is missing, now and when somebody removes it.
class FolderWatch {
 public:
  // `changed` gets a file's name, or nothing when any file may have changed; it is called in the run loop's turns.
  FolderWatch(std::filesystem::path folder, std::function<void(const std::string& name)> changed);
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

 private:
  void begin();
  void readEvents();

  std::filesystem::path folder;
  std::function<void(const std::string&)> changed;
  int descriptor;
};

}  // namespace foundation
