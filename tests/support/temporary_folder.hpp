// A folder of a test's own, gone with it.
#pragma once

#include <stdlib.h>

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>

namespace test {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "brim-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder can be made");
    folder = pattern;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  // A process of the test may be about to end, and still write or remove something itself.
  ~TemporaryFolder() {
    constexpr int maxTries = 200;
    std::error_code error;
    for (int tries = 0; tries < maxTries; ++tries) {
      std::filesystem::remove_all(folder, error);
      if (!error) return;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }

  const std::filesystem::path& path() const { return folder; }

 private:
  std::filesystem::path folder;
};

}  // namespace test
