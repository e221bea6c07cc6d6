// The Messages app's process.
#include <cstdio>
#include <iostream>
#include <string>

#include "simulator/messages/app_process.hpp"
#include "simulator/messages/chat_store.hpp"
#include "simulator/messages/receive_and_list.hpp"

namespace {

constexpr int cannotStart = 2;

int complain(const std::string& message) {
  std::fprintf(stderr, "messages: %s\n", message.c_str());
  return cannotStart;
}

// Of two home screens that launch it at once, one finds it running.
int runApp(const messages::MessagesOptions& options) try {
  messages::MessagesApp app(options);
  app.run();
  return 0;
} catch (const messages::AlreadyRunning& error) {
  return options.launch == messages::Launch::Suspended ? 0 : complain(error.what());
}

int execute(const messages::MessagesOptions& options) try {
  switch (options.task) {
    case messages::MessagesTask::List:
      return messages::listConversations(options);
    case messages::MessagesTask::Receive:
      return messages::receiveMessage(options);
    case messages::MessagesTask::Run:
      return runApp(options);
  }
  return cannotStart;
} catch (const std::exception& error) {
  return complain(error.what());
}

}  // namespace

int main(int count, char** arguments) {
  const auto parsed = messages::parseMessagesOptions({arguments + 1, static_cast<std::size_t>(count - 1)});
  if (const auto* error = std::get_if<process::OptionError>(&parsed)) return complain(error->message);
  if (std::holds_alternative<process::HelpRequest>(parsed)) {
    std::cout << messages::messagesHelp();
    return 0;
  }
  if (std::holds_alternative<process::VersionRequest>(parsed)) {
    std::cout << "messages " BRIM_VERSION "\n";
    return 0;
  }
  return execute(std::get<messages::MessagesOptions>(parsed));
}
