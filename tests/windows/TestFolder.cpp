#include "tests/windows/TestFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <sstream>

namespace windows_test {
namespace fs = std::filesystem;

namespace {

int32_t Size(std::u16string_view Text) {
  return static_cast<int32_t>(Text.size());
}

} // namespace

TTestFolder::TTestFolder(std::wstring_view Name) {
  static std::atomic<unsigned> Counter{0};
  const fs::path Root =
      fs::temp_directory_path() /
      ("unitlib-windows-" + std::to_string(std::random_device()()) + "-" + std::to_string(++Counter));
  FRoot = Root.wstring();
  FPath = (Root / Name).wstring();
  fs::create_directories(FPath);
  const std::u16string Documents = Root.u16string();
  EXPECT_EQ(UL_OK, ul_set_common_documents_path(Documents.data(), Size(Documents)));
}

TTestFolder::~TTestFolder() {
  ul_free_unit_system();
  ul_set_common_documents_path(nullptr, 0);
  std::error_code Ignored;
  fs::remove_all(FRoot, Ignored);
}

std::u16string TTestFolder::File(std::wstring_view Name) const {
  const std::wstring Whole = FPath + L"\\" + std::wstring(Name);
  return {Whole.begin(), Whole.end()};
}

std::wstring TTestFolder::List() const {
  std::set<std::wstring> Names;
  for (const auto& Entry : fs::directory_iterator(FPath)) Names.insert(Entry.path().filename().wstring());
  std::wstring Lines;
  for (const std::wstring& Name : Names) Lines += Name + L"\n";
  return Lines;
}

std::wstring Wide(std::u16string_view Text) {
  return {Text.begin(), Text.end()};
}

std::string ReadBytes(const std::u16string& Path) {
  std::ifstream In(fs::path(Path), std::ios::binary);
  std::ostringstream Content;
  Content << In.rdbuf();
  return Content.str();
}

ul_status Generate(const std::u16string& File) {
  return ul_generate_default_config_file(File.data(), Size(File));
}
ul_status Load(const std::u16string& File) {
  return ul_initial_unit_system(File.data(), Size(File), UL_US_IMPERIAL, 0);
}
ul_status Save(const std::u16string& File) {
  return ul_save_config_file(File.data(), Size(File));
}

std::string LastMessage() {
  char Text[2048] = "";
  ul_last_error_text_u8(UL_LAST_MESSAGE, Text, sizeof Text, nullptr);
  return Text;
}

std::string ShownLength() {
  char Text[64] = "?";
  ul_store_to_display_u8(0, 1676.4, UL_BASE_SCALE, 0, Text, sizeof Text, nullptr);
  return Text;
}

} // namespace windows_test
