#include "fuzz/slow/Csv.h"

namespace unitlib::fuzz::slow {
namespace {

class TReader {
public:
  explicit TReader(std::string_view Bytes) : FBytes(Bytes) {}

  bool AtEnd() const { return FPos == FBytes.size(); }

  TRecord Read() {
    TRecord Record;
    Record.Line = FLine;
    const std::size_t Start = FPos;
    do Record.Fields.push_back(At('"') ? Quoted(Record) : Plain());
    while (Take(','));
    const std::size_t End = FPos;
    Record.Raw = FBytes.substr(Start, End - Start);
    if (AtLineEnd()) {
      Record.LineEnd = At('\r') ? "\r\n" : "\n";
      FPos += Record.LineEnd.size();
    }
    for (std::size_t I = Start; I < FPos; ++I) FLine += FBytes[I] == '\n';
    return Record;
  }

private:
  bool At(char C) const { return FPos < FBytes.size() && FBytes[FPos] == C; }
  bool AtLineEnd() const { return At('\n') || (At('\r') && FBytes.substr(FPos, 2) == "\r\n"); }
  bool Take(char C) {
    const bool Taken = At(C);
    FPos += Taken;
    return Taken;
  }

  /// Up to the comma or the line end.
  std::string Plain() {
    std::string Field;
    while (!AtEnd() && !At(',') && !AtLineEnd()) Field += FBytes[FPos++];
    return Field;
  }

  std::string Quoted(TRecord& Record) {
    std::string Field;
    ++FPos;
    for (;;) {
      if (AtEnd()) {
        Record.OpenQuote = true;
        Record.WellFormed = false;
        return Field;
      }
      if (FBytes[FPos] != '"') {
        Field += FBytes[FPos++];
      } else if (FBytes.substr(FPos, 2) == "\"\"") {
        Field += '"';
        FPos += 2;
      } else {
        break;
      }
    }
    ++FPos;
    const std::string Behind = Plain();
    if (!Behind.empty()) Record.WellFormed = false;
    return Field + Behind;
  }

  std::string_view FBytes;
  std::size_t FPos = 0;
  std::uint64_t FLine = 1;
};

} // namespace

std::vector<TRecord> ReadCsv(std::string_view Bytes) {
  constexpr std::string_view Mark = "\xEF\xBB\xBF";
  if (Bytes.starts_with(Mark)) Bytes.remove_prefix(Mark.size());
  TReader Reader(Bytes);
  std::vector<TRecord> Records;
  while (!Reader.AtEnd()) Records.push_back(Reader.Read());
  return Records;
}

} // namespace unitlib::fuzz::slow
