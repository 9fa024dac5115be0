/// The bytes of one run, taken apart into choices, numbers and texts. Any bytes make an input.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace unitlib::fuzz {

class TInput {
public:
  TInput(const std::uint8_t* Data, std::size_t Size) noexcept
      : FBytes(reinterpret_cast<const char*>(Data), Size) {}

  bool AtEnd() const noexcept { return FBytes.empty(); }
  /// The next byte; 0 when all are used up.
  unsigned Byte() noexcept;
  /// 0 to Bound - 1. A letter of the alphabet or a digit counts from its first one, so that kept inputs can
  /// be read and typed.
  unsigned Below(unsigned Bound) noexcept;
  bool Flag() noexcept { return Below(2) != 0; }
  /// A whole number: mostly small, now and then any 32-bit one.
  std::int32_t Integer() noexcept;
  /// Any double at all: eight bytes.
  double Double() noexcept;
  /// A number as text up to the next separator, read as strtod does; 0 for none.
  double Number();
  /// The bytes up to the next separator (0xFF, which is in no UTF-8), or all that are left.
  std::string_view Bytes() noexcept;
  std::string_view Rest() noexcept;
  /// The same as text, see TextOf.
  std::u16string Text() { return TextOf(Bytes()); }
  std::u16string RestText() { return TextOf(Rest()); }

  /// UTF-8 as UTF-16. A byte that is part of none becomes half a surrogate pair, so that these occur, too.
  static std::u16string TextOf(std::string_view Bytes);

private:
  std::string_view FBytes;
};

} // namespace unitlib::fuzz
