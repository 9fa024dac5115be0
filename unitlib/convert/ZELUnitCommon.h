/// Unit parsers: the base class that shows and reads the values of one unit, and the command that serves one
/// measure.
#pragma once

#include "unitlib/convert/ImperialText.h"
#include "unitlib/model/UnitModel.h"
#include "unitlib/rtl/Decimal.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib {

/// Text under construction.
using TStringBuilder = std::u16string;
/// Of a shown value: room taken once instead of growing by and by.
inline constexpr std::size_t UsualLength = 31;

/// Base of all unit parsers and the whole of it for plain decimal units. Holds nothing but its unit and reads
/// the unit's settings at every call; made for one conversion and freed by its caller. Scale index: tells the
/// store unit of a value: 3 a thousand, 4 a million, 5 a thousand million base units (metres, square metres,
/// cubic metres), any other index the base unit itself (mm, mm2, mm3, kg, kg/m3, m3/m, m3/m2, kg/m).
class TCommonUnitParser {
public:
  /// errors      EListError Unit is null
  explicit TCommonUnitParser(TUnit* Unit);
  virtual ~TCommonUnitParser() = default;
  TCommonUnitParser(const TCommonUnitParser&) = delete;
  TCommonUnitParser& operator=(const TCommonUnitParser&) = delete;

  // Operations that classes of units override, in their fixed order.

  /// Appends a blank and the unit symbol, when there is one.
  virtual void AppendSymbol(TStringBuilder& Builder) const;
  /// Appends the number text of a value >= 0 in display units: rounded to the current increment (NoRound:
  /// not), grouped (NoDigitGroup: not), padded with zeros to the decimals of the increment. Number texts have
  /// 15 significant digits.
  /// errors      EConvertError the increment is not a number; EListError no digit
  /// group is current; ERangeError
  virtual void RoundOff(double Value, TStringBuilder& Builder, bool NoDigitGroup, bool NoRound) const;
  virtual bool CheckFractionDisplay(std::u16string_view Text) const;
  /// Imperial text, always read as inches, in store units.
  virtual double AsFractionDouble(std::u16string_view Text, int ScaleIndex) const;
  /// The symbol descriptions of the unit; the first stands for no symbol.
  virtual std::vector<std::u16string> GetUnitArr() const;
  /// True when the text, without symbol and commas, is a number that is 0 or has 1e-15 < |number| < 1e15.
  virtual bool IsValid(std::u16string_view Text) const;
  /// Text of a stored value: sign, number, symbol.
  /// errors      ERangeError the value is not finite or too large; as RoundOff
  virtual std::u16string AsString(double Value, int ScaleIndex, bool NoSymbol, bool NoDigitGroup,
                                  bool NoRound, bool NoPlusSign) const;
  /// Stored value of a text, in the unit that ScaleIndex selects.
  /// errors      EConvertError the text is not a number (ask IsValid first); ERangeError the value is not
  /// finite
  virtual double AsDouble(std::u16string_view Text, int ScaleIndex) const;
  /// Size of one display unit in store units.
  virtual double GetScale(int ScaleIndex) const;
  /// Text without the first symbol description, after the one for no symbol, that it ends with (letters A to
  /// Z folded).
  virtual std::u16string RemoveSymbol(std::u16string_view Text) const;

  /// Size of the store unit in base units: 1, 1000, 1000000 or 1000000000.
  static double GetMScale(int ScaleIndex) noexcept;
  TUnit* GetUnit() const noexcept { return FUnit; }
  /// The current symbol; empty when it is "None".
  std::u16string GetUnitSymbol() const;
  /// Text without commas.
  static std::u16string RemoveDelimiters(std::u16string_view Text);
  /// Nearest integer, halves away from zero; a value within 1e-12 of a half counts as the half.
  /// errors      ERangeError it does not fit 64 bits
  static std::int64_t RoundClassic(double Value);

protected:
  /// Factor Digits / 10^Decimals over the store unit, correctly rounded.
  static double ScaleOf(std::int64_t Digits, int Decimals, int ScaleIndex) noexcept;
  /// Value, which Text was read as.
  /// errors      ERangeError it is not finite
  static double RequireStorable(double Value, std::u16string_view Text);
  /// AsString without the symbol.
  void AppendNumber(TStringBuilder& Builder, double Value, int ScaleIndex, bool NoDigitGroup, bool NoRound,
                    bool NoPlusSign) const;

