/// Rows that the comparison with the second implementation has brought to light, worked out by hand.
#include "UnitSetup.h"

#include "unitlib/convert/ImperialText.h"
#include "unitlib/convert/ZELUnitConvertor.h"

#include <gtest/gtest.h>

namespace unitlib {
namespace {

struct TLengthRow {
  const char* Name;
  std::u16string_view Text;
  int ScaleIndex;
  double Value;
};

// 25.4 * 3 is 76.19999999999999 in doubles: the nearest doubles of the exact lengths are wanted.
constexpr TLengthRow LengthRows[] = {
    {"WholeInches", u"3\"", -1, 76.2},
    {"FeetAndInches", u"5'6\"", -1, 1676.4},
    {"BinaryFraction", u"0'6 1/2\"", -1, 165.1},
    {"Metres", u"5'7\"", 3, 1.7018},
};

class FoundLength : public testing::TestWithParam<TLengthRow> {};

TEST_P(FoundLength, IsTheNearestDouble) {
  const differential::TUnitSetup Setup("TFeetAndFractionalInchParser|11|1|1/16||0|000000|FT-IN|", 0);
  EXPECT_EQ(TMeasureDataManager::DisplayToStore(0, GetParam().Text, GetParam().ScaleIndex), GetParam().Value);
}

INSTANTIATE_TEST_SUITE_P(Rows, FoundLength, testing::ValuesIn(LengthRows),
                         [](const auto& Info) { return std::string(Info.param.Name); });

TEST(FoundReplacement, LargeLengthsDoNotOverflowOnTheWay) {
  EXPECT_EQ(ReplaceImperialNumbers(u"1e308\"", 0, 1), u"2.54E306");
  EXPECT_EQ(ReplaceImperialNumbers(u"1e308'", 0, 1), u"3.048E307");
  EXPECT_EQ(ReplaceImperialNumbers(u"1e308'", 2, 1), u"1E308");
}

TEST(FoundReplacement, BeyondTheDoubleRangeTheTextStays) {
  EXPECT_EQ(ReplaceImperialNumbers(u"1e308'+5'", 0, 1000), u"1e308'+1524");
}

} // namespace
} // namespace unitlib
