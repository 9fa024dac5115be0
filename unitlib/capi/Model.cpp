/// Reading the settings.
#include "unitlib/capi/ModelPlace.h"
#include "unitlib/capi/Texts.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Numbers.h"

namespace unitlib::capi {
namespace {

using TManager = TSystemUnitDataManager;

/// Position of the first measure that fits.
template <class TFits>
ul_status FindMeasure(int32_t Config, int32_t* Measure, const char16_t* What, int32_t Code, TFits Fits) {
  return Answer(Measure, [&] {
    const auto& List = ConfigAt(Config).MeasureContainer;
    for (int I = 0; I < List.Count(); ++I)
      if (Fits(List.Item(I))) return I;
    const std::u16string Text = IntToStr(Code);
    throw TFailure{UL_NOT_FOUND, u"There is no measure with " + std::u16string(What) + u" " + Text, Text};
  });
}

template <class C> ul_status ConfigDescription(int32_t Config, TOut<C> Out) {
  return Give(Out, [&] { return ConfigAt(Config).Description; });
}

template <class C> ul_status MeasureText(int32_t Config, int32_t Measure, int32_t Part, TOut<C> Out) {
  return Give(Out, [&] {
    constexpr std::u16string TMeasure::*Parts[] = {&TMeasure::Description, &TMeasure::ExampleValue,
                                                   &TMeasure::ExampleDisplayValue};
    const int32_t Known = RequireCode(Part, UL_MEASURE_EXAMPLE_DISPLAY_VALUE + 1, u"part of a measure");
    return MeasureAt(Config, Measure).*Parts[Known];
  });
}

std::u16string UnitPart(TUnit& Unit, int32_t Part) {
  switch (RequireCode(Part, UL_UNIT_DEF_CHARACTER + 1, u"part of a unit")) {
  case UL_UNIT_SYMBOL_WHEN_NONE:
    return Unit.DefUnitSymbolWhenNone;
  case UL_UNIT_PARSER_CLASS_NAME:
    return Unit.UnitParserClassName;
  case UL_UNIT_CUR_SYMBOL:
    return Unit.GetCurUnitSymbolDescription();
  case UL_UNIT_DEF_CHARACTER:
    return GetDefUnitCharacter(&Unit);
  default:
    return Unit.Description;
  }
}

template <class C>
ul_status UnitText(int32_t Config, int32_t Measure, int32_t Unit, int32_t Part, TOut<C> Out) {
  return Give(Out, [&] { return UnitPart(UnitAt(Config, Measure, Unit), Part); });
}

template <class C>
ul_status RoundText(int32_t Config, int32_t Measure, int32_t Unit, int32_t Round, int32_t Part, TOut<C> Out) {
  return Give(Out, [&] {
    const int32_t Known = RequireCode(Part, UL_ROUND_INCREMENT + 1, u"part of a round");
    const TRound& Item = RoundAt(UnitAt(Config, Measure, Unit), Round);
    return Known == UL_ROUND_INCREMENT ? Item.Increment : Item.Description;
  });
}

template <class C>
ul_status SymbolDescription(int32_t Config, int32_t Measure, int32_t Unit, int32_t Symbol, TOut<C> Out) {
  return Give(Out, [&] { return SymbolAt(UnitAt(Config, Measure, Unit), Symbol).Description; });
}

template <class C> ul_status DigitGroupText(int32_t Group, int32_t Part, TOut<C> Out) {
  return Give(Out, [&] {
    const int32_t Known = RequireCode(Part, UL_DIGIT_GROUP_PARSER_CLASS_NAME + 1, u"part of a digit group");
    const TDigitGroup& Item = DigitGroupAt(Group);
    return Known == UL_DIGIT_GROUP_DESCRIPTION ? Item.Description : Item.DigitGroupParserClassName;
  });
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;

ul_status UL_CALL ul_get_config_count(int32_t* count) {
  return Answer(count, [&] { return TManager::CurUseUnitConfigContainer().Count(); });
}
ul_status UL_CALL ul_get_cur_config_index(int32_t* index) {
  return Answer(index, [&] {
    TManager::CurUseUnitConfigContainer(); // raises while nothing is loaded
    return TManager::GetCurConfigIndex();
  });
}
ul_status UL_CALL ul_get_config(int32_t config, ul_config_info* info) {
  return Answer(info, [&] {
    const unitlib::TConfig& Item = ConfigAt(config);
    return ul_config_info{Item.OrderIndex, Item.MeasureCount()};
  });
}
ul_status UL_CALL ul_get_config_description(int32_t config, ul_char16* buffer, int32_t capacity,
                                            int32_t* needed) {
  return ConfigDescription(config, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_config_description_u8(int32_t config, char* buffer, int32_t capacity,
                                               int32_t* needed) {
  return ConfigDescription(config, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_find_measure(int32_t config, int32_t classify_code, int32_t* measure) {
  return FindMeasure(config, measure, u"classify code", classify_code,
                     [&](const unitlib::TMeasure& Item) { return Item.ClassifyCode == classify_code; });
}
ul_status UL_CALL ul_find_measure_by_order_index(int32_t config, int32_t order_index, int32_t* measure) {
  return FindMeasure(config, measure, u"order index", order_index,
                     [&](const unitlib::TMeasure& Item) { return Item.OrderIndex == order_index; });
}
ul_status UL_CALL ul_get_measure(int32_t config, int32_t measure, ul_measure_info* info) {
  return Answer(info, [&] {
    const unitlib::TMeasure& Item = MeasureAt(config, measure);
    return ul_measure_info{Item.ClassifyCode, Item.OrderIndex, Item.UnitContainer.Count(), Item.DefUnitIndex,
                           Item.CurUnitIndex};
  });
}
ul_status UL_CALL ul_get_measure_text(int32_t config, int32_t measure, int32_t part, ul_char16* buffer,
                                      int32_t capacity, int32_t* needed) {
  return MeasureText(config, measure, part, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_measure_text_u8(int32_t config, int32_t measure, int32_t part, char* buffer,
                                         int32_t capacity, int32_t* needed) {
  return MeasureText(config, measure, part, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_get_unit(int32_t config, int32_t measure, int32_t unit, ul_unit_info* info) {
  return Answer(info, [&] {
    const unitlib::TUnit& Item = UnitAt(config, measure, unit);
    return ul_unit_info{Item.UnitIdentifyCode,   Item.OrderIndex,        Item.RoundContainer.Count(),
                        Item.DefRoundIndex,      Item.CurRoundIndex,     Item.UnitSymbolContainer.Count(),
                        Item.DefUnitSymbolIndex, Item.CurUnitSymbolIndex};
  });
}
ul_status UL_CALL ul_get_unit_text(int32_t config, int32_t measure, int32_t unit, int32_t part,
                                   ul_char16* buffer, int32_t capacity, int32_t* needed) {
  return UnitText(config, measure, unit, part, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_unit_text_u8(int32_t config, int32_t measure, int32_t unit, int32_t part,
                                      char* buffer, int32_t capacity, int32_t* needed) {
  return UnitText(config, measure, unit, part, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_switch(int32_t config, int32_t measure, int32_t unit, int32_t which,
                                ul_switch_info* info) {
  return Answer(info, [&] {
    const unitlib::TCheckBoxSetting& Item = SwitchAt(UnitAt(config, measure, unit), which);
    return ul_switch_info{Item.DefEnable, Item.Enable, Item.DefChecked, Item.Checked};
  });
}

ul_status UL_CALL ul_get_round(int32_t config, int32_t measure, int32_t unit, int32_t round,
                               ul_round_info* info) {
  return Answer(info, [&] {
    const unitlib::TRound& Item = RoundAt(UnitAt(config, measure, unit), round);
    return ul_round_info{Item.OrderIndex, Item.IncrementCanEdit, Item.IncrementCanVisible};
  });
}
ul_status UL_CALL ul_get_round_text(int32_t config, int32_t measure, int32_t unit, int32_t round,
                                    int32_t part, ul_char16* buffer, int32_t capacity, int32_t* needed) {
  return RoundText(config, measure, unit, round, part, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_round_text_u8(int32_t config, int32_t measure, int32_t unit, int32_t round,
                                       int32_t part, char* buffer, int32_t capacity, int32_t* needed) {
  return RoundText(config, measure, unit, round, part, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_symbol(int32_t config, int32_t measure, int32_t unit, int32_t symbol,
                                int32_t* order_index) {
  return Answer(order_index, [&] { return SymbolAt(UnitAt(config, measure, unit), symbol).OrderIndex; });
}
ul_status UL_CALL ul_get_symbol_description(int32_t config, int32_t measure, int32_t unit, int32_t symbol,
                                            ul_char16* buffer, int32_t capacity, int32_t* needed) {
  return SymbolDescription(config, measure, unit, symbol, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_symbol_description_u8(int32_t config, int32_t measure, int32_t unit, int32_t symbol,
                                               char* buffer, int32_t capacity, int32_t* needed) {
  return SymbolDescription(config, measure, unit, symbol, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_get_digit_group_count(int32_t* count) {
  return Answer(count, [&] { return TManager::DigitGroupCount(); });
}
ul_status UL_CALL ul_get_cur_digit_group_index(int32_t* index) {
  return Answer(index, [&] {
    TManager::DigitGroupCount(); // raises while nothing is loaded
    return TManager::GetCurDigitGroupIndex();
  });
}
ul_status UL_CALL ul_get_digit_group(int32_t group, int32_t* order_index) {
  return Answer(order_index, [&] { return DigitGroupAt(group).OrderIndex; });
}
ul_status UL_CALL ul_get_digit_group_text(int32_t group, int32_t part, ul_char16* buffer, int32_t capacity,
                                          int32_t* needed) {
  return DigitGroupText(group, part, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_digit_group_text_u8(int32_t group, int32_t part, char* buffer, int32_t capacity,
                                             int32_t* needed) {
  return DigitGroupText(group, part, TOut(buffer, capacity, needed));
}
