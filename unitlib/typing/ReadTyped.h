/// Reads what people type into a value field: everything the conversion facade reads, with the same value,
/// and the spellings of the trade that it refuses. What can be read in two ways is refused with both offered.
///   ReadTyped(0, u"10'-6\"").StoreValue == 3200.4           // dash between feet and inches of a single
///   value ReadTyped(0, u"2.5 m").Rewritten == u"8'2 54/127\""     // typed into a feet field
///
/// How it works. The facade is asked first. What it refuses is cut into tokens (Tokens), read as one quantity
/// (Quantity) or as an expression of quantities (Expression), and rewritten into the facade's own grammar
/// (Rewriting); every number that is reported comes from calling the facade, its parsers or the expression
/// engine. A second, independent computation has to agree, else the text is refused. The rules are one table:
/// docs/typing.md.
/// Nothing is kept between calls; time and memory grow with the length of the text, at most.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib {

/// What a field takes: one value, in which a dash separates feet, inches and fraction; or arithmetic, in
/// which a dash may also take away. Expressions of measure 3 may hold one name (a level).
enum class TTypedKind : std::uint8_t { SingleValue, Expression };

/// Languages whose unit words are read, beside English; to be joined by |.
enum TTypedLanguage : std::uint32_t {
  tlEnglish = 0,
  tlGerman = 1,
  tlFrench = 2,
  tlSpanish = 4,
  tlChinese = 8,
  tlAll = 15
};

struct TTypedOptions {
  TTypedKind Kind = TTypedKind::SingleValue;
  int ScaleIndex = -1;                 // store unit of the value, see TMeasureDataManager
  bool DecimalComma = false;           // 2,5 is two and a half; the point stays a decimal mark too
  std::uint32_t Languages = tlEnglish; // unit words
};

/// Why a text was refused, for programs; Reason says it in words.
enum class TTypedProblem : std::uint8_t {
  None,
  Empty,         // nothing but blanks
  Ambiguous,     // two readings: Suggestions has both
  MissingMark,   // feet or inches?
  OtherQuantity, // a unit of another quantity, or lengths where none belong
  UnknownUnit,   // a word behind a number that is no unit
  NotANumber,    // no number where one is needed, or digits that make none
  Fraction,      // a fraction that is none, or out of place
  Order,         // feet behind inches, a unit twice, inches of a foot and more
  Arithmetic,    // signs and operators that do not fit, arithmetic in a single value
  Name,          // a name that is none, or where none may stand
  Range,         // too large, too small, more digits than a value holds
  TooLong,
  Field // the measure has no unit that values could be read in
};

/// One step of the reading, for explaining it: "feet" u"10".
struct TTypedStep {
  std::u16string Name;
  std::u16string Text;
};

struct TTypedReading {
  bool Accepted = false;
  std::u16string Rewritten;  // in the facade's grammar; for expressions in the one of GetElevStoreValue
  bool HasValue = false;     // false with a name in the expression: Rewritten is then all there is
  double StoreValue = 0;     // in the store unit that ScaleIndex selects
  std::u16string Understood; // "10 feet 6 inches, dash read as a separator"
  std::vector<TTypedStep> Steps;

  TTypedProblem Problem = TTypedProblem::None;
  std::u16string Reason;
  std::size_t Offset = 0;                  // UTF-16 units into the typed text; its length: at the end
  std::vector<std::u16string> Suggestions; // what to type instead; each is accepted by itself
};

/// Reads a text typed into a field of a measure.
/// Measure     classify code, as in TMeasureDataManager
/// Text        as typed; more than 1,000 characters are refused
/// errors      EListError nothing is loaded, no configuration is chosen, or the measure has no current unit
TTypedReading ReadTyped(int Measure, std::u16string_view Text, const TTypedOptions& Options = {});

/// The name of a problem in one word, for messages and files: u"ambiguous", u"other-quantity".
std::u16string_view TypedProblemName(TTypedProblem Problem) noexcept;

} // namespace unitlib
