// Mounts a 512 KiB file system that only this process and its child processes see. Mounting needs privileges, so a test
// must check isMounted() and skip itself otherwise.
#pragma once

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace test {

class MountedDisk {
 public:
  explicit MountedDisk(const std::filesystem::path& folder) : folder_(folder) {
    std::filesystem::create_directories(folder_);
    isMounted_ = enterPrivateMountNamespace() && mount("none", folder_.c_str(), "tmpfs", 0, "size=512k") == 0;
  }
  MountedDisk(const MountedDisk&) = delete;
  MountedDisk& operator=(const MountedDisk&) = delete;
  ~MountedDisk() {
    if (isMounted_) umount2(folder_.c_str(), MNT_DETACH);
  }

  bool isMounted() const { return isMounted_; }
  // Writes a file until the disk is full.
  void fill() const {
    std::ofstream file(fillerFile(), std::ios::binary);
    const std::vector<char> block(4096);
    while (file.write(block.data(), static_cast<std::streamsize>(block.size())).flush()) {
    }
  }
  void removeFillerFile() const { std::filesystem::remove(fillerFile()); }
  void makeReadOnly() const { mount("none", folder_.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr); }

 private:
  static bool enterPrivateMountNamespace() {
    return unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
  }
  std::filesystem::path fillerFile() const { return folder_ / "filler"; }

  std::filesystem::path folder_;
  bool isMounted_ = false;
};

}  // namespace test
