/// The values that an expression is calculated with, and the rules of calculating with lengths.
#pragma once

#include "unitlib/typing/Rewriting.h"

namespace unitlib::typing {

/// A part of an expression: a plain number, an amount of the field's quantity, or a name with an offset.
struct TTerm {
  enum class TKind : std::uint8_t { Plain, Amount, Named };

  TKind Kind = TKind::Plain;
  double Value = 0;       // a count; base units of an amount; the offset of a name
  TRational Exact;        // the same for counts and lengths (mm), as long as it can be kept
  bool OnlyMarks = false; // an amount written with foot and inch marks alone
  bool InBrackets = false;
  std::u16string Text;   // in the grammar of the engine
  std::u16string Engine; // the same with every amount as its number of base units

  std::u16string Name; // of a name: Sign x name + offset
  int Sign = 1;
  bool HasOffset = false;          // of a name; false: of which nothing is known
  TKind OffsetKind = TKind::Plain; // what the offset counts

  std::size_t Begin = 0; // in the typed text
  std::size_t End = 0;
};

TTerm TermOf(const TQuantity& Quantity, const TField& Field);
TTerm TermOfName(const TToken& Token);
void Negate(TTerm& Term);
void SetBrackets(TTerm& Term);

/// Left operator Right.
/// errors      TRefusal they do not go together
TTerm Combine(const TTerm& Left, const TToken& Operator, const TTerm& Right, const TField& Field);

} // namespace unitlib::typing
