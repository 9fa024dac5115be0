#include "unitlib/rtl/XmlTextReader.h"

#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace unitlib {
namespace {

/// Bytes that stand for themselves in a value.
constexpr auto IsPlain = [] {
  std::array<bool, 256> Result{};
  for (size_t C = ' '; C < 0x80; ++C) Result[C] = C != '&' && C != '<' && C != '"';
  return Result;
}();

/// Replaces the references of a value by their characters. False when one is not among those that the writer
/// uses.
bool ReplaceReferences(std::u16string& Value) noexcept {
  struct TRow {
    std::u16string_view Text;
    char16_t Character;
  };
  constexpr TRow Rows[] = {{u"&quot;", u'"'}, {u"&amp;", u'&'},  {u"&lt;", u'<'},
                           {u"&#09;", u'\t'}, {u"&#10;", u'\n'}, {u"&#13;", u'\r'}};
  size_t Size = 0;
  for (size_t I = 0; I < Value.size(); ++Size) {
    const std::u16string_view Rest = std::u16string_view(Value).substr(I);
    const auto Row = std::find_if(std::begin(Rows), std::end(Rows),
                                  [Rest](const TRow& Each) { return Rest.starts_with(Each.Text); });
    const bool IsReference = Row != std::end(Rows);
    if (!IsReference && Rest.front() == u'&') return false;
    Value[Size] = IsReference ? Row->Character : Rest.front();
    I += IsReference ? Row->Text.size() : 1;
  }
  Value.resize(Size);
  return true;
}

} // namespace

TXmlTextReader::TXmlTextReader(const std::string& Text) noexcept
    : FAt(Text.c_str()), FEnd(FAt + Text.size()) {
  Skip("<?xml version=\"1.0\" encoding=\"UTF-8\"?>") ? SkipBlanks() : GiveUp();
}

std::u16string TXmlTextReader::TextValue() {
  const char* const Begin = FAt;
  while (IsPlain[static_cast<unsigned char>(*FAt)]) ++FAt;
  if (*FAt != '"') return EscapedValue(Begin);
  return std::u16string(Begin, FAt++);
}

/// A value with references, or with characters beyond ASCII.
std::u16string TXmlTextReader::EscapedValue(const char* Begin) {
  while (static_cast<unsigned char>(*FAt) >= 0x80 || *FAt == '&' || IsPlain[static_cast<unsigned char>(*FAt)])
    ++FAt;
  const std::string_view Bytes(Begin, static_cast<size_t>(FAt - Begin));
  const bool Ends = *FAt == '"' && IsUtf8(Bytes);
  std::u16string Result = Ends ? FromUtf8(Bytes) : std::u16string();
  if (!Ends || !ReplaceReferences(Result)) return GiveUp(), std::u16string();
  ++FAt;
  return Result;
}

int TXmlTextReader::IntegerValue() noexcept {
  const bool Negative = *FAt == '-';
  FAt += Negative;
  const char* const First = FAt;
  int Result = 0;
  for (; *FAt >= '0' && *FAt <= '9' && FAt - First < 9; ++FAt) Result = Result * 10 + (*FAt - '0');
  if (FAt == First || *FAt != '"') return GiveUp(), 0;
  ++FAt;
  return Negative ? -Result : Result;
}

bool TXmlTextReader::BooleanValue() noexcept {
  if (Skip("false\"")) return false;
  if (!Skip("true\"")) GiveUp();
  return !FGaveUp;
}

void TXmlTextReader::GiveUp() noexcept {
  FAt = FEnd;
  FInTag = false;
  FGaveUp = true;
}

} // namespace unitlib
