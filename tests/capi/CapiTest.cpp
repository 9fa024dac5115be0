#include "tests/capi/CapiTest.h"

#include <atomic>
#include <cmath>
#include <limits>
#include <random>
#include <system_error>

namespace capi_test {
namespace fs = std::filesystem;

namespace {

fs::path NewFolder() {
  static std::atomic<unsigned> Counter{0};
  std::random_device Random;
  fs::path Made = fs::temp_directory_path() /
                  ("unitlib-capi-" + std::to_string(Random()) + "-" + std::to_string(++Counter));
  fs::create_directories(Made / "docs");
  return Made;
}

std::string Utf8(const fs::path& Path) {
  const std::u8string Text = Path.u8string();
  return {Text.begin(), Text.end()};
}

} // namespace

TCapi::TCapi() : Folder(NewFolder()) {
  EXPECT_EQ(UL_OK, ul_set_exe_path_u8(Utf8(Folder).c_str(), UL_TO_NUL));
  EXPECT_EQ(UL_OK, ul_set_common_documents_path_u8(Path("docs").c_str(), UL_TO_NUL));
  EXPECT_EQ(UL_OK, ul_generate_default_config_file_u8(nullptr, 0));
  EXPECT_EQ(UL_OK, ul_initial_unit_system_u8(nullptr, 0, UL_US_IMPERIAL, 0));
}

TCapi::~TCapi() {
  ul_free_unit_system();
  ul_set_exe_path_u8(nullptr, 0);
  ul_set_common_documents_path_u8(nullptr, 0);
  std::error_code Ignored;
  fs::remove_all(Folder, Ignored);
}

std::string TCapi::Path(std::string_view Name) const {
  return Utf8(Folder / fs::path(std::u8string(Name.begin(), Name.end())));
}

int32_t TCapi::Position(int32_t ClassifyCode) {
  int32_t Found = -2;
  EXPECT_EQ(UL_OK, ul_find_measure(UL_CURRENT, ClassifyCode, &Found));
  return Found;
}

std::string Text(const TSource8& Source) {
  int32_t Needed = 0;
  EXPECT_EQ(UL_BUFFER_TOO_SMALL, Source(nullptr, 0, &Needed));
  std::string Result(static_cast<size_t>(Needed > 0 ? Needed : 1), '?');
  EXPECT_EQ(UL_OK, Source(Result.data(), static_cast<int32_t>(Result.size()), &Needed));
  EXPECT_EQ('\0', Result.back());
  Result.pop_back();
  return Result;
}

std::u16string Text16(const TSource16& Source) {
  int32_t Needed = 0;
  EXPECT_EQ(UL_BUFFER_TOO_SMALL, Source(nullptr, 0, &Needed));
  std::u16string Result(static_cast<size_t>(Needed > 0 ? Needed : 1), u'?');
  EXPECT_EQ(UL_OK, Source(Result.data(), static_cast<int32_t>(Result.size()), &Needed));
  EXPECT_EQ(u'\0', Result.back());
  Result.pop_back();
  return Result;
}

std::string Narrow(std::u16string_view Text) {
  const std::u8string Bytes = fs::path(Text).u8string();
  return {Bytes.begin(), Bytes.end()};
}

std::string Show(int32_t Measure, double Value, uint32_t Flags) {
  return Text([&](char* Buffer, int32_t Capacity, int32_t* Needed) {
    return ul_store_to_display_u8(Measure, Value, UL_BASE_SCALE, Flags, Buffer, Capacity, Needed);
  });
}

double Store(int32_t Measure, std::string_view Text, uint32_t Flags) {
  double Value = std::numeric_limits<double>::quiet_NaN();
  ul_display_to_store_u8(Measure, Text.data(), Size(Text), UL_BASE_SCALE, Flags, &Value);
  return Value;
}

int32_t Size(std::string_view Text) {
  return static_cast<int32_t>(Text.size());
}

ul_error LastError() {
  ul_error Error = {-1, -1, -1, -1};
  EXPECT_EQ(UL_OK, ul_last_error(&Error));
  return Error;
}

std::string LastText(int32_t Part) {
  return Text([&](char* Buffer, int32_t Capacity, int32_t* Needed) {
    return ul_last_error_text_u8(Part, Buffer, Capacity, Needed);
  });
}

} // namespace capi_test