  /// Text without its symbol, for reading. This one asks RemoveSymbol, so that a class that overrides that is
  /// heard; the decimal units of the library, which do not, cut without a copy. Buffer may hold the result.
  virtual std::u16string_view CutSymbol(std::u16string_view Text, std::u16string& Buffer) const;
  /// What the base RemoveSymbol leaves of Text.
  std::u16string_view WithoutSymbol(std::u16string_view Text) const noexcept;

private:
  void AppendGrouped(TStringBuilder& Builder, std::u16string_view NumberText) const;

  TUnit* FUnit;
};

/// A decimal unit that is Digits / 10^Decimals base units large. (A class that overrides RemoveSymbol derives
/// from TCommonUnitParser.)
template <std::int64_t Digits, int Decimals = 0> class TScaledParser : public TCommonUnitParser {
public:
  using TCommonUnitParser::TCommonUnitParser;
  double GetScale(int ScaleIndex) const override { return ScaleOf(Digits, Decimals, ScaleIndex); }

protected:
  std::u16string_view CutSymbol(std::u16string_view Text, std::u16string&) const override {
    return WithoutSymbol(Text);
  }
};

/// Conversions of one measure of the current configuration; short-lived, nothing is kept between calls. A
/// measure that does not exist behaves like a unit without a parser.
class TCommonUnitCommand {
public:
  explicit TCommonUnitCommand(int AClassifyCode) noexcept : FClassifyCode(AClassifyCode) {}
  virtual ~TCommonUnitCommand() = default;
  TCommonUnitCommand(const TCommonUnitCommand&) = delete;
  TCommonUnitCommand& operator=(const TCommonUnitCommand&) = delete;

  /// A parser for the measure's current unit; null when the measure is unknown or no class is registered for
  /// the unit.
  /// errors      EListError nothing is loaded, no configuration is chosen or the measure has no
  /// current unit
  virtual std::unique_ptr<TCommonUnitParser> GetParser() const;
  /// The parser's IsValid; false without a parser.
  /// errors      as GetParser
  virtual bool CheckDisplay(std::u16string_view AText) const;
  /// The parser's AsString; FloatToStr of the value without a parser.
  /// errors      as GetParser, AsString
  virtual std::u16string StoreToDisplay(double AValue, int AScaleIndex, bool NoSymbol, bool NoDigitGroup,
                                        bool NoRound, bool NoPlusSign) const;
  /// The parser's AsDouble; 0 without a parser.
  /// errors      as GetParser, AsDouble
  virtual double DisplayToStore(std::u16string_view AText, int AScaleIndex) const;
  /// The chosen symbol, or, where that is empty or "None", the unit's symbol for that case; for feet and
  /// fractional inches an empty text when AEmptyForFeetInch is set. ASymbol receives the same text.
  virtual std::u16string GetUnitSymbol(bool AEmptyForFeetInch, std::u16string& ASymbol) const;
  /// True when a symbol is chosen, or the unit carries its own marks (feet and fractional inches, fractional
  /// inches).
  bool HasUnitSymbol() const;

  int GetClassifyCode() const noexcept { return FClassifyCode; }

protected:
  /// The measure's current unit; null when the measure is unknown.
  /// errors      as GetParser
  TUnit* FindUnit() const;

private:
  int FClassifyCode;
};

/// Registers every parser class of the library under its own class name. Start-up of the package; see
/// ZELUnitPackage.h.
void RegisterUnitParsers();

} // namespace unitlib
