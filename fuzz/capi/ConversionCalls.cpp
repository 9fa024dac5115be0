/// Calls that show and read values.
#include "fuzz/Check.h"
#include "fuzz/capi/Sequence.h"
#include "unitlib/convert/ZELUnitConvertor.h"

#include <cmath>

namespace unitlib::fuzz {

void TCalls::StoreToDisplay() {
  const std::int32_t Measure = Code(), AtScale = Scale();
  const std::uint32_t Flags = FInput.Below(34);
  const double Stored = Value();
  const auto Text = TextOut(
      "store_to_display",
      [&](auto* B, auto C, auto* N) { return ul_store_to_display(Measure, Stored, AtScale, Flags, B, C, N); },
      [&](auto* B, auto C, auto* N) {
        return ul_store_to_display_u8(Measure, Stored, AtScale, Flags, B, C, N);
      });
  if (!Text) return;
  const std::u16string Direct =
      TMeasureDataManager::StoreToDisplay(Measure, Stored, AtScale, (Flags & 1) != 0, (Flags & 2) != 0,
                                          (Flags & 4) != 0, (Flags & 8) != 0, (Flags & 16) != 0);
  RequireSame("ul_store_to_display", Stored, *Text, Direct);
}

void TCalls::DisplayToStore() {
  const std::int32_t Measure = Code(), AtScale = Scale();
  const std::uint32_t Flags = FInput.Below(3);
  const TTextIn Text(FInput);
  const auto Valid = ResultOf<std::int32_t>("check_display", [&](std::int32_t* R) {
    return ul_check_display(Measure, Text.Wide(), Text.WideLength(), R);
  });
  const auto Stored = ResultOf<double>("display_to_store", [&](double* R) {
    return ul_display_to_store(Measure, Text.Wide(), Text.WideLength(), AtScale, Flags, R);
  });
  if (Flags == 0 && Valid && (*Valid != 0) != Stored.has_value())
    FailCall("valid, but not read: " + Show(Text.Text()));
  if (Stored && !std::isfinite(*Stored)) FailCall("a value that is not finite: " + Show(Text.Text()));
  if (!Text.HasTwin()) return;
  const auto Twin = ResultOf<double>("display_to_store_u8", [&](double* R) {
    return ul_display_to_store_u8(Measure, Text.Narrow(), Text.NarrowLength(), AtScale, Flags, R);
  });
  if (Twin != Stored) FailCall("the twin reads another value: " + Show(Text.Text()));
}

void TCalls::DecimalValueToStore() {
  const std::int32_t Measure = Code(), AtScale = Scale();
  const double Number = Value();
  const auto Stored = ResultOf<double>("decimal_value_to_store", [&](double* R) {
    return ul_decimal_value_to_store(Measure, Number, AtScale, R);
  });
  if (Stored && !std::isfinite(*Stored)) FailCall("a value that is not finite");
}

void TCalls::IsANum() {
  const std::int32_t Measure = Code(), Reject = FInput.Below(2) ? 1 : 0;
  const TTextIn Text(FInput);
  const auto Ask = [&](std::int32_t How) {
    return ResultOf<std::int32_t>("is_a_num", [&](std::int32_t* R) {
      return ul_is_a_num(Measure, Text.Wide(), Text.WideLength(), How, R);
    });
  };
  const auto Strict = Ask(1), Loose = Ask(0);
  if (Strict && Loose && *Strict > *Loose) FailCall("refusing fractions accepts more: " + Show(Text.Text()));
  if (Reject == 1) Ask(7);
}

void TCalls::ExprToStore() {
  const std::int32_t Measure = Code(), Skip = FInput.Below(2) ? 1 : 0;
  const TTextIn Text(FInput);
  TextWithTwin(
      "expr_to_store", Text,
      [&](auto* B, auto C, auto* N) {
        return ul_expr_to_store(Measure, Text.Wide(), Text.WideLength(), Skip, B, C, N);
      },
      [&](auto* B, auto C, auto* N) {
        return ul_expr_to_store_u8(Measure, Text.Narrow(), Text.NarrowLength(), Skip, B, C, N);
      });
}

void TCalls::UnitSymbol() {
  const std::int32_t Measure = Code(), Empty = FInput.Below(2) ? 1 : 0;
  TextOut(
      "get_unit_symbol",
      [&](auto* B, auto C, auto* N) { return ul_get_unit_symbol(Measure, Empty, B, C, N); },
      [&](auto* B, auto C, auto* N) { return ul_get_unit_symbol_u8(Measure, Empty, B, C, N); });
}

void TCalls::DisplayValue() {
  const TTextIn Text(FInput);
  const auto Shown = TextWithTwin(
      "get_display_value", Text,
      [&](auto* B, auto C, auto* N) { return ul_get_display_value(Text.Wide(), Text.WideLength(), B, C, N); },
      [&](auto* B, auto C, auto* N) {
        return ul_get_display_value_u8(Text.Narrow(), Text.NarrowLength(), B, C, N);
      });
  std::u16string Wanted = Text.Text();
  std::erase_if(Wanted, [](char16_t C) { return C == u'[' || C == u']'; });
  if (Shown != Wanted) FailCall("brackets left in " + Show(Text.Text()));
}

} // namespace unitlib::fuzz
