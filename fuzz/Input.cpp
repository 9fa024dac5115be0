#include "fuzz/Input.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace unitlib::fuzz {
namespace {

constexpr char Separator = '\xFF';

/// Bytes of the well-formed UTF-8 character that Bytes starts with; 0 when there is none.
std::size_t CharacterLength(std::string_view Bytes) {
  const auto At = [&](std::size_t I) { return static_cast<unsigned char>(Bytes[I]); };
  const unsigned Lead = At(0);
  const std::size_t Length = Lead < 0x80 ? 1 : Lead < 0xC2 ? 0 : Lead < 0xE0 ? 2 : Lead < 0xF0 ? 3 : 4;
  if (Length == 0 || Lead > 0xF4 || Bytes.size() < Length) return 0;
  for (std::size_t I = 1; I < Length; ++I)
    if ((At(I) & 0xC0) != 0x80) return 0;
  const bool Overlong = (Lead == 0xE0 && At(1) < 0xA0) || (Lead == 0xF0 && At(1) < 0x90);
  const bool Surrogate = Lead == 0xED && At(1) > 0x9F;
  const bool TooLarge = Lead == 0xF4 && At(1) > 0x8F;
  return Overlong || Surrogate || TooLarge ? 0 : Length;
}

} // namespace

unsigned TInput::Byte() noexcept {
  if (FBytes.empty()) return 0;
  const auto Result = static_cast<unsigned char>(FBytes.front());
  FBytes.remove_prefix(1);
  return Result;
}

unsigned TInput::Below(unsigned Bound) noexcept {
  const unsigned Value = Byte();
  if (Value >= 'a' && Value <= 'z') return (Value - 'a') % Bound;
  if (Value >= 'A' && Value <= 'Z') return (Value - 'A' + 26) % Bound;
  if (Value >= '0' && Value <= '9') return (Value - '0') % Bound;
  return Value % Bound;
}

std::int32_t TInput::Integer() noexcept {
  const unsigned Kind = Byte();
  if (Kind < 0xF0) return static_cast<std::int32_t>(Kind % 16) - 2;
  std::uint32_t Value = 0;
  for (int I = 0; I < 4; ++I) Value = Value << 8 | Byte();
  return static_cast<std::int32_t>(Value);
}

double TInput::Double() noexcept {
  std::uint64_t Bits = 0;
  for (int I = 0; I < 8; ++I) Bits = Bits << 8 | Byte();
  double Value = 0;
  std::memcpy(&Value, &Bits, sizeof Value);
  return Value;
}

double TInput::Number() {
  return std::strtod(std::string(Bytes()).c_str(), nullptr);
}

std::string_view TInput::Bytes() noexcept {
  const std::size_t End = std::min(FBytes.find(Separator), FBytes.size());
  const std::string_view Result = FBytes.substr(0, End);
  FBytes.remove_prefix(std::min(End + 1, FBytes.size()));
  return Result;
}

std::string_view TInput::Rest() noexcept {
  const std::string_view Result = FBytes;
  FBytes = {};
  return Result;
}

std::u16string TInput::TextOf(std::string_view Bytes) {
  std::u16string Result;
  while (!Bytes.empty()) {
    const std::size_t Length = CharacterLength(Bytes);
    const auto At = [&](std::size_t I) {
      return static_cast<char32_t>(static_cast<unsigned char>(Bytes[I]));
    };
    if (Length == 0) {
      Result.push_back(static_cast<char16_t>((At(0) & 1 ? 0xDC00 : 0xD800) + At(0)));
    } else {
      char32_t C = Length == 1 ? At(0) : At(0) & (0x7FU >> Length);
      for (std::size_t I = 1; I < Length; ++I) C = C << 6 | (At(I) & 0x3F);
      if (C < 0x10000) {
        Result.push_back(static_cast<char16_t>(C));
      } else {
        Result.push_back(static_cast<char16_t>(0xD800 + ((C - 0x10000) >> 10)));
        Result.push_back(static_cast<char16_t>(0xDC00 + ((C - 0x10000) & 0x3FF)));
      }
    }
    Bytes.remove_prefix(std::max<std::size_t>(Length, 1));
  }
  return Result;
}

} // namespace unitlib::fuzz
