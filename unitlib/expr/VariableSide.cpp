#include "unitlib/expr/VariableSide.h"

#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/expr/NumberFolding.h"
#include "unitlib/rtl/Numbers.h"

#include <cmath>
#include <limits>

namespace unitlib {
namespace {

constexpr double SmallestFactor = 1e-290; // below it products lose digits

bool IsTerm(const TNode& Node) noexcept {
  return Node.FValue == u"+" || Node.FValue == u"-";
}
bool IsFactor(const TNode& Node) noexcept {
  return Node.FValue == u"*" || Node.FValue == u"/";
}

/// True when a child operator would be read differently without brackets, or as another tree.
bool NeedsBrackets(const TNode& Parent, const TNode& Child, bool IsRight) noexcept {
  if (Child.FNodeType != ntOp) return false;
  return IsTerm(Parent) ? IsRight && IsTerm(Child) : IsRight || IsTerm(Child);
}

std::unique_ptr<TNode> MakeOperator(std::u16string_view Op, std::int32_t Pos, std::unique_ptr<TNode> Left,
                                    std::unique_ptr<TNode> Right) {
  auto Node = std::make_unique<TNode>();
  Node->FNodeType = ntOp;
  Node->FValue = Op;
  Node->FIsVar = true;
  Node->FPos = Pos;
  if (NeedsBrackets(*Node, *Left, false)) Left->FIsBlock = true;
  if (NeedsBrackets(*Node, *Right, true)) Right->FIsBlock = true;
  Node->FLeft = std::move(Left);
  Node->FRight = std::move(Right);
  return Node;
}

/// An operand with this value, its digits cut to 15 as every folded number's.
std::unique_ptr<TNode> MakeNumber(double Value, std::int32_t Pos) {
  auto Node = std::make_unique<TNode>();
  Node->FNodeType = ntNum;
  Node->FPos = Pos;
  Node->FValue = Node->FStoreValue = FloatToStr(Value);
  Node->FDoubleValue = StrToFloat(Node->FValue);
  return Node;
}

/// A product, but never 0 by underflow: what is no number is not safe.
double Product(double A, double B) noexcept {
  const double Result = A * B;
  return Result == 0 && A != 0 && B != 0 ? std::numeric_limits<double>::quiet_NaN() : Result;
}

/// True when one number may stand for a product or quotient of numbers: an allowed operand, and no digits
/// lost at the small end.
bool IsSafe(double Value) noexcept {
  return std::fabs(Value) <= LargestOperand && std::fabs(Value) >= SmallestFactor;
}

} // namespace

TVariableSide::TVariableSide(TParser& Parser, std::unique_ptr<TNode> Core)
    : FParser(&Parser), FPos(Core->FPos), FCore(std::move(Core)), FIsNegative(FCore->FIsNegative) {
  FCore->FIsNegative = false;
}

std::unique_ptr<TNode> TVariableSide::Beside(TPiece Piece, std::unique_ptr<TNode> Node) const {
  auto Left = Piece.NumberLeft ? std::move(Piece.Number) : std::move(Node);
  auto Right = Piece.NumberLeft ? std::move(Node) : std::move(Piece.Number);
  auto Result = MakeOperator({&Piece.Op, 1}, FPos, std::move(Left), std::move(Right));
  Result->FIsBlock = Piece.IsBlock;
  return Result;
}

std::unique_ptr<TNode> TVariableSide::ToNode() {
  if (FIsNegative) AbsorbSign();
  std::unique_ptr<TNode> Node = std::move(FCore);
  if (FFactor) Node = Beside(std::move(FFactor), std::move(Node));
  if (FOffset) Node = Beside(std::move(FOffset), std::move(Node));
  return Node;
}

void TVariableSide::Apply(const TNode& Op, std::unique_ptr<TNode> Number, bool NumberLeft) {
  FPos = Op.FPos;
  // A number before a lone variable stays there; otherwise the variable comes first where that is the same.
  const bool IsLone = FCore->FNodeType != ntOp && !FFactor && !FOffset;
  if (!IsLone && (Op.FValue == u"+" || Op.FValue == u"*")) NumberLeft = false;
  if (IsTerm(Op)) {
    Add(Op.FValue[0], std::move(Number), NumberLeft);
    return SetBlock(Op.FIsBlock);
  }
  if (IsFactor(Op) && Number->FIsImperial) FParser->SetError(VarImperialMessage, FPos);
  if (IsFactor(Op) && !Number->FIsImperial && Scale(Op.FValue[0], Number, NumberLeft))
    return SetBlock(Op.FIsBlock);
  std::unique_ptr<TNode> Side = ToNode();
  if (NumberLeft)
    Keep(Op, std::move(Number), std::move(Side));
  else
    Keep(Op, std::move(Side), std::move(Number));
}

/// A tree that is not taken apart becomes the core.
void TVariableSide::Keep(const TNode& Op, std::unique_ptr<TNode> Left, std::unique_ptr<TNode> Right) {
  FCore = MakeOperator(Op.FValue, Op.FPos, std::move(Left), std::move(Right));
  FCore->FIsBlock = Op.FIsBlock;
}

void TVariableSide::SetBlock(bool IsBlock) {
  if (FOffset)
    FOffset.IsBlock = IsBlock;
  else if (FFactor)
    FFactor.IsBlock = IsBlock;
  else
    FCore->FIsBlock = IsBlock;
}

void TVariableSide::Add(char16_t Op, std::unique_ptr<TNode> Number, bool NumberLeft) {
  if (!FOffset && !FIsNegative) {
    FOffset = {std::move(Number), Op, NumberLeft, false};
    return;
  }
  std::unique_ptr<TNode> Offset = TakeOffset();
  const bool Reversed = NumberLeft && Op == u'-'; // number - (side + offset) is -side + (number - offset)
  if (Reversed) FIsNegative = !FIsNegative;
  if (Reversed && Offset) std::swap(Number, Offset);
  if (Offset)
    Offset = FoldPair(*FParser, Op, std::move(Offset), std::move(Number), FPos);
  else
    Offset = Op == u'-' && !Reversed ? Negated(std::move(Number)) : std::move(Number);
  SetOffset(std::move(Offset));
}

/// The offset as a number to add; null when there is none.
std::unique_ptr<TNode> TVariableSide::TakeOffset() {
  if (!FOffset) return nullptr;
  TPiece Piece = std::move(FOffset);
  FOffset = {};
  if (Piece.Op != u'-') return std::move(Piece.Number);
  if (!Piece.NumberLeft) return Negated(std::move(Piece.Number));
  FIsNegative = !FIsNegative;
  return std::move(Piece.Number);
}

/// Writes a number to add as an offset: never a negative number, because in feet and inches a fraction with a
/// sign cannot be typed; the variable on the left where the signs allow.
void TVariableSide::SetOffset(std::unique_ptr<TNode> Number) {
  const bool NumberLeft = FIsNegative && !(Number->FDoubleValue < 0);
  if (NumberLeft)
    FIsNegative = false;
  else if (FIsNegative)
    AbsorbSign();
  const bool Subtract = NumberLeft || Number->FDoubleValue < 0;
  if (Number->FDoubleValue < 0) Number = Negated(std::move(Number));
  FOffset = {std::move(Number), Subtract ? u'-' : u'+', NumberLeft, false};
}

/// Puts the sign of the side into its factor.
void TVariableSide::AbsorbSign() {
  FIsNegative = false;
  if (FFactor)
    FFactor.Number = Negated(std::move(FFactor.Number));
  else
    FFactor = {MakeNumber(-1.0, FPos), u'*', false, false};
}

void TVariableSide::Negate() {
  std::unique_ptr<TNode> Offset = TakeOffset();
  FIsNegative = !FIsNegative;
  if (Offset) SetOffset(Negated(std::move(Offset)));
  SetBlock(false);
}

/// Multiplies or divides by a number, or divides it, piece by piece, and uses the number up; false, and
/// nothing changed, when that cannot be done without a change of the value.
bool TVariableSide::Scale(char16_t Op, std::unique_ptr<TNode>& Number, bool NumberLeft) {
  const bool IsDivided = Op == u'/' && NumberLeft;
  const bool ByZero = Op == u'/' && !NumberLeft && Number->FDoubleValue == 0;
  // A division by zero stays where it stands: it is an error when the tree is evaluated.
  if (FOffset ? IsDivided || ByZero : FIsNegative && ByZero) return false;
  TPiece Factor;
  if (FFactor && !ScaleFactor(Op, *Number, NumberLeft, Factor)) return false;
  std::unique_ptr<TNode> Offset = TakeOffset();
  if (Offset) Offset = FoldPair(*FParser, Op, std::move(Offset), Number->Clone(), FPos);
  FFactor = FFactor ? std::move(Factor) : TPiece{std::move(Number), Op, NumberLeft, false};
  if (Offset) SetOffset(std::move(Offset));
  return true;
}

/// The factor there is, together with one more.
bool TVariableSide::ScaleFactor(char16_t Op, const TNode& Number, bool NumberLeft, TPiece& Result) const {
  const bool CoreLeft = !(FFactor.Op == u'/' && FFactor.NumberLeft); // unset: factor / core
  TRatio Ratio{FFactor.Number->FDoubleValue, 1};
  if (CoreLeft && FFactor.Op == u'/') std::swap(Ratio.Times, Ratio.By);
  // number / (factor / core) stays: regrouped, a core of zero would be allowed.
  const bool IsDivided = Op == u'/' && NumberLeft;
  if (Ratio.By == 0 || (IsDivided && !CoreLeft)) return false;
  if (IsDivided) std::swap(Ratio.Times, Ratio.By);
  double& Scaled = Op == u'/' && !NumberLeft ? Ratio.By : Ratio.Times;
  Scaled = Product(Scaled, Number.FDoubleValue);
  return MakeFactor(Ratio, CoreLeft && !IsDivided, Result);
}

/// core * Times / By with one number, or, with CoreLeft unset, Times / By / core. A third is no decimal
/// number, but three is, so what is a product and a quotient becomes the one whose number is shorter.
bool TVariableSide::MakeFactor(TRatio Ratio, bool CoreLeft, TPiece& Result) const {
  if (Ratio.By == 0) return false;
  const double Multiplier = Ratio.Times / Ratio.By, Divisor = Ratio.By / Ratio.Times;
  // A multiplier of 0 is exact only where a factor was; a host may have set one that is no number.
  const bool CanMultiply = Multiplier == 0 ? Ratio.Times == 0 : IsSafe(Multiplier);
  const bool CanDivide = CoreLeft && IsSafe(Divisor);
  if (!CanMultiply && !CanDivide) return false;
  auto Times = CanMultiply ? MakeNumber(Multiplier, FPos) : nullptr;
  auto By = CanDivide && Ratio.By != 1 ? MakeNumber(Divisor, FPos) : nullptr;
  if (CanDivide && !Times && !By) By = MakeNumber(Divisor, FPos);
  const bool Divide = By && (!Times || Ratio.Times == 1 || By->FValue.size() < Times->FValue.size());
  Result = {Divide ? std::move(By) : std::move(Times), Divide || !CoreLeft ? u'/' : u'*', !CoreLeft, false};
  return true;
}

void TVariableSide::Join(const TNode& Op, TVariableSide Right) {
  FPos = Op.FPos;
  const bool Regroup = IsTerm(Op) && (FOffset || Right.FOffset || FIsNegative || Right.FIsNegative);
  if (!Regroup) return Keep(Op, ToNode(), Right.ToNode());
  std::unique_ptr<TNode> Offset = TakeOffset(), RightOffset = Right.TakeOffset();
  if (Op.FValue == u"-") {
    Right.FIsNegative = !Right.FIsNegative;
    if (RightOffset) RightOffset = Negated(std::move(RightOffset));
  }
  // Both signs go into the operator, or before both sides.
  if (FIsNegative && !Right.FIsNegative) std::swap(*this, Right);
  const bool BothNegative = FIsNegative;
  const bool Subtract = !FIsNegative && Right.FIsNegative;
  FIsNegative = Right.FIsNegative = false;
  FCore = MakeOperator(Subtract ? u"-" : u"+", Op.FPos, ToNode(), Right.ToNode());
  FPos = Op.FPos;
  FIsNegative = BothNegative;
  if (Offset && RightOffset)
    Offset = FoldPair(*FParser, u'+', std::move(Offset), std::move(RightOffset), FPos);
  else if (RightOffset)
    Offset = std::move(RightOffset);
  if (Offset) SetOffset(std::move(Offset));
  SetBlock(Op.FIsBlock);
}

} // namespace unitlib
