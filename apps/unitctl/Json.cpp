#include "apps/unitctl/Json.h"

#include "unitlib/rtl/Text.h"

#include <utility>

namespace unitlib::app {
namespace {

void AppendEscaped(std::string& Out, std::string_view Value) {
  constexpr char Digits[] = "0123456789abcdef";
  for (const char C : Value) {
    const auto Byte = static_cast<unsigned char>(C);
    if (C == '"' || C == '\\') {
      Out += '\\';
      Out += C;
    } else if (Byte < 0x20) {
      Out += "\\u00";
      Out += Digits[Byte >> 4];
      Out += Digits[Byte & 15];
    } else {
      Out += C;
    }
  }
}

} // namespace

void TJson::Indent() {
  FText += '\n';
  FText.append(static_cast<std::size_t>(FDepth) * 2, ' ');
}

/// What stands before a value or a key.
void TJson::Start() {
  if (std::exchange(FAfterKey, false)) return;
  if (!FFirst) FText += ',';
  FFirst = false;
  if (FDepth > 0) Indent();
}

void TJson::Open(char Bracket) {
  Start();
  FText += Bracket;
  ++FDepth;
  FFirst = true;
}

void TJson::Close(char Bracket) {
  --FDepth;
  if (!FFirst) Indent();
  FText += Bracket;
  FFirst = false;
}

void TJson::Key(std::string_view Name) {
  Text(Name);
  FText += ": ";
  FAfterKey = true;
}

void TJson::Text(std::string_view Value) {
  Start();
  FText += '"';
  AppendEscaped(FText, Value);
  FText += '"';
}

void TJson::Text(std::u16string_view Value) {
  Text(ToUtf8(Value));
}

void TJson::Number(int Value) {
  Start();
  FText += std::to_string(Value);
}

void TJson::Boolean(bool Value) {
  Start();
  FText += Value ? "true" : "false";
}

void TJson::Null() {
  Start();
  FText += "null";
}

std::string TJson::Take() {
  FText += '\n';
  return std::move(FText);
}

} // namespace unitlib::app
