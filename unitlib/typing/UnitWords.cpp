/// Tables of units and their words.
#include "unitlib/typing/UnitWords.h"

#include "unitlib/rtl/Text.h"
#include "unitlib/typing/Characters.h"
#include "unitlib/typing/ReadTyped.h"

#include <algorithm>

namespace unitlib::typing {
namespace {

using enum TQuantityKind;

// Sizes: international yard and pound, 1959 (inch 25.4 mm, pound 0.45359237 kg); densities and the tonne as
// the library's own parsers have them.
constexpr TUnitRow Units[] = {
    {Length, u"TDecimalFeetParser", 1, 1, 304.8, u"foot", u"feet"},
    {Length, u"TDecimalInchParser", 1, 1, 25.4, u"inch", u"inches"},
    {Length, u"TDecimalFeetParser", 3, 1, 914.4, u"yard", u"yards"},
    {Length, u"TMetreParser", 1, 1, 1000, u"meter", u"meters"},
    {Length, u"TCentimeterParser", 1, 1, 10, u"centimeter", u"centimeters"},
    {Length, u"TMillimetreParser", 1, 1, 1, u"millimeter", u"millimeters"},
    {Length, u"TMetreParser", 1000, 1, 1e6, u"kilometer", u"kilometers"},
    {Area, u"TSquareFootParser", 1, 1, 92903.04, u"square foot", u"square feet"},
    {Area, u"TSquareInchParser", 1, 1, 645.16, u"square inch", u"square inches"},
    {Area, u"TSquareFootParser", 9, 1, 836127.36, u"square yard", u"square yards"},
    {Area, u"TSquareMeterParser", 1, 1, 1e6, u"square meter", u"square meters"},
    {Area, u"TSquareCentimetreParser", 1, 1, 100, u"square centimeter", u"square centimeters"},
    {Area, u"TSquareMillimeterParser", 1, 1, 1, u"square millimeter", u"square millimeters"},
    {Volume, u"TCubicYardParser", 1, 1, 764554857.984, u"cubic yard", u"cubic yards"},
    {Volume, u"TCubicFootParser", 1, 1, 28316846.592, u"cubic foot", u"cubic feet"},
    {Volume, u"TCubicInchParser", 1, 1, 16387.064, u"cubic inch", u"cubic inches"},
    {Volume, u"TCubicMeterParser", 1, 1, 1e9, u"cubic meter", u"cubic meters"},
    {Volume, u"TCubicCentimeterParser", 1, 1, 1e3, u"cubic centimeter", u"cubic centimeters"},
    {Volume, u"TCubicMillimetreParser", 1, 1, 1, u"cubic millimeter", u"cubic millimeters"},
    {Volume, u"TCubicCentimeterParser", 1000, 1, 1e6, u"liter", u"liters"},
    {Mass, u"TBangParser", 1, 1, 0.45359237, u"pound", u"pounds"},
    {Mass, u"TKilogramsParser", 1, 1, 1, u"kilogram", u"kilograms"},
    {Mass, u"TKilogramsParser", 1, 1000, 1e-3, u"gram", u"grams"},
    {Mass, u"TTonParser", 1, 1, 1000, u"metric ton", u"metric tons"},
    {Density, u"TKiogramsPerCubicMeterParser", 1, 1, 1, u"kilogram per cubic meter",
     u"kilograms per cubic meter"},
    {Density, u"TPoundPerCubicFootParser", 1, 1, 16.01846337396, u"pound per cubic foot",
     u"pounds per cubic foot"},
    {Density, u"TPoundPerCubicYardParser", 1, 1, 0.593276421257783, u"pound per cubic yard",
     u"pounds per cubic yard"},
    {LineVolume, u"TCubicMetersPerMeterParser", 1, 1, 1, u"cubic meter per meter", u"cubic meters per meter"},
    {LineVolume, u"TCubicFeetPerFootParser", 1, 1, 0.09290304, u"cubic foot per foot",
     u"cubic feet per foot"},
    {LineVolume, u"TCubicYardsPerFootParser", 1, 1, 2.50838208, u"cubic yard per foot",
     u"cubic yards per foot"},
    {AreaVolume, u"TCubicMetersPerSquareMetersParser", 1, 1, 1, u"cubic meter per square meter",
     u"cubic meters per square meter"},
    {AreaVolume, u"TCubicFeetPerSquareFeetParser", 1, 1, 0.3048, u"cubic foot per square foot",
     u"cubic feet per square foot"},
    {AreaVolume, u"TCubicYardsPerSquareFeetParser", 1, 1, 8.2296, u"cubic yard per square foot",
     u"cubic yards per square foot"},
    {LineMass, u"TKilogramsPerMeterParser", 1, 1, 1, u"kilogram per meter", u"kilograms per meter"},
    {LineMass, u"TPoundPerFootParser", 1, 1, 1.4881639461, u"pound per foot", u"pounds per foot"},
    {Mass, u"TShortTonParser", 1, 1, 907, u"short ton", u"short tons"}, // fields only: no word, its size is
    {Mass, u"TLongTonParser", 1, 1, 1016, u"long ton", u"long tons"},   // not the trade's
};

struct TWordRow {
  std::u16string_view Unit; // its singular; empty: a ton of three kinds
  std::uint32_t Language;
  std::u16string_view Words; // separated by "|", lower case, without dots; a blank is one or none in the text
};

constexpr TWordRow Words[] = {
    {u"foot", tlEnglish, u"ft|foot|feet|lf|l.f|lin ft|lineal foot|lineal feet|linear foot|linear feet"},
    {u"inch", tlEnglish, u"in|inch|inches|ins|li|lin in|linear inches"},
    {u"yard", tlEnglish, u"yd|yds|yard|yards"},
    {u"meter", tlEnglish, u"m|mtr|mtrs|meter|meters|metre|metres"},
    {u"centimeter", tlEnglish, u"cm|㎝|cms|centimeter|centimeters|centimetre|centimetres"},
    {u"millimeter", tlEnglish, u"mm|㎜|mms|millimeter|millimeters|millimetre|millimetres"},
    {u"kilometer", tlEnglish, u"km|㎞|kilometer|kilometers|kilometre|kilometres"},
    {u"square foot", tlEnglish,
     u"sf|s.f|sqft|sq ft|sq feet|sq foot|ft2|sft|square foot|square feet|square ft"},
    {u"square inch", tlEnglish, u"si|sqin|sq in|sq inch|sq inches|in2|square inch|square inches|square in"},
    {u"square yard", tlEnglish, u"sy|s.y|sqyd|sq yd|sq yds|sq yard|sq yards|yd2|square yard|square yards"},
    {u"square meter", tlEnglish,
     u"m2|㎡|sqm|sq m|sq meter|sq meters|sq metre|sq metres|square meter|square meters|square metre|square "
     u"metres"},
    {u"square centimeter", tlEnglish,
     u"cm2|㎠|sqcm|sq cm|square centimeter|square centimeters|square centimetre|square centimetres"},
    {u"square millimeter", tlEnglish,
     u"mm2|㎟|sqmm|sq mm|square millimeter|square millimeters|square millimetre|square millimetres"},
    {u"cubic yard", tlEnglish,
     u"cy|c.y|cuyd|cu yd|cu yds|cu yard|cu yards|yd3|cubic yard|cubic yards|cubic yd"},
    {u"cubic foot", tlEnglish, u"cf|c.f|cuft|cu ft|cu feet|cu foot|ft3|cft|cubic foot|cubic feet|cubic ft"},
    {u"cubic inch", tlEnglish, u"ci|cuin|cu in|cu inch|cu inches|in3|cubic inch|cubic inches|cubic in"},
    {u"cubic meter", tlEnglish, u"m3|㎥|cum|cu m|cbm|cubic meter|cubic meters|cubic metre|cubic metres"},
    {u"cubic centimeter", tlEnglish,
     u"cm3|㎤|cc|cu cm|cubic centimeter|cubic centimeters|cubic centimetre|cubic centimetres"},
    {u"cubic millimeter", tlEnglish,
     u"mm3|cu mm|cubic millimeter|cubic millimeters|cubic millimetre|cubic millimetres"},
    {u"liter", tlEnglish, u"l|ltr|ltrs|liter|liters|litre|litres"},
    {u"pound", tlEnglish, u"lb|lbs|pound|pounds"},
    {u"kilogram", tlEnglish, u"kg|㎏|kgs|kilo|kilos|kilogram|kilograms|kilogramme|kilogrammes"},
    {u"gram", tlEnglish, u"g|gram|grams|gramme|grammes"},
    {u"metric ton", tlEnglish, u"tonne|tonnes|metric ton|metric tons|metric tonne|metric tonnes"},
    {u"", tlEnglish, u"t|ton|tons|short ton|short tons|long ton|long tons|us ton|us tons"},
    {u"kilogram per cubic meter", tlEnglish, u"kg/m3|kg/cu m|kg per m3|kg per cubic meter"},
    {u"pound per cubic foot", tlEnglish,
     u"pcf|lb/ft3|lb/cf|lbs/ft3|lbs/cf|lb/cu ft|lbs/cu ft|lb per cu ft|lbs per cu ft"},
    {u"pound per cubic yard", tlEnglish,
     u"pcy|lb/yd3|lb/cy|lbs/yd3|lbs/cy|lb/cu yd|lbs/cu yd|lb per cu yd|lbs per cu yd"},
    {u"cubic meter per meter", tlEnglish, u"m3/m"},
    {u"cubic foot per foot", tlEnglish, u"ft3/ft|cf/ft|cf/lf|cu ft/ft|ft3/lf"},
    {u"cubic yard per foot", tlEnglish, u"yd3/ft|cy/ft|cy/lf|cu yd/ft|yd3/lf"},
    {u"cubic meter per square meter", tlEnglish, u"m3/m2"},
    {u"cubic foot per square foot", tlEnglish, u"ft3/ft2|cf/sf|cu ft/sq ft"},
    {u"cubic yard per square foot", tlEnglish, u"yd3/ft2|cy/sf|cu yd/sq ft"},
    {u"kilogram per meter", tlEnglish, u"kg/m"},
    {u"pound per foot", tlEnglish, u"lb/ft|lbs/ft|plf|lb/lf|lbs/lf"},

    {u"foot", tlGerman, u"fuß|fuss"},
    {u"inch", tlGerman, u"zoll"},
    {u"centimeter", tlGerman, u"zentimeter"},
    {u"square meter", tlGerman, u"qm|quadratmeter"},
    {u"cubic meter", tlGerman, u"kubikmeter"},
    {u"kilogram", tlGerman, u"kilogramm"},
    {u"gram", tlGerman, u"gramm"},
    {u"metric ton", tlGerman, u"tonnen"},

    {u"foot", tlFrench, u"pied|pieds"},
    {u"inch", tlFrench, u"pouce|pouces"},
    {u"meter", tlFrench, u"mètre|mètres"},
    {u"centimeter", tlFrench, u"centimètre|centimètres"},
    {u"millimeter", tlFrench, u"millimètre|millimètres"},
    {u"square meter", tlFrench, u"mètre carré|mètres carrés"},
    {u"square foot", tlFrench, u"pied carré|pieds carrés|pi2"},
    {u"cubic meter", tlFrench, u"mètre cube|mètres cubes"},

    {u"foot", tlSpanish, u"pie|pies"},
    {u"inch", tlSpanish, u"pulgada|pulgadas"},
    {u"meter", tlSpanish, u"metro|metros"},
    {u"centimeter", tlSpanish, u"centímetro|centímetros"},
    {u"millimeter", tlSpanish, u"milímetro|milímetros"},
    {u"square meter", tlSpanish, u"metro cuadrado|metros cuadrados"},
    {u"square foot", tlSpanish, u"pie cuadrado|pies cuadrados"},
    {u"cubic meter", tlSpanish, u"metro cúbico|metros cúbicos"},
    {u"kilogram", tlSpanish, u"kilogramo|kilogramos"},

    {u"foot", tlChinese, u"英尺|英呎"},
    {u"inch", tlChinese, u"英寸|英吋"},
    {u"meter", tlChinese, u"米|公尺"},
    {u"centimeter", tlChinese, u"厘米|公分"},
    {u"millimeter", tlChinese, u"毫米|公釐"},
    {u"square meter", tlChinese, u"平方米|平方公尺"},
    {u"cubic meter", tlChinese, u"立方米|立方公尺"},
    {u"kilogram", tlChinese, u"公斤|千克"},
};

const TUnitRow* UnitNamed(std::u16string_view Singular) noexcept {
  for (const TUnitRow& Row : Units)
    if (Row.Singular == Singular) return &Row;
  return nullptr;
}

/// Where a text stops matching a word, or 0. Blanks of the word may be missing in the text and stand for
/// more.
std::size_t MatchWord(std::u16string_view Text, std::u16string_view Word) {
  std::size_t At = 0;
  const auto SkipDots = [&] {
    while (At < Text.size() && Text[At] == u'.') ++At;
  };
  for (const char16_t C : Word) {
    if (C == u' ') {
      SkipDots();
      while (At < Text.size() && IsBlank(Text[At])) ++At;
      continue;
    }
    if (At > 0 && C == u'/') SkipDots();
    if (At + 1 < Text.size() && Text[At] == u'^' && (C == u'2' || C == u'3')) ++At;
    if (At == Text.size() || PlainLetter(Text[At]) != C) return 0;
    ++At;
  }
  SkipDots();
  return At;
}

/// True where a word may end: no letter goes on, and no exponent.
bool EndsAt(std::u16string_view Text, std::size_t At, std::u16string_view Word) {
  if (At >= Text.size()) return true;
  const char16_t C = Text[At];
  if (IsLetter(C) || C == u'^' || C == u'_') return false;
  if (C == 0x00B2 || C == 0x00B3 || C == 0x2074) return false; // m² was matched as a whole or not at all
  // Digits go on: 5ft6in. Behind an exponent they make another one: m23.
  return !IsDigit(C) || IsLetter(Word.back());
}

void MatchRow(const TWordRow& Row, std::u16string_view Text, TUnitMatch& Best) {
  for (std::u16string_view Rest = Row.Words; !Rest.empty();) {
    const std::size_t Bar = std::min(Rest.find(u'|'), Rest.size());
    const std::u16string_view Word = Rest.substr(0, Bar);
    Rest.remove_prefix(std::min(Bar + 1, Rest.size()));
    const std::size_t Length = MatchWord(Text, Word);
    if (Length <= Best.Length || !EndsAt(Text, Length, Word)) continue;
    Best = {UnitNamed(Row.Unit), Length, Row.Unit.empty()};
  }
}

} // namespace

const TUnitRow& UnitAt(int Index) noexcept {
  return Units[Index];
}

const TUnitRow* UnitOfClass(std::u16string_view ParserClass) noexcept {
  if (SameText(ParserClass, u"TFractionalInchParser") ||
      SameText(ParserClass, u"TFeetAndFractionalInchParser"))
    return &Units[Inch];
  for (const TUnitRow& Row : Units)
    if (Row.Num == 1 && Row.Den == 1 && SameText(Row.ParserClass, ParserClass)) return &Row;
  return nullptr;
}

bool IsFeetInches(const TUnitRow* Row) noexcept {
  return IsUnit(Row, Foot) || IsUnit(Row, Inch) || IsUnit(Row, Yard);
}

TRational InchesIn(const TUnitRow& Row) {
  return TRational(IsUnit(&Row, Inch) ? 1 : IsUnit(&Row, Foot) ? 12 : 36);
}

TUnitMatch MatchUnit(std::u16string_view Text, std::uint32_t Languages) {
  TUnitMatch Best;
  for (const TWordRow& Row : Words)
    if (Row.Language == tlEnglish || (Row.Language & Languages) != 0) MatchRow(Row, Text, Best);
  return Best;
}

std::u16string_view KindName(TQuantityKind Kind) noexcept {
  constexpr std::u16string_view Names[] = {
      u"a quantity",          u"a length",          u"an area",          u"a volume", u"a mass", u"a density",
      u"a volume per length", u"a volume per area", u"a mass per length"};
  return Names[static_cast<std::size_t>(Kind)];
}

} // namespace unitlib::typing
