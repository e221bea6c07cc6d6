#include "simulator/runner/restart.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <system_error>
#include <vector>

#include "platform/ns_array.hpp"
#include "platform/ns_string.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/process/signals.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace runner {

namespace {

using Json = nlohmann::ordered_json;
using foundation::FileDescriptor;

// The environment variable with which a process passes descriptors to the program that it executes: the lock, the
// control socket, and a file that contains the notifications.
constexpr const char* inheritanceVariable = "BRIM_INHERITED_DESCRIPTORS";

struct RestartState {
  std::optional<Options> current;
  std::optional<Options> requested;
};

RestartState& restartState() {
  static RestartState& state = *new RestartState;
  return state;
}

std::string languageOf(const std::string& locale) { return locale.substr(0, locale.find_first_of("_-")); }

// Returns the languages for which the system has formats.
std::set<std::string> knownLanguages() {
  const auto* locales = objc::send<NSArray*, "availableLocaleIdentifiers">(objc::lookUpClass<"NSLocale">());
  std::set<std::string> languages;
  for (NSUInteger index = 0; index < locales->count(); ++index)
    languages.insert(languageOf(base::textOf(static_cast<NSString*>(locales->objectAtIndex(index)))));
  return languages;
}

std::optional<std::string> languageError(const std::string& locale) {
  const std::set<std::string> languages = knownLanguages();
  if (languages.empty() || languages.contains(languageOf(locale))) return std::nullopt;
  std::string names;
  for (const std::string& language : languages) names += (names.empty() ? "" : ", ") + language;
  return "one of the languages " + names + ", with or without a region";
}

std::optional<std::string> change(Options& options, const char* name, const std::optional<std::string>& value) {
  if (!value) return std::nullopt;
  if (const auto expected = changeOption(options, std::string("--") + name, *value))
    return std::string(name) + " " + *value + ": expected " + *expected;
  return std::nullopt;
}

std::optional<std::string> apply(const OptionChanges& changes, Options& options) {
  if (auto error = change(options, "device", changes.device)) return error;
  if (auto error = change(options, "system", changes.system)) return error;
  if (auto error = change(options, "locale", changes.locale)) return error;
  if (!changes.locale) return std::nullopt;
  if (const auto expected = languageError(*changes.locale))
    return "locale " + *changes.locale + ": expected " + *expected;
  return std::nullopt;
}

// Returns a file in memory that contains the text.
FileDescriptor fileWith(const std::string& text) {
  FileDescriptor file(memfd_create("notifications", 0));
  std::size_t written = 0;
  while (file.isOpen() && written < text.size()) {
    const ssize_t size = pwrite(file.get(), text.data() + written, text.size() - written, static_cast<off_t>(written));
    if (size <= 0) return {};
    written += static_cast<std::size_t>(size);
  }
  return file;
}

std::string contentsOf(const FileDescriptor& file) {
  std::string text;
  char buffer[65536];
  for (ssize_t size; (size = pread(file.get(), buffer, sizeof buffer, static_cast<off_t>(text.size()))) > 0;)
    text.append(buffer, static_cast<std::size_t>(size));
  return text;
}

void setInheritable(const FileDescriptor& descriptor) { fcntl(descriptor.get(), F_SETFD, 0); }
void setNotInheritable(const FileDescriptor& descriptor) { fcntl(descriptor.get(), F_SETFD, FD_CLOEXEC); }

// Sets the close-on-exec flag of all descriptors except the standard streams, because libraries may not have set it.
void closeAllOnExecution() { close_range(3, ~0U, CLOSE_RANGE_CLOEXEC); }

}  // namespace

void allowRestarts(const Options& options) { restartState().current = options; }

std::optional<std::string> requestRestart(const OptionChanges& changes) {
  RestartState& state = restartState();
  if (!state.current) return "only a live phone can be restarted; start one with: ./brim springboard --live";
  Options changed = *state.current;
  if (auto error = apply(changes, changed)) return error;
  const bool isDark = uikit::environment().style == UIUserInterfaceStyle::Dark;
  changed.appearance = isDark ? StartAppearance::Dark : StartAppearance::Light;
  state.requested = changed;
  process::requestTermination();
  return std::nullopt;
}

const Options* requestedRestart() {
  const std::optional<Options>& requested = restartState().requested;
  return requested ? &*requested : nullptr;
}

Inheritance takeInheritance() {
  const char* const value = std::getenv(inheritanceVariable);
  int lock = -1;
  int listening = -1;
  int notifications = -1;
  const bool isInherited = value != nullptr && std::sscanf(value, "%d:%d:%d", &lock, &listening, &notifications) == 3;
  // Child processes must not inherit the variable.
  unsetenv(inheritanceVariable);
  if (!isInherited) return {};
  const FileDescriptor file(notifications);
  Inheritance inheritance = {FileDescriptor(lock), FileDescriptor(listening),
                             Json::parse(contentsOf(file), nullptr, false)};
  setNotInheritable(inheritance.lock);
  setNotInheritable(inheritance.listening);
  return inheritance;
}

void executeAgain(const Options& options, const Inheritance& inheritance) {
  const FileDescriptor file = fileWith(inheritance.notifications.dump(-1, ' ', false, Json::error_handler_t::replace));
  closeAllOnExecution();
  for (const FileDescriptor* descriptor : {&inheritance.lock, &inheritance.listening, &file})
    setInheritable(*descriptor);
  const std::string descriptors = std::to_string(inheritance.lock.get()) + ":" +
                                  std::to_string(inheritance.listening.get()) + ":" + std::to_string(file.get());
  setenv(inheritanceVariable, descriptors.c_str(), 1);
  std::vector<std::string> words = argumentsOf(options);
  words.insert(words.begin(), "springboard");
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  execv(program.c_str(), arguments.data());
  // If a build has replaced or removed the file, the path is not valid, but the link still refers to the old program.
  execv("/proc/self/exe", arguments.data());
}

}  // namespace runner
