/// The parser classes of the library, in the order of their registration.
#include "unitlib/convert/ZELUnitAreaConvertor.h"
#include "unitlib/convert/ZELUnitAreaVolumeConvertor.h"
#include "unitlib/convert/ZELUnitDensityConvertor.h"
#include "unitlib/convert/ZELUnitLengthConvertor.h"
#include "unitlib/convert/ZELUnitLineVolumeConvertor.h"
#include "unitlib/convert/ZELUnitMassConvertor.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/convert/ZELUnitTheoryWeightConvertor.h"
#include "unitlib/convert/ZELUnitVolumeConvertor.h"

namespace unitlib {
namespace {

struct TClassRow {
  std::u16string_view Name;
  TUnitParserClass Class;
  TUnitParserPlacer Placer;
};

template <class T> constexpr TClassRow Row(std::u16string_view Name) {
  return {Name, CreateUnitParser<T>, PlaceUnitParser<T>};
}

constexpr TClassRow Classes[] = {
    Row<TKilogramsPerMeterParser>(u"TKilogramsPerMeterParser"),
    Row<TPoundPerFootParser>(u"TPoundPerFootParser"),
    Row<TDecimalFeetParser>(u"TDecimalFeetParser"),
    Row<TFeetAndFractionalInchParser>(u"TFeetAndFractionalInchParser"),
    Row<TDecimalInchParser>(u"TDecimalInchParser"),
    Row<TFractionalInchParser>(u"TFractionalInchParser"),
    Row<TMetreParser>(u"TMetreParser"),
    Row<TCentimeterParser>(u"TCentimeterParser"),
    Row<TMillimetreParser>(u"TMillimetreParser"),
    Row<TSquareFootParser>(u"TSquareFootParser"),
    Row<TSquareInchParser>(u"TSquareInchParser"),
    Row<TSquareMeterParser>(u"TSquareMeterParser"),
    Row<TSquareCentimetreParser>(u"TSquareCentimetreParser"),
    Row<TSquareMillimeterParser>(u"TSquareMillimeterParser"),
    Row<TCubicYardParser>(u"TCubicYardParser"),
    Row<TCubicFootParser>(u"TCubicFootParser"),
    Row<TCubicInchParser>(u"TCubicInchParser"),
    Row<TCubicMeterParser>(u"TCubicMeterParser"),
    Row<TCubicCentimeterParser>(u"TCubicCentimeterParser"),
    Row<TCubicMillimetreParser>(u"TCubicMillimetreParser"),
    Row<TKiogramsPerCubicMeterParser>(u"TKiogramsPerCubicMeterParser"),
    Row<TPoundPerCubicFootParser>(u"TPoundPerCubicFootParser"),
    Row<TPoundPerCubicYardParser>(u"TPoundPerCubicYardParser"),
    Row<TCubicMetersPerMeterParser>(u"TCubicMetersPerMeterParser"),
    Row<TCubicFeetPerFootParser>(u"TCubicFeetPerFootParser"),
    Row<TCubicYardsPerFootParser>(u"TCubicYardsPerFootParser"),
    Row<TKilogramsParser>(u"TKilogramsParser"),
    Row<TBangParser>(u"TBangParser"),
    Row<TTonParser>(u"TTonParser"),
    Row<TShortTonParser>(u"TShortTonParser"),
    Row<TLongTonParser>(u"TLongTonParser"),
    Row<TCubicMetersPerSquareMetersParser>(u"TCubicMetersPerSquareMetersParser"),
    Row<TCubicFeetPerSquareFeetParser>(u"TCubicFeetPerSquareFeetParser"),
    Row<TCubicYardsPerSquareFeetParser>(u"TCubicYardsPerSquareFeetParser"),
};

} // namespace

void RegisterUnitParsers() {
  for (const TClassRow& Each : Classes) RegisterUnitParser(Each.Name, Each.Class, Each.Placer);
}

} // namespace unitlib
