#include "fuzz/slow/Merging.h"

#include <cmath>

namespace unitlib::fuzz::slow {
namespace {

const TExact LargestKnown = TExact::Power(10, 14);

bool HasVariable(const TTree& Node) {
  return !VariablesOf(Node).empty();
}

TTreePtr Folded(const TUnitSetup& Unit, double Value, bool Negative, bool Imperial, TErrors& Errors) {
  auto Node = std::make_unique<TTree>();
  Node->Kind = TTree::Operand;
  Node->Imperial = Imperial;
  if (!std::isfinite(Value)) {
    Errors.All.insert(Errors.All.end(), {u"* is too big", u"* is too Small"});
    Node->Number = 1;
    Node->Store = Node->Value = u"1";
    return Node;
  }
  Node->Value = GeneralText(Negative ? -Value : Value);
  const std::u16string Message = ProcessNode(Unit, *Node);
  if (!Message.empty()) Errors.All.push_back(Message);
  Node->Imperial = Imperial;
  return Node;
}

template <class TVisit> void ForEachOperand(const TTree& Node, TVisit Visit) {
  if (Node.Kind != TTree::Operator) return Visit(Node);
  ForEachOperand(*Node.Left, Visit);
  ForEachOperand(*Node.Right, Visit);
}

class TLinearMaker {
public:
  TLinearMaker(const TUnitSetup& Unit, TErrors& Errors) : FUnit(Unit), FErrors(Errors) {}

  TLinear Make(const TTree& Node) {
    TLinear Form;
    if (Node.Kind == TTree::Operator) Form = Combined(Node);
    if (Node.Negative) Negate(Form);
    return Form;
  }

private:
  static void Negate(TLinear& Form) {
    Form.K = -Form.K;
    Form.B = -Form.B;
  }

  TLinear Combined(const TTree& Node) {
    const bool VariableLeft = HasVariable(*Node.Left);
    // Left before right, as the errors come up.
    TTreePtr Number;
    if (!VariableLeft) Number = MergeNumbers(FUnit, Node.Left->Copy(), FErrors);
    TLinear Form = Make(VariableLeft ? *Node.Left : *Node.Right);
    if (VariableLeft) Number = MergeNumbers(FUnit, Node.Right->Copy(), FErrors);
    Form.OnlyTheVariable = false;
    const TExact N = ExactOf(Number->Number);
    if (Node.Value == u"+" || Node.Value == u"-") {
      Add(Form, *Number, N, Node.Value == u"-", VariableLeft);
      return Form;
    }
    Form.ImperialFactor = Form.ImperialFactor || Number->Imperial;
    if (Form.Shape != TLinear::Product) Form.Shape = TLinear::Mixed;
    if (N == 0) Form.Unsure = true;
    if (Node.Value == u"*") {
      Form.K *= N;
      Form.B *= N;
      Form.Spread *= Absolute(N);
    } else if (!VariableLeft) {
      Divide(Form, N);
    } else if (N != 0) {
      Form.K /= N;
      Form.B /= N;
      Form.Spread /= Absolute(N);
    }
    return Form;
  }

  static void Add(TLinear& Form, const TTree& Number, const TExact& N, bool Minus, bool VariableLeft) {
    if (Form.Shape == TLinear::Product) Form.Shape = TLinear::Offset;
    Form.Spread += Absolute(N);
    ++(Number.Imperial ? Form.ImperialTerms : Form.PlainTerms);
    if (Minus && !VariableLeft) Negate(Form);
    Form.B += Minus && VariableLeft ? -N : N;
  }

  /// N / form
  static void Divide(TLinear& Form, const TExact& N) {
    if (Form.Shape == TLinear::Product && Form.K != 0) {
      Form.K = N / Form.K;
      Form.Inverse = !Form.Inverse;
    } else {
      Form.Shape = TLinear::Mixed;
      Form.Unsure = true;
    }
  }

