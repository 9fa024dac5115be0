/// Random sums, products and quotients of lengths and numbers: the cell gives exactly what they are worth, or
/// refuses.
#include "apps/takeoff/Errors.h"
#include "apps/takeoff/ValueField.h"
#include "tests/support/Settings.h"

#include <cmath>
#include <optional>
#include <random>

namespace unitlib::takeoff {
namespace {

constexpr int Cases = 3000;
constexpr unsigned Seed = 20240611;

/// A text and what it is worth by plain calculation.
struct TCase {
  std::string Text;
  double Value = 0; // mm for lengths
  bool IsLength = false;
  bool Bad = false; // adds, multiplies or divides what does not go together
};

/// What a plain number beside a length is worth; nothing: that is refused.
using TPlain = std::optional<double>;

class TCaseMaker {
public:
  explicit TCaseMaker(TPlain Plain) : FPlain(Plain) {}

  TCase Make(int Depth) {
    if (Depth == 0 || Below(4) == 0) return Below(2) ? Length() : Number();
    const TCase Left = Operand(Depth);
    const TCase Right = Operand(Depth);
    switch (Below(4)) {
    case 0:
      return Sum(Left, Right, " + ", 1);
    case 1:
      return Sum(Left, Right, " - ", -1);
    case 2:
      return {Left.Text + "*" + Right.Text, Left.Value * Right.Value, Left.IsLength || Right.IsLength,
              Left.Bad || Right.Bad || (Left.IsLength && Right.IsLength)};
    default:
      return {Left.Text + "/" + Right.Text, Left.Value / Right.Value, Left.IsLength,
              Left.Bad || Right.Bad || Right.IsLength || Right.Value == 0};
    }
  }

private:
  int Below(int Count) { return static_cast<int>(FRandom() % static_cast<unsigned>(Count)); }

  /// In brackets, so that what is calculated does not depend on precedence.
  TCase Operand(int Depth) {
    TCase Part = Make(Depth - 1);
    Part.Text = "(" + Part.Text + ")";
    if (Below(5) > 0) return Part;
    Part.Text = "(-" + Part.Text + ")";
    Part.Value = -Part.Value;
    return Part;
  }

  TCase Number() {
    const int Tenths = 1 + Below(200);
    if (Below(2)) return {std::to_string(Tenths), static_cast<double>(Tenths), false, false};
    return {std::to_string(Tenths / 10) + "." + std::to_string(Tenths % 10), Tenths / 10.0, false, false};
  }

  TCase Length() {
    const int Feet = 1 + Below(30);
    const int Inches = Below(12);
    const int Sixteenths = 1 + Below(15);
    const std::string F = std::to_string(Feet) + "'";
    const std::string I = std::to_string(Inches);
    const std::string S = std::to_string(Sixteenths) + "/16\"";
    switch (Below(5)) {
    case 0:
      return {F, Feet * 304.8, true, false};
    case 1:
      return {F + I + "\"", Feet * 304.8 + Inches * 25.4, true, false};
    case 2:
      return {F + " " + I + " " + S, Feet * 304.8 + Inches * 25.4 + Sixteenths * 25.4 / 16, true, false};
    case 3:
      return {S, Sixteenths * 25.4 / 16, true, false};
    default:
      return {std::to_string(Feet) + ".5'", (Feet + 0.5) * 304.8, true, false};
    }
  }

  TCase Sum(TCase Left, TCase Right, const char* Operator, double Sign) const {
    TCase Result{Left.Text + Operator + Right.Text, 0, Left.IsLength || Right.IsLength,
                 Left.Bad || Right.Bad};
    if (Left.IsLength != Right.IsLength) {
      TCase& Plain = Left.IsLength ? Right : Left;
      if (!FPlain && Plain.Value != 0) Result.Bad = true;
      Plain.Value *= FPlain.value_or(0);
    }
    Result.Value = Left.Value + Sign * Right.Value;
    return Result;
  }

  TPlain FPlain;
  std::mt19937 FRandom{Seed};
};

std::optional<double> ReadCell(int Measure, const std::string& Text) {
  try {
    return TValueField(Measure).Read(FromUtf8(Text));
  } catch (const ERefused&) {
    return std::nullopt;
  }
}

/// Lengths are read as lengths; a plain result counts PlainResult mm, or may be refused where that is
/// nothing.
void Check(int Measure, TPlain PlainBesideLength, TPlain PlainResult) {
  TCaseMaker Maker(PlainBesideLength);
  int Read = 0;
  for (int I = 0; I < Cases && !::testing::Test::HasFailure(); ++I) {
    const TCase Case = Maker.Make(3);
    const auto Value = ReadCell(Measure, Case.Text);
    if (Case.Bad) {
      EXPECT_FALSE(Value) << Case.Text << " was read as " << *Value << " (seed " << Seed << ")";
    } else if (Case.IsLength || PlainResult) {
      const double Expected = Case.IsLength ? Case.Value : Case.Value * *PlainResult;
      // 1e-15 of a unit and less is refused as out of range.
      if (!Value && std::abs(Case.Value) < 1e-9) continue;
      ASSERT_TRUE(Value) << Case.Text << " was refused (seed " << Seed << ")";
      EXPECT_NEAR(*Value, Expected, 1e-9 * std::max(1.0, std::abs(Expected)))
          << Case.Text << " (seed " << Seed << ")";
      ++Read;
    } else if (Value) {
      EXPECT_NEAR(*Value, Case.Value * 25.4, 1e-9 * std::max(1.0, std::abs(*Value))) << Case.Text;
    }
  }
  EXPECT_GT(Read, Cases / 10);
}

class TImperialProperty : public test::TFactorySettings {};
class TMetricProperty : public test::TFactorySettings {
protected:
  TMetricProperty() : TFactorySettings(CYStandMetric) {}
};

TEST_F(TImperialProperty, FeetAndFractionalInches) {
  Check(0, std::nullopt, std::nullopt);
}
TEST_F(TImperialProperty, DecimalFeet) {
  Check(7, std::nullopt, 304.8);
}
TEST_F(TMetricProperty, Metres) {
  Check(7, 1000, 1000);
}
TEST_F(TMetricProperty, Millimetres) {
  Check(0, 1, 1);
}

} // namespace
} // namespace unitlib::takeoff
