/// Calls of the C interface with everything checked that holds for every call: statuses, the last error,
/// results left alone after a failure, the protocol of text buffers, the twin in UTF-8.
#pragma once

#include "fuzz/Input.h"
#include "unitlib/capi/unitlib.h"

#include <functional>
#include <optional>
#include <string>

namespace unitlib::fuzz {

/// A text that is handed in, in both encodings.
class TTextIn {
public:
  explicit TTextIn(TInput& Input);
  explicit TTextIn(std::u16string Text);

  const ul_char16* Wide() const noexcept { return FText.data(); }
  std::int32_t WideLength() const noexcept { return Length(FText.size()); }
  const char* Narrow() const noexcept { return FNarrow.data(); }
  std::int32_t NarrowLength() const noexcept { return Length(FNarrow.size()); }
  const std::u16string& Text() const noexcept { return FText; }
  /// False for half surrogates, which UTF-8 cannot carry: the twin is asked about another text then.
  bool HasTwin() const noexcept { return FHasTwin; }

private:
  std::int32_t Length(std::size_t Size) const noexcept {
    return FToNul ? std::int32_t{UL_TO_NUL} : static_cast<std::int32_t>(Size);
  }

  std::u16string FText;
  std::string FNarrow;
  bool FHasTwin;
  bool FToNul; // handed in with its closing zero, without a length
};

/// Remembers the name of a call; the last ones are printed with a failure.
void Trace(const std::string& Name);
void ClearTrace();
[[noreturn]] void FailCall(const std::string& Message);

/// Checks the status of a call; return: the same status.
ul_status Checked(ul_status Status);

using TWideOut = std::function<ul_status(ul_char16*, std::int32_t, std::int32_t*)>;
using TNarrowOut = std::function<ul_status(char*, std::int32_t, std::int32_t*)>;

/// A text result: asked for its size, taken with a buffer that fits, refused with one that is a unit too
/// small. The twin (null: none) must agree. return: nothing after an error
std::optional<std::u16string> TextOut(const std::string& Name, const TWideOut& Wide, const TNarrowOut& Narrow,
                                      ul_status* Status = nullptr);

/// A call with one result, which must be left alone after a failure, and refuse a null pointer.
template <class T, class TCall> std::optional<T> ResultOf(const std::string& Name, TCall Call) {
  Trace(Name);
  T Result, Before;
  std::fill_n(reinterpret_cast<unsigned char*>(&Result), sizeof Result, static_cast<unsigned char>(0xA5));
  std::fill_n(reinterpret_cast<unsigned char*>(&Before), sizeof Before, static_cast<unsigned char>(0xA5));
  const ul_status Status = Checked(Call(&Result));
  if (Status != UL_OK) {
    const auto* A = reinterpret_cast<const unsigned char*>(&Result);
    if (!std::equal(A, A + sizeof Result, reinterpret_cast<const unsigned char*>(&Before)))
      FailCall("a result written by a call that failed");
    return std::nullopt;
  }
  if (Checked(Call(nullptr)) != UL_ERROR_ARGUMENT) FailCall("a null result pointer was taken");
  return Result;
}

} // namespace unitlib::fuzz
