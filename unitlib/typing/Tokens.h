/// A typed text as tokens: numbers, fractions, marks, unit words, signs.
#pragma once

#include "unitlib/typing/Field.h"

#include <optional>
#include <vector>

namespace unitlib::typing {

enum class TTokenKind : std::uint8_t {
  Number,
  Fraction, // in one piece: ½, ¹⁄₂
  Unit,     // a foot or inch mark, or a word
  Name,
  And, // the word, and a comma behind a unit: 10 feet, 6 inches
  Plus,
  Dash, // hyphen, dash or minus sign
  Times,
  Slash,
  Open,
  Close,
  End
};

struct TToken {
  TTokenKind Kind = TTokenKind::End;
  std::size_t Begin = 0; // in the typed text
  std::size_t End = 0;
  bool BlankBefore = false;
  char16_t Char = 0; // of a sign or mark, as typed

  std::u16string Text; // of a number: digits with a point; of a name
  TRational Value;     // of a number or fraction
  int Numerator = 0;   // of a fraction
  int Denominator = 1;
  bool HasPoint = false; // of a number

  const TUnitRow* Unit = nullptr;
  bool IsMark = false; // of a unit: ' or "
};

/// What was read in a way that is worth telling: "comma read as the decimal mark".
using TNotes = std::vector<std::u16string>;
void AddNote(TNotes& Notes, std::u16string_view Note);

/// The tokens of a text, an End behind them.
/// errors      TRefusal, with the place
std::vector<TToken> Tokenize(std::u16string_view Text, const TField& Field, TNotes& Notes);

/// Refuses commas and points that separate no groups of digits, in every number of the text: the facade takes
/// all commas out, and 1,5 would be 15.
void RequireClearCommas(std::u16string_view Text, const TField& Field);

} // namespace unitlib::typing
