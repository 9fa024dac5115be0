#include "apps/unitctl/Schedule.h"

#include "apps/common/CsvWriter.h"
#include "apps/common/NearestName.h"
#include "apps/common/Platform.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <array>

namespace unitlib::app {
namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::size_t BatchBytes = std::size_t{256} << 10;
/// Spellings of measures that are remembered; a file of nothing but new ones must not fill the memory.
constexpr std::size_t MaxSpellings = 1000;

std::string_view TrimBlanks(std::string_view Text) {
  const std::size_t First = std::min(Text.find_first_not_of(" \t"), Text.size());
  return Text.substr(First, Text.find_last_not_of(" \t") + 1 - First);
}

/// Characters below U+0080 that a field cannot hold without quotes.
constexpr auto NeedsQuotes = [] {
  std::array<bool, 128> Result{};
  for (const unsigned char C : {',', '"', '\r', '\n'}) Result[C] = true;
  return Result;
}();

} // namespace

std::unique_ptr<TInput> OpenInput(const TContext& Context, const std::optional<std::string>& Path) {
  if (Path && Path->empty()) throw ERefused(Say("schedule.no-name"));
  if (Path && *Path != "-") return std::make_unique<TInput>(*Path);
  if (platform::IsTerminal(Context.Streams.In)) Context.Complain(Say("schedule.keyboard"));
  return std::make_unique<TInput>(Context.Streams.In, Say("stream.in"));
}

TScheduleReader::TScheduleReader(TByteSource& Source, std::string SourceName, const TScheduleOptions& Options)
    : FSourceName(std::move(SourceName)), FReader(Source) {
  TCsvRecord Record;
  if (!Next(Record) || Record.Raw.empty()) throw ERefused(FSourceName + ":1: " + Say("schedule.no-header"));
  if (Record.Raw.starts_with("\xFF\xFE") || Record.Raw.starts_with("\xFE\xFF"))
    throw ERefused(FSourceName + ": " + Say("schedule.utf16"));
  TCsvFields Fields;
  if (!Fields.Split(Record.Raw)) throw ERefused(FSourceName + ":1: " + Say("schedule.header-quotes"));
  for (const std::string_view Field : Fields.All()) FColumns.emplace_back(TrimBlanks(Field));
  FLineEnd = Record.LineEnd.empty() ? "\n" : Record.LineEnd;
  FindColumns(Options);
  if (FReader.HadMark()) FHeader = Utf8Mark;
  FHeader.append(Record.Raw).append(",");
  AppendCsvField(FHeader, Options.DisplayColumn);
  FHeader += FLineEnd;
}

bool TScheduleReader::Next(TCsvRecord& Record) {
  try {
    return FReader.Next(Record);
  } catch (const EConvertError& Error) {
    throw ERefused(FSourceName + ":" + ToUtf8(Error.Text()) + ": " + Error.what());
  }
}

void TScheduleReader::FindColumns(const TScheduleOptions& Options) {
  FLayout.Count = FColumns.size();
  FLayout.Value = FindColumn(Options.ValueColumn);
  if (!Options.Measure) FLayout.Measure = FindColumn(Options.MeasureColumn);
  if (std::find(FColumns.begin(), FColumns.end(), Options.DisplayColumn) != FColumns.end())
    throw ERefused(FSourceName + ":1: " + Say("schedule.display-column", Quoted(Options.DisplayColumn)));
}

std::size_t TScheduleReader::FindColumn(const std::string& Name) const {
  const auto Found = std::find(FColumns.begin(), FColumns.end(), Name);
  if (Found == FColumns.end())
    throw ERefused(FSourceName + ":1: " +
                   Say("schedule.no-column", Quoted(Name), Quoted(FColumns[NearestName(Name, FColumns)])));
  if (std::find(Found + 1, FColumns.end(), Name) != FColumns.end())
    throw ERefused(FSourceName + ":1: " + Say("schedule.column-twice", Quoted(Name)));
  return static_cast<std::size_t>(Found - FColumns.begin());
}

void TScheduleReader::Append(TRowBatch& Batch, const TCsvRecord& Record) const {
  Batch.Add({Record.Line, FReader.Line(), Record.OpenQuote}, Record.Raw);
}

