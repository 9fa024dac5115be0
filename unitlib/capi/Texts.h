/// Texts across the border: UTF-16 (ul_char16) or UTF-8 (char), in by pointer and length, out into the
/// caller's buffer. Both kinds are one template each, so that a function and its twin cannot differ.
#pragma once

#include "unitlib/capi/Call.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace unitlib::capi {

/// A text handed in.
template <class C> struct TIn {
  const C* Text;
  int32_t Length;
};
template <class C> TIn(const C*, int32_t) -> TIn<C>;

/// The text handed in, checked and copied: what a call writes may overlap what it was given.
/// errors      TFailure a null pointer with a length, a negative length, malformed UTF-8
std::u16string Read(TIn<ul_char16> In);
std::u16string Read(TIn<char> In);

/// Length as the border counts it.
/// errors      TFailure more units than 32 bits count
int32_t CheckedLength(size_t Length);

/// What becomes of the failure of a buffer that is too small: kept as the thread's last error, or returned
/// only.
enum class TOnFailure { Keep, JustReturn };

/// The caller's buffer for a text.
template <class C> class TOut {
public:
  TOut(C* Buffer, int32_t Capacity, int32_t* Needed) noexcept
      : FBuffer(Buffer), FCapacity(Capacity), FNeeded(Needed) {
    if (FNeeded) *FNeeded = 0;
  }

  /// errors      TFailure the buffer is null or its capacity negative
  void Require() const;
  /// Writes the text and a closing zero, or nothing.
  /// errors      as Require
  ul_status Write(std::u16string_view Text, TOnFailure OnFailure = TOnFailure::Keep) const;
  /// The same without the closing zero, for the texts of a column.
  ul_status WriteRaw(std::basic_string_view<C> Text) const {
    return WriteUnits(Text, Text.size(), TOnFailure::Keep);
  }

private:
  ul_status WriteUnits(std::basic_string_view<C> Text, size_t Needed, TOnFailure OnFailure) const;

  C* FBuffer;
  int32_t FCapacity;
  int32_t* FNeeded;
};

extern template class TOut<ul_char16>;
extern template class TOut<char>;

/// A call that gives a text.
template <class C, class TSource> ul_status Give(TOut<C> Out, TSource Source) noexcept {
  return Call([&] {
    Out.Require(); // first, so that a wrong buffer is what the host is told about
    return Out.Write(Source());
  });
}

/// Appends a text to another in the units of the border.
void AppendUnits(std::u16string& Out, std::u16string_view Text);
void AppendUnits(std::string& Out, std::u16string_view Text);

} // namespace unitlib::capi
