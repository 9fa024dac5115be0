#include "fuzz/slow/Expression.h"

namespace unitlib::fuzz::slow {
namespace {

constexpr int DeepestBracket = 1000;
constexpr std::u16string_view FunctionMessage = u"unsupport function!", NoClosing = u"missing ) error!",
                              NoOpening = u"missing ( error!", NoOperator = u"missing operator!",
                              TooDeep = u"too many nested brackets!";

bool IsOneOf(char16_t C, std::u16string_view Set) {
  return Set.find(C) != Set.npos;
}

bool IsMetric(const TUnitSetup& Unit) {
  return Unit.Code >= 14 && Unit.Code <= 16;
}
bool IsImperialLength(const TUnitSetup& Unit) {
  return Unit.Code >= 10 && Unit.Code <= 13;
}

bool BindsTighter(const TTree& Node, const TTree& Other) {
  if (Other.Block) return false;
  if (Node.Value != u"*" && Node.Value != u"/") return false;
  return Other.Value == u"+" || Other.Value == u"-";
}

TTreePtr MakeTree(TTree::TKind Kind, std::u16string_view Value) {
  auto Node = std::make_unique<TTree>();
  Node->Kind = Kind;
  Node->Value = Trimmed(Value);
  return Node;
}

/// Reads one text. Lazy: what stands wrongly in an operand's place is reported only when nothing else is
/// wrong.
class TReader {
public:
  TReader(const TUnitSetup& Unit, std::u16string_view Text, bool Lazy, int Depth = 0)
      : FUnit(Unit), FText(Trimmed(Text)), FLazy(Lazy), FDepth(Depth) {}

  TTreePtr Parse() {
    if (FText.empty()) return nullptr;
    TTreePtr Root = FLazy ? ParseLazily() : ParseEagerly();
    return Failed() ? nullptr : std::move(Root);
  }
  bool Failed() const { return !FErrors.empty(); }
  const std::vector<std::u16string>& Errors() const { return FErrors; }

private:
  void Fail(std::u16string_view Message) { FErrors.emplace_back(Message); }

  TTreePtr GetNode() {
    std::u16string Tok;
    while (FPos < FText.size()) {
      const std::size_t At = FPos;
      const char16_t C = FText[FPos++];
      if (C == u'(') return TakeBracket(Tok);
      const bool IsSign = IsOneOf(C, u"+-");
      if (IsSign && (At == 0 || IsOneOf(FText[At - 1], u"*+-/"))) {
        if (C == u'+') continue;
        if (Tok == u"-") {
          Tok.clear();
          continue;
        }
      } else if (C == u'/' && IsImperialLength(FUnit) && !Tok.empty()) {
        if (!IsFractionBar(Tok)) return EndToken(Tok);
      } else if (IsOneOf(C, u"*+-/")) {
        return Tok.empty() ? MakeTree(TTree::Operator, std::u16string(1, C)) : EndToken(Tok);
      }
      Tok += C;
    }
    return Tok.empty() ? nullptr : TakeOperand(Tok);
  }

  TTreePtr EndToken(const std::u16string& Tok) {
    --FPos;
    return TakeOperand(Tok);
  }

  bool IsFractionBar(const std::u16string& Tok) const {
    for (const char16_t C : Tok)
      if (!IsOneOf(C, u" '0123456789")) return false;
    std::size_t Ahead = FPos;
    while (Ahead < FText.size() && IsOneOf(FText[Ahead], u"0123456789")) ++Ahead;
    return Ahead > FPos && Ahead < FText.size() && FText[Ahead] == u'"';
  }

  TTreePtr TakeOperand(const std::u16string& Tok) {
    TTreePtr Node = MakeTree(TTree::Operand, Tok);
    if (Node->Value.empty() || Node->Value == u"-") return Node; // judged by the place where it stands
    const std::u16string Message = ProcessNode(FUnit, *Node);
    if (Message.empty()) return Node;
    Fail(Message);
    return nullptr;
  }

