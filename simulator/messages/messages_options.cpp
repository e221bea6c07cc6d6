#include "simulator/messages/messages_options.hpp"

#include <vector>

namespace messages {

namespace {

using Row = process::OptionRow<MessagesOptions>;

process::ExpectedValue receive(MessagesOptions& options, const std::string& value) {
  if (options.task == MessagesTask::List) return "a command line without --list";
  if (value.empty() || value.back() == ';') return "an address such as +491701234567 or the identifier of a chat";
  options.task = MessagesTask::Receive;
  options.chat = value;
  return std::nullopt;
}

bool takeText(MessagesOptions& options, const std::string& word) {
  if (options.task != MessagesTask::Receive || options.text) return false;
  options.text = word;
  return true;
}

const std::vector<Row>& optionTable() {
  static const std::vector<Row> rows = {
      {"--root", "DIR", "the folder that represents the phone's file system, the same as for the home screen",
       [](MessagesOptions& options, const std::string& value) { return process::parseRoot(options.root, value); }},
      {"--list", nullptr, "print the conversations and their messages",
       [](MessagesOptions& options, const std::string&) {
         if (options.task == MessagesTask::Receive) return process::ExpectedValue("a command line without --receive");
         options.task = MessagesTask::List;
         return process::ExpectedValue();
       }},
      {"--receive", "CHAT",
       "receive a message in this chat; the next argument is its TEXT; the home screen shows a banner", &receive},
      {"--from", "NAME", "the sender's name (default: the chat's name, or else its address)",
       [](MessagesOptions& options, const std::string& value) {
         options.sender = value;
         return process::ExpectedValue();
       }},
      {"--system", "VERSION", "the system's version (default: " + std::string(process::defaultSystemVersion) + ")",
       [](MessagesOptions& options, const std::string& value) {
         return process::parseSystem(options.systemVersion, value);
       }},
      {"--without-brim", nullptr, "do not load the library; the app then ignores replies from home screens",
       [](MessagesOptions& options, const std::string&) {
         options.library = process::LibraryUse::Absent;
         return process::ExpectedValue();
       }},
      {"--suspended", nullptr,
       "end when standard input has ended and no home screen is connected; home screens use this option",
       [](MessagesOptions& options, const std::string&) {
         options.launch = Launch::Suspended;
         return process::ExpectedValue();
       }},
      {"--user-defaults", nullptr,
       "with --suspended: use the preferences and notifications of the user instead of the root's",
       [](MessagesOptions& options, const std::string&) {
         options.database = foundation::DefaultsDatabase::OfUser;
         return process::ExpectedValue();
       }},
  };
  return rows;
}

}  // namespace

process::CommandLine<MessagesOptions> parseMessagesOptions(std::span<const char* const> arguments) {
  auto parsed = process::parseCommandLine(optionTable(), arguments, &takeText);
  const auto* options = std::get_if<MessagesOptions>(&parsed);
  if (options == nullptr) return parsed;
  if (options->task == MessagesTask::Receive && !options->text)
    return process::OptionError{"--receive " + options->chat +
                                " requires the text of the message as the next argument"};
  if (options->launch == Launch::Suspended && options->root.empty())
    return process::OptionError{"--suspended requires --root"};
  if (options->task != MessagesTask::Receive && !options->sender.empty())
    return process::OptionError{"--from requires --receive"};
  return parsed;
}

std::string messagesHelp() {
  return "messages: the Messages app of a simulated phone, with Brim loaded.\n\n"
         "usage: messages [option …]\n"
         "       messages --receive CHAT TEXT [--from NAME]\n"
         "       messages --list\n\noptions:\n" +
         process::optionHelp(optionTable());
}

}  // namespace messages
