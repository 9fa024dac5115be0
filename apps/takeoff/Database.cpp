#include "apps/takeoff/Database.h"

#include "unitlib/rtl/Text.h"

#include <sqlite3.h>

#include <cmath>

namespace unitlib::takeoff {
namespace {

/// What the user can do about a failure; empty where SQLite's own words have to do.
std::u16string_view Advice(int Code) {
  switch (Code & 0xFF) {
  case SQLITE_NOTADB:
    return u"is no take-off project: it is not a database";
  case SQLITE_BUSY:
  case SQLITE_LOCKED:
    return u"is in use by another program (locked); close it there and try again";
  case SQLITE_READONLY:
    return u"can only be read";
  case SQLITE_PERM:
  case SQLITE_AUTH:
    return u"may not be opened: no permission";
  case SQLITE_CANTOPEN:
    return u"cannot be opened";
  case SQLITE_FULL:
    return u"cannot be written: the disk is full";
  case SQLITE_CORRUPT:
    return u"is damaged";
  case SQLITE_IOERR:
    return u"cannot be read or written";
  default:
    return u"";
  }
}

int Flags(TDatabase::TAccess Access) {
  constexpr int Common = SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_FULLMUTEX;
  switch (Access) {
  case TDatabase::TAccess::Read:
    return Common | SQLITE_OPEN_READONLY;
  case TDatabase::TAccess::Write:
    return Common | SQLITE_OPEN_READWRITE;
  case TDatabase::TAccess::Create:
    break;
  }
  return Common | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
}

} // namespace

TDatabase::TDatabase(const std::u16string& Path, TAccess Access) : FPath(Path) {
  const int Code = sqlite3_open_v2(ToUtf8(Path).c_str(), &FHandle, Flags(Access), nullptr);
  if (Code == SQLITE_OK) return;
  sqlite3_close(FHandle);
  FHandle = nullptr;
  Fail(Code);
}

TDatabase::~TDatabase() {
  sqlite3_close(FHandle);
}

bool TDatabase::ReadOnly() const {
  return sqlite3_db_readonly(FHandle, "main") == 1;
}

void TDatabase::Run(const char* Sql) {
  if (sqlite3_exec(FHandle, Sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

std::int64_t TDatabase::Ask(const char* Query) {
  TStatement Statement(*this, Query);
  return Statement.Step() ? Statement.Integer(0) : 0;
}

std::int64_t TDatabase::LastId() const {
  return sqlite3_last_insert_rowid(FHandle);
}

bool TDatabase::InTransaction() const {
  return sqlite3_get_autocommit(FHandle) == 0;
}

void TDatabase::Fail() const {
  Fail(sqlite3_extended_errcode(FHandle));
}

void TDatabase::Fail(int Code) const {
  std::u16string Message = u"\"" + FPath + u"\" ";
  const std::u16string_view Known = Advice(Code);
  const std::string Own = FHandle ? sqlite3_errmsg(FHandle) : sqlite3_errstr(Code);
  if (Known.empty())
    Message += u"failed: " + FromUtf8(Own);
  else
    Message += Known;
  throw EProjectError(std::move(Message), FPath);
}

TStatement::TStatement(TDatabase& Database, const char* Sql) : FDatabase(Database) {
  Check(sqlite3_prepare_v2(Database.Handle(), Sql, -1, &FStatement, nullptr));
}

TStatement::~TStatement() {
  sqlite3_finalize(FStatement);
}

void TStatement::Check(int Code) const {
  if (Code != SQLITE_OK) FDatabase.Fail();
}

void TStatement::Bind(int Index, std::int64_t Value) {
  Check(sqlite3_bind_int64(FStatement, Index + 1, Value));
}

void TStatement::Bind(int Index, double Value) {
  // SQLite would turn a NaN into NULL without a word.
  if (!std::isfinite(Value)) throw ERefused(u"A value that is not a finite number is not stored");
  Check(sqlite3_bind_double(FStatement, Index + 1, Value));
}

void TStatement::Bind(int Index, std::u16string_view Text) {
  const std::string Utf8 = ToUtf8(Text);
  Check(sqlite3_bind_text64(FStatement, Index + 1, Utf8.data(), Utf8.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}

bool TStatement::Step() {
  const int Code = sqlite3_step(FStatement);
  if (Code == SQLITE_ROW) return true;
  if (Code != SQLITE_DONE) {
    sqlite3_reset(FStatement);
    FDatabase.Fail(Code);
  }
  return false;
}

void TStatement::Run() {
  Step();
  sqlite3_reset(FStatement);
}

std::int64_t TStatement::Integer(int Column) const {
  return sqlite3_column_int64(FStatement, Column);
}

std::optional<double> TStatement::Number(int Column) const {
  const int Type = sqlite3_column_type(FStatement, Column);
  if (Type != SQLITE_FLOAT && Type != SQLITE_INTEGER) return std::nullopt;
  return sqlite3_column_double(FStatement, Column);
}

std::u16string TStatement::Text(int Column) const {
  const auto* Bytes = reinterpret_cast<const char*>(sqlite3_column_text(FStatement, Column));
  return Bytes ? FromUtf8({Bytes, static_cast<std::size_t>(sqlite3_column_bytes(FStatement, Column))})
               : std::u16string();
}

TTransaction::~TTransaction() {
  // SQLite has rolled back by itself after some errors, a full disk for one.
  if (!FDatabase.InTransaction()) return;
  try {
    FDatabase.Run("ROLLBACK");
  } catch (const EUnitError&) {
    // Nothing is left to do: the journal rolls the file back at the next opening.
  }
}

} // namespace unitlib::takeoff
