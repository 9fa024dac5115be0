/// Loading, saving and freeing of settings; the folders; the version.
#include "tests/capi/CapiTest.h"

#include <fstream>
#include <sstream>

namespace capi_test {
namespace {

namespace fs = std::filesystem;

class TSettings : public TCapi {
protected:
  static int32_t Current() {
    int32_t Index = -7;
    EXPECT_EQ(UL_OK, ul_get_cur_config_index(&Index));
    return Index;
  }
  static int32_t IsLoaded() {
    int32_t Loaded = -7;
    EXPECT_EQ(UL_OK, ul_is_loaded(&Loaded));
    return Loaded;
  }
  fs::path WorkingCopy() const { return Folder / "docs" / "Quillmere" / "ZEL" / "9.0" / "SysUnit.xml"; }
  static std::string FileName() {
    return Text([](char* B, int32_t C, int32_t* N) { return ul_get_unit_config_file_name_u8(B, C, N); });
  }
  static std::string Bytes(const fs::path& File) {
    std::ostringstream Out;
    Out << std::ifstream(File, std::ios::binary).rdbuf();
    return Out.str();
  }
};

TEST_F(TSettings, HaveAVersion) {
  int32_t Major = -1, Minor = -1, Patch = -1;
  EXPECT_EQ(UL_OK, ul_version(&Major, &Minor, &Patch));
  EXPECT_GE(Major, 0);
  EXPECT_GE(Minor, 0);
  EXPECT_GE(Patch, 0);
  Major = -1;
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_version(&Major, nullptr, &Patch));
  EXPECT_EQ(-1, Major);
}

TEST_F(TSettings, TakeTheAskedConfigurationWhereTheFileHasNone) {
  EXPECT_EQ(UL_OK, ul_initial_unit_system(nullptr, 0, UL_STANDARD_METRIC, 0));
  EXPECT_EQ(2, Current());
  EXPECT_TRUE(fs::exists(WorkingCopy())) << "written although save is 0";
}

TEST_F(TSettings, KeepTheChoiceOfTheFile) {
  EXPECT_EQ(UL_OK, ul_set_cur_config_index(UL_UK_IMPERIAL));
  EXPECT_EQ(UL_OK, ul_save_config_file(nullptr, 0));
  fs::remove(WorkingCopy());
  EXPECT_EQ(UL_OK, ul_initial_unit_system(nullptr, 0, UL_STANDARD_METRIC, 0));
  EXPECT_EQ(1, Current());
  EXPECT_FALSE(fs::exists(WorkingCopy()));
  EXPECT_EQ(UL_OK, ul_initial_unit_system(nullptr, 0, UL_STANDARD_METRIC, 1));
  EXPECT_EQ(1, Current());
  EXPECT_TRUE(fs::exists(WorkingCopy()));
}

TEST_F(TSettings, RefuseAnUnknownConfigurationType) {
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_initial_unit_system(nullptr, 0, 5, 0));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_initial_unit_system(nullptr, 0, -1, 0));
  EXPECT_EQ(1, IsLoaded()) << "what was loaded stays";
  EXPECT_EQ(0, Current());
}

TEST_F(TSettings, OfTheReportChooseNoConfiguration) {
  const std::string Report = Path("report.xml");
  EXPECT_EQ(UL_OK, ul_generate_default_config_file_u8(Report.c_str(), UL_TO_NUL));
  EXPECT_EQ(UL_OK, ul_init_system_unit_u8(Report.c_str(), UL_TO_NUL));
  EXPECT_EQ(-1, Current());
  EXPECT_EQ(Report, FileName());
  ul_config_info Info = {-7, -7};
  EXPECT_EQ(UL_ERROR_INDEX, ul_get_config(UL_CURRENT, &Info));
  EXPECT_EQ(-7, Info.measure_count);
  EXPECT_EQ(UL_OK, ul_set_cur_config_index(3));
  EXPECT_EQ(UL_OK, ul_get_config(UL_CURRENT, &Info));
  EXPECT_EQ(9, Info.measure_count);
}

