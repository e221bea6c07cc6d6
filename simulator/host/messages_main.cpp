// The Messages app's process.
#include <cstdio>
#include <iostream>
#include <string>

#include "simulator/host/messages_app.hpp"
#include "simulator/host/messages_tasks.hpp"
#include "simulator/messages/chat_store.hpp"

namespace {

constexpr int cannotStart = 2;

int complain(const std::string& message) {
  std::fprintf(stderr, "messages: %s\n", message.c_str());
  return cannotStart;
}

// Of two home screens that launch it at once, one finds it running.
int runApp(const host::MessagesOptions& options) try {
  host::MessagesApp app(options);
  app.run();
  return 0;
} catch (const host::AlreadyRunning& error) {
  return options.launch == host::Launch::Suspended ? 0 : complain(error.what());
}

int obey(const host::MessagesOptions& options) try {
  switch (options.task) {
    case host::MessagesTask::List:
      return host::listConversations(options);
    case host::MessagesTask::Receive:
      return host::receiveMessage(options);
    case host::MessagesTask::Run:
      return runApp(options);
  }
  return cannotStart;
} catch (const std::exception& error) {
  return complain(error.what());
}

}  // namespace

int main(int count, char** arguments) {
  const auto parsed = host::parseMessagesOptions({arguments + 1, static_cast<std::size_t>(count - 1)});
  if (const auto* error = std::get_if<host::OptionError>(&parsed)) return complain(error->message);
  if (std::holds_alternative<host::HelpRequest>(parsed)) {
    std::cout << host::messagesHelp();
    return 0;
  }
  if (std::holds_alternative<host::VersionRequest>(parsed)) {
    std::cout << "messages " BRIM_VERSION "\n";
    return 0;
  }
  return obey(std::get<host::MessagesOptions>(parsed));
}
