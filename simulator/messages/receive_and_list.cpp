#include "simulator/messages/receive_and_list.hpp"

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <string>

#include "simulator/base/default_root.hpp"
#include "simulator/base/iso_time.hpp"
#include "simulator/messages/chat_store.hpp"
#include "simulator/process/bulletin_message.hpp"
#include "simulator/process/root_setup.hpp"

namespace messages {

namespace {

namespace fs = std::filesystem;
using messages::Chat;
using messages::Direction;
using messages::Message;

constexpr const char* messagesIdentifier = "com.apple.MobileSMS";

fs::path rootOf(const MessagesOptions& options) {
  return options.root.empty() ? base::defaultRoot() : fs::absolute(options.root);
}

// Returns the address at the end of a chat's identifier. Notifications use it as their thread identifier.
std::string addressOf(const std::string& guid) { return guid.substr(guid.rfind(';') + 1); }

std::string guidOf(const std::string& chat) {
  return chat.find(';') == std::string::npos ? "iMessage;-;" + chat : chat;
}

std::string nameOf(const Chat& chat) { return chat.name.empty() ? addressOf(chat.guid) : chat.name; }

// Replaces control characters by spaces, because the output has one line for each message.
std::string singleLine(const std::string& text) {
  std::string line;
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    line += code < 0x20 || code == 0x7f ? ' ' : character;
  }
  return line;
}

std::string formatTime(double time) {
  const auto seconds = static_cast<std::time_t>(time);
  std::tm parts = {};
  localtime_r(&seconds, &parts);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &parts);
  return text;
}

void print(const Chat& chat, const Message& message) {
  const bool isSent = message.direction == Direction::Sent;
  const bool isNew = !isSent && !message.isRead;
  std::cout << (isNew ? "  * " : "    ") << formatTime(message.time) << "  "
            << (isSent ? "me" : singleLine(nameOf(chat))) << ": " << singleLine(message.text) << "\n";
}

}  // namespace

int listConversations(const MessagesOptions& options) {
  const fs::path root = rootOf(options);
  if (!ChatStore::existsIn(root)) {
    std::cout << "no conversations\n";
    return 0;
  }
  const ChatStore store(root);
  const std::vector<Chat> chats = store.chats();
  if (chats.empty()) std::cout << "no conversations\n";
  for (const Chat& chat : chats) {
    std::cout << singleLine(nameOf(chat)) << " (" << singleLine(chat.guid) << ")\n";
    for (const Message& message : store.messagesOf(chat)) print(chat, message);
  }
  return 0;
}

int receiveMessage(const MessagesOptions& options) {
  const fs::path root = rootOf(options);
  ChatStore store(root);
  const Chat chat = store.addTo(guidOf(options.chat), options.sender,
                                {Direction::Received, *options.text, 0, base::systemUnixTime(), false});
  const bool isShown =
      process::sendBulletin(root, {messagesIdentifier, addressOf(chat.guid), nameOf(chat), *options.text});
  if (!isShown)
    std::fprintf(stderr, "messages: no home screen uses the root %s; the message was stored, but no banner is shown\n",
                 root.c_str());
  return 0;
}

}  // namespace messages
