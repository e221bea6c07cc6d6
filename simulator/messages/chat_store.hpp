// The conversations and messages of a phone: a SQLite database under its root, shared by the processes of the root.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/messages/statement.hpp"

namespace messages {

// The store cannot be opened, read or written; `what` says why and what to do, for people.
class StoreError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Chat {
  std::int64_t number = 0;
  std::string guid;  // such as iMessage;-;+491701234567
  std::string name;  // empty where nobody said one
};

enum class Direction { Received, Sent };

struct Message {
  Direction direction = Direction::Received;
  std::string text;
  std::uint64_t flags = 0;
  double time = 0;  // seconds since 1970
  bool isRead = false;
};

// Texts are UTF-8 and may hold zero bytes. What a function has written is there whatever becomes of the process. While
// another process writes, functions wait a moment. All throw StoreError.
class ChatStore {
 public:
  static bool existsIn(const std::filesystem::path& root);
  // Made where it is missing.
  explicit ChatStore(const std::filesystem::path& root);

  // The chat with the latest message first.
  std::vector<Chat> chats() const;
  // In the order in which they came.
  std::vector<Message> messagesOf(const Chat& chat) const;

  void add(const Chat& chat, const Message& message);
  // The same for the chat with that identifier, which is made where it is new. A name that is not empty becomes its.
  Chat addTo(std::string_view guid, std::string_view name, const Message& message);
  // Marks all that was received in the chat.
  void markRead(const Chat& chat);

 private:
  Statement use(const char* text) const;
  Chat makeChat(std::string_view guid, std::string_view name);

  struct Closer {
    void operator()(sqlite3* opened) const { sqlite3_close_v2(opened); }
  };

  std::filesystem::path path;
  std::unique_ptr<sqlite3, Closer> database;
  mutable PreparedStatements statements;
};

// The folder of the store, the lock and the socket of the Messages app.
std::filesystem::path messagesFolder(const std::filesystem::path& root);

}  // namespace messages
