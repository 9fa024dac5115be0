#include "tests/support/OneUnit.h"
#include "tests/support/Settings.h"
#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"
#include "unitlib/rtl/Errors.h"

#include <gtest/gtest.h>

namespace unitlib {
namespace {

struct TRow {
  const char* Name;
  std::u16string_view Text, Three, Four;
};

class DigitGroups : public testing::TestWithParam<TRow> {};

TEST_P(DigitGroups, AreSeparatedByCommas) {
  EXPECT_EQ(GetDigitGroupParser(u"TDigitGroup3CommaParser", GetParam().Text)->ToStr(), GetParam().Three);
  EXPECT_EQ(GetDigitGroupParser(u"tdigitgroup4commaparser", GetParam().Text)->ToStr(), GetParam().Four);
  for (std::u16string_view Unknown : {u"", u"TNoSuchParser"})
    EXPECT_EQ(GetDigitGroupParser(Unknown, GetParam().Text)->ToStr(), GetParam().Text);
}

INSTANTIATE_TEST_SUITE_P(Rows, DigitGroups,
                         testing::Values(TRow{"Long", u"123456789.00", u"123,456,789.00", u"1,2345,6789.00"},
                                         TRow{"Seven", u"1234567", u"1,234,567", u"123,4567"},
                                         TRow{"Thousand", u"1000", u"1,000", u"1000"},
                                         TRow{"Three", u"999", u"999", u"999"},
                                         TRow{"Six", u"123456", u"123,456", u"12,3456"},
                                         TRow{"Eight", u"12345678", u"12,345,678", u"1234,5678"},
                                         TRow{"Empty", u"", u"", u""},
                                         TRow{"PointFirst", u".12345678", u".12345678", u".12345678"},
                                         TRow{"PointLast", u"1234.", u"1,234.", u"1234."},
                                         TRow{"SignCountsAsDigit", u"-123456", u"-,123,456", u"-12,3456"},
                                         TRow{"TwoPoints", u"12345.6.7", u"12,345.6.7", u"1,2345.6.7"},
                                         TRow{"Letters", u"abcd", u"a,bcd", u"abcd"}),
                         [](const auto& Info) { return Info.param.Name; });

class GroupedText : public test::TFactorySettings {};

TEST_F(GroupedText, FollowsTheCurrentDigitGroup) {
  test::TOneUnit Unit(u"TMillimetreParser", u"0.01");
  Unit.Unit.UseDigitGroup.Checked = true;
  EXPECT_EQ(Unit.Show(1234567.5), u"1,234,567.50");
  EXPECT_EQ(Unit.Show(-1234567.5), u"-1,234,567.50");
  EXPECT_EQ(Unit.Parser()->AsString(1234567.5, -1, false, true, false, false), u"1234567.50");
  TSystemUnitDataManager::SetCurDigitGroupIndex(1);
  EXPECT_EQ(Unit.Show(1234567.5), u"123,4567.50");
  TSystemUnitDataManager::DigitGroup(1)->DigitGroupParserClassName = u"TGone";
  EXPECT_EQ(Unit.Show(1234567.5), u"1234567.50");
  TSystemUnitDataManager::SetCurDigitGroupIndex(2);
  EXPECT_THROW(Unit.Show(1), EListError);
}

} // namespace
} // namespace unitlib
