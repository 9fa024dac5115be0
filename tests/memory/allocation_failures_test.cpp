/// Every allocation fails once, alone and with all that follow: nothing leaks, nothing is half done, and the
/// library works on.
#include "tests/hostile/SettingsText.h"
#include "tests/memory/Allocations.h"
#include "tests/support/Settings.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/notify/ZELUnitRefreshUtils.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/typing/ReadTyped.h"

#include <cmath>
#include <iostream>
#include <iterator>

namespace unitlib::test {
namespace {

namespace fs = std::filesystem;
using TManager = TSystemUnitDataManager;
using TFacade = TMeasureDataManager;

std::u16string File; // the settings file

struct TListener {
  void Notify() {}
} Listener;

struct TRow {
  const char* Name;
  void (*Run)();
  bool MayFailOtherwise = false; // an error of the family is what the operation is about
};

TTypedOptions TypedExpression() {
  TTypedOptions Options;
  Options.Kind = TTypedKind::Expression;
  return Options;
}

constexpr std::u16string_view LongExpression =
    u"(1+2)*3-L1*(4+5'6\")/7+(((8-9)*10+11)*12-13/14+15)*16-((17+18)*(19+20))-(21+(22+(23+24)))";

const TRow Rows[] = {
    {"LoadProject", [] { TManager::InitUnitSystemSetting(File); }},
    {"LoadReport", [] { TManager::InitSystemUnit(File); }},
    {"LoadAndWriteWorkingCopy", [] { InitialUnitSystem(File, CYAmInch, true); }},
    {"LoadMissing", [] { TManager::InitUnitSystemSetting(File + u".none.xml"); }, true},
    {"Save", [] { TManager::SaveConfigFile({}); }},
    {"SaveWorkingCopy", [] { TManager::SavetoModel(CYAmInch); }},
    {"SaveNowhere", [] { TManager::SaveConfigFile(File + u"/no.xml"); }, true},
    {"Show", [] { TFacade::StoreToDisplay(0, 609600.0, -1, true); }},
    {"ShowLong", [] { TFacade::StoreToDisplay(0, 1.23456789e300, -1, true, false, false, true); }},
    {"ShowNoNumber", [] { TFacade::StoreToDisplay(0, HUGE_VAL); }, true},
    {"Read", [] { TFacade::DisplayToStore(0, u"1,234,567,890,123' - 5 3/4\""); }, true},
    {"ReadWrong", [] { TFacade::DisplayToStore(0, u"no number at all, whatever the unit"); }, true},
    {"Check", [] { TFacade::CheckDisplay(0, u"5' 6 1/2\""); }},
    {"ExprToStore", [] { TFacade::ExprToStore(0, u"5'6\"+3 1/2\"*2-(7'/4)"); }},
    {"IsANum", [] { TFacade::IsANum(0, u"5'6 1/2\"", true); }},
    {"UpdateExamples", [] { TManager::UpdateDispalyValue(); }},
    {"Restore", [] { TManager::RestoreDefaultUnitSystem(0); }},
    {"Evaluate",
     [] {
       TParser Parser(LongExpression);
       auto Root = Parser.Parse();
       if (!Parser.FHasError) Parser.Merge(Root);
       if (Root) Parser.GetDoubleValue(*Root);
       if (Root) Parser.Mark(*Root);
       if (Root) Parser.GetStoreValue(*Root);
       if (Root) Parser.GetDisplayValue(*Root);
       if (Root) Root->Clone();
     }},
    {"MergeWrong",
     [] {
       TParser Parser(u"1/3*1000001");
       auto Root = Parser.Parse();
       try {
         Parser.Merge(Root);
       } catch (const std::bad_alloc&) {
         EXPECT_EQ(Root, nullptr) << "no half of a tree";
         throw;
       }
     }},
    {"EvaluateWrong", [] { TParser(u"(1+2*(3+4)-(5+6)*7").Parse(); }},
    {"ElevationStore", [] { GetElevStoreValue(u"L1 + 5'6\" - 3 1/2\""); }},
    {"ElevationDisplay", [] { GetElevDisplayValue(u"Level 1 + 1.6764"); }},
    {"ElevationCheck", [] { CheckElevEditValue(u"Level 1 + 5'6\""); }},
    {"DigitGroup", [] { GetDigitGroupParser(u"TDigitGroup4CommaParser", u"123456789012.345")->ToStr(); }},
    {"Attach",
     [] {
       THRXRefreshUnitEventList List;
       for (int I = 0; I < 5; ++I) List.Attach(MethodOf<&TListener::Notify>(&Listener));
       List.DoEvent();
       List.Detach(MethodOf<&TListener::Notify>(&Listener));
     }},
    {"ReadTyped", [] { ReadTyped(0, u"10'-6 1/2\" + 3 1/2 in * 2", TypedExpression()); }},
    {"ReadTypedAmbiguous", [] { ReadTyped(0, u"5-6 3", {}); }},
    {"Descriptions",
     [] {
       TManager::CurConfig()->MeasureContainer[0].GetUnitDescriptionArray();
       GetDefUnitCharacter(TManager::CurConfig()->MeasureContainer[0].GetCurUnit());
     }},
};

long OpenHandles() {
  const fs::directory_iterator Entries("/proc/self/fd");
  return std::distance(begin(Entries), end(Entries));
}

class FailingAllocation : public testing::TestWithParam<TRow> {
protected:
  FailingAllocation() {
    File = Folders.File("settings.xml");
    FGood = TSettingsText::SmallWithElevation();
    WriteBytes(File, FGood);
    fs::create_directories(Folders.Root() / "docs/Quillmere/ZEL/9.0");
    TManager::InitUnitSystemSetting(File);
  }
  ~FailingAllocation() override { FreeUnitSystem(); }

