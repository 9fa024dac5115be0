/// Simplifying trees: numbers fold into one, and around a variable they are brought together.
#pragma once

#include "unitlib/expr/ZELUnitArthProcessor.h"

#include <memory>
#include <utility>

namespace unitlib {

/// The simplified tree, see TParser::Merge. Errors are set in Parser.
std::unique_ptr<TNode> MergeTree(TParser& Parser, std::unique_ptr<TNode> Root);

/// A part of a tree that holds a variable, taken apart:
///   core              the variable, or a tree that cannot be taken apart
///   factor            a number that the core is multiplied by or divided by, or that is divided by it
///   sign              of the two together
///   offset            a number added to that or subtracted from it, or that it is subtracted from
/// While nothing is brought together the pieces keep the order and operators they were written with, so that
/// ToNode gives back the tree as it was.
class TVariableSide {
public:
  /// A variable, or a tree that stays as it is.
  TVariableSide(TParser& Parser, std::unique_ptr<TNode> Core);

  /// The tree made of the pieces; they are used up.
  std::unique_ptr<TNode> ToNode();

  /// This part, operator, number; or number, operator, this part when NumberLeft. Op, whose operands are
  /// taken out, tells the operator, its place and its brackets.
  void Apply(const TNode& Op, std::unique_ptr<TNode> Number, bool NumberLeft);
  /// This part, operator, another part.
  void Join(const TNode& Op, TVariableSide Right);
  void Negate();

private:
  /// A number beside something, with the operator between.
  struct TPiece {
    std::unique_ptr<TNode> Number;
    char16_t Op = 0;
    bool NumberLeft = false;
    bool IsBlock = false; // its operator node is a bracketed block
    explicit operator bool() const noexcept { return Number != nullptr; }
  };

  struct TRatio {
    double Times, By;
  };

  void Add(char16_t Op, std::unique_ptr<TNode> Number, bool NumberLeft);
  bool Scale(char16_t Op, std::unique_ptr<TNode>& Number, bool NumberLeft);
  bool ScaleFactor(char16_t Op, const TNode& Number, bool NumberLeft, TPiece& Result) const;
  bool MakeFactor(TRatio Ratio, bool CoreLeft, TPiece& Result) const;
  void Keep(const TNode& Op, std::unique_ptr<TNode> Left, std::unique_ptr<TNode> Right);
  std::unique_ptr<TNode> TakeOffset();
  void SetOffset(std::unique_ptr<TNode> Number);
  void AbsorbSign();
  void SetBlock(bool IsBlock);
  std::unique_ptr<TNode> Beside(TPiece Piece, std::unique_ptr<TNode> Node) const;

  TParser* FParser;
  std::int32_t FPos; // of the operator applied last
  std::unique_ptr<TNode> FCore;
  bool FIsNegative = false;
  TPiece FFactor;
  TPiece FOffset; // with an offset FIsNegative is false: the sign is in the order and the operator
};

} // namespace unitlib