/// Appends rows that have arrived; false when there are none. Where no quotes are, the converters find the
/// rows: a tenth of all instructions, and the thread that reads and writes is not held up.
bool TScheduleReader::AppendBuffered(TRowBatch& Batch) {
  const std::uint64_t Line = FReader.Line();
  if (const std::string_view Plain = FReader.NextPlainRecords(BatchBytes); !Plain.empty()) {
    Batch.AddPlain(Line, Plain);
    return true;
  }
  TCsvRecord Record;
  if (!FReader.NextBuffered(Record)) return false;
  Append(Batch, Record);
  return true;
}

bool TScheduleReader::ReadBatch(TRowBatch& Batch) {
  Batch.Clear();
  TCsvRecord Record;
  if (!Next(Record)) return false;
  Append(Batch, Record);
  while (Batch.Size() < BatchBytes && AppendBuffered(Batch)) {
  }
  return true;
}

void TRowBatch::Clear() noexcept {
  FBytes.clear();
  FPieces.clear();
}

void TRowBatch::Add(const TRow& Row, std::string_view Raw) {
  FBytes.append(Raw);
  FPieces.push_back({Raw.size(), Row, false});
}

void TRowBatch::AddPlain(std::uint64_t Line, std::string_view Rows) {
  FBytes.append(Rows);
  FPieces.push_back({Rows.size(), {Line, Line, false}, true});
}

TRowConverter::TRowConverter(const TScheduleLayout& Layout, const TScheduleOptions& Options)
    : FLayout(Layout), FFormat(Options.Format), FValueColumn(Options.ValueColumn) {
  if (Options.Measure) FMeasure = FindConvertible(*Options.Measure).ClassifyCode;
}

bool TRowConverter::Convert(const TCsvFields& Fields, std::u16string& Display, TRowProblem& Problem) {
  Display.clear();
  int Code = FMeasure;
  double Value = 0;
  if (FLayout.Measure != TScheduleLayout::None && !FindRecentMeasure(Fields[FLayout.Measure], Code, Problem))
    return false;
  const std::string_view Cell = Fields[FLayout.Value];
  if (!ReadValue(Cell, Value, Problem)) return false;
  try {
    Display = DisplayText(Code, Value, FFormat);
    return true;
  } catch (const EUnitError& Error) {
    Problem = {0, Say("value.bad", Quoted(Cell), Printable(Error.what())), std::string(Cell), NoPlace};
    return false;
  }
}

/// A cell is nearly always one of the few before it: half of the time of the map.
bool TRowConverter::FindRecentMeasure(std::string_view Cell, int& Code, TRowProblem& Problem) {
  const std::size_t Mixed = Cell.empty() ? 0 : Cell.size() * 5 + static_cast<unsigned char>(Cell.back());
  TKnownCell& Known = FRecent[Mixed % FRecent.size()];
  if (!Known.Text.empty() && Cell == Known.Text) {
    Code = Known.Code;
    return true;
  }
  if (!FindMeasure(Cell, Code, Problem)) return false;
  Known.Text = Cell;
  Known.Code = Code;
  return true;
}

bool TRowConverter::FindMeasure(std::string_view Cell, int& Code, TRowProblem& Problem) {
  if (const auto Known = FCodes.find(Cell); Known != FCodes.end()) {
    Code = Known->second;
    return true;
  }
  try {
    Code = FindConvertible(TrimBlanks(Cell)).ClassifyCode;
  } catch (const std::runtime_error& Error) { // ERefused, or malformed UTF-8
    Problem = {0, Printable(Error.what()), std::string(Cell), NoPlace};
    return false;
  }
  if (FCodes.size() < MaxSpellings) FCodes.emplace(Cell, Code);
  return true;
}

bool TRowConverter::ReadValue(std::string_view Cell, double& Value, TRowProblem& Problem) {
  const TNumberText Number = ReadUtf8Number(Cell);
  Value = Number.Value;
  if (Number.Ok) return true;
  Problem = {0, Say("schedule.column", Quoted(FValueColumn), NumberProblem(Cell)), std::string(Cell),
             NumberStop(Cell)};
  return false;
}

