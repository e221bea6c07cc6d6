// The Messages app's command line.
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "simulator/foundation/root.hpp"
#include "simulator/host/command_line.hpp"
#include "simulator/host/options.hpp"

namespace host {

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
  // Of these: root, systemVersion and library.
  Options phone;
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
CommandLine<MessagesOptions> parseMessagesOptions(std::span<const char* const> arguments);

std::string messagesHelp();

}  // namespace host
