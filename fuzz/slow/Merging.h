/// What simplifying a tree must come to. Without a variable every text is determined; around variables the
/// library is free in what it writes, so only the value and the reasons to refuse are worked out.
#pragma once

#include "fuzz/slow/Expression.h"

#include <optional>

namespace unitlib::fuzz::slow {

/// The folded operand of a tree without variables.
TTreePtr MergeNumbers(const TUnitSetup& Unit, TTreePtr Node, TErrors& Errors);

/// Names of the variable operands, left to right.
std::vector<std::u16string> VariablesOf(const TTree& Node);

/// An exact value with the sum of the magnitudes that went into it, which bounds what 15 digits a step may
/// change.
struct TSum {
  TExact Value, Magnitude;
};
using TAssignment = std::map<std::u16string, TExact>;
/// Nothing where a divisor is 0 or not told from 0, or a value grows beyond what operands may be.
std::optional<TSum> Evaluate(const TTree& Node, const TAssignment& Values);

/// The form of a tree around its one variable: K x + B, or K / x + B.
struct TLinear {
  enum TShape { Offset, Product, Mixed } Shape = Product;
  TExact K = 1, B = 0;
  TExact Spread = 0; // sum of the magnitudes that went into B
  bool Inverse = false;
  int PlainTerms = 0, ImperialTerms = 0;
  bool ImperialFactor = false, Unsure = false, OnlyTheVariable = true;
};
/// errors      Errors receives what folding the numbers around the variable refuses
TLinear LinearForm(const TUnitSetup& Unit, const TTree& Root, TErrors& Errors);

/// Whether simplifying a tree with variables must be refused, or may be, and the messages for that.
struct TVerdict {
  bool Must = false, May = false;
  TMessages Messages;
};
TVerdict MergeVerdict(const TUnitSetup& Unit, const TTree& Root);

} // namespace unitlib::fuzz::slow
