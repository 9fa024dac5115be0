/// Columns: many values in one call. Results are gathered first and handed out only when the call is known to
/// succeed.
#include "unitlib/capi/Conversions.h"
#include "unitlib/capi/Texts.h"

#include <algorithm>
#include <limits>
#include <new>
#include <vector>

namespace unitlib::capi {
namespace {

constexpr double NoValue = std::numeric_limits<double>::quiet_NaN(); // in no sum unnoticed

size_t RequireCount(int32_t Count) {
  if (Count < 0) FailArgument(u"A column has a negative count");
  return static_cast<size_t>(Count);
}

template <class T> void RequireArray(const T* Array, size_t Count) {
  if (!Array && Count > 0) FailArgument(u"An array of a column is null");
}

/// The statuses of the items while a column is converted.
class TItemStatuses {
public:
  TItemStatuses(size_t Count, ul_status* Receiver) : FStatuses(Receiver ? Count : 0), FReceiver(Receiver) {}

  /// Converts every item. Without a receiver the first failure ends the call with its status.
  template <class TConvert> ul_status Run(size_t Count, TConvert Convert) {
    ul_status Outcome = UL_OK;
    for (size_t I = 0; I < Count; ++I) {
      try {
        Convert(I);
      } catch (const std::bad_alloc&) {
        throw; // about the call, not the item
      } catch (...) {
        if (!FReceiver) return KeepException(static_cast<int32_t>(I));
        FStatuses[I] =
            Outcome == UL_OK ? KeepException(static_cast<int32_t>(I)) : DescribeException().Info.code;
        Outcome = UL_ITEMS_FAILED;
      }
    }
    return Outcome;
  }

