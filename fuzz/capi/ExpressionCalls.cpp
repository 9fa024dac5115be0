/// Calls of typed arithmetic and elevations.
#include "fuzz/Check.h"
#include "fuzz/capi/Sequence.h"

#include <cmath>

namespace unitlib::fuzz {

void TCalls::Evaluate() {
  const TTextIn Text(FInput);
  std::int32_t IsImperial = 7;
  const auto Result = ResultOf<double>("evaluate", [&](double* R) {
    return ul_evaluate(Text.Wide(), Text.WideLength(), R, R ? &IsImperial : nullptr);
  });
  if (Result.has_value() != (IsImperial == 0 || IsImperial == 1))
    FailCall("imperial or not: " + Show(IsImperial));
  if (Result && !std::isfinite(*Result)) FailCall("a value that is not finite: " + Show(Text.Text()));
  EvaluateColumn(Text, Result);
}

void TCalls::EvaluateColumn(const TTextIn& Text, const std::optional<double>& Wanted) {
  const std::u16string Texts = Text.Text() + Text.Text();
  const auto Size = static_cast<std::int32_t>(Text.Text().size());
  const std::int32_t Offsets[] = {0, Size, Size, 2 * Size};
  double Values[3] = {};
  ul_status Statuses[3] = {-1, -1, -1};
  Trace("evaluate_column");
  const ul_status Status = Checked(ul_evaluate_column(Texts.data(), Offsets, 3, Values, nullptr, Statuses));
  if (Status == UL_ERROR_NOT_LOADED || Status == UL_ERROR_INDEX) return;
  if (Status != UL_ITEMS_FAILED) FailCall("an empty text has a value");
  if (Statuses[1] == UL_OK || !std::isnan(Values[1])) FailCall("an empty item has a value");
  for (const int I : {0, 2}) {
    if ((Statuses[I] == UL_OK) != Wanted.has_value()) FailCall("an item's status differs from the call's");
    if (Wanted && Values[I] != *Wanted) FailCall("an item's value differs from the call's");
    if (!Wanted && !std::isnan(Values[I])) FailCall("a failed item has a value");
  }
}

void TCalls::ExpressionToStore() {
  const std::int32_t Measure = Code(), AtScale = Scale();
  const TTextIn Text(FInput);
  const auto Stored = ResultOf<double>("expression_to_store", [&](double* R) {
    return ul_expression_to_store(Measure, Text.Wide(), Text.WideLength(), AtScale, R);
  });
  if (Stored && !std::isfinite(*Stored)) FailCall("a value that is not finite: " + Show(Text.Text()));
}

void TCalls::Elevation() {
  const TTextIn Text(FInput);
  const auto Valid = ResultOf<std::int32_t>("check_elev_edit_value", [&](std::int32_t* R) {
    return ul_check_elev_edit_value(Text.Wide(), Text.WideLength(), R);
  });
  const auto Store = TextWithTwin(
      "get_elev_store_value", Text,
      [&](auto* B, auto C, auto* N) {
        return ul_get_elev_store_value(Text.Wide(), Text.WideLength(), B, C, N);
      },
      [&](auto* B, auto C, auto* N) {
        return ul_get_elev_store_value_u8(Text.Narrow(), Text.NarrowLength(), B, C, N);
      });
  if (Valid == 0 && Store && *Store != Text.Text()) FailCall("a refused elevation changed");
  TextWithTwin(
      "get_elev_edit_value", Text,
      [&](auto* B, auto C, auto* N) {
        return ul_get_elev_edit_value(Text.Wide(), Text.WideLength(), B, C, N);
      },
      [&](auto* B, auto C, auto* N) {
        return ul_get_elev_edit_value_u8(Text.Narrow(), Text.NarrowLength(), B, C, N);
      });
  TextWithTwin(
      "get_elev_display_value", Text,
      [&](auto* B, auto C, auto* N) {
        return ul_get_elev_display_value(Text.Wide(), Text.WideLength(), B, C, N);
      },
      [&](auto* B, auto C, auto* N) {
        return ul_get_elev_display_value_u8(Text.Narrow(), Text.NarrowLength(), B, C, N);
      });
}

} // namespace unitlib::fuzz
