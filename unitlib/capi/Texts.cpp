#include "unitlib/capi/Texts.h"

#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <limits>

namespace unitlib::capi {
namespace {

template <class C> std::basic_string_view<C> View(TIn<C> In) {
  if (In.Length < UL_TO_NUL) FailArgument(u"A text has a negative length");
  if (!In.Text && In.Length != 0) FailArgument(u"A text pointer is null");
  if (!In.Text) return {};
  if (In.Length == UL_TO_NUL) return std::basic_string_view<C>(In.Text);
  return {In.Text, static_cast<size_t>(In.Length)};
}

TFailure TooSmall(size_t Needed, int32_t Capacity) {
  return {UL_BUFFER_TOO_SMALL, u"The text takes " + IntToStr(static_cast<std::int64_t>(Needed)) +
                                   u" units, the buffer holds " + IntToStr(Capacity)};
}

} // namespace

std::u16string Read(TIn<ul_char16> In) {
  return std::u16string(View(In));
}

std::u16string Read(TIn<char> In) {
  const std::string_view Text = View(In);
  if (!IsUtf8(Text)) throw TFailure{UL_ERROR_ENCODING, u"A text is not well-formed UTF-8", FromUtf8(Text)};
  return FromUtf8(Text);
}

int32_t CheckedLength(size_t Length) {
  if (Length > static_cast<size_t>(std::numeric_limits<int32_t>::max()))
    FailArgument(u"The texts take more units than 32 bits count: convert fewer at once");
  return static_cast<int32_t>(Length);
}

template <class C> void TOut<C>::Require() const {
  if (FCapacity < 0) FailArgument(u"A buffer has a negative capacity");
  if (!FBuffer && (FCapacity > 0 || !FNeeded)) FailArgument(u"A buffer pointer is null");
}

template <class C> ul_status TOut<C>::Write(std::u16string_view Text, TOnFailure OnFailure) const {
  std::basic_string<C> Units;
  AppendUnits(Units, Text);
  return WriteUnits(Units, Units.size() + 1, OnFailure);
}

template <class C>
ul_status TOut<C>::WriteUnits(std::basic_string_view<C> Text, size_t Needed, TOnFailure OnFailure) const {
  Require();
  const int32_t Length = CheckedLength(Needed);
  if (FNeeded) *FNeeded = Length;
  if (Length > FCapacity)
    return OnFailure == TOnFailure::Keep ? KeepFailure(TooSmall(Needed, FCapacity)) : UL_BUFFER_TOO_SMALL;
  std::copy(Text.begin(), Text.end(), FBuffer);
  if (Needed > Text.size()) FBuffer[Text.size()] = C();
  return UL_OK;
}

template class TOut<ul_char16>;
template class TOut<char>;

void AppendUnits(std::u16string& Out, std::u16string_view Text) {
  Out.append(Text);
}

void AppendUnits(std::string& Out, std::u16string_view Text) {
  Out.append(ToUtf8(Text));
}

} // namespace unitlib::capi
