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
  if (!TMeasureDataManager::CheckDisplay(ElevationMeasure, Operand.FStoreValue)) {
    Parser.SetError(u"", Operand.FPos);
    return {};
  }
  return FloatToPlainStr(
      TMeasureDataManager::DisplayToStore(ElevationMeasure, Operand.FStoreValue, ThousandScale));
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
    FWaiting.push_back({&Root, Begin});
    while (!FWaiting.empty()) {
      const auto [Node, State] = FWaiting.back();
      FWaiting.pop_back();
      if (Node->FNodeType == ntOp)
        WriteOperator(*Node, State);
      else
        AppendOperand(*Node, Node != &Root);
    }
    return std::move(FText);
  }

private:
  enum TState { Begin, LeftWritten, BothWritten };

  void WriteOperator(const TNode& Node, TState State) {
    if (State == Begin && (FParser.FHasError || !IsWholeOperator(Node))) return;
    if (State == BothWritten) {
      if (Node.FIsBlock) Close();
      return;
    }
    if (State == Begin && Node.FIsBlock) Open();
    if (State == LeftWritten) {
      FText += Node.FValue;
      FIsSimplified = Node.FIsVar;
    }
    FWaiting.push_back({&Node, State == Begin ? LeftWritten : BothWritten});
    FWaiting.push_back({State == Begin ? Node.FLeft.get() : Node.FRight.get(), Begin});
  }

  void Open() {
    FText.push_back(u'(');
    ++FOpenBrackets;
  }
  void Close() {
    FText.push_back(u')');
    --FOpenBrackets;
  }

  void AppendOperand(const TNode& Node, bool BesideOperator) {
    // A name such as "A)" is possible outside brackets only; inside it would end them and change the value.
    if (FOpenBrackets > 0 && IsVariable(Node) && Node.FValue.find(u')') != std::u16string::npos)
      FParser.SetError(NoOpeningBracketMessage, Node.FPos);
    const std::u16string Text = WriteOperand(FParser, Node, FForm, BesideOperator);
    bool InBrackets = Node.FDoubleValue < 0;
    KeepError(FParser, Node.FPos,
              [&] { InBrackets = InBrackets || (FIsSimplified && WouldReadAsFraction(FText, Node)); });
    if (InBrackets)
      FText.append(u"(").append(Text).append(u")");
    else
      FText += Text;
  }

  TParser& FParser;
  const TTextForm FForm;
  std::u16string FText;
  int FOpenBrackets = 0;
  bool FIsSimplified = false; // the operator written last was put there by Merge
  std::vector<std::pair<const TNode*, TState>> FWaiting;
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
