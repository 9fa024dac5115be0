/// The project file: a table of items in SQLite. Every change is one transaction that is on disk when the
/// call returns.
#pragma once

#include "apps/takeoff/Database.h"
#include "apps/takeoff/Item.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib::takeoff {

/// Told how many rows are written; false stops and takes everything back.
using TProgress = std::function<bool(std::size_t Done)>;

/// The one program that has a project file open: the file is locked from opening to closing. A file that may
/// only be read opens all the same, and every change is refused. Killed at any moment, the file opens again
/// with every change whose call had returned.
class TProjectStore {
public:
  /// Makes a new project file with these items. A file of this name is not replaced.
  /// errors      EProjectError
  static void Create(const std::u16string& Path, std::vector<TItem> Items = {});

  /// errors      EProjectError there is no such file; it is locked, damaged, no database, or no project of
  /// ours
  explicit TProjectStore(const std::u16string& Path);

  const std::u16string& Path() const noexcept { return FDatabase->Path(); }
  bool ReadOnly() const noexcept { return FReadOnly; }
  /// All items in the order of their making. A value that is no finite number is given as NaN.
  std::vector<TItem> Load();

  // errors of all changes: EProjectError; nothing has changed then

  /// Adds items and sets their Id. False: Progress has stopped it, nothing was added.
  bool Add(std::vector<TItem>& Items, const TProgress& Progress = {});
  void Delete(const std::vector<std::int64_t>& Ids);
  void SetName(std::int64_t Id, std::u16string_view Name);
  void SetMeasure(std::int64_t Id, int Measure);
  void SetValue(std::int64_t Id, double Value, std::u16string_view Typed, std::u16string_view TypedIn);
  void SetElevation(std::int64_t Id, std::u16string_view Elevation);

private:
  void Lock();
  void RequireOurs();
  void RequireWritable() const;

  std::unique_ptr<TDatabase> FDatabase;
  bool FReadOnly = false;
};

} // namespace unitlib::takeoff
