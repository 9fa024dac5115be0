/// Texts out of every function that gives one: size first, short buffers, UTF-8 twins.
#include "tests/capi/CapiTest.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <set>
#include <vector>

namespace capi_test {
namespace {

/// One function and its twin with arguments for which they give a text.
struct TRow {
  const char* Name;
  TSource16 Source16;
  TSource8 Source8;
};

void PrintTo(const TRow& Row, std::ostream* Out) {
  *Out << Row.Name;
}

#define UL_ROW(function, ...)                                                                                     \
  TRow {                                                                                                          \
#function, [](char16_t* B, int32_t C, int32_t* N) { return function(__VA_ARGS__, B, C, N); },                   \
       [](char* B, int32_t C, int32_t* N) { return function##_u8(__VA_ARGS__, B, C, N); } \
  }
#define UL_ROW_WITHOUT_ARGUMENTS(function)                                                                   \
  TRow {                                                                                                     \
#function, [](char16_t* B, int32_t C,                                                                    \
                  int32_t* N) { return function(B, C, N); },                                                 \
                                                          [](char* B, int32_t C,                             \
                                                             int32_t* N) { return function##_u8(B, C, N); }  \
  }
#define UL_ROW_FROM_TEXT(function, text, ...)                                                                      \
  TRow {                                                                                                           \
#function, [](char16_t* B, int32_t C, int32_t* N) { return function(u##text, UL_TO_NUL __VA_ARGS__, B, C, N); }, \
       [](char* B, int32_t C, int32_t* N) { return function##_u8(text, UL_TO_NUL __VA_ARGS__, B, C, N); } \
  }

int32_t HasSymbol = 0;

const TRow Rows[] = {
    UL_ROW_WITHOUT_ARGUMENTS(ul_get_unit_config_file_name),
    UL_ROW_WITHOUT_ARGUMENTS(ul_get_temp_path_for_unit),
    UL_ROW_WITHOUT_ARGUMENTS(ul_get_exe_path),
    UL_ROW_WITHOUT_ARGUMENTS(ul_get_common_documents_path),
    UL_ROW(ul_store_to_display, Length, 1676.4, UL_BASE_SCALE, 0U),
    UL_ROW(ul_store_to_display_symbol, &HasSymbol, Area, 92903.04, UL_BASE_SCALE, 0U),
    TRow{"ul_expr_to_store",
         [](char16_t* B, int32_t C, int32_t* N) {
           return ul_expr_to_store(ResultLength, u"3'6\"+2", UL_TO_NUL, 0, B, C, N);
         },
         [](char* B, int32_t C, int32_t* N) {
           return ul_expr_to_store_u8(ResultLength, "3'6\"+2", UL_TO_NUL, 0, B, C, N);
         }},
    TRow{"ul_get_typed_text",
         [](char16_t* B, int32_t C, int32_t* N) {
           return ul_get_typed_text(Length, u"10'-6\"", UL_TO_NUL, 0, UL_TYPED_UNDERSTOOD, 0, B, C, N);
         },
         [](char* B, int32_t C, int32_t* N) {
           return ul_get_typed_text_u8(Length, "10'-6\"", UL_TO_NUL, 0, UL_TYPED_UNDERSTOOD, 0, B, C, N);
         }},
    UL_ROW(ul_get_unit_symbol, Area, 0),
    UL_ROW_FROM_TEXT(ul_get_display_value, "12.50 [SF]"),
    UL_ROW_FROM_TEXT(ul_get_elev_store_value, "5'6\""),
    UL_ROW_FROM_TEXT(ul_get_elev_edit_value, "1.6764"),
    UL_ROW_FROM_TEXT(ul_get_elev_display_value, "1.6764"),
    UL_ROW(ul_get_config_description, UL_CURRENT),
    UL_ROW(ul_get_measure_text, UL_CURRENT, 0, UL_MEASURE_DESCRIPTION),
    UL_ROW(ul_get_unit_text, UL_CURRENT, 3, UL_CURRENT, UL_UNIT_PARSER_CLASS_NAME),
    UL_ROW(ul_get_round_text, UL_CURRENT, 0, UL_CURRENT, UL_CURRENT, UL_ROUND_INCREMENT),
    UL_ROW(ul_get_symbol_description, UL_CURRENT, 3, UL_CURRENT, UL_CURRENT),
    UL_ROW(ul_get_digit_group_text, UL_CURRENT, UL_DIGIT_GROUP_DESCRIPTION),
    TRow{"ul_group_digits",
         [](char16_t* B, int32_t C, int32_t* N) {
           return ul_group_digits(u"TDigitGroup3CommaParser", UL_TO_NUL, u"1234567.5", UL_TO_NUL, B, C, N);
         },
         [](char* B, int32_t C, int32_t* N) {
           return ul_group_digits_u8("TDigitGroup3CommaParser", UL_TO_NUL, "1234567.5", UL_TO_NUL, B, C, N);
         }},
};

class TTexts : public TCapi, public ::testing::WithParamInterface<TRow> {};

TEST_P(TTexts, GivesTheSameTextInBothForms) {
  const std::u16string Wide = Text16(GetParam().Source16);
  EXPECT_FALSE(Wide.empty());
  EXPECT_EQ(Narrow(Wide), Text(GetParam().Source8));
}

template <class C, class TSource> void CheckBuffers(const TSource& Source, size_t TextLength) {
  const int32_t Needed = static_cast<int32_t>(TextLength) + 1;
  int32_t Told = -7;
  std::vector<C> Buffer(TextLength + 3, C('?'));
  const std::vector<C> Untouched = Buffer;

  for (int32_t Capacity = 0; Capacity < Needed; ++Capacity) {
    EXPECT_EQ(UL_BUFFER_TOO_SMALL, Source(Buffer.data(), Capacity, &Told)) << Capacity;
    EXPECT_EQ(Needed, Told);
    EXPECT_EQ(Untouched, Buffer) << "written in spite of capacity " << Capacity;
  }
  EXPECT_EQ(UL_BUFFER_TOO_SMALL, Source(Buffer.data(), Needed - 1, nullptr)) << "needed may be null";
  EXPECT_EQ(UL_OK, Source(Buffer.data(), Needed, nullptr));
  EXPECT_EQ(C(), Buffer[TextLength]);
  EXPECT_EQ(C('?'), Buffer[TextLength + 1]) << "written behind the closing zero";

  Told = -7;
  EXPECT_EQ(UL_ERROR_ARGUMENT, Source(Buffer.data(), -1, &Told));
  EXPECT_EQ(0, Told);
  EXPECT_EQ(UL_ERROR_ARGUMENT, Source(nullptr, 100, &Told));
  EXPECT_EQ(UL_ERROR_ARGUMENT, Source(nullptr, 0, nullptr));
}

TEST_P(TTexts, WritesAllOrNothing) {
  const TRow& Row = GetParam();
  CheckBuffers<char16_t>(Row.Source16, Text16(Row.Source16).size());
  CheckBuffers<char>(Row.Source8, Text(Row.Source8).size());
}

INSTANTIATE_TEST_SUITE_P(EveryFunction, TTexts, ::testing::ValuesIn(Rows),
                         [](const auto& Info) { return std::string(Info.param.Name); });

/// The exported functions that end in a buffer, its capacity and needed; no column, whose texts are told
/// apart by offsets, and not the last error, which has its own tests.
std::set<std::string> FunctionsWithBuffer() {
  std::set<std::string> Names;
#define UL_FUNCTION(name) Names.insert(#name);
#include "all_functions.h"
#undef UL_FUNCTION
  for (auto Name = Names.begin(); Name != Names.end();) {
    const bool Gives = Name->starts_with("ul_get_") || Name->find("store_to_display") != Name->npos ||
                       Name->starts_with("ul_expr_to") || Name->starts_with("ul_group_");
    const bool HasTwin = Names.contains(*Name + "_u8");
    const bool IsColumn = Name->find("_column") != Name->npos;
    Name = Gives && HasTwin && !IsColumn ? std::next(Name) : Names.erase(Name);
  }
  return Names;
}

TEST(Texts, HaveARowForEveryFunction) {
  std::set<std::string> Tested;
  for (const TRow& Row : Rows) Tested.insert(Row.Name);
  EXPECT_THAT(Tested, ::testing::ContainerEq(FunctionsWithBuffer()));
}

class TTextsIn : public TCapi {};

TEST_F(TTextsIn, MayEndWithAZeroOrHaveALength) {
  double Value = 0;
  EXPECT_EQ(UL_OK, ul_display_to_store_u8(Length, "5'6\"tail", 4, UL_BASE_SCALE, 0, &Value));
  EXPECT_EQ(1676.4, Value);
  EXPECT_EQ(UL_OK, ul_display_to_store(Length, u"6'\0tail", UL_TO_NUL, UL_BASE_SCALE, 0, &Value));
  EXPECT_EQ(1828.8, Value);
}

TEST_F(TTextsIn, RefuseNullWithALengthAndNegativeLengths) {
  int32_t Valid = -7;
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_check_display(Length, nullptr, 3, &Valid));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_check_display(Length, nullptr, UL_TO_NUL, &Valid));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_check_display(Length, u"5", -2, &Valid));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_check_display(Length, u"5", INT32_MIN, &Valid));
  EXPECT_EQ(-7, Valid) << "a failed call leaves results alone";
  EXPECT_EQ(UL_OK, ul_check_display(Length, nullptr, 0, &Valid)) << "the empty text";
  EXPECT_EQ(0, Valid);
}

