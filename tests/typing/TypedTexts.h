/// Typed texts made from known quantities: what they are worth comes from the quantity, not from reading
/// them.
#pragma once

#include "tests/typing/TypedFields.h"

#include <optional>
#include <random>
#include <string>

namespace unitlib::test {

using TRandom = std::mt19937_64;

struct TTypedText {
  std::u16string Text;
  std::optional<double> Value; // base units; nothing: whatever
  bool MustBeRead = false;     // a spelling that every field of the quantity takes
  double Largest = 0;          // of the amounts in it, which bounds rounding
};

/// A length in one of the spellings of the trade, for a field of single values.
TTypedText MakeLength(TRandom& Random);
/// Lengths added, taken away, multiplied by numbers; in brackets, so that precedence does not matter.
TTypedText MakeSum(TRandom& Random);
/// An amount of the field's quantity with a unit word.
TTypedText MakeAmount(TRandom& Random, int Measure);
/// Characters of numbers and marks in any order.
TTypedText MakeNoise(TRandom& Random);
/// The same text with one to three characters inserted, taken out or replaced; its value is not known.
TTypedText Mutate(const TTypedText& Text, TRandom& Random);

} // namespace unitlib::test
