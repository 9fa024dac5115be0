#include "unitlib/capi/Conversions.h"

#include "unitlib/capi/ModelPlace.h"
#include "unitlib/capi/Texts.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Numbers.h"

#include <cmath>

namespace unitlib::capi {

using TFacade = TMeasureDataManager;

TDisplayFlags ReadDisplayFlags(uint32_t Flags) {
  constexpr uint32_t All =
      UL_APPEND_SYMBOL | UL_NO_SYMBOL | UL_NO_DIGIT_GROUP | UL_NO_ROUND | UL_NO_PLUS_SIGN;
  if (Flags & ~All) FailArgument(u"Unknown conversion flag");
  auto Has = [Flags](uint32_t Flag) { return (Flags & Flag) != 0; };
  return {Has(UL_APPEND_SYMBOL), Has(UL_NO_SYMBOL), Has(UL_NO_DIGIT_GROUP), Has(UL_NO_ROUND),
          Has(UL_NO_PLUS_SIGN)};
}

bool ReadCheckFlag(uint32_t Flags) {
  if (Flags & ~static_cast<uint32_t>(UL_UNCHECKED)) FailArgument(u"Unknown conversion flag");
  return !(Flags & UL_UNCHECKED);
}

void RequireParser(int32_t Measure) {
  TUnit& Unit = RequireCurUnit(Measure);
  if (GetUnitParser(Unit.UnitParserClassName, &Unit)) return;
  throw EConvertError(u"No unit parser is registered as \"" + Unit.UnitParserClassName + u"\"",
                      Unit.UnitParserClassName);
}

std::u16string DisplayText(int32_t Measure, double Value, int32_t Scale, const TDisplayFlags& Flags) {
  return TFacade::StoreToDisplay(Measure, Value, Scale, Flags.AppendSymbol, Flags.NoSymbol,
                                 Flags.NoDigitGroup, Flags.NoRound, Flags.NoPlusSign);
}

double StoredValue(int32_t Measure, std::u16string_view Text, int32_t Scale, bool Check) {
  if (Check && !TFacade::CheckDisplay(Measure, Text))
    throw EConvertError(u"\"" + std::u16string(Text) + u"\" is not a value of measure " + IntToStr(Measure),
                        Text);
  return TFacade::DisplayToStore(Measure, Text, Scale);
}

double StoredDecimal(int32_t Measure, double Number, int32_t Scale) {
  const double Value = TFacade::DecimalValueToStore(Measure, Number, Scale);
  if (!std::isfinite(Value)) throw ERangeError(u"The stored value would not be finite", u"");
  return Value;
}

namespace {

template <class C> ul_status Show(int32_t Measure, double Value, int32_t Scale, uint32_t Flags, TOut<C> Out) {
  return Give(Out, [&] {
    const TDisplayFlags Wanted = ReadDisplayFlags(Flags);
    if (Measure != UL_NO_MEASURE) RequireParser(Measure);
    return DisplayText(Measure, Value, Scale, Wanted);
  });
}

template <class C>
ul_status ShowWithSymbol(int32_t* HasSymbol, int32_t Measure, double Value, int32_t Scale, uint32_t Flags,
                         TOut<C> Out) {
  bool Has = false;
  const ul_status Status = Give(Out, [&] {
    Result(HasSymbol);
    const TDisplayFlags Wanted = ReadDisplayFlags(Flags);
    if (Measure != UL_NO_MEASURE) RequireParser(Measure);
    return TFacade::StoreToDisplay(Has, Measure, Value, Scale, Wanted.AppendSymbol, Wanted.NoSymbol,
                                   Wanted.NoDigitGroup, Wanted.NoRound, Wanted.NoPlusSign);
  });
  if (Status == UL_OK && Measure != UL_NO_MEASURE) *HasSymbol = Has;
  return Status;
}

template <class C> ul_status Check(int32_t Measure, TIn<C> Given, int32_t* Valid) {
  return Answer(Valid, [&] {
    const std::u16string Text = Read(Given);
    RequireCurUnit(Measure);
    return TFacade::CheckDisplay(Measure, Text);
  });
}

template <class C>
ul_status Store(int32_t Measure, TIn<C> Given, int32_t Scale, uint32_t Flags, double* Value) {
  return Answer(Value, [&] {
    const std::u16string Text = Read(Given);
    const bool Checked = ReadCheckFlag(Flags);
    RequireParser(Measure);
    return StoredValue(Measure, Text, Scale, Checked);
  });
}

template <class C>
ul_status IsNumber(int32_t Measure, TIn<C> Given, int32_t RejectFraction, int32_t* Number) {
  return Answer(Number, [&] {
    const std::u16string Text = Read(Given);
    RequireParser(Measure);
    return TFacade::IsANum(Measure, Text, RejectFraction != 0);
  });
}

template <class C> ul_status Rewrite(int32_t Measure, TIn<C> Given, int32_t SkipImperial, TOut<C> Out) {
  return Give(Out, [&] {
    const std::u16string Text = Read(Given);
    RequireParser(Measure);
    return TFacade::ExprToStore(Measure, Text, 0, SkipImperial != 0);
  });
}

template <class C> ul_status Symbol(int32_t Measure, int32_t EmptyForFeetInch, TOut<C> Out) {
  return Give(Out, [&] {
    RequireCurUnit(Measure);
    return TFacade::GetUnitSymbol(Measure, EmptyForFeetInch != 0);
  });
}

template <class C> ul_status WithoutBrackets(TIn<C> Text, TOut<C> Out) {
  return Give(Out, [&] { return GetDisplayValue(Read(Text)); });
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;

ul_status UL_CALL ul_store_to_display(int32_t measure, double value, int32_t scale, uint32_t flags,
                                      ul_char16* buffer, int32_t capacity, int32_t* needed) {
  return Show(measure, value, scale, flags, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_store_to_display_u8(int32_t measure, double value, int32_t scale, uint32_t flags,
                                         char* buffer, int32_t capacity, int32_t* needed) {
  return Show(measure, value, scale, flags, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_store_to_display_symbol(int32_t* has_symbol, int32_t measure, double value,
                                             int32_t scale, uint32_t flags, ul_char16* buffer,
                                             int32_t capacity, int32_t* needed) {
  return ShowWithSymbol(has_symbol, measure, value, scale, flags, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_store_to_display_symbol_u8(int32_t* has_symbol, int32_t measure, double value,
                                                int32_t scale, uint32_t flags, char* buffer, int32_t capacity,
                                                int32_t* needed) {
  return ShowWithSymbol(has_symbol, measure, value, scale, flags, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_check_display(int32_t measure, const ul_char16* text, int32_t length, int32_t* valid) {
  return Check(measure, TIn{text, length}, valid);
}
ul_status UL_CALL ul_check_display_u8(int32_t measure, const char* text, int32_t length, int32_t* valid) {
  return Check(measure, TIn{text, length}, valid);
}

ul_status UL_CALL ul_display_to_store(int32_t measure, const ul_char16* text, int32_t length, int32_t scale,
                                      uint32_t flags, double* value) {
  return Store(measure, TIn{text, length}, scale, flags, value);
}
ul_status UL_CALL ul_display_to_store_u8(int32_t measure, const char* text, int32_t length, int32_t scale,
                                         uint32_t flags, double* value) {
  return Store(measure, TIn{text, length}, scale, flags, value);
}

ul_status UL_CALL ul_decimal_value_to_store(int32_t measure, double number, int32_t scale, double* value) {
  return Answer(value, [&] {
    RequireParser(measure);
    return StoredDecimal(measure, number, scale);
  });
}

ul_status UL_CALL ul_is_a_num(int32_t measure, const ul_char16* text, int32_t length,
                              int32_t reject_fraction_form, int32_t* is_number) {
  return IsNumber(measure, TIn{text, length}, reject_fraction_form, is_number);
}
ul_status UL_CALL ul_is_a_num_u8(int32_t measure, const char* text, int32_t length,
                                 int32_t reject_fraction_form, int32_t* is_number) {
  return IsNumber(measure, TIn{text, length}, reject_fraction_form, is_number);
}

ul_status UL_CALL ul_expr_to_store(int32_t measure, const ul_char16* text, int32_t length,
                                   int32_t skip_imperial_num, ul_char16* buffer, int32_t capacity,
                                   int32_t* needed) {
  return Rewrite(measure, TIn{text, length}, skip_imperial_num, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_expr_to_store_u8(int32_t measure, const char* text, int32_t length,
                                      int32_t skip_imperial_num, char* buffer, int32_t capacity,
                                      int32_t* needed) {
  return Rewrite(measure, TIn{text, length}, skip_imperial_num, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_get_unit_symbol(int32_t measure, int32_t empty_for_feet_inch, ul_char16* buffer,
                                     int32_t capacity, int32_t* needed) {
  return Symbol(measure, empty_for_feet_inch, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_unit_symbol_u8(int32_t measure, int32_t empty_for_feet_inch, char* buffer,
                                        int32_t capacity, int32_t* needed) {
  return Symbol(measure, empty_for_feet_inch, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_get_display_value(const ul_char16* text, int32_t length, ul_char16* buffer,
                                       int32_t capacity, int32_t* needed) {
  return WithoutBrackets(TIn{text, length}, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_display_value_u8(const char* text, int32_t length, char* buffer, int32_t capacity,
                                          int32_t* needed) {
  return WithoutBrackets(TIn{text, length}, TOut(buffer, capacity, needed));
}
