/// unitctl eval, elev, expr: typed arithmetic and elevations.
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace unitlib::app {
namespace {

/// A typed text on its way through the engine: parsed, merged, marked.
struct TExpression {
  explicit TExpression(const std::string& Typed)
      : Text(FromTerminal(Typed)), Parser(Text), Root(Parser.Parse()) {}

  void Simplify() {
    if (Root && !Parser.FHasError) Parser.Merge(Root);
    if (Root && !Parser.FHasError) Parser.Mark(*Root);
  }
  bool Failed() const { return Parser.FHasError || !Root; }

  std::u16string Text;
  TParser Parser;
  std::unique_ptr<TNode> Root;
};

/// The variable operands of a tree.
std::vector<const TNode*> Variables(const TNode& Root) {
  std::vector<const TNode*> Result;
  std::vector<const TNode*> Open = {&Root};
  while (!Open.empty()) {
    const TNode* Node = Open.back();
    Open.pop_back();
    if (Node->FNodeType == ntNum && Node->FIsVar) Result.push_back(Node);
    if (Node->FRight) Open.push_back(Node->FRight.get());
    if (Node->FLeft) Open.push_back(Node->FLeft.get());
  }
  return Result;
}

std::string ElevationUnit() {
  const TMeasure* Measure = TSystemUnitDataManager::CurConfigMeasure(ElevationMeasure);
  return Say("value.unit", Quoted(Measure->Description), Quoted(Measure->GetCurUnit()->Description));
}

/// What is wrong, and where in the text (-1: no place). The engine has no message for an elevation that it
/// refuses.
std::pair<std::string, std::int32_t> Problem(const TExpression& Expression) {
  const TParser& Parser = Expression.Parser;
  if (Parser.FHasError && !Parser.FErrMsg.empty()) return {Printable(ToUtf8(Parser.FErrMsg)), Parser.FErrPos};
  if (!Expression.Root) return {Say("expression.empty"), -1};
  const std::vector<const TNode*> Found = Variables(*Expression.Root);
  if (Found.size() > 1) return {Say("expression.second-variable"), Found[1]->FPos};
  return {Say("expression.no-value", ElevationUnit()), Parser.FErrPos};
}

void ComplainAbout(TContext& Context, const TExpression& Expression, const std::string& Typed) {
  const auto [Message, Position] = Problem(Expression);
  const std::size_t Place =
      Position < 0 ? NoPlace : Utf8Offset(Expression.Text, static_cast<std::size_t>(Position));
  Context.ComplainBad(Say("value.bad", Quoted(Typed), Message), Typed, Place);
}

/// Makes sure that elevations can be converted, for a better message than the engine's.
void RequireElevationMeasure() {
  TMeasure* Measure = nullptr;
  TSession::System();
  Measure = TSystemUnitDataManager::CurConfigMeasure(ElevationMeasure);
  if (!Measure) throw ERefused(Say("expression.no-measure"));
  RequireConvertible(*Measure);
}

std::string NodeLine(const TNode& Node) {
  std::string Result = Printable(ToUtf8(Node.FValue));
  if (Node.FNodeType == ntNum) {
    if (Node.FIsVar)
      Result += "  " + Say("expression.variable");
    else if (Node.FIsImperial)
      Result += "  " + Say("expression.imperial", ToUtf8(FloatToStr(Node.FDoubleValue)));
    else
      Result += "  " + Say("expression.number");
  }
  if (Node.FIsBlock)
    Result += "  " + (Node.FIsNegative ? Say("expression.negative-block") : Say("expression.block"));
  return Result;
}

/// The tree, one node a line, operands indented below their operator. A tree may be as deep as its text is
/// long, so nothing recurses, and the indentation ends somewhere.
std::string TreeText(const TNode& Root) {
  constexpr std::size_t MaxIndent = 40;
  std::string Result;
  std::vector<std::pair<const TNode*, std::size_t>> Open = {{&Root, 1}};
  while (!Open.empty()) {
    const auto [Node, Depth] = Open.back();
    Open.pop_back();
    Result += std::string(2 * std::min(Depth, MaxIndent), ' ');
    if (Depth > MaxIndent) Result += Say("expression.level", std::to_string(Depth));
    Result += NodeLine(*Node) + "\n";
    if (Node->FRight) Open.emplace_back(Node->FRight.get(), Depth + 1);
    if (Node->FLeft) Open.emplace_back(Node->FLeft.get(), Depth + 1);
  }
  return Result;
}

/// The display form of a store form.
std::string DisplayForm(TContext& Context, const std::u16string& Store) {
  TExpression Expression(ToUtf8(Store));
  Expression.Simplify();
  if (!Expression.Failed()) static_cast<void>(Expression.Parser.GetDisplayValue(*Expression.Root));
  if (!Expression.Failed()) return ToUtf8(GetElevDisplayValue(Store));
  ComplainAbout(Context, Expression, ToUtf8(Store));
  return "-";
}

std::string ValueText(const TNode& Root) {
  const std::string Number = ToUtf8(FloatToStr(Root.FDoubleValue));
  return Root.FIsImperial ? Say("eval.metres", Number) : Number;
}

void EvalOne(TContext& Context, const std::string& Typed, bool Tree) {
  TExpression Expression(Typed);
  if (Tree && Expression.Root) Context.Print(Say("eval.tree") + "\n" + TreeText(*Expression.Root));
  Expression.Simplify();
  if (Expression.Failed()) return ComplainAbout(Context, Expression, Typed);
  const TNode& Root = *Expression.Root;
  if (Root.FNodeType == ntNum && !Root.FIsVar) Context.PrintRow(Say("eval.value"), ValueText(Root));
  // Said, because "- 5" and "1 2" are names too.
  for (const TNode* Variable : Variables(Root))
    Context.PrintRow(Say("expression.variable"), Printable(ToUtf8(Variable->FValue)));
  if (!CheckElevEditValue(Expression.Text)) {
    static_cast<void>(Expression.Parser.GetStoreValue(Root)); // for its error
    return ComplainAbout(Context, Expression, Typed);
  }
  const std::u16string Store = GetElevStoreValue(Expression.Text);
  Context.PrintRow(Say("eval.store"), Printable(ToUtf8(Store)));
  // A single length is shown by its number: the text of a tiny one has an exponent, which arithmetic reads
  // otherwise.
  double Metres = 0.0;
  const std::string Display =
      TryStrToFloat(Store, Metres)
          ? ToUtf8(TMeasureDataManager::StoreToDisplay(ElevationMeasure, Metres, ThousandScale))
          : DisplayForm(Context, Store);
  Context.PrintRow(Say("eval.display"), Printable(Display));
}

struct TEvalOptions {
  std::vector<std::string> Texts;
  bool Tree = false;
};

void Eval(TContext& Context, const TEvalOptions& Options) {
  const TSession Session(Context);
  RequireElevationMeasure();
  for (const std::string& Typed : Options.Texts) {
    if (Options.Texts.size() > 1) Context.PrintRow(Say("eval.text"), Printable(Typed));
    EvalOne(Context, Typed, Options.Tree);
  }
}

using TElevationFunction = std::u16string (*)(std::u16string_view);
using TTextForm = std::u16string (TParser::*)(const TNode&);

/// One line for each text. A text that is no elevation comes back unchanged, and that is said.
void Elevation(TContext& Context, const std::vector<std::string>& Texts, TElevationFunction Function,
               TTextForm Form) {
  const TSession Session(Context);
  RequireElevationMeasure();
  for (const std::string& Typed : Texts) {
    TExpression Expression(Typed);
    Expression.Simplify();
    if (!Expression.Failed()) static_cast<void>((Expression.Parser.*Form)(*Expression.Root));
    if (Expression.Failed() && !Typed.empty()) ComplainAbout(Context, Expression, Typed);
    Context.Print(ToUtf8(Function(Expression.Text)) + "\n");
  }
}

void CheckElevations(TContext& Context, const std::vector<std::string>& Texts) {
  const TSession Session(Context);
  RequireElevationMeasure();
  for (const std::string& Typed : Texts) {
    const bool Valid = CheckElevEditValue(FromTerminal(Typed));
    if (!Valid) Context.ExitCode = ExitBad;
    Context.PrintRow(Valid ? Say("value.valid") : Say("value.invalid"), Printable(Typed));
  }
}

struct TExprOptions {
  std::string Measure;
  std::string Text;
  bool SkipImperial = false;
};

void Expr(TContext& Context, const TExprOptions& Options) {
  const TSession Session(Context);
  const TMeasure& Measure = FindConvertible(Options.Measure);
  const std::u16string Result = TMeasureDataManager::ExprToStore(
      Measure.ClassifyCode, FromTerminal(Options.Text), 0, Options.SkipImperial);
  Context.Print(ToUtf8(Result) + "\n");
}

void AddEval(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TEvalOptions>();
  CLI::App* Command =
      AddCommand(App, "eval", Say("help.group.schedules"), Say("help.eval"),
                 "unitctl eval \"5'6\\\" + 2*1'3\\\"\" \"-(1+2)*3\"\nunitctl eval --tree \"L1 - 5'6\\\"\"",
                 Say("help.eval.notes"));
  AddTexts(*Command, "TEXT", Options->Texts, Say("option.eval.texts"))->required();
  Command->add_flag("--tree", Options->Tree, Say("option.eval.tree"));
  Command->callback([&Context, Options] { Eval(Context, *Options); });
}

void AddElevationForm(CLI::App& Elev, TContext& Context, const std::string& Name,
                      const std::string& Description, const std::string& Example, TElevationFunction Function,
                      TTextForm Form) {
  auto Texts = std::make_shared<std::vector<std::string>>();
  CLI::App* Command = AddCommand(Elev, Name, Say("help.group.forms"), Description, Example, {});
  AddTexts(*Command, "TEXT", *Texts, Say("option.elev.texts"))->required();
  Command->callback([&Context, Texts, Function, Form] { Elevation(Context, *Texts, Function, Form); });
}

void AddElev(CLI::App& App, TContext& Context) {
  CLI::App* Elev = AddCommand(App, "elev", Say("help.group.schedules"), Say("help.elev"),
                              "unitctl elev store \"L1+5'6\\\"\"", Say("help.elev.notes"));
  Elev->require_subcommand(1);
  AddElevationForm(*Elev, Context, "store", Say("help.elev.store"), "unitctl elev store \"L1+5'6\\\"\"",
                   GetElevStoreValue, &TParser::GetStoreValue);
  AddElevationForm(*Elev, Context, "edit", Say("help.elev.edit"), "unitctl elev edit L1+1.6764",
                   GetElevEditValue, &TParser::GetEditValue);
  AddElevationForm(*Elev, Context, "display", Say("help.elev.display"), "unitctl elev display L1+1.6764",
                   GetElevDisplayValue, &TParser::GetDisplayValue);
  auto Texts = std::make_shared<std::vector<std::string>>();
  CLI::App* Check = AddCommand(*Elev, "check", Say("help.group.forms"), Say("help.elev.check"),
                               "unitctl elev check \"L1+5'\" L1+L2", Say("help.elev.check.notes"));
  AddTexts(*Check, "TEXT", *Texts, Say("option.typed-texts"))->required();
  Check->callback([&Context, Texts] { CheckElevations(Context, *Texts); });
}

void AddExpr(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TExprOptions>();
  CLI::App* Command = AddCommand(App, "expr", Say("help.group.schedules"), Say("help.expr"),
                                 "unitctl expr 0 \"3'6\\\"+2\"", Say("help.expr.notes"));
  AddText(*Command, "MEASURE", Options->Measure, Say("option.measure"))->required();
  AddText(*Command, "TEXT", Options->Text, Say("option.expr.text"))->required();
  Command->add_flag("--skip-imperial", Options->SkipImperial, Say("option.expr.skip-imperial"));
  Command->callback([&Context, Options] { Expr(Context, *Options); });
}

} // namespace

void AddExpressionCommands(CLI::App& App, TContext& Context) {
  AddEval(App, Context);
  AddElev(App, Context);
  AddExpr(App, Context);
}

} // namespace unitlib::app
