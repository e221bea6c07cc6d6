// The program `messages`: runs the Messages app, lists its conversations or receives a message.
#include <cstdio>
#include <string>

#include "simulator/messages/app_process.hpp"
#include "simulator/messages/chat_store.hpp"
#include "simulator/messages/receive_and_list.hpp"
#include "simulator/process/descriptor_limit.hpp"
#include "simulator/process/standard_streams.hpp"

namespace {

constexpr int cannotStart = 2;

int reportError(const std::string& message) {
  std::fprintf(stderr, "messages: %s\n", message.c_str());
  return cannotStart;
}

// Two home screens can launch the app at the same time. In that case, the second process exits with success.
int runApp(const messages::MessagesOptions& options) try {
  messages::MessagesApp app(options);
  app.run();
  return 0;
} catch (const messages::AlreadyRunning& error) {
  return options.launch == messages::Launch::Suspended ? 0 : reportError(error.what());
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
  return reportError(error.what());
}

}  // namespace

int main(int count, char** arguments) {
  process::reserveStandardDescriptors();
  const auto parsed = messages::parseMessagesOptions({arguments + 1, static_cast<std::size_t>(count - 1)});
  if (const auto* error = std::get_if<process::OptionError>(&parsed)) return reportError(error->message);
  if (std::holds_alternative<process::HelpRequest>(parsed))
    return process::printAndExit("messages", messages::messagesHelp());
  if (std::holds_alternative<process::VersionRequest>(parsed))
    return process::printAndExit("messages", "messages " BRIM_VERSION "\n");
  if (const auto error = process::raiseDescriptorLimit()) {
    reportError(*error);
    return 1;
  }
  return execute(std::get<messages::MessagesOptions>(parsed));
}
