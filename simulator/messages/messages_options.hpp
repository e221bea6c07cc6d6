// The command line of the program `messages`.
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
  Suspended,  // launched by a home screen, which keeps the other end of standard input open while it runs
};

struct MessagesOptions {
  // The next three options have the same meaning as the home screen's options.
  std::filesystem::path root = {};
  std::string systemVersion = process::defaultSystemVersion;
  process::LibraryUse library = process::LibraryUse::Loaded;
  MessagesTask task = MessagesTask::Run;
  Launch launch = Launch::ByUser;
  // The preferences and distributed notifications that the app uses. Only Launch::Suspended uses this option.
  foundation::DefaultsDatabase database = foundation::DefaultsDatabase::OfRoot;
  // Only MessagesTask::Receive uses the next three options.
  std::string chat = {};    // the chat's identifier or the sender's address
  std::string sender = {};  // the sender's name; empty if it is not given
  std::optional<std::string> text = {};
};

// Parses the arguments, which do not include the program's name.
process::CommandLine<MessagesOptions> parseMessagesOptions(std::span<const char* const> arguments);

// Returns the text that --help prints.
std::string messagesHelp();

}  // namespace messages
