// Creates an empty temporary folder. The destructor removes the folder with its contents.
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
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot create a temporary folder");
    folder_ = pattern;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  // Removes the folder. Retries, because a child process of the test can create or remove files in the folder while the
  // process ends.
  ~TemporaryFolder() {
    constexpr int maxAttempts = 200;
    std::error_code error;
    for (int attempt = 0; attempt < maxAttempts; ++attempt) {
      std::filesystem::remove_all(folder_, error);
      if (!error) return;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }

  const std::filesystem::path& path() const { return folder_; }

 private:
  std::filesystem::path folder_;
};

}  // namespace test
