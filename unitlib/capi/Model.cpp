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
  return Call([&] {
    int32_t& Receiver = Result(Measure);
    const auto& List = ConfigAt(Config).MeasureContainer;
    for (int I = 0; I < List.Count(); ++I)
      if (Fits(List.Item(I))) {
        Receiver = I;
        return static_cast<ul_status>(UL_OK);
      }
    const std::u16string Text = IntToStr(Code);
    return KeepFailure(
        {UL_NOT_FOUND, u"There is no measure with " + std::u16string(What) + u" " + Text, Text});
  });
}

template <class C> ul_status ConfigDescription(int32_t Config, TOut<C> Out) {
  return Call([&] { return Out.Write(ConfigAt(Config).Description); });
}

template <class C> ul_status MeasureText(int32_t Config, int32_t Measure, int32_t Part, TOut<C> Out) {
  return Call([&] {
    const TMeasure& Item = MeasureAt(Config, Measure);
    const std::u16string* const Texts[] = {&Item.Description, &Item.ExampleValue, &Item.ExampleDisplayValue};
    return Out.Write(*Texts[RequireCode(Part, UL_MEASURE_EXAMPLE_DISPLAY_VALUE + 1, u"part of a measure")]);
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
  return Call([&] { return Out.Write(UnitPart(UnitAt(Config, Measure, Unit), Part)); });
}

template <class C>
ul_status RoundText(int32_t Config, int32_t Measure, int32_t Unit, int32_t Round, int32_t Part, TOut<C> Out) {
  return Call([&] {
    const TRound& Item = RoundAt(UnitAt(Config, Measure, Unit), Round);
    const int32_t Known = RequireCode(Part, UL_ROUND_INCREMENT + 1, u"part of a round");
    return Out.Write(Known == UL_ROUND_INCREMENT ? Item.Increment : Item.Description);
  });
}

template <class C>
ul_status SymbolDescription(int32_t Config, int32_t Measure, int32_t Unit, int32_t Symbol, TOut<C> Out) {
  return Call([&] { return Out.Write(SymbolAt(UnitAt(Config, Measure, Unit), Symbol).Description); });
}

template <class C> ul_status DigitGroupText(int32_t Group, int32_t Part, TOut<C> Out) {
  return Call([&] {
    const TDigitGroup& Item = DigitGroupAt(Group);
    const int32_t Known = RequireCode(Part, UL_DIGIT_GROUP_PARSER_CLASS_NAME + 1, u"part of a digit group");
    return Out.Write(Known == UL_DIGIT_GROUP_DESCRIPTION ? Item.Description : Item.DigitGroupParserClassName);
  });
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;
using TManager = unitlib::TSystemUnitDataManager;

ul_status UL_CALL ul_get_config_count(int32_t* count) {
  return Call([&] { Result(count) = TManager::CurUseUnitConfigContainer().Count(); });
}
ul_status UL_CALL ul_get_cur_config_index(int32_t* index) {
  return Call([&] {
    int32_t& Receiver = Result(index);
    TManager::CurUseUnitConfigContainer(); // raises while nothing is loaded
    Receiver = TManager::GetCurConfigIndex();
  });
}
ul_status UL_CALL ul_get_config(int32_t config, ul_config_info* info) {
  return Call([&] {
    ul_config_info& Receiver = Result(info);
    const unitlib::TConfig& Item = ConfigAt(config);
    Receiver = {Item.OrderIndex, Item.MeasureCount()};
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
  return Call([&] {
    ul_measure_info& Receiver = Result(info);
    const unitlib::TMeasure& Item = MeasureAt(config, measure);
    Receiver = {Item.ClassifyCode, Item.OrderIndex, Item.UnitContainer.Count(), Item.DefUnitIndex,
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
  return Call([&] {
    ul_unit_info& Receiver = Result(info);
    const unitlib::TUnit& Item = UnitAt(config, measure, unit);
    Receiver = {Item.UnitIdentifyCode,   Item.OrderIndex,        Item.RoundContainer.Count(),
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
  return Call([&] {
    ul_switch_info& Receiver = Result(info);
    const unitlib::TCheckBoxSetting& Item = SwitchAt(UnitAt(config, measure, unit), which);
    Receiver = {Item.DefEnable, Item.Enable, Item.DefChecked, Item.Checked};
  });
}

ul_status UL_CALL ul_get_round(int32_t config, int32_t measure, int32_t unit, int32_t round,
                               ul_round_info* info) {
  return Call([&] {
    ul_round_info& Receiver = Result(info);
    const unitlib::TRound& Item = RoundAt(UnitAt(config, measure, unit), round);
    Receiver = {Item.OrderIndex, Item.IncrementCanEdit, Item.IncrementCanVisible};
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
  return Call([&] { Result(order_index) = SymbolAt(UnitAt(config, measure, unit), symbol).OrderIndex; });
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
  return Call([&] { Result(count) = TManager::DigitGroupCount(); });
}
ul_status UL_CALL ul_get_cur_digit_group_index(int32_t* index) {
  return Call([&] {
    int32_t& Receiver = Result(index);
    TManager::DigitGroupCount(); // raises while nothing is loaded
    Receiver = TManager::GetCurDigitGroupIndex();
  });
}
ul_status UL_CALL ul_get_digit_group(int32_t group, int32_t* order_index) {
  return Call([&] { Result(order_index) = DigitGroupAt(group).OrderIndex; });
}
ul_status UL_CALL ul_get_digit_group_text(int32_t group, int32_t part, ul_char16* buffer, int32_t capacity,
                                          int32_t* needed) {
  return DigitGroupText(group, part, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_digit_group_text_u8(int32_t group, int32_t part, char* buffer, int32_t capacity,
                                             int32_t* needed) {
  return DigitGroupText(group, part, TOut(buffer, capacity, needed));
}
