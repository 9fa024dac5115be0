/// Names that look like spelling mistakes and are not to be corrected: programs and settings files in use
/// hold them.
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/convert/ZELUnitDensityConvertor.h"
#include "unitlib/convert/ZELUnitLengthConvertor.h"
#include "unitlib/convert/ZELUnitMassConvertor.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitMgr.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace unitlib {
namespace {

TEST(GivenNames, OperationsKeepTheirSpelling) {
  EXPECT_NE(&TSystemUnitDataManager::SetCurretnConfigueType, nullptr);
  EXPECT_NE(&TSystemUnitDataManager::ConfigueUnitSystem, nullptr);
  EXPECT_NE(&TSystemUnitDataManager::UpdateDispalyValue, nullptr);
  EXPECT_NE(&TSystemUnitDataManager::SavetoModel, nullptr);
  EXPECT_NE(&TFractionalLengthParser::GetFenZiFenMu, nullptr);
  EXPECT_NE(&TNode::IsHigerThanOther, nullptr);
  EXPECT_NE(&GetDefUnitCharacter, nullptr);
  EXPECT_EQ(TConfigueType::CYINMetric, 4);
  EXPECT_TRUE((std::is_class_v<TKiogramsPerCubicMeterParser> && std::is_class_v<TBangParser>));
}

TEST(GivenNames, RegisteredClassesKeepTheirSpelling) {
  TUnit Unit;
  for (std::u16string_view Name :
       {u"TKiogramsPerCubicMeterParser", u"TBangParser", u"TMetreParser", u"TMillimetreParser",
        u"TCentimeterParser", u"TSquareCentimetreParser", u"TSquareMillimeterParser",
        u"TCubicMillimetreParser", u"TCubicCentimeterParser"})
    EXPECT_NE(GetUnitParser(Name, &Unit), nullptr);
  for (std::u16string_view Name : {u"TKilogramsPerCubicMeterParser", u"TPoundParser", u"TMeterParser"})
    EXPECT_EQ(GetUnitParser(Name, &Unit), nullptr);
}

TEST(GivenNames, ResourceStringsKeepTheirSpelling) {
  EXPECT_EQ(_SCentimter, u"Centimeters");
  EXPECT_EQ(_SInvaliateInput, u"Invalid input, please input again.");
  EXPECT_EQ(_SFormate, std::u16string(21, u' ') + u"Format");
  EXPECT_EQ(_SUnit, std::u16string(21, u' ') + u"Units");
  EXPECT_EQ(_SUnitFeet1, u"'");
  EXPECT_EQ(_SUnitInches, u"\"");
  EXPECT_EQ(_SYCHEFENSHIYCUN, u"Feet and fractional inches");
  EXPECT_EQ(_SFENSHIYCUN, u"Fractional inches");
  const std::u16string_view Others[][2] = {{_SMeter, u"Meters"},
                                           {_SPFYC, u"Square feet"},
                                           {_SPFYCUN, u"Square inches"},
                                           {_SPFMI, u"Square meters"},
                                           {_SPFLM, u"Square centimeters"},
                                           {_SPFHM, u"Square millimeters"},
                                           {_SLFMA, u"Cubic yards"},
                                           {_SLFYC, u"Cubic feet"},
                                           {_SLFYCUN, u"Cubic inches"},
                                           {_SLFMI, u"Cubic meters"},
                                           {_SLFLIMI, u"Cubic centimeters"},
                                           {_SLFHM, u"Cubic millimeters"},
                                           {_SKG, u"Kilograms"},
                                           {_STONNE, u"Tonne"},
                                           {_SSHORTTON, u"Short ton"},
                                           {_SLONGTON, u"Long ton"},
                                           {_SUnitNone, u"None"}};
  for (const auto& Row : Others) EXPECT_EQ(Row[0], Row[1]);
}

} // namespace
} // namespace unitlib
