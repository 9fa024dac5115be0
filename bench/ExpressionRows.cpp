/// Typed arithmetic and elevations.
#include "bench/Inputs.h"
#include "bench/Limits.h"
#include "bench/Row.h"
#include "bench/Settings.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"

namespace unitlib::bench {
namespace {

double Evaluate(const std::u16string& Text) {
  TParser Parser(Text);
  std::unique_ptr<TNode> Root = Parser.Parse();
  if (!Parser.FHasError) Parser.Merge(Root);
  return Parser.FHasError ? 0.0 : Parser.GetDoubleValue(*Root);
}

} // namespace

void AddExpressionRows() {
  const TInputs& In = Inputs();
  const std::string Replace = "ExprToStore, 40 characters, three imperial numbers",
                    Plain = "Parse, merge, value, \"(1+2)*3-4/5*(6-7)\"",
                    Elevation = "GetElevDisplayValue, \"L1+5'6 1/2\"\"";
  AddRow(Replace, "ours", In.ImperialTexts, UseMetres,
         [](const std::u16string& Text) { return TMeasureDataManager::ExprToStore(0, Text); });
  AddRow(Replace, "limit", In.ImperialTexts, {}, LimitImperialNumbers);
  AddRow(Plain, "ours", In.PlainExpressions, UseMetres, Evaluate);
  AddRow(Plain, "limit", In.PlainExpressions, {}, LimitEvaluate);
  AddRow(Elevation, "ours", In.Elevations, UseFeet,
         [](const std::u16string& Text) { return GetElevDisplayValue(Text); });
}

} // namespace unitlib::bench
