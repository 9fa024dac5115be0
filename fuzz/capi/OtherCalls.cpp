/// Digit groups, parsers, listeners, columns, arguments that cannot be, the last error.
#include "fuzz/Check.h"
#include "fuzz/capi/Sequence.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace unitlib::fuzz {

void TCalls::GroupDigits() {
  const TTextIn Name(FInput), Text(FInput);
  const auto Grouped = TextOut(
      "group_digits",
      [&](auto* B, auto C, auto* N) {
        return ul_group_digits(Name.Wide(), Name.WideLength(), Text.Wide(), Text.WideLength(), B, C, N);
      },
      Name.HasTwin() && Text.HasTwin() ? TNarrowOut([&](auto* B, auto C, auto* N) {
        return ul_group_digits_u8(Name.Narrow(), Name.NarrowLength(), Text.Narrow(), Text.NarrowLength(), B,
                                  C, N);
      })
                                       : TNarrowOut());
  if (!Grouped) FailCall("digits are always grouped");
}

void TCalls::HasParser() {
  const TTextIn Name(FInput);
  const auto Present = ResultOf<std::int32_t>("has_unit_parser", [&](std::int32_t* R) {
    return ul_has_unit_parser(Name.Wide(), Name.WideLength(), R);
  });
  if (!Present) FailCall("an answer about every name");
  Trace("register a parser that cannot be");
  if (*Present && Checked(ul_register_unit_parser(Name.Wide(), Name.WideLength(), 1.0)) != UL_ERROR_ARGUMENT)
    FailCall("a name was registered twice");
  for (const double Size : {0.0, -1.0, std::nan(""), HUGE_VAL})
    if (Checked(ul_register_unit_parser(Name.Wide(), Name.WideLength(), Size)) != UL_ERROR_ARGUMENT)
      FailCall("a parser of size " + Show(Size));
}

void UL_CALL TCalls::Listener(void* Context) {
  ++static_cast<TCalls*>(Context)->FFired;
}

void TCalls::Listeners() {
  Trace("listeners");
  Checked(ul_attach_refresh_unit(Listener, this));
  Checked(ul_attach_refresh_unit(Listener, this));
  FFired = 0;
  Checked(ul_refresh_unit());
  if (FFired != 1) FailCall("a listener that was attached twice was called " + Show(FFired) + " times");
  Checked(ul_detach_refresh_unit(Listener, this));
  Checked(ul_refresh_unit());
  if (FFired != 1) FailCall("a listener was called after it was detached");
  if (Checked(ul_attach_refresh_unit(nullptr, this)) != UL_ERROR_ARGUMENT) FailCall("a null listener");
}

void TCalls::Columns() {
  const std::int32_t Measure = Code();
  double Values[3] = {Value(), 1676.4, Value()};
  std::int32_t Offsets[4] = {-1, -1, -1, -1}, Needed = -1;
  ul_status Statuses[3] = {-1, -1, -1};
  ul_char16 Buffer[2000];
  Trace("store_to_display_column");
  const ul_status Status = Checked(ul_store_to_display_column(Measure, Values, 3, UL_BASE_SCALE, 0, Buffer,
                                                              2000, &Needed, Offsets, Statuses));
  if (Status != UL_OK && Status != UL_ITEMS_FAILED) return;
  for (int I = 0; I < 3; ++I) {
    if (Offsets[I] < 0 || Offsets[I + 1] < Offsets[I]) FailCall("offsets that do not rise");
    const auto One = TextOut("store_to_display",
                             [&](auto* B, auto C, auto* N) {
                               return ul_store_to_display(Measure, Values[I], UL_BASE_SCALE, 0, B, C, N);
                             },
                             {});
    const std::u16string Item(Buffer + Offsets[I], Buffer + Offsets[I + 1]);
    if (One.has_value() != (Statuses[I] == UL_OK) || One.value_or(u"") != Item)
      FailCall("an item of a column differs from the single call");
  }
}

void TCalls::Arguments() {
  Trace("arguments that cannot be");
  const TTextIn Text(FInput);
  std::int32_t Valid = 5, Needed = 5;
  for (const std::int32_t Length : {-2, INT32_MIN, 1})
    if (Checked(ul_check_display(0, nullptr, Length, &Valid)) != UL_ERROR_ARGUMENT) FailCall("a null text");
  if (Checked(ul_get_display_value(Text.Wide(), -2, nullptr, 0, &Needed)) != UL_ERROR_ARGUMENT)
    FailCall("a length below zero");
  if (Checked(ul_get_display_value_u8("\xC0\x80", 2, nullptr, 0, &Needed)) != UL_ERROR_ENCODING)
    FailCall("an overlong character");
  if (Checked(ul_get_display_value(nullptr, 0, nullptr, 5, &Needed)) != UL_ERROR_ARGUMENT)
    FailCall("no buffer of 5");
  const auto Dialogs = ResultOf<std::int32_t>("dialogs_available", ul_dialogs_available);
  std::int32_t Outcome = 9;
  if (Dialogs != 0 || Checked(ul_project_units_dialog(0, nullptr, 0, nullptr, nullptr, nullptr, nullptr,
                                                      &Outcome)) != UL_ERROR_NOT_AVAILABLE)
    FailCall("a dialog");
}

void TCalls::LastErrorText() {
  Trace("last_error_text");
  const std::int32_t Part = FInput.Integer();
  ul_error Before{}, After{};
  std::int32_t Needed = -7;
  if (ul_last_error(&Before) != UL_OK) FailCall("no last error");
  const ul_status Status = ul_last_error_text(Part, nullptr, 0, &Needed);
  const bool IsPart = Part >= UL_LAST_MESSAGE && Part <= UL_LAST_ATTRIBUTE;
  if (Status != (IsPart ? UL_BUFFER_TOO_SMALL : UL_ERROR_ARGUMENT)) FailCall("status " + Show(Status));
  std::vector<ul_char16> Buffer(static_cast<std::size_t>(std::max(Needed, 1)), u'#');
  if (IsPart && (ul_last_error_text(Part, Buffer.data(), Needed, &Needed) != UL_OK || Buffer.back() != 0))
    FailCall("the text of the last error does not fit where it said");
  if (ul_last_error(&After) != UL_OK || std::memcmp(&Before, &After, sizeof Before) != 0)
    FailCall("another last error after asking about it");
}

} // namespace unitlib::fuzz
