#include "library/photos/slack_database.hpp"

#include <sqlite3.h>

#include "library/photos/endpoints.hpp"
#include "library/utilities/file_reading.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_file_handle.hpp"

namespace {

// The offset of the byte that specifies the journal mode in the header of a database, and the byte's value for a
// write-ahead log.
constexpr NSUInteger readVersionOffset = 19;
constexpr unsigned char writeAheadLog = 2;

class Database {
 public:
  explicit Database(const char* address) {
    if (sqlite3_open_v2(address, &handle_, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr) == SQLITE_OK) return;
    close();
  }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database() { close(); }

  // Returns the first column of the query's first row. Returns nil if there is no row or the database cannot be read.
  NSString* text(const char* query) const {
    if (handle_ == nullptr) return nullptr;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(handle_, query, -1, &statement, nullptr) != SQLITE_OK) return nullptr;
    NSString* found = nullptr;
    if (sqlite3_step(statement) == SQLITE_ROW)
      if (const unsigned char* value = sqlite3_column_text(statement, 0))
        found = NSString::stringWithUTF8String(reinterpret_cast<const char*>(value));
    sqlite3_finalize(statement);
    return found;
  }

 private:
  // SQLite allocates the handle even if it cannot open the file.
  void close() {
    sqlite3_close(handle_);
    handle_ = nullptr;
  }

  sqlite3* handle_ = nullptr;
};

bool hasWriteAheadLog(NSString* path) {
  NSData* header = NSFileHandle::forReading(path)->readData(readVersionOffset + 1);
  return header->length() > readVersionOffset &&
         static_cast<const unsigned char*>(header->bytes())[readVersionOffset] == writeAheadLog;
}

// Returns the URI parameters that prevent SQLite from creating files beside the database. Without them, SQLite creates
// the log or the log's index if it is missing, even for reading. If one of these files is missing, the database is read
// without the log.
NSString* openingParameters(NSString* path) {
  if (!hasWriteAheadLog(path)) return ""_ns;
  const bool hasLog = isRegularFile(path->stringByAppendingString("-wal"_ns));
  const bool hasIndex = isRegularFile(path->stringByAppendingString("-shm"_ns));
  return hasLog && hasIndex ? "?readonly_shm=1"_ns : "?immutable=1"_ns;
}

NSString* uriOf(NSString* path) {
  NSString* written = NSString::stringWithUTF8String(path->fileSystemRepresentation())
                          ->stringByReplacing("%"_ns, "%25"_ns)
                          ->stringByReplacing("?"_ns, "%3F"_ns)
                          ->stringByReplacing("#"_ns, "%23"_ns);
  return "file:"_ns->stringByAppendingString(written)->stringByAppendingString(openingParameters(path));
}

NSString* queryFor(NSString* name) {
  return "SELECT '"_ns->stringByAppendingString(endpoints::slackAvatars())
      ->stringByAppendingString(
          "/' || ZTEAMID || '-' || ZTSID ||  '-' || ZAVATARHASH || '-512' as url FROM "
          "ZSLKDEPRECATEDCOREDATAUSER WHERE ZNAME LIKE '%"_ns)
      ->stringByAppendingString(name)
      ->stringByAppendingString("%';"_ns);
}

}  // namespace

NSString* slackAvatarAddress(NSString* database, NSString* name) {
  // A quote in the name would end the string literal in the query, so the sender could change the rest of the query.
  if (name->contains("'"_ns) || !isRegularFile(database)) return nullptr;
  return Database(uriOf(database)->UTF8String()).text(queryFor(name)->UTF8String());
}
