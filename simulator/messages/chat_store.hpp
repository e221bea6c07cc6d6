// The store of conversations and messages. It is a SQLite database in the root, and all processes of the root share it.
// Only one thread can use an object of these classes.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/messages/sql_statement.hpp"

namespace messages {

// Thrown if the store cannot be opened, read or written. what() is a message for the user that contains the reason and
// a remedy.
class StoreError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Chat {
  std::int64_t number = 0;  // the primary key
  std::string guid;         // such as "iMessage;-;+491701234567"
  std::string name;         // empty if unknown
};

enum class Direction { Received, Sent };

struct Message {
  Direction direction = Direction::Received;
  std::string text;
  std::uint64_t flags = 0;
  double time = 0;  // in seconds since 1970
  bool isRead = false;
};

// A connection to the store. Texts are UTF-8 and can contain zero bytes. Written data survives a crash of the process.
// While another process writes, the functions wait for up to two seconds. All functions throw StoreError.
class ChatStore {
 public:
  static bool existsIn(const std::filesystem::path& root);
  // Opens the store. Creates it if it does not exist.
  explicit ChatStore(const std::filesystem::path& root);

  // Returns all chats. The chat with the latest message is first.
  std::vector<Chat> chats() const;
  // Returns the messages of the chat in order of arrival.
  std::vector<Message> messagesOf(const Chat& chat) const;

  void add(const Chat& chat, const Message& message);
  // Adds a message to the chat with this identifier, and creates the chat if necessary. A name that is not empty
  // replaces the name of the chat.
  Chat addTo(std::string_view guid, std::string_view name, const Message& message);
  // Marks all received messages of the chat as read.
  void markRead(const Chat& chat);

 private:
  Statement prepare(const char* sql) const;
  Chat findOrCreateChat(std::string_view guid, std::string_view name);

  struct Closer {
    void operator()(sqlite3* opened) const { sqlite3_close_v2(opened); }
  };

  std::filesystem::path path_;
  std::unique_ptr<sqlite3, Closer> database_;
  mutable PreparedStatements statements_;
};

// The folder that contains the store, the lock file and the socket of the Messages app.
std::filesystem::path messagesFolder(const std::filesystem::path& root);

}  // namespace messages
