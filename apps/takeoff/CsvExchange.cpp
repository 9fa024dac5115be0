#include "apps/takeoff/CsvExchange.h"

#include "apps/common/CsvReader.h"
#include "apps/common/CsvWriter.h"
#include "apps/takeoff/Errors.h"
#include "apps/takeoff/Measures.h"
#include "apps/takeoff/ValueField.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <cmath>
#include <map>

namespace unitlib::takeoff {
namespace {

using app::TCsvFields;
using app::TCsvReader;
using app::TCsvRecord;

constexpr std::size_t None = static_cast<std::size_t>(-1);

std::u16string Quoted(std::u16string_view Text) {
  return u"\"" + std::u16string(Text) + u"\"";
}

std::u16string CellText(std::string_view Cell) {
  if (!IsUtf8(Cell)) throw ERefused(u"text is not UTF-8; save the file as UTF-8");
  return Trim(FromUtf8(Cell));
}

/// Which column is what.
class TColumns {
public:
  explicit TColumns(const TCsvFields& Header) : FCount(Header.Count()) {
    for (std::size_t I = 0; I < FCount; ++I) Assign(CellText(Header[I]), I);
    if (FMeasure == None || FValue == None)
      throw ERefused(u"the first row must name the columns, \"measure\" and \"value\" among them");
  }

  TItem Item(const TCsvFields& Fields) {
    if (Fields.Count() != FCount)
      throw ERefused(u"the row has " + IntToStr(static_cast<std::int64_t>(Fields.Count())) +
                     u" fields, the header " + IntToStr(static_cast<std::int64_t>(FCount)));
    TItem Item;
    for (const std::size_t Column : FName) AppendName(Item.Name, CellText(Fields[Column]));
    Item.Measure = Measure(Fields[FMeasure]);
    Item.Value = Value(CellText(Fields[FValue]));
    if (const TValueField Field(Item.Measure); !Field.CanDisplay(Item.Value))
      throw ERefused(u"the value cannot be shown: " + Field.Display(Item.Value));
    if (FElevation != None) Item.Elevation = TElevationField::Read(CellText(Fields[FElevation]));
    return Item;
  }

private:
  void Assign(const std::u16string& Name, std::size_t Column) {
    std::size_t* const Known = SameText(Name, u"measure")     ? &FMeasure
                               : SameText(Name, u"value")     ? &FValue
                               : SameText(Name, u"elevation") ? &FElevation
                                                              : nullptr;
    if (Known && *Known != None) throw ERefused(u"the column " + Quoted(Name) + u" occurs twice");
    if (Known)
      *Known = Column;
    else if (!SameText(Name, u"display") && !SameText(Name, u"typed"))
      FName.push_back(Column);
  }

  static void AppendName(std::u16string& Name, const std::u16string& Part) {
    if (!Name.empty() && !Part.empty()) Name += u" / ";
    Name += Part;
  }

  /// Files repeat a few spellings: each is looked up once.
  int Measure(std::string_view Cell) {
    constexpr std::size_t MaxSpellings = 1000;
    if (const auto Known = FCodes.find(Cell); Known != FCodes.end()) return Known->second;
    const int Code = FindMeasure(CellText(Cell));
    if (FCodes.size() < MaxSpellings) FCodes.emplace(Cell, Code);
    return Code;
  }

  static double Value(const std::u16string& Cell) {
    double Number = 0;
    if (!TryStrToFloat(Cell, Number))
      throw ERefused(u"the value " + Quoted(Cell) + u" is not a number", Cell);
    return Number;
  }

  std::size_t FCount;
  std::size_t FMeasure = None;
  std::size_t FValue = None;
  std::size_t FElevation = None;
  std::vector<std::size_t> FName;
  std::map<std::string, int, std::less<>> FCodes;
};

TColumns ReadHeader(TCsvReader& Reader) {
  TCsvRecord Record;
  TCsvFields Fields;
  if (!Reader.Next(Record) || !Fields.Split(Record.Raw)) throw ERefused(u"there is no header row");
  return TColumns(Fields);
}

void AddRow(TColumns& Columns, const TCsvRecord& Record, TCsvFields& Fields, TImport& Import) {
  try {
    if (Record.OpenQuote) throw ERefused(u"a quote is not closed before the end of the file");
    if (!Fields.Split(Record.Raw)) throw ERefused(u"text stands behind a closing quote");
    Import.Items.push_back(Columns.Item(Fields));
  } catch (const EUnitError& Error) {
    if (++Import.BadRows <= TImport::MaxProblems) Import.Problems.push_back({Record.Line, Error.Message()});
  }
}

} // namespace

TImport ReadItems(app::TByteSource& Source, const std::function<bool(std::uint64_t)>& Progress) {
  constexpr std::size_t Stride = 1000; // rows between two reports
  TCsvReader Reader(Source);
  TColumns Columns = ReadHeader(Reader);
  TImport Import;
  TCsvRecord Record;
  TCsvFields Fields;
  std::uint64_t Bytes = 0;
  for (std::size_t Row = 0; Reader.Next(Record); ++Row) {
    Bytes += Record.Raw.size() + Record.LineEnd.size();
    if (!Record.Raw.empty()) AddRow(Columns, Record, Fields, Import);
    if (Progress && Row % Stride == 0 && !Progress(Bytes)) {
      Import.Stopped = true;
      break;
    }
  }
  return Import;
}

void WriteSchedule(const TProject& Project, app::TByteSink& Sink) {
  std::string Out = "name,measure,display,elevation,typed,value\n";
  for (std::size_t Row = 0; Row < Project.Count(); ++Row) {
    const TItem& Item = Project.Item(Row);
    const std::string Cells[] = {ToUtf8(Item.Name),
                                 ToUtf8(MeasureName(Item.Measure)),
                                 ToUtf8(TValueField(Item.Measure).Display(Item.Value)),
                                 ToUtf8(TElevationField::Display(Item.Elevation)),
                                 ToUtf8(TValueField::TypedText(Item)),
                                 std::isfinite(Item.Value) ? ToUtf8(FloatToStr(Item.Value)) : std::string()};
    app::AppendCsvRecord(Out, {std::begin(Cells), std::end(Cells)});
    Out += '\n';
    Sink.Write(Out);
    Out.clear();
  }
  Sink.Write(Out);
  Sink.Commit();
}

} // namespace unitlib::takeoff
