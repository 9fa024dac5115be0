/// Length units; base unit millimetre.
#pragma once

#include "unitlib/convert/ZELUnitCommon.h"

namespace unitlib {

struct TMillimetreParser final : TScaledParser<1> {
  using TScaledParser::TScaledParser;
};
struct TCentimeterParser final : TScaledParser<10> {
  using TScaledParser::TScaledParser;
};
struct TMetreParser final : TScaledParser<1000> {
  using TScaledParser::TScaledParser;
};

/// A decimal imperial length, which also reads feet, inches and fractions (by their marks, whatever the unit)
/// and writes its symbol without a blank: 12.5'
class TDecimalImperialParser : public TCommonUnitParser {
public:
  using TCommonUnitParser::TCommonUnitParser;
  void AppendSymbol(TStringBuilder& Builder) const override;
  bool IsValid(std::u16string_view Text) const override;
  double AsDouble(std::u16string_view Text, int ScaleIndex) const override;
  /// Also without commas; Text as it is when what is left is not a number.
  std::u16string RemoveSymbol(std::u16string_view Text) const override;

protected:
  std::u16string_view CutSymbol(std::u16string_view Text, std::u16string& Buffer) const override;
};

struct TDecimalInchParser final : TDecimalImperialParser {
  using TDecimalImperialParser::TDecimalImperialParser;
  double GetScale(int ScaleIndex) const override { return ScaleOf(254, 1, ScaleIndex); } // exact: 1959
};
struct TDecimalFeetParser final : TDecimalImperialParser {
  using TDecimalImperialParser::TDecimalImperialParser;
  double GetScale(int ScaleIndex) const override { return ScaleOf(3048, 1, ScaleIndex); } // exact: 1959
};

/// Inches rounded to a fraction. The increment is a fraction ("1/16") or whole inches ("1", "6", "12"); text
/// is always rounded and never grouped, and the unit's symbol choice plays no part.
class TFractionalLengthParser : public TCommonUnitParser {
public:
  using TCommonUnitParser::TCommonUnitParser;
  void AppendSymbol(TStringBuilder& Builder) const override;
  bool IsValid(std::u16string_view Text) const override;
  std::u16string AsString(double Value, int ScaleIndex, bool NoSymbol, bool NoDigitGroup, bool NoRound,
                          bool NoPlusSign) const override;
  double AsDouble(std::u16string_view Text, int ScaleIndex) const override;
  double GetScale(int ScaleIndex) const override { return ScaleOf(254, 1, ScaleIndex); } // exact: 1959
  /// True when NoSymbol may leave out the inch mark.
  virtual bool CanIgnoreSymbol() const { return true; }

  /// Splits an increment at its first "/": true with both numbers, or false with the whole number over 1.
  /// errors      EConvertError a part is not a number
  static bool GetFenZiFenMu(std::u16string_view Text, double& Numerator, double& Denominator); // sic
  /// Greatest common divisor: GCD(a, 0) = a, else GCD(b, a mod b).
  static std::int64_t GCD(std::int64_t A, std::int64_t B) noexcept;

protected:
  std::u16string_view CutSymbol(std::u16string_view Text, std::u16string&) const override {
    return WithoutSymbol(Text);
  }
  /// A plain number is taken as inches, other text is read as an imperial length.
  double ReadInches(std::u16string_view Text, int ScaleIndex) const;
};

/// "2 1/2", then the inch mark.
class TFractionalInchParser final : public TFractionalLengthParser {
public:
  using TFractionalLengthParser::TFractionalLengthParser;
  /// errors      EConvertError the increment is empty, not a number or has a part that is 0; ERangeError
  void RoundOff(double Value, TStringBuilder& Builder, bool NoDigitGroup, bool NoRound) const override;
  double AsDouble(std::u16string_view Text, int ScaleIndex) const override {
    return ReadInches(Text, ScaleIndex);
  }
};

/// "5' 6 1/2", then the inch mark; "6'" alone where whole feet are rounded to.
class TFeetAndFractionalInchParser final : public TFractionalLengthParser {
public:
  using TFractionalLengthParser::TFractionalLengthParser;
  void AppendSymbol(TStringBuilder& Builder) const override;
  /// errors      EConvertError the increment is empty, not a number or has a part that is 0; ERangeError
  void RoundOff(double Value, TStringBuilder& Builder, bool NoDigitGroup, bool NoRound) const override;
  double AsDouble(std::u16string_view Text, int ScaleIndex) const override {
    return ReadInches(Text, ScaleIndex);
  }
  bool CanIgnoreSymbol() const override { return false; }

  /// True when the increment is a whole number of feet ("12"; 0 counts as well).
  bool IsRoundToHighUnitInCoupleUnit() const;
  /// True when the increment is a whole number of inches below a foot ("1", "6").
  bool IsRoundToLowUnitInCoupleUnit() const;
};

} // namespace unitlib
