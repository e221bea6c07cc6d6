#include "simulator/messages/chat_store.hpp"

#include <system_error>

namespace messages {

namespace {

namespace fs = std::filesystem;

fs::path pathIn(const fs::path& root) { return messagesFolder(root) / "messages.db"; }

constexpr int millisecondsForOthers = 2000;
constexpr int schemaVersion = 1;

constexpr const char* schema = R"(
  CREATE TABLE chat (
    number INTEGER PRIMARY KEY,
    guid TEXT NOT NULL UNIQUE,
    name TEXT NOT NULL
  );
  CREATE TABLE message (
    number INTEGER PRIMARY KEY,
    chat INTEGER NOT NULL REFERENCES chat (number),
    sent INTEGER NOT NULL,
    text TEXT NOT NULL,
    flags INTEGER NOT NULL,
    time REAL NOT NULL,
    read INTEGER NOT NULL
  );
  CREATE INDEX message_by_chat ON message (chat, number);
  PRAGMA user_version = 1;
)";

// What a person can do about it.
const char* adviceFor(int result) {
  switch (result & 0xff) {
    case SQLITE_BUSY:
      return "another process holds it: end that one";
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return "it is damaged: move it away, and a new one is made";
    case SQLITE_FULL:
      return "the disk is full: make room";
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
      return "make its folder and files writable";
    default:
      return "see that its folder is there and writable";
  }
}

[[noreturn]] void fail(const fs::path& path, sqlite3* database) {
  const int result = sqlite3_errcode(database);
  throw StoreError(path.string() + ": " + sqlite3_errmsg(database) + "; " + adviceFor(result));
}

class Transaction {
 public:
  Transaction(const fs::path& storePath, sqlite3* store) : path(storePath), database(store) {
    execute("BEGIN IMMEDIATE");
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction() {
    if (isOpen) sqlite3_exec(database, "ROLLBACK", nullptr, nullptr, nullptr);
  }
  void execute(const char* statements) const {
    if (sqlite3_exec(database, statements, nullptr, nullptr, nullptr) != SQLITE_OK) fail(path, database);
  }
  void commit() {
    execute("COMMIT");
    isOpen = false;
  }

 private:
  const fs::path& path;
  sqlite3* database;
  bool isOpen = true;
};

int versionOf(const fs::path& path, sqlite3* database, PreparedStatements& statements) {
  Statement statement(statements.find(database, "PRAGMA user_version"));
  if (!statement.step()) fail(path, database);
  return static_cast<int>(statement.integer(0));
}

void makeTables(const fs::path& path, sqlite3* database, PreparedStatements& statements) {
  if (versionOf(path, database, statements) == schemaVersion) return;
  Transaction transaction(path, database);
  // Another process may have been quicker.
  const int version = versionOf(path, database, statements);
  if (version == schemaVersion) return;
  if (version != 0)
    throw StoreError(path.string() + " has version " + std::to_string(version) + "; this program knows " +
                     std::to_string(schemaVersion) + ": move it away, and a new one is made");
  transaction.execute(schema);
  transaction.commit();
}

}  // namespace

fs::path messagesFolder(const fs::path& root) { return root / "var/mobile/Library/SMS"; }

bool ChatStore::existsIn(const fs::path& root) { return fs::exists(pathIn(root)); }

ChatStore::ChatStore(const fs::path& root) : path(pathIn(root)) {
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  if (error) throw StoreError(path.parent_path().string() + ": " + error.message());
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  database.reset(opened);
  if (result != SQLITE_OK) fail(path, opened);
  sqlite3_busy_timeout(opened, millisecondsForOthers);
  // With a log that is written ahead, what is committed outlives the process without waiting for the disk.
  use("PRAGMA journal_mode = WAL").step();
  use("PRAGMA synchronous = NORMAL").step();
  makeTables(path, opened, statements);
}

Statement ChatStore::use(const char* text) const { return Statement(statements.find(database.get(), text)); }

std::vector<Chat> ChatStore::chats() const {
  Statement statement = use(R"(
    SELECT number, guid, name FROM chat
    ORDER BY (SELECT max(message.number) FROM message WHERE message.chat = chat.number) DESC, number DESC)");
  std::vector<Chat> found;
  while (statement.step()) found.push_back({statement.integer(0), statement.text(1), statement.text(2)});
  if (statement.hasFailed()) fail(path, database.get());
  return found;
}

std::vector<Message> ChatStore::messagesOf(const Chat& chat) const {
  Statement statement = use("SELECT sent, text, flags, time, read FROM message WHERE chat = ? ORDER BY number");
  statement.bind(chat.number);
  std::vector<Message> found;
  while (statement.step())
    found.push_back({statement.integer(0) != 0 ? Direction::Sent : Direction::Received, statement.text(1),
                     static_cast<std::uint64_t>(statement.integer(2)), statement.real(3), statement.integer(4) != 0});
  if (statement.hasFailed()) fail(path, database.get());
  return found;
}

Chat ChatStore::makeChat(std::string_view guid, std::string_view name) {
  Statement statement = use(R"(
    INSERT INTO chat (guid, name) VALUES (?, ?)
    ON CONFLICT (guid) DO UPDATE SET name = CASE excluded.name WHEN '' THEN name ELSE excluded.name END
    RETURNING number, guid, name)");
  statement.bind(guid, name);
  if (!statement.step()) fail(path, database.get());
  Chat made = {statement.integer(0), statement.text(1), statement.text(2)};
  statement.step();
  if (statement.hasFailed()) fail(path, database.get());
  return made;
}

void ChatStore::add(const Chat& chat, const Message& message) {
  Statement statement = use("INSERT INTO message (chat, sent, text, flags, time, read) VALUES (?, ?, ?, ?, ?, ?)");
  statement.bind(chat.number, std::int64_t{message.direction == Direction::Sent}, std::string_view(message.text),
                 static_cast<std::int64_t>(message.flags), message.time, std::int64_t{message.isRead});
  statement.step();
  if (statement.hasFailed()) fail(path, database.get());
}

Chat ChatStore::addTo(std::string_view guid, std::string_view name, const Message& message) {
  Transaction transaction(path, database.get());
  Chat made = makeChat(guid, name);
  add(made, message);
  transaction.commit();
  return made;
}

void ChatStore::markRead(const Chat& chat) {
  Statement statement = use("UPDATE message SET read = 1 WHERE chat = ? AND sent = 0 AND read = 0");
  statement.bind(chat.number);
  statement.step();
  if (statement.hasFailed()) fail(path, database.get());
}

}  // namespace messages
