/// Texts as people type them.
#include "unitlib/typing/ReadTyped.h"

#include "unitlib/capi/Conversions.h"
#include "unitlib/capi/Texts.h"

#include <limits>

namespace unitlib::capi {
namespace {

TTypedOptions ReadTypedFlags(uint32_t Flags, int32_t Scale) {
  constexpr uint32_t Languages = UL_TYPED_GERMAN | UL_TYPED_FRENCH | UL_TYPED_SPANISH | UL_TYPED_CHINESE;
  if (Flags & ~(UL_TYPED_EXPRESSION | UL_TYPED_DECIMAL_COMMA | Languages))
    FailArgument(u"Unknown flag of the typed reader");
  TTypedOptions Options;
  Options.Kind = Flags & UL_TYPED_EXPRESSION ? TTypedKind::Expression : TTypedKind::SingleValue;
  Options.DecimalComma = (Flags & UL_TYPED_DECIMAL_COMMA) != 0;
  Options.ScaleIndex = Scale;
  if (Flags & UL_TYPED_GERMAN) Options.Languages |= tlGerman;
  if (Flags & UL_TYPED_FRENCH) Options.Languages |= tlFrench;
  if (Flags & UL_TYPED_SPANISH) Options.Languages |= tlSpanish;
  if (Flags & UL_TYPED_CHINESE) Options.Languages |= tlChinese;
  return Options;
}

template <class C> TTypedReading ReadGiven(int32_t Measure, TIn<C> Given, int32_t Scale, uint32_t Flags) {
  const std::u16string Text = Read(Given);
  const TTypedOptions Options = ReadTypedFlags(Flags, Scale);
  RequireParser(Measure);
  return ReadTyped(Measure, Text, Options);
}

template <class C>
ul_status ReadAsTyped(int32_t Measure, TIn<C> Given, int32_t Scale, uint32_t Flags, double* Value,
                      ul_typed_info* Info) {
  return Call([&] {
    double& Stored = Result(Value);
    ul_typed_info& Told = Result(Info);
    const TTypedReading Reading = ReadGiven(Measure, Given, Scale, Flags);
    Stored = Reading.HasValue ? Reading.StoreValue : std::numeric_limits<double>::quiet_NaN();
    Told = {};
    Told.problem = static_cast<int32_t>(Reading.Problem);
    Told.has_value = Reading.HasValue;
    Told.position = Reading.Accepted ? -1 : CheckedLength(Reading.Offset);
    Told.suggestions = CheckedLength(Reading.Suggestions.size());
    Told.steps = CheckedLength(Reading.Steps.size());
  });
}

template <class TList> const auto& ItemAt(const TList& List, int32_t Index) {
  if (Index >= 0 && static_cast<size_t>(Index) < List.size()) return List[static_cast<size_t>(Index)];
  throw TFailure{UL_ERROR_INDEX, u"The reading has no text at this position"};
}

std::u16string PartOf(const TTypedReading& Reading, int32_t Part, int32_t Index) {
  switch (Part) {
  case UL_TYPED_REWRITTEN:
    return Reading.Rewritten;
  case UL_TYPED_UNDERSTOOD:
    return Reading.Understood;
  case UL_TYPED_REASON:
    return Reading.Reason;
  case UL_TYPED_SUGGESTION:
    return ItemAt(Reading.Suggestions, Index);
  case UL_TYPED_STEP_NAME:
    return ItemAt(Reading.Steps, Index).Name;
  case UL_TYPED_STEP_TEXT:
    return ItemAt(Reading.Steps, Index).Text;
  default:
    FailArgument(u"Unknown part of a reading");
  }
}

template <class C>
ul_status TypedText(int32_t Measure, TIn<C> Given, uint32_t Flags, int32_t Part, int32_t Index, TOut<C> Out) {
  return Give(Out, [&] { return PartOf(ReadGiven(Measure, Given, UL_BASE_SCALE, Flags), Part, Index); });
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;

ul_status UL_CALL ul_read_typed(int32_t measure, const ul_char16* text, int32_t length, int32_t scale,
                                uint32_t flags, double* value, ul_typed_info* info) {
  return ReadAsTyped(measure, TIn{text, length}, scale, flags, value, info);
}
ul_status UL_CALL ul_read_typed_u8(int32_t measure, const char* text, int32_t length, int32_t scale,
                                   uint32_t flags, double* value, ul_typed_info* info) {
  return ReadAsTyped(measure, TIn{text, length}, scale, flags, value, info);
}

ul_status UL_CALL ul_get_typed_text(int32_t measure, const ul_char16* text, int32_t length, uint32_t flags,
                                    int32_t part, int32_t index, ul_char16* buffer, int32_t capacity,
                                    int32_t* needed) {
  return TypedText(measure, TIn{text, length}, flags, part, index, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_typed_text_u8(int32_t measure, const char* text, int32_t length, uint32_t flags,
                                       int32_t part, int32_t index, char* buffer, int32_t capacity,
                                       int32_t* needed) {
  return TypedText(measure, TIn{text, length}, flags, part, index, TOut(buffer, capacity, needed));
}
