/// Readable failures: how the test framework prints UTF-16.
#pragma once

#include "unitlib/rtl/Text.h"

#include <ostream>
#include <string>

namespace testing::internal {

inline void PrintU16(std::u16string_view Text, std::ostream* Out) {
  *Out << '"' << unitlib::ToUtf8(Text) << '"';
}

template <class T> class UniversalPrinter;
template <> class UniversalPrinter<std::u16string> {
public:
  static void Print(const std::u16string& Text, std::ostream* Out) { PrintU16(Text, Out); }
};
template <> class UniversalPrinter<std::u16string_view> {
public:
  static void Print(std::u16string_view Text, std::ostream* Out) { PrintU16(Text, Out); }
};

} // namespace testing::internal
