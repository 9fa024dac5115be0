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
/// would be read as "1E" less 5.
std::u16string KeptText(const TNode& Operand, bool BesideOperator) {
  double Value = 0.0;
  if (!BesideOperator || Operand.FIsVar || Operand.FStoreValue.find(u"E-") == std::u16string::npos ||
      !TryStrToFloat(Operand.FStoreValue, Value))
    return Operand.FStoreValue;
  return FloatToPlainStr(Value);
}

std::u16string WriteOperand(TParser& Parser, const TNode& Operand, TTextForm Form, bool BesideOperator) {
  const bool IsKept = !Operand.FIsElev || Operand.FIsVar || (Form == TTextForm::Store && Operand.FIsImperial);
  std::u16string Text;
  KeepError(Parser, Operand.FPos, [&] {
    if (IsKept)
      Text = KeptText(Operand, BesideOperator);
    else if (Form == TTextForm::Store)
      Text = StoreText(Parser, Operand);
    else
      Text = Form == TTextForm::Edit ? EditText(Operand) : LengthText(Operand.FDoubleValue, false);
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
    constexpr size_t UsualLength = 31;
    FText.reserve(UsualLength); // room taken once instead of growing by and by
    FWaiting.Push({&Root, nullptr, Begin});
    while (!FWaiting.Empty()) {
      const TStep Step = FWaiting.Top();
      FWaiting.Pop();
      if (Step.Node->FNodeType == ntOp)
        WriteOperator(Step);
      else
        AppendOperand(*Step.Node, Step.Parent);
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

  void WriteOperator(const TStep& Step) {
    const TNode& Node = *Step.Node;
    if (Step.State == Begin && (FParser.FHasError || !IsWholeOperator(Node))) return;
    if (Step.State == BothWritten) {
      if (Node.FIsBlock) Close();
      return;
    }
    if (Step.State == Begin && Node.FIsBlock) Open();
    if (Step.State == LeftWritten) FText += Node.FValue;
    FWaiting.Push({&Node, Step.Parent, Step.State == Begin ? LeftWritten : BothWritten});
    FWaiting.Push({Step.State == Begin ? Node.FLeft.get() : Node.FRight.get(), &Node, Begin});
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
    const std::u16string Text = WriteOperand(FParser, Node, FForm, Parent != nullptr);
    bool InBrackets = Node.FDoubleValue < 0;
    if (Parent && Parent->FIsVar && IsVariable(Node)) // only Merge moves names to other places
      InBrackets = CheckName(Node) || InBrackets;
    if (InBrackets)
      FText.append(u"(").append(Text).append(u")");
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
  return WriteOperand(Parser, Operand, Form, false);
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
