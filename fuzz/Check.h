/// What a target says when the library differs from its oracle: the process ends, the input is kept.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace unitlib::fuzz {

/// Values as a reader can tell them apart: every digit of a double, every odd character of a text.
std::string Show(std::u16string_view Text);
std::string Show(std::string_view Bytes);
std::string Show(double Value);
std::string Show(bool Value);
std::string Show(std::int64_t Value);
inline std::string Show(const std::u16string& Text) {
  return Show(std::u16string_view(Text));
}
inline std::string Show(const std::string& Bytes) {
  return Show(std::string_view(Bytes));
}
inline std::string Show(const char* Bytes) {
  return Show(std::string_view(Bytes));
}
inline std::string Show(int Value) {
  return Show(std::int64_t{Value});
}

/// Prints the message and ends the process.
[[noreturn]] void Fail(const std::string& Message);

/// Given: what the library was asked about.
template <class G> void Require(bool Ok, std::string_view What, const G& Given) {
  if (!Ok) Fail(std::string(What) + " of " + Show(Given));
}

template <class G, class T>
void RequireSame(std::string_view What, const G& Given, const T& Library, const T& Wanted) {
  if (Library == Wanted) return;
  Fail(std::string(What) + " of " + Show(Given) + ": the library says " + Show(Library) + ", the oracle " +
       Show(Wanted));
}

/// For doubles whose last digits the order of operations may change. Share: of the wanted value.
void RequireNear(std::string_view What, std::u16string_view Given, double Library, double Wanted,
                 double Share);

} // namespace unitlib::fuzz
