// The statements of a SQLite database, each prepared once: preparing takes longer than most of them.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace messages {

class PreparedStatements {
 public:
  // The text is a literal. Null where it cannot be prepared; the database tells why.
  sqlite3_stmt* find(sqlite3* database, const char* text) {
    Prepared& found = all[text];
    if (found != nullptr) return found.get();
    sqlite3_stmt* made = nullptr;
    sqlite3_prepare_v3(database, text, -1, SQLITE_PREPARE_PERSISTENT, &made, nullptr);
    found.reset(made);
    return made;
  }

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  using Prepared = std::unique_ptr<sqlite3_stmt, Finalizer>;

  std::map<std::string_view, Prepared> all;
};

// One use of a prepared statement, which binds all its values; no two at once. One that could not be prepared has
// failed from the start. Bound texts must outlive it.
class Statement {
 public:
  explicit Statement(sqlite3_stmt* statement)
      : prepared(statement), result(statement == nullptr ? SQLITE_ERROR : SQLITE_OK) {}
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement() { sqlite3_reset(prepared); }

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

  sqlite3_stmt* prepared;
  int result;
};

}  // namespace messages
