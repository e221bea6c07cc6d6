// SQL statements of a SQLite database. Each statement is prepared only once, because preparing it usually takes longer
// than executing it. Only one thread can use an object of these classes.
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
  // Returns the prepared statement for `sql`, which must be a string literal because it is stored by reference. Returns
  // null if the statement cannot be prepared; sqlite3_errmsg then describes the error.
  sqlite3_stmt* findOrPrepare(sqlite3* database, const char* sql) {
    Prepared& found = statements_[sql];
    if (found != nullptr) return found.get();
    sqlite3_stmt* prepared = nullptr;
    sqlite3_prepare_v3(database, sql, -1, SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
    found.reset(prepared);
    return prepared;
  }

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  using Prepared = std::unique_ptr<sqlite3_stmt, Finalizer>;

  std::map<std::string_view, Prepared> statements_;
};

// One execution of a prepared statement. Two executions of the same statement must not overlap. A null pointer
// represents a statement that could not be prepared. Bound texts must outlive the object.
class Statement {
 public:
  explicit Statement(sqlite3_stmt* statement)
      : statement_(statement), result_(statement == nullptr ? SQLITE_ERROR : SQLITE_OK) {}
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement() { sqlite3_reset(statement_); }

  // Binds the values to the statement's parameters, in order. All parameters must be bound.
  template <class... Values>
  void bind(const Values&... values) {
    int position = 0;
    (bindAt(++position, values), ...);
  }
  // Executes the statement up to its next row of results. Returns false after the last row and after an error.
  bool step() {
    if (hasFailed()) return false;
    result_ = sqlite3_step(statement_);
    return result_ == SQLITE_ROW;
  }
  bool hasFailed() const { return result_ != SQLITE_OK && result_ != SQLITE_ROW && result_ != SQLITE_DONE; }

  std::int64_t integer(int column) const { return sqlite3_column_int64(statement_, column); }
  double real(int column) const { return sqlite3_column_double(statement_, column); }
  std::string text(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    return bytes == nullptr ? ""
                            : std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)));
  }

 private:
  void bindAt(int position, std::int64_t value) { sqlite3_bind_int64(statement_, position, value); }
  void bindAt(int position, double value) { sqlite3_bind_double(statement_, position, value); }
  void bindAt(int position, std::string_view value) {
    const int bound = sqlite3_bind_text64(statement_, position, value.empty() ? "" : value.data(), value.size(),
                                          SQLITE_STATIC, SQLITE_UTF8);
    if (bound != SQLITE_OK) result_ = bound;
  }

  sqlite3_stmt* statement_;
  int result_;
};

}  // namespace messages
