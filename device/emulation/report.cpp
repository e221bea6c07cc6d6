#include "device/emulation/report.hpp"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <mutex>
#include <set>
#include <string_view>

namespace emulation {

namespace {

const char* fileName = "Brim.dylib";

// Returns the folder that BRIM_REPORT names, or an empty string.
std::string_view reportFolder() {
  static const char* const folder = std::getenv("BRIM_REPORT");
  return folder == nullptr ? "" : folder;
}

// The arguments of this process, separated by spaces.
std::string commandLine() {
  std::ifstream file("/proc/self/cmdline", std::ios::binary);
  std::string arguments(std::istreambuf_iterator<char>(file), {});
  std::replace(arguments.begin(), arguments.end(), '\0', ' ');
  return arguments;
}

class ReportFile {
 public:
  ReportFile() : path_(std::string(reportFolder()) + "/" + std::to_string(getpid())) {
    append("process " + commandLine());
  }

  void append(const std::string& line) {
    const std::lock_guard lock(mutex_);
    if (!reported_.insert(line).second) return;
    std::ofstream file(path_, std::ios::app);
    if (!(file << line << std::endl)) fail(path_ + " cannot be written");
  }

 private:
  std::string path_;
  std::mutex mutex_;
  std::set<std::string> reported_;
};

}  // namespace

bool isReporting() { return !reportFolder().empty(); }

void report(const std::string& line) {
  if (!isReporting()) return;
  // Never destroyed, because exit handlers release objects.
  static auto* const file = new ReportFile;
  file->append(line);
}

void setFileName(const char* name) { fileName = name; }

void fail(const std::string& reason) {
  std::fprintf(stderr, "%s: %s\n", fileName, reason.c_str());
  std::_Exit(1);
}

}  // namespace emulation
