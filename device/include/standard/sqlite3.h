// The functions of SQLite that the library calls. The library of system version 11.2 has all of them.
#pragma once

#define SQLITE_OK 0
#define SQLITE_ROW 100
#define SQLITE_OPEN_READONLY 0x00000001
#define SQLITE_OPEN_URI 0x00000040

struct sqlite3;
struct sqlite3_stmt;

extern "C" {
int sqlite3_open_v2(const char* filename, sqlite3** database, int flags, const char* fileSystem);
int sqlite3_close(sqlite3* database);
int sqlite3_prepare_v2(sqlite3* database, const char* query, int length, sqlite3_stmt** statement, const char** rest);
int sqlite3_step(sqlite3_stmt* statement);
const unsigned char* sqlite3_column_text(sqlite3_stmt* statement, int column);
int sqlite3_finalize(sqlite3_stmt* statement);
}
