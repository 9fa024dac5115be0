/// Calls that read the settings.
#include "fuzz/Check.h"
#include "fuzz/capi/Sequence.h"

namespace unitlib::fuzz {

void TCalls::ReadConfig() {
  const std::int32_t Config = FInput.Integer();
  const auto Info =
      ResultOf<ul_config_info>("get_config", [&](ul_config_info* R) { return ul_get_config(Config, R); });
  const auto Count = ResultOf<std::int32_t>("get_config_count", ul_get_config_count);
  ResultOf<std::int32_t>("get_cur_config_index", ul_get_cur_config_index);
  if (Info && Config != UL_CURRENT && Config >= Count.value_or(0))
    FailCall("a configuration outside the list");
  TextOut(
      "get_config_description",
      [&](auto* B, auto C, auto* N) { return ul_get_config_description(Config, B, C, N); },
      [&](auto* B, auto C, auto* N) { return ul_get_config_description_u8(Config, B, C, N); });
  const std::int32_t Wanted = Code();
  const auto Found = ResultOf<std::int32_t>(
      "find_measure", [&](std::int32_t* R) { return ul_find_measure(Config, Wanted, R); });
  if (!Found) return;
  const auto Measure = ResultOf<ul_measure_info>(
      "get_measure", [&](ul_measure_info* R) { return ul_get_measure(Config, *Found, R); });
  if (!Measure || Measure->classify_code != Wanted) FailCall("another measure was found");
}

void TCalls::ReadMeasure() {
  const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Part = FInput.Integer();
  const auto Info = ResultOf<ul_measure_info>(
      "get_measure", [&](ul_measure_info* R) { return ul_get_measure(Config, Measure, R); });
  if (Info && (Info->unit_count < 0)) FailCall("a count below zero");
  TextOut(
      "get_measure_text",
      [&](auto* B, auto C, auto* N) { return ul_get_measure_text(Config, Measure, Part, B, C, N); },
      [&](auto* B, auto C, auto* N) { return ul_get_measure_text_u8(Config, Measure, Part, B, C, N); });
  const std::int32_t Order = FInput.Integer();
  ResultOf<std::int32_t>("find_measure_by_order_index",
                         [&](std::int32_t* R) { return ul_find_measure_by_order_index(Config, Order, R); });
}

void TCalls::ReadUnit() {
  const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer(),
                     Item = FInput.Integer(), Part = FInput.Integer();
  ResultOf<ul_unit_info>("get_unit", [&](ul_unit_info* R) { return ul_get_unit(Config, Measure, Unit, R); });
  ResultOf<ul_round_info>("get_round",
                          [&](ul_round_info* R) { return ul_get_round(Config, Measure, Unit, Item, R); });
  ResultOf<ul_switch_info>("get_switch",
                           [&](ul_switch_info* R) { return ul_get_switch(Config, Measure, Unit, Item, R); });
  ResultOf<std::int32_t>("get_symbol",
                         [&](std::int32_t* R) { return ul_get_symbol(Config, Measure, Unit, Item, R); });
  TextOut(
      "get_unit_text",
      [&](auto* B, auto C, auto* N) { return ul_get_unit_text(Config, Measure, Unit, Part, B, C, N); },
      [&](auto* B, auto C, auto* N) { return ul_get_unit_text_u8(Config, Measure, Unit, Part, B, C, N); });
  TextOut(
      "get_round_text",
      [&](auto* B, auto C, auto* N) { return ul_get_round_text(Config, Measure, Unit, Item, Part, B, C, N); },
      [&](auto* B, auto C, auto* N) {
        return ul_get_round_text_u8(Config, Measure, Unit, Item, Part, B, C, N);
      });
  TextOut(
      "get_symbol_description",
      [&](auto* B, auto C, auto* N) {
        return ul_get_symbol_description(Config, Measure, Unit, Item, B, C, N);
      },
      [&](auto* B, auto C, auto* N) {
        return ul_get_symbol_description_u8(Config, Measure, Unit, Item, B, C, N);
      });
}

void TCalls::ReadDigitGroups() {
  const std::int32_t Group = FInput.Integer(), Part = FInput.Integer();
  ResultOf<std::int32_t>("get_digit_group_count", ul_get_digit_group_count);
  ResultOf<std::int32_t>("get_cur_digit_group_index", ul_get_cur_digit_group_index);
  ResultOf<std::int32_t>("get_digit_group", [&](std::int32_t* R) { return ul_get_digit_group(Group, R); });
  TextOut(
      "get_digit_group_text",
      [&](auto* B, auto C, auto* N) { return ul_get_digit_group_text(Group, Part, B, C, N); },
      [&](auto* B, auto C, auto* N) { return ul_get_digit_group_text_u8(Group, Part, B, C, N); });
}

} // namespace unitlib::fuzz
