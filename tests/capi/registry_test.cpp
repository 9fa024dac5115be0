/// Parsers that a host registers. Registrations last, so every test takes names of its own.
#include "tests/capi/CapiTest.h"

#include <cmath>
#include <fstream>
#include <sstream>

namespace capi_test {
namespace {

class TRegistry : public TCapi {
protected:
  /// The factory settings with one text replaced by another, loaded.
  void LoadWith(const std::string& Old, const std::string& New) const {
    std::ostringstream Read;
    Read << std::ifstream(Folder / "UnitConfig.xml", std::ios::binary).rdbuf();
    std::string Content = Read.str();
    for (size_t At = Content.find(Old); At != Content.npos; At = Content.find(Old, At + New.size()))
      Content.replace(At, Old.size(), New);
    std::ofstream(Folder / "own.xml", std::ios::binary) << Content;
    ASSERT_EQ(UL_OK, ul_initial_unit_system_u8(Path("own.xml").c_str(), UL_TO_NUL, UL_US_IMPERIAL, 0));
  }
  static int32_t Has(const char* Name) {
    int32_t Present = -7;
    EXPECT_EQ(UL_OK, ul_has_unit_parser_u8(Name, UL_TO_NUL, &Present));
    return Present;
  }
};

TEST_F(TRegistry, KnowsTheParsersOfTheLibrary) {
  EXPECT_EQ(1, Has("TDecimalFeetParser"));
  EXPECT_EQ(1, Has("tdecimalfeetparser"));
  EXPECT_EQ(0, Has("TFoo"));
  EXPECT_EQ(0, Has(""));
}

TEST_F(TRegistry, TakesAUnitOfTheHost) {
  EXPECT_EQ(UL_OK,
            ul_register_unit_parser_u8("TChainParser", UL_TO_NUL, 20116.8)); // mm: 66 international feet
  EXPECT_EQ(1, Has("tChainParser"));
  LoadWith("TDecimalFeetParser", "TChainParser");
  EXPECT_EQ("10.000", Show(ResultLength, 201168));
  EXPECT_EQ(201168, Store(ResultLength, "10"));
  double Value = 0;
  EXPECT_EQ(UL_OK, ul_display_to_store_u8(ResultLength, "10", UL_TO_NUL, UL_THOUSAND_SCALE, 0, &Value));
  EXPECT_NEAR(201.168, Value, 1e-12);
}

TEST_F(TRegistry, RefusesWrongUnits) {
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_register_unit_parser(nullptr, 0, 1));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_register_unit_parser_u8("tdecimalFEETparser", UL_TO_NUL, 1));
  for (const double Bad : {0.0, -1.0, HUGE_VAL, std::nan("")})
    EXPECT_EQ(UL_ERROR_ARGUMENT, ul_register_unit_parser_u8("TBadParser", UL_TO_NUL, Bad));
  EXPECT_EQ(0, Has("TBadParser"));
}

TEST_F(TRegistry, RefusesConversionsWithoutAParser) {
  LoadWith("TDecimalFeetParser", "TMissingParser");
  char Buffer[64];
  double Value = -7;
  int32_t Answer = -7;
  EXPECT_EQ(UL_ERROR_CONVERT, ul_store_to_display_u8(ResultLength, 1, UL_BASE_SCALE, 0, Buffer, 64, nullptr));
  EXPECT_EQ("TMissingParser", LastText(UL_LAST_TEXT));
  EXPECT_EQ(UL_ERROR_CONVERT, ul_display_to_store_u8(ResultLength, "1", 1, UL_BASE_SCALE, 0, &Value));
  EXPECT_EQ(UL_ERROR_CONVERT, ul_decimal_value_to_store(ResultLength, 1, UL_BASE_SCALE, &Value));
  EXPECT_EQ(UL_ERROR_CONVERT, ul_is_a_num_u8(ResultLength, "1", 1, 0, &Answer));
  EXPECT_EQ(-7, Value);
  EXPECT_EQ(UL_OK, ul_check_display_u8(ResultLength, "1", 1, &Answer));
  EXPECT_EQ(0, Answer);
}

TEST_F(TRegistry, TakesADigitGroupOfTheHost) {
  EXPECT_EQ(UL_OK, ul_register_digit_group_parser_u8("TPairs", UL_TO_NUL, 2));
  EXPECT_EQ("1,23,45.678", Text([](char* B, int32_t C, int32_t* N) {
              return ul_group_digits_u8("tpairs", UL_TO_NUL, "12345.678", UL_TO_NUL, B, C, N);
            }));
  LoadWith("TDigitGroup3CommaParser", "TPairs");
  EXPECT_EQ("1,23,45.000", Show(Area, 12345 * 92903.04));
}

TEST_F(TRegistry, RefusesWrongDigitGroups) {
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_register_digit_group_parser_u8("TNone", UL_TO_NUL, 0));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_register_digit_group_parser_u8("TTen", UL_TO_NUL, 10));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_register_digit_group_parser_u8("", UL_TO_NUL, 3));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_register_digit_group_parser_u8("TDIGITGROUP3commaparser", UL_TO_NUL, 3));
  EXPECT_EQ(UL_OK, ul_register_digit_group_parser(u"TOnce", UL_TO_NUL, 3));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_register_digit_group_parser(u"tonce", UL_TO_NUL, 3));
  EXPECT_EQ("12345", Text([](char* B, int32_t C, int32_t* N) {
              return ul_group_digits_u8("TNone", UL_TO_NUL, "12345", UL_TO_NUL, B, C, N);
            }))
      << "an unknown name groups nothing";
}

} // namespace
} // namespace capi_test
