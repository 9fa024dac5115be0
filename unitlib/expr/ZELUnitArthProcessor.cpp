#include "unitlib/expr/ZELUnitArthProcessor.h"

#include "unitlib/convert/ImperialText.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/expr/NumberFolding.h"
#include "unitlib/expr/TreeReader.h"
#include "unitlib/expr/VariableSide.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <limits>

namespace unitlib {
namespace {

/// Positions are 32-bit integers, and one stands behind the text.
bool IsTooLong(std::u16string_view Text) noexcept {
  return Text.size() >= static_cast<size_t>(std::numeric_limits<std::int32_t>::max());
}

void UsePlaceholder(TNode& Node) {
  Node.FDoubleValue = 1.0;
  Node.FStoreValue.assign(1, u'1');
}

std::u16string ClassifyNumber(TNode& Node, double Value) {
  if (Value > LargestOperand || Value < -LargestOperand) {
    UsePlaceholder(Node);
    return Node.FValue + std::u16string(Value > 0 ? TooBigMessage : TooSmallMessage);
  }
  Node.FDoubleValue = Value;
  Node.FStoreValue = Node.FValue;
  return {};
}

std::u16string ClassifyImperial(TNode& Node, TUnit& Unit) {
  Node.FIsImperial = true;
  UsePlaceholder(Node);
  if (!ReadTypedLength(Node.FValue, &Unit, Node.FDoubleValue))
    return std::u16string(ImperialFormatMessage) + Node.FValue;
  Node.FStoreValue = FloatToStr(Node.FDoubleValue);
  return {};
}

/// What Clone copies of the node itself.
std::unique_ptr<TNode> CloneFields(const TNode& Node) {
  if (Node.FNodeType == ntUnknown) return nullptr;
  auto Result = std::make_unique<TNode>();
  Result->FNodeType = Node.FNodeType;
  Result->FIsVar = Node.FIsVar;
  Result->FPos = Node.FPos;
  if (Node.FNodeType == ntOp) {
    Result->SetValue(Node.FValue);
    Result->FIsBlock = Node.FIsBlock;
    return Result;
  }
  Result->FValue = Node.FValue;
  Result->FDoubleValue = Node.FDoubleValue;
  Result->FStoreValue = Node.FStoreValue;
  Result->FIsImperial = Node.FIsImperial;
  return Result;
}

/// Current unit of the measure that typed lengths are read with; null where there is no such measure.
/// errors      EListError no configuration, or the measure has no current unit
TUnit* UnitOfLengths() {
  return TSystemUnitDataManager::CurConfigUnit(ElevationMeasure);
}

/// How many variables a tree with an operator at its root holds.
int CountVariables(const TNode& Root) {
  int Result = 0;
  const auto IsDone = [&Result](const TNode* Child) {
    Result += Child && IsVariable(*Child);
    return !Child || Child->FNodeType != ntOp;
  };
  const bool LeftDone = IsDone(Root.FLeft.get());
  if (IsDone(Root.FRight.get()) && LeftDone) return Result; // nearly every elevation: no walk
  Result = 0;
  ForEachPostOrder(Root, [&Result](const TNode& Node) { Result += IsVariable(Node); });
  return Result;
}

} // namespace

TUnit& CurrentLengthUnit() {
  if (TUnit* Unit = UnitOfLengths()) return *Unit;
  const std::u16string Code = IntToStr(ElevationMeasure);
  throw EListError(u"No current unit for measure " + Code, Code);
}

TUnit* FindLengthUnit() {
  try {
    return UnitOfLengths();
  } catch (const EUnitError&) {
    return nullptr;
  }
}

bool ReadTypedLength(std::u16string_view Text, TUnit* Unit, double& Metres) {
  const TUnitParserHere Parser(Unit); // one for both questions
  if (!Parser || !Parser->IsValid(Text)) return false;
  Metres = Parser->AsDouble(Text, ThousandScale);
  return true;
}

bool ReadTypedLength(std::u16string_view Text, double& Metres) {
  return ReadTypedLength(Text, UnitOfLengths(), Metres);
}

std::u16string ClassifyOperand(TNode& Node, TUnit& Unit) {
  const bool HasMark = IsEndWithSymbol(Node.FValue); // then it is no number
  if (HasMark && !IsMetricLengthCode(Unit.UnitIdentifyCode)) return ClassifyImperial(Node, Unit);
  double Value = 0.0;
  if (!HasMark && TryStrToFloat(Node.FValue, Value)) return ClassifyNumber(Node, Value);
  Node.FStoreValue = Node.FValue;
  Node.FIsVar = true;
  return {};
}

void TNode::AfterConstruction() {
  BeforeDestruction();
  FIsBlock = FIsNegative = FIsVar = FIsElev = FIsImperial = false;
  FValue.clear();
  FStoreValue.clear();
  FDoubleValue = 0.0;
  FPos = -1;
}

std::unique_ptr<TNode> TNode::Clone() const {
  std::unique_ptr<TNode> Result = CloneFields(*this);
  std::vector<std::pair<const TNode*, TNode*>> Waiting; // original, copy that still lacks its children
  auto CopyChild = [&Waiting](const std::unique_ptr<TNode>& Child, std::unique_ptr<TNode>& Place) {
    if (!Child) return;
    Place = CloneFields(*Child);
    if (Place) Waiting.emplace_back(Child.get(), Place.get());
  };
  if (Result) Waiting.emplace_back(this, Result.get());
  while (!Waiting.empty()) {
    const auto [Original, Copy] = Waiting.back();
    Waiting.pop_back();
    if (Original->FNodeType != ntOp) continue;
    CopyChild(Original->FLeft, Copy->FLeft);
    CopyChild(Original->FRight, Copy->FRight);
  }
  return Result;
}

bool TNode::IsHigerThanOther(const TNode& AOther, bool ARespectBlock) const noexcept {
  return BindsTighter(*this, AOther, ARespectBlock);
}

void TNode::SetValue(std::u16string_view AValue) {
  FValue = TrimView(AValue);
}

TParser::TParser(std::u16string_view AText)
    : FString(IsTooLong(AText) ? std::u16string_view() : TrimView(AText)),
      FTotal(static_cast<std::int32_t>(FString.size()) + 1), FPoint(1), FHasError(false), FErrPos(-1),
      FSkipped(FString.empty() ? 0 : static_cast<std::int32_t>(TrimView(AText).data() - AText.data())) {
  if (IsTooLong(AText)) SetError(TooLongMessage, -1);
}

std::unique_ptr<TNode> TParser::Parse() {
  return TTreeReader(*this).ReadText();
}

std::unique_ptr<TNode> TParser::GetNode() {
  return TTreeReader(*this).ReadNode();
}

std::u16string TParser::SubStringInBracket() {
  const std::int32_t Start = FPoint;
  const std::int32_t Closing = FindClosingBracket(*this, FPoint);
  if (Closing == 0) return {};
  FPoint = Closing + 1;
  return FString.substr(static_cast<size_t>(Start) - 1, static_cast<size_t>(Closing - Start));
}

void TParser::ProcessNode(TNode& ANode) {
  KeepError(*this, ANode.FPos, [&] {
    const std::u16string Message = ClassifyOperand(ANode, CurrentLengthUnit());
    if (!Message.empty()) SetError(Message, ANode.FPos);
  });
}

double TParser::GetDoubleValue(const TNode& ANode) {
  if (ANode.FNodeType != ntOp) return ANode.FDoubleValue;
  std::vector<double> Values;
  ForEachPostOrder(ANode, [&](const TNode& Node) {
    if (Node.FNodeType != ntOp) {
      Values.push_back(Node.FDoubleValue);
    } else if (!IsWholeOperator(Node)) {
      SetError(NoOperandMessage, Node.FPos);
      if (Node.FLeft || Node.FRight) Values.pop_back();
      Values.push_back(0.0);
    } else {
      const double Right = Values.back();
      Values.pop_back();
      Values.back() = ApplyOperator(*this, Node, Values.back(), Right);
    }
  });
  return Values.back();
}

void TParser::Merge(std::unique_ptr<TNode>& ANode) {
  if (ANode && !FHasError) ANode = MergeTree(*this, std::move(ANode));
}

void TParser::Mark(TNode& ANode) {
  if (ANode.FNodeType != ntOp) { // a variable at most
    ANode.FIsElev = true;
    return;
  }
  if (CountVariables(ANode) >= 2) return SetError(u"", -1);
  const char16_t Op = OperatorOf(ANode);
  for (TNode* Child : {ANode.FLeft.get(), ANode.FRight.get()})
    if (Child && (Op == u'-' || (Op == u'+' && Child->FNodeType != ntOp))) Child->FIsElev = true;
}

void TParser::SetError(std::u16string_view AMessage, std::int32_t APos) {
  FHasError = true;
  FErrMsg = AMessage;
  FErrPos = APos;
}

} // namespace unitlib
