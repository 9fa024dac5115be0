/// Typed arithmetic and elevations.
#include "unitlib/capi/Conversions.h"
#include "unitlib/capi/ModelPlace.h"
#include "unitlib/capi/Texts.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"

namespace unitlib::capi {
namespace {

[[noreturn]] void FailExpression(std::u16string Message, std::u16string_view Text, int32_t Position) {
  throw TFailure{UL_ERROR_EXPRESSION, std::move(Message), std::u16string(Text), Position};
}

void RequireNoError(const TParser& Parser, std::u16string_view Text) {
  if (Parser.FHasError) FailExpression(Parser.FErrMsg, Text, Parser.FErrPos);
}

/// A merged tree that is one number. What holds a variable has no value, and must not count as 0.
void RequireNumber(const TNode* Root, std::u16string_view Text) {
  if (!Root) FailExpression(u"There is nothing to evaluate", Text, 0);
  if (Root->FNodeType == ntNum && !Root->FIsVar) return;
  const TNode* Variable = Root;
  while (Variable->FNodeType == ntOp && Variable->FLeft && Variable->FRight)
    Variable = Variable->FLeft->FIsVar ? Variable->FLeft.get() : Variable->FRight.get();
  FailExpression(u"\"" + Variable->FValue + u"\" is a name, not a number", Text, Variable->FPos);
}

} // namespace

void RequireExpressions() {
  RequireCurUnit(ElevationMeasure);
}

TEvaluation Evaluate(std::u16string_view Text) {
  TParser Parser(Text);
  auto Root = Parser.Parse();
  RequireNoError(Parser, Text);
  if (Root) Parser.Merge(Root);
  RequireNoError(Parser, Text);
  RequireNumber(Root.get(), Text);
  const double Value = Parser.GetDoubleValue(*Root);
  RequireNoError(Parser, Text);
  return {Value, Root->FIsImperial};
}

double ExpressionValue(int32_t Measure, std::u16string_view Text, int32_t Scale) {
  const std::u16string Rewritten = TMeasureDataManager::ExprToStore(Measure, Text);
  TEvaluation Evaluation{};
  try {
    Evaluation = Evaluate(Rewritten);
  } catch (TFailure& Failure) { // tell the text that was typed; places in the other one mean nothing in it
    Failure.Text = Text;
    if (Rewritten != Text) Failure.Position = -1;
    throw;
  }
  if (Evaluation.IsImperial)
    FailExpression(u"An imperial length cannot be read here: " + std::u16string(Text), Text, -1);
  return StoredDecimal(Measure, Evaluation.Value, Scale);
}

namespace {

template <class C> ul_status EvaluateText(TIn<C> Given, double* Value, int32_t* IsImperial) {
  return Answer(Value, [&] {
    const std::u16string Text = Read(Given);
    RequireExpressions();
    const TEvaluation Evaluation = Evaluate(Text);
    if (IsImperial) *IsImperial = Evaluation.IsImperial;
    return Evaluation.Value;
  });
}

template <class C> ul_status StoreExpression(int32_t Measure, TIn<C> Given, int32_t Scale, double* Value) {
  return Answer(Value, [&] {
    const std::u16string Text = Read(Given);
    RequireParser(Measure);
    RequireExpressions();
    return ExpressionValue(Measure, Text, Scale);
  });
}

using TElevationForm = std::u16string (*)(std::u16string_view);

template <class C> ul_status Elevation(TElevationForm Form, TIn<C> Given, TOut<C> Out) {
  return Give(Out, [&] {
    const std::u16string Text = Read(Given);
    RequireExpressions();
    return Form(Text);
  });
}

template <class C> ul_status CheckElevation(TIn<C> Given, int32_t* Valid) {
  return Answer(Valid, [&] {
    const std::u16string Text = Read(Given);
    RequireExpressions();
    return CheckElevEditValue(Text);
  });
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;

ul_status UL_CALL ul_evaluate(const ul_char16* text, int32_t length, double* value, int32_t* is_imperial) {
  return EvaluateText(TIn{text, length}, value, is_imperial);
}
ul_status UL_CALL ul_evaluate_u8(const char* text, int32_t length, double* value, int32_t* is_imperial) {
  return EvaluateText(TIn{text, length}, value, is_imperial);
}

ul_status UL_CALL ul_expression_to_store(int32_t measure, const ul_char16* text, int32_t length,
                                         int32_t scale, double* value) {
  return StoreExpression(measure, TIn{text, length}, scale, value);
}
ul_status UL_CALL ul_expression_to_store_u8(int32_t measure, const char* text, int32_t length, int32_t scale,
                                            double* value) {
  return StoreExpression(measure, TIn{text, length}, scale, value);
}

ul_status UL_CALL ul_get_elev_store_value(const ul_char16* text, int32_t length, ul_char16* buffer,
                                          int32_t capacity, int32_t* needed) {
  return Elevation(unitlib::GetElevStoreValue, TIn{text, length}, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_elev_store_value_u8(const char* text, int32_t length, char* buffer, int32_t capacity,
                                             int32_t* needed) {
  return Elevation(unitlib::GetElevStoreValue, TIn{text, length}, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_get_elev_edit_value(const ul_char16* text, int32_t length, ul_char16* buffer,
                                         int32_t capacity, int32_t* needed) {
  return Elevation(unitlib::GetElevEditValue, TIn{text, length}, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_elev_edit_value_u8(const char* text, int32_t length, char* buffer, int32_t capacity,
                                            int32_t* needed) {
  return Elevation(unitlib::GetElevEditValue, TIn{text, length}, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_get_elev_display_value(const ul_char16* text, int32_t length, ul_char16* buffer,
                                            int32_t capacity, int32_t* needed) {
  return Elevation(unitlib::GetElevDisplayValue, TIn{text, length}, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_elev_display_value_u8(const char* text, int32_t length, char* buffer,
                                               int32_t capacity, int32_t* needed) {
  return Elevation(unitlib::GetElevDisplayValue, TIn{text, length}, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_check_elev_edit_value(const ul_char16* text, int32_t length, int32_t* valid) {
  return CheckElevation(TIn{text, length}, valid);
}
ul_status UL_CALL ul_check_elev_edit_value_u8(const char* text, int32_t length, int32_t* valid) {
  return CheckElevation(TIn{text, length}, valid);
}