  const TUnitSetup& FUnit;
  TErrors& FErrors;
};

/// With several variables: the numbers folded, and what stands beside an imperial one.
TTreePtr WalkSeveral(const TUnitSetup& Unit, const TTree& Node, TErrors& Errors, TVerdict& Verdict) {
  if (!HasVariable(Node)) return MergeNumbers(Unit, Node.Copy(), Errors);
  if (Node.Kind == TTree::Operand) return Node.Copy();
  const TTreePtr Left = WalkSeveral(Unit, *Node.Left, Errors, Verdict);
  const TTreePtr Right = WalkSeveral(Unit, *Node.Right, Errors, Verdict);
  const bool Factor = Node.Value == u"*" || Node.Value == u"/";
  if (Factor && (Left->Imperial || Right->Imperial)) {
    const TTree& Other = Left->Imperial ? *Right : *Left;
    (Other.Var ? Verdict.Must : Verdict.May) = true;
  }
  auto Result = std::make_unique<TTree>(); // an operator with a variable below it is no operand
  Result->Kind = TTree::Operator;
  return Result;
}

/// What regrouping may come upon in a tree that is refused anyway.
void AddPossibleMessages(const TTree& Root, TMessages& Messages) {
  Messages.insert(std::u16string(VarRefused));
  ForEachOperand(Root, [&Messages](const TTree& Node) {
    if (Node.Imperial)
      for (const auto Message : {AddRefused, SubRefused, MulRefused, PlainByImperial, ImperialByImperial})
        Messages.insert(std::u16string(Message));
    if (std::fabs(Node.Number) > 1e6) Messages.insert({u"* is too big", u"* is too Small"});
  });
}

} // namespace

TTreePtr MergeNumbers(const TUnitSetup& Unit, TTreePtr Node, TErrors& Errors) {
  if (Node->Kind != TTree::Operator)
    return Node->Negative ? Folded(Unit, Node->Number, true, Node->Imperial, Errors) : std::move(Node);
  Node->Left = MergeNumbers(Unit, std::move(Node->Left), Errors);
  Node->Right = MergeNumbers(Unit, std::move(Node->Right), Errors);
  const double Value = GetDoubleValue(*Node, Errors);
  return Folded(Unit, Value, Node->Negative, Node->Left->Imperial || Node->Right->Imperial, Errors);
}

std::vector<std::u16string> VariablesOf(const TTree& Node) {
  std::vector<std::u16string> Names;
  ForEachOperand(Node, [&Names](const TTree& Operand) {
    if (Operand.Var) Names.push_back(Operand.Value);
  });
  return Names;
}

std::optional<TSum> Evaluate(const TTree& Node, const TAssignment& Values) {
  TSum Sum;
  if (Node.Kind != TTree::Operator) {
    Sum.Value = Node.Var ? Values.at(Node.Value) : ExactOf(Node.Number);
    Sum.Magnitude = Absolute(Sum.Value);
  } else {
    const auto Left = Evaluate(*Node.Left, Values), Right = Evaluate(*Node.Right, Values);
    if (!Left || !Right) return std::nullopt;
    if (Node.Value == u"+" || Node.Value == u"-") {
      Sum.Value =
          Node.Value == u"+" ? TExact(Left->Value + Right->Value) : TExact(Left->Value - Right->Value);
      Sum.Magnitude = Left->Magnitude + Right->Magnitude;
    } else if (Node.Value == u"*") {
      Sum = {Left->Value * Right->Value, Left->Magnitude * Right->Magnitude};
    } else {
      if (Absolute(Right->Value) * 1000 <= Right->Magnitude) return std::nullopt;
      Sum.Value = Left->Value / Right->Value;
      Sum.Magnitude = Left->Magnitude * Right->Magnitude / (Right->Value * Right->Value);
    }
    if (Sum.Magnitude > LargestKnown) return std::nullopt;
  }
  if (Node.Negative) Sum.Value = -Sum.Value;
  return Sum;
}

TLinear LinearForm(const TUnitSetup& Unit, const TTree& Root, TErrors& Errors) {
  return TLinearMaker(Unit, Errors).Make(Root);
}

TVerdict MergeVerdict(const TUnitSetup& Unit, const TTree& Root) {
  TVerdict Verdict;
  TErrors Errors;
  bool HasImperial = false, HasPlain = false;
  ForEachOperand(Root, [&](const TTree& Operand) {
    Verdict.May = Verdict.May || std::fabs(Operand.Number) > 1e12;
    HasImperial = HasImperial || Operand.Imperial;
    HasPlain = HasPlain || (!Operand.Imperial && !Operand.Var);
  });
  if (VariablesOf(Root).size() == 1) {
    const TLinear Form = LinearForm(Unit, Root, Errors);
    const TExact Tiny = TExact::Power(10, -250);
    const bool Mixed = Form.ImperialTerms > 0 && Form.PlainTerms > 0;
    const bool TooBig = Absolute(Form.B) > LargestKnown || Absolute(Form.K) > LargestKnown;
    Verdict.Must = Form.ImperialFactor && Form.Shape != TLinear::Mixed;
    Verdict.May =
        Verdict.May || Form.ImperialFactor || Mixed || TooBig || Absolute(Form.K) < Tiny || Form.Unsure;
  } else {
    WalkSeveral(Unit, Root, Errors, Verdict);
    Verdict.May = Verdict.May || (HasImperial && HasPlain);
  }
  if (Errors.Any()) Verdict.Must = true;
  Verdict.Messages = Errors.Set();
  AddPossibleMessages(Root, Verdict.Messages);
  return Verdict;
}

} // namespace unitlib::fuzz::slow
