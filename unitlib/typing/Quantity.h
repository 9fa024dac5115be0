/// One quantity of a typed text: a number, or numbers with their units.
#pragma once

#include "unitlib/typing/Tokens.h"

namespace unitlib::typing {

/// A number behind which a unit may stand.
struct TPart {
  TRational Value;
  std::u16string Words;      // "6 1/2", as it is told
  bool IsFraction = false;   // with a fraction: 1/2, 6 1/2
  bool DashFraction = false; // 6-1/2
  bool HasPoint = false;
  const TUnitRow* Unit = nullptr; // null: none
  bool UnitIsMark = false;
};

struct TQuantity {
  std::vector<TPart> Parts; // one; or yards, feet and inches in this order
  std::size_t Begin = 0;    // in the typed text
  std::size_t End = 0;
  bool LastUnmarked = false; // inches that have no mark behind feet that have one: 5'6

  bool IsPlain() const noexcept { return Parts.size() == 1 && !Parts.front().Unit; }
  bool IsWholeNumber() const noexcept {
    return IsPlain() && !Parts.front().IsFraction && !Parts.front().HasPoint;
  }
  bool IsFeetInches() const noexcept { return typing::IsFeetInches(Parts.front().Unit); }
  /// Feet or inches written with marks.
  bool IsMarked() const noexcept { return IsFeetInches() && Parts.front().UnitIsMark; }
  bool IsFeetOnly() const noexcept { return Parts.size() == 1 && IsUnit(Parts.front().Unit, Foot); }
  bool IsInchesOnly() const noexcept { return Parts.size() == 1 && IsUnit(Parts.front().Unit, Inch); }
  TQuantityKind Kind() const noexcept {
    return Parts.front().Unit ? Parts.front().Unit->Kind : TQuantityKind::None;
  }
  /// A length in inches; only where IsFeetInches.
  TRational Inches() const;
  /// "10 feet 6 inches".
  std::u16string Words() const;
};

/// Reads the quantity that starts at a token, which moves behind it. A sign is not part of it.
/// errors      TRefusal
TQuantity ReadQuantity(const std::vector<TToken>& Tokens, std::size_t& At, const TField& Field,
                       TNotes& Notes);

/// True at a token that a quantity can start with.
bool StartsQuantity(const TToken& Token) noexcept;

} // namespace unitlib::typing
