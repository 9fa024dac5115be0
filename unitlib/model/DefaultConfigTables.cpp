#include "unitlib/model/DefaultConfigTables.h"

#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/OwningList.h"

namespace unitlib::defaults {
namespace {

using TText = std::u16string_view;

constexpr TRoundRow FeetAndInchRounds[] = {
    {u"To the nearest 1'", u"12", false, false},         {u"To the nearest 6\"", u"6", false, false},
    {u"To the nearest 1\"", u"1", false, false},         {u"To the nearest 1/2\"", u"1/2", false, false},
    {u"To the nearest 1/4\"", u"1/4", false, false},     {u"To the nearest 1/8\"", u"1/8", false, false},
    {u"To the nearest 1/16\"", u"1/16", false, false},   {u"To the nearest 1/32\"", u"1/32", false, false},
    {u"To the nearest 1/64\"", u"1/64", false, false},   {u"To the nearest 1/128\"", u"1/128", false, false},
    {u"To the nearest 1/256\"", u"1/256", false, false},
};
constexpr std::span<const TRoundRow> InchRounds = std::span<const TRoundRow>(FeetAndInchRounds).subspan(2);

constexpr TRoundRow DecimalRounds[] = {
    {u"To the nearest 1000", u"1000", false, true}, {u"To the nearest 100", u"100", false, true},
    {u"To the nearest 10", u"10", false, true},     {u"0 decimal places", u"1", false, true},
    {u"1 decimal place", u"0.1", false, true},      {u"2 decimal places", u"0.01", false, true},
    {u"3 decimal places", u"0.001", false, true},   {u"Custom", u"", true, true},
};

constexpr TText FeetSymbols[] = {_SUnitNone, _SUnitFeet1, u"LF", u"FT"};
constexpr TText InchSymbols[] = {_SUnitNone, _SUnitInches, u"LI", u"IN"};
constexpr TText MeterSymbols[] = {_SUnitNone, u"m"};
constexpr TText CentimeterSymbols[] = {_SUnitNone, u"cm"};
constexpr TText MillimeterSymbols[] = {_SUnitNone, u"mm"};
constexpr TText SquareFeetSymbols[] = {_SUnitNone, u"SF", u"ft2"};
constexpr TText SquareInchSymbols[] = {_SUnitNone, u"SI", u"in2"};
constexpr TText SquareMeterSymbols[] = {_SUnitNone, u"m2"};
constexpr TText SquareCentimeterSymbols[] = {_SUnitNone, u"cm2"};
constexpr TText SquareMillimeterSymbols[] = {_SUnitNone, u"mm2"};
constexpr TText CubicYardSymbols[] = {_SUnitNone, u"CY", u"yd3"};
constexpr TText CubicFeetSymbols[] = {_SUnitNone, u"CF", u"ft3"};
constexpr TText CubicInchSymbols[] = {_SUnitNone, u"CI", u"in3"};
constexpr TText CubicMeterSymbols[] = {_SUnitNone, u"m3"};
constexpr TText CubicCentimeterSymbols[] = {_SUnitNone, u"cm3"};
constexpr TText PoundSymbols[] = {_SUnitNone, u"lb"};
constexpr TText KilogramSymbols[] = {_SUnitNone, u"kg"};
constexpr TText KilogramPerCubicMeterSymbols[] = {_SUnitNone, u"kg/m3"};
constexpr TText PoundPerCubicFootSymbols[] = {_SUnitNone, u"lb/ft3", u"LB/CF"};
constexpr TText PoundPerCubicYardSymbols[] = {_SUnitNone, u"lb/yd3", u"LB/CY"};
constexpr TText CubicMeterPerMeterSymbols[] = {_SUnitNone, u"m3/m"};
constexpr TText CubicFeetPerFootSymbols[] = {_SUnitNone, u"ft3/ft", u"CF/FT"};
constexpr TText CubicYardsPerFootSymbols[] = {_SUnitNone, u"yd3/ft", u"CY/FT"};

constexpr auto P = TFormatProfile::Fractional;
constexpr auto Q = TFormatProfile::Decimal;
constexpr auto G = TFormatProfile::DecimalGrouped;
constexpr auto& D = DecimalRounds;
constexpr int Places3 = 6; // "3 decimal places"

constexpr TUnitRow LengthUnits[] = {
    {u"Decimal feet", DecimalFeetCode, u"FT", u"TDecimalFeetParser", D, Places3, FeetSymbols, Q},
    {_SYCHEFENSHIYCUN,
     FeetAndFractionalInchCode,
     u"FT-IN",
     u"TFeetAndFractionalInchParser",
     FeetAndInchRounds,
     7,
     {},
     P},
    {u"Decimal inches", DecimalInchCode, u"IN", u"TDecimalInchParser", D, Places3, InchSymbols, Q},
    {_SFENSHIYCUN, FractionalInchCode, u"IN", u"TFractionalInchParser", InchRounds, 5, {}, P},
    {_SMeter, MeterCode, u"m", u"TMetreParser", D, Places3, MeterSymbols, Q},
    {_SCentimter, CentimeterCode, u"cm", u"TCentimeterParser", D, 4, CentimeterSymbols, Q},
    {u"Millimeters", MillimeterCode, u"mm", u"TMillimetreParser", D, 3, MillimeterSymbols, Q},
};
constexpr TUnitRow AreaUnits[] = {
    {_SPFYC, 100, u"SF", u"TSquareFootParser", D, Places3, SquareFeetSymbols, G},
    {_SPFYCUN, 101, u"SI", u"TSquareInchParser", D, Places3, SquareInchSymbols, Q},
    {_SPFMI, 102, u"m2", u"TSquareMeterParser", D, Places3, SquareMeterSymbols, Q},
    {_SPFLM, 103, u"cm2", u"TSquareCentimetreParser", D, Places3, SquareCentimeterSymbols, Q},
    {_SPFHM, 104, u"mm2", u"TSquareMillimeterParser", D, Places3, SquareMillimeterSymbols, Q},
};
constexpr TUnitRow VolumeUnits[] = {
    {_SLFMA, 200, u"CY", u"TCubicYardParser", D, Places3, CubicYardSymbols, G},
    {_SLFYC, 201, u"CF", u"TCubicFootParser", D, Places3, CubicFeetSymbols, Q},
    {_SLFYCUN, 202, u"CI", u"TCubicInchParser", D, Places3, CubicInchSymbols, Q},
    {_SLFMI, 203, u"m3", u"TCubicMeterParser", D, Places3, CubicMeterSymbols, Q},
    {_SLFLIMI, 204, u"cm3", u"TCubicCentimeterParser", D, Places3, CubicCentimeterSymbols, Q},
};
constexpr TUnitRow MassUnits[] = {
    {u"Pounds", 501, u"lb", u"TBangParser", D, Places3, PoundSymbols, G}, // before code 500 on purpose
    {_SKG, 500, u"kg", u"TKilogramsParser", D, Places3, KilogramSymbols, Q},
};
constexpr TUnitRow DensityUnits[] = {
    {u"Kilograms per cubic meter", 300, u"kg/m3", u"TKiogramsPerCubicMeterParser", D, Places3,
     KilogramPerCubicMeterSymbols, Q}, // sic
    {u"Pounds per cubic foot", 301, u"LB/CF", u"TPoundPerCubicFootParser", D, Places3,
     PoundPerCubicFootSymbols, Q},
    {u"Pounds per cubic yard", 302, u"LB/CY", u"TPoundPerCubicYardParser", D, Places3,
     PoundPerCubicYardSymbols, Q},
};
constexpr TUnitRow LineVolumeUnits[] = {
    {u"Cubic meters per meter", 400, u"m3/m", u"TCubicMetersPerMeterParser", D, Places3,
     CubicMeterPerMeterSymbols, Q},
    {u"Cubic feet per foot", 401, u"CF/FT", u"TCubicFeetPerFootParser", D, Places3, CubicFeetPerFootSymbols,
     Q},
    {u"Cubic yards per foot", 402, u"CY/FT", u"TCubicYardsPerFootParser", D, Places3,
     CubicYardsPerFootSymbols, Q},
};
constexpr TUnitRow LineMassUnits[] = {
    {u"Kilograms per meter", 600, u"kg/m", u"TKilogramsPerMeterParser", {}, Places3, {}, Q},
    {u"Pounds per Foot", 601, u"LB/FT", u"TPoundPerFootParser", {}, Places3, {}, Q},
};

constexpr TText LengthExample = u"1234.56789012345"; // mm, and every measure not named below
constexpr TText AreaExample = u"1234567890.12345";   // mm2
constexpr TText VolumeExample = u"1234567890123.45"; // mm3
constexpr TText MassExample = u"1.000";              // kg
constexpr TText LineVolume = u"Volume per Unit Length";

} // namespace

const std::array<TText, 4> Configs = {u"US Imperial System", u"UK Imperial System", u"Standard Metric System",
                                      u"Taiwan Metric System"};

const std::array<TMeasureRow, 9> Measures = {{
    {u"Length (Basic Information)", 0, LengthExample, {1, 1, 6, 5}, LengthUnits},
    {u"Length (Calculation Result)", 7, LengthExample, {0, 0, 4, 4}, LengthUnits},
    {u"Elevation/Segment", ElevationMeasure, LengthExample, {1, 1, 4, 4}, LengthUnits},
    {u"Area", 1, AreaExample, {0, 0, 2, 2}, AreaUnits},
    {u"Volume", 2, VolumeExample, {0, 0, 3, 3}, VolumeUnits},
    {u"Mass", 6, MassExample, {0, 0, 1, 1}, MassUnits},
    {u"Mass Density", 4, LengthExample, {2, 2, 0, 0}, DensityUnits},
    {LineVolume, 5, LengthExample, {2, 2, 0, 0}, LineVolumeUnits},
    // The weight per length carries the description of the measure before it, the classify code 0 and no
    // current unit; kept on purpose, since files in use are written so.
    {LineVolume, 0, LengthExample, {-1, -1, -1, -1}, LineMassUnits},
}};

const std::array<TDigitGroupRow, 2> DigitGroups = {{
    {u"123,456,789.00", u"TDigitGroup3CommaParser"},
    {u"1,2345,6789.00", u"TDigitGroup4CommaParser"},
}};

const TMeasureRow& MeasureRow(int MeasureIndex) {
  if (MeasureIndex < 0 || MeasureIndex >= static_cast<int>(Measures.size())) RaiseListIndex(MeasureIndex);
  return Measures[static_cast<size_t>(MeasureIndex)];
}

const TUnitRow& UnitRow(int MeasureIndex, int OrderIndex) {
  const auto Units = MeasureRow(MeasureIndex).Units;
  if (OrderIndex < 0 || OrderIndex >= static_cast<int>(Units.size())) RaiseListIndex(OrderIndex);
  return Units[static_cast<size_t>(OrderIndex)];
}

int DefaultUnit(const TMeasureRow& Measure, int ConfigIndex) noexcept {
  const bool Known = ConfigIndex >= 0 && ConfigIndex < static_cast<int>(Measure.DefUnit.size());
  return Known ? Measure.DefUnit[static_cast<size_t>(ConfigIndex)] : -1;
}

std::array<TFormatState, 6> FormatStates(const TUnitRow& Unit) noexcept {
  const bool Fractional = Unit.Profile == TFormatProfile::Fractional;
  return {{
      {u"UseProjectSetting", false, false},
      {u"SuppressTrail0", !Fractional, false},
      {u"Suppress0Feet", Fractional, false},
      {u"ShowPlusSymbolForPosValue", true, false},
      {u"UseDigitGroup", true, Unit.Profile == TFormatProfile::DecimalGrouped},
      {u"SuppressSpace", Fractional, false},
  }};
}

} // namespace unitlib::defaults
