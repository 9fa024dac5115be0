/// Arguments at the limits of their types.
#pragma once

#include <limits>
#include <string>
#include <vector>

namespace unitlib::test {

inline const std::vector<int>& Integers() {
  static const std::vector<int> Pool = {std::numeric_limits<int>::min(), -2, -1, 0, 1, 3, 6, 99,
                                        std::numeric_limits<int>::max()};
  return Pool;
}

inline const std::vector<double>& Numbers() {
  using TLimits = std::numeric_limits<double>;
  static const std::vector<double> Pool = {0.0,
                                           -0.0,
                                           1676.4,
                                           -25.4,
                                           1e-13,
                                           1e15,
                                           9.3e18,
                                           1e300,
                                           -1e300,
                                           TLimits::denorm_min(),
                                           TLimits::max(),
                                           TLimits::lowest(),
                                           TLimits::infinity(),
                                           -TLimits::infinity(),
                                           TLimits::quiet_NaN()};
  return Pool;
}

inline const std::vector<std::u16string>& Texts() {
  static const std::vector<std::u16string> Pool = {u"",
                                                   u" ",
                                                   u"1",
                                                   u"-1.5",
                                                   u"5'6 1/2\"",
                                                   u"3/0",
                                                   u"1e400",
                                                   u"nan",
                                                   u"1,234.5 m",
                                                   u"abc",
                                                   u"L1+5'6\"",
                                                   u"(1+2)*3",
                                                   u"1/0",
                                                   u"((((",
                                                   u"A+B-(C*0)",
                                                   u"-(A)",
                                                   u"'",
                                                   u"\"",
                                                   u"TMetreParser",
                                                   std::u16string(1, static_cast<char16_t>(0xDC00)),
                                                   std::u16string(u"1\0"
                                                                  u"2",
                                                                  3),
                                                   std::u16string(3000, u'9'),
                                                   std::u16string(3000, u'('),
                                                   std::u16string(3000, u'-')};
  return Pool;
}

} // namespace unitlib::test
