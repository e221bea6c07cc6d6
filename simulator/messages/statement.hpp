// One prepared statement of a SQLite database.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace messages {

// A statement that cannot be prepared has failed from the start; the database tells why. Bound texts must outlive it.
class Statement {
 public:
  Statement(sqlite3* database, const char* text) {
    result = sqlite3_prepare_v2(database, text, -1, &prepared, nullptr);
  }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement() { sqlite3_finalize(prepared); }

  template <class... Values>
  void bind(const Values&... values) {
    int position = 0;
    (bindAt(++position, values), ...);
  }
  // Whether there is a row.
  bool step() {
    if (hasFailed()) return false;
    result = sqlite3_step(prepared);
    return result == SQLITE_ROW;
  }
  bool hasFailed() const { return result != SQLITE_OK && result != SQLITE_ROW && result != SQLITE_DONE; }

  std::int64_t integer(int column) const { return sqlite3_column_int64(prepared, column); }
  double real(int column) const { return sqlite3_column_double(prepared, column); }
  std::string text(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(prepared, column));
    return bytes == nullptr ? "" : std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(prepared, column)));
  }

 private:
  void bindAt(int position, std::int64_t value) { sqlite3_bind_int64(prepared, position, value); }
  void bindAt(int position, double value) { sqlite3_bind_double(prepared, position, value); }
  void bindAt(int position, std::string_view value) {
    const int bound = sqlite3_bind_text64(prepared, position, value.empty() ? "" : value.data(), value.size(),
                                          SQLITE_STATIC, SQLITE_UTF8);
    if (bound != SQLITE_OK) result = bound;
  }

  sqlite3_stmt* prepared = nullptr;
  int result = SQLITE_OK;
};

}  // namespace messages
