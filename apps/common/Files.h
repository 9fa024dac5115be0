/// Input and output of the programs: streams and files as sources and sinks of bytes. Every failure is an
/// EFileError with the path and the system's cause; a full disk or a closed stream never passes unnoticed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace unitlib::app {

/// Where bytes come from.
class TByteSource {
public:
  virtual ~TByteSource() = default;
  /// Reads up to Size bytes, as many as are there now; 0 at the end.
  virtual std::size_t Read(char* Buffer, std::size_t Size) = 0;
};

/// A file, or a stream that stays open.
class TInput final : public TByteSource {
public:
  explicit TInput(const std::string& Path);
  TInput(std::FILE* Stream, std::string Name);
  ~TInput() override;
  TInput(const TInput&) = delete;
  TInput& operator=(const TInput&) = delete;

  std::size_t Read(char* Buffer, std::size_t Size) override;
  /// Path, or the name of the stream, for messages.
  const std::string& Name() const noexcept { return FName; }
  /// Bytes of a regular file, 0 where that is not known; bytes read so far.
  std::uint64_t Size() const;
  std::uint64_t Done() const noexcept { return FDone; }

private:
  std::string FName;
  std::FILE* FStream;
  bool FOwned;
  std::uint64_t FDone = 0;
};

/// Where bytes go.
class TByteSink {
public:
  virtual ~TByteSink() = default;
  virtual void Write(std::string_view Bytes) = 0;
  /// Everything is written: makes it last.
  virtual void Commit() = 0;
};

/// A stream that stays open. Every Write is passed on at once.
class TStreamOutput final : public TByteSink {
public:
  TStreamOutput(std::FILE* Stream, std::string Name) : FStream(Stream), FName(std::move(Name)) {}
  void Write(std::string_view Bytes) override;
  void Commit() override;

private:
  std::FILE* FStream;
  std::string FName;
};

/// A file that is replaced as a whole by Commit, and left as it was when that is not reached. Devices and
/// pipes are written in place.
class TFileOutput final : public TByteSink {
public:
  explicit TFileOutput(const std::string& Path);
  ~TFileOutput() override;
  TFileOutput(const TFileOutput&) = delete;
  TFileOutput& operator=(const TFileOutput&) = delete;
  void Write(std::string_view Bytes) override;
  void Commit() override;

private:
  [[noreturn]] void Fail() const;

  std::string FName;
  std::string FTarget;
  std::string FTemporary; // empty: written in place
  std::FILE* FStream = nullptr;
};

} // namespace unitlib::app
