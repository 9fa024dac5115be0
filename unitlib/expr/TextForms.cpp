#include "unitlib/expr/TextForms.h"

#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

namespace unitlib {
namespace {

std::u16string LengthText(double Value, bool Plain) {
  return TMeasureDataManager::StoreToDisplay(ElevationMeasure, Value, ThousandScale, false, Plain, Plain,
                                             Plain, Plain);
}

std::u16string StoreText(TParser& Parser, const TNode& Operand) {
  if (double Metres = 0.0; ReadTypedLength(Operand.FStoreValue, Metres)) return FloatToPlainStr(Metres);
  Parser.SetError(u"", Operand.FPos);
  return {};
}

std::u16string EditText(const TNode& Operand) {
  double Value = 0.0;
  if (!TryStrToFloat(Operand.FStoreValue, Value)) return {};
  std::u16string Text = LengthText(Value, true);
  const bool IsInches = CurrentLengthUnit().UnitIdentifyCode == FractionalInchCode;
  if (IsInches && !Text.empty() && Text.back() != InchMark) Text.push_back(InchMark);
  return Text;
}

/// Text of an operand that is not converted. Beside an operator a negative exponent is written out: "1E-5"
/// would be read as "1E" less 5. Buffer may hold the result.
std::u16string_view KeptText(const TNode& Operand, bool BesideOperator, std::u16string& Buffer) {
  double Value = 0.0;
  if (!BesideOperator || Operand.FIsVar || Operand.FStoreValue.find(u"E-") == std::u16string::npos ||
      !TryStrToFloat(Operand.FStoreValue, Value))
    return Operand.FStoreValue;
  return Buffer = FloatToPlainStr(Value);
}

/// Text of an operand; Buffer may hold it.
std::u16string_view WriteOperand(TParser& Parser, const TNode& Operand, TTextForm Form, bool BesideOperator,
                                 std::u16string& Buffer) {
  const bool IsKept = !Operand.FIsElev || Operand.FIsVar || (Form == TTextForm::Store && Operand.FIsImperial);
  std::u16string_view Text;
  KeepError(Parser, Operand.FPos, [&] {
    if (IsKept)
      Text = KeptText(Operand, BesideOperator, Buffer);
    else if (Form == TTextForm::Store)
      Text = Buffer = StoreText(Parser, Operand);
    else
      Text = Buffer = Form == TTextForm::Edit ? EditText(Operand) : LengthText(Operand.FDoubleValue, false);
  });
  return Text;
}

/// True when an operand without a sign starts behind this position, npos: at the start of the text.
bool IsOperandStart(std::u16string_view Text, size_t Before) {
  constexpr std::u16string_view Operators = u"+-*/";
  if (Before == Text.npos) return true;
  const bool IsSign = Text[Before] == u'-' && (Before == 0 || Text[Before - 1] == u'(' ||
                                               Operators.find(Text[Before - 1]) != Text.npos);
  return !IsSign && (Text[Before] == u'(' || Operators.find(Text[Before]) != Text.npos);
}

/// True when the "/" that Text ends with and this name behind it would be read as an inch fraction: digits
/// and the inch mark follow what may be inches.
bool WouldReadAsFraction(std::u16string_view Text, const TNode& Name) {
  if (!Name.FIsVar || !Text.ends_with(u'/')) return false;
  const size_t Digits = Name.FStoreValue.find_first_not_of(u"0123456789");
  if (Digits == 0 || Digits == std::u16string::npos || Name.FStoreValue[Digits] != InchMark) return false;
  Text.remove_suffix(1);
  const size_t Before = Text.find_last_not_of(u"0123456789 '");
  if (Text.size() == Before + 1) return false; // no such character before the "/"
  return IsOperandStart(Text, Before) && IsImperialLengthCode(CurrentLengthUnit().UnitIdentifyCode);
}

/// Writes a tree from left to right without recursion.
class TTreeWriter {
public:
  TTreeWriter(TParser& Parser, TTextForm Form) : FParser(Parser), FForm(Form) {}

  std::u16string Write(const TNode& Root) {
    Write({&Root, nullptr, Begin});
    while (!FWaiting.Empty()) {
      const TStep Step = FWaiting.Top();
      FWaiting.Pop();
      Write(Step);
    }
    return std::move(FText);
  }

private:
  enum TState { Begin, LeftWritten, BothWritten };
  struct TStep {
    const TNode* Node;
    const TNode* Parent; // null for the root
    TState State;
  };

  void Write(const TStep& Step) {
    if (Step.Node->FNodeType == ntOp)
      WriteOperator(Step);
    else
      AppendOperand(*Step.Node, Step.Parent);
  }

