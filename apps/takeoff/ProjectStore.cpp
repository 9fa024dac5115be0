#include "apps/takeoff/ProjectStore.h"

#include "unitlib/rtl/Numbers.h"

#include <cmath>
#include <filesystem>
#include <limits>
#include <system_error>

namespace unitlib::takeoff {
namespace {
namespace fs = std::filesystem;

// Written into the header of the file, so that other databases are told apart.
#define TAKEOFF_APPLICATION_ID "1413565254" // "TAKF"
constexpr std::int64_t ApplicationId = 0x54414B46;
constexpr std::int64_t Version = 1;

constexpr const char* Schema = "PRAGMA application_id=" TAKEOFF_APPLICATION_ID ";"
                               "PRAGMA user_version=1;"
                               "CREATE TABLE item("
                               " id INTEGER PRIMARY KEY,"
                               " name TEXT NOT NULL,"
                               " measure INTEGER NOT NULL,"            // classify code
                               " value REAL NOT NULL,"                 // in the base unit
                               " typed TEXT NOT NULL DEFAULT '',"      // as the user wrote it
                               " typed_in TEXT NOT NULL DEFAULT '',"   // and in which unit
                               " elevation TEXT NOT NULL DEFAULT '')"; // lengths in metres

/// EXTRA is FULL and flushes the folder as well, without which a power cut could bring a finished journal
/// back.
constexpr const char* Safety = "PRAGMA journal_mode=DELETE; PRAGMA synchronous=EXTRA";

[[noreturn]] void Refuse(const std::u16string& Path, std::u16string_view Problem) {
  throw EProjectError(u"\"" + Path + u"\" " + std::u16string(Problem), Path);
}

/// A file nobody may write is opened for reading, also by a user whom permissions do not bind.
bool IsWriteProtected(const fs::path& File) {
  constexpr fs::perms Write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  std::error_code Failed;
  const fs::perms Permissions = fs::status(File, Failed).permissions();
  return !Failed && (Permissions & Write) == fs::perms::none;
}

std::unique_ptr<TDatabase> OpenDatabase(const std::u16string& Path) {
  const fs::path File(Path);
  std::error_code Failed;
  const fs::file_status Status = fs::status(File, Failed);
  if (Status.type() == fs::file_type::not_found) Refuse(Path, u"does not exist");
  if (fs::is_directory(Status)) Refuse(Path, u"is a folder, not a project");
  const bool Protected = IsWriteProtected(File);
  return std::make_unique<TDatabase>(Path, Protected ? TDatabase::TAccess::Read : TDatabase::TAccess::Write);
}

TItem ReadItem(const TStatement& Row) {
  TItem Item;
  Item.Id = Row.Integer(0);
  Item.Name = Row.Text(1);
  // A code beyond 32 bits is as unknown as any other.
  const std::int64_t Code = Row.Integer(2);
  Item.Measure = static_cast<int>(Code) == Code ? static_cast<int>(Code) : std::numeric_limits<int>::min();
  const auto Number = Row.Number(3);
  Item.Value = Number && std::isfinite(*Number) ? *Number : std::numeric_limits<double>::quiet_NaN();
  Item.Typed = Row.Text(4);
  Item.TypedIn = Row.Text(5);
  Item.Elevation = Row.Text(6);
  return Item;
}

/// False: Progress has stopped it.
bool InsertAll(TDatabase& Database, std::vector<TItem>& Items, const TProgress& Progress) {
  constexpr std::size_t Stride = 1000; // rows between two reports
  TStatement Insert(Database,
                    "INSERT INTO item(name,measure,value,typed,typed_in,elevation) VALUES(?,?,?,?,?,?)");
  for (std::size_t I = 0; I < Items.size(); ++I) {
    TItem& Item = Items[I];
    Insert.Bind(0, Item.Name);
    Insert.Bind(1, std::int64_t{Item.Measure});
    Insert.Bind(2, Item.Value);
    Insert.Bind(3, Item.Typed);
    Insert.Bind(4, Item.TypedIn);
    Insert.Bind(5, Item.Elevation);
    Insert.Run();
    Item.Id = Database.LastId();
    if (Progress && I % Stride == 0 && !Progress(I)) return false;
  }
  return true;
}

} // namespace

void TProjectStore::Create(const std::u16string& Path, std::vector<TItem> Items) {
  const fs::path File(Path);
  std::error_code Failed;
  if (fs::exists(File, Failed)) Refuse(Path, u"exists already");
  // Under another name until it is whole: a start that is cut short leaves no half-made project.
  const fs::path Unfinished(Path + u".unfinished");
  fs::remove(Unfinished, Failed);
  {
    TDatabase Database(Unfinished.u16string(), TDatabase::TAccess::Create);
    Database.Run(Safety);
    TTransaction Transaction(Database);
    Database.Run(Schema);
    InsertAll(Database, Items, {});
    Transaction.Commit();
  }
  fs::rename(Unfinished, File, Failed);
  if (Failed) Refuse(Path, u"cannot be made");
}

TProjectStore::TProjectStore(const std::u16string& Path) : FDatabase(OpenDatabase(Path)) {
  FReadOnly = FDatabase->ReadOnly();
  FDatabase->Run("PRAGMA busy_timeout=500");
  if (!FReadOnly) FDatabase->Run("PRAGMA locking_mode=EXCLUSIVE");
  RequireOurs(); // before anything is changed in the file
  if (!FReadOnly) Lock();
}

/// From here to the end no other program reads or writes the file.
void TProjectStore::Lock() {
  FDatabase->Run(Safety);
  FDatabase->Run("BEGIN EXCLUSIVE; COMMIT");
}

void TProjectStore::RequireOurs() {
  const std::int64_t Tables = FDatabase->Ask("SELECT count(*) FROM sqlite_master");
  if (Tables == 0) Refuse(Path(), u"is empty, not a take-off project");
  if (FDatabase->Ask("PRAGMA application_id") != ApplicationId)
    Refuse(Path(), u"is a database of another program, not a take-off project");
  if (FDatabase->Ask("PRAGMA user_version") > Version)
    Refuse(Path(), u"was made by a newer version of this program");
}

void TProjectStore::RequireWritable() const {
  if (FReadOnly) Refuse(Path(), u"can only be read");
}

std::vector<TItem> TProjectStore::Load() {
  std::vector<TItem> Items;
  TStatement Rows(*FDatabase, "SELECT id,name,measure,value,typed,typed_in,elevation FROM item ORDER BY id");
  while (Rows.Step()) Items.push_back(ReadItem(Rows));
  return Items;
}

bool TProjectStore::Add(std::vector<TItem>& Items, const TProgress& Progress) {
  RequireWritable();
  TTransaction Transaction(*FDatabase);
  if (!InsertAll(*FDatabase, Items, Progress)) return false;
  Transaction.Commit();
  return true;
}

void TProjectStore::Delete(const std::vector<std::int64_t>& Ids) {
  RequireWritable();
  TTransaction Transaction(*FDatabase);
  TStatement Delete(*FDatabase, "DELETE FROM item WHERE id=?");
  for (const std::int64_t Id : Ids) {
    Delete.Bind(0, Id);
    Delete.Run();
  }
  Transaction.Commit();
}

void TProjectStore::SetName(std::int64_t Id, std::u16string_view Name) {
  RequireWritable();
  TStatement Update(*FDatabase, "UPDATE item SET name=? WHERE id=?");
  Update.Bind(0, Name);
  Update.Bind(1, Id);
  Update.Run();
}

void TProjectStore::SetMeasure(std::int64_t Id, int Measure) {
  RequireWritable();
  TStatement Update(*FDatabase, "UPDATE item SET measure=? WHERE id=?");
  Update.Bind(0, std::int64_t{Measure});
  Update.Bind(1, Id);
  Update.Run();
}

void TProjectStore::SetValue(std::int64_t Id, double Value, std::u16string_view Typed,
                             std::u16string_view TypedIn) {
  RequireWritable();
  TStatement Update(*FDatabase, "UPDATE item SET value=?,typed=?,typed_in=? WHERE id=?");
  Update.Bind(0, Value);
  Update.Bind(1, Typed);
  Update.Bind(2, TypedIn);
  Update.Bind(3, Id);
  Update.Run();
}

void TProjectStore::SetElevation(std::int64_t Id, std::u16string_view Elevation) {
  RequireWritable();
  TStatement Update(*FDatabase, "UPDATE item SET elevation=? WHERE id=?");
  Update.Bind(0, Elevation);
  Update.Bind(1, Id);
  Update.Run();
}

} // namespace unitlib::takeoff
