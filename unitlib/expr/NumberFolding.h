/// Arithmetic of operands: the value of one operator, and two numbers folded into one.
#pragma once

#include "unitlib/expr/ZELUnitArthProcessor.h"

#include <memory>

namespace unitlib {

/// Value of an operator on the values of its operands; 0, with the parser's error set, where it is refused.
double ApplyOperator(TParser& Parser, const TNode& Op, double Left, double Right);

/// A new operand of this value, as if read from its text: 15 digits, and the limits of every operand.
std::unique_ptr<TNode> FoldedNumber(TParser& Parser, double Value, bool IsImperial, std::int32_t Pos);

/// Makes a node that operand, where there is a current unit of lengths; what is below it is freed. False, and
/// the node half done, where FoldedNumber has to look at the text: for numbers that it may refuse, and for
/// very small ones.
bool MakeNumber(TNode& Node, double Value, bool IsImperial, std::int32_t Pos);

/// Two numbers and an operator folded; imperial when one of them is. Both are used up.
std::unique_ptr<TNode> FoldPair(TParser& Parser, char16_t Op, std::unique_ptr<TNode> Left,
                                std::unique_ptr<TNode> Right, std::int32_t Pos);

/// Value of a tree of numbers without names, every operator folded to 15 digits as Merge does it; imperial
/// when one of the numbers is. The root's own sign is not applied and its value not cut yet. False where
/// something is refused or missing, a number is not an ordinary one, or no settings are loaded.
struct TTreeValue {
  double Value;
  bool IsImperial;
};
bool FoldTree(const TNode& Root, TTreeValue& Result);

/// The number with the other sign, its digits as they are.
std::unique_ptr<TNode> Negated(std::unique_ptr<TNode> Number);

} // namespace unitlib
