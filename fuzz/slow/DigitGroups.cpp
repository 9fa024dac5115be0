#include "fuzz/slow/DigitGroups.h"

namespace unitlib::fuzz::slow {

std::u16string GroupDigits(std::u16string_view Text, int Size) {
  if (Size == 0) return std::u16string(Text);
  const std::size_t Found = Text.find(u'.');
  const std::size_t P = Found == Text.npos ? 0 : Found + 1; // 1-based; 0: no point
  const std::size_t L = P != 0 ? P - 1 : Text.size();
  const std::size_t N = static_cast<std::size_t>(Size);
  const std::size_t R = L % N;
  std::u16string Result;
  for (std::size_t I = 1; I <= L; ++I) {
    Result += Text[I - 1];
    if (I % N == R && I != L) Result += u',';
  }
  if (P != 0) Result += Text.substr(P - 1);
  return Result;
}

} // namespace unitlib::fuzz::slow