  /// Runs the operation with its n-th allocation failing. True when there is none.
  bool RunWithFailure(long Number, bool Lasting) const {
    bool OutOfMemory = false;
    FailAllocation(Number, Lasting);
    try {
      GetParam().Run();
    } catch (const std::bad_alloc&) {
      OutOfMemory = true;
    } catch (const EUnitError& Error) {
      EXPECT_TRUE(GetParam().MayFailOtherwise) << "allocation " << Number << ": " << Error.what();
      return !StopFailing();
    }
    const bool Failed = StopFailing();
    EXPECT_TRUE(Failed || !OutOfMemory);
    return !Failed;
  }

  void CheckThatTheLibraryWorksOn() const {
    EXPECT_EQ(ReadBytes(File), FGood) << "an error leaves the file as it was; a success writes the same";
    for (const auto& Entry : fs::directory_iterator(Folders.Root()))
      EXPECT_NE(Entry.path().extension(), ".tmp") << Entry.path();
    TManager::InitUnitSystemSetting(File);
    EXPECT_EQ(TFacade::StoreToDisplay(0, 609600), u"2000");
    EXPECT_EQ(TFacade::DisplayToStore(0, u"2"), 609.6);
    TManager::SaveConfigFile({});
    EXPECT_EQ(ReadBytes(File), FGood);
  }

  TPrivateFolders Folders;

private:
  std::string FGood;
};

void Fresh() {
  FreeUnitSystem();
  TManager::InitUnitSystemSetting(File);
}

TEST_P(FailingAllocation, LosesNothing) {
  for (const bool Lasting : {false, true}) {
    try {
      GetParam().Run(); // what is made once and kept
    } catch (const EUnitError&) {
    }
    long Number = 0;
    for (bool Finished = false; !Finished; ++Number) {
      ASSERT_LT(Number, 20000);
      Fresh();
      const long Handles = OpenHandles();
      FreeUnitSystem();
      const long Blocks = LiveBlocks();
      Fresh();
      Finished = RunWithFailure(Number + 1, Lasting);
      FreeUnitSystem();
      TManager::FUnitConfigFile = File; // a text of the same size
      EXPECT_EQ(LiveBlocks(), Blocks) << "leak at allocation " << Number + 1;
      Fresh();
      EXPECT_EQ(OpenHandles(), Handles);
      CheckThatTheLibraryWorksOn();
      if (HasFailure()) return;
    }
    std::cout << "[ measured ] " << Number - 1 << " allocations" << (Lasting ? ", lasting" : "") << "\n";
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, FailingAllocation, testing::ValuesIn(Rows),
                         [](const auto& Info) { return std::string(Info.param.Name); });

TEST(FailingAllocation, OfANodeMadeWithoutExceptionsGivesNone) {
  FailAllocation(1, false);
  TNode* const Node = new (std::nothrow) TNode;
  const bool Failed = StopFailing();
  EXPECT_TRUE(Failed);
  EXPECT_EQ(Node, nullptr);
}

} // namespace
} // namespace unitlib::test