  TTreePtr TakeBracket(const std::u16string& Tok) {
    if (!Tok.empty() && Tok != u"-" && Tok != u"+") {
      Fail(FunctionMessage);
      return nullptr;
    }
    std::u16string Sub;
    if (!SubStringInBracket(Sub)) return nullptr;
    if (FDepth + 1 > DeepestBracket) {
      Fail(TooDeep);
      return nullptr;
    }
    TReader Reader(FUnit, Sub, FLazy, FDepth + 1);
    TTreePtr Root = Reader.Parse();
    for (const auto& Message : Reader.FErrors)
      if (Message == TooDeep) {
        Fail(TooDeep);
        return nullptr;
      }
    if (!Root) return std::make_unique<TTree>(); // stands for the operand that is missing here
    Root->Block = true;
    Root->Negative = Root->Negative != (Tok == u"-"); // two minus signs cancel
    return Root;
  }

  bool SubStringInBracket(std::u16string& Sub) {
    int Nesting = 0;
    for (;;) {
      if (FPos == FText.size()) {
        Fail(NoClosing);
        return false;
      }
      const char16_t C = FText[FPos++];
      if (C == u')' && Nesting == 0) return true;
      if (C == u'(') ++Nesting;
      if (C == u')') --Nesting;
      Sub += C;
      if (FPos == FText.size()) {
        Fail(Nesting < 1 ? NoOpening : NoClosing);
        return false;
      }
    }
  }

  static TTreePtr Attach(TTreePtr Root, TTreePtr Op, TTreePtr Right) {
    Op->Right = std::move(Right);
    if (BindsTighter(*Op, *Root)) {
      Op->Left = std::move(Root->Right);
      Root->Right = std::move(Op);
      return Root;
    }
    Op->Left = std::move(Root);
    return Op;
  }

  /// A missing operand is reported at the end, when nothing else was wrong.
  TTreePtr ParseLazily() {
    const auto IsWrong = [](const TTreePtr& Node) {
      return !Node || Node->IsMissing() || Node->IsBareOperator();
    };
    TTreePtr Root = GetNode();
    if (Failed()) return nullptr;
    bool Wrong = IsWrong(Root);
    for (;;) {
      TTreePtr Op = GetNode();
      if (Failed()) return nullptr;
      if (!Op) break;
      if (!Op->IsBareOperator()) {
        Fail(NoOperator);
        return nullptr;
      }
      TTreePtr Right = GetNode();
      if (Failed()) return nullptr;
      if (!Right) {
        Fail(MissingOperand);
        return nullptr;
      }
      Wrong = Wrong || IsWrong(Right);
      Root = Root ? Attach(std::move(Root), std::move(Op), std::move(Right)) : std::move(Op);
    }
    if (Wrong) Fail(MissingOperand);
    return Root;
  }

  /// A missing operand is reported where it is missed, an operator in its place one token later.
  TTreePtr ParseEagerly() {
    TTreePtr Root = GetNode();
    if (Failed()) return nullptr;
    if (!Root || Root->IsMissing()) {
      Fail(MissingOperand);
      return nullptr;
    }
    bool Suspect = Root->IsBareOperator();
    for (;;) {
      TTreePtr Op = GetNode();
      if (Failed()) return nullptr;
      if (Op && !Op->IsBareOperator()) {
        Fail(Op->Kind == TTree::Missing ? MissingOperand : NoOperator);
        return nullptr;
      }
      if (Suspect) {
        Fail(MissingOperand);
        return nullptr;
      }
      if (!Op) return Root;
      TTreePtr Right = GetNode();
      if (Failed()) return nullptr;
      if (!Right || Right->IsMissing()) {
        Fail(MissingOperand);
        return nullptr;
      }
      Suspect = Right->IsBareOperator();
      Root = Attach(std::move(Root), std::move(Op), std::move(Right));
    }
  }

