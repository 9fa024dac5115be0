/// Changing the settings.
#include "unitlib/capi/ModelPlace.h"
#include "unitlib/capi/Texts.h"
#include "unitlib/model/SelectByDescription.h"
#include "unitlib/model/ZELUnitMgr.h"

namespace unitlib::capi {
namespace {

using TManager = TSystemUnitDataManager;

/// Makes the item with this description current. errors      TFailure there is none, and the index stays
template <class T> void Select(const TOwningList<T>& List, const std::u16string& Wanted, int& Index) {
  int Found = -1;
  SelectByDescription(List, Wanted, Found);
  if (Found < 0)
    throw TFailure{UL_NOT_FOUND, u"There is no item with description \"" + Wanted + u"\"", Wanted};
  Index = Found;
}

template <class C> ul_status SelectUnit(int32_t Config, int32_t Measure, TIn<C> Description) {
  return Call([&] {
    const std::u16string Wanted = Read(Description);
    TMeasure& Item = MeasureAt(Config, Measure);
    Select(Item.UnitContainer, Wanted, Item.CurUnitIndex);
  });
}

template <class C> ul_status SelectRound(int32_t Config, int32_t Measure, int32_t Unit, TIn<C> Description) {
  return Call([&] {
    const std::u16string Wanted = Read(Description);
    TUnit& Item = UnitAt(Config, Measure, Unit);
    Select(Item.RoundContainer, Wanted, Item.CurRoundIndex);
  });
}

template <class C> ul_status SelectSymbol(int32_t Config, int32_t Measure, int32_t Unit, TIn<C> Description) {
  return Call([&] {
    const std::u16string Wanted = Read(Description);
    TUnit& Item = UnitAt(Config, Measure, Unit);
    Select(Item.UnitSymbolContainer, Wanted, Item.CurUnitSymbolIndex);
  });
}

template <class C> ul_status SelectDigitGroup(TIn<C> Description) {
  return Call([&] {
    const std::u16string Wanted = Read(Description);
    TManager::DigitGroupCount(); // raises while nothing is loaded
    Select(*TManager::FCurUseDigitGroupContainer, Wanted, TManager::FCurDigitGroupIndex);
  });
}

template <class C>
ul_status ChangeIncrement(int32_t Config, int32_t Measure, int32_t Unit, int32_t Round, TIn<C> Increment) {
  return Call([&] {
    const std::u16string Text = Read(Increment);
    RoundAt(UnitAt(Config, Measure, Unit), Round).SetIncrement(Text);
  });
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;

ul_status UL_CALL ul_set_cur_config_index(int32_t index) {
  return Call([&] {
    TManager::CurUseUnitConfigContainer().Item(index); // raises outside the list
    TManager::SetCurConfig(index);
  });
}
ul_status UL_CALL ul_set_config_type(int32_t config_type, int32_t save) {
  return Call([&] {
    const unitlib::TConfigueType Type = RequireConfigType(config_type);
    TManager::CurUseUnitConfigContainer(); // raises while nothing is loaded
    TManager::SetCurretnConfigueType(Type, save != 0);
  });
}
ul_status UL_CALL ul_configure_unit_system(int32_t config_type) {
  return Call([&] {
    const unitlib::TConfigueType Type = RequireConfigType(config_type);
    TManager::CurUseUnitConfigContainer();
    TManager::ConfigueUnitSystem(Type);
  });
}

ul_status UL_CALL ul_set_cur_unit_index(int32_t config, int32_t measure, int32_t unit) {
  return Call([&] {
    unitlib::TMeasure& Item = MeasureAt(config, measure);
    Item.GetUnit(unit); // raises outside the list
    Item.CurUnitIndex = unit;
  });
}
ul_status UL_CALL ul_set_cur_round_index(int32_t config, int32_t measure, int32_t unit, int32_t round) {
  return Call([&] {
    unitlib::TUnit& Item = UnitAt(config, measure, unit);
    Item.RoundContainer.Item(round);
    Item.CurRoundIndex = round;
  });
}
ul_status UL_CALL ul_set_cur_symbol_index(int32_t config, int32_t measure, int32_t unit, int32_t symbol) {
  return Call([&] {
    unitlib::TUnit& Item = UnitAt(config, measure, unit);
    Item.UnitSymbolContainer.Item(symbol);
    Item.CurUnitSymbolIndex = symbol;
  });
}
ul_status UL_CALL ul_set_cur_digit_group_index(int32_t index) {
  return Call([&] {
    TManager::DigitGroup(index); // raises outside the list
    TManager::SetCurDigitGroupIndex(index);
  });
}

ul_status UL_CALL ul_set_cur_unit(int32_t config, int32_t measure, const ul_char16* description,
                                  int32_t length) {
  return SelectUnit(config, measure, TIn{description, length});
}
ul_status UL_CALL ul_set_cur_unit_u8(int32_t config, int32_t measure, const char* description,
                                     int32_t length) {
  return SelectUnit(config, measure, TIn{description, length});
}
ul_status UL_CALL ul_set_cur_round(int32_t config, int32_t measure, int32_t unit,
                                   const ul_char16* description, int32_t length) {
  return SelectRound(config, measure, unit, TIn{description, length});
}
ul_status UL_CALL ul_set_cur_round_u8(int32_t config, int32_t measure, int32_t unit, const char* description,
                                      int32_t length) {
  return SelectRound(config, measure, unit, TIn{description, length});
}
ul_status UL_CALL ul_set_cur_symbol(int32_t config, int32_t measure, int32_t unit,
                                    const ul_char16* description, int32_t length) {
  return SelectSymbol(config, measure, unit, TIn{description, length});
}
ul_status UL_CALL ul_set_cur_symbol_u8(int32_t config, int32_t measure, int32_t unit, const char* description,
                                       int32_t length) {
  return SelectSymbol(config, measure, unit, TIn{description, length});
}
ul_status UL_CALL ul_set_cur_digit_group(const ul_char16* description, int32_t length) {
  return SelectDigitGroup(TIn{description, length});
}
ul_status UL_CALL ul_set_cur_digit_group_u8(const char* description, int32_t length) {
  return SelectDigitGroup(TIn{description, length});
}

ul_status UL_CALL ul_set_increment(int32_t config, int32_t measure, int32_t unit, int32_t round,
                                   const ul_char16* increment, int32_t length) {
  return ChangeIncrement(config, measure, unit, round, TIn{increment, length});
}
ul_status UL_CALL ul_set_increment_u8(int32_t config, int32_t measure, int32_t unit, int32_t round,
                                      const char* increment, int32_t length) {
  return ChangeIncrement(config, measure, unit, round, TIn{increment, length});
}

ul_status UL_CALL ul_set_switch(int32_t config, int32_t measure, int32_t unit, int32_t which, int32_t enable,
                                int32_t checked) {
  return Call([&] {
    unitlib::TCheckBoxSetting* Setting = &SwitchAt(UnitAt(config, measure, unit), which);
    unitlib::SetCheckBoxSetting(Setting, enable != 0, checked != 0);
  });
}

ul_status UL_CALL ul_restore_default_unit(int32_t config, int32_t measure, int32_t unit) {
  return Call([&] { UnitAt(config, measure, unit).RestoreDefault(); });
}
ul_status UL_CALL ul_restore_default_measure(int32_t config, int32_t measure) {
  return Call([&] { MeasureAt(config, measure).RestoreDefault(); });
}
ul_status UL_CALL ul_restore_default_config(int32_t config) {
  return Call([&] { ConfigAt(config).RestoreDefault(); });
}
ul_status UL_CALL ul_restore_default_unit_system(int32_t index) {
  return Call([&] {
    TManager::CurUseUnitConfigContainer().Item(index); // raises outside the list, before anything is restored
    TManager::RestoreDefaultUnitSystem(index);
  });
}

ul_status UL_CALL ul_update_display_values(void) {
  return Call([] { TManager::UpdateDispalyValue(); });
}
