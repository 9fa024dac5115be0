/// Input: a letter for the mode, a factor as text, a separator, the arithmetic text.
#include "fuzz/Check.h"
#include "fuzz/Targets.h"
#include "fuzz/slow/Imperial.h"
#include "fuzz/slow/Regex.h"
#include "unitlib/convert/ImperialText.h"

#include <cmath>
#include <limits>

namespace unitlib::fuzz {
namespace {

constexpr std::size_t LongestText = 400; // the oracle takes the square of it
constexpr double Factors[] = {1, 1000, 1000 / 25.4, 1000 / 304.8, 0.001, -2.5, 0};

/// True when Written is the text of a double that is at most a few roundings away.
bool IsTextOf(const std::u16string& Written, const slow::TExact& Exact) {
  constexpr int Roundings = 5;
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  const double Value = slow::ToDouble(Exact);
  if (std::fabs(Value) < 1e-290)
    return std::fabs(slow::ReadNumber(Written).Value) < 1e-289; // digits are lost
  double Down = Value, Up = Value;
  for (int I = 0; I <= Roundings; ++I) {
    if (Written == slow::GeneralText(Down)) return true;
    if (std::isfinite(Up) && Written == slow::GeneralText(Up)) return true;
    Down = std::nextafter(Down, Value > 0 ? 0 : Infinity);
    Up = std::nextafter(Up, Value > 0 ? Infinity : -Infinity);
  }
  return false;
}

/// Takes the number that Rest starts with.
std::u16string TakeNumber(std::u16string& Rest) {
  static const slow::TRegex Form("\\A-?[0-9]+(\\.[0-9]+)?(E-?[0-9]+)?");
  const auto Match = Form.Search(slow::Utf8(Rest)); // ASCII, so that bytes are characters
  const std::u16string Number = Rest.substr(0, Match.End);
  Rest.erase(0, Match.End);
  return Number;
}

} // namespace

void RunReplaceImperial(TInput& Input) {
  const unsigned Choice = Input.Below(26);
  const int Mode = Choice % 2 == 0 ? 0 : 2;
  const double Factor = Choice < 20 ? Factors[Choice / 2 % std::size(Factors)] : Input.Number();
  const std::u16string Text = Input.RestText().substr(0, LongestText);
  const std::u16string Replaced = ReplaceImperialNumbers(Text, Mode, Factor);
  std::u16string Rest = Replaced;
  for (const slow::TPiece& Piece : slow::ReplaceImperialNumbers(Text, Mode, Factor)) {
    Require(Rest.starts_with(Piece.Kept), "what stays, in " + Show(Replaced) + ", the replacement", Text);
    Rest.erase(0, Piece.Kept.size());
    if (!Piece.Number) continue;
    const std::u16string Number = TakeNumber(Rest);
    if (!IsTextOf(Number, *Piece.Number))
      RequireSame("a number, in " + Show(Replaced) + ", the replacement", Text, Number,
                  slow::GeneralText(*Piece.Number));
  }
  Require(Rest.empty(), "more than all, in " + Show(Replaced) + ", the replacement", Text);
}

} // namespace unitlib::fuzz
