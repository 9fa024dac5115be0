/// Columns: many values in one call.
#include "tests/capi/CapiTest.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace capi_test {
namespace {

constexpr double Foot = 304.8; // mm, exact: international foot, 1959
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

/// A column of texts, as it is handed in and comes out.
template <class C> struct TColumn {
  std::basic_string<C> Units;
  std::vector<int32_t> Offsets{0};

  TColumn() = default;
  TColumn(std::initializer_list<std::basic_string<C>> Texts) {
    for (const auto& Text : Texts) {
      Units += Text;
      Offsets.push_back(static_cast<int32_t>(Units.size()));
    }
  }
  int32_t Count() const { return static_cast<int32_t>(Offsets.size()) - 1; }
};

class TColumns : public TCapi {};

TEST_F(TColumns, ShowEveryValue) {
  const std::vector<double> Values = {0, Foot, 1689.1, -Foot};
  char Buffer[100];
  int32_t Needed = 0;
  std::vector<int32_t> Offsets(5, -7);
  std::vector<ul_status> Statuses(4, -7);
  ASSERT_EQ(UL_OK, ul_store_to_display_column_u8(Length, Values.data(), 4, UL_BASE_SCALE, 0, Buffer, 100,
                                                 &Needed, Offsets.data(), Statuses.data()));
  EXPECT_EQ("0' 0\"1' 0\"5' 6 1/2\"-1' 0\"", std::string(Buffer, static_cast<size_t>(Needed)));
  EXPECT_EQ((std::vector<int32_t>{0, 5, 10, 19, 25}), Offsets);
  EXPECT_EQ(std::vector<ul_status>(4, UL_OK), Statuses);
}

TEST_F(TColumns, ShowTheSameInUtf16) {
  const double Values[] = {Foot, 1689.1};
  char16_t Buffer[14];
  int32_t Offsets[3], Needed = 0;
  ASSERT_EQ(UL_OK, ul_store_to_display_column(Length, Values, 2, UL_BASE_SCALE, 0, Buffer, 14, &Needed,
                                              Offsets, nullptr));
  EXPECT_EQ(u"1' 0\"5' 6 1/2\"", std::u16string(Buffer, 14)) << "no closing zero";
  EXPECT_EQ(14, Needed);
}

TEST_F(TColumns, WriteNothingIntoAShortBuffer) {
  const double Values[] = {Foot, NaN, 1689.1};
  char Buffer[20] = "untouched";
  int32_t Offsets[] = {-7, -7, -7, -7}, Needed = 0;
  ul_status Statuses[] = {-7, -7, -7};
  EXPECT_EQ(UL_BUFFER_TOO_SMALL, ul_store_to_display_column_u8(Length, Values, 3, UL_BASE_SCALE, 0, Buffer,
                                                               13, &Needed, Offsets, Statuses));
  EXPECT_EQ(14, Needed);
  EXPECT_STREQ("untouched", Buffer);
  EXPECT_EQ(-7, Offsets[0]);
  EXPECT_EQ(-7, Statuses[1]);
  EXPECT_EQ(UL_BUFFER_TOO_SMALL, ul_store_to_display_column_u8(Length, Values, 3, UL_BASE_SCALE, 0, nullptr,
                                                               0, &Needed, Offsets, Statuses));
  EXPECT_EQ(14, Needed);
}

TEST_F(TColumns, GoOnBehindAValueThatFails) {
  const double Values[] = {Foot, NaN, HUGE_VAL, 2 * Foot};
  char Buffer[100];
  int32_t Offsets[5], Needed = 0;
  ul_status Statuses[4];
  EXPECT_EQ(UL_ITEMS_FAILED, ul_store_to_display_column_u8(Length, Values, 4, UL_BASE_SCALE, 0, Buffer, 100,
                                                           &Needed, Offsets, Statuses));
  EXPECT_EQ("1' 0\"2' 0\"", std::string(Buffer, static_cast<size_t>(Needed)));
  EXPECT_EQ((std::vector<int32_t>{0, 5, 5, 5, 10}), std::vector<int32_t>(Offsets, Offsets + 5));
  EXPECT_EQ((std::vector<ul_status>{UL_OK, UL_ERROR_RANGE, UL_ERROR_RANGE, UL_OK}),
            std::vector<ul_status>(Statuses, Statuses + 4));
  EXPECT_EQ(1, LastError().item);
  EXPECT_EQ(UL_ERROR_RANGE, LastError().code);
}

TEST_F(TColumns, FailAsAWholeWithoutStatuses) {
  const double Values[] = {Foot, NaN};
  char Buffer[100] = "untouched";
  int32_t Offsets[] = {-7, -7, -7}, Needed = -7;
  EXPECT_EQ(UL_ERROR_RANGE, ul_store_to_display_column_u8(Length, Values, 2, UL_BASE_SCALE, 0, Buffer, 100,
                                                          &Needed, Offsets, nullptr));
  EXPECT_EQ(1, LastError().item);
  EXPECT_EQ(0, Needed);
  EXPECT_STREQ("untouched", Buffer);
  EXPECT_EQ(-7, Offsets[0]);
}

TEST_F(TColumns, ReadEveryText) {
  const TColumn<char> Texts{"1'", "", "5' 6 1/2\"", "abc"};
  double Values[] = {-7, -7, -7, -7};
  ul_status Statuses[4];
  EXPECT_EQ(UL_ITEMS_FAILED, ul_display_to_store_column_u8(Length, Texts.Units.data(), Texts.Offsets.data(),
                                                           4, UL_BASE_SCALE, 0, Values, Statuses));
  EXPECT_EQ(Foot, Values[0]);
  EXPECT_TRUE(std::isnan(Values[1]));
  EXPECT_EQ(1689.1, Values[2]);
  EXPECT_TRUE(std::isnan(Values[3]));
  EXPECT_EQ((std::vector<ul_status>{UL_OK, UL_ERROR_CONVERT, UL_OK, UL_ERROR_CONVERT}),
            std::vector<ul_status>(Statuses, Statuses + 4));
  EXPECT_EQ(1, LastError().item);
}

TEST_F(TColumns, ReadTheSameInUtf16) {
  const TColumn<char16_t> Texts{u"1'", u"5' 6 1/2\""};
  double Values[2];
  EXPECT_EQ(UL_OK, ul_display_to_store_column(Length, Texts.Units.data(), Texts.Offsets.data(), 2,
                                              UL_BASE_SCALE, 0, Values, nullptr));
  EXPECT_EQ(Foot, Values[0]);
  EXPECT_EQ(1689.1, Values[1]);
}

TEST_F(TColumns, MayStartInTheMiddleOfABuffer) {
  const int32_t Offsets[] = {3, 5, 7};
  double Values[2];
  EXPECT_EQ(UL_OK,
            ul_display_to_store_column_u8(Length, "abc1'2'", Offsets, 2, UL_BASE_SCALE, 0, Values, nullptr));
  EXPECT_EQ(Foot, Values[0]);
  EXPECT_EQ(2 * Foot, Values[1]);
}

TEST_F(TColumns, FailOneByOneOnMalformedUtf8) {
  const TColumn<char> Texts{"1'", "\xFF", "2'"};
  double Values[3];
  ul_status Statuses[3];
  EXPECT_EQ(UL_ITEMS_FAILED, ul_display_to_store_column_u8(Length, Texts.Units.data(), Texts.Offsets.data(),
                                                           3, UL_BASE_SCALE, 0, Values, Statuses));
  EXPECT_EQ(UL_ERROR_ENCODING, Statuses[1]);
  EXPECT_EQ(2 * Foot, Values[2]);
}

TEST_F(TColumns, EvaluateEveryText) {
  const TColumn<char> Texts{"2*(3+4)", "5'6\"*2", "1/0", "A+1"};
  double Values[4];
  int32_t Imperial[] = {-7, -7, -7, -7};
  ul_status Statuses[4];
  EXPECT_EQ(UL_ITEMS_FAILED,
            ul_evaluate_column_u8(Texts.Units.data(), Texts.Offsets.data(), 4, Values, Imperial, Statuses));
  EXPECT_EQ(14, Values[0]);
  EXPECT_EQ(3.3528, Values[1]);
  EXPECT_TRUE(std::isnan(Values[2]));
  EXPECT_TRUE(std::isnan(Values[3]));
  EXPECT_EQ((std::vector<int32_t>{0, 1, 0, 0}), std::vector<int32_t>(Imperial, Imperial + 4));
  EXPECT_EQ((std::vector<ul_status>{UL_OK, UL_OK, UL_ERROR_EXPRESSION, UL_ERROR_EXPRESSION}),
            std::vector<ul_status>(Statuses, Statuses + 4));
  EXPECT_EQ(2, LastError().item);
  EXPECT_EQ("can not div by zero!", LastText());
  EXPECT_EQ(UL_ERROR_EXPRESSION,
            ul_evaluate_column_u8(Texts.Units.data(), Texts.Offsets.data(), 4, Values, nullptr, nullptr));
}

TEST_F(TColumns, StoreEveryExpression) {
  const TColumn<char16_t> Texts{u"5'6\"+2", u"3*"};
  double Values[2];
  ul_status Statuses[2];
  EXPECT_EQ(UL_ITEMS_FAILED,
            ul_expression_to_store_column(ResultLength, Texts.Units.data(), Texts.Offsets.data(), 2,
                                          UL_BASE_SCALE, Values, Statuses));
  EXPECT_EQ(2286, Values[0]);
  EXPECT_TRUE(std::isnan(Values[1]));
}

TEST_F(TColumns, MayBeEmpty) {
  int32_t Offset = -7, Needed = -7;
  EXPECT_EQ(UL_OK, ul_store_to_display_column_u8(Length, nullptr, 0, UL_BASE_SCALE, 0, nullptr, 0, &Needed,
                                                 &Offset, nullptr));
  EXPECT_EQ(0, Offset);
  EXPECT_EQ(0, Needed);
  EXPECT_EQ(UL_OK,
            ul_display_to_store_column_u8(Length, nullptr, &Offset, 0, UL_BASE_SCALE, 0, nullptr, nullptr));
  const int32_t Empty[] = {0, 0};
  double Value = -7;
  ul_status Status = -7;
  EXPECT_EQ(UL_ITEMS_FAILED,
            ul_display_to_store_column_u8(Length, nullptr, Empty, 1, UL_BASE_SCALE, 0, &Value, &Status))
      << "one empty text, which is no value";
  EXPECT_EQ(UL_ERROR_CONVERT, Status);
}

TEST_F(TColumns, RefuseWrongArguments) {
  const double Values[] = {1, 2};
  double Results[2];
  char Buffer[100];
  int32_t Offsets[] = {0, 1, 2};
  const int32_t Falling[] = {0, 2, 1}, Negative[] = {-1, 0, 1};
  auto Show = [&](const double* V, int32_t Count, uint32_t Flags, int32_t* O) {
    return ul_store_to_display_column_u8(Length, V, Count, UL_BASE_SCALE, Flags, Buffer, 100, nullptr, O,
                                         nullptr);
  };
  EXPECT_EQ(UL_ERROR_ARGUMENT, Show(nullptr, 2, 0, Offsets));
  EXPECT_EQ(UL_ERROR_ARGUMENT, Show(Values, -1, 0, Offsets));
  EXPECT_EQ(UL_ERROR_ARGUMENT, Show(Values, 2, 64, Offsets));
  EXPECT_EQ(UL_ERROR_ARGUMENT, Show(Values, 2, 0, nullptr));
  auto Read = [&](const char* T, const int32_t* O, int32_t Count, double* R) {
    return ul_display_to_store_column_u8(Length, T, O, Count, UL_BASE_SCALE, 0, R, nullptr);
  };
  EXPECT_EQ(UL_ERROR_ARGUMENT, Read("12", nullptr, 2, Results));
  EXPECT_EQ(UL_ERROR_ARGUMENT, Read("12", Offsets, 2, nullptr));
  EXPECT_EQ(UL_ERROR_ARGUMENT, Read(nullptr, Offsets, 2, Results));
  EXPECT_EQ(UL_ERROR_ARGUMENT, Read("12", Offsets, -1, Results));
  EXPECT_EQ(UL_ERROR_ARGUMENT, Read("12", Falling, 2, Results));
  EXPECT_EQ(UL_ERROR_ARGUMENT, Read("12", Negative, 2, Results));
}

TEST_F(TColumns, FailAtOnceForAMeasureThatIsNotThere) {
  const TColumn<char> Texts{"1'"};
  double Value = -7;
  ul_status Status = -7;
  EXPECT_EQ(UL_ERROR_INDEX, ul_display_to_store_column_u8(99, Texts.Units.data(), Texts.Offsets.data(), 1,
                                                          UL_BASE_SCALE, 0, &Value, &Status));
  EXPECT_EQ(-7, Value);
  EXPECT_EQ(-7, Status);
  EXPECT_EQ(-1, LastError().item);
}

TEST_F(TColumns, EqualSingleConversionsOverManyRows) {
  constexpr size_t Count = 20000;
  std::vector<double> Values(Count), Back(Count);
  for (size_t I = 0; I < Count; ++I) Values[I] = static_cast<double>(I * I) * 0.79375; // steps of 1/32"
  std::string Buffer(Count * 24, '?');
  std::vector<int32_t> Offsets(Count + 1);
  int32_t Needed = 0;
  ASSERT_EQ(UL_OK,
            ul_store_to_display_column_u8(Length, Values.data(), Count, UL_BASE_SCALE, 0, Buffer.data(),
                                          Size(Buffer), &Needed, Offsets.data(), nullptr));
  ASSERT_EQ(UL_OK, ul_display_to_store_column_u8(Length, Buffer.data(), Offsets.data(), Count, UL_BASE_SCALE,
                                                 0, Back.data(), nullptr));
  for (size_t I = 0; I < Count; I += 997) {
    const size_t From = static_cast<size_t>(Offsets[I]), To = static_cast<size_t>(Offsets[I + 1]);
    EXPECT_EQ(Show(Length, Values[I]), Buffer.substr(From, To - From));
  }
  for (size_t I = 0; I < Count; ++I) ASSERT_NEAR(Values[I], Back[I], 1e-6) << I;
}

} // namespace
} // namespace capi_test
