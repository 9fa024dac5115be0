/// The last failed call of each thread, as ul_last_error tells it.
#pragma once

#include "unitlib/capi/unitlib.h"

#include <array>
#include <string>

namespace unitlib::capi {

/// What is told about a failed call. Texts stand in the order of UL_LAST_MESSAGE, UL_LAST_PATH, ...
struct TErrorRecord {
  static constexpr int TextCount = 5;

  ul_error Info = {UL_OK, 0, -1, -1};
  std::array<std::u16string, TextCount> Texts;
};

/// The calling thread's record; null when no call has failed on it.
const TErrorRecord* FindLastError() noexcept;
/// Replaces the calling thread's record. Without memory only the code is kept, or not even that.
void KeepLastError(TErrorRecord&& Record) noexcept;

} // namespace unitlib::capi
