#include "simulator/foundation/notification_daemon.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <string>
#include <system_error>

namespace foundation {

namespace {

namespace fs = std::filesystem;

// The file in which the daemon registers, as Foundation names it: its port's path, and the process's number on the
// second line.
constexpr const char* registration = "NSMessagePort/names/R0ROQ1NlcnZlcg==";

fs::path& daemonFolder() {
  static fs::path& folder = *new fs::path;
  return folder;
}

// Every process of the folder holds this shared; who gets it alone is the last one.
int processesLock = -1;

bool isDaemon(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/comm");
  std::string name;
  return std::getline(file, name) && name == "gdnc";
}

void endDaemon() {
  std::ifstream file(daemonFolder() / registration);
  std::string port;
  pid_t process = 0;
  if (std::getline(file, port) && file >> process && isDaemon(process)) kill(process, SIGKILL);
}

void leaveFolder() {
  if (flock(processesLock, LOCK_EX | LOCK_NB) != 0) return;
  endDaemon();
  std::error_code error;
  fs::remove_all(daemonFolder(), error);
}

// A process that is leaving may be removing the folder at this moment: then the lock is on a file that is gone.
bool lockIsInFolder(const fs::path& file) {
  struct stat held = {};
  struct stat present = {};
  return fstat(processesLock, &held) == 0 && stat(file.c_str(), &present) == 0 && held.st_ino == present.st_ino;
}

bool tryToEnter(const fs::path& folder) {
  fs::create_directories(folder);
  fs::permissions(folder, fs::perms::owner_all);
  const fs::path file = folder / "processes";
  processesLock = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (processesLock < 0 && errno != ENOENT)
    throw fs::filesystem_error("cannot open", file, std::error_code(errno, std::generic_category()));
  if (flock(processesLock, LOCK_SH) == 0 && lockIsInFolder(file)) return true;
  close(processesLock);
  return false;
}

}  // namespace

void useDaemonFolder(const fs::path& folder) {
  while (!tryToEnter(folder)) {
  }
  daemonFolder() = folder;
  setenv("TEMP", folder.c_str(), 1);
  setenv("TMP", folder.c_str(), 1);
  std::atexit(&leaveFolder);
}

}  // namespace foundation
