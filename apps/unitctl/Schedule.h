/// A take-off schedule: the rows of a CSV file get the display text of their value as one more column.
/// Three parts that know nothing of each other: a reader hands out batches of rows, a converter turns a batch
/// into output bytes and problems, whoever owns the output writes them in order. A converter touches nothing
/// but its own buffers and the settings, which it only reads: batches may be converted on several threads,
/// one converter each.
#pragma once

#include "apps/common/CsvReader.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/FormatOptions.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib::app {

struct TScheduleOptions {
  std::string MeasureColumn = "measure";
  std::string ValueColumn = "value";
  std::string DisplayColumn = "display";
  std::optional<std::string> Measure; // one measure for all rows, instead of a column
  TFormatOptions Format;
  bool Strict = false; // stop at the first bad row
};

/// Where things are in a row.
struct TScheduleLayout {
  static constexpr std::size_t None = static_cast<std::size_t>(-1);
  std::size_t Count = 0;      // columns
  std::size_t Measure = None; // None: one measure for all rows
  std::size_t Value = None;
};

struct TRowProblem {
  std::uint64_t Line = 0;
  std::string Message;
  std::string Text; // the offending cell
  std::size_t Place = NoPlace;
};

/// Rows as they stand in the file, in its order.
class TRowBatch {
public:
  struct TRow {
    std::uint64_t Line = 0;
    std::uint64_t LastLine = 0; // that reading had reached behind it
    bool OpenQuote = false;
  };

  void Clear() noexcept;
  std::size_t Size() const noexcept { return FBytes.size(); }
  void Add(const TRow& Row, std::string_view Raw);
  /// Rows without a quote, one behind the other with their line ends.
  void AddPlain(std::uint64_t Line, std::string_view Rows);
  /// Calls Use(Row, Raw) for each row, until it answers false. Raw is without line end.
  template <class TUse> void ForEach(TUse Use) const;

private:
  struct TPiece {
    std::size_t Size = 0;
    TRow Row;
    bool IsPlain = false; // several rows
  };
  std::string FBytes;
  std::vector<TPiece> FPieces;
};

template <class TUse> void TRowBatch::ForEach(TUse Use) const {
  std::string_view Rest = FBytes;
  for (const TPiece& Piece : FPieces) {
    std::string_view Text = Rest.substr(0, Piece.Size);
    Rest.remove_prefix(Piece.Size);
    if (!Piece.IsPlain && !Use(Piece.Row, Text)) return;
    for (TRow Row = Piece.Row; Piece.IsPlain && !Text.empty(); ++Row.Line) {
      const std::size_t Size = Text.find('\n');
      const bool CarriageReturn = Size > 0 && Text[Size - 1] == '\r';
      if (!Use(Row, Text.substr(0, Size - (CarriageReturn ? 1 : 0)))) return;
      Text.remove_prefix(Size + 1);
    }
  }
}

struct TBatchResult {
  std::string Csv;
  std::vector<TRowProblem> Problems;
  std::size_t Rows = 0;
  bool Stopped = false; // strict, and a row was bad: Csv ends before it
};

/// The schedule of that name; standard input for "-" or none.
/// errors      EFileError; ERefused the name is empty
std::unique_ptr<TInput> OpenInput(const TContext& Context, const std::optional<std::string>& Path);

/// Reads the header, then batches of rows.
class TScheduleReader {
public:
  /// errors      ERefused no header row, no such column, a column that occurs twice
  TScheduleReader(TByteSource& Source, std::string SourceName, const TScheduleOptions& Options);

  const TScheduleLayout& Layout() const noexcept { return FLayout; }
  const std::vector<std::string>& Columns() const noexcept { return FColumns; }
  /// "\n" or "\r\n", as the header ends.
  const std::string& LineEnd() const noexcept { return FLineEnd; }
  /// The header with the new column, as it goes into the output.
  const std::string& Header() const noexcept { return FHeader; }
  /// Replaces the batch by the next rows: those that have arrived, at most a few hundred kilobytes. False at
  /// the end.
  bool ReadBatch(TRowBatch& Batch);

private:
  bool Next(TCsvRecord& Record);
  void FindColumns(const TScheduleOptions& Options);
  std::size_t FindColumn(const std::string& Name) const;
  void Append(TRowBatch& Batch, const TCsvRecord& Record) const;
  bool AppendBuffered(TRowBatch& Batch);

  std::string FSourceName;
  TCsvReader FReader;
  TScheduleLayout FLayout;
  std::vector<std::string> FColumns;
  std::string FLineEnd;
  std::string FHeader;
};

/// Finds the display text of one row. The settings must not change during its life.
class TRowConverter {
public:
  /// errors      ERefused the one measure for all rows is unknown or cannot be converted
  TRowConverter(const TScheduleLayout& Layout, const TScheduleOptions& Options);

  /// Display becomes the text. False and a problem without its line when the row is bad; Display is empty
  /// then.
  bool Convert(const TCsvFields& Fields, std::u16string& Display, TRowProblem& Problem);

private:
  struct TKnownCell {
    std::string Text;
    int Code = 0;
  };
  bool FindRecentMeasure(std::string_view Cell, int& Code, TRowProblem& Problem);
  bool FindMeasure(std::string_view Cell, int& Code, TRowProblem& Problem);
  bool ReadValue(std::string_view Cell, double& Value, TRowProblem& Problem);

  TScheduleLayout FLayout;
  TFormatOptions FFormat;
  std::string FValueColumn;
  int FMeasure = 0;                               // of all rows, when there is no column
  std::map<std::string, int, std::less<>> FCodes; // cells of the measure column that were found
  std::array<TKnownCell, 16> FRecent;             // of them, by a few of their bytes
};

/// Converts batches to output bytes.
class TBatchConverter {
public:
  TBatchConverter(const TScheduleLayout& Layout, const TScheduleOptions& Options, std::string LineEnd);

  /// Replaces the result by that of the batch.
  void Convert(const TRowBatch& Batch, TBatchResult& Result);

private:
  bool AppendPlainRow(std::string_view Raw, std::string& Out) const;
  void AppendRow(std::string_view Raw, bool AsItStands, std::string& Out) const;
  bool ConvertRow(const TRowBatch::TRow& Row, std::string_view Raw, TBatchResult& Result);
  void TellShape(const TRowBatch::TRow& Row, bool WellFormed);

  TRowConverter FConverter;
  std::size_t FCount;
  bool FStrict;
  std::string FLineEnd;
  TCsvFields FFields;
  std::u16string FDisplay;
  TRowProblem FProblem;
};

} // namespace unitlib::app
