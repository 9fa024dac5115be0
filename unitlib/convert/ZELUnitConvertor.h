/// The conversion facade: values of a measure, named by its classify code, to text and back.
/// Every call reads the current settings afresh. Calls may run at the same time on several threads as long as
/// nobody loads or changes settings: nothing is kept or locked between calls.
#pragma once

#include <string>
#include <string_view>

namespace unitlib {

/// AMeasure       classify code of a measure of the current configuration; an unknown one behaves like a unit
///                without parser unless a function says otherwise
/// AScaleIndex    store unit of the value: -1 the base unit (mm, mm2, mm3, kg, ...), 3 a thousand of it
///                (metres), 4 a million, 5 a thousand million
/// errors         of every function: EListError nothing is loaded, no configuration is chosen, or the measure
///                has no current unit
class TMeasureDataManager {
public:
  TMeasureDataManager() = delete;

  /// True when the text can be read as a value of the measure.
  ///   CheckDisplay(0, u"5'6 1/2\"") == true
  static bool CheckDisplay(int AMeasure, std::u16string_view AText);

  /// Stored value of a text; 0 without a parser.
  ///   DisplayToStore(0, u"5'6\"", -1) == 1676.4
  /// errors      EConvertError the text is not a number (ask CheckDisplay first); ERangeError the value is
  ///             not finite
  static double DisplayToStore(int AMeasure, std::u16string_view AText, int AScaleIndex = -1);

  /// Text of a stored value in the measure's current unit. Values within 1E-12 of zero are shown as 0.
  ///   StoreToDisplay(0, 1676.4) == u"5' 6\""      // feet and fractional inches
  /// AMeasure         -1: no measure, the number itself; the second form then writes more than two decimals
  ///                  as five
  /// AAppendSymbol    appends a blank and the unit's symbol where the unit shows none by itself
  /// AHasSymbol       receives whether the unit shows a symbol by itself; left alone for measure -1
  /// errors      EConvertError the rounding increment is not a number; ERangeError the value is not finite or
  ///             too large
  static std::u16string StoreToDisplay(bool& AHasSymbol, int AMeasure, double AValue, int AScaleIndex,
                                       bool AAppendSymbol, bool NoSymbol, bool NoDigitGroup, bool NoRound,
                                       bool NoPlusSign);
  static std::u16string StoreToDisplay(int AMeasure, double AValue, int AScaleIndex = -1,
                                       bool AAppendSymbol = false, bool NoSymbol = false,
                                       bool NoDigitGroup = false, bool NoRound = false,
                                       bool NoPlusSign = false);

  /// The expression with every imperial number replaced by a plain number in thousands of the current unit's
  /// base: with unit metres u"3'6\"+2" becomes u"1.0668+2". Measures other than 0, 3 and 7 leave it
  /// unchanged.
  /// AExtra              not used
  /// ASkipImperialNum    leave a text that is one imperial number as a whole unchanged
  /// errors      EConvertError no parser is registered for the measure's current unit
  static std::u16string ExprToStore(int AMeasure, std::u16string_view AExpr, int AExtra = 0,
                                    bool ASkipImperialNum = false);

  /// The chosen symbol, or the unit's own for "None"; see TCommonUnitCommand::GetUnitSymbol.
  static std::u16string GetUnitSymbol(int AMeasure, bool AEmptyForFeetInch);

  /// True when the text, without the unit's symbol, is a number or an imperial length.
  /// ARejectFractionForm    refuses the plain forms 1-1/2, 3-4 and 3/4, which an expression field reads as
  ///                        arithmetic
  /// errors      EConvertError no parser is registered for the measure's current unit
  static bool IsANum(int AMeasure, std::u16string_view AText, bool ARejectFractionForm);

  /// Stored value of a decimal number in the current unit; with feet and fractional inches the number counts
  /// feet.
  /// errors      EConvertError no parser is registered for the measure's current unit
  static double DecimalValueToStore(int AMeasure, double AValue, int AScaleIndex = -1);
};

} // namespace unitlib
