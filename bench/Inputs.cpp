#include "bench/Inputs.h"

#include <cmath>
#include <cstdint>
#include <random>

namespace unitlib::bench {
namespace {

class TMaker {
public:
  explicit TMaker(unsigned Seed) : FRandom(Seed) {}

  double LogUniform(double Low, double High) {
    std::uniform_real_distribution<double> Place(std::log(Low), std::log(High));
    return std::exp(Place(FRandom));
  }
  int Int(int Low, int High) { return std::uniform_int_distribution<int>(Low, High)(FRandom); }

  std::string Metres() {
    std::string Digits = std::to_string(static_cast<std::int64_t>(LogUniform(1, 1e8)));
    if (Digits.size() < 4) Digits.insert(0, 4 - Digits.size(), '0');
    const std::string Decimals = Digits.substr(Digits.size() - 3);
    Digits.resize(Digits.size() - 3);
    for (int I = static_cast<int>(Digits.size()) - 3; I > 0; I -= 3)
      Digits.insert(static_cast<std::size_t>(I), ",");
    return Digits + "." + Decimals + " m";
  }

  std::string Fraction() {
    int Numerator = Int(1, 15), Denominator = 16;
    while (Numerator % 2 == 0) Numerator /= 2, Denominator /= 2;
    return std::to_string(Numerator) + "/" + std::to_string(Denominator);
  }
  std::string Feet() {
    return std::to_string(static_cast<int>(LogUniform(1, 1000))) + "'" + std::to_string(Int(0, 11)) + " " +
           Fraction() + "\"";
  }

  std::string Of(std::string_view Characters, std::size_t Length) {
    std::string Text;
    for (std::size_t I = 0; I < Length; ++I)
      Text += Characters[static_cast<std::size_t>(Int(0, static_cast<int>(Characters.size()) - 1))];
    return Text;
  }

  std::string Imperial() {
    const char* Operators = "+-*";
    std::string Text = Feet() + Operators[Int(0, 2)] + Feet() + Operators[Int(0, 2)] + Feet();
    while (Text.size() < 39)
      Text += std::string(1, Operators[Int(0, 2)]) + static_cast<char>('0' + Int(1, 9));
    return Text;
  }

  std::string Plain() {
    std::string Text = "(1+2)*3-4/5*(6-7)";
    for (char& C : Text)
      if (C >= '0' && C <= '9') C = static_cast<char>('0' + Int(1, 9));
    return Text;
  }

private:
  std::mt19937 FRandom;
};

template <class TMake> std::vector<std::u16string> Texts(TMake Make) {
  std::vector<std::u16string> Result;
  for (std::size_t I = 0; I < InputCount; ++I) {
    const std::string Text = Make();
    Result.emplace_back(Text.begin(), Text.end());
  }
  return Result;
}

template <class TMake> std::vector<double> Values(TMake Make) {
  std::vector<double> Result(InputCount);
  for (double& Value : Result) Value = Make();
  return Result;
}

} // namespace

const TInputs& Inputs() {
  static const TInputs All = [] {
    TMaker Make(20240601);
    TInputs Result;
    Result.Lengths = Values([&] { return Make.LogUniform(10, 1e8); });
    Result.ShortLengths = Values([&] { return Make.LogUniform(10, 3e5); });
    Result.MetreTexts = Texts([&] { return Make.Metres(); });
    Result.FeetTexts = Texts([&] { return Make.Feet(); });
    Result.NoLengthWords = Texts([&] { return Make.Of("abcdefghijklmnop rstuvwxyz 0123456789-./", 40); });
    Result.NoLengthEnds =
        Texts([&] { return Make.Of("123456789", 3) + "." + Make.Of("0123456789", 35) + "x"; });
    Result.ImperialTexts = Texts([&] { return Make.Imperial(); });
    Result.PlainExpressions = Texts([&] { return Make.Plain(); });
    Result.Elevations = Texts([&] { return "L1+" + Make.Feet(); });
    return Result;
  }();
  return All;
}

std::vector<std::string> Narrow(const std::vector<std::u16string>& Texts) {
  std::vector<std::string> Result;
  Result.reserve(Texts.size());
  for (const std::u16string& Text : Texts) Result.emplace_back(Text.begin(), Text.end());
  return Result;
}

} // namespace unitlib::bench
