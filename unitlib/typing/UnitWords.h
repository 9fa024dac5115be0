/// The units that may be typed behind a number, and the words for them.
#pragma once

#include "unitlib/typing/Rational.h"

#include <cstdint>
#include <string_view>

namespace unitlib::typing {

/// Kinds of quantities; units of one kind convert into each other.
enum class TQuantityKind : std::uint8_t {
  None,
  Length,
  Area,
  Volume,
  Mass,
  Density,
  LineVolume,
  AreaVolume,
  LineMass
};

/// A unit: so many display units of a parser class.
struct TUnitRow {
  TQuantityKind Kind;
  std::u16string_view ParserClass; // that reads its numbers
  int Num, Den;                    // size in display units of that class: a yard is 3 feet
  double InBase;                   // size in base units (mm, mm2, mm3, kg, ...), for the second computation
  std::u16string_view Singular;
  std::u16string_view Plural;
};

/// Indices of the rows that rules mention.
enum TUnitIndex : int { Foot, Inch, Yard, Metre, KnownUnits };

const TUnitRow& UnitAt(int Index) noexcept;
/// The unit whose numbers a parser class reads (letters A to Z folded); null for a class of the host.
const TUnitRow* UnitOfClass(std::u16string_view ParserClass) noexcept;

inline bool IsUnit(const TUnitRow* Row, TUnitIndex Index) noexcept {
  return Row == &UnitAt(Index);
}
/// True for feet, inches and yards: units that are read as one text of feet and inches.
bool IsFeetInches(const TUnitRow* Row) noexcept;
/// Size of a feet-and-inches unit in inches.
TRational InchesIn(const TUnitRow& Row);

struct TUnitMatch {
  const TUnitRow* Row = nullptr;
  std::size_t Length = 0; // of the text that it took
  bool IsTon = false;     // a ton that could be one of three
};

/// The longest unit word that a text begins with: u"sq. ft. of" gives square feet and 7. Dots, a "^" before
/// an exponent and letter case do not count; a letter behind the word makes it none.
TUnitMatch MatchUnit(std::u16string_view Text, std::uint32_t Languages);

/// Name of a kind for messages: u"a length".
std::u16string_view KindName(TQuantityKind Kind) noexcept;

} // namespace unitlib::typing
