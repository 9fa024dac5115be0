/// What a call takes from the heap.
#include "tests/convert/CountedNew.h"
#include "tests/support/Settings.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"

#include <gtest/gtest.h>

#include <functional>

namespace unitlib {
namespace {

using M = TMeasureDataManager;

#ifdef __SANITIZE_ADDRESS__
constexpr bool NodesShareBlocks =
    false; // each is alone there, so that the sanitizer sees what is done with it
#else
constexpr bool NodesShareBlocks = true;
#endif

struct TRow {
  const char* Name;
  bool Metric;
  int Most; // allocations, the result's own among them
  std::function<void()> Call;
};

class AllocationCount : public test::TFactorySettings, public ::testing::WithParamInterface<TRow> {};

TEST_P(AllocationCount, IsAtMost) {
  enum { FeetAndInches = 1, Meters = 4 };
  for (const int Measure : {0, 3}) {
    TUnit& Unit = UseUnit(Measure, GetParam().Metric ? Meters : FeetAndInches);
    Unit.UseDigitGroup.Checked = true;
    if (GetParam().Metric) Unit.SetCurUnitSymbol(u"m");
  }
  GetParam().Call(); // tables and patterns are made at their first use
  const int Before = test::AllocationCount();
  GetParam().Call();
  EXPECT_LE(test::AllocationCount() - Before, GetParam().Most);
}

INSTANTIATE_TEST_SUITE_P(
    Calls, AllocationCount,
    ::testing::Values(
        TRow{"StoreToDisplayMetres", true, 1, [] { M::StoreToDisplay(0, 1234567.8); }},
        TRow{"StoreToDisplayFeet", false, 1, [] { M::StoreToDisplay(0, 123456.7); }},
        TRow{"StoreToDisplayTie", true, 1, [] { M::StoreToDisplay(0, 1234567.5); }},
        TRow{"DisplayToStoreMetres", true, 0, [] { M::DisplayToStore(0, u"1,234.568 m"); }},
        TRow{"DisplayToStoreFeet", false, 0, [] { M::DisplayToStore(0, u"5'6 1/2\""); }},
        TRow{"CheckDisplayGood", false, 0, [] { M::CheckDisplay(0, u"5'6 1/2\""); }},
        TRow{"CheckDisplayBadWords", false, 0,
             [] { M::CheckDisplay(0, u"no length at all, but quite a long text."); }},
        TRow{"CheckDisplayBadEnd", true, 0,
             [] { M::CheckDisplay(0, u"123456789012345678901234567890123456789x"); }},
        TRow{"MeasureByCode", true, 0, [] { TSystemUnitDataManager::CurConfigMeasure(7); }},
        TRow{"RegistryLookUp", true, 0, [] { GetUnitParser(u"TNoSuchParser", nullptr); }},
        TRow{"ParserOfARegisteredClass", true, 1,
             [] {
               TUnit* Unit = TSystemUnitDataManager::CurConfigMeasure(0)->GetCurUnit();
               GetUnitParser(Unit->UnitParserClassName, Unit);
             }},
        TRow{"ExprToStore", true, 2,
             [] { M::ExprToStore(0, u"5'6 1/2\"+12'3 3/4\"-1'2 1/8\"+7*2-5+9*3-8"); }},
        // One for each of 1,848 items of lists, for the texts of more than 7 characters, for the lists.
        TRow{"LoadOfTheFactoryFile", true, 3760,
             [] {
               TSystemUnitDataManager::InitUnitSystemSetting(TSystemUnitDataManager::GetUnitConfigFileName());
             }},
        // The parser's text, and two blocks for its 13 nodes.
        TRow{"ParseMergeValue", true, NodesShareBlocks ? 3 : 14,
             [] {
               TParser Parser(u"(1+2)*3-4/5*(6-7)");
               auto Root = Parser.Parse();
               Parser.Merge(Root);
               EXPECT_DOUBLE_EQ(Parser.GetDoubleValue(*Root), 9.8);
             }},
        // Texts of the parser, of the length as typed, in metres and as shown, one block of nodes, the result.
        TRow{"GetElevDisplayValue", false, NodesShareBlocks ? 6 : 7,
             [] { GetElevDisplayValue(u"L1+5'6 1/2\""); }}),
    [](const auto& Info) { return std::string(Info.param.Name); });

} // namespace
} // namespace unitlib
