/// Walking and editing the settings; the factory settings for the United States are loaded.
#include "tests/capi/CapiTest.h"

#include <string>
#include <vector>

namespace capi_test {
namespace {

class TModel : public TCapi {
protected:
  static ul_measure_info Measure(int32_t Position) {
    ul_measure_info Info = {-7, -7, -7, -7, -7};
    EXPECT_EQ(UL_OK, ul_get_measure(UL_CURRENT, Position, &Info));
    return Info;
  }
  static ul_unit_info Unit(int32_t Position, int32_t UnitIndex = UL_CURRENT) {
    ul_unit_info Info = {-7, -7, -7, -7, -7, -7, -7, -7};
    EXPECT_EQ(UL_OK, ul_get_unit(UL_CURRENT, Position, UnitIndex, &Info));
    return Info;
  }
  static ul_switch_info Switch(int32_t Position, int32_t Which, int32_t UnitIndex = UL_CURRENT) {
    ul_switch_info Info = {-7, -7, -7, -7};
    EXPECT_EQ(UL_OK, ul_get_switch(UL_CURRENT, Position, UnitIndex, Which, &Info));
    return Info;
  }
  static std::string MeasureText(int32_t Position, int32_t Part) {
    return Text([&](char* B, int32_t C, int32_t* N) {
      return ul_get_measure_text_u8(UL_CURRENT, Position, Part, B, C, N);
    });
  }
  static std::string UnitText(int32_t Position, int32_t UnitIndex, int32_t Part) {
    return Text([&](char* B, int32_t C, int32_t* N) {
      return ul_get_unit_text_u8(UL_CURRENT, Position, UnitIndex, Part, B, C, N);
    });
  }
  static std::string RoundText(int32_t Position, int32_t Round, int32_t Part) {
    return Text([&](char* B, int32_t C, int32_t* N) {
      return ul_get_round_text_u8(UL_CURRENT, Position, UL_CURRENT, Round, Part, B, C, N);
    });
  }
};

TEST_F(TModel, HasConfigurations) {
  int32_t Count = 0;
  EXPECT_EQ(UL_OK, ul_get_config_count(&Count));
  std::vector<std::string> Names;
  for (int32_t I = 0; I < Count; ++I)
    Names.push_back(
        Text([&](char* B, int32_t C, int32_t* N) { return ul_get_config_description_u8(I, B, C, N); }));
  EXPECT_EQ((std::vector<std::string>{"US Imperial System", "UK Imperial System", "Standard Metric System",
                                      "Taiwan Metric System"}),
            Names);
  ul_config_info Info = {};
  EXPECT_EQ(UL_OK, ul_get_config(3, &Info));
  EXPECT_EQ(3, Info.order_index);
  EXPECT_EQ(9, Info.measure_count);
}

TEST_F(TModel, HasMeasures) {
  EXPECT_EQ(3, Position(Area));
  const ul_measure_info Info = Measure(3);
  EXPECT_EQ(Area, Info.classify_code);
  EXPECT_EQ(3, Info.order_index);
  EXPECT_EQ(5, Info.unit_count);
  EXPECT_EQ(0, Info.def_unit_index);
  EXPECT_EQ(0, Info.cur_unit_index);
  EXPECT_EQ("Area", MeasureText(3, UL_MEASURE_DESCRIPTION));
  EXPECT_EQ("1234567890.12345", MeasureText(3, UL_MEASURE_EXAMPLE_VALUE));
  EXPECT_EQ(-1, Measure(8).cur_unit_index) << "the weight per length has no current unit";
}

TEST_F(TModel, FindsMeasuresByCodeAndOrder) {
  int32_t Found = -7;
  EXPECT_EQ(UL_OK, ul_find_measure(2, Elevation, &Found));
  EXPECT_EQ(2, Found);
  EXPECT_EQ(UL_OK, ul_find_measure_by_order_index(UL_CURRENT, 7, &Found));
  EXPECT_EQ(7, Found);
  Found = -7;
  EXPECT_EQ(UL_NOT_FOUND, ul_find_measure(UL_CURRENT, 99, &Found));
  EXPECT_EQ(UL_NOT_FOUND, ul_find_measure_by_order_index(UL_CURRENT, -1, &Found));
  EXPECT_EQ(UL_ERROR_INDEX, ul_find_measure(4, Area, &Found));
  EXPECT_EQ(-7, Found);
}

TEST_F(TModel, HasUnitsWithRoundsAndSymbols) {
  const ul_unit_info Info = Unit(3);
  EXPECT_EQ(100, Info.identify_code);
  EXPECT_EQ(0, Info.order_index);
  EXPECT_EQ(8, Info.round_count);
  EXPECT_EQ(6, Info.def_round_index);
  EXPECT_EQ(6, Info.cur_round_index);
  EXPECT_EQ(3, Info.symbol_count);
  EXPECT_EQ(0, Info.def_symbol_index);
  EXPECT_EQ(0, Info.cur_symbol_index);
  EXPECT_EQ("Square feet", UnitText(3, UL_CURRENT, UL_UNIT_DESCRIPTION));
  EXPECT_EQ("SF", UnitText(3, UL_CURRENT, UL_UNIT_SYMBOL_WHEN_NONE));
  EXPECT_EQ("TSquareFootParser", UnitText(3, UL_CURRENT, UL_UNIT_PARSER_CLASS_NAME));
  EXPECT_EQ("None", UnitText(3, UL_CURRENT, UL_UNIT_CUR_SYMBOL));
  EXPECT_EQ(" [SF]", UnitText(3, UL_CURRENT, UL_UNIT_DEF_CHARACTER));
  EXPECT_EQ("", UnitText(0, UL_CURRENT, UL_UNIT_DEF_CHARACTER)) << "feet and inches carry their own marks";
  EXPECT_EQ("Square meters", UnitText(3, 2, UL_UNIT_DESCRIPTION));
  EXPECT_EQ("3 decimal places", RoundText(3, UL_CURRENT, UL_ROUND_DESCRIPTION));
  EXPECT_EQ("0.001", RoundText(3, UL_CURRENT, UL_ROUND_INCREMENT));
  ul_round_info Round = {};
  EXPECT_EQ(UL_OK, ul_get_round(UL_CURRENT, 3, UL_CURRENT, 7, &Round));
  EXPECT_EQ(7, Round.order_index);
  EXPECT_EQ(1, Round.increment_can_edit);
  EXPECT_EQ(1, Round.increment_can_visible);
  int32_t Order = -7;
  EXPECT_EQ(UL_OK, ul_get_symbol(UL_CURRENT, 3, UL_CURRENT, 2, &Order));
  EXPECT_EQ(2, Order);
  EXPECT_EQ("ft2", Text([](char* B, int32_t C, int32_t* N) {
              return ul_get_symbol_description_u8(UL_CURRENT, 3, UL_CURRENT, 2, B, C, N);
            }));
}

TEST_F(TModel, HasSixSwitches) {
  const ul_switch_info Grouping = Switch(3, UL_USE_DIGIT_GROUP);
  EXPECT_EQ(1, Grouping.def_enable);
  EXPECT_EQ(1, Grouping.enable);
  EXPECT_EQ(1, Grouping.def_checked);
  EXPECT_EQ(1, Grouping.checked);
  for (const int32_t Which : {UL_USE_PROJECT_SETTING, UL_SUPPRESS_TRAIL_0, UL_SUPPRESS_0_FEET,
                              UL_SHOW_PLUS_FOR_POS_VALUE, UL_SUPPRESS_SPACE})
    EXPECT_EQ(0, Switch(3, Which).checked) << Which;
}

TEST_F(TModel, SwitchesChangeTheDisplay) {
  EXPECT_EQ(UL_OK, ul_set_switch(UL_CURRENT, 0, UL_CURRENT, UL_SUPPRESS_SPACE, 1, 1));
  EXPECT_EQ("5'6\"", Show(Length, 1676.4));
  EXPECT_EQ(UL_OK, ul_set_switch(UL_CURRENT, 0, UL_CURRENT, UL_SUPPRESS_0_FEET, 1, 1));
  EXPECT_EQ("6\"", Show(Length, 152.4));
  EXPECT_EQ(UL_OK, ul_set_switch(UL_CURRENT, 3, UL_CURRENT, UL_SUPPRESS_TRAIL_0, 0, 5));
  EXPECT_EQ("2.5", Show(Area, 2.5 * 92903.04));
  const ul_switch_info Set = Switch(3, UL_SUPPRESS_TRAIL_0);
  EXPECT_EQ(0, Set.enable);
  EXPECT_EQ(1, Set.checked);
  EXPECT_EQ(1, Set.def_enable) << "defaults stay";
  EXPECT_EQ(0, Set.def_checked);
}

TEST_F(TModel, ChoosesUnitsRoundsAndSymbolsByPosition) {
  EXPECT_EQ(UL_OK, ul_set_cur_unit_index(UL_CURRENT, 3, 2));
  EXPECT_EQ("1.500", Show(Area, 1.5e6));
  EXPECT_EQ(UL_OK, ul_set_cur_round_index(UL_CURRENT, 3, UL_CURRENT, 4));
  EXPECT_EQ("1.5", Show(Area, 1.5e6));
  EXPECT_EQ(UL_OK, ul_set_cur_symbol_index(UL_CURRENT, 3, UL_CURRENT, 1));
  EXPECT_EQ("1.5 m2", Show(Area, 1.5e6));
}

TEST_F(TModel, ChoosesThemByDescription) {
  EXPECT_EQ(UL_OK, ul_set_cur_unit(UL_CURRENT, 3, u"Square meters", UL_TO_NUL));
  EXPECT_EQ(UL_OK, ul_set_cur_round(UL_CURRENT, 3, UL_CURRENT, u"1 decimal place", UL_TO_NUL));
  EXPECT_EQ(UL_OK, ul_set_cur_symbol(UL_CURRENT, 3, UL_CURRENT, u"m2", UL_TO_NUL));
  EXPECT_EQ("1.5 m2", Show(Area, 1.5e6));
  EXPECT_EQ(UL_NOT_FOUND, ul_set_cur_unit_u8(UL_CURRENT, 3, "square meters", UL_TO_NUL))
      << "letter case counts";
  EXPECT_EQ(UL_NOT_FOUND, ul_set_cur_round_u8(UL_CURRENT, 3, UL_CURRENT, "", 0));
  EXPECT_EQ(UL_NOT_FOUND, ul_set_cur_symbol_u8(UL_CURRENT, 3, UL_CURRENT, "m3", UL_TO_NUL));
  EXPECT_EQ("1.5 m2", Show(Area, 1.5e6)) << "nothing was changed";
}

TEST_F(TModel, HasDigitGroups) {
  int32_t Count = 0, Index = -7, Order = -7;
  EXPECT_EQ(UL_OK, ul_get_digit_group_count(&Count));
  EXPECT_EQ(2, Count);
  EXPECT_EQ(UL_OK, ul_set_cur_digit_group_u8("1,2345,6789.00", UL_TO_NUL));
  EXPECT_EQ(UL_OK, ul_get_cur_digit_group_index(&Index));
  EXPECT_EQ(1, Index);
  EXPECT_EQ("123,4567.000", Show(Area, 1234567 * 92903.04));
  EXPECT_EQ(UL_OK, ul_set_cur_digit_group_index(0));
  EXPECT_EQ("1,234,567.000", Show(Area, 1234567 * 92903.04));
  EXPECT_EQ(UL_OK, ul_get_digit_group(1, &Order));
  EXPECT_EQ(1, Order);
  EXPECT_EQ("TDigitGroup4CommaParser", Text([](char* B, int32_t C, int32_t* N) {
              return ul_get_digit_group_text_u8(1, UL_DIGIT_GROUP_PARSER_CLASS_NAME, B, C, N);
            }));
  EXPECT_EQ(UL_NOT_FOUND, ul_set_cur_digit_group(u"none", UL_TO_NUL));
  EXPECT_EQ(UL_ERROR_INDEX, ul_set_cur_digit_group_index(2));
  EXPECT_EQ(UL_ERROR_INDEX, ul_set_cur_digit_group_index(-1));
}

TEST_F(TModel, TakesIncrements) {
  EXPECT_EQ(UL_OK, ul_set_cur_round_u8(UL_CURRENT, 3, UL_CURRENT, "Custom", UL_TO_NUL));
  EXPECT_EQ(UL_OK, ul_set_increment_u8(UL_CURRENT, 3, UL_CURRENT, UL_CURRENT, "0.25", UL_TO_NUL));
  EXPECT_EQ("0.25", RoundText(3, 7, UL_ROUND_INCREMENT));
  EXPECT_EQ("1.25", Show(Area, 1.3 * 92903.04));
  EXPECT_EQ(UL_OK, ul_set_increment(UL_CURRENT, 3, UL_CURRENT, 7, nullptr, 0));
  EXPECT_EQ("1", Show(Area, 1.3 * 92903.04)) << "an empty increment rounds to 1";
}

TEST_F(TModel, RestoresDefaults) {
  EXPECT_EQ(UL_OK, ul_set_cur_symbol_index(UL_CURRENT, 3, UL_CURRENT, 1));
  EXPECT_EQ(UL_OK, ul_restore_default_unit(UL_CURRENT, 3, 0));
  EXPECT_EQ("1.000", Show(Area, 92903.04));
  EXPECT_EQ(UL_OK, ul_set_cur_unit_index(UL_CURRENT, 3, 4));
  EXPECT_EQ(UL_OK, ul_restore_default_measure(UL_CURRENT, 3));
  EXPECT_EQ(0, Measure(3).cur_unit_index);
  EXPECT_EQ(UL_OK, ul_set_cur_unit_index(1, 3, 4));
  EXPECT_EQ(UL_OK, ul_restore_default_config(1));
  ul_measure_info Info = {};
  EXPECT_EQ(UL_OK, ul_get_measure(1, 3, &Info));
  EXPECT_EQ(0, Info.cur_unit_index);
}

TEST_F(TModel, RestoresTheCurrentConfigurationThenSwitches) {
  EXPECT_EQ(UL_OK, ul_set_cur_unit_index(UL_CURRENT, 3, 4));
  EXPECT_EQ(UL_ERROR_INDEX, ul_restore_default_unit_system(4));
  EXPECT_EQ(4, Measure(3).cur_unit_index) << "nothing was restored";
  EXPECT_EQ(UL_OK, ul_restore_default_unit_system(3));
  int32_t Index = -7;
  EXPECT_EQ(UL_OK, ul_get_cur_config_index(&Index));
  EXPECT_EQ(3, Index);
  ul_measure_info Info = {};
  EXPECT_EQ(UL_OK, ul_get_measure(0, 3, &Info));
  EXPECT_EQ(0, Info.cur_unit_index);
}

TEST_F(TModel, RecomputesExamples) {
  EXPECT_EQ("", MeasureText(3, UL_MEASURE_EXAMPLE_DISPLAY_VALUE));
  EXPECT_EQ(UL_OK,
            ul_set_cur_unit_index(UL_CURRENT, 3, 4)); // square millimetres, three decimals, not grouped
  EXPECT_EQ(UL_OK, ul_update_display_values());
  EXPECT_EQ("1234567890.123", MeasureText(3, UL_MEASURE_EXAMPLE_DISPLAY_VALUE));
}

TEST_F(TModel, ChoosesConfigurations) {
  EXPECT_EQ(UL_OK, ul_set_cur_config_index(2));
  EXPECT_EQ("2000", Show(Length, 2000)) << "millimetres";
  EXPECT_EQ(UL_ERROR_INDEX, ul_set_cur_config_index(4));
  EXPECT_EQ(UL_ERROR_INDEX, ul_set_cur_config_index(-1));
  EXPECT_EQ(UL_OK, ul_configure_unit_system(UL_IN_METRIC)) << "whether or not the file has it";
  ul_config_info Info = {};
  EXPECT_EQ(UL_ERROR_INDEX, ul_get_config(UL_CURRENT, &Info));
  EXPECT_EQ(UL_OK, ul_get_config(0, &Info)) << "the others are still there";
  EXPECT_EQ(UL_OK, ul_set_config_type(UL_US_IMPERIAL, 0)) << "a choice that is there stays";
  int32_t Index = -7;
  EXPECT_EQ(UL_OK, ul_get_cur_config_index(&Index));
  EXPECT_EQ(4, Index);
}

TEST_F(TModel, RefusesPositionsOutsideTheirLists) {
  ul_config_info Config = {-7, -7};
  ul_measure_info Measure = {};
  ul_unit_info Unit = {};
  ul_round_info Round = {};
  ul_switch_info Switch = {};
  int32_t Order = -7;
  for (const int32_t Bad : {-2, 99, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(UL_ERROR_INDEX, ul_get_config(Bad, &Config));
    EXPECT_EQ(UL_ERROR_INDEX, ul_get_measure(Bad, 0, &Measure));
    EXPECT_EQ(UL_ERROR_INDEX, ul_get_measure(UL_CURRENT, Bad, &Measure));
    EXPECT_EQ(UL_ERROR_INDEX, ul_get_unit(UL_CURRENT, 0, Bad, &Unit));
    EXPECT_EQ(UL_ERROR_INDEX, ul_get_round(UL_CURRENT, 0, 0, Bad, &Round));
    EXPECT_EQ(UL_ERROR_INDEX, ul_get_symbol(UL_CURRENT, 0, 0, Bad, &Order));
    EXPECT_EQ(UL_ERROR_ARGUMENT, ul_get_switch(UL_CURRENT, 0, 0, Bad, &Switch));
    EXPECT_EQ(UL_ERROR_ARGUMENT, ul_set_switch(UL_CURRENT, 0, 0, Bad, 1, 1));
    EXPECT_EQ(UL_ERROR_INDEX, ul_get_digit_group(Bad, &Order));
    EXPECT_EQ(UL_ERROR_INDEX, ul_set_cur_unit_index(UL_CURRENT, 0, Bad));
    EXPECT_EQ(UL_ERROR_INDEX, ul_set_cur_round_index(UL_CURRENT, 0, 0, Bad));
    EXPECT_EQ(UL_ERROR_INDEX, ul_set_cur_symbol_index(UL_CURRENT, 0, 0, Bad));
    EXPECT_EQ(UL_ERROR_INDEX, ul_set_increment_u8(UL_CURRENT, 0, 0, Bad, "1", 1));
    EXPECT_EQ(UL_ERROR_INDEX, ul_restore_default_unit(UL_CURRENT, 0, Bad));
    EXPECT_EQ(UL_ERROR_INDEX, ul_restore_default_measure(UL_CURRENT, Bad));
    EXPECT_EQ(UL_ERROR_INDEX, ul_restore_default_config(Bad));
  }
  EXPECT_EQ(UL_ERROR_INDEX, ul_get_measure(UL_CURRENT, -1, &Measure)) << "there is no current measure";
  EXPECT_EQ(UL_ERROR_INDEX, ul_get_unit(UL_CURRENT, 8, UL_CURRENT, &Unit)) << "measure 8 has no current unit";
  EXPECT_EQ(UL_ERROR_INDEX, ul_set_cur_unit_index(UL_CURRENT, 0, UL_CURRENT));
  EXPECT_EQ(-7, Config.measure_count);
  EXPECT_EQ(-7, Order);
}

TEST_F(TModel, RefusesUnknownParts) {
  char Buffer[64];
  for (const int32_t Bad : {-1, 9, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(UL_ERROR_ARGUMENT, ul_get_measure_text_u8(UL_CURRENT, 0, Bad, Buffer, 64, nullptr));
    EXPECT_EQ(UL_ERROR_ARGUMENT, ul_get_unit_text_u8(UL_CURRENT, 0, 0, Bad, Buffer, 64, nullptr));
    EXPECT_EQ(UL_ERROR_ARGUMENT, ul_get_round_text_u8(UL_CURRENT, 0, 0, 0, Bad, Buffer, 64, nullptr));
    EXPECT_EQ(UL_ERROR_ARGUMENT, ul_get_digit_group_text_u8(0, Bad, Buffer, 64, nullptr));
  }
}

} // namespace
} // namespace capi_test
