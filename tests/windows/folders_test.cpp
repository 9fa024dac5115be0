/// The folders of Windows, and file names in all their forms.
#include "tests/windows/TestFolder.h"

#include <gmock/gmock.h>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <filesystem>
#include <fstream>

namespace windows_test {
namespace fs = std::filesystem;
namespace {

using TGetter = ul_status(UL_CALL*)(ul_char16*, int32_t, int32_t*);

std::wstring Get(TGetter Getter) {
  char16_t Text[4096];
  int32_t Needed = 0;
  EXPECT_EQ(UL_OK, Getter(Text, 4096, &Needed)) << LastMessage();
  return Needed > 0 ? Wide({Text, static_cast<size_t>(Needed - 1)}) : L"?";
}

/// The system does not tell upper from lower case in paths.
void ExpectSamePath(const std::wstring& Wanted, const std::wstring& Got) {
  EXPECT_EQ(0, lstrcmpiW(Wanted.c_str(), Got.c_str())) << fs::path(Got) << " instead of " << fs::path(Wanted);
}

TEST(Folders, WorkingCopyLiesInTheDocumentsOfAllUsers) {
  ul_set_common_documents_path(nullptr, 0);
  ExpectSamePath(L"C:\\Users\\Public\\Documents", Get(ul_get_common_documents_path));
  ExpectSamePath(L"C:\\Users\\Public\\Documents\\Quillmere\\ZEL\\9.0\\", Get(ul_get_temp_path_for_unit));
}

TEST(Folders, ProgramFolderEndsWithABackslash) {
  wchar_t Path[MAX_PATH * 4];
  GetModuleFileNameW(nullptr, Path, MAX_PATH * 4);
  const std::wstring Whole = Path;
  EXPECT_EQ(Whole.substr(0, Whole.find_last_of(L'\\') + 1), Get(ul_get_exe_path));
}

TEST(Folders, WorkingCopyIsWrittenIntoFoldersMadeForIt) {
  const TTestFolder Folder;
  const std::u16string File = Folder.File(L"UnitConfig.xml");
  EXPECT_EQ(UL_OK, Generate(File));
  EXPECT_EQ(UL_OK, ul_initial_unit_system(File.data(), static_cast<int32_t>(File.size()), UL_US_IMPERIAL, 1));
  const std::wstring Copy = Get(ul_get_temp_path_for_unit);
  EXPECT_TRUE(Copy.ends_with(L"\\Quillmere\\ZEL\\9.0\\"));
  EXPECT_TRUE(fs::exists(fs::path(Copy) / L"SysUnit.xml"));
}

struct TName {
  const char* Id;
  const wchar_t* Folder;
  const wchar_t* File;
};
void PrintTo(const TName& Name, std::ostream* Out) {
  *Out << Name.Id;
}

class FileNames : public testing::TestWithParam<TName> {};

/// Written, listed under its own name, loaded, changed, saved, loaded again.
TEST_P(FileNames, SurviveARound) {
  const TTestFolder Folder(GetParam().Folder);
  const std::u16string File = Folder.File(GetParam().File);
  ASSERT_EQ(UL_OK, Generate(File)) << LastMessage();
  EXPECT_EQ(std::wstring(GetParam().File) + L"\n", Folder.List());
  ASSERT_EQ(UL_OK, Load(File)) << LastMessage();
  EXPECT_EQ(Wide(File), Get(ul_get_unit_config_file_name));
  EXPECT_EQ(UL_OK, ul_set_cur_config_index(2)); // Standard Metric System
  ASSERT_EQ(UL_OK, Save({})) << LastMessage();
  ASSERT_EQ(UL_OK, Load(File)) << LastMessage();
  EXPECT_EQ("1676", ShownLength());
  EXPECT_EQ(std::wstring(GetParam().File) + L"\n", Folder.List());
}

INSTANTIATE_TEST_SUITE_P(
    Windows, FileNames,
    testing::Values(TName{"Plain", L"plain", L"UnitConfig.xml"},
                    TName{"Blanks", L"Project files of 2026", L"unit settings (copy).xml"},
                    TName{"German", L"Größen und Maße", L"Einheiten für Häuser.xml"},
                    TName{"Chinese", L"\u5de5\u7a0b\u9879\u76ee", L"\u5355\u4f4d\u8bbe\u7f6e.xml"},
                    TName{"Cyrillic", L"\u041f\u0440\u043e\u0435\u043a\u0442",
                          L"\u0435\u0434\u0438\u043d\u0438\u0446\u044b.xml"},
                    TName{"BeyondTheFirstPlane", L"house \U0001F3E0", L"\U0001F4D0.xml"},
                    TName{"CombiningMarks", L"e\u0301", L"A\u030A.xml"},
                    TName{"NoExtension", L"dir.xml", L"UnitConfig"},
                    TName{"Percent", L"100%TEMP%", L"a&b;c=d.xml"}),
    [](const auto& Info) { return std::string(Info.param.Id); });

TEST(FilePaths, TakeForwardSlashes) {
  const TTestFolder Folder;
  std::u16string File = Folder.File(L"UnitConfig.xml");
  for (char16_t& C : File)
    if (C == u'\\') C = u'/';
  EXPECT_EQ(UL_OK, Generate(File)) << LastMessage();
  EXPECT_EQ(UL_OK, Load(File)) << LastMessage();
  EXPECT_EQ(UL_OK, Save(File)) << LastMessage();
  EXPECT_EQ(L"UnitConfig.xml\n", Folder.List());
}

TEST(FilePaths, BeginAtTheCurrentFolder) {
  const TTestFolder Folder;
  const fs::path Before = fs::current_path();
  fs::current_path(Folder.Path());
  EXPECT_EQ(UL_OK, Generate(u"relative.xml")) << LastMessage();
  EXPECT_EQ(UL_OK, Load(u"relative.xml")) << LastMessage();
  EXPECT_EQ(UL_OK, Save(u"relative.xml")) << LastMessage();
  EXPECT_EQ(UL_OK, Save(u".\\other.xml")) << LastMessage();
  fs::current_path(Before);
  EXPECT_EQ(L"other.xml\nrelative.xml\n", Folder.List());
}

TEST(FilePaths, MayBeLongerThanTheOldLimit) {
  const TTestFolder Folder;
  std::wstring Deep = L"\\\\?\\" + Folder.Path();
  while (Deep.size() < 400) {
    Deep += L"\\" + std::wstring(60, L'd');
    ASSERT_TRUE(CreateDirectoryW(Deep.c_str(), nullptr)) << GetLastError();
  }
  const std::wstring Wanted = Deep + L"\\UnitConfig.xml";
  const std::u16string File(Wanted.begin(), Wanted.end());
  EXPECT_EQ(UL_OK, Generate(File)) << LastMessage();
  EXPECT_EQ(UL_OK, Load(File)) << LastMessage();
  EXPECT_EQ(UL_OK, Save(File)) << LastMessage();
  EXPECT_EQ("5' 6\"", ShownLength());
}

TEST(FilePaths, DevicesAreNoSettingsFiles) {
  const TTestFolder Folder;
  for (const char16_t* Device : {u"NUL", u"\\\\.\\NUL"}) {
    EXPECT_EQ(UL_ERROR_FILE, Load(Device));
    EXPECT_NE("", LastMessage());
  }
}

TEST(FilePaths, WithWildcardsOrOtherForbiddenLettersAreErrors) {
  const TTestFolder Folder;
  for (const wchar_t* Name : {L"*.xml", L"a?.xml", L"a|b.xml", L"a<b>.xml", L"a\"b.xml"}) {
    EXPECT_EQ(UL_ERROR_FILE, Generate(Folder.File(Name)));
    EXPECT_EQ(UL_ERROR_FILE, Load(Folder.File(Name)));
  }
  EXPECT_EQ(L"", Folder.List());
}

TEST(FilePaths, LoneSurrogatesDoNoHarm) {
  const TTestFolder Folder;
  const std::u16string File = Folder.File(L"half \xD83C.xml");
  const ul_status Status = Generate(File); // the system may take such a name or not
  EXPECT_TRUE(Status == UL_OK || Status == UL_ERROR_FILE) << Status;
  if (Status == UL_OK) {
    EXPECT_EQ(UL_OK, Load(File));
  }
}

} // namespace
} // namespace windows_test