  void HandOut() const { std::copy(FStatuses.begin(), FStatuses.end(), FReceiver); }

private:
  std::vector<ul_status> FStatuses;
  ul_status* FReceiver;
};

bool HasResults(ul_status Outcome) {
  return Outcome == UL_OK || Outcome == UL_ITEMS_FAILED;
}

/// A column of texts handed in.
template <class C> class TTexts {
public:
  /// errors      TFailure a null pointer, a negative count, offsets that fall
  TTexts(const C* Texts, const int32_t* Offsets, int32_t Count)
      : FTexts(Texts), FOffsets(Offsets), FCount(RequireCount(Count)) {
    RequireArray(Offsets, FCount);
    if (FCount == 0) return;
    if (Offsets[0] < 0 || !std::is_sorted(Offsets, Offsets + FCount + 1))
      FailArgument(u"The offsets of a column are negative or fall");
    RequireArray(Texts, static_cast<size_t>(Offsets[FCount]));
  }

  size_t Count() const noexcept { return FCount; }
  std::u16string Item(size_t I) const {
    if (!FTexts) return {};
    return Read(TIn<C>{FTexts + FOffsets[I], FOffsets[I + 1] - FOffsets[I]});
  }

private:
  const C* FTexts;
  const int32_t* FOffsets;
  size_t FCount;
};

template <class C>
ul_status ShowColumn(int32_t Measure, const double* Values, int32_t CountGiven, int32_t Scale, uint32_t Flags,
                     TOut<C> Out, int32_t* Offsets, ul_status* Statuses) {
  return Call([&] {
    const size_t Count = RequireCount(CountGiven);
    RequireArray(Values, Count);
    RequireArray(Offsets, Count + 1);
    Out.Require();
    const TDisplayFlags Wanted = ReadDisplayFlags(Flags);
    if (Measure != UL_NO_MEASURE) RequireParser(Measure);

    std::basic_string<C> Texts;
    std::vector<int32_t> Ends(Count + 1);
    TItemStatuses Items(Count, Statuses);
    const ul_status Outcome = Items.Run(Count, [&](size_t I) {
      Ends[I + 1] = Ends[I];
      AppendUnits(Texts, DisplayText(Measure, Values[I], Scale, Wanted));
      Ends[I + 1] = CheckedLength(Texts.size());
    });
    if (!HasResults(Outcome)) return Outcome;
    if (const ul_status Status = Out.WriteRaw(Texts); Status != UL_OK) return Status;
    std::copy(Ends.begin(), Ends.end(), Offsets);
    Items.HandOut();
    return Outcome;
  });
}

/// Turns every text into a value by Convert(text, place of the value in its column).
template <class C, class TConvert>
ul_status ReadColumn(const TTexts<C>& Texts, double* Values, int32_t* IsImperial, ul_status* Statuses,
                     TConvert Convert) {
  std::vector<double> Results(Texts.Count(), NoValue);
  std::vector<int32_t> Imperial(IsImperial ? Texts.Count() : 0);
  TItemStatuses Items(Texts.Count(), Statuses);
  const ul_status Outcome = Items.Run(Texts.Count(), [&](size_t I) {
    const TEvaluation Evaluation = Convert(Texts.Item(I));
    Results[I] = Evaluation.Value;
    if (IsImperial) Imperial[I] = Evaluation.IsImperial;
  });
  if (!HasResults(Outcome)) return Outcome;
  std::copy(Results.begin(), Results.end(), Values);
  std::copy(Imperial.begin(), Imperial.end(), IsImperial);
  Items.HandOut();
  return Outcome;
}

template <class C>
ul_status StoreColumn(int32_t Measure, const C* Texts, const int32_t* Offsets, int32_t Count, int32_t Scale,
                      uint32_t Flags, double* Values, ul_status* Statuses) {
  return Call([&] {
    const TTexts Column(Texts, Offsets, Count);
    RequireArray(Values, Column.Count());
    const bool Checked = ReadCheckFlag(Flags);
    RequireParser(Measure);
    return ReadColumn(Column, Values, nullptr, Statuses, [&](const std::u16string& Text) {
      return TEvaluation{StoredValue(Measure, Text, Scale, Checked), false};
    });
  });
}

template <class C>
ul_status EvaluateColumn(const C* Texts, const int32_t* Offsets, int32_t Count, double* Values,
                         int32_t* IsImperial, ul_status* Statuses) {
  return Call([&] {
    const TTexts Column(Texts, Offsets, Count);
    RequireArray(Values, Column.Count());
    RequireExpressions();
    return ReadColumn(Column, Values, IsImperial, Statuses,
                      [](const std::u16string& Text) { return Evaluate(Text); });
  });
}

template <class C>
ul_status StoreExpressionColumn(int32_t Measure, const C* Texts, const int32_t* Offsets, int32_t Count,
                                int32_t Scale, double* Values, ul_status* Statuses) {
  return Call([&] {
    const TTexts Column(Texts, Offsets, Count);
    RequireArray(Values, Column.Count());
    RequireParser(Measure);
    RequireExpressions();
    return ReadColumn(Column, Values, nullptr, Statuses, [&](const std::u16string& Text) {
      return TEvaluation{ExpressionValue(Measure, Text, Scale), false};
    });
  });
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;

ul_status UL_CALL ul_store_to_display_column(int32_t measure, const double* values, int32_t count,
                                             int32_t scale, uint32_t flags, ul_char16* buffer,
                                             int32_t capacity, int32_t* needed, int32_t* offsets,
                                             ul_status* statuses) {
  return ShowColumn(measure, values, count, scale, flags, TOut(buffer, capacity, needed), offsets, statuses);
}
ul_status UL_CALL ul_store_to_display_column_u8(int32_t measure, const double* values, int32_t count,
                                                int32_t scale, uint32_t flags, char* buffer, int32_t capacity,
                                                int32_t* needed, int32_t* offsets, ul_status* statuses) {
  return ShowColumn(measure, values, count, scale, flags, TOut(buffer, capacity, needed), offsets, statuses);
}

ul_status UL_CALL ul_display_to_store_column(int32_t measure, const ul_char16* texts, const int32_t* offsets,
                                             int32_t count, int32_t scale, uint32_t flags, double* values,
                                             ul_status* statuses) {
  return StoreColumn(measure, texts, offsets, count, scale, flags, values, statuses);
}
ul_status UL_CALL ul_display_to_store_column_u8(int32_t measure, const char* texts, const int32_t* offsets,
                                                int32_t count, int32_t scale, uint32_t flags, double* values,
                                                ul_status* statuses) {
  return StoreColumn(measure, texts, offsets, count, scale, flags, values, statuses);
}

ul_status UL_CALL ul_evaluate_column(const ul_char16* texts, const int32_t* offsets, int32_t count,
                                     double* values, int32_t* is_imperial, ul_status* statuses) {
  return EvaluateColumn(texts, offsets, count, values, is_imperial, statuses);
}
ul_status UL_CALL ul_evaluate_column_u8(const char* texts, const int32_t* offsets, int32_t count,
                                        double* values, int32_t* is_imperial, ul_status* statuses) {
  return EvaluateColumn(texts, offsets, count, values, is_imperial, statuses);
}

ul_status UL_CALL ul_expression_to_store_column(int32_t measure, const ul_char16* texts,
                                                const int32_t* offsets, int32_t count, int32_t scale,
                                                double* values, ul_status* statuses) {
  return StoreExpressionColumn(measure, texts, offsets, count, scale, values, statuses);
}
ul_status UL_CALL ul_expression_to_store_column_u8(int32_t measure, const char* texts, const int32_t* offsets,
                                                   int32_t count, int32_t scale, double* values,
                                                   ul_status* statuses) {
  return StoreExpressionColumn(measure, texts, offsets, count, scale, values, statuses);
}
