#include "unitlib/rtl/XmlText.h"

#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"

#include <charconv>

namespace unitlib {
namespace {

/// Characters that an attribute value holds as they are.
constexpr bool IsPlain(char16_t C) noexcept {
  return C >= u' ' && C < 0x7F && C != u'&' && C != u'<' && C != u'"';
}

void AppendEscaped(std::string& Out, std::u16string_view Value) {
  for (size_t I = 0; I < Value.size(); ++I) {
    const char16_t C = Value[I];
    if (C == u'&') {
      Out.append("&amp;");
    } else if (C == u'<') {
      Out.append("&lt;");
    } else if (C == u'"') {
      Out.append("&quot;");
    } else if (C < u' ') {
      Out.append({'&', '#', static_cast<char>('0' + C / 10), static_cast<char>('0' + C % 10), ';'});
    } else {
      const bool Pair = C >= 0xD800 && C < 0xDC00; // the text is well-formed
      Out.append(ToUtf8(Value.substr(I, Pair ? 2 : 1)));
      I += Pair;
    }
  }
}

} // namespace

bool IsXmlText(std::u16string_view Text) noexcept {
  for (size_t I = 0; I < Text.size(); ++I) {
    const char16_t C = Text[I];
    if (C < u' ' && C != u'\t' && C != u'\n' && C != u'\r') return false;
    if (C >= 0xFFFE) return false;
    if (C < 0xD800 || C > 0xDFFF) continue;
    const bool Pair = C < 0xDC00 && I + 1 < Text.size() && Text[I + 1] >= 0xDC00 && Text[I + 1] <= 0xDFFF;
    if (!Pair) return false;
    ++I;
  }
  return true;
}

void RaiseNoXmlText(std::u16string_view Element, std::u16string_view Attribute, std::u16string_view Text) {
  throw EXmlError(u"A character that XML cannot carry",
                  {{}, 0, std::u16string(Element), std::u16string(Attribute)}, Text);
}

TXmlTextWriter::TXmlTextWriter() {
  constexpr size_t Usual = 500'000; // of a settings file: room taken once
  FText.reserve(Usual);
  FText = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
}

void TXmlTextWriter::Begin(std::string_view Element) {
  if (FInTag) FText.append(">\n");
  FText.append(static_cast<size_t>(FDepth) * 2, ' ').append("<").append(Element);
  FOpen[FDepth++] = Element;
  FInTag = true;
}

void TXmlTextWriter::StartAttribute(std::string_view Name) {
  FText.append(" ").append(Name).append("=\"");
}

void TXmlTextWriter::Text(std::string_view Attribute, std::u16string_view Value) {
  StartAttribute(Attribute);
  char Plain[64];
  size_t Size = 0;
  while (Size < Value.size() && Size < sizeof Plain && IsPlain(Value[Size])) {
    Plain[Size] = static_cast<char>(Value[Size]);
    ++Size;
  }
  FText.append(Plain, Size);
  if (Size < Value.size()) {
    if (!IsXmlText(Value)) RaiseNoXmlText(FromUtf8(FOpen[FDepth - 1]), FromUtf8(Attribute), Value);
    AppendEscaped(FText, Value.substr(Size));
  }
  FText.push_back('"');
}

void TXmlTextWriter::Integer(std::string_view Attribute, int Value) {
  StartAttribute(Attribute);
  char Digits[16];
  FText.append(Digits, std::to_chars(Digits, Digits + sizeof Digits, Value).ptr);
  FText.push_back('"');
}

void TXmlTextWriter::Boolean(std::string_view Attribute, bool Value) {
  StartAttribute(Attribute);
  FText.append(Value ? "true\"" : "false\"");
}

void TXmlTextWriter::End() {
  const std::string_view Element = FOpen[--FDepth];
  if (FInTag)
    FText.append(" />\n");
  else
    FText.append(static_cast<size_t>(FDepth) * 2, ' ').append("</").append(Element).append(">\n");
  FInTag = false;
}

} // namespace unitlib