TBatchConverter::TBatchConverter(const TScheduleLayout& Layout, const TScheduleOptions& Options,
                                 std::string LineEnd)
    : FConverter(Layout, Options), FCount(Layout.Count), FStrict(Options.Strict),
      FLineEnd(std::move(LineEnd)) {}

void TBatchConverter::Convert(const TRowBatch& Batch, TBatchResult& Result) {
  Result.Csv.clear();
  Result.Problems.clear();
  Result.Rows = 0;
  Result.Stopped = false;
  Batch.ForEach([&](const TRowBatch::TRow& Row, std::string_view Raw) {
    if (ConvertRow(Row, Raw, Result)) return true;
    Result.Problems.push_back(std::move(FProblem));
    Result.Problems.back().Line = Row.Line;
    Result.Stopped = FStrict;
    return !FStrict;
  });
}

/// False: the row is bad, and FProblem says why.
bool TBatchConverter::ConvertRow(const TRowBatch::TRow& Row, std::string_view Raw, TBatchResult& Result) {
  if (Raw.empty() && FCount > 1) { // an empty line is no row
    Result.Csv += FLineEnd;
    return true;
  }
  ++Result.Rows;
  const bool WellFormed = FFields.Split(Raw);
  const bool Shaped = WellFormed && !Row.OpenQuote && FFields.Count() == FCount;
  FDisplay.clear();
  if (!Shaped) TellShape(Row, WellFormed);
  const bool Good = Shaped && FConverter.Convert(FFields, FDisplay, FProblem);
  if (!Good && FStrict) return false;
  if (!Shaped || !AppendPlainRow(Raw, Result.Csv)) AppendRow(Raw, Shaped, Result.Csv);
  return Good;
}

/// A row that does not fit the header could have its value in another column.
void TBatchConverter::TellShape(const TRowBatch::TRow& Row, bool WellFormed) {
  FProblem = {};
  if (Row.OpenQuote)
    FProblem.Message = Say("schedule.open-quote", std::to_string(Row.LastLine));
  else if (!WellFormed)
    FProblem.Message = Say("schedule.behind-quote");
  else
    FProblem.Message = FFields.Count() == 1
                           ? Say("schedule.one-field", std::to_string(FCount))
                           : Say("schedule.fields", std::to_string(FFields.Count()), std::to_string(FCount));
}

/// The row as it stands with the display text behind it, in one piece: a tenth of the time of a row less than
/// with AppendRow. False, and nothing is written, where the text needs quotes or is not ASCII.
bool TBatchConverter::AppendPlainRow(std::string_view Raw, std::string& Out) const {
  const std::size_t Old = Out.size();
  Out.resize(Old + Raw.size() + 1 + FDisplay.size() + FLineEnd.size());
  char* At = Out.data() + Old;
  At += Raw.copy(At, Raw.size());
  *At++ = ',';
  char16_t All = 0;
  bool Quotes = false;
  for (const char16_t C : FDisplay) {
    All |= C;
    Quotes |= NeedsQuotes[C % NeedsQuotes.size()];
    *At++ = static_cast<char>(C);
  }
  if (Quotes || All >= NeedsQuotes.size()) {
    Out.resize(Old);
    return false;
  }
  FLineEnd.copy(At, FLineEnd.size());
  return true;
}

/// The row as it stands with the display text behind it; a misshapen one is written anew, so that the text is
/// in its column and the quotes match.
void TBatchConverter::AppendRow(std::string_view Raw, bool AsItStands, std::string& Out) const {
  if (AsItStands) {
    Out.append(Raw);
  } else {
    for (std::size_t I = 0; I < FCount; ++I) {
      if (I > 0) Out.push_back(',');
      if (I < FFields.Count()) AppendCsvField(Out, FFields[I]);
    }
  }
  Out.push_back(',');
  AppendCsvField(Out, ToUtf8(FDisplay));
  for (std::size_t I = FCount; I < FFields.Count(); ++I) {
    Out.push_back(',');
    AppendCsvField(Out, FFields[I]);
  }
  Out.append(FLineEnd);
}

} // namespace unitlib::app