struct TUtf8Row {
  const char* Name;
  std::string Text;
};
class TMalformed : public TCapi, public ::testing::WithParamInterface<TUtf8Row> {};

TEST_P(TMalformed, IsRefused) {
  double Value = -7;
  const std::string& Bad = GetParam().Text;
  EXPECT_EQ(UL_ERROR_ENCODING,
            ul_display_to_store_u8(Length, Bad.data(), Size(Bad), UL_BASE_SCALE, 0, &Value));
  EXPECT_EQ(-7, Value);
  EXPECT_EQ(UL_ERROR_ENCODING, ul_set_cur_unit_u8(UL_CURRENT, 0, Bad.data(), Size(Bad)));
  EXPECT_EQ(UL_ERROR_ENCODING, LastError().code);
}

INSTANTIATE_TEST_SUITE_P(Utf8, TMalformed,
                         ::testing::Values(TUtf8Row{"LoneContinuation", "5\x80"},
                                           TUtf8Row{"CutSequence", "5\xE2\x82"},
                                           TUtf8Row{"Overlong", "\xC0\xB5"},
                                           TUtf8Row{"Surrogate", "\xED\xA0\x80"},
                                           TUtf8Row{"BeyondUnicode", "\xF4\x90\x80\x80"}),
                         [](const auto& Info) { return std::string(Info.param.Name); });

TEST_F(TTextsIn, MayOverlapTheBufferOut) {
  char16_t Both[16] = u"12 [SF]";
  int32_t Needed = 0;
  EXPECT_EQ(UL_OK, ul_get_display_value(Both, 7, Both, 16, &Needed));
  EXPECT_EQ(u"12 SF", std::u16string(Both));
  EXPECT_EQ(6, Needed);
}

TEST_F(TTextsIn, KeepCharactersBeyondTheBasicPlane) {
  const std::string House = "\xF0\x9F\x8F\xA0 [x]"; // U+1F3E0
  EXPECT_EQ("\xF0\x9F\x8F\xA0 x", Text([&](char* B, int32_t C, int32_t* N) {
              return ul_get_display_value_u8(House.c_str(), UL_TO_NUL, B, C, N);
            }));
  EXPECT_EQ(u"\U0001F3E0 x", Text16([&](char16_t* B, int32_t C, int32_t* N) {
              return ul_get_display_value(u"\U0001F3E0 [x]", UL_TO_NUL, B, C, N);
            }));
}

} // namespace
} // namespace capi_test
