#include "simulator/foundation/notification_daemon.hpp"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
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
// Every process of the place holds a shared lock on this file; who gets it alone is the last one.
constexpr const char* lockFile = "processes";
constexpr const char* placesFolder = "/tmp";
constexpr const char* linkToRoot = "root";

struct Place {
  fs::path folder;
  int lock = -1;
};

Place& ownPlace() {
  static Place& place = *new Place;
  return place;
}

std::string namePrefix() { return "brim-" + std::to_string(getuid()) + "-"; }

// The same in every process of the root, whichever compiler built it.
std::string hashOf(const std::string& text) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char letter : text) hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001b3;
  char written[2 * sizeof hash + 1];
  std::snprintf(written, sizeof written, "%016lx", hash);
  return written;
}

bool isDaemon(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/comm");
  std::string name;
  return std::getline(file, name) && name == "gdnc";
}

// 0 where none is registered.
pid_t daemonIn(const fs::path& folder) {
  std::ifstream file(folder / registration);
  std::string port;
  pid_t process = 0;
  return std::getline(file, port) && file >> process && isDaemon(process) ? process : 0;
}

void endDaemonIn(const fs::path& folder) {
  if (const pid_t process = daemonIn(folder); process > 0) kill(process, SIGKILL);
}

// Where no other process holds the place.
void clearIfUnused(const Place& place) {
  if (flock(place.lock, LOCK_EX | LOCK_NB) != 0) return;
  endDaemonIn(place.folder);
  std::error_code error;
  fs::remove_all(place.folder, error);
}

void leaveOwnPlace() { clearIfUnused(ownPlace()); }

// Anybody may make a folder of such a name, or a link; only one's own folder will do.
bool isOwnFolder(const struct stat& made) { return S_ISDIR(made.st_mode) && made.st_uid == getuid(); }

int openLock(const fs::path& folder) {
  return open((folder / lockFile).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
}

// One without a lock was made again by a daemon that was still starting when the place was cleared.
void clearIfUnused(const fs::path& folder) {
  struct stat made = {};
  if (lstat(folder.c_str(), &made) != 0 || !isOwnFolder(made)) return;
  const Place place = {folder, openLock(folder)};
  if (place.lock < 0) return;
  clearIfUnused(place);
  close(place.lock);
}

// Processes that were killed cannot clear up themselves.
void clearUnusedPlaces() {
  const std::string prefix = namePrefix();
  std::error_code error;
  for (fs::directory_iterator entry(placesFolder, error), end; !error && entry != end; entry.increment(error))
    if (entry->path().filename().native().starts_with(prefix)) clearIfUnused(entry->path());
}

// False where another process cleared it at this moment.
bool makePrivateFolder(const fs::path& folder) {
  struct stat made = {};
  if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
    throw fs::filesystem_error("cannot make", folder, std::error_code(errno, std::generic_category()));
  if (lstat(folder.c_str(), &made) != 0) return false;
  if (!isOwnFolder(made))
    throw fs::filesystem_error("not a folder of this user", folder, std::make_error_code(std::errc::permission_denied));
  return chmod(folder.c_str(), S_IRWXU) == 0 || errno != ENOENT;
}

// A process that is leaving may be removing the folder at this moment: then the lock is on a file that is gone.
bool lockIsIn(const Place& place) {
  struct stat held = {};
  struct stat present = {};
  return fstat(place.lock, &held) == 0 && stat((place.folder / lockFile).c_str(), &present) == 0 &&
         held.st_ino == present.st_ino;
}

bool tryToEnter(Place& place) {
  if (!makePrivateFolder(place.folder)) return false;
  place.lock = openLock(place.folder);
  if (place.lock < 0 && errno != ENOENT)
    throw fs::filesystem_error("cannot open", place.folder / lockFile, std::error_code(errno, std::generic_category()));
  if (place.lock >= 0 && flock(place.lock, LOCK_SH) == 0 && lockIsIn(place)) return true;
  if (place.lock >= 0) close(place.lock);
  return false;
}

// Another process of the root may be making it, too. What is no link was made by a daemon that outlived the last one.
void linkRoot(const fs::path& link, const fs::path& root) {
  std::error_code error;
  fs::create_directory_symlink(root, link, error);
  if (error == std::errc::file_exists && !fs::is_symlink(fs::symlink_status(link))) {
    fs::remove_all(link);
    fs::create_directory_symlink(root, link, error);
  }
  if (error && error != std::errc::file_exists) throw fs::filesystem_error("cannot make", link, error);
}

}  // namespace

void useDaemonOf(const fs::path& root) {
  clearUnusedPlaces();
  Place& place = ownPlace();
  place.folder = fs::path(placesFolder) / (namePrefix() + hashOf(root.native()));
  while (!tryToEnter(place)) {
  }
  linkRoot(plainPathOfRoot(), root);
  setenv("TEMP", place.folder.c_str(), 1);
  setenv("TMP", place.folder.c_str(), 1);
  std::atexit(&leaveOwnPlace);
}

fs::path plainPathOfRoot() { return ownPlace().folder / linkToRoot; }

Descriptor watchDaemon() {
  const pid_t process = ownPlace().lock < 0 ? 0 : daemonIn(ownPlace().folder);
  return Descriptor(process > 0 ? static_cast<int>(syscall(SYS_pidfd_open, process, 0)) : -1);
}

bool daemonRuns(const Descriptor& watched) {
  pollfd daemon = {watched.get(), POLLIN, 0};
  return watched.isOpen() && poll(&daemon, 1, 0) == 0;
}

}  // namespace foundation
