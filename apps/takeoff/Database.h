/// SQLite with errors as exceptions: a connection, a prepared statement, a transaction. The library's header
/// stays inside the .cpp.
#pragma once

#include "apps/takeoff/Errors.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace unitlib::takeoff {

/// A connection to one file. Every failure is an EProjectError whose message names the file and says what to
/// do.
class TDatabase {
public:
  enum class TAccess : std::uint8_t { Read, Write, Create };

  TDatabase(const std::u16string& Path, TAccess Access);
  ~TDatabase();
  TDatabase(const TDatabase&) = delete;
  TDatabase& operator=(const TDatabase&) = delete;

  bool ReadOnly() const;
  const std::u16string& Path() const noexcept { return FPath; }
  void Run(const char* Sql);
  /// The one whole number that a query answers with.
  std::int64_t Ask(const char* Query);
  std::int64_t LastId() const;
  bool InTransaction() const;

  [[noreturn]] void Fail() const;
  [[noreturn]] void Fail(int Code) const;
  sqlite3* Handle() const noexcept { return FHandle; }

private:
  std::u16string FPath;
  sqlite3* FHandle = nullptr;
};

/// A prepared statement; parameters and columns count from 0.
class TStatement {
public:
  TStatement(TDatabase& Database, const char* Sql);
  ~TStatement();
  TStatement(const TStatement&) = delete;
  TStatement& operator=(const TStatement&) = delete;

  void Bind(int Index, std::int64_t Value);
  void Bind(int Index, double Value);
  void Bind(int Index, std::u16string_view Text);
  /// Next row; false at the end.
  bool Step();
  /// Runs a statement without rows and makes it ready for the next values.
  void Run();

  std::int64_t Integer(int Column) const;
  /// The number of a column; nothing when it holds something else.
  std::optional<double> Number(int Column) const;
  std::u16string Text(int Column) const;

private:
  void Check(int Code) const;

  TDatabase& FDatabase;
  sqlite3_stmt* FStatement = nullptr;
};

/// All or nothing: what is not committed is rolled back at the end.
class TTransaction {
public:
  explicit TTransaction(TDatabase& Database) : FDatabase(Database) { FDatabase.Run("BEGIN IMMEDIATE"); }
  ~TTransaction();
  TTransaction(const TTransaction&) = delete;
  TTransaction& operator=(const TTransaction&) = delete;

  void Commit() { FDatabase.Run("COMMIT"); }

private:
  TDatabase& FDatabase;
};

} // namespace unitlib::takeoff
