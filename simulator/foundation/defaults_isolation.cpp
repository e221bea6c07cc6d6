#include "simulator/foundation/defaults_isolation.hpp"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>
#include <thread>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_string.hpp"
#include "simulator/foundation/ignored_leaks.hpp"
#include "simulator/foundation/notification_daemon.hpp"

extern "C" {
NSString* GSDefaultsRootForUser(NSString* user);
NSString* NSUserName();
}

namespace foundation {

namespace {

namespace fs = std::filesystem;

constexpr const char* systemConfiguration = "/etc/GNUstep/GNUstep.conf";
constexpr const char* folderInRoot = "var/mobile/Library/GNUstep";
// The lock of the database, which is a folder. Foundation defines its name.
constexpr const char* lockInDatabase = ".lck/.GNUstepDefaults.lck";
constexpr std::string_view replacedSettings[] = {
    "GNUSTEP_USER_DIR=", "GNUSTEP_USER_DEFAULTS_DIR=", "GNUSTEP_USER_CONFIG_FILE="};

bool isReplaced(const std::string& line) {
  for (const std::string_view setting : replacedSettings)
    if (line.starts_with(setting)) return true;
  return false;
}

// Returns the system's configuration with the user's folders replaced by folders inside the root. The name of the
// user's own configuration file is also replaced, because that file could select other folders.
std::string configurationText(const fs::path& folder) {
  std::string text;
  std::ifstream system(systemConfiguration);
  for (std::string line; std::getline(system, line);)
    if (!isReplaced(line)) text += line + "\n";
  const std::string& path = folder.native();
  return text + "GNUSTEP_USER_DIR=" + path + "\nGNUSTEP_USER_DEFAULTS_DIR=" + path +
         "/Defaults\nGNUSTEP_USER_CONFIG_FILE=" + path + "/GNUstep-user.conf\n";
}

std::string contentsOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Writes a file atomically, because another process of the same root can read it at the same time.
void writeFile(const fs::path& path, const std::string& text) {
  if (contentsOf(path) == text) return;
  const fs::path unfinished = path.native() + "." + std::to_string(getpid());
  std::ofstream file(unfinished);
  file << text;
  file.close();
  if (!file) throw fs::filesystem_error("cannot write", path, std::error_code(errno, std::generic_category()));
  // Foundation ignores a configuration file that other users can write.
  fs::permissions(unfinished, fs::perms::owner_read | fs::perms::owner_write);
  fs::rename(unfinished, path);
}

// Removes the stale lock of a killed process. Foundation would wait for 20 seconds before it removes the lock. A
// running process holds the lock only for milliseconds.
void removeStaleLock(const fs::path& lock) {
  constexpr auto maxAge = std::chrono::seconds(2);
  constexpr auto pollInterval = std::chrono::milliseconds(20);
  std::error_code error;
  for (;;) {
    const fs::file_time_type created = fs::last_write_time(lock, error);
    if (error) return;
    const auto age = fs::file_time_type::clock::now() - created;
    // A lock whose time is in the future was created before the clock was set back.
    if (age > maxAge || age < -maxAge) break;
    std::this_thread::sleep_for(pollInterval);
  }
  fs::remove_all(lock, error);
}

// Makes Foundation read the environment again. Foundation copied the environment when the process started.
void reloadFoundationEnvironment() {
  std::ifstream commandLine("/proc/self/cmdline");
  std::vector<std::string> words;
  for (std::string word; std::getline(commandLine, word, '\0');) words.push_back(word);
  std::vector<const char*> arguments;
  arguments.reserve(words.size());
  for (const std::string& word : words) arguments.push_back(word.c_str());
  const IgnoredLeaks ignored;
  const objc::AutoreleasePool pool;
  objc::send<void, "initializeWithArguments:count:environment:">(objc::lookUpClass<"NSProcessInfo">(), arguments.data(),
                                                                 static_cast<int>(arguments.size()), environ);
}

std::optional<std::string> checkDatabase(const fs::path& folder) {
  const objc::AutoreleasePool pool;
  const fs::path used = GSDefaultsRootForUser(NSUserName())->UTF8String();
  if (used == folder / "Defaults") return std::nullopt;
  return "Foundation was used before the root was set; its database is at " + used.string() + " and not in the root";
}

}  // namespace

std::optional<std::string> isolateDefaults(const fs::path& root) {
  fs::path folder;
  fs::path configuration;
  try {
    useDaemonOfRoot(root);
    folder = aliasOfRoot() / folderInRoot;
    configuration = folder / "GNUstep.conf";
    // Uses the path of the root instead of the alias, because error messages contain this path.
    fs::create_directories(root / folderInRoot / "Defaults");
    removeStaleLock(root / folderInRoot / "Defaults" / lockInDatabase);
    writeFile(root / folderInRoot / "GNUstep.conf", configurationText(folder));
  } catch (const fs::filesystem_error& error) {
    return error.path1().string() + ": " + error.code().message();
  }
  setenv("GNUSTEP_CONFIG_FILE", configuration.c_str(), 1);
  reloadFoundationEnvironment();
  return checkDatabase(folder);
}

}  // namespace foundation
