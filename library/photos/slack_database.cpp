#include "library/photos/slack_database.hpp"

#include <sqlite3.h>

#include "library/photos/endpoints.hpp"
#include "library/photos/regular_file.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_file_handle.hpp"

namespace {

// The byte of a database's header that says whether changes go to a file of their own first, and the value for it.
constexpr NSUInteger readVersionOffset = 19;
constexpr unsigned char writeAheadLog = 2;

class Database {
 public:
  explicit Database(const char* address) {
    if (sqlite3_open_v2(address, &handle, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr) == SQLITE_OK) return;
    close();
  }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database() { close(); }

  // The first column of the first row; nil without one.
  NSString* text(const char* query) const {
    if (handle == nullptr) return nullptr;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(handle, query, -1, &statement, nullptr) != SQLITE_OK) return nullptr;
    NSString* found = nullptr;
    if (sqlite3_step(statement) == SQLITE_ROW)
      if (const unsigned char* value = sqlite3_column_text(statement, 0))
        found = NSString::stringWithUTF8String(reinterpret_cast<const char*>(value));
    sqlite3_finalize(statement);
    return found;
  }

 private:
  // A handle is there even where opening failed.
  void close() {
    sqlite3_close(handle);
    handle = nullptr;
  }

  sqlite3* handle = nullptr;
};

bool hasWriteAheadLog(NSString* path) {
  NSData* header = NSFileHandle::forReading(path)->readData(readVersionOffset + 1);
  return header->length() > readVersionOffset &&
         static_cast<const unsigned char*>(header->bytes())[readVersionOffset] == writeAheadLog;
}

// How to open the file without making others beside it. Opened plainly, even for reading, a database with a log of its
// changes gets a log and an index of it where there are none. Without both it is read as it was before the log.
NSString* openingParameters(NSString* path) {
  if (!hasWriteAheadLog(path)) return ""_ns;
  const bool hasLog = isRegularFile(path->stringByAppendingString("-wal"_ns));
  const bool hasIndex = isRegularFile(path->stringByAppendingString("-shm"_ns));
  return hasLog && hasIndex ? "?readonly_shm=1"_ns : "?immutable=1"_ns;
}

NSString* addressOf(NSString* path) {
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
  // A quote would end the text that the name is in; what follows it would be a query of the sender's own.
  if (name->contains("'"_ns) || !isRegularFile(database)) return nullptr;
  return Database(addressOf(database)->UTF8String()).text(queryFor(name)->UTF8String());
}
