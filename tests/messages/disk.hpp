// A small disk of the test's own, mounted where this process and those that it starts see it, and nobody else.
#pragma once

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace test {

class Disk {
 public:
  explicit Disk(const std::filesystem::path& place) : folder(place) {
    std::filesystem::create_directories(folder);
    mounted = haveMountsOfOurOwn() && mount("none", folder.c_str(), "tmpfs", 0, "size=512k") == 0;
  }
  Disk(const Disk&) = delete;
  Disk& operator=(const Disk&) = delete;
  ~Disk() {
    if (mounted) umount2(folder.c_str(), MNT_DETACH);
  }

  bool isMounted() const { return mounted; }
  void fill() const {
    std::ofstream file(ballast(), std::ios::binary);
    const std::vector<char> block(4096);
    while (file.write(block.data(), static_cast<std::streamsize>(block.size())).flush()) {
    }
  }
  void makeRoom() const { std::filesystem::remove(ballast()); }
  void makeReadOnly() const { mount("none", folder.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr); }

 private:
  static bool haveMountsOfOurOwn() {
    return unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
  }
  std::filesystem::path ballast() const { return folder / "ballast"; }

  std::filesystem::path folder;
  bool mounted = false;
};

}  // namespace test
