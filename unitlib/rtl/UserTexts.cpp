#include "unitlib/rtl/UserTexts.h"

#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <utility>

namespace unitlib {
namespace {

constinit TTextSource Source;

/// The table of LoadTextTable and SetUserText.
TTextTable& OwnTable() {
  static TTextTable Table;
  return Table;
}

std::u16string TableText(void*, std::u16string_view Key, std::u16string_view) {
  const std::u16string* const Found = OwnTable().Find(Key);
  return Found ? *Found : std::u16string();
}

bool IsBefore(const TTextTable::TEntry& Entry, std::u16string_view Key) {
  return Entry.Key < Key;
}

struct TEscape {
  char16_t Letter;
  char16_t Character;
};
constexpr TEscape Escapes[] = {{u'n', u'\n'}, {u't', u'\t'}, {u's', u' '}, {u'\\', u'\\'}};

/// Reads the lines of a table.
class TReader {
public:
  explicit TReader(std::u16string_view Path) : FPath(Path) {}

  void Read(std::u16string_view Text) {
    for (size_t Begin = 0; Begin <= Text.size();) {
      const size_t End = std::min(Text.find(u'\n', Begin), Text.size());
      ++FLine;
      ReadLine(TrimView(Text.substr(Begin, End - Begin)));
      Begin = End + 1;
    }
    std::stable_sort(FEntries.begin(), FEntries.end(),
                     [](const auto& A, const auto& B) { return A.Key < B.Key; });
    const auto Twice = std::adjacent_find(FEntries.begin(), FEntries.end(),
                                          [](const auto& A, const auto& B) { return A.Key == B.Key; });
    if (Twice == FEntries.end()) return;
    FLine = (Twice + 1)->Line;
    Fail(u"The key occurs twice", Twice->Key);
  }

  std::vector<TTextTable::TEntry> Take() { return std::move(FEntries); }

private:
  [[noreturn]] void Fail(std::u16string_view Problem, std::u16string_view Text) const {
    std::u16string Message(FPath);
    Message.append(u":").append(IntToStr(FLine)).append(u": ").append(Problem);
    throw EConvertError(Message.append(u": ").append(Text), Text);
  }

  void ReadLine(std::u16string_view Line) {
    if (Line.empty() || Line.front() == u'#') return;
    const size_t Equals = Line.find(u'=');
    if (Equals == Line.npos || Equals == 0) Fail(u"Not of the form key = text", Line);
    const std::u16string_view Key = TrimView(Line.substr(0, Equals));
    std::u16string Text = Unescaped(TrimView(Line.substr(Equals + 1)));
    if (Text.empty()) Fail(u"The text is empty", Key);
    FEntries.push_back({std::u16string(Key), std::move(Text), FLine});
  }

  std::u16string Unescaped(std::u16string_view Text) const {
    std::u16string Result;
    for (size_t I = 0; I < Text.size(); ++I) {
      if (Text[I] != u'\\') {
        Result += Text[I];
        continue;
      }
      const char16_t Letter = ++I < Text.size() ? Text[I] : u'\0';
      const auto* const Known =
          std::find_if(std::begin(Escapes), std::end(Escapes), [=](auto E) { return E.Letter == Letter; });
      if (Known == std::end(Escapes)) Fail(u"Unknown escape (\\n, \\t, \\s, \\\\ are known)", Text);
      Result += Known->Character;
    }
    return Result;
  }

  std::u16string_view FPath;
  int FLine = 0;
  std::vector<TTextTable::TEntry> FEntries;
};

} // namespace

TTextSource SetTextSource(TTextSource NewSource) noexcept {
  return std::exchange(Source, NewSource);
}

std::u16string UserText(std::u16string_view Key, std::u16string_view English) {
  const TTextSource Ask = Source; // a copy: the call may replace the source
  std::u16string Text = Ask(Key, English);
  return Text.empty() ? std::u16string(English) : Text;
}

TTextTable TTextTable::FromFile(std::u16string_view Path) {
  return FromMemory(ReadWholeFile(Path), Path);
}

TTextTable TTextTable::FromMemory(std::string_view Content, std::u16string_view Path) {
  if (Content.starts_with("\xEF\xBB\xBF")) Content.remove_prefix(3);
  if (!IsUtf8(Content)) throw EConvertError(std::u16string(Path) + u":1: Not a text in UTF-8", Path);
  TReader Reader(Path);
  Reader.Read(FromUtf8(Content));
  TTextTable Table;
  Table.FEntries = Reader.Take();
  return Table;
}

const std::u16string* TTextTable::Find(std::u16string_view Key) const noexcept {
  const auto At = std::lower_bound(FEntries.begin(), FEntries.end(), Key, IsBefore);
  return At != FEntries.end() && At->Key == Key ? &At->Text : nullptr;
}

void TTextTable::Set(std::u16string_view Key, std::u16string_view Text) {
  const auto At = std::lower_bound(FEntries.begin(), FEntries.end(), Key, IsBefore);
  const bool Known = At != FEntries.end() && At->Key == Key;
  if (Known && Text.empty())
    FEntries.erase(At);
  else if (Known)
    At->Text = Text;
  else if (!Text.empty())
    FEntries.insert(At, {std::u16string(Key), std::u16string(Text), 0});
}

void LoadTextTable(std::u16string_view Path) {
  OwnTable() = Path.empty() ? TTextTable() : TTextTable::FromFile(Path);
  Source = Path.empty() ? TTextSource() : TTextSource::Of<&TableText>(nullptr);
}

void SetUserText(std::u16string_view Key, std::u16string_view Text) {
  OwnTable().Set(Key, Text);
  Source = TTextSource::Of<&TableText>(nullptr);
}

std::u16string EscapedText(std::u16string_view Text) {
  std::u16string Result;
  for (size_t I = 0; I < Text.size(); ++I) {
    const char16_t C = Text[I];
    const bool AtEnd = I == 0 || I + 1 == Text.size(); // only there a blank would be lost
    const auto* const Known =
        std::find_if(std::begin(Escapes), std::end(Escapes), [=](auto E) { return E.Character == C; });
    if (Known == std::end(Escapes) || (C == u' ' && !AtEnd))
      Result += C;
    else
      Result.append({u'\\', Known->Letter});
  }
  return Result;
}

std::u16string FillText(std::u16string_view Text, std::span<const std::u16string> Values) {
  std::u16string Result;
  for (size_t I = 0; I < Text.size(); ++I) {
    const bool Place = Text[I] == u'{' && I + 2 < Text.size() && IsDigit(Text[I + 1]) && Text[I + 2] == u'}';
    const size_t Number = Place ? static_cast<size_t>(Text[I + 1] - u'0') : Values.size();
    if (Number >= Values.size()) {
      Result += Text[I];
      continue;
    }
    Result += Values[Number];
    I += 2;
  }
  return Result;
}

} // namespace unitlib
