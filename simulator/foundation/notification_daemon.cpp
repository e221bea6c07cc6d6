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

// The file in which the daemon registers, relative to the daemon's folder. Foundation defines the name. The first line
// is the path of the daemon's port. The second line is its process identifier.
constexpr const char* registrationFile = "NSMessagePort/names/R0ROQ1NlcnZlcg==";
// The lock file. Each process of a root has a shared lock on it. A process that gets an exclusive lock is the last one.
constexpr const char* lockFile = "processes";
constexpr const char* temporaryFolder = "/tmp";
constexpr const char* linkToRoot = "root";

// The folder that contains the daemon's registration and sockets, and this process's descriptor of the lock file.
struct DaemonFolder {
  fs::path path;
  int lock = -1;
};

DaemonFolder& ownFolder() {
  static DaemonFolder& folder = *new DaemonFolder;
  return folder;
}

std::string namePrefix() { return "brim-" + std::to_string(getuid()) + "-"; }

// Returns the FNV-1a hash of the text. It is the same in all processes of a root, while the result of std::hash can
// differ between builds.
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

// Returns the process identifier of the registered daemon, or 0 if no daemon is running.
pid_t daemonIn(const fs::path& folder) {
  std::ifstream file(folder / registrationFile);
  std::string port;
  pid_t process = 0;
  return std::getline(file, port) && file >> process && isDaemon(process) ? process : 0;
}

void endDaemonIn(const fs::path& folder) {
  if (const pid_t process = daemonIn(folder); process > 0) kill(process, SIGKILL);
}

// If no other process has a lock, ends the daemon and removes the folder.
void removeIfUnused(const DaemonFolder& folder) {
  if (flock(folder.lock, LOCK_EX | LOCK_NB) != 0) return;
  endDaemonIn(folder.path);
  std::error_code error;
  fs::remove_all(folder.path, error);
}

void removeOwnFolderIfUnused() { removeIfUnused(ownFolder()); }

// Returns whether the status describes a folder that this user owns. Other users can create a folder or a link with the
// expected name in the temporary folder.
bool isFolderOfThisUser(const struct stat& status) { return S_ISDIR(status.st_mode) && status.st_uid == getuid(); }

int openLock(const fs::path& folder) {
  return open((folder / lockFile).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
}

// If no process uses the folder, removes it. The folder can lack a lock file: if the folder was removed while a daemon
// was still starting, the daemon has created the folder again without the file. In that case, openLock creates the
// file.
void removeIfUnused(const fs::path& path) {
  struct stat status = {};
  if (lstat(path.c_str(), &status) != 0 || !isFolderOfThisUser(status)) return;
  const DaemonFolder folder = {path, openLock(path)};
  if (folder.lock < 0) return;
  removeIfUnused(folder);
  close(folder.lock);
}

// Removes the folders of roots whose last process was killed.
void removeUnusedFolders() {
  const std::string prefix = namePrefix();
  std::error_code error;
  for (fs::directory_iterator entry(temporaryFolder, error), end; !error && entry != end; entry.increment(error))
    if (entry->path().filename().native().starts_with(prefix)) removeIfUnused(entry->path());
}

// Creates the folder. Returns false if another process is removing it at the same time.
bool createPrivateFolder(const fs::path& path) {
  struct stat status = {};
  if (mkdir(path.c_str(), S_IRWXU) != 0 && errno != EEXIST)
    throw fs::filesystem_error("cannot create", path, std::error_code(errno, std::generic_category()));
  if (lstat(path.c_str(), &status) != 0) return false;
  if (!isFolderOfThisUser(status))
    throw fs::filesystem_error("not a folder of this user", path, std::make_error_code(std::errc::permission_denied));
  return chmod(path.c_str(), S_IRWXU) == 0 || errno != ENOENT;
}

// Returns whether the open lock file is still in the folder. Returns false if an exiting process has removed the folder
// after this process opened the file.
bool isLockFileInFolder(const DaemonFolder& folder) {
  struct stat locked = {};
  struct stat present = {};
  return fstat(folder.lock, &locked) == 0 && stat((folder.path / lockFile).c_str(), &present) == 0 &&
         locked.st_ino == present.st_ino;
}

bool tryToLock(DaemonFolder& folder) {
  if (!createPrivateFolder(folder.path)) return false;
  folder.lock = openLock(folder.path);
  if (folder.lock < 0 && errno != ENOENT)
    throw fs::filesystem_error("cannot open", folder.path / lockFile, std::error_code(errno, std::generic_category()));
  if (folder.lock >= 0 && flock(folder.lock, LOCK_SH) == 0 && isLockFileInFolder(folder)) return true;
  if (folder.lock >= 0) close(folder.lock);
  return false;
}

// Creates the link to the root. Another process of the root can create the link at the same time. If a folder already
// exists at its path, it was created by a daemon that outlived the last process of the root.
void linkRoot(const fs::path& link, const fs::path& root) {
  std::error_code error;
  fs::create_directory_symlink(root, link, error);
  if (error == std::errc::file_exists && !fs::is_symlink(fs::symlink_status(link))) {
    fs::remove_all(link);
    fs::create_directory_symlink(root, link, error);
  }
  if (error && error != std::errc::file_exists) throw fs::filesystem_error("cannot create", link, error);
}

}  // namespace

void useDaemonOfRoot(const fs::path& root) {
  removeUnusedFolders();
  DaemonFolder& folder = ownFolder();
  folder.path = fs::path(temporaryFolder) / (namePrefix() + hashOf(root.native()));
  while (!tryToLock(folder)) {
  }
  linkRoot(aliasOfRoot(), root);
  setenv("TEMP", folder.path.c_str(), 1);
  setenv("TMP", folder.path.c_str(), 1);
  std::atexit(&removeOwnFolderIfUnused);
}

fs::path aliasOfRoot() { return ownFolder().path / linkToRoot; }

FileDescriptor watchDaemon() {
  const pid_t process = ownFolder().lock < 0 ? 0 : daemonIn(ownFolder().path);
  return FileDescriptor(process > 0 ? static_cast<int>(syscall(SYS_pidfd_open, process, 0)) : -1);
}

bool isDaemonRunning(const FileDescriptor& watched) {
  pollfd daemon = {watched.get(), POLLIN, 0};
  return watched.isOpen() && poll(&daemon, 1, 0) == 0;
}

}  // namespace foundation
