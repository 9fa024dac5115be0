#include "fuzz/Check.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace unitlib::fuzz {
namespace {

template <class... T> std::string Formatted(const char* Format, T... Values) {
  char Text[64];
  std::snprintf(Text, sizeof Text, Format, Values...);
  return Text;
}

std::string Quoted(std::u16string_view Text, const char* Escape) {
  std::string Result = "<";
  for (const char16_t C : Text) {
    const unsigned Code = C;
    if (Code >= 0x20 && Code < 0x7F)
      Result += static_cast<char>(Code);
    else
      Result += Formatted(Escape, Code);
  }
  return Result + ">";
}

} // namespace

std::string Show(std::u16string_view Text) {
  return Quoted(Text, "\\u%04X");
}
std::string Show(std::string_view Bytes) {
  std::u16string Wide;
  for (const char C : Bytes) Wide.push_back(static_cast<unsigned char>(C));
  return Quoted(Wide, "\\x%02X");
}
std::string Show(double Value) {
  return Formatted("%.17g (%a)", Value, Value);
}
std::string Show(bool Value) {
  return Value ? "yes" : "no";
}
std::string Show(std::int64_t Value) {
  return std::to_string(Value);
}

void Fail(const std::string& Message) {
  std::fprintf(stderr, "\n== DIFFERENCE: %s\n", Message.c_str());
  std::fflush(stderr);
  std::abort();
}

void RequireNear(std::string_view What, std::u16string_view Given, double Library, double Wanted,
                 double Share) {
  if (Library == Wanted || std::fabs(Library - Wanted) <= Share * std::fabs(Wanted)) return;
  RequireSame(What, Given, Library, Wanted);
}

} // namespace unitlib::fuzz
