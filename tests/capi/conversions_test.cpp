/// Single conversions. The factory settings for the United States are loaded: lengths (0) and elevations (3)
/// in feet and inches to 1/32, calculated lengths (7) in decimal feet, areas (1) in square feet, three
/// decimals, grouped.
#include "tests/capi/CapiTest.h"

#include <cmath>
#include <limits>
#include <ostream>

namespace capi_test {
namespace {

constexpr double Foot = 304.8, SquareFoot = 92903.04; // mm, mm2, exact: international foot, 1959

struct TShowRow {
  const char* Name;
  int32_t Measure;
  double Value;
  uint32_t Flags;
  const char* Text;
};
void PrintTo(const TShowRow& Row, std::ostream* Out) {
  *Out << Row.Name;
}
class TShow : public TCapi, public ::testing::WithParamInterface<TShowRow> {};

TEST_P(TShow, GivesTheText) {
  EXPECT_EQ(GetParam().Text, Show(GetParam().Measure, GetParam().Value, GetParam().Flags));
}

INSTANTIATE_TEST_SUITE_P(
    Values, TShow,
    ::testing::Values(TShowRow{"FeetAndInches", Length, 1676.4, 0, "5' 6\""},
                      TShowRow{"Fraction", Length, 1689.1, 0, "5' 6 1/2\""},
                      TShowRow{"Negative", Length, -1676.4, 0, "-5' 6\""},
                      TShowRow{"ResidueIsZero", Length, 1e-13, 0, "0' 0\""},
                      TShowRow{"NegativeZero", Area, -0.0, 0, "0.000"},
                      TShowRow{"Grouped", Area, 1234567.5 * SquareFoot, 0, "1,234,567.500"},
                      TShowRow{"NotGrouped", Area, 1234567.5 * SquareFoot, UL_NO_DIGIT_GROUP, "1234567.500"},
                      TShowRow{"WithSymbol", Area, SquareFoot, UL_APPEND_SYMBOL, "1.000 SF"},
                      TShowRow{"CarriesItsOwnMarks", Length, Foot, UL_APPEND_SYMBOL, "1' 0\""},
                      TShowRow{"Rounded", Area, 1.23456 * SquareFoot, 0, "1.235"},
                      TShowRow{"Unrounded", Area, 1.25 * SquareFoot, UL_NO_ROUND, "1.250"},
                      TShowRow{"NumberItself", UL_NO_MEASURE, 1.25, 0, "1.25"},
                      TShowRow{"NumberWithMoreThanTwoDecimals", UL_NO_MEASURE, 1.125, 0, "1.12500"}),
    [](const auto& Info) { return std::string(Info.param.Name); });

class TConversions : public TCapi {};

TEST_F(TConversions, TellWhetherTheUnitShowsASymbol) {
  char Buffer[64];
  int32_t Has = -7;
  EXPECT_EQ(UL_OK, ul_store_to_display_symbol_u8(&Has, Length, Foot, UL_BASE_SCALE, 0, Buffer, 64, nullptr));
  EXPECT_EQ(1, Has);
  EXPECT_EQ(UL_OK,
            ul_store_to_display_symbol_u8(&Has, Area, SquareFoot, UL_BASE_SCALE, 0, Buffer, 64, nullptr));
  EXPECT_EQ(0, Has);
  Has = -7;
  EXPECT_EQ(UL_OK,
            ul_store_to_display_symbol_u8(&Has, UL_NO_MEASURE, 1.125, UL_BASE_SCALE, 0, Buffer, 64, nullptr));
  EXPECT_STREQ("1.125", Buffer) << "this form keeps the decimals";
  EXPECT_EQ(-7, Has) << "left alone without a measure";
  EXPECT_EQ(UL_ERROR_ARGUMENT,
            ul_store_to_display_symbol_u8(nullptr, Length, Foot, UL_BASE_SCALE, 0, Buffer, 64, nullptr));
  EXPECT_EQ(UL_BUFFER_TOO_SMALL,
            ul_store_to_display_symbol_u8(&Has, Length, Foot, UL_BASE_SCALE, 0, Buffer, 2, nullptr));
  EXPECT_EQ(-7, Has) << "left alone when the text does not fit";
}

TEST_F(TConversions, ShowAPlusSignUnlessTold) {
  EXPECT_EQ(UL_OK, ul_set_switch(UL_CURRENT, Position(Area), UL_CURRENT, UL_SHOW_PLUS_FOR_POS_VALUE, 1, 1));
  EXPECT_EQ("+1.000", Show(Area, SquareFoot));
  EXPECT_EQ("1.000", Show(Area, SquareFoot, UL_NO_PLUS_SIGN));
}

TEST_F(TConversions, ShowAChosenSymbolUnlessTold) {
  EXPECT_EQ(UL_OK, ul_set_cur_symbol_u8(UL_CURRENT, Position(Area), UL_CURRENT, "ft2", UL_TO_NUL));
  EXPECT_EQ("1.000 ft2", Show(Area, SquareFoot));
  EXPECT_EQ("1.000", Show(Area, SquareFoot, UL_NO_SYMBOL));
}

TEST_F(TConversions, ReadTheStoreUnitOffTheScale) {
  double Value = 0;
  EXPECT_EQ(UL_OK, ul_display_to_store_u8(ResultLength, "10", UL_TO_NUL, UL_THOUSAND_SCALE, 0, &Value));
  EXPECT_EQ(3.048, Value) << "metres";
  EXPECT_EQ("10.000", Text([](char* B, int32_t C, int32_t* N) {
              return ul_store_to_display_u8(ResultLength, 3.048, UL_THOUSAND_SCALE, 0, B, C, N);
            }));
}

TEST_F(TConversions, ReadWhatIsTyped) {
  EXPECT_EQ(1689.1, Store(Length, "5'6 1/2\""));
  EXPECT_EQ(-1676.4, Store(Length, "-5' 6\""));
  EXPECT_EQ(1234.5 * SquareFoot, Store(Area, "1,234.5 SF"));
}

TEST_F(TConversions, RefuseATextThatIsNoValue) {
  for (const char* Bad : {"", "abc", "5''6", "2.5", "1e999"}) {
    EXPECT_TRUE(std::isnan(Store(Length, Bad))) << Bad;
    EXPECT_EQ(UL_ERROR_CONVERT, LastError().code) << Bad;
    EXPECT_EQ(Bad, LastText(UL_LAST_TEXT));
    int32_t Valid = 1;
    EXPECT_EQ(UL_OK, ul_check_display_u8(Length, Bad, UL_TO_NUL, &Valid));
    EXPECT_EQ(0, Valid) << Bad;
  }
}

TEST_F(TConversions, ReadUncheckedWhatTheUnitMakesOfIt) {
  EXPECT_EQ(0.0, Store(Length, "abc", UL_UNCHECKED));
  EXPECT_TRUE(std::isnan(Store(Area, "1e15"))) << "beyond what a field takes";
  EXPECT_EQ(1e15 * SquareFoot, Store(Area, "1e15", UL_UNCHECKED));
  EXPECT_TRUE(std::isnan(Store(Area, "abc", UL_UNCHECKED)));
}

TEST_F(TConversions, RefuseUnknownFlags) {
  char Buffer[64];
  double Value = -7;
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_store_to_display_u8(Length, 1, UL_BASE_SCALE, 32, Buffer, 64, nullptr));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_display_to_store_u8(Length, "5", 1, UL_BASE_SCALE, 2, &Value));
  EXPECT_EQ(-7, Value);
}

