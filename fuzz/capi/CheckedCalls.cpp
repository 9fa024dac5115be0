#include "fuzz/capi/CheckedCalls.h"

#include "fuzz/Check.h"
#include "fuzz/slow/Regex.h"

#include <algorithm>
#include <deque>
#include <vector>

namespace unitlib::fuzz {
namespace {

constexpr std::size_t LongestText = 200;

std::deque<std::string>& LastCalls() {
  static std::deque<std::string> Calls;
  return Calls;
}

bool IsWellFormed(std::u16string_view Text) {
  for (std::size_t I = 0; I < Text.size(); ++I) {
    const bool High = Text[I] >= 0xD800 && Text[I] < 0xDC00;
    if (Text[I] < 0xD800 || Text[I] > 0xDFFF) continue;
    if (!High || I + 1 == Text.size() || Text[I + 1] < 0xDC00 || Text[I + 1] > 0xDFFF) return false;
    ++I;
  }
  return true;
}

/// The buffer protocol for one encoding.
template <class C, class TSource>
std::optional<std::basic_string<C>> TakeText(const TSource& Source, ul_status& Status) {
  constexpr C Untouched = C{'#'};
  std::int32_t Needed = -7;
  Status = Checked(Source(nullptr, 0, &Needed));
  if (Status == UL_OK) FailCall("a text fits into nothing");
  if (Status != UL_BUFFER_TOO_SMALL) {
    if (Needed != 0) FailCall("a size for a text that there is not: " + Show(Needed));
    return std::nullopt;
  }
  if (Needed < 1) FailCall("a text that needs " + Show(Needed) + " units");
  const auto Size = static_cast<std::size_t>(Needed);
  std::vector<C> Exact(Size, Untouched); // no unit behind it that could be written unnoticed
  std::int32_t Again = -7;
  if (Checked(Source(Exact.data(), Needed - 1, &Again)) != UL_BUFFER_TOO_SMALL || Again != Needed)
    FailCall("a buffer that is one unit too small was taken");
  if (std::any_of(Exact.begin(), Exact.end(), [](C Unit) { return Unit != Untouched; }))
    FailCall("something was written into a buffer that is too small");
  Status = Checked(Source(Exact.data(), Needed, &Again));
  if (Status != UL_OK || Again != Needed || Exact.back() != 0)
    FailCall("the second call differs from the first");
  return std::basic_string<C>(Exact.data(), Size - 1);
}

} // namespace

TTextIn::TTextIn(TInput& Input) : TTextIn(Input.Text().substr(0, LongestText)) {}

TTextIn::TTextIn(std::u16string Text)
    : FText(std::move(Text)), FNarrow(slow::Utf8(FText)), FHasTwin(IsWellFormed(FText)),
      FToNul(FText.size() % 2 == 1 && FText.find(u'\0') == FText.npos) {}

void Trace(const std::string& Name) {
  constexpr std::size_t Kept = 12;
  LastCalls().push_back(Name);
  if (LastCalls().size() > Kept) LastCalls().pop_front();
}

void ClearTrace() {
  LastCalls().clear();
}

void FailCall(const std::string& Message) {
  std::string Calls;
  for (const std::string& Name : LastCalls()) Calls += "\n   " + Name;
  Fail(Message + ", after the calls" + Calls);
}

ul_status Checked(ul_status Status) {
  if (Status < UL_OK || Status > UL_ERROR_NOT_AVAILABLE) FailCall("status " + Show(Status));
  if (Status == UL_OK) return Status;
  ul_error Error{};
  if (ul_last_error(&Error) != UL_OK) FailCall("no last error");
  // Of a column the last error tells about its first failed item.
  const bool Told =
      Status == UL_ITEMS_FAILED ? Error.code > UL_ITEMS_FAILED && Error.item >= 0 : Error.code == Status;
  if (!Told) FailCall("status " + Show(Status) + ", but the last error has code " + Show(Error.code));
  return Status;
}

std::optional<std::u16string> TextOut(const std::string& Name, const TWideOut& Wide, const TNarrowOut& Narrow,
                                      ul_status* Status) {
  Trace(Name);
  ul_status WideStatus = UL_OK, NarrowStatus = UL_OK;
  const auto Text = TakeText<ul_char16>(Wide, WideStatus);
  if (Status) *Status = WideStatus;
  if (!Narrow) return Text;
  const auto Twin = TakeText<char>(Narrow, NarrowStatus);
  if (NarrowStatus != WideStatus)
    FailCall("status " + Show(WideStatus) + ", the twin's " + Show(NarrowStatus));
  if (Text && slow::Utf8(*Text) != *Twin) FailCall("text " + Show(*Text) + ", the twin's " + Show(*Twin));
  return Text;
}

} // namespace unitlib::fuzz
