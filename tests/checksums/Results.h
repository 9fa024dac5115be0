/// What the library has answered, case by case: a checksum over it, or the lines themselves.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace checksums {

class TResults {
public:
  explicit TResults(bool Print) : FPrint(Print) {}

  void Add(int64_t Number) { FLine += std::to_string(Number) + " "; }
  /// Bit for bit; a NaN is a NaN.
  void Add(double Value);
  /// ASCII as it is, anything else as \uXXXX.
  void Add(std::u16string_view Text);
  void Add(std::string_view Name) { (FLine += Name) += " "; }
  void EndCase();

  uint64_t Sum() const { return FSum; }
  int64_t Count() const { return FCount; }

private:
  std::string FLine;
  uint64_t FSum = 14695981039346656037U;
  int64_t FCount = 0;
  bool FPrint;
};

} // namespace checksums
