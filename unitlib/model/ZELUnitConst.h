/// Fixed texts and codes of the library: configuration types, resource strings, unit identify codes.
#pragma once

#include <cstdint>
#include <string_view>

namespace unitlib {

/// The unit-system configuration a host asks for; the ordinal is the position of the configuration in the
/// file.
enum TConfigueType : std::uint8_t { // sic
  CYAmInch,                         // "US Imperial System" in the default file
  CYEnInch,                         // "UK Imperial System"
  CYStandMetric,                    // "Standard Metric System"
  CYTWMetric,                       // "Taiwan Metric System"
  CYINMetric                        // none in the default file
};

// Resource strings: user-visible texts that also serve as keys which unit descriptions are compared with, so
// they stay untranslated and letter for letter.
inline constexpr std::u16string_view _SYCHEFENSHIYCUN = u"Feet and fractional inches";
inline constexpr std::u16string_view _SFENSHIYCUN = u"Fractional inches";
inline constexpr std::u16string_view _SMeter = u"Meters";
inline constexpr std::u16string_view _SCentimter = u"Centimeters"; // sic
inline constexpr std::u16string_view _SPFYC = u"Square feet";
inline constexpr std::u16string_view _SPFYCUN = u"Square inches";
inline constexpr std::u16string_view _SPFMI = u"Square meters";
inline constexpr std::u16string_view _SPFLM = u"Square centimeters";
inline constexpr std::u16string_view _SPFHM = u"Square millimeters";
inline constexpr std::u16string_view _SLFMA = u"Cubic yards";
inline constexpr std::u16string_view _SLFYC = u"Cubic feet";
inline constexpr std::u16string_view _SLFYCUN = u"Cubic inches";
inline constexpr std::u16string_view _SLFMI = u"Cubic meters";
inline constexpr std::u16string_view _SLFLIMI = u"Cubic centimeters";
inline constexpr std::u16string_view _SLFHM = u"Cubic millimeters";
inline constexpr std::u16string_view _SKG = u"Kilograms";
inline constexpr std::u16string_view _STONNE = u"Tonne";
inline constexpr std::u16string_view _SSHORTTON = u"Short ton";
inline constexpr std::u16string_view _SLONGTON = u"Long ton";
inline constexpr std::u16string_view _SUnitNone = u"None";
inline constexpr std::u16string_view _SUnitFeet1 = u"'";
inline constexpr std::u16string_view _SUnitInches = u"\"";
inline constexpr std::u16string_view _SUnit = u"                     Units"; // 21 blanks centre it by hand
inline constexpr std::u16string_view _SFormate = u"                     Format"; // sic; 21 blanks
inline constexpr std::u16string_view _SInvaliateInput = u"Invalid input, please input again."; // sic

// Unit identify codes that the library itself tests.
inline constexpr int DecimalFeetCode = 10;
inline constexpr int FeetAndFractionalInchCode = 11;
inline constexpr int DecimalInchCode = 12;
inline constexpr int FractionalInchCode = 13;
inline constexpr int MeterCode = 14;
inline constexpr int CentimeterCode = 15;
inline constexpr int MillimeterCode = 16;

/// Codes 10 to 13: the imperial lengths. Codes 14 to 16: the metric ones.
constexpr bool IsImperialLengthCode(int Code) noexcept {
  return Code >= DecimalFeetCode && Code <= FractionalInchCode;
}
constexpr bool IsMetricLengthCode(int Code) noexcept {
  return Code >= MeterCode && Code <= MillimeterCode;
}

/// Classify code of the measure "Elevation/Segment", which typed arithmetic and elevations are read with.
inline constexpr int ElevationMeasure = 3;
/// Scale index of a store unit a thousand times the base unit (metres for lengths).
inline constexpr int ThousandScale = 3;
/// Scale index of the base unit (mm, mm2, mm3, kg, ...).
inline constexpr int BaseScale = -1;

} // namespace unitlib
