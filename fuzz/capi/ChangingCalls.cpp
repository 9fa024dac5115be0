/// Calls that change the settings.
#include "fuzz/Check.h"
#include "fuzz/capi/Sequence.h"

namespace unitlib::fuzz {

void TCalls::Choose() {
  const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer(),
                     Item = FInput.Integer();
  const unsigned Which = FInput.Below(6);
  Trace("choose " + Show(static_cast<int>(Which)));
  const ul_status Status = Checked(Which == 0   ? ul_set_cur_config_index(Config)
                                   : Which == 1 ? ul_set_cur_unit_index(Config, Measure, Unit)
                                   : Which == 2 ? ul_set_cur_round_index(Config, Measure, Unit, Item)
                                   : Which == 3 ? ul_set_cur_symbol_index(Config, Measure, Unit, Item)
                                   : Which == 4 ? ul_set_cur_digit_group_index(Item)
                                                : ul_configure_unit_system(Item));
  if (Status != UL_OK || Which != 1) return;
  ul_measure_info Info{};
  if (ul_get_measure(Config, Measure, &Info) != UL_OK || (Unit != UL_CURRENT && Info.cur_unit_index != Unit))
    FailCall("the unit that was chosen is not current");
}

void TCalls::ChooseByText() {
  const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer();
  const unsigned Which = FInput.Below(4);
  const TTextIn Text(FInput);
  Trace("choose by text " + Show(static_cast<int>(Which)));
  const auto* T = Text.Wide();
  const std::int32_t L = Text.WideLength();
  Checked(Which == 0   ? ul_set_cur_unit(Config, Measure, T, L)
          : Which == 1 ? ul_set_cur_round(Config, Measure, Unit, T, L)
          : Which == 2 ? ul_set_cur_symbol(Config, Measure, Unit, T, L)
                       : ul_set_cur_digit_group(T, L));
}

void TCalls::SetIncrement() {
  const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer(),
                     Round = FInput.Integer();
  const TTextIn Text(FInput);
  Trace("set_increment");
  if (Checked(ul_set_increment(Config, Measure, Unit, Round, Text.Wide(), Text.WideLength())) != UL_OK)
    return;
  const auto Set =
      TextOut("get_round_text",
              [&](auto* B, auto C, auto* N) {
                return ul_get_round_text(Config, Measure, Unit, Round, UL_ROUND_INCREMENT, B, C, N);
              },
              {});
  if (Set != Text.Text()) FailCall("another increment than was set");
}

void TCalls::SetSwitch() {
  const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer(),
                     Which = FInput.Integer(), Enable = FInput.Integer(), Ticked = FInput.Integer();
  Trace("set_switch");
  if (Checked(ul_set_switch(Config, Measure, Unit, Which, Enable, Ticked)) != UL_OK) return;
  ul_switch_info Info{};
  if (ul_get_switch(Config, Measure, Unit, Which, &Info) != UL_OK || Info.enable != (Enable != 0) ||
      Info.checked != (Ticked != 0))
    FailCall("another switch than was set");
}

void TCalls::Restore() {
  const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer();
  const unsigned Which = FInput.Below(5);
  Trace("restore " + Show(static_cast<int>(Which)));
  Checked(Which == 0   ? ul_restore_default_unit(Config, Measure, Unit)
          : Which == 1 ? ul_restore_default_measure(Config, Measure)
          : Which == 2 ? ul_restore_default_config(Config)
          : Which == 3 ? ul_restore_default_unit_system(Config)
                       : ul_update_display_values());
}

} // namespace unitlib::fuzz
