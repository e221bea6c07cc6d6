#include "simulator/process/instance_lock.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace process {

namespace {

namespace fs = std::filesystem;
using foundation::FileDescriptor;

}  // namespace

FileDescriptor lockInstance(const fs::path& folder, const char* name) {
  fs::create_directories(folder);
  const fs::path path = folder / name;
  FileDescriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (!file.isOpen()) throw fs::filesystem_error("cannot open", path, std::error_code(errno, std::generic_category()));
  if (flock(file.get(), LOCK_EX | LOCK_NB) != 0) return {};
  const std::string process = std::to_string(getpid()) + "\n";
  // The process identifier in the file is for information only, so a failed write is ignored.
  if (ftruncate(file.get(), 0) == 0) static_cast<void>(pwrite(file.get(), process.data(), process.size(), 0));
  return file;
}

}  // namespace process
