#include "simulator/messages/messages_options.hpp"

#include <vector>

namespace messages {

namespace {

using Row = process::OptionRow<MessagesOptions>;

process::OptionFailure receive(MessagesOptions& options, const std::string& value) {
  if (options.task == MessagesTask::List) return "to stand without --list";
  if (value.empty() || value.back() == ';') return "an address such as +491701234567, or a chat's identifier";
  options.task = MessagesTask::Receive;
  options.chat = value;
  return std::nullopt;
}

bool takeText(MessagesOptions& options, const std::string& word) {
  if (options.task != MessagesTask::Receive || options.text) return false;
  options.text = word;
  return true;
}

const std::vector<Row>& table() {
  static const std::vector<Row> rows = {
      {"--root", "DIR", "the folder that stands for the phone's file system, as the home screen's",
       [](MessagesOptions& options, const std::string& value) { return process::parseRoot(options.root, value); }},
      {"--list", nullptr, "print the conversations and their messages",
       [](MessagesOptions& options, const std::string&) {
         if (options.task == MessagesTask::Receive) return process::OptionFailure("to stand without --receive");
         options.task = MessagesTask::List;
         return process::OptionFailure();
       }},
      {"--receive", "CHAT", "a message arrives in that chat: its TEXT is the next word; the home screen shows a banner",
       &receive},
      {"--from", "NAME", "the name of the one who writes (default: the chat's, else its address)",
       [](MessagesOptions& options, const std::string& value) {
         options.sender = value;
         return process::OptionFailure();
       }},
      {"--system", "VERSION", "the system's version (default: " + std::string(process::defaultSystemVersion) + ")",
       [](MessagesOptions& options, const std::string& value) {
         return process::parseSystem(options.systemVersion, value);
       }},
      {"--without-brim", nullptr, "leave the library out: nobody hears replies",
       [](MessagesOptions& options, const std::string&) {
         options.library = process::LibraryUse::Absent;
         return process::OptionFailure();
       }},
      {"--suspended", nullptr,
       "end when standard input does and no home screen is there: how the home screen launches it",
       [](MessagesOptions& options, const std::string&) {
         options.launch = Launch::Suspended;
         return process::OptionFailure();
       }},
      {"--user-defaults", nullptr,
       "with --suspended: share the preferences and notifications of the user, not the root's",
       [](MessagesOptions& options, const std::string&) {
         options.database = foundation::DefaultsDatabase::OfUser;
         return process::OptionFailure();
       }},
  };
  return rows;
}

}  // namespace

process::CommandLine<MessagesOptions> parseMessagesOptions(std::span<const char* const> arguments) {
  auto parsed = process::parseCommandLine(table(), arguments, &takeText);
  const auto* options = std::get_if<MessagesOptions>(&parsed);
  if (options == nullptr) return parsed;
  if (options->task == MessagesTask::Receive && !options->text)
    return process::OptionError{"--receive " + options->chat + " wants the text of the message behind it"};
  if (options->launch == Launch::Suspended && options->root.empty())
    return process::OptionError{"--suspended goes with --root"};
  if (options->task != MessagesTask::Receive && !options->sender.empty())
    return process::OptionError{"--from goes with --receive"};
  return parsed;
}

std::string messagesHelp() {
  return "messages: the Messages app of a simulated phone, with Brim mapped in.\n\n"
         "usage: messages [option …]\n"
         "       messages --receive CHAT TEXT [--from NAME]\n"
         "       messages --list\n\noptions:\n" +
         process::optionHelp(table());
}

}  // namespace messages
