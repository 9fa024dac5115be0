#include "Results.h"

#include <cstring>

namespace checksums {

void TResults::Add(double Value) {
  uint64_t Bits;
  std::memcpy(&Bits, &Value, sizeof Bits);
  if ((Bits & 0x7FFFFFFFFFFFFFFF) > 0x7FF0000000000000) Bits = 0x7FF8000000000000;
  for (int Shift = 60; Shift >= 0; Shift -= 4) FLine += "0123456789abcdef"[Bits >> Shift & 15];
  FLine += " ";
}

void TResults::Add(std::u16string_view Text) {
  FLine += '[';
  for (const char16_t C : Text) {
    if (C >= 0x20 && C < 0x7F && C != u'\\') {
      FLine += static_cast<char>(C);
      continue;
    }
    FLine += "\\u";
    for (int Shift = 12; Shift >= 0; Shift -= 4) FLine += "0123456789abcdef"[C >> Shift & 15];
  }
  FLine += "] ";
}

void TResults::EndCase() {
  for (const char C : FLine) { // FNV-1a
    FSum ^= static_cast<unsigned char>(C);
    FSum *= 1099511628211U;
  }
  if (FPrint) std::puts(FLine.c_str());
  FLine.clear();
  ++FCount;
}

} // namespace checksums
