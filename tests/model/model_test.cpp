#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"

#include <gtest/gtest.h>

namespace unitlib {
namespace {

TUnit UnitWith(std::initializer_list<std::u16string_view> Rounds,
               std::initializer_list<std::u16string_view> Symbols = {}) {
  TUnit Unit;
  for (auto Description : Rounds) Unit.RoundContainer.Add().Description = Description;
  for (auto Description : Symbols) Unit.UnitSymbolContainer.Add().Description = Description;
  return Unit;
}

TEST(FreshObjects, AreZeroFalseAndEmpty) {
  const TUnit Unit;
  EXPECT_EQ(Unit.CurRoundIndex, 0);
  EXPECT_EQ(Unit.UnitIdentifyCode, 0);
  EXPECT_EQ(Unit.Precision, 0.0);
  EXPECT_EQ(Unit.Description, u"");
  EXPECT_FALSE(Unit.SuppressSpace.DefEnable || Unit.SuppressSpace.Enable || Unit.SuppressSpace.DefChecked ||
               Unit.SuppressSpace.Checked);
  const TMeasure Measure;
  EXPECT_EQ(Measure.CurUnitIndex, 0);
  EXPECT_EQ(Measure.ClassifyCode, 0);
  EXPECT_FALSE(TRound().IncrementCanEdit);
}

TEST(UnitLookups, AnswerNullOrEmptyOutsideTheLists) {
  TUnit Unit = UnitWith({u"a", u"b"}, {u"None", u"m"});
  for (int Index : {-1, 2, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(Unit.GetRound(Index), nullptr);
    EXPECT_EQ(Unit.GetUnitSymbol(Index), nullptr);
    Unit.CurRoundIndex = Unit.CurUnitSymbolIndex = Index;
    EXPECT_EQ(Unit.GetCurRound(), nullptr);
    EXPECT_EQ(Unit.GetCurUnitSymbolDescription(), u"");
  }
  Unit.CurUnitSymbolIndex = 1;
  EXPECT_EQ(Unit.GetCurUnitSymbolDescription(), u"m");
}

TEST(UnitArrays, FollowListOrder) {
  EXPECT_EQ(UnitWith({u"a", u"b"}).GetRoundDescriptionArray(), (std::vector<std::u16string>{u"a", u"b"}));
  EXPECT_TRUE(UnitWith({}).GetRoundDescriptionArray().empty());
  EXPECT_EQ(UnitWith({}, {u"None"}).GetUnitSymbolDescriptionArray(), (std::vector<std::u16string>{u"None"}));
}

TEST(SelectByDescription, TakesTheFirstExactMatchOnly) {
  TUnit Unit = UnitWith({u"x", u"same", u"same"}, {u"None", u"m"});
  Unit.SetCurRound(u"same");
  EXPECT_EQ(Unit.CurRoundIndex, 1);
  Unit.SetCurRound(u"Same");
  EXPECT_EQ(Unit.CurRoundIndex, 1);
  Unit.SetCurUnitSymbol(u"m");
  Unit.SetCurUnitSymbol(u"M");
  EXPECT_EQ(Unit.CurUnitSymbolIndex, 1);
  TMeasure Measure;
  Measure.UnitContainer.Add().Description = u"Feet";
  Measure.UnitContainer.Add().Description = u"Meters";
  Measure.SetCurUnit(u"meters");
  EXPECT_EQ(Measure.CurUnitIndex, 0);
  Measure.SetCurUnit(u"Meters");
  EXPECT_EQ(Measure.CurUnitIndex, 1);
  EXPECT_EQ(Measure.GetUnitDescriptionArray(), (std::vector<std::u16string>{u"Feet", u"Meters"}));
}

TEST(MeasureUnits, RaiseTheIndexErrorOutsideTheList) {
  TMeasure Measure;
  EXPECT_THROW(Measure.GetUnit(0), EListError);
  Measure.CurUnitIndex = -1;
  EXPECT_THROW(Measure.GetCurUnit(), EListError);
}

TEST(ConfigMeasure, IsFoundByPositionOrByOrderIndex) {
  TConfig Config;
  EXPECT_EQ(Config.Measure(7, true), nullptr);
  Config.MeasureContainer.Add().OrderIndex = 3;
  Config.MeasureContainer.Add().OrderIndex = 7;
  EXPECT_EQ(Config.Measure(7, true), &Config.MeasureContainer[1]);
  EXPECT_EQ(Config.Measure(9, true), nullptr);
  EXPECT_EQ(Config.Measure(1, false), &Config.MeasureContainer[1]);
  EXPECT_THROW(Config.Measure(2, false), EListError);
  EXPECT_EQ(Config.MeasureCount(), 2);
}

void Check(TCheckBoxSetting& Setting) {
  Setting = {false, true, false, true};
}

TEST(RestoreDefault, CopiesDefaultsOfAUnit) {
  TUnit Unit = UnitWith({u"a", u"b"}, {u"None", u"m"});
  for (TCheckBoxSetting* Setting : {&Unit.UseProjectSetting, &Unit.SuppressTrail0, &Unit.Suppress0Feet,
                                    &Unit.ShowPlusForPosValue, &Unit.UseDigitGroup, &Unit.SuppressSpace})
    Check(*Setting);
  Unit.CurRoundIndex = Unit.CurUnitSymbolIndex = 1;
  Unit.RoundContainer[0].SetIncrement(u"0.5");
  Unit.RestoreDefault();
  for (const TCheckBoxSetting* Setting :
       {&Unit.UseProjectSetting, &Unit.SuppressTrail0, &Unit.Suppress0Feet, &Unit.ShowPlusForPosValue,
        &Unit.UseDigitGroup, &Unit.SuppressSpace}) {
    EXPECT_FALSE(Setting->Enable);
    EXPECT_FALSE(Setting->Checked);
  }
  EXPECT_EQ(Unit.CurRoundIndex, 0);
  EXPECT_EQ(Unit.CurUnitSymbolIndex, 0);
  EXPECT_EQ(Unit.RoundContainer[0].Increment, u"0.5") << "edited increments stay";
}

TEST(RestoreDefault, TouchesTheCurrentAndTheDefaultUnitOnly) {
  TMeasure Measure;
  for (int I = 0; I < 3; ++I) Check(Measure.UnitContainer.Add().SuppressSpace);
  Measure.DefUnitIndex = 0;
  Measure.CurUnitIndex = 1;
  Measure.RestoreDefault();
  EXPECT_EQ(Measure.CurUnitIndex, 0);
  EXPECT_FALSE(Measure.UnitContainer[0].SuppressSpace.Checked);
  EXPECT_FALSE(Measure.UnitContainer[1].SuppressSpace.Checked);
  EXPECT_TRUE(Measure.UnitContainer[2].SuppressSpace.Checked);
}

TEST(RestoreDefault, SkipsAnIndexOutsideTheList) {
  TMeasure Measure;
  Check(Measure.UnitContainer.Add().SuppressSpace);
  Measure.CurUnitIndex = 5;
  Measure.DefUnitIndex = -1;
  Measure.RestoreDefault();
  EXPECT_EQ(Measure.CurUnitIndex, -1);
  EXPECT_TRUE(Measure.UnitContainer[0].SuppressSpace.Checked);
}

TEST(UnitSuffix, IsMadeForTheSymbolNoneOnly) {
  TUnit Unit = UnitWith({}, {u"nOnE", u"SF"});
  Unit.Description = u"Square feet";
  Unit.DefUnitSymbolWhenNone = u"SF";
  EXPECT_EQ(GetDefUnitCharacter(&Unit), u" [SF]");
  Unit.CurUnitSymbolIndex = 1;
  EXPECT_EQ(GetDefUnitCharacter(&Unit), u"");
  Unit.CurUnitSymbolIndex = 0;
  for (auto Description : {u"Feet and fractional inches", u"FRACTIONAL INCHES"}) {
    Unit.Description = Description;
    EXPECT_EQ(GetDefUnitCharacter(&Unit), u"");
  }
  Unit.Description = u"x";
  Unit.DefUnitSymbolWhenNone.clear();
  EXPECT_EQ(GetDefUnitCharacter(&Unit), u"");
  EXPECT_THROW(GetDefUnitCharacter(nullptr), EListError);
  EXPECT_EQ(GetDisplayValue(u"12.50 [SF]"), u"12.50 SF");
  EXPECT_EQ(GetDisplayValue(u"[[a]]"), u"a");
}

TEST(CheckBoxSetting, IsSetWithoutItsDefaults) {
  TCheckBoxSetting Setting;
  TCheckBoxSetting* Pointer = &Setting;
  SetCheckBoxSetting(Pointer, true, true);
  EXPECT_TRUE(Setting.Enable && Setting.Checked);
  EXPECT_FALSE(Setting.DefEnable || Setting.DefChecked);
  Pointer = nullptr;
  EXPECT_THROW(SetCheckBoxSetting(Pointer, true, true), EListError);
}

} // namespace
} // namespace unitlib
