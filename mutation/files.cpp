#include "mutation/files.hpp"

#include <stdio.h>
#include <sys/wait.h>

#include <array>
#include <atomic>
#include <exception>
#include <fstream>
#include <mutex>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <vector>

namespace mutation {

namespace fs = std::filesystem;

std::string readFile(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw std::runtime_error(path.string() + " cannot be read");
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

void writeFile(const fs::path& path, const std::string& text) {
  if (fs::exists(path) && readFile(path) == text) return;
  fs::create_directories(path.parent_path());
  std::ofstream stream(path, std::ios::binary);
  stream << text;
  if (!stream.flush()) throw std::runtime_error(path.string() + " cannot be written");
}

CommandResult runCommand(const std::string& command) {
  CommandResult result;
  FILE* const stream = popen(("{ " + command + "\n} 2>&1 </dev/null").c_str(), "re");
  if (stream == nullptr) throw std::runtime_error("the shell cannot be started");
  std::array<char, 4096> buffer;
  while (const std::size_t count = fread(buffer.data(), 1, buffer.size(), stream))
    result.output.append(buffer.data(), count);
  const int status = pclose(stream);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

void inParallel(std::size_t count, const std::function<void(std::size_t)>& function) {
  std::atomic<std::size_t> next = 0;
  std::exception_ptr failure;
  std::mutex mutex;
  std::vector<std::jthread> threads;
  for (unsigned thread = 0; thread < std::max(1U, std::thread::hardware_concurrency()); ++thread) {
    threads.emplace_back([&] {
      for (std::size_t index = next++; index < count; index = next++) {
        try {
          function(index);
        } catch (...) {
          const std::lock_guard lock(mutex);
          failure = std::current_exception();
          next = count;
        }
      }
    });
  }
  threads.clear();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace mutation
