#include "CaseLine.h"

#include "unitlib/rtl/Numbers.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace unitlib::differential {

std::vector<std::string_view> Split(std::string_view Text, char Separator) {
  std::vector<std::string_view> Parts;
  for (size_t Start = 0;;) {
    const size_t End = Text.find(Separator, Start);
    Parts.push_back(Text.substr(Start, End - Start));
    if (End == std::string_view::npos) return Parts;
    Start = End + 1;
  }
}

std::vector<std::string_view> SplitList(std::string_view Text, char Separator) {
  if (Text.empty()) return {};
  return Split(Text.substr(1), Separator);
}

std::u16string Unescape(std::string_view Field) {
  std::u16string Text;
  for (size_t I = 0; I < Field.size(); ++I) {
    if (Field[I] != '\\') {
      Text += static_cast<char16_t>(static_cast<unsigned char>(Field[I]));
      continue;
    }
    Text += static_cast<char16_t>(std::stoul(std::string(Field.substr(I + 2, 4)), nullptr, 16));
    I += 5;
  }
  return Text;
}

std::string Escape(std::u16string_view Text) {
  static constexpr std::string_view Safe =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 '\"/.+-*()_,<>=!#[]%^";
  std::string Escaped;
  for (const char16_t C : Text) {
    if (C < 0x80 && Safe.find(static_cast<char>(C)) != std::string_view::npos) {
      Escaped += static_cast<char>(C);
      continue;
    }
    char Code[8];
    std::snprintf(Code, sizeof Code, "\\u%04X", static_cast<unsigned>(C));
    Escaped += Code;
  }
  return Escaped;
}

double FromBits(std::string_view Digits) {
  return std::bit_cast<double>(static_cast<std::uint64_t>(std::stoull(std::string(Digits), nullptr, 16)));
}

std::string ToBits(double Value) {
  char Digits[20];
  std::snprintf(Digits, sizeof Digits, "%016llx",
                static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(Value)));
  return Digits;
}

bool Near(double A, double B, int Ulps) {
  if (A == B) return true;
  for (double Step = A; Ulps > 0; --Ulps) {
    Step = std::nextafter(Step, B);
    if (Step == B) return true;
  }
  return false;
}

bool SameNumberText(std::u16string_view A, std::u16string_view B) {
  if (A == B) return true;
  double ValueA = 0;
  double ValueB = 0;
  if (!TryStrToFloat(A, ValueA) || !TryStrToFloat(B, ValueB)) return false;
  return std::abs(ValueA - ValueB) <= 1.01e-14 * std::abs(ValueA);
}

std::string Attempt(const std::function<std::string()>& Call) {
  try {
    return std::string("=").append(
        Call()); // not "=" + Call(): a false alarm of GCC 12 about overlapping copies
  } catch (const EListError&) {
    return "!list";
  } catch (const EConvertError&) {
    return "!convert";
  } catch (const ERangeError&) {
    return "!range";
  } catch (const EUnitError&) {
    return "!other";
  } catch (const std::exception& Error) {
    return std::string("!!foreign ") + Error.what();
  }
}

bool SameOutcome(std::string_view Wanted, std::string_view Got) {
  if (Wanted == "!any") return Got.starts_with('!') && !Got.starts_with("!!");
  return Wanted == Got;
}

void TDifference::Expect(std::string_view What, std::string_view Wanted, std::string_view Got) {
  if (!SameOutcome(Wanted, Got)) Add(What, Wanted, Got);
}

void TDifference::Add(std::string_view What, std::string_view Wanted, std::string_view Got) {
  FReport +=
      "\n    " + std::string(What) + ": wanted <" + std::string(Wanted) + "> got <" + std::string(Got) + ">";
}

} // namespace unitlib::differential
