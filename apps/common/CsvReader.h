/// Streaming reader of comma-separated values: LF or CRLF line ends, quoted fields with commas, doubled
/// quotes and line breaks, a UTF-8 mark. Memory does not grow with the file, only with its longest record.
#pragma once

#include "apps/common/Files.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib::app {

/// One record (row) as it stands in the file. The views are valid until the next record is asked for.
struct TCsvRecord {
  std::string_view Raw;     // without its line end
  std::string_view LineEnd; // "\n" or "\r\n"; empty for a last record without one
  std::uint64_t Line = 0;   // line of the file that it starts on, counted from 1
  bool OpenQuote = false;   // the file ended within quotes
};

/// Finds the records of a source. A quote is one only at the start of a field; elsewhere (5'6" without quotes
/// around it) it is an ordinary character.
class TCsvReader {
public:
  static constexpr std::size_t DefaultMaxRecord = std::size_t{16} << 20;

  /// ReadSize    bytes asked of the source at a time
  explicit TCsvReader(TByteSource& Source, std::size_t MaxRecord = DefaultMaxRecord,
                      std::size_t ReadSize = std::size_t{256} << 10);

  /// The next record; false at the end of the source.
  /// errors      EFileError; EConvertError a record is larger than MaxRecord; Text() is its line
  bool Next(TCsvRecord& Record);
  /// The next record only when it has been read from the source already: never waits.
  bool NextBuffered(TCsvRecord& Record);
  /// Records that have been read from the source already and hold no quote, one behind the other with their
  /// line ends, at most MaxSize bytes: whoever takes them apart may be another thread. Empty when the next one
  /// holds a quote, is larger or has not arrived.
  std::string_view NextPlainRecords(std::size_t MaxSize);
  /// Line that reading has reached.
  std::uint64_t Line() const noexcept { return FLine; }
  /// The source started with a UTF-8 mark, which is in no record. Known after the first record.
  bool HadMark() const noexcept { return FHadMark; }

private:
  enum class TState : std::uint8_t { FieldStart, Plain, Quoted, QuoteInQuoted };

  bool Fill();
  void SkipMark();
  /// Bytes from FBegin to the line feed that ends the record; npos when it is not in the buffer yet.
  std::size_t FindRecordEnd();
  bool ScanQuoted(std::string_view Bytes);
  void Take(std::size_t Size, std::size_t LineEndSize, TCsvRecord& Record);
  void Advance(std::size_t Size, std::uint64_t Lines) noexcept;

  TByteSource& FSource;
  std::size_t FMaxRecord;
  std::size_t FReadSize;
  std::string FBuffer;
  std::size_t FBegin = 0;   // first byte not handed out
  std::size_t FEnd = 0;     // behind the last byte read
  std::size_t FScanned = 0; // bytes from FBegin on that hold no record end
  TState FState = TState::FieldStart;
  std::uint64_t FLine = 1;
  bool FStarted = false;
  bool FAtEnd = false;
  bool FHadMark = false;
};

/// The fields of one record, unquoted. Buffers are kept from record to record.
class TCsvFields {
public:
  /// Splits a record. The fields are valid until the next call and as long as Raw is.
  /// return      false when text stands behind a closing quote, or a quote is not closed
  bool Split(std::string_view Raw);
  std::size_t Count() const noexcept { return FFields.size(); }
  std::string_view operator[](std::size_t Index) const { return FFields[Index]; }
  const std::vector<std::string_view>& All() const noexcept { return FFields; }

private:
  bool TakeQuoted(std::string_view& Rest);

  std::vector<std::string_view> FFields;
  std::string FUnquoted; // texts of the fields with doubled quotes, one behind the other
};

} // namespace unitlib::app