  const TUnitSetup& FUnit;
  std::u16string FText;
  bool FLazy;
  int FDepth;
  std::size_t FPos = 0;
  std::vector<std::u16string> FErrors;
};

std::u16string StoreOperand(const TUnitSetup& Unit, const TTree& Node, TErrors& Errors) {
  if (!Node.Elev || Node.Var || Node.Imperial) return Node.Store;
  if (!IsValid(Unit, Node.Store)) {
    Errors.All.emplace_back();
    return {};
  }
  return PlainText(AsDouble(Unit, Node.Store, 3).Value);
}

std::u16string EditOperand(const TUnitSetup& Unit, const TTree& Node) {
  if (!Node.Elev || Node.Var) return Node.Store;
  const TRead Number = ReadNumber(Node.Store);
  if (!Number.Ok) return {};
  std::u16string Text = StoreToDisplay(Unit, Number.Value, 3, false, {true, true, true, true});
  if (Unit.Code == 13 && !Text.empty() && !Text.ends_with(u'"')) Text += u'"';
  return Text;
}

} // namespace

bool TTree::IsMissing() const {
  return Kind == Missing || (Kind == Operand && !Block && (Value.empty() || Value == u"-"));
}

TTreePtr TTree::Copy() const {
  auto Result = std::make_unique<TTree>();
  Result->Kind = Kind;
  Result->Value = Value;
  Result->Store = Store;
  Result->Number = Number;
  Result->Block = Block;
  Result->Negative = Negative;
  Result->Var = Var;
  Result->Elev = Elev;
  Result->Imperial = Imperial;
  if (Left) Result->Left = Left->Copy();
  if (Right) Result->Right = Right->Copy();
  return Result;
}

TReading ReadExpression(const TUnitSetup& Unit, std::u16string_view Text) {
  TReader Eager(Unit, Text, false), Lazy(Unit, Text, true);
  TReading Result;
  Result.Root = Eager.Parse();
  Lazy.Parse();
  if (Eager.Failed()) Result.Messages.insert(Eager.Errors().back());
  if (Lazy.Failed()) Result.Messages.insert(Lazy.Errors().back());
  return Result;
}

std::u16string ProcessNode(const TUnitSetup& Unit, TTree& Node) {
  const TRead Number = ReadNumber(Node.Value);
  const auto Placeholder = [&Node](std::u16string Message) {
    Node.Number = 1;
    Node.Store = u"1";
    return Message;
  };
  if (Number.Ok) {
    if (Number.Value > 1e15) return Placeholder(Node.Value + u" is too big");
    if (Number.Value < -1e15) return Placeholder(Node.Value + u" is too Small");
    Node.Number = Number.Value;
    Node.Store = Node.Value;
    return {};
  }
  const bool EndsWithMark = Node.Value.ends_with(u'\'') || Node.Value.ends_with(u'"');
  if (IsMetric(Unit) || !EndsWithMark) {
    Node.Store = Node.Value;
    Node.Var = true;
    return {};
  }
  Node.Imperial = true;
  if (!IsValid(Unit, Node.Value)) return Placeholder(u"Imperial format error: " + Node.Value);
  Node.Number = AsDouble(Unit, Node.Value, 3).Value;
  Node.Store = GeneralText(Node.Number);
  return {};
}

double GetDoubleValue(const TTree& Node, TErrors& Errors) {
  if (Node.Kind != TTree::Operator) return Node.Number;
  const double Left = GetDoubleValue(*Node.Left, Errors), Right = GetDoubleValue(*Node.Right, Errors);
  const bool LeftImperial = Node.Left->Imperial, RightImperial = Node.Right->Imperial;
  const auto Refuse = [&Errors](std::u16string_view Message) {
    Errors.All.emplace_back(Message);
    return 0.0;
  };
  switch (Node.Value[0]) {
  case u'+':
    return LeftImperial != RightImperial ? Refuse(AddRefused) : Left + Right;
  case u'-':
    return LeftImperial != RightImperial ? Refuse(SubRefused) : Left - Right;
  case u'*':
    return LeftImperial && RightImperial ? Refuse(MulRefused) : Left * Right;
  default:
    if (Right == 0) return Refuse(u"can not div by zero!");
    if (RightImperial) return Refuse(LeftImperial ? ImperialByImperial : PlainByImperial);
    return Left / Right;
  }
}

std::u16string WriteOperand(const TUnitSetup& Unit, const TTree& Node, TForm Form, TErrors& Errors) {
  if (Form == TForm::Store) return StoreOperand(Unit, Node, Errors);
  if (Form == TForm::Edit) return EditOperand(Unit, Node);
  if (!Node.Elev || Node.Var) return Node.Store;
  return StoreToDisplay(Unit, Node.Number, 3, false, {});
}

std::u16string WriteTree(const TUnitSetup& Unit, const TTree& Node, TForm Form, TErrors& Errors) {
  if (Node.Kind != TTree::Operator) {
    const std::u16string Text = WriteOperand(Unit, Node, Form, Errors);
    return Node.Number < 0 ? u"(" + Text + u")" : Text;
  }
  const std::u16string Text =
      WriteTree(Unit, *Node.Left, Form, Errors) + Node.Value + WriteTree(Unit, *Node.Right, Form, Errors);
  return Node.Block ? u"(" + Text + u")" : Text;
}

} // namespace unitlib::fuzz::slow