  void WriteOperator(const TStep& Step) {
    const TNode& Node = *Step.Node;
    switch (Step.State) {
    case Begin:
      return BeginOperator(Step);
    case LeftWritten:
      FText += Node.FValue;
      FWaiting.Push({&Node, Step.Parent, BothWritten});
      FWaiting.Push({Node.FRight.get(), &Node, Begin});
      return;
    case BothWritten:
      if (Node.FIsBlock) Close();
    }
  }

  void BeginOperator(const TStep& Step) {
    const TNode& Node = *Step.Node;
    if (FParser.FHasError || !IsWholeOperator(Node)) return;
    if (Node.FIsBlock) Open();
    // Nearly every elevation is such a pair; with the room that its length brings along it costs 250
    // instructions less.
    if (Node.FLeft->FNodeType != ntOp && Node.FRight->FNodeType != ntOp) return WritePair(Node);
    FText.reserve(UsualLength); // room taken once instead of growing by and by
    FWaiting.Push({&Node, Step.Parent, LeftWritten});
    FWaiting.Push({Node.FLeft.get(), &Node, Begin});
  }

  /// What is left to do for an operator on two numbers or names.
  void WritePair(const TNode& Op) {
    AppendOperand(*Op.FLeft, &Op);
    FText += Op.FValue;
    AppendOperand(*Op.FRight, &Op);
    if (Op.FIsBlock) Close();
  }

  void Open() {
    FText.push_back(u'(');
    ++FOpenBrackets;
  }
  void Close() {
    FText.push_back(u')');
    --FOpenBrackets;
  }

  void AppendOperand(const TNode& Node, const TNode* Parent) {
    std::u16string Buffer;
    const std::u16string_view Text = WriteOperand(FParser, Node, FForm, Parent != nullptr, Buffer);
    bool InBrackets = Node.FDoubleValue < 0;
    if (Parent && Parent->FIsVar && IsVariable(Node)) // only Merge moves names to other places
      InBrackets = CheckName(Node) || InBrackets;
    if (InBrackets)
      FText.append(u"(").append(Text).append(u")");
    else
      Append(Text, Buffer);
  }

  /// Appends a text, which Buffer may hold: a shown length has room for the little before it.
  void Append(std::u16string_view Text, std::u16string& Buffer) {
    const size_t Size = FText.size() + Text.size();
    if (Text.data() == Buffer.data() && FText.capacity() < Size && Size <= Buffer.capacity())
      FText = std::move(Buffer.insert(0, FText));
    else
      FText += Text;
  }

  /// Refuses a name that would be read differently where it stands now. return: it needs brackets
  bool CheckName(const TNode& Name) {
    bool Result = false;
    KeepError(FParser, Name.FPos, [&] { Result = WouldReadAsFraction(FText, Name); });
    // "A)" inside brackets would end them; a bar belongs to a name only behind a blank, which is gone.
    if ((FOpenBrackets > 0 || Result) && Name.FValue.find(u')') != std::u16string::npos)
      FParser.SetError(NoOpeningBracketMessage, Name.FPos);
    if (Name.FValue.starts_with(u'/')) FParser.SetError(NoOperatorMessage, Name.FPos);
    return Result;
  }

  static constexpr size_t UsualLength = 31;

  TParser& FParser;
  const TTextForm FForm;
  std::u16string FText;
  int FOpenBrackets = 0;
  TSmallStack<TStep, 8> FWaiting;
};

} // namespace

std::u16string TreeText(TParser& Parser, const TNode& Root, TTextForm Form) {
  std::u16string Text = TTreeWriter(Parser, Form).Write(Root);
  if (Root.FNodeType == ntOp && Parser.FHasError) Text.clear(); // no half of an expression
  return Text;
}

std::u16string OperandText(TParser& Parser, const TNode& Operand, TTextForm Form) {
  std::u16string Buffer;
  const std::u16string_view Text = WriteOperand(Parser, Operand, Form, false, Buffer);
  if (Text.data() == Buffer.data()) return Buffer;
  return std::u16string(Text);
}

std::u16string TParser::GetStoreValue(const TNode& ANode) {
  return TreeText(*this, ANode, TTextForm::Store);
}

std::u16string TParser::GetEditValue(const TNode& ANode) {
  return TreeText(*this, ANode, TTextForm::Edit);
}

std::u16string TParser::GetDisplayValue(const TNode& ANode) {
  return TreeText(*this, ANode, TTextForm::Display);
}

} // namespace unitlib
