#include "unitlib/convert/ImperialShape.h"

#include "unitlib/rtl/Text.h"

#include <limits>

namespace unitlib {
namespace {

constexpr int MaxDigits = 15; // of a number

/// Walks a text as if its white space had been normalised: one blank between two digits, none elsewhere.
class TWalk {
public:
  explicit TWalk(std::u16string_view Text) noexcept : FNext(Text.data()), FEnd(Text.data() + Text.size()) {
    Read();
  }

  char16_t Current() const noexcept { return FCurrent; }
  bool AtEnd() const noexcept { return FCurrent == 0; }

  /// Moves on when the current character is C.
  bool Take(char16_t C) noexcept {
    if (FCurrent != C) return false;
    Read();
    return true;
  }

  /// Reads 1 to 15 digits.
  bool TakeNumber(std::int64_t& Value) noexcept {
    int Count = 0;
    for (Value = 0; IsDigit(FCurrent); Read(), ++Count) {
      if (Count == MaxDigits) return false;
      Value = Value * 10 + (FCurrent - u'0');
    }
    return Count > 0;
  }

private:
  /// The next character that counts; 0 at the end and for a NUL, which no shape holds: it is turned into
  /// another one.
  void Read() noexcept {
    const bool AfterDigit = IsDigit(FCurrent);
    const char16_t* Start = FNext;
    while (FNext != FEnd && IsSpace(*FNext)) ++FNext;
    if (FNext == FEnd) {
      FCurrent = 0;
    } else if (FNext != Start && AfterDigit && IsDigit(*FNext)) {
      FCurrent = u' ';
    } else {
      FCurrent = *FNext == 0 ? u'\xFFFF' : *FNext;
      ++FNext;
    }
  }

  const char16_t* FNext;
  const char16_t* FEnd;
  char16_t FCurrent = 0;
};

bool TakeDenominator(TWalk& Walk, TImperialShape& Shape) noexcept {
  return Walk.Current() != u'0' && Walk.TakeNumber(Shape.Denominator);
}

/// The inch part behind its first number: nothing, a fraction bar, or a blank and a fraction.
bool TakeInches(TWalk& Walk, TImperialShape& Shape, std::int64_t First) noexcept {
  if (Walk.Take(u'/')) {
    Shape.Numerator = First;
    return TakeDenominator(Walk, Shape);
  }
  Shape.Inches = First;
  if (!Walk.Take(u' ')) return true;
  return Walk.TakeNumber(Shape.Numerator) && Walk.Take(u'/') && TakeDenominator(Walk, Shape);
}

} // namespace

std::size_t ReadUsualShape(std::u16string_view Text, TImperialShape& Shape) noexcept {
  const char16_t* Next = Text.data();
  const char16_t* const End = Next + Text.size();
  const auto Take = [&](char16_t C) { return Next != End && *Next == C && ++Next; };
  const auto TakeNumber = [&](std::int64_t& Value) {
    const char16_t* const Start = Next;
    std::uint64_t Number = 0;
    for (; Next != End && IsDigit(*Next); ++Next) Number = Number * 10 + static_cast<unsigned>(*Next - u'0');
    Value = static_cast<std::int64_t>(Number);
    return Next != Start && Next - Start <= MaxDigits;
  };
  const bool Read = TakeNumber(Shape.Feet) && Take(FootMark) && TakeNumber(Shape.Inches) && Take(u' ') &&
                    TakeNumber(Shape.Numerator) && Take(u'/') && Next != End && *Next != u'0' &&
                    TakeNumber(Shape.Denominator) && Take(InchMark);
  return Read ? static_cast<std::size_t>(Next - Text.data()) : 0;
}

bool ReadImperialShape(std::u16string_view Text, TImperialShape& Shape) noexcept {
  Shape.Negative = false;
  // The usual shape costs a third of the instructions this way.
  if (Text.ends_with(InchMark) && ReadUsualShape(Text, Shape) == Text.size()) return true;
  TWalk Walk(Text);
  Shape = {};
  Shape.Negative = Walk.Take(u'-');
  if (!Shape.Negative) Walk.Take(u'+');
  std::int64_t First = 0;
  if (!Walk.TakeNumber(First)) return false;
  const bool ByMark = Walk.Take(FootMark), ByDash = !ByMark && Walk.Take(u'-');
  if (ByMark || ByDash) {
    Shape.Feet = First;
    if (ByMark && Walk.AtEnd()) return true;
    if (!Walk.TakeNumber(First)) return false;
  }
  if (!TakeInches(Walk, Shape, First)) return false;
  if (!ByDash) Walk.Take(InchMark);
  return Walk.AtEnd();
}

double InchesOf(const TImperialShape& Shape) noexcept {
  constexpr std::int64_t Safe =
      std::numeric_limits<std::int64_t>::max() / 16; // Feet x 12 + Inches fits below it
  const double Whole = Shape.Feet < Safe && Shape.Inches < Safe
                           ? static_cast<double>(Shape.Feet * 12 + Shape.Inches)
                           : static_cast<double>(Shape.Feet) * 12 + static_cast<double>(Shape.Inches);
  const double Result = Whole + static_cast<double>(Shape.Numerator) / static_cast<double>(Shape.Denominator);
  return Shape.Negative ? -Result : Result;
}

} // namespace unitlib
