/// All public operations over all broken models: a result, or an error of the library's own family; nothing
/// else.
#include "tests/limits/BrokenModels.h"
#include "tests/limits/Operations.h"
#include "tests/support/Settings.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Errors.h"

#include <iostream>
#include <map>

namespace unitlib::test {
namespace {

class BrokenModelTest : public ::testing::Test {
protected:
  BrokenModelTest() {
    GenerateUnitDefaultConfigFile();
    Load();
    auto& Configs = TSystemUnitDataManager::CurUseUnitConfigContainer();
    while (Configs.Count() > 2) Configs.Delete(2); // more of the same would only take time
    for (const auto& Config : Configs)
      for (const auto& Measure : Config->MeasureContainer)
        while (Measure->UnitContainer.Count() > 2) Measure->UnitContainer.Delete(2);
    TSystemUnitDataManager::SaveConfigFile({});
  }
  ~BrokenModelTest() override { FreeUnitSystem(); }

  static void Load() {
    TSystemUnitDataManager::InitUnitSystemSetting(u"");
    TSystemUnitDataManager::SetCurConfig(0);
  }

  TPrivateFolders Folders;
};

TEST_F(BrokenModelTest, TakesEveryOperation) {
  std::vector<TOperation> All;
  for (const auto& Some : {ModelOperations(), ConversionOperations(), ExpressionOperations(),
                           ManagerOperations(), RestoringOperations()})
    All.insert(All.end(), Some.begin(), Some.end());
  std::map<std::string, long> Ends;
  const auto Models = ModelsToWalk();
  for (const TBrokenModel& Model : Models) {
    Load();
    Model.Break();
    for (const TOperation& Operation : All) {
      if (!Operation.UsesModel && Model.Name != "nothing broken") continue;
      Operation.Run([&](const std::function<void()>& Call) {
        try {
          Call();
          ++Ends["result"];
        } catch (const EUnitError& Error) {
          ++Ends["error"];
          EXPECT_FALSE(Error.Message().empty());
        } catch (const std::exception& Error) {
          ADD_FAILURE() << Model.Name << ", " << Operation.Name << ": " << Error.what();
        }
      });
    }
    Load(); // after all that a good file works as ever
    ASSERT_EQ(TMeasureDataManager::StoreToDisplay(0, 1676.4), u"5' 6\"") << Model.Name;
  }
  std::cout << "[ measured ] " << Models.size() << " models, " << All.size() << " operations, "
            << Ends["result"] << " results, " << Ends["error"] << " errors\n";
  EXPECT_GT(Ends["result"], 500000);
  EXPECT_GT(Ends["error"], 50000);
}

// What is loaded can be written and read again, broken or not, unless XML cannot carry it.
TEST_F(BrokenModelTest, IsSavedAsItIs) {
  const std::u16string File = Folders.File("broken.xml"), Again = Folders.File("again.xml");
  int Refused = 0;
  for (const TBrokenModel& Model : BrokenModels()) {
    if (!Model.Loaded) continue;
    SCOPED_TRACE(Model.Name);
    Load();
    Model.Break();
    try {
      TSystemUnitDataManager::SaveConfigFile(File);
    } catch (const EXmlError&) {
      ++Refused;
      continue;
    }
    TSystemUnitDataManager::InitUnitSystemSetting(File);
    TSystemUnitDataManager::SaveConfigFile(Again);
    EXPECT_TRUE(ReadBytes(File) == ReadBytes(Again));
  }
  EXPECT_EQ(Refused, 16) << "the texts with NUL and with half a surrogate pair, in eight places";
}

// ---------------------------------------------------------------- what the description says of some of them

std::string Said(const std::function<std::u16string()>& Operation) {
  try {
    return ToUtf8(Operation());
  } catch (const EListError&) {
    return "EListError";
  } catch (const EConvertError&) {
    return "EConvertError";
  } catch (const ERangeError&) {
    return "ERangeError";
  }
}

struct TResultRow {
  const char* Model;
  const char* Shown; // measure 0 (feet and fractional inches), 1676.4 mm
  const char* Area;  // measure 1 (square feet), 92903.04 mm2 = 1 square foot
  const char* Read;  // measure 0, "1'": 304.8 mm
  const char* Elevation;
};

class DescribedResult : public BrokenModelTest, public testing::WithParamInterface<TResultRow> {};

TEST_P(DescribedResult, IsGiven) {
  Load();
  BrokenModel(GetParam().Model).Break();
  using TFacade = TMeasureDataManager;
  EXPECT_EQ(Said([] { return TFacade::StoreToDisplay(0, 1676.4); }), GetParam().Shown);
  EXPECT_EQ(Said([] { return TFacade::StoreToDisplay(1, 92903.04); }), GetParam().Area);
  EXPECT_EQ(Said([] {
              const double Value = TFacade::DisplayToStore(0, u"1'");
              return Value == 304.8 ? u"304.8" : Value == 0 ? std::u16string(u"0") : u"another";
            }),
            GetParam().Read);
  EXPECT_EQ(Said([] { return GetElevDisplayValue(u"1.6764"); }), GetParam().Elevation);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DescribedResult,
    testing::Values(
        TResultRow{"nothing broken", "5' 6\"", "1.000", "304.8", "5' 6\""},
        TResultRow{"nothing loaded", "EListError", "EListError", "EListError", "1.6764"},
        TResultRow{"no configurations", "EListError", "EListError", "EListError", "1.6764"},
        TResultRow{"current configuration -1", "EListError", "EListError", "EListError", "1.6764"},
        TResultRow{"current configuration 1000", "EListError", "EListError", "EListError", "1.6764"},
        TResultRow{"current unit -1", "EListError", "EListError", "EListError", "1.6764"},
        TResultRow{"current unit 2147483647", "EListError", "EListError", "EListError", "1.6764"},
        TResultRow{"no units", "EListError", "EListError", "EListError", "1.6764"},
        TResultRow{"no measures", "1676.4", "92903.04", "0", "1.6764"}, // as a unit without parser
        TResultRow{"classify code 1000", "1676.4", "92903.04", "0", "1.6764"},
        TResultRow{"parser class none", "1676.4", "92903.04", "0", "1.6764"},
        TResultRow{"parser class ", "1676.4", "92903.04", "0", "1.6764"},
        TResultRow{"current round -1", "EConvertError", "1", "304.8", "1.6764"}, // increment empty: 1
        TResultRow{"no rounds", "EConvertError", "1", "304.8", "1.6764"},
        TResultRow{"increment none", "EConvertError", "EConvertError", "304.8", "1.6764"},
        TResultRow{"increment 1/0", "EConvertError", "EConvertError", "304.8", "1.6764"},
        TResultRow{"increment 0", "EConvertError", "1", "304.8", "1.6764"},
        TResultRow{"current symbol 1000", "5' 6\"", "1.000", "304.8", "5' 6\""},
        TResultRow{"digit-group class none", "5' 6\"", "1.000", "304.8", "5' 6\""},
        TResultRow{"no digit groups, though they are used", "5' 6\"", "EListError", "304.8", "5' 6\""}),
    [](const auto& Info) { return RowName(Info.param.Model); });

} // namespace
} // namespace unitlib::test
