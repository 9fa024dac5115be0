#include "unitlib/convert/ZELUnitDigitGroupParser.h"

#include <algorithm>

namespace unitlib {

void AppendGroupedDigits(std::u16string& Out, std::u16string_view NumberText, int Size) {
  const size_t Group = static_cast<size_t>(std::max(Size, 1));
  const size_t Length = std::min(NumberText.find(u'.'), NumberText.size());
  size_t Pos = Length % Group;
  Out.append(NumberText.substr(0, Pos));
  for (; Pos < Length; Pos += Group) {
    if (Pos > 0) Out.push_back(u',');
    Out.append(NumberText.substr(Pos, Group));
  }
  Out.append(NumberText.substr(Length));
}

std::u16string TDigitGroup3CommaParser::ToStr() const {
  std::u16string Result;
  AppendGroupedDigits(Result, FOriginStr, GetNum());
  return Result;
}

} // namespace unitlib
