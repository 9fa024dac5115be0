/// Input: a letter for the sizes in which the file is handed out, a letter for the largest record, the file.
#include "fuzz/slow/Csv.h"
#include "apps/common/CsvReader.h"
#include "apps/common/CsvWriter.h"
#include "fuzz/Check.h"
#include "fuzz/Targets.h"
#include "unitlib/rtl/Errors.h"

#include <algorithm>
#include <cstring>

namespace unitlib::fuzz {
namespace {

/// Hands out a few bytes at a time.
class TPieces final : public app::TByteSource {
public:
  TPieces(std::string_view Bytes, std::size_t Piece) : FBytes(Bytes), FPiece(Piece) {}

  std::size_t Read(char* Buffer, std::size_t Size) override {
    const std::size_t Got = std::min({Size, FPiece, FBytes.size()});
    std::memcpy(Buffer, FBytes.data(), Got);
    FBytes.remove_prefix(Got);
    return Got;
  }

private:
  std::string_view FBytes;
  std::size_t FPiece;
};

constexpr std::size_t Pieces[] = {1, 2, 3, 7, 64, 4096};
constexpr std::size_t LargestRecords[] = {app::TCsvReader::DefaultMaxRecord, 3, 5, 20};

void CheckRecord(const app::TCsvRecord& Record, const slow::TRecord& Wanted, std::string_view File) {
  RequireSame("a raw record", File, std::string(Record.Raw), Wanted.Raw);
  RequireSame("a line end", File, std::string(Record.LineEnd), Wanted.LineEnd);
  RequireSame("the line of a record", File, static_cast<std::int64_t>(Record.Line),
              static_cast<std::int64_t>(Wanted.Line));
  RequireSame("an open quote", File, Record.OpenQuote, Wanted.OpenQuote);
  app::TCsvFields Fields;
  RequireSame("well-formed", File, Fields.Split(Record.Raw), Wanted.WellFormed);
  RequireSame("the count of fields", File, static_cast<int>(Fields.Count()),
              static_cast<int>(Wanted.Fields.size()));
  for (std::size_t I = 0; I < Fields.Count(); ++I)
    RequireSame("a field", File, std::string(Fields[I]), Wanted.Fields[I]);
}

/// Records without a quote that come in one piece.
/// return      how many there were
std::size_t CheckPlainRecords(app::TCsvReader& Reader, const std::vector<slow::TRecord>& Wanted,
                              std::size_t First, std::string_view File) {
  std::size_t Count = First;
  std::uint64_t Line = Reader.Line();
  std::string_view Rest = Reader.NextPlainRecords(64);
  for (; !Rest.empty(); ++Line) {
    const std::size_t LineFeed = Rest.find('\n');
    Require(LineFeed != std::string_view::npos && Count < Wanted.size(), "whole records", File);
    const std::size_t Size = LineFeed - (LineFeed > 0 && Rest[LineFeed - 1] == '\r');
    const std::string_view Raw = Rest.substr(0, Size), LineEnd = Rest.substr(Size, LineFeed + 1 - Size);
    CheckRecord({Raw, LineEnd, Line, false}, Wanted[Count++], File);
    Rest.remove_prefix(LineFeed + 1);
  }
  RequireSame("the line behind them", File, static_cast<std::int64_t>(Reader.Line()),
              static_cast<std::int64_t>(Line));
  return Count - First;
}

/// return      how many records were read before one was refused for its size
std::size_t CheckRead(std::string_view File, std::size_t Piece, std::size_t LargestRecord, bool AskBuffered) {
  const std::vector<slow::TRecord> Wanted = slow::ReadCsv(File);
  TPieces Source(File, Piece);
  app::TCsvReader Reader(Source, LargestRecord, Piece);
  app::TCsvRecord Record;
  std::size_t Count = 0;
  try {
    while ((AskBuffered && Reader.NextBuffered(Record)) || Reader.Next(Record)) {
      Require(Count < Wanted.size(), "too many records", File);
      CheckRecord(Record, Wanted[Count++], File);
      if (AskBuffered) Count += CheckPlainRecords(Reader, Wanted, Count, File);
    }
  } catch (const EConvertError&) {
    Require(Count < Wanted.size(), "too many records", File);
    const std::size_t Size = Wanted[Count].Raw.size() + Wanted[Count].LineEnd.size();
    Require(Size > LargestRecord, "a record refused for its size", File);
    return Count;
  }
  RequireSame("the count of records", File, static_cast<int>(Count), static_cast<int>(Wanted.size()));
  RequireSame("the mark", File, Reader.HadMark(), File.starts_with("\xEF\xBB\xBF"));
  return Count;
}

/// The file as it is written anew: the same fields in well-formed records.
std::string Rewritten(std::string_view File) {
  std::string Result = File.starts_with("\xEF\xBB\xBF") ? "\xEF\xBB\xBF" : "";
  for (const slow::TRecord& Record : slow::ReadCsv(File)) {
    app::AppendCsvRecord(Result, {Record.Fields.begin(), Record.Fields.end()});
    Result += '\n';
  }
  return Result;
}

} // namespace

void RunCsv(TInput& Input) {
  const std::size_t Piece = Pieces[Input.Below(std::size(Pieces))];
  const unsigned Choice = Input.Below(2 * std::size(LargestRecords));
  const std::string_view File = Input.Rest();
  CheckRead(File, Piece, LargestRecords[Choice / 2], Choice % 2 != 0);
  const std::string Written = Rewritten(File);
  const auto Before = slow::ReadCsv(File), After = slow::ReadCsv(Written);
  RequireSame("records written and read", File, static_cast<int>(After.size()),
              static_cast<int>(Before.size()));
  for (std::size_t I = 0; I < Before.size(); ++I) {
    Require(After[I].WellFormed, "a written record", File);
    Require(After[I].Fields == Before[I].Fields, "fields written and read, " + Show(Written) + ",", File);
  }
  CheckRead(Written, Piece, app::TCsvReader::DefaultMaxRecord, Choice % 2 != 0);
  RequireSame("the file written a second time", File, Rewritten(Written), Written);
}

} // namespace unitlib::fuzz