TEST_F(TConversions, RefuseNumbersThatAreNotFinite) {
  char Buffer[64];
  for (const double Bad : {std::numeric_limits<double>::quiet_NaN(), HUGE_VAL, -HUGE_VAL}) {
    EXPECT_EQ(UL_ERROR_RANGE, ul_store_to_display_u8(Area, Bad, UL_BASE_SCALE, 0, Buffer, 64, nullptr));
    EXPECT_EQ(UL_ERROR_RANGE, ul_store_to_display_u8(Length, Bad, UL_BASE_SCALE, 0, Buffer, 64, nullptr));
    EXPECT_EQ(UL_ERROR_RANGE,
              ul_store_to_display_u8(UL_NO_MEASURE, Bad, UL_BASE_SCALE, 0, Buffer, 64, nullptr));
    double Value = -7;
    EXPECT_EQ(UL_ERROR_RANGE, ul_decimal_value_to_store(Area, Bad, UL_BASE_SCALE, &Value));
    EXPECT_EQ(-7, Value);
  }
}

TEST_F(TConversions, RefuseAMeasureThatIsNotThere) {
  double Value = -7;
  int32_t Answer = -7;
  char Buffer[64];
  for (const int32_t Unknown : {-1, 8, 99, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(UL_ERROR_INDEX, ul_display_to_store_u8(Unknown, "5", 1, UL_BASE_SCALE, 0, &Value));
    EXPECT_EQ(UL_ERROR_INDEX, ul_display_to_store_u8(Unknown, "5", 1, UL_BASE_SCALE, UL_UNCHECKED, &Value));
    EXPECT_EQ(UL_ERROR_INDEX, ul_decimal_value_to_store(Unknown, 5, UL_BASE_SCALE, &Value));
    EXPECT_EQ(UL_ERROR_INDEX, ul_check_display_u8(Unknown, "5", 1, &Answer));
    EXPECT_EQ(UL_ERROR_INDEX, ul_is_a_num_u8(Unknown, "5", 1, 0, &Answer));
    EXPECT_EQ(UL_ERROR_INDEX, ul_expr_to_store_u8(Unknown, "5", 1, 0, Buffer, 64, nullptr));
    EXPECT_EQ(UL_ERROR_INDEX, ul_get_unit_symbol_u8(Unknown, 0, Buffer, 64, nullptr));
    if (Unknown != UL_NO_MEASURE) {
      EXPECT_EQ(UL_ERROR_INDEX, ul_store_to_display_u8(Unknown, 5, UL_BASE_SCALE, 0, Buffer, 64, nullptr));
    }
  }
  EXPECT_EQ(-7, Value);
  EXPECT_EQ(-7, Answer);
}

TEST_F(TConversions, SayWhatIsANumber) {
  auto IsANum = [](const char* Given, int32_t RejectFraction) {
    int32_t Answer = -7;
    EXPECT_EQ(UL_OK, ul_is_a_num_u8(Length, Given, UL_TO_NUL, RejectFraction, &Answer));
    return Answer;
  };
  EXPECT_EQ(1, IsANum("1-1/2", 0));
  EXPECT_EQ(0, IsANum("1-1/2", 1));
  EXPECT_EQ(1, IsANum("1.5", 1));
  EXPECT_EQ(0, IsANum("A", 0));
}

TEST_F(TConversions, TurnDecimalNumbersIntoStoredValues) {
  double Value = 0;
  EXPECT_EQ(UL_OK, ul_decimal_value_to_store(Length, 2.5, UL_BASE_SCALE, &Value));
  EXPECT_DOUBLE_EQ(762, Value) << "feet, with feet and fractional inches";
  EXPECT_EQ(UL_OK, ul_decimal_value_to_store(Area, 2, UL_BASE_SCALE, &Value));
  EXPECT_EQ(2 * SquareFoot, Value);
}

TEST_F(TConversions, RewriteImperialNumbers) {
  EXPECT_EQ(UL_OK, ul_set_cur_unit_u8(UL_CURRENT, Position(ResultLength), "Meters", UL_TO_NUL));
  auto Rewrite = [](int32_t Measure, const char* Given, int32_t Skip) {
    return Text([&](char* B, int32_t C, int32_t* N) {
      return ul_expr_to_store_u8(Measure, Given, UL_TO_NUL, Skip, B, C, N);
    });
  };
  EXPECT_EQ("1.0668+2", Rewrite(ResultLength, "3'6\"+2", 0));
  EXPECT_EQ("3'6\"", Rewrite(ResultLength, "3'6\"", 1));
  EXPECT_EQ("3'6\"+2", Rewrite(Area, "3'6\"+2", 0));
}

TEST_F(TConversions, KnowTheUnitSymbol) {
  auto Symbol = [](int32_t Measure, int32_t EmptyForFeetInch) {
    return Text([&](char* B, int32_t C, int32_t* N) {
      return ul_get_unit_symbol_u8(Measure, EmptyForFeetInch, B, C, N);
    });
  };
  EXPECT_EQ("SF", Symbol(Area, 0));
  EXPECT_EQ("FT-IN", Symbol(Length, 0));
  EXPECT_EQ("", Symbol(Length, 1));
}

TEST_F(TConversions, RefuseAnIncrementThatIsNoNumber) {
  char Buffer[64];
  EXPECT_EQ(UL_OK,
            ul_set_increment_u8(UL_CURRENT, Position(Area), UL_CURRENT, UL_CURRENT, "some", UL_TO_NUL));
  EXPECT_EQ(UL_ERROR_CONVERT, ul_store_to_display_u8(Area, 1, UL_BASE_SCALE, 0, Buffer, 64, nullptr));
}

} // namespace
} // namespace capi_test
