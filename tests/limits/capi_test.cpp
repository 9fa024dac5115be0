/// Every function of the C interface over every broken model that a file can carry.
#include "tests/capi/AllFunctions.h"
#include "tests/limits/BrokenModels.h"
#include "tests/support/Settings.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Errors.h"

#include <iostream>

namespace unitlib::test {
namespace {

namespace fs = std::filesystem;

class BrokenFile : public ::testing::Test {
protected:
  BrokenFile() : FBefore(fs::current_path()) {
    fs::current_path(Folders.Root()); // names that the functions are given are relative
    const std::string Root = Folders.Root().string(), Documents = (Folders.Root() / "docs").string();
    EXPECT_EQ(ul_set_exe_path_u8(Root.c_str(), UL_TO_NUL), UL_OK);
    EXPECT_EQ(ul_set_common_documents_path_u8(Documents.c_str(), UL_TO_NUL), UL_OK);
    WriteGood();
  }
  ~BrokenFile() override {
    ul_free_unit_system();
    FreeUnitSystem();
    fs::current_path(FBefore);
  }

  /// Writes good settings, broken. False: XML cannot carry what is broken.
  bool Write(const TBrokenModel& Model) const {
    TSystemUnitDataManager::InitUnitSystemSetting(Folders.File("good.xml"));
    Model.Break();
    try {
      TSystemUnitDataManager::SaveConfigFile(Folders.File("broken.xml"));
    } catch (const EXmlError&) {
      return false;
    }
    return true;
  }

  TPrivateFolders Folders;

private:
  /// A part of the factory settings: more of the same would only take time.
  void WriteGood() const {
    GenerateUnitDefaultConfigFile(Folders.File("good.xml"));
    TSystemUnitDataManager::InitUnitSystemSetting(Folders.File("good.xml"));
    TSystemUnitDataManager::SetCurConfig(0);
    auto& Configs = TSystemUnitDataManager::CurUseUnitConfigContainer();
    while (Configs.Count() > 1) Configs.Delete(1);
    for (const auto& Measure : Configs[0].MeasureContainer)
      while (Measure->UnitContainer.Count() > 2) Measure->UnitContainer.Delete(2);
    TSystemUnitDataManager::SaveConfigFile({});
  }

  fs::path FBefore;
};

TEST_F(BrokenFile, TakesEveryFunction) {
  auto Functions = capi_test::AllFunctions();
  std::erase_if(Functions, [](const auto& Entry) {
    const std::string& Name = Entry.first;
    return Name.find("_path") != Name.npos || Name.starts_with("ul_register_") ||
           Name.starts_with("ul_initial_") || Name.starts_with("ul_init_") || Name.starts_with("ul_free_");
  });
  ASSERT_GT(Functions.size(), 100U);
  constexpr unsigned Seed = 20240823;
  capi_test::TArguments Arguments(Seed);
  std::map<ul_status, int> Seen;
  for (const TBrokenModel& Model : ModelsToWalk()) {
    if (!Model.Loaded || !Write(Model)) continue;
    ul_status Status = ul_initial_unit_system_u8("broken.xml", UL_TO_NUL, UL_US_IMPERIAL, 0);
    ASSERT_EQ(Status, UL_OK) << Model.Name;
    for (const auto& [Name, Function] : Functions) {
      Status = Function.AtRandom(Arguments);
      ASSERT_TRUE(capi_test::IsKnown(Status)) << Model.Name << ", " << Name << ": " << Status;
      ASSERT_NE(Status, UL_ERROR_UNEXPECTED) << Model.Name << ", " << Name;
      ASSERT_NE(Status, UL_ERROR_MEMORY) << Model.Name << ", " << Name;
      ++Seen[Status];
    }
    char Text[64] = "";
    ASSERT_EQ(ul_initial_unit_system_u8("good.xml", UL_TO_NUL, UL_US_IMPERIAL, 0), UL_OK);
    ASSERT_EQ(ul_store_to_display_u8(0, 1676.4, UL_BASE_SCALE, 0, Text, sizeof Text, nullptr), UL_OK)
        << Model.Name;
    ASSERT_STREQ(Text, "5' 6\"") << Model.Name;
  }
  for (const auto& [Status, Times] : Seen)
    std::cout << "[ measured ] status " << Status << ": " << Times << "\n";
  EXPECT_GT(Seen[UL_OK], 1000) << "the arguments were not all wrong";
  EXPECT_GT(Seen[UL_ERROR_CONVERT], 20);
}

} // namespace
} // namespace unitlib::test
