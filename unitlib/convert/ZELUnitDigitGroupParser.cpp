#include "unitlib/convert/ZELUnitDigitGroupParser.h"

#include <algorithm>

namespace unitlib {

std::u16string TDigitGroup3CommaParser::ToStr() const {
  const size_t Group = static_cast<size_t>(std::max(GetNum(), 1));
  const size_t Length = std::min(FOriginStr.find(u'.'), FOriginStr.size());
  std::u16string Result;
  Result.reserve(FOriginStr.size() + Length / Group);
  size_t Pos = Length % Group;
  Result.append(FOriginStr, 0, Pos);
  for (; Pos < Length; Pos += Group) {
    if (Pos > 0) Result.push_back(u',');
    Result.append(FOriginStr, Pos, Group);
  }
  return Result.append(FOriginStr, Length);
}

} // namespace unitlib
