#include "Random.h"

namespace checksums {
namespace {

constexpr std::u16string_view Damage[] = {
    u" ",  u"  ",     u"'",      u"\"",     u"-",      u"+",      u"/",      u".",
    u",",  u"e",      u"E",      u"(",      u")",      u"*",      u"^",      u"x",
    u"\t", u"\u00a0", u"\uff11", u"\u2032", u"\u2033", u"\u2019", u"\xd800", u"\U0001F600",
    u"m",  u"ft",     u"\u00b2", u"\u00b3", u"inf",    u"nan",    u"0",      u"999999999999999999999",
};

constexpr std::u16string_view Symbols[] = {u"",  u"",   u"",    u" m", u"m",  u" mm", u"cm",  u" ft",
                                           u"'", u"\"", u" SF", u"m2", u"kg", u" lb", u" CY", u" kg/m3"};

} // namespace

double TRandom::Value() {
  static constexpr double Powers[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 1e9};
  static constexpr double Steps[] = {25.4, 304.8, 1.5875, 12.7, 0.79375, 914.4, 645.16, 0.45359237};
  double Result = 0;
  switch (Below(8)) {
  case 0:
  case 1:
  case 2:
    Result = static_cast<double>(Below(2000000000)) / Pick(Powers);
    break;
  case 3:
  case 4:
    Result = static_cast<double>(Below(100000)) * Pick(Steps) / Pick({1, 2, 4, 8, 16, 32, 64});
    break;
  case 5:
    Result = static_cast<double>(Next() >> 11) / Pick(Powers);
    break;
  case 6:
    Result = static_cast<double>(Below(1000));
    break;
  default: { // any bits at all: huge, tiny, infinite, not a number
    constexpr uint64_t Infinity = 0x7FF0000000000000, QuietBit = 0x0008000000000000;
    uint64_t Bits = Next();
    // Copying a signalling NaN may already interrupt a host that lets errors interrupt.
    if ((Bits & Infinity) == Infinity) Bits |= QuietBit;
    std::memcpy(&Result, &Bits, sizeof Result);
  }
  }
  return OneIn(4) ? -Result : Result;
}

std::u16string TRandom::Digits(int32_t Most) {
  std::u16string Text;
  for (int32_t Length = 1 + Below(OneIn(30) ? 25 : Most); Length > 0; --Length)
    Text += static_cast<char16_t>(u'0' + Below(10));
  return Text;
}

std::u16string TRandom::Fraction() {
  return Digits(2) + u"/" +
         (OneIn(3) ? Digits(2) : std::u16string(Pick({u"2", u"4", u"8", u"16", u"32", u"64"})));
}

std::u16string TRandom::NumberText() {
  std::u16string Text(Pick({u"", u"", u"", u"-", u"+"}));
  Text += Digits(6);
  if (OneIn(2)) Text += u"." + Digits(6);
  if (OneIn(6)) Text += std::u16string(Pick({u"e", u"E", u"e-", u"E+"})) + Digits(2);
  Text += Pick(Symbols);
  return OneIn(6) ? Damaged(Text) : Text;
}

std::u16string TRandom::ImperialText() {
  std::u16string Text(Pick({u"", u"", u"", u"-", u"+"}));
  const std::u16string Inch = OneIn(3)   ? Digits(2)
                              : OneIn(2) ? Fraction()
                                         : Digits(2) + Pick({u" ", u"-"}) + Fraction();
  switch (Below(5)) {
  case 0:
    Text += Digits(3) + u"'";
    break;
  case 1:
    Text += Inch + u"\"";
    break;
  case 2:
    Text += Digits(3) + Pick({u"'", u"' ", u"'-", u"' - "}) + Inch + Pick({u"\"", u""});
    break;
  case 3:
    Text += Digits(3) + u"." + Digits(4) + Pick({u"'", u"\""});
    break;
  default:
    Text += Inch;
  }
  return OneIn(6) ? Damaged(Text) : Text;
}

std::u16string TRandom::Arithmetic(int32_t Depth) {
  if (Depth == 0 || OneIn(4)) return OneIn(2) ? NumberText() : ImperialText();
  const std::u16string Left = Arithmetic(Depth - 1), Operator(Pick({u"+", u"-", u"*", u"/", u" + ", u"/"}));
  std::u16string Text = Left + Operator + Arithmetic(Depth - 1);
  if (OneIn(3)) Text = u"(" + Text + u")";
  return OneIn(12) ? Damaged(Text) : Text;
}

std::u16string TRandom::Elevation() {
  const std::u16string Amount = OneIn(2) ? NumberText() : ImperialText();
  switch (Below(5)) {
  case 0:
    return Amount;
  case 1:
    return u"B+" + Amount;
  case 2:
    return u"Base-" + Amount;
  case 3:
    return Amount + Pick({u"+T", u"-Top", u"*T"});
  default:
    return u"T" + std::u16string(Pick({u"+", u"-"})) + Arithmetic(1);
  }
}

std::u16string TRandom::Damaged(std::u16string Text) {
  const auto At = static_cast<size_t>(Below(static_cast<int32_t>(Text.size()) + 1));
  if (OneIn(3) && At < Text.size()) return Text.erase(At, 1);
  return Text.insert(At, Pick(Damage));
}

} // namespace checksums
