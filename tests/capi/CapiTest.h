/// Helpers for tests that reach the library through unitlib.h alone.
#pragma once

#include "unitlib/capi/unitlib.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace capi_test {

/// A temporary folder as program folder and documents folder; its factory settings, loaded for the United
/// States.
class TCapi : public ::testing::Test {
protected:
  TCapi();
  ~TCapi() override;

  std::string Path(std::string_view Name) const;
  /// Number 0 of the list: length; the position of each measure by its classify code.
  static int32_t Position(int32_t ClassifyCode);

  std::filesystem::path Folder;
};

constexpr int32_t Length = 0, Area = 1, Elevation = 3, ResultLength = 7; // classify codes

/// A function with its leading arguments bound, given buffer, capacity and needed.
using TSource8 = std::function<ul_status(char*, int32_t, int32_t*)>;
using TSource16 = std::function<ul_status(char16_t*, int32_t, int32_t*)>;

/// The text that a function gives, by asking for the size first; records a failure when it gives none.
std::string Text(const TSource8& Source);
std::u16string Text16(const TSource16& Source);

/// UTF-8 of a text that holds no surrogate.
std::string Narrow(std::u16string_view Text);

std::string Show(int32_t Measure, double Value, uint32_t Flags = 0);
/// The value of a text; NaN when it has none.
double Store(int32_t Measure, std::string_view Text, uint32_t Flags = 0);
int32_t Size(std::string_view Text);

/// The last error of this thread.
ul_error LastError();
std::string LastText(int32_t Part = UL_LAST_MESSAGE);

} // namespace capi_test
