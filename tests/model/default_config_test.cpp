/// The factory-default content, checked against a list written down row by row.
#include "tests/support/Settings.h"
#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"

#include <gtest/gtest.h>

#include <span>

namespace unitlib {
namespace {

using TManager = TSystemUnitDataManager;

struct TUnitRow {
  int Measure;
  int OrderIndex;
  std::u16string_view Description;
  int Code;
  std::u16string_view SymbolWhenNone;
  std::u16string_view Parser;
  char Rounds; // F feet and inches, I inches, D decimal, - none
  int DefRound;
  std::vector<std::u16string> Symbols;
  bool Fractional;
  bool Grouped;
};

std::vector<TUnitRow> LengthRows(int Measure) {
  return {
      {Measure,
       0,
       u"Decimal feet",
       10,
       u"FT",
       u"TDecimalFeetParser",
       'D',
       6,
       {u"None", u"'", u"LF", u"FT"},
       false,
       false},
      {Measure,
       1,
       u"Feet and fractional inches",
       11,
       u"FT-IN",
       u"TFeetAndFractionalInchParser",
       'F',
       7,
       {},
       true,
       false},
      {Measure,
       2,
       u"Decimal inches",
       12,
       u"IN",
       u"TDecimalInchParser",
       'D',
       6,
       {u"None", u"\"", u"LI", u"IN"},
       false,
       false},
      {Measure, 3, u"Fractional inches", 13, u"IN", u"TFractionalInchParser", 'I', 5, {}, true, false},
      {Measure, 4, u"Meters", 14, u"m", u"TMetreParser", 'D', 6, {u"None", u"m"}, false, false},
      {Measure, 5, u"Centimeters", 15, u"cm", u"TCentimeterParser", 'D', 4, {u"None", u"cm"}, false, false},
      {Measure, 6, u"Millimeters", 16, u"mm", u"TMillimetreParser", 'D', 3, {u"None", u"mm"}, false, false},
  };
}

std::vector<TUnitRow> AllRows() {
  std::vector<TUnitRow> Rows;
  for (int Measure : {0, 1, 2})
    for (auto& Row : LengthRows(Measure)) Rows.push_back(Row);
  const std::vector<TUnitRow> Others = {
      {3, 0, u"Square feet", 100, u"SF", u"TSquareFootParser", 'D', 6, {u"None", u"SF", u"ft2"}, false, true},
      {3,
       1,
       u"Square inches",
       101,
       u"SI",
       u"TSquareInchParser",
       'D',
       6,
       {u"None", u"SI", u"in2"},
       false,
       false},
      {3, 2, u"Square meters", 102, u"m2", u"TSquareMeterParser", 'D', 6, {u"None", u"m2"}, false, false},
      {3,
       3,
       u"Square centimeters",
       103,
       u"cm2",
       u"TSquareCentimetreParser",
       'D',
       6,
       {u"None", u"cm2"},
       false,
       false},
      {3,
       4,
       u"Square millimeters",
       104,
       u"mm2",
       u"TSquareMillimeterParser",
       'D',
       6,
       {u"None", u"mm2"},
       false,
       false},
      {4, 0, u"Cubic yards", 200, u"CY", u"TCubicYardParser", 'D', 6, {u"None", u"CY", u"yd3"}, false, true},
      {4, 1, u"Cubic feet", 201, u"CF", u"TCubicFootParser", 'D', 6, {u"None", u"CF", u"ft3"}, false, false},
      {4,
       2,
       u"Cubic inches",
       202,
       u"CI",
       u"TCubicInchParser",
       'D',
       6,
       {u"None", u"CI", u"in3"},
       false,
       false},
      {4, 3, u"Cubic meters", 203, u"m3", u"TCubicMeterParser", 'D', 6, {u"None", u"m3"}, false, false},
      {4,
       4,
       u"Cubic centimeters",
       204,
       u"cm3",
       u"TCubicCentimeterParser",
       'D',
       6,
       {u"None", u"cm3"},
       false,
       false},
      {5, 0, u"Pounds", 501, u"lb", u"TBangParser", 'D', 6, {u"None", u"lb"}, false, true},
      {5, 1, u"Kilograms", 500, u"kg", u"TKilogramsParser", 'D', 6, {u"None", u"kg"}, false, false},
      {6,
       0,
       u"Kilograms per cubic meter",
       300,
       u"kg/m3",
       u"TKiogramsPerCubicMeterParser",
       'D',
       6,
       {u"None", u"kg/m3"},
       false,
       false},
      {6,
       1,
       u"Pounds per cubic foot",
       301,
       u"LB/CF",
       u"TPoundPerCubicFootParser",
       'D',
       6,
       {u"None", u"lb/ft3", u"LB/CF"},
       false,
       false},
      {6,
       2,
       u"Pounds per cubic yard",
       302,
       u"LB/CY",
       u"TPoundPerCubicYardParser",
       'D',
       6,
       {u"None", u"lb/yd3", u"LB/CY"},
       false,
       false},
      {7,
       0,
       u"Cubic meters per meter",
       400,
       u"m3/m",
       u"TCubicMetersPerMeterParser",
       'D',
       6,
       {u"None", u"m3/m"},
       false,
       false},
      {7,
       1,
       u"Cubic feet per foot",
       401,
       u"CF/FT",
       u"TCubicFeetPerFootParser",
       'D',
       6,
       {u"None", u"ft3/ft", u"CF/FT"},
       false,
       false},
      {7,
       2,
       u"Cubic yards per foot",
       402,
       u"CY/FT",
       u"TCubicYardsPerFootParser",
       'D',
       6,
       {u"None", u"yd3/ft", u"CY/FT"},
       false,
       false},
      {8, 0, u"Kilograms per meter", 600, u"kg/m", u"TKilogramsPerMeterParser", '-', 6, {}, false, false},
      {8, 1, u"Pounds per Foot", 601, u"LB/FT", u"TPoundPerFootParser", '-', 6, {}, false, false},
  };
  Rows.insert(Rows.end(), Others.begin(), Others.end());
  return Rows;
}

struct TRoundRow {
  std::u16string_view Description;
  std::u16string_view Increment;
};
constexpr TRoundRow FeetRounds[] = {
    {u"To the nearest 1'", u"12"},        {u"To the nearest 6\"", u"6"},
    {u"To the nearest 1\"", u"1"},        {u"To the nearest 1/2\"", u"1/2"},
    {u"To the nearest 1/4\"", u"1/4"},    {u"To the nearest 1/8\"", u"1/8"},
    {u"To the nearest 1/16\"", u"1/16"},  {u"To the nearest 1/32\"", u"1/32"},
    {u"To the nearest 1/64\"", u"1/64"},  {u"To the nearest 1/128\"", u"1/128"},
    {u"To the nearest 1/256\"", u"1/256"}};
constexpr TRoundRow DecimalRounds[] = {{u"To the nearest 1000", u"1000"}, {u"To the nearest 100", u"100"},
                                       {u"To the nearest 10", u"10"},     {u"0 decimal places", u"1"},
                                       {u"1 decimal place", u"0.1"},      {u"2 decimal places", u"0.01"},
                                       {u"3 decimal places", u"0.001"},   {u"Custom", u""}};

std::span<const TRoundRow> RoundsOf(char List) {
  if (List == 'F') return FeetRounds;
  if (List == 'I') return std::span<const TRoundRow>(FeetRounds).subspan(2);
  if (List == 'D') return DecimalRounds;
  return {};
}

class FactoryDefaults : public testing::TestWithParam<int> {
protected:
  FactoryDefaults() {
    GenerateUnitDefaultConfigFile();
    TManager::InitUnitSystemSetting(u"");
    TManager::SetCurConfig(GetParam());
  }
  ~FactoryDefaults() override { FreeUnitSystem(); }
  test::TPrivateFolders Folders;
};

void ExpectSwitch(const TCheckBoxSetting& Setting, bool Enable, bool Checked) {
  EXPECT_EQ(Setting.DefEnable, Enable);
  EXPECT_EQ(Setting.Enable, Enable);
  EXPECT_EQ(Setting.DefChecked, Checked);
  EXPECT_EQ(Setting.Checked, Checked);
}

TEST_P(FactoryDefaults, HoldEveryUnit) {
  size_t Count = 0;
  for (const TUnitRow& Row : AllRows()) {
    SCOPED_TRACE(testing::Message() << "measure " << Row.Measure << " unit " << Row.OrderIndex);
    const TUnit& Unit = *TManager::CurConfig()->MeasureContainer[Row.Measure].GetUnit(Row.OrderIndex);
    EXPECT_EQ(Unit.Description, Row.Description);
    EXPECT_EQ(Unit.OrderIndex, Row.OrderIndex);
    EXPECT_EQ(Unit.UnitIdentifyCode, Row.Code);
    EXPECT_EQ(Unit.DefUnitSymbolWhenNone, Row.SymbolWhenNone);
    EXPECT_EQ(Unit.UnitParserClassName, Row.Parser);
    EXPECT_EQ(Unit.DefRoundIndex, Row.DefRound);
    EXPECT_EQ(Unit.CurRoundIndex, Row.DefRound);
    EXPECT_EQ(Unit.DefUnitSymbolIndex, 0);
    EXPECT_EQ(Unit.CurUnitSymbolIndex, 0);
    EXPECT_EQ(Unit.GetUnitSymbolDescriptionArray(), Row.Symbols);
    const auto Rounds = RoundsOf(Row.Rounds);
    ASSERT_EQ(Unit.RoundContainer.Count(), static_cast<int>(Rounds.size()));
    for (int I = 0; I < Unit.RoundContainer.Count(); ++I) {
      const TRound& Round = Unit.RoundContainer[I];
      EXPECT_EQ(Round.Description, Rounds[static_cast<size_t>(I)].Description);
      EXPECT_EQ(Round.Increment, Rounds[static_cast<size_t>(I)].Increment);
      EXPECT_EQ(Round.IncrementCanVisible, Row.Rounds == 'D');
      EXPECT_EQ(Round.IncrementCanEdit, Round.Description == u"Custom");
      EXPECT_EQ(Round.OrderIndex, I);
    }
    for (int I = 0; I < Unit.UnitSymbolContainer.Count(); ++I)
      EXPECT_EQ(Unit.UnitSymbolContainer[I].OrderIndex, I);
    ExpectSwitch(Unit.UseProjectSetting, false, false);
    ExpectSwitch(Unit.SuppressTrail0, !Row.Fractional, false);
    ExpectSwitch(Unit.Suppress0Feet, Row.Fractional, false);
    ExpectSwitch(Unit.ShowPlusForPosValue, true, false);
    ExpectSwitch(Unit.UseDigitGroup, true, Row.Grouped);
    ExpectSwitch(Unit.SuppressSpace, Row.Fractional, false);
    ++Count;
  }
  size_t InFile = 0;
  for (const auto& Measure : TManager::CurConfig()->MeasureContainer)
    InFile += static_cast<size_t>(Measure->UnitContainer.Count());
  EXPECT_EQ(InFile, Count);
}

TEST_P(FactoryDefaults, HoldEveryMeasure) {
  struct TMeasureRow {
    std::u16string_view Description;
    int Code;
    std::u16string_view Example;
    int DefUnit[4];
  };
  constexpr TMeasureRow Rows[] = {{u"Length (Basic Information)", 0, u"1234.56789012345", {1, 1, 6, 5}},
                                  {u"Length (Calculation Result)", 7, u"1234.56789012345", {0, 0, 4, 4}},
                                  {u"Elevation/Segment", 3, u"1234.56789012345", {1, 1, 4, 4}},
                                  {u"Area", 1, u"1234567890.12345", {0, 0, 2, 2}},
                                  {u"Volume", 2, u"1234567890123.45", {0, 0, 3, 3}},
                                  {u"Mass", 6, u"1.000", {0, 0, 1, 1}},
                                  {u"Mass Density", 4, u"1234.56789012345", {2, 2, 0, 0}},
                                  {u"Volume per Unit Length", 5, u"1234.56789012345", {2, 2, 0, 0}},
                                  {u"Volume per Unit Length", 0, u"1234.56789012345", {-1, -1, -1, -1}}};
  ASSERT_EQ(TManager::CurConfig()->MeasureCount(), 9);
  for (int I = 0; I < 9; ++I) {
    const TMeasure& Measure = TManager::CurConfig()->MeasureContainer[I];
    EXPECT_EQ(Measure.Description, Rows[I].Description);
    EXPECT_EQ(Measure.OrderIndex, I);
    EXPECT_EQ(Measure.ClassifyCode, Rows[I].Code);
    EXPECT_EQ(Measure.ExampleValue, Rows[I].Example);
    EXPECT_EQ(Measure.DefUnitIndex, Rows[I].DefUnit[GetParam()]);
    EXPECT_EQ(Measure.CurUnitIndex, Rows[I].DefUnit[GetParam()]);
  }
}

TEST_P(FactoryDefaults, NameRegisteredClassesOnly) {
  for (const auto& Measure : TManager::CurConfig()->MeasureContainer)
    for (const auto& Unit : Measure->UnitContainer)
      EXPECT_NE(GetUnitParser(Unit->UnitParserClassName, Unit.get()), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Configurations, FactoryDefaults, testing::Range(0, 4));

TEST(FactoryDefaultLists, HoldSystemsAndGroups) {
  test::TPrivateFolders Folders;
  GenerateUnitDefaultConfigFile();
  TManager::InitUnitSystemSetting(u"");
  const std::u16string_view Systems[] = {u"US Imperial System", u"UK Imperial System",
                                         u"Standard Metric System", u"Taiwan Metric System"};
  ASSERT_EQ(TManager::CurUseUnitConfigContainer().Count(), 4);
  for (int I = 0; I < 4; ++I) {
    EXPECT_EQ(TManager::CurUseUnitConfigContainer()[I].Description, Systems[I]);
    EXPECT_EQ(TManager::CurUseUnitConfigContainer()[I].OrderIndex, I);
  }
  EXPECT_EQ(TManager::GetCurConfigIndex(), -1);
  EXPECT_EQ(TManager::GetCurDigitGroupIndex(), 0);
  ASSERT_EQ(TManager::DigitGroupCount(), 2);
  EXPECT_EQ(TManager::DigitGroup(0)->Description, u"123,456,789.00");
  EXPECT_EQ(TManager::DigitGroup(0)->DigitGroupParserClassName, u"TDigitGroup3CommaParser");
  EXPECT_EQ(TManager::DigitGroup(1)->Description, u"1,2345,6789.00");
  EXPECT_EQ(TManager::DigitGroup(1)->DigitGroupParserClassName, u"TDigitGroup4CommaParser");
  EXPECT_EQ(TManager::DigitGroup(1)->OrderIndex, 1);
  FreeUnitSystem();
}

TEST(FactoryDefaultWriters, GiveNoUnitToAnUnknownConfiguration) {
  auto Document = CreateXMLDocument();
  TXMLNode Root = Document->AddDocumentElement(u"Root");
  GenerateOneMeasure(Root, 4, u"x", 0);
  EXPECT_EQ(Root.Child(0).AttributeInteger(u"DefUnitIndex"), -1);
  EXPECT_EQ(Root.Child(0).AttributeInteger(u"CurUnitIndex"), -1);
}

} // namespace
} // namespace unitlib
