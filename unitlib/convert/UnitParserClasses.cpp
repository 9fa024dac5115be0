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
};

constexpr TClassRow Classes[] = {
    {u"TKilogramsPerMeterParser", CreateUnitParser<TKilogramsPerMeterParser>},
    {u"TPoundPerFootParser", CreateUnitParser<TPoundPerFootParser>},
    {u"TDecimalFeetParser", CreateUnitParser<TDecimalFeetParser>},
    {u"TFeetAndFractionalInchParser", CreateUnitParser<TFeetAndFractionalInchParser>},
    {u"TDecimalInchParser", CreateUnitParser<TDecimalInchParser>},
    {u"TFractionalInchParser", CreateUnitParser<TFractionalInchParser>},
    {u"TMetreParser", CreateUnitParser<TMetreParser>},
    {u"TCentimeterParser", CreateUnitParser<TCentimeterParser>},
    {u"TMillimetreParser", CreateUnitParser<TMillimetreParser>},
    {u"TSquareFootParser", CreateUnitParser<TSquareFootParser>},
    {u"TSquareInchParser", CreateUnitParser<TSquareInchParser>},
    {u"TSquareMeterParser", CreateUnitParser<TSquareMeterParser>},
    {u"TSquareCentimetreParser", CreateUnitParser<TSquareCentimetreParser>},
    {u"TSquareMillimeterParser", CreateUnitParser<TSquareMillimeterParser>},
    {u"TCubicYardParser", CreateUnitParser<TCubicYardParser>},
    {u"TCubicFootParser", CreateUnitParser<TCubicFootParser>},
    {u"TCubicInchParser", CreateUnitParser<TCubicInchParser>},
    {u"TCubicMeterParser", CreateUnitParser<TCubicMeterParser>},
    {u"TCubicCentimeterParser", CreateUnitParser<TCubicCentimeterParser>},
    {u"TCubicMillimetreParser", CreateUnitParser<TCubicMillimetreParser>},
    {u"TKiogramsPerCubicMeterParser", CreateUnitParser<TKiogramsPerCubicMeterParser>},
    {u"TPoundPerCubicFootParser", CreateUnitParser<TPoundPerCubicFootParser>},
    {u"TPoundPerCubicYardParser", CreateUnitParser<TPoundPerCubicYardParser>},
    {u"TCubicMetersPerMeterParser", CreateUnitParser<TCubicMetersPerMeterParser>},
    {u"TCubicFeetPerFootParser", CreateUnitParser<TCubicFeetPerFootParser>},
    {u"TCubicYardsPerFootParser", CreateUnitParser<TCubicYardsPerFootParser>},
    {u"TKilogramsParser", CreateUnitParser<TKilogramsParser>},
    {u"TBangParser", CreateUnitParser<TBangParser>},
    {u"TTonParser", CreateUnitParser<TTonParser>},
    {u"TShortTonParser", CreateUnitParser<TShortTonParser>},
    {u"TLongTonParser", CreateUnitParser<TLongTonParser>},
    {u"TCubicMetersPerSquareMetersParser", CreateUnitParser<TCubicMetersPerSquareMetersParser>},
    {u"TCubicFeetPerSquareFeetParser", CreateUnitParser<TCubicFeetPerSquareFeetParser>},
    {u"TCubicYardsPerSquareFeetParser", CreateUnitParser<TCubicYardsPerSquareFeetParser>},
};

} // namespace

void RegisterUnitParsers() {
  for (const TClassRow& Row : Classes) RegisterUnitParser(Row.Name, Row.Class);
}

} // namespace unitlib
