// The Messages app's command line.
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "simulator/foundation/root.hpp"
#include "simulator/process/common_options.hpp"

namespace messages {

enum class MessagesTask {
  Run,      // be the app, in the background
  List,     // print the conversations
  Receive,  // be a message that arrives
};
enum class Launch {
  ByHand,
  Suspended,  // by a home screen, which holds the other end of standard input: the app ends with it
};

struct MessagesOptions {
  // As the options of the same names of the home screen.
  std::filesystem::path root = {};
  std::string systemVersion = process::defaultSystemVersion;
  process::LibraryUse library = process::LibraryUse::Mapped;
  MessagesTask task = MessagesTask::Run;
  Launch launch = Launch::ByHand;
  // Of a launch by a home screen: whose preferences and notifications it shares.
  foundation::DefaultsDatabase database = foundation::DefaultsDatabase::OfRoot;
  // Of the message that arrives: the chat's identifier, or the address of the one who writes.
  std::string chat = {};
  std::string sender = {};
  std::optional<std::string> text = {};
};

// As parseOptions.
process::CommandLine<MessagesOptions> parseMessagesOptions(std::span<const char* const> arguments);

std::string messagesHelp();

}  // namespace messages
