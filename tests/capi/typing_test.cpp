/// Texts as people type them. Lengths are in feet and inches.
#include "tests/capi/CapiTest.h"

#include <gmock/gmock.h>

#include <cmath>

namespace capi_test {
namespace {

using ::testing::ElementsAre;

class TTyping : public TCapi {
protected:
  static std::string TextOf(const char* Text, uint32_t Flags, int32_t Part, int32_t Index = 0) {
    char Buffer[200] = "";
    EXPECT_EQ(UL_OK, ul_get_typed_text_u8(0, Text, UL_TO_NUL, Flags, Part, Index, Buffer, 200, nullptr))
        << LastText();
    return Buffer;
  }
};

TEST_F(TTyping, AnAcceptedTextHasAValue) {
  double Value = 0;
  ul_typed_info Info;
  EXPECT_EQ(UL_OK, ul_read_typed_u8(0, "10'-6\"", UL_TO_NUL, UL_BASE_SCALE, 0, &Value, &Info)) << LastText();
  EXPECT_DOUBLE_EQ(3200.4, Value); // 126 inches
  EXPECT_EQ(UL_TYPED_ACCEPTED, Info.problem);
  EXPECT_EQ(1, Info.has_value);
  EXPECT_EQ(-1, Info.position);
  EXPECT_EQ(0, Info.suggestions);
  EXPECT_EQ("10'6\"", TextOf("10'-6\"", 0, UL_TYPED_REWRITTEN));
  EXPECT_EQ("10 feet 6 inches, dash read as a separator", TextOf("10'-6\"", 0, UL_TYPED_UNDERSTOOD));
  EXPECT_EQ("shown back", TextOf("10'-6\"", 0, UL_TYPED_STEP_NAME, Info.steps - 1));
  EXPECT_EQ("10' 6\"", TextOf("10'-6\"", 0, UL_TYPED_STEP_TEXT, Info.steps - 1));
}

TEST_F(TTyping, ARefusedTextHasAReasonAndSuggestions) {
  double Value = 0;
  ul_typed_info Info;
  const uint32_t Flags = UL_TYPED_EXPRESSION;
  EXPECT_EQ(UL_OK, ul_read_typed_u8(0, "5-6", UL_TO_NUL, UL_BASE_SCALE, Flags, &Value, &Info));
  EXPECT_TRUE(std::isnan(Value));
  EXPECT_EQ(UL_TYPED_AMBIGUOUS, Info.problem);
  EXPECT_EQ(0, Info.has_value);
  EXPECT_EQ(1, Info.position);
  ASSERT_EQ(2, Info.suggestions);
  EXPECT_EQ("the dash may join or take away", TextOf("5-6", Flags, UL_TYPED_REASON));
  EXPECT_EQ("5' 6\"", TextOf("5-6", Flags, UL_TYPED_SUGGESTION, 0));
  EXPECT_EQ("(5)-(6)", TextOf("5-6", Flags, UL_TYPED_SUGGESTION, 1));
}

TEST_F(TTyping, ANameHasNoValue) {
  double Value = 0;
  ul_typed_info Info;
  EXPECT_EQ(UL_OK,
            ul_read_typed_u8(3, "L1+5'", UL_TO_NUL, UL_BASE_SCALE, UL_TYPED_EXPRESSION, &Value, &Info));
  EXPECT_TRUE(std::isnan(Value));
  EXPECT_EQ(UL_TYPED_ACCEPTED, Info.problem);
  EXPECT_EQ(0, Info.has_value);
}

TEST_F(TTyping, FlagsAndScaleCount) {
  double Value = 0;
  ul_typed_info Info;
  EXPECT_EQ(UL_OK,
            ul_read_typed(0, u"2,5 m", UL_TO_NUL, UL_THOUSAND_SCALE, UL_TYPED_DECIMAL_COMMA, &Value, &Info));
  EXPECT_DOUBLE_EQ(2.5, Value);
  EXPECT_EQ(UL_OK, ul_read_typed(0, u"12 Zoll", UL_TO_NUL, UL_BASE_SCALE, UL_TYPED_GERMAN, &Value, &Info));
  EXPECT_DOUBLE_EQ(304.8, Value);
  EXPECT_EQ(UL_OK, ul_read_typed(0, u"12 Zoll", UL_TO_NUL, UL_BASE_SCALE, UL_TYPED_FRENCH, &Value, &Info));
  EXPECT_EQ(UL_TYPED_UNKNOWN_UNIT, Info.problem);
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_read_typed(0, u"1", UL_TO_NUL, UL_BASE_SCALE, 4, &Value, &Info));
}

TEST_F(TTyping, MissingPartsAreErrors) {
  char Buffer[8];
  EXPECT_EQ(UL_ERROR_INDEX,
            ul_get_typed_text_u8(0, "5'", UL_TO_NUL, 0, UL_TYPED_SUGGESTION, 0, Buffer, 8, nullptr));
  EXPECT_EQ(UL_ERROR_INDEX,
            ul_get_typed_text_u8(0, "5'", UL_TO_NUL, 0, UL_TYPED_STEP_TEXT, -1, Buffer, 8, nullptr));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_get_typed_text_u8(0, "5'", UL_TO_NUL, 0, 6, 0, Buffer, 8, nullptr));
  EXPECT_EQ(UL_ERROR_INDEX, ul_get_typed_text_u8(42, "5'", UL_TO_NUL, 0, 0, 0, Buffer, 8, nullptr));
}

} // namespace
} // namespace capi_test
