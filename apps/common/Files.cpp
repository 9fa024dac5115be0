#include "apps/common/Files.h"

#include "apps/common/Platform.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace unitlib::app {
namespace {

[[noreturn]] void RaiseErrno(std::u16string_view Message, const std::string& Name, int Code) {
  throw EFileError(std::u16string(Message), FromUtf8(Name), FromUtf8(std::generic_category().message(Code)));
}

void WriteAll(std::FILE* Stream, const std::string& Name, std::string_view Bytes) {
  errno = 0;
  const bool Taken = Bytes.empty() || std::fwrite(Bytes.data(), 1, Bytes.size(), Stream) == Bytes.size();
  if (!Taken || std::fflush(Stream) != 0) RaiseErrno(u"Cannot be written", Name, errno);
}

} // namespace

TInput::TInput(const std::string& Path) : FName(Path), FStream(platform::Open(Path, "rb")), FOwned(true) {
  if (!FStream) RaiseErrno(u"Cannot be read", FName, errno);
}

TInput::TInput(std::FILE* Stream, std::string Name)
    : FName(std::move(Name)), FStream(Stream), FOwned(false) {}

TInput::~TInput() {
  if (FOwned) std::fclose(FStream);
}

std::size_t TInput::Read(char* Buffer, std::size_t Size) {
  const std::ptrdiff_t Got = platform::ReadSome(FStream, Buffer, Size);
  if (Got < 0) RaiseErrno(u"Cannot be read", FName, errno);
  FDone += static_cast<std::uint64_t>(Got);
  return static_cast<std::size_t>(Got);
}

std::uint64_t TInput::Size() const {
  return platform::FileSize(FStream);
}

void TStreamOutput::Write(std::string_view Bytes) {
  WriteAll(FStream, FName, Bytes);
}

void TStreamOutput::Commit() {
  WriteAll(FStream, FName, {});
}

TFileOutput::TFileOutput(const std::string& Path) : FName(Path), FTarget(platform::FollowLinks(Path)) {
  FStream = platform::IsSpecialFile(FTarget) ? platform::Open(FTarget, "wb")
                                             : platform::CreateTemporary(FTarget, FTemporary);
  if (!FStream) Fail();
}

TFileOutput::~TFileOutput() {
  if (!FStream) return;
  if (FTemporary.empty())
    std::fclose(FStream);
  else
    platform::Discard(FStream, FTemporary);
}

void TFileOutput::Write(std::string_view Bytes) {
  WriteAll(FStream, FName, Bytes);
}

void TFileOutput::Commit() {
  std::FILE* Stream = std::exchange(FStream, nullptr);
  if (FTemporary.empty()) {
    if (std::fclose(Stream) != 0) Fail();
    return;
  }
  if (platform::Publish(Stream, FTemporary, FTarget)) return;
  const int Code = errno;
  platform::Discard(nullptr, FTemporary);
  errno = Code;
  Fail();
}

void TFileOutput::Fail() const {
  RaiseErrno(u"Cannot be written", FName, errno);
}

} // namespace unitlib::app
