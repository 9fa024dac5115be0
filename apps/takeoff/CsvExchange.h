/// Schedules as CSV: items from a file, the shown schedule into one.
#pragma once

#include "apps/common/Files.h"
#include "apps/takeoff/Item.h"
#include "apps/takeoff/Project.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace unitlib::takeoff {

/// A row of a file that is no item.
struct TImportProblem {
  std::uint64_t Line = 0;
  std::u16string Message;
};

struct TImport {
  std::vector<TItem> Items;
  std::vector<TImportProblem> Problems; // the first MaxProblems
  std::size_t BadRows = 0;
  bool Stopped = false;

  static constexpr std::size_t MaxProblems = 100;
};

/// Reads items. The header names the columns, letter case aside: "measure" (classify code or name) and
/// "value" (in the base unit) are needed; "elevation" is read as typed; "typed" and "display" are not read;
/// all others together make the name, in their order, with " / " between them. Progress    told the bytes
/// read; false stops errors      EFileError; ERefused the header does not name the columns needed
TImport ReadItems(app::TByteSource& Source, const std::function<bool(std::uint64_t Bytes)>& Progress = {});

/// Writes the schedule as it is shown, in project units: name, measure, display, elevation, typed, value
/// (base unit). errors      EFileError
void WriteSchedule(const TProject& Project, app::TByteSink& Sink);

} // namespace unitlib::takeoff
