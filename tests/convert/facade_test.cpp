/// The conversion facade over the factory settings.
#include "tests/support/Settings.h"
#include "unitlib/convert/ZELUnitCommon.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <thread>

namespace unitlib {
namespace {

using M = TMeasureDataManager;

class Facade : public test::TFactorySettings {
protected:
  static constexpr int Length = 0, Area = 1, Elevation = 3, Unknown = 99;
  enum { DecimalFeet, FeetAndInches, DecimalInches, FractionalInches, Meters, Centimeters, Millimeters };
};

// The command by itself, as a host derives from it; the facade goes a shorter way.
TEST_F(Facade, ACommandConvertsForItsMeasure) {
  UseUnit(Length, FeetAndInches);
  const TCommonUnitCommand Command(Length), OfNone(Unknown);
  EXPECT_EQ(Command.StoreToDisplay(1689.1, -1, false, false, false, false), u"5' 6 1/2\"");
  EXPECT_EQ(Command.DisplayToStore(u"5'6 1/2\"", -1), 1689.1);
  EXPECT_TRUE(Command.CheckDisplay(u"5'6 1/2\""));
  EXPECT_FALSE(Command.CheckDisplay(u"five feet"));
  EXPECT_EQ(OfNone.StoreToDisplay(1.5, -1, false, false, false, false), u"1.5");
  EXPECT_EQ(OfNone.DisplayToStore(u"5", -1), 0);
  EXPECT_FALSE(OfNone.CheckDisplay(u"5"));
}

TEST_F(Facade, ShowsTinyValuesAsZero) {
  UseUnit(Length, Meters);
  EXPECT_EQ(M::StoreToDisplay(Length, 1e-13), u"0.000");
  EXPECT_EQ(M::StoreToDisplay(Length, -1e-13), u"0.000");
  EXPECT_EQ(M::StoreToDisplay(Length, -0.0), u"0.000");
  EXPECT_EQ(M::StoreToDisplay(Length, -1e-11), u"-0.000");
}

TEST_F(Facade, WithoutMeasureTheNumberItselfIsShown) {
  EXPECT_EQ(M::StoreToDisplay(-1, 1.25), u"1.25");
  EXPECT_EQ(M::StoreToDisplay(-1, 1.125), u"1.12500");
  EXPECT_EQ(M::StoreToDisplay(-1, 2), u"2");
  EXPECT_EQ(M::StoreToDisplay(-1, -1e-13), u"0");
  EXPECT_EQ(M::StoreToDisplay(-1, 1.5e-7), u"0.00000"); // three characters follow the point of "1.5E-7"
  EXPECT_EQ(M::StoreToDisplay(-1, 1e20), u"1E20");
  for (bool Before : {false, true}) {
    bool HasSymbol = Before;
    EXPECT_EQ(M::StoreToDisplay(HasSymbol, -1, 1.125, -1, true, false, false, false, false), u"1.125");
    EXPECT_EQ(HasSymbol, Before);
  }
}

TEST_F(Facade, AppendsTheSymbolWhereTheUnitShowsNone) {
  UseUnit(Length, Meters);
  EXPECT_EQ(M::StoreToDisplay(Length, 2500, -1, true), u"2.500 m");
  bool HasSymbol = true;
  EXPECT_EQ(M::StoreToDisplay(HasSymbol, Length, 2500, -1, true, false, false, false, false), u"2.500 m");
  EXPECT_FALSE(HasSymbol) << "tells of the unit itself";
  UseUnit(Length, Meters).CurUnitSymbolIndex = 1;
  EXPECT_EQ(M::StoreToDisplay(HasSymbol, Length, 2500, -1, true, false, false, false, false), u"2.500 m");
  EXPECT_TRUE(HasSymbol);
  UseUnit(Length, FeetAndInches);
  EXPECT_EQ(M::StoreToDisplay(Length, 1676.4, -1, true), u"5' 6\"");
  UseUnit(Length, FractionalInches);
  EXPECT_EQ(M::StoreToDisplay(Length, 25.4, -1, true), u"1\"");
  UseUnit(Length, Meters).CurUnitSymbolIndex = 0;
  UseUnit(Length, Meters).DefUnitSymbolWhenNone.clear();
  EXPECT_EQ(M::StoreToDisplay(Length, 2500, -1, true), u"2.500 ");
}

TEST_F(Facade, GivesTheUnitSymbol) {
  UseUnit(Length, FeetAndInches);
  EXPECT_EQ(M::GetUnitSymbol(Length, true), u"");
  EXPECT_EQ(M::GetUnitSymbol(Length, false), u"FT-IN");
  TUnit& Feet = UseUnit(Length, DecimalFeet);
  EXPECT_EQ(M::GetUnitSymbol(Length, true), u"FT");
  Feet.CurUnitSymbolIndex = 2;
  EXPECT_EQ(M::GetUnitSymbol(Length, true), u"LF");
  Feet.UnitSymbolContainer[2].Description = u"NONE"; // "None" letter for letter is meant
  EXPECT_EQ(M::GetUnitSymbol(Length, true), u"NONE");
  EXPECT_FALSE(TCommonUnitCommand(Length).HasUnitSymbol()) << "here the letter case does not matter";
}

TEST_F(Facade, ReadsWhatItShows) {
  UseUnit(Length, FeetAndInches);
  EXPECT_TRUE(M::CheckDisplay(Length, u"5'6 1/2\""));
  EXPECT_DOUBLE_EQ(M::DisplayToStore(Length, u"5'6 1/2\""), 1689.1);
  EXPECT_DOUBLE_EQ(M::DisplayToStore(Length, u"5'6 1/2\"", 3), 1.6891);
  EXPECT_FALSE(M::CheckDisplay(Length, u"abc"));
  EXPECT_TRUE(M::CheckDisplay(Area, u"1,234.5 SF"));
  EXPECT_EQ(M::StoreToDisplay(Area, 92903.04 * 1234.5), u"1,234.500");
  EXPECT_EQ(M::StoreToDisplay(Area, 92903.04 * 1234.5, -1, false, false, true), u"1234.500");
}

TEST_F(Facade, AnUnknownMeasureHasNoParser) {
  EXPECT_FALSE(M::CheckDisplay(Unknown, u"5"));
  EXPECT_EQ(M::DisplayToStore(Unknown, u"5"), 0);
  EXPECT_EQ(M::StoreToDisplay(Unknown, 2.5), u"2.5");
  EXPECT_EQ(M::StoreToDisplay(Unknown, 2.5, -1, true), u"2.5 ");
  EXPECT_EQ(M::GetUnitSymbol(Unknown, false), u"");
  EXPECT_THROW(M::IsANum(Unknown, u"5", false), EConvertError);
  EXPECT_THROW(M::DecimalValueToStore(Unknown, 5), EConvertError);
}

TEST_F(Facade, AnUnknownParserClassHasNoParser) {
  UseUnit(Length, Meters).UnitParserClassName = u"TGone";
  EXPECT_FALSE(M::CheckDisplay(Length, u"5"));
  EXPECT_EQ(M::DisplayToStore(Length, u"5"), 0);
  EXPECT_EQ(M::StoreToDisplay(Length, 2.5), u"2.5");
  EXPECT_THROW(M::ExprToStore(Length, u"1+2"), EConvertError);
  EXPECT_THROW(M::IsANum(Length, u"5", false), EConvertError);
  EXPECT_EQ(M::ExprToStore(Area, u"1+2"), u"1+2") << "areas need no parser";
}

TEST_F(Facade, AMeasureWithoutCurrentUnitRaises) {
  TSystemUnitDataManager::CurConfigMeasure(Length)->CurUnitIndex = -1;
  EXPECT_THROW(M::StoreToDisplay(Length, 1), EListError);
  EXPECT_THROW(M::DisplayToStore(Length, u"1"), EListError);
}

TEST_F(Facade, WithoutSettingsEveryConversionRaises) {
  FreeUnitSystem();
  EXPECT_THROW(M::StoreToDisplay(Length, 1), EListError);
  EXPECT_THROW(M::DisplayToStore(Length, u"1"), EListError);
  EXPECT_THROW(M::CheckDisplay(Length, u"1"), EListError);
  EXPECT_EQ(M::StoreToDisplay(-1, 1), u"1") << "no measure, no settings needed";
}

TEST_F(Facade, ExpressionsGetPlainNumbersInTheCurrentUnit) {
  UseUnit(Length, Meters);
  EXPECT_EQ(M::ExprToStore(Length, u"3'6\"+2"), u"1.0668+2");
  UseUnit(Length, Millimeters);
  EXPECT_EQ(M::ExprToStore(Length, u"3'6\"+2"), u"1066.8+2");
  UseUnit(Length, DecimalFeet);
  EXPECT_EQ(M::ExprToStore(Length, u"3'6\"+2"), u"3.5+2");
  UseUnit(Length, FeetAndInches);
  EXPECT_EQ(M::ExprToStore(Length, u"3'6\"+2"), u"3.5+2") << "counts feet";
  UseUnit(Length, FractionalInches);
  EXPECT_EQ(M::ExprToStore(Length, u"3'6\"+2"), u"42+2");
  EXPECT_EQ(M::ExprToStore(Area, u"3'6\"+2"), u"3'6\"+2");
  EXPECT_EQ(M::ExprToStore(Length, u"5'6\"", 0, true), u"5'6\"");
  EXPECT_EQ(M::ExprToStore(Length, u"5'6\"", 7, false), u"66");
  EXPECT_EQ(M::ExprToStore(Length, u"5'6\"+1", 0, true), u"66+1") << "no single number";
}

TEST_F(Facade, NumbersAreToldFromArithmetic) {
  UseUnit(Length, FeetAndInches);
  EXPECT_TRUE(M::IsANum(Length, u"3/4", false));
  EXPECT_FALSE(M::IsANum(Length, u"3/4", true));
  EXPECT_FALSE(M::IsANum(Length, u"3-4", true));
  EXPECT_FALSE(M::IsANum(Length, u" 3 - 4 ", true));
  EXPECT_TRUE(M::IsANum(Length, u"3-4 1/2", true));
  EXPECT_FALSE(M::IsANum(Length, u"1-1/2", true));
  EXPECT_TRUE(M::IsANum(Length, u"1-1/2", false));
  EXPECT_TRUE(M::IsANum(Length, u"1.5", true));
  EXPECT_TRUE(M::IsANum(Length, u"3/4\"", true));
  EXPECT_FALSE(M::IsANum(Length, u"abc", false));
  EXPECT_TRUE(M::IsANum(Area, u"5 SF", true)) << "the symbol is cut";
}

TEST_F(Facade, DecimalNumbersCountFeetWithFeetAndInches) {
  UseUnit(Length, FeetAndInches);
  EXPECT_DOUBLE_EQ(M::DecimalValueToStore(Length, 5.5), 5.5 * 304.8);
  EXPECT_DOUBLE_EQ(M::DecimalValueToStore(Length, 5.5, 3), 5.5 * 0.3048);
  UseUnit(Length, FractionalInches);
  EXPECT_DOUBLE_EQ(M::DecimalValueToStore(Length, 5.5), 5.5 * 25.4);
  EXPECT_DOUBLE_EQ(M::DecimalValueToStore(Area, 2), 2 * 92903.04);
}

TEST_F(Facade, NoLocaleLeaksIn) {
  const std::string Old = std::setlocale(LC_ALL, nullptr);
  // The test run under a decimal comma names its locale; elsewhere the locale of the machine serves.
  const char* Name = std::getenv("UNITLIB_TEST_LOCALE");
  ASSERT_NE(std::setlocale(LC_ALL, Name ? Name : ""), nullptr);
  if (Name) {
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  }
  UseUnit(Length, Meters);
  EXPECT_EQ(M::StoreToDisplay(Length, 1234567.89), u"1234.568");
  EXPECT_DOUBLE_EQ(M::DisplayToStore(Length, u"2.5"), 2500);
  EXPECT_EQ(M::StoreToDisplay(-1, 1.125), u"1.12500");
  TSystemUnitDataManager::UpdateDispalyValue();
  EXPECT_EQ(TSystemUnitDataManager::CurConfigMeasure(Length)->ExampleDisplayValue, u"1.235");
  std::setlocale(LC_ALL, Old.c_str());
}

TEST_F(Facade, SeveralThreadsConvertAtOnce) {
  UseUnit(Length, FeetAndInches);
  UseUnit(Elevation, Meters);
  auto Run = [] {
    for (int I = 0; I < 3000; ++I) {
      ASSERT_EQ(M::StoreToDisplay(Length, 1689.1), u"5' 6 1/2\"");
      ASSERT_DOUBLE_EQ(M::DisplayToStore(Length, u"5'6 1/2\""), 1689.1);
      ASSERT_EQ(M::StoreToDisplay(Elevation, 2.5, 3), u"2.500");
      ASSERT_FALSE(M::CheckDisplay(Length, u"abc"));
      ASSERT_EQ(M::StoreToDisplay(Area, 92903.04 * 1234.5), u"1,234.500");
    }
  };
  std::thread A(Run), B(Run), C(Run);
  A.join();
  B.join();
  C.join();
}

/// A class of a host that is larger than its base, and counts how many of it there are.
class THostParser final : public TCommonUnitParser {
public:
  explicit THostParser(TUnit* Unit) : TCommonUnitParser(Unit) { ++Alive; }
  ~THostParser() override { --Alive; }
  std::u16string AsString(double, int, bool, bool, bool, bool) const override { return FText; }
  double AsDouble(std::u16string_view, int) const override { return 7; }
  bool IsValid(std::u16string_view Text) const override { return Text == FText; }
  static inline int Alive = 0;

private:
  std::u16string FText = u"a text of the host, on the heap";
};

TEST_F(Facade, UsesAndFreesParsersOfTheHost) {
  RegisterUnitParser(u"TFacadeHostParser", CreateUnitParser<THostParser>);
  UseUnit(Length, Meters).UnitParserClassName = u"TFacadeHostParser";
  EXPECT_EQ(M::StoreToDisplay(Length, 1.5), u"a text of the host, on the heap");
  EXPECT_EQ(M::DisplayToStore(Length, u"1"), 7);
  EXPECT_TRUE(M::CheckDisplay(Length, u"a text of the host, on the heap"));
  EXPECT_FALSE(M::CheckDisplay(Length, u"1"));
  EXPECT_EQ(THostParser::Alive, 0);
}

TEST_F(Facade, TakesNoParserOfTheHostForNone) {
  RegisterUnitParser(u"TFacadeNoParser", [](TUnit*) { return std::unique_ptr<TCommonUnitParser>(); });
  UseUnit(Length, Meters).UnitParserClassName = u"TFacadeNoParser";
  EXPECT_EQ(M::StoreToDisplay(Length, 1.5), u"1.5");
  EXPECT_EQ(M::DisplayToStore(Length, u"1"), 0);
  EXPECT_FALSE(M::CheckDisplay(Length, u"1"));
}

} // namespace
} // namespace unitlib
