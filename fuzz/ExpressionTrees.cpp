#include "fuzz/ExpressionTrees.h"

#include "fuzz/Check.h"
#include "fuzz/UnitSettings.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"

#include <cmath>
#include <limits>

namespace unitlib::fuzz {
namespace {

using slow::TExact;
using slow::TTree;

struct TLength {
  const char16_t* Class;
  int Code;
};
constexpr TLength Lengths[] = {{u"TDecimalFeetParser", 10},    {u"TFeetAndFractionalInchParser", 11},
                               {u"TDecimalInchParser", 12},    {u"TFractionalInchParser", 13},
                               {u"TMetreParser", 14},          {u"TCentimeterParser", 15},
                               {u"TMillimetreParser", 16},     {u"TSquareFootParser", 100},
                               {u"TFractionalInchParser", 99}, {u"TMetreParser", 10}};

constexpr double FourRoundings = 4 * std::numeric_limits<double>::epsilon();
const TExact FifteenDigits = slow::TExact::Power(10, -12); // a step's, many steps

} // namespace

slow::TUnitSetup TakeLengthUnit(TInput& Input) {
  const TLength& Length = Lengths[Input.Below(std::size(Lengths))];
  slow::TUnitSetup Setup;
  Setup.ClassName = Length.Class;
  Setup.Code = Length.Code;
  TakeUnitSettings(Input, Setup);
  return Setup;
}

slow::TTreePtr ToSlowTree(const TNode& Node) {
  auto Result = std::make_unique<TTree>();
  Result->Kind = Node.FNodeType == ntOp ? TTree::Operator : TTree::Operand;
  Result->Value = Node.FValue;
  Result->Store = Node.FStoreValue;
  Result->Number = Node.FDoubleValue;
  Result->Block = Node.FIsBlock;
  Result->Negative = Node.FIsNegative;
  Result->Var = Node.FNodeType != ntOp && Node.FIsVar;
  Result->Elev = Node.FIsElev;
  Result->Imperial = Node.FIsImperial;
  if (Node.FLeft) Result->Left = ToSlowTree(*Node.FLeft);
  if (Node.FRight) Result->Right = ToSlowTree(*Node.FRight);
  return Result;
}

bool IsMessage(const slow::TMessages& Messages, std::u16string_view Message) {
  for (const std::u16string& Wanted : Messages) {
    if (Wanted == Message) return true;
    if (Wanted.starts_with(u'*') && Message.ends_with(std::u16string_view(Wanted).substr(1))) return true;
  }
  return false;
}

void RequireSameErrors(std::string_view What, std::u16string_view Text, const TParser& Parser,
                       const slow::TMessages& Wanted) {
  const std::string Told = std::string(What) + " with " + Show(Parser.FErrMsg);
  RequireSame("an error of " + Told, Text, Parser.FHasError, !Wanted.empty());
  if (Parser.FHasError) Require(IsMessage(Wanted, Parser.FErrMsg), "the message of " + Told, Text);
}

void RequireSameTree(std::u16string_view Text, const TNode& Library, TTree& Wanted) {
  const bool IsOperator = Wanted.Kind == TTree::Operator;
  RequireSame("a node being an operator", Text, Library.FNodeType == ntOp, IsOperator);
  RequireSame("a node's text", Text, Library.FValue, Wanted.Value);
  RequireSame("a block", Text, Library.FIsBlock, Wanted.Block);
  RequireSame("a negative block", Text, Library.FIsNegative, Wanted.Negative);
  RequireSame("an imperial operand", Text, Library.FIsImperial, Wanted.Imperial);
  RequireSame("a variable", Text, Library.FIsVar, Wanted.Var);
  if (IsOperator) {
    Require(Library.FLeft && Library.FRight, "an operator with both operands", Text);
    RequireSameTree(Text, *Library.FLeft, *Wanted.Left);
    RequireSameTree(Text, *Library.FRight, *Wanted.Right);
    return;
  }
  RequireNear("an operand's value", Text, Library.FDoubleValue, Wanted.Number,
              Wanted.Imperial ? FourRoundings : 0);
  if (Wanted.Imperial) {
    Wanted.Number = Library.FDoubleValue;
    Wanted.Store = slow::GeneralText(Wanted.Number);
  }
  RequireSame("an operand's store text", Text, Library.FStoreValue, Wanted.Store);
}

std::vector<slow::TAssignment> Assignments(const std::vector<std::u16string>& Names) {
  constexpr double Sets[][5] = {
      {7.25, -3.5, 11, 0.75, 2}, {-2.5, 8, 0.5, 5, -1.25}, {1234.5, 17, -6, 3, 0.125}};
  std::vector<slow::TAssignment> Result;
  for (const auto& Set : Sets) {
    slow::TAssignment& Values = Result.emplace_back();
    for (const std::u16string& Name : Names)
      Values.emplace(Name, slow::ExactOf(Set[Values.size() % std::size(Set)]));
  }
  return Result;
}

TExact ValueOf(std::string_view What, std::u16string_view Text, const TTree& Node,
               const slow::TAssignment& Values) {
  TExact Value;
  if (Node.Kind != TTree::Operator) {
    if (Node.Var)
      Require(Values.contains(Node.Value), std::string(What) + ": a variable of the text", Node.Value);
    Value = Node.Var ? Values.at(Node.Value) : slow::ExactOf(Node.Number);
  } else {
    const TExact Left = ValueOf(What, Text, *Node.Left, Values),
                 Right = ValueOf(What, Text, *Node.Right, Values);
    if (Node.Value == u"+") Value = Left + Right;
    if (Node.Value == u"-") Value = Left - Right;
    if (Node.Value == u"*") Value = Left * Right;
    if (Node.Value == u"/") {
      Require(Right != 0, std::string(What) + ": no division by zero", Text);
      Value = Left / Right;
    }
  }
  return Node.Negative ? -Value : Value;
}

void RequireSameValues(std::string_view What, std::u16string_view Text, const TTree& Got,
                       const TTree& Wanted) {
  for (const slow::TAssignment& Values : Assignments(slow::VariablesOf(Wanted))) {
    const auto Sum = slow::Evaluate(Wanted, Values);
    if (!Sum) continue;
    const TExact Value = ValueOf(What, Text, Got, Values);
    if (slow::Absolute(Value - Sum->Value) <= FifteenDigits * Sum->Magnitude) continue;
    RequireSame(What, Text, slow::ToDouble(Value), slow::ToDouble(Sum->Value));
    Fail(std::string(What) + " of " + Show(Text));
  }
}

} // namespace unitlib::fuzz