TEST_F(TSettings, AreSavedUnderAnyName) {
  const std::string Copy = Path("Maße \xE5\x8D\x95\xE4\xBD\x8D.xml");
  EXPECT_EQ(UL_OK, ul_set_cur_unit_u8(UL_CURRENT, 0, "Meters", UL_TO_NUL));
  EXPECT_EQ(UL_OK, ul_save_config_file_u8(Copy.c_str(), UL_TO_NUL));
  EXPECT_EQ(Path("UnitConfig.xml"), FileName()) << "saving under a name does not change the file";
  EXPECT_EQ(UL_OK, ul_free_unit_system());
  EXPECT_EQ(UL_OK, ul_initial_unit_system_u8(Copy.c_str(), UL_TO_NUL, UL_US_IMPERIAL, 0));
  EXPECT_EQ("2.000", Show(Length, 2000));
}

TEST_F(TSettings, AreNotSavedAfterAFailedLoad) {
  const std::string Bad = Path("bad.xml");
  std::ofstream(Folder / "bad.xml") << "<Unit>";
  const std::string Before = Bytes(Folder / "bad.xml");
  EXPECT_EQ(UL_ERROR_XML, ul_initial_unit_system_u8(Bad.c_str(), UL_TO_NUL, UL_US_IMPERIAL, 0));
  EXPECT_EQ(UL_ERROR_FILE, ul_save_config_file(nullptr, 0));
  EXPECT_EQ(Before, Bytes(Folder / "bad.xml"));
}

TEST_F(TSettings, CanBeFreedTwice) {
  EXPECT_EQ(1, IsLoaded());
  EXPECT_EQ(UL_OK, ul_free_unit_system());
  EXPECT_EQ(0, IsLoaded());
  EXPECT_EQ(UL_OK, ul_free_unit_system());
  EXPECT_EQ(UL_ERROR_NOT_LOADED, ul_save_config_file(nullptr, 0));
  EXPECT_EQ(UL_ERROR_NOT_LOADED, ul_save_to_model());
}

TEST_F(TSettings, HaveAWorkingCopyInTheDocumentsFolder) {
  fs::remove(WorkingCopy());
  EXPECT_EQ(UL_OK, ul_save_to_model());
  EXPECT_TRUE(fs::exists(WorkingCopy()));
  const std::string Told =
      Text([](char* B, int32_t C, int32_t* N) { return ul_get_temp_path_for_unit_u8(B, C, N); });
  EXPECT_EQ(WorkingCopy(), fs::path(std::u8string(Told.begin(), Told.end())) / "SysUnit.xml");
}

TEST_F(TSettings, HaveFoldersThatAHostMayChoose) {
  const std::string Own = Path("own");
  EXPECT_EQ(UL_OK, ul_set_exe_path_u8(Own.c_str(), UL_TO_NUL));
  const std::string Told = Text([](char* B, int32_t C, int32_t* N) { return ul_get_exe_path_u8(B, C, N); });
  EXPECT_EQ(Own, Told.substr(0, Told.size() - 1)) << "with a delimiter behind it";
  EXPECT_EQ(UL_ERROR_FILE, ul_initial_unit_system(nullptr, 0, UL_US_IMPERIAL, 0)) << "no file there";
  EXPECT_EQ(UL_OK, ul_set_exe_path(nullptr, 0));
  EXPECT_NE(Told, Text([](char* B, int32_t C, int32_t* N) { return ul_get_exe_path_u8(B, C, N); }));
}

TEST_F(TSettings, TakeTextsFromAFile) {
  std::ofstream(Path("texts.txt")) << "dialog.cancel = Abbrechen\n";
  std::ofstream(Path("wrong.txt")) << "# no entry:\ndialog.cancel\n";
  EXPECT_EQ(UL_OK, ul_load_texts_u8(Path("texts.txt").c_str(), UL_TO_NUL));
  EXPECT_EQ(UL_ERROR_FILE, ul_load_texts_u8(Path("none.txt").c_str(), UL_TO_NUL));
  EXPECT_EQ(UL_ERROR_CONVERT, ul_load_texts_u8(Path("wrong.txt").c_str(), UL_TO_NUL));
  EXPECT_EQ(Path("wrong.txt") + ":2: Not of the form key = text: dialog.cancel", LastText());
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_set_text(u"", 0, u"x", 1));
  EXPECT_EQ(UL_OK, ul_set_text(u"dialog.ok", UL_TO_NUL, u"\u597D", 1));
  EXPECT_EQ(UL_OK, ul_load_texts(nullptr, 0));
}

} // namespace
} // namespace capi_test
