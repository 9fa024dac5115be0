/// What value and elevation cells accept, refuse, show and offer for editing.
#include "apps/takeoff/Errors.h"
#include "apps/takeoff/ValueField.h"
#include "tests/support/Settings.h"

#include <gmock/gmock.h>

#include <limits>

namespace unitlib::takeoff {
namespace {

using test::TFactorySettings;
using ::testing::HasSubstr;

constexpr int Length = 0;
constexpr int ResultLength = 7;
constexpr int Area = 1;
constexpr int Mass = 6;
constexpr int Elevation = 3;

struct TAccepted {
  const char* Name;
  TConfigueType System;
  int Measure;
  const char16_t* Text;
  double Stored;
};

// In US units: measure 0 and 3 feet and fractional inches, 7 decimal feet, 1 square feet, 6 pounds.
// In metric units: measure 0 millimetres, 7 and 3 metres, 1 square metres.
const TAccepted Accepted[] = {
    {"feet_inches_fraction", CYAmInch, Length, u"5'6 1/2\"", 1689.1},
    {"blanks_around", CYAmInch, Length, u"  5' 6 1/2\"  ", 1689.1},
    {"sum_with_product", CYAmInch, Length, u"3'6\"+2*1'", 1676.4},
    {"whole_number_is_inches", CYAmInch, Length, u"66", 1676.4},
    {"product_of_numbers_is_read_as_the_number", CYAmInch, Length, u"33*2", 1676.4},
    {"negative", CYAmInch, Length, u"-5'", -1524},
    {"decimal_feet_by_mark", CYAmInch, Length, u"2.5'", 762},
    {"difference_in_brackets", CYAmInch, Length, u"(5')-(6\")", 1371.6},
    {"difference_of_more_than_a_foot", CYAmInch, Length, u"5' - 18\"", 1066.8},
    {"signed_fraction", CYAmInch, Length, u"-5' 6 1/2\"", -1689.1},
    {"other_unit", CYAmInch, Length, u"2.5 m", 2500},
    {"words", CYAmInch, Length, u"10 ft 6 in + 6 in", 3352.8},
    {"vulgar_fraction", CYAmInch, Length, u"\u00BD\"", 12.7},
    {"more_than_a_foot_taken_off", CYAmInch, Length, u"10'-18\"", 2590.8},
    {"feet_taken_off", CYAmInch, Length, u"10'-2'", 2438.4},
    {"inch_mark_before_the_dash", CYAmInch, Length, u"10'6\"-3\"", 3124.2},
    {"quotient", CYAmInch, Length, u"10'/4", 762},
    {"twice", CYAmInch, Length, u"5'6\"*2", 3352.8},
    {"inches_fraction_without_mark", CYAmInch, Length, u"6 3/4", 171.45},
    {"fraction_of_an_inch", CYAmInch, Length, u"3/4", 19.05},
    {"dash_in_brackets", CYAmInch, Length, u"(5)-(6)", -25.4},
    {"thirds_of_a_foot_are_exact", CYAmInch, Length, u"4\"*3", 304.8},
    {"negative_block", CYAmInch, Length, u"-(1'+1\")", -330.2},
    {"zero_feet_in_a_sum", CYAmInch, Length, u"5'+0'", 1524},
    {"fraction_in_a_sum", CYAmInch, Length, u"5' 6 1/2\"+1'", 1993.9},
    {"blanks_at_brackets", CYAmInch, Length, u"2 * ( 1' + 6\" ) * 2", 1828.8},
    {"negative_fraction", CYAmInch, Length, u"-1/2\"", -12.7},
    {"decimal_feet", CYAmInch, ResultLength, u"5.5", 1676.4},
    {"decimal_feet_take_marks", CYAmInch, ResultLength, u"5'6\"", 1676.4},
    {"decimal_feet_sum", CYAmInch, ResultLength, u"2.5'+6\"", 914.4},
    {"bracketed_quotient_is_calculated", CYAmInch, ResultLength, u"(12)/(4)", 914.4},
    {"thousands", CYAmInch, ResultLength, u"1,234.5", 376275.6},
    {"ten_thousands", CYAmInch, ResultLength, u"1,2345.5", 3762908.4},
    {"square_feet", CYAmInch, Area, u"10", 929030.4},
    {"square_feet_product", CYAmInch, Area, u"10*12", 11148364.8},
    {"square_feet_symbol", CYAmInch, Area, u"10 SF", 929030.4},
    {"quarter_of_a_square_foot", CYAmInch, Area, u"1/4", 23225.76},
    {"pounds", CYAmInch, Mass, u"100", 45.359237},
    {"metres", CYStandMetric, ResultLength, u"2.5", 2500},
    {"metres_with_symbol", CYStandMetric, ResultLength, u"2 m", 2000},
    {"metres_take_feet", CYStandMetric, ResultLength, u"5'6 1/2\"", 1689.1},
    {"metres_beside_feet", CYStandMetric, ResultLength, u"3'6\"+2", 3066.8},
    {"metres_product", CYStandMetric, ResultLength, u"2*3", 6000},
    {"metres_difference", CYStandMetric, ResultLength, u"5-6", -1000},
    {"metres_fraction_in_a_sum", CYStandMetric, ResultLength, u"5' 6 1/2\"+1'", 1993.9},
    {"millimetres_take_feet", CYStandMetric, Length, u"1'", 304.8},
    {"millimetres_beside_feet", CYStandMetric, Length, u"1'+10", 314.8},
    {"millimetres_beside_feet_twice", CYStandMetric, Length, u"1'+10+5", 319.8},
    {"metres_from_centimetres", CYStandMetric, ResultLength, u"10 cm", 100},
    {"other_area_unit", CYAmInch, Area, u"10 m2", 1e7},
};

class TAcceptedTest : public TFactorySettings, public ::testing::WithParamInterface<TAccepted> {
protected:
  TAcceptedTest() : TFactorySettings(GetParam().System) {}
};

TEST_P(TAcceptedTest, IsStored) {
  const double Tolerance = 1e-12 * std::abs(GetParam().Stored);
  EXPECT_NEAR(TValueField(GetParam().Measure).Read(GetParam().Text), GetParam().Stored, Tolerance);
}

INSTANTIATE_TEST_SUITE_P(Values, TAcceptedTest, ::testing::ValuesIn(Accepted),
                         [](const auto& Info) { return std::string(Info.param.Name); });

struct TRefused {
  const char* Name;
  TConfigueType System;
  int Measure;
  const char16_t* Text;
  const char* Reason;
};

const TRefused Refused[] = {
    {"word", CYAmInch, Length, u"abc", "\"abc\" is neither a number nor a unit"},
    {"word_in_metric", CYStandMetric, Length, u"abc", "\"abc\" is neither a number nor a unit"},
    {"too_large", CYAmInch, Length, u"1e300", "no unit that is read here"},
    {"too_large_in_metric", CYStandMetric, ResultLength, u"1000000000000000", "more than 15 digits"},
    {"empty", CYAmInch, Length, u"", "needs a value"},
    {"blanks", CYAmInch, Length, u"   ", "needs a value"},
    {"number_beside_feet", CYAmInch, Length, u"3'6\"+2", "of which unit?"},
    {"number_taken_off_feet", CYAmInch, Length, u"3'6\"-2", "of which unit?"},
    {"number_beside_decimal_feet", CYAmInch, ResultLength, u"3'6\"+2", "of which unit?"},
    {"feet_times_feet", CYAmInch, Length, u"2'*3'", "two amounts are not multiplied"},
    {"feet_times_feet_in_metric", CYStandMetric, ResultLength, u"2'*3'", "two amounts are not multiplied"},
    {"feet_by_feet", CYAmInch, Length, u"5'/2'", "nothing is divided by an amount"},
    {"number_by_feet", CYAmInch, Length, u"5/2'", "nothing is divided by an amount"},
    {"by_zero", CYAmInch, Length, u"5'/0", "a division by zero"},
    {"decimal_without_mark", CYAmInch, Length, u"2.5",
     "2.5 needs a mark here: feet or inches?; write 2.5 ft or 2.5 in"},
    {"dash_form_or_difference", CYAmInch, Length, u"5-6", "join or take away; write 5' 6\" or (5)-(6)"},
    {"dash_form_or_difference_large", CYAmInch, Length, u"66-6", "write 66' 6\" or (66)-(6)"},
    {"dash_form_with_fraction", CYAmInch, Length, u"5-6 3/4", "join or take away"},
    {"fraction_or_quotient", CYAmInch, ResultLength, u"12/4", "12/4 needs a mark here"},
    {"feet_dash_inches", CYAmInch, Length, u"5'-6\"", "write 5' 6\" or (5')-(6\")"},
    {"feet_dash_inches_with_blanks", CYAmInch, Length, u"5' - 6\"", "join or take away"},
    {"feet_dash_inches_in_metric", CYStandMetric, Length, u"5'-6\"", "join or take away"},
    {"feet_dash_mixed_inches", CYAmInch, Length, u"5'-6 1/2\"", "join or take away"},
    {"inches_dash_fraction", CYAmInch, Length, u"6-1/2\"", "join or take away"},
    {"feet_inches_dash_fraction", CYAmInch, Length, u"5'6-1/2\"", "join or take away"},
    {"inches_dash_fraction_in_metric", CYStandMetric, ResultLength, u"6-1/2\"", "join or take away"},
    {"operator_at_the_end", CYAmInch, Length, u"5'+", "a number is missing"},
    {"open_bracket", CYAmInch, Length, u"(5'+2'", "this bracket is not closed"},
    {"name", CYAmInch, Length, u"L1+5'", "\"L\" is neither a number nor a unit"},
    {"name_as_a_value", CYAmInch, Elevation, u"L1+5'", "has no value of its own"},
    {"decimal_comma", CYStandMetric, ResultLength, u"1,5", "a comma separates thousands"},
    {"decimal_comma_in_a_sum", CYStandMetric, ResultLength, u"1,25+1", "a comma separates thousands"},
    {"misspelt_unit", CYStandMetric, ResultLength, u"10 cmm", "no unit that is read here"},
    {"area_of_lengths", CYAmInch, Area, u"10'*12'", "10 feet is a length; here is an area needed"},
    {"length_as_area", CYAmInch, Area, u"5'", "5 feet is a length; here is an area needed"},
    {"not_a_number", CYStandMetric, ResultLength, u"NaN", "neither a number nor a unit"},
    {"infinity", CYStandMetric, ResultLength, u"INF", "neither a number nor a unit"},
    {"result_too_large", CYStandMetric, ResultLength, u"100000000000000*100000000000000", "too big"},
    {"unknown_measure", CYAmInch, 42, u"1", "measure 42 is not in the unit settings"},
};

class TRefusedTest : public TFactorySettings, public ::testing::WithParamInterface<TRefused> {
protected:
  TRefusedTest() : TFactorySettings(GetParam().System) {}
};

TEST_P(TRefusedTest, SaysWhy) {
  try {
    const double Value = TValueField(GetParam().Measure).Read(GetParam().Text);
    ADD_FAILURE() << "read as " << Value;
  } catch (const ERefused& Error) {
    EXPECT_THAT(Error.what(), HasSubstr(GetParam().Reason));
  }
}

INSTANTIATE_TEST_SUITE_P(Values, TRefusedTest, ::testing::ValuesIn(Refused),
                         [](const auto& Info) { return std::string(Info.param.Name); });

class TValueFieldTest : public TFactorySettings {};

TEST_F(TValueFieldTest, ReadsLengthsAlikeWhateverUnitElevationsHave) {
  UseUnit(3, 4); // metres
  EXPECT_NEAR(TValueField(Length).Read(u"5' 6 1/2\"+1'"), 1993.9, 1e-9);
  EXPECT_THROW(TValueField(Length).Read(u"2'*3'"), ERefused);
  EXPECT_THROW(TValueField(Length).Read(u"3'6\"+2"), ERefused);
}

TEST_F(TValueFieldTest, RefusesLongTexts) {
  std::u16string Text = u"1'";
  while (Text.size() <= 1000) Text += u"+1'";
  EXPECT_THROW(TValueField(Length).Read(Text), ERefused);
}

TEST_F(TValueFieldTest, ShowsTheUnitWithEveryNumber) {
  EXPECT_EQ(TValueField(Length).Display(1689.1), u"5' 6 1/2\"");
  EXPECT_EQ(TValueField(ResultLength).Display(1524), u"5.000 FT");
  EXPECT_EQ(TValueField(Area).Display(929030.4), u"10.000 SF");
}

TEST_F(TValueFieldTest, SaysWhatCannotBeShown) {
  EXPECT_EQ(TValueField(42).Display(1), u"(measure 42 is not in the unit settings)");
  EXPECT_EQ(TValueField(Length).Display(std::numeric_limits<double>::quiet_NaN()),
            u"(no number in the project file)");
  FreeUnitSystem();
  EXPECT_EQ(TValueField(Length).Display(1), u"(no unit settings are loaded)");
}

TItem TypedItem(int Measure, double Value, const char16_t* Typed) {
  TItem Item;
  Item.Measure = Measure;
  Item.Value = Value;
  Item.Typed = Typed;
  return Item;
}

TEST_F(TValueFieldTest, OffersTheTypedTextWhileItMeansTheValue) {
  EXPECT_EQ(TValueField(Length).EditText(TypedItem(Length, 1676.4, u"3'6\"+2*1'")), u"3'6\"+2*1'");
}

TEST_F(TValueFieldTest, OffersTheValueWhenItWasTypedInOtherUnits) {
  // 2.5 was metres; in decimal feet it would be 762 mm. 2500 / 304.8 = 8.202099737532808...
  EXPECT_EQ(TValueField(ResultLength).EditText(TypedItem(ResultLength, 2500, u"2.5")), u"8.20209973753281");
  // 1000 / 25.4 = 39.37 inches, to the nearest 1/32: 39 12/32
  EXPECT_EQ(TValueField(Length).EditText(TypedItem(Length, 1000, u"1")), u"3' 3 3/8\"");
}

TEST_F(TValueFieldTest, OffersFractionalInchesWithTheirMark) {
  UseUnit(Length, 3);
  EXPECT_EQ(TValueField(Length).EditText(TypedItem(Length, 63.5, u"")), u"2 1/2\"");
}

TEST_F(TValueFieldTest, TellsHowATextWouldBeRead) {
  EXPECT_EQ(TValueField(Length).Hint(u"10' 6\""), u"Read as 10 feet 6 inches");
  EXPECT_EQ(TValueField(Length).Hint(u"5' + 6\""), u"Read as calculated: 5' 6\"");
  EXPECT_EQ(TValueField(Length).Hint(u"5-6"),
            u"Not clear: the dash may join or take away; write 5' 6\" or (5)-(6)");
  EXPECT_EQ(TValueField(Length).Hint(u"  "), u"");
  EXPECT_EQ(TElevationField::Hint(u"L1 - (-5' 6 1/2\")"), u"Read as L1 plus 5' 6 1/2\"");
  EXPECT_EQ(TValueField(42).Hint(u"1"), u"");
}

struct TElevation {
  const char* Name;
  TConfigueType System;
  const char16_t* Text;
  const char16_t* Stored; // null: refused
};

const TElevation Elevations[] = {
    {"name_and_feet", CYAmInch, u"L1+5'", u"L1+1.524"},
    {"name_alone", CYAmInch, u"L1", u"L1"},
    {"feet_inches", CYAmInch, u"5'6\"", u"1.6764"},
    {"feet_inches_without_mark", CYAmInch, u"5'6", u"1.6764"},
    {"sum", CYAmInch, u"5'+6\"", u"1.6764"},
    {"negative", CYAmInch, u"-5'", u"-1.524"},
    {"inches", CYAmInch, u"66", u"1.6764"},
    {"negative_fraction", CYAmInch, u"-1/2\"", u"-0.0127"},
    {"decimal_feet", CYAmInch, u"2.5'", u"0.762"},
    {"name_and_inches", CYAmInch, u"L1+5", u"L1+0.127"},
    {"name_with_blank", CYAmInch, u"Level 1 + 5'", u"Level 1+1.524"},
    {"very_small", CYAmInch, u"0.0001'", u"0.00003048"},
    {"nothing", CYAmInch, u"  ", u""},
    {"number_by_name", CYAmInch, u"10/(L1+5)", nullptr},
    {"name_with_bracket", CYAmInch, u"L1)+5'", nullptr},
    {"power_of_a_name", CYAmInch, u"A^2", nullptr},
    {"minus_before_a_name", CYAmInch, u"-L1", nullptr},
    {"thousands_beside_a_name", CYAmInch, u"L1+1,000", u"L1+25.4"},
    {"two_names", CYAmInch, u"L1+L2", nullptr},
    {"name_and_unmarked_inches", CYAmInch, u"L1+5'6", nullptr},
    {"name_times_feet", CYAmInch, u"L1*5'", nullptr},
    {"name_starting_with_a_digit", CYAmInch, u"1F+3'", nullptr},
    {"dash", CYAmInch, u"5'-6\"", nullptr},
    {"dash_behind_a_name", CYAmInch, u"L1+5'-6\"", nullptr},
    {"too_large", CYAmInch, u"L1+1e300", nullptr},
    {"open_end", CYAmInch, u"L1+", nullptr},
    {"decimal_without_mark", CYAmInch, u"L1+2.5", nullptr},
    {"metric_name_and_feet", CYStandMetric, u"L1+5'", u"L1+1.524"},
    {"metric_name_and_metres", CYStandMetric, u"L1+2.5", u"L1+2.5"},
    {"metric_with_symbol", CYStandMetric, u"5 m", u"5"},
    {"metric_feet", CYStandMetric, u"5'6 1/2\"", u"1.6891"},
    {"metric_feet_times_feet", CYStandMetric, u"L1+2'*3'", nullptr},
    {"metric_name_times_feet", CYStandMetric, u"L1*5'", nullptr},
    {"metric_mark_in_a_name", CYStandMetric, u"L1'", nullptr},
};

class TElevationTest : public TFactorySettings, public ::testing::WithParamInterface<TElevation> {
protected:
  TElevationTest() : TFactorySettings(GetParam().System) {}
};

TEST_P(TElevationTest, IsStoredInMetresOrRefused) {
  if (!GetParam().Stored) {
    EXPECT_THROW(TElevationField::Read(GetParam().Text), ERefused);
  } else {
    EXPECT_EQ(TElevationField::Read(GetParam().Text), GetParam().Stored);
  }
}

INSTANTIATE_TEST_SUITE_P(Elevations, TElevationTest, ::testing::ValuesIn(Elevations),
                         [](const auto& Info) { return std::string(Info.param.Name); });

TEST_F(TValueFieldTest, ShowsElevationsInProjectUnits) {
  EXPECT_EQ(TElevationField::Display(u"L1+1.524"), u"L1+5' 0\"");
  EXPECT_EQ(TElevationField::Display(u"-1.524"), u"-5' 0\"");
  EXPECT_EQ(TElevationField::EditText(u"L1+1.524"), u"L1+5' 0\"");
  EXPECT_EQ(TElevationField::UnitSuffix(), u"");
  UseUnit(3, 4); // metres
  EXPECT_EQ(TElevationField::Display(u"L1+1.524"), u"L1+1.524");
  EXPECT_EQ(TElevationField::EditText(u"0.00003048"), u"0.00003048");
  EXPECT_EQ(TElevationField::UnitSuffix(), u" [m]");
}

} // namespace
} // namespace unitlib::takeoff
