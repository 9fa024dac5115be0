/// Typed arithmetic and elevations. Elevations are in feet and inches, calculated lengths in decimal feet.
#include "tests/capi/CapiTest.h"

#include <cmath>
#include <limits>
#include <ostream>

namespace capi_test {
namespace {

class TExpressions : public TCapi {};

struct TValueRow {
  const char* Name;
  const char* Text;
  double Value;
  int32_t IsImperial;
};
void PrintTo(const TValueRow& Row, std::ostream* Out) {
  *Out << Row.Name;
}
class TValues : public TCapi, public ::testing::WithParamInterface<TValueRow> {};

TEST_P(TValues, AreEvaluated) {
  double Value = std::numeric_limits<double>::quiet_NaN();
  int32_t IsImperial = -7;
  EXPECT_EQ(UL_OK, ul_evaluate_u8(GetParam().Text, UL_TO_NUL, &Value, &IsImperial)) << LastText();
  EXPECT_EQ(GetParam().Value, Value);
  EXPECT_EQ(GetParam().IsImperial, IsImperial);
}

INSTANTIATE_TEST_SUITE_P(Texts, TValues,
                         ::testing::Values(TValueRow{"Number", " 12.5 ", 12.5, 0},
                                           TValueRow{"Precedence", "1+2*3", 7, 0},
                                           TValueRow{"Brackets", "2*(3+4)", 14, 0},
                                           TValueRow{"NegativeBracket", "-(1+2)", -3, 0},
                                           TValueRow{"Imperial", "5'6\"", 1.6764, 1},
                                           TValueRow{"ImperialTimesNumber", "5'6\"*2", 3.3528, 1},
                                           TValueRow{"ImperialSum", "1'+1\"", 0.3302, 1}),
                         [](const auto& Info) { return std::string(Info.param.Name); });

struct TFaultRow {
  const char* Name;
  const char* Text;
  const char* Message;
};
void PrintTo(const TFaultRow& Row, std::ostream* Out) {
  *Out << Row.Name;
}
class TFaults : public TCapi, public ::testing::WithParamInterface<TFaultRow> {};

TEST_P(TFaults, HaveAMessageAndNoValue) {
  double Value = -7;
  int32_t IsImperial = -7;
  EXPECT_EQ(UL_ERROR_EXPRESSION, ul_evaluate_u8(GetParam().Text, UL_TO_NUL, &Value, &IsImperial));
  EXPECT_EQ(-7, Value);
  EXPECT_EQ(-7, IsImperial);
  EXPECT_EQ(GetParam().Message, LastText());
  EXPECT_EQ(GetParam().Text, LastText(UL_LAST_TEXT));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TFaults,
    ::testing::Values(TFaultRow{"Empty", "", "There is nothing to evaluate"},
                      TFaultRow{"Blanks", "  ", "There is nothing to evaluate"},
                      TFaultRow{"NoRightOperand", "1+", "can not be nil afer operator"},
                      TFaultRow{"TwoOperands", "(1)(2)", "missing operator!"},
                      TFaultRow{"Function", "sin(1)", "unsupport function!"},
                      TFaultRow{"OpenBracket", "(1+2", "missing ( error!"},
                      TFaultRow{"DivisionByZero", "6/0", "can not div by zero!"},
                      TFaultRow{"ImperialPlusNumber", "5'+3", "imperial number can not add with const!"},
                      TFaultRow{"ImperialTimesImperial", "5'*2'", "imperial can not mul by imperial!"},
                      TFaultRow{"TooBig", "1000000000000001", "1000000000000001 is too big"},
                      TFaultRow{"Name", "A", "\"A\" is a name, not a number"},
                      TFaultRow{"NameInASum", "2*(B+1)", "\"B\" is a name, not a number"}),
    [](const auto& Info) { return std::string(Info.param.Name); });

TEST_F(TExpressions, TellThePlaceOfAFault) {
  double Value = 0;
  EXPECT_EQ(UL_ERROR_EXPRESSION, ul_evaluate_u8("12+sin(3)", UL_TO_NUL, &Value, nullptr));
  EXPECT_GE(LastError().position, 3);
  EXPECT_LE(LastError().position, 7);
  EXPECT_EQ(UL_ERROR_EXPRESSION, ul_evaluate_u8("7+A", UL_TO_NUL, &Value, nullptr));
  EXPECT_EQ(2, LastError().position);
}

TEST_F(TExpressions, ReadPlainNumbersInTheCurrentUnitOfAField) {
  auto Value = [](int32_t Measure, const char* Given) {
    double Stored = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(UL_OK, ul_expression_to_store_u8(Measure, Given, UL_TO_NUL, UL_BASE_SCALE, &Stored))
        << LastText();
    return Stored;
  };
  EXPECT_EQ(2286, Value(ResultLength, "5'6\"+2")) << "7.5 feet";
  EXPECT_DOUBLE_EQ(1524, Value(Length, "2+3")) << "5 feet";
  EXPECT_DOUBLE_EQ(929030.4, Value(Area, "2*5")) << "10 square feet";
  EXPECT_EQ(UL_OK, ul_set_cur_unit_u8(UL_CURRENT, Position(ResultLength), "Meters", UL_TO_NUL));
  EXPECT_EQ(3066.8, Value(ResultLength, "3'6\"+2")) << "1.0668 m + 2 m";
}

TEST_F(TExpressions, HaveNoImperialLengthsInOtherMeasures) {
  double Value = -7;
  EXPECT_EQ(UL_ERROR_EXPRESSION, ul_expression_to_store_u8(Area, "5'*2", UL_TO_NUL, UL_BASE_SCALE, &Value));
  EXPECT_EQ(-7, Value);
}

TEST_F(TExpressions, TellTheTypedTextWhenTheyFail) {
  double Value = 0;
  EXPECT_EQ(UL_ERROR_EXPRESSION,
            ul_expression_to_store_u8(ResultLength, "5'6\"+", UL_TO_NUL, UL_BASE_SCALE, &Value));
  EXPECT_EQ("5'6\"+", LastText(UL_LAST_TEXT));
  EXPECT_EQ(-1, LastError().position) << "places of the rewritten text mean nothing";
  EXPECT_EQ(UL_ERROR_EXPRESSION, ul_expression_to_store_u8(Area, "2+A", UL_TO_NUL, UL_BASE_SCALE, &Value));
  EXPECT_EQ(2, LastError().position);
}

using TForm = ul_status (*)(const char*, int32_t, char*, int32_t, int32_t*);

std::string Elevate(TForm Form, const char* Given) {
  return Text([&](char* B, int32_t C, int32_t* N) { return Form(Given, UL_TO_NUL, B, C, N); });
}

TEST_F(TExpressions, TurnElevationsIntoTheirForms) {
  EXPECT_EQ("1.6764", Elevate(ul_get_elev_store_value_u8, "5'6\""));
  EXPECT_EQ("5' 6\"", Elevate(ul_get_elev_edit_value_u8, "1.6764"));
  EXPECT_EQ("5' 6\"", Elevate(ul_get_elev_display_value_u8, "1.6764"));
  EXPECT_EQ("L1+1.6764", Elevate(ul_get_elev_store_value_u8, "L1+5'6\""));
  EXPECT_EQ("A+B", Elevate(ul_get_elev_store_value_u8, "A+B")) << "no elevation, so unchanged";
  EXPECT_EQ("", Elevate(ul_get_elev_store_value_u8, ""));
}

TEST_F(TExpressions, CheckElevations) {
  auto Check = [](const char* Given) {
    int32_t Valid = -7;
    EXPECT_EQ(UL_OK, ul_check_elev_edit_value_u8(Given, UL_TO_NUL, &Valid));
    return Valid;
  };
  EXPECT_EQ(1, Check("5'6\""));
  EXPECT_EQ(1, Check("L1+5'6\""));
  EXPECT_EQ(0, Check("A+B"));
  EXPECT_EQ(0, Check("1+"));
  EXPECT_EQ(0, Check(""));
}

TEST_F(TExpressions, NeedTheElevationMeasure) {
  double Value = -7;
  EXPECT_EQ(UL_OK, ul_configure_unit_system(UL_IN_METRIC)); // a configuration that the file does not have
  EXPECT_EQ(UL_ERROR_INDEX, ul_evaluate_u8("1+1", UL_TO_NUL, &Value, nullptr));
  EXPECT_EQ(UL_OK, ul_free_unit_system());
  EXPECT_EQ(UL_ERROR_NOT_LOADED, ul_evaluate_u8("1+1", UL_TO_NUL, &Value, nullptr));
  EXPECT_EQ(-7, Value);
}

} // namespace
} // namespace capi_test
