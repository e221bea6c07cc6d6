// The command line of the messages program.
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "simulator/foundation/root.hpp"
#include "simulator/process/common_options.hpp"

namespace messages {

enum class MessagesTask {
  Run,      // run the app in the background
  List,     // print the conversations
  Receive,  // receive a message
};
enum class Launch {
  ByUser,
  Suspended,  // by a home screen, which keeps the other end of standard input open while it runs
};

struct MessagesOptions {
  // These have the same meaning as for the home screen.
  std::filesystem::path root = {};
  std::string systemVersion = process::defaultSystemVersion;
  process::LibraryUse library = process::LibraryUse::Loaded;
  MessagesTask task = MessagesTask::Run;
  Launch launch = Launch::ByUser;
  // For Launch::Suspended: the preferences and distributed notifications that the app uses.
  foundation::DefaultsDatabase database = foundation::DefaultsDatabase::OfRoot;
  // For MessagesTask::Receive.
  std::string chat = {};    // the chat's identifier or the sender's address
  std::string sender = {};  // the sender's name; empty if not given
  std::optional<std::string> text = {};
};

// `arguments` does not include the program's name.
process::CommandLine<MessagesOptions> parseMessagesOptions(std::span<const char* const> arguments);

// The text that --help prints.
std::string messagesHelp();

}  // namespace messages
