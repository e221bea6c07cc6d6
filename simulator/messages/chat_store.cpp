#include "simulator/messages/chat_store.hpp"

#include <system_error>

namespace messages {

namespace {

namespace fs = std::filesystem;

fs::path storePath(const fs::path& root) { return messagesFolder(root) / "messages.db"; }

constexpr int busyTimeoutMilliseconds = 2000;
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

// Returns a sentence that suggests how the user can fix the error.
const char* remedyFor(int errorCode) {
  switch (errorCode & 0xff) {
    case SQLITE_BUSY:
      return "another process has locked it: end that process";
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return "it is damaged: move it away; the next start creates a new store";
    case SQLITE_FULL:
      return "the disk is full: free some space";
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
      return "make its folder and its files writable";
    default:
      return "check that its folder exists and is writable";
  }
}

[[noreturn]] void fail(const fs::path& path, sqlite3* database) {
  const int errorCode = sqlite3_errcode(database);
  throw StoreError(path.string() + ": " + sqlite3_errmsg(database) + "; " + remedyFor(errorCode));
}

class Transaction {
 public:
  Transaction(const fs::path& path, sqlite3* database) : path_(path), database_(database) {
    execute("BEGIN IMMEDIATE");
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction() {
    if (isOpen_) sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
  }
  void execute(const char* statements) const {
    if (sqlite3_exec(database_, statements, nullptr, nullptr, nullptr) != SQLITE_OK) fail(path_, database_);
  }
  void commit() {
    execute("COMMIT");
    isOpen_ = false;
  }

 private:
  const fs::path& path_;
  sqlite3* database_;
  bool isOpen_ = true;
};

int versionOf(const fs::path& path, sqlite3* database, PreparedStatements& statements) {
  Statement statement(statements.findOrPrepare(database, "PRAGMA user_version"));
  if (!statement.step()) fail(path, database);
  return static_cast<int>(statement.integer(0));
}

void createTables(const fs::path& path, sqlite3* database, PreparedStatements& statements) {
  if (versionOf(path, database, statements) == schemaVersion) return;
  Transaction transaction(path, database);
  // The version is read again, because another process can have created the tables before this transaction began.
  const int version = versionOf(path, database, statements);
  if (version == schemaVersion) return;
  if (version != 0)
    throw StoreError(path.string() + " has version " + std::to_string(version) + "; this program supports version " +
                     std::to_string(schemaVersion) + ": move it away; the next start creates a new store");
  transaction.execute(schema);
  transaction.commit();
}

}  // namespace

fs::path messagesFolder(const fs::path& root) { return root / "var/mobile/Library/SMS"; }

bool ChatStore::existsIn(const fs::path& root) { return fs::exists(storePath(root)); }

ChatStore::ChatStore(const fs::path& root) : path_(storePath(root)) {
  std::error_code error;
  fs::create_directories(path_.parent_path(), error);
  if (error) throw StoreError(path_.parent_path().string() + ": " + error.message());
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(path_.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  database_.reset(opened);
  if (result != SQLITE_OK) fail(path_, opened);
  sqlite3_busy_timeout(opened, busyTimeoutMilliseconds);
  // With write-ahead logging, a commit survives a crash of the process, although it does not wait for the disk.
  prepare("PRAGMA journal_mode = WAL").step();
  prepare("PRAGMA synchronous = NORMAL").step();
  createTables(path_, opened, statements_);
}

Statement ChatStore::prepare(const char* sql) const {
  return Statement(statements_.findOrPrepare(database_.get(), sql));
}

std::vector<Chat> ChatStore::chats() const {
  Statement statement = prepare(R"(
    SELECT number, guid, name FROM chat
    ORDER BY (SELECT max(message.number) FROM message WHERE message.chat = chat.number) DESC, number DESC)");
  std::vector<Chat> found;
  while (statement.step()) found.push_back({statement.integer(0), statement.text(1), statement.text(2)});
  if (statement.hasFailed()) fail(path_, database_.get());
  return found;
}

std::vector<Message> ChatStore::messagesOf(const Chat& chat) const {
  Statement statement = prepare("SELECT sent, text, flags, time, read FROM message WHERE chat = ? ORDER BY number");
  statement.bind(chat.number);
  std::vector<Message> found;
  while (statement.step())
    found.push_back({statement.integer(0) != 0 ? Direction::Sent : Direction::Received, statement.text(1),
                     static_cast<std::uint64_t>(statement.integer(2)), statement.real(3), statement.integer(4) != 0});
  if (statement.hasFailed()) fail(path_, database_.get());
  return found;
}

Chat ChatStore::findOrCreateChat(std::string_view guid, std::string_view name) {
  Statement statement = prepare(R"(
    INSERT INTO chat (guid, name) VALUES (?, ?)
    ON CONFLICT (guid) DO UPDATE SET name = CASE excluded.name WHEN '' THEN name ELSE excluded.name END
    RETURNING number, guid, name)");
  statement.bind(guid, name);
  if (!statement.step()) fail(path_, database_.get());
  Chat chat = {statement.integer(0), statement.text(1), statement.text(2)};
  statement.step();
  if (statement.hasFailed()) fail(path_, database_.get());
  return chat;
}

void ChatStore::add(const Chat& chat, const Message& message) {
  Statement statement = prepare("INSERT INTO message (chat, sent, text, flags, time, read) VALUES (?, ?, ?, ?, ?, ?)");
  statement.bind(chat.number, std::int64_t{message.direction == Direction::Sent}, std::string_view(message.text),
                 static_cast<std::int64_t>(message.flags), message.time, std::int64_t{message.isRead});
  statement.step();
  if (statement.hasFailed()) fail(path_, database_.get());
}

Chat ChatStore::addTo(std::string_view guid, std::string_view name, const Message& message) {
  Transaction transaction(path_, database_.get());
  Chat chat = findOrCreateChat(guid, name);
  add(chat, message);
  transaction.commit();
  return chat;
}

void ChatStore::markRead(const Chat& chat) {
  Statement statement = prepare("UPDATE message SET read = 1 WHERE chat = ? AND sent = 0 AND read = 0");
  statement.bind(chat.number);
  statement.step();
  if (statement.hasFailed()) fail(path_, database_.get());
}

}  // namespace messages
