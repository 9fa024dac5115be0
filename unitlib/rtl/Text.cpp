#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace unitlib {
namespace {

constexpr char32_t Replacement = 0xFFFD;
constexpr bool IsHighSurrogate(char32_t C) {
  return C >= 0xD800 && C <= 0xDBFF;
}
constexpr bool IsLowSurrogate(char32_t C) {
  return C >= 0xDC00 && C <= 0xDFFF;
}

void AppendUtf8(std::string& Out, char32_t C) {
  auto Byte = [&Out](char32_t B) { Out.push_back(static_cast<char>(B)); };
  if (C < 0x80) return Byte(C);
  if (C < 0x800) {
    Byte(0xC0 | (C >> 6));
  } else {
    if (C < 0x10000) {
      Byte(0xE0 | (C >> 12));
    } else {
      Byte(0xF0 | (C >> 18));
      Byte(0x80 | ((C >> 12) & 0x3F));
    }
    Byte(0x80 | ((C >> 6) & 0x3F));
  }
  Byte(0x80 | (C & 0x3F));
}

void AppendUtf16(std::u16string& Out, char32_t C) {
  if (C < 0x10000) {
    Out.push_back(static_cast<char16_t>(C));
    return;
  }
  Out.push_back(static_cast<char16_t>(0xD800 + ((C - 0x10000) >> 10)));
  Out.push_back(static_cast<char16_t>(0xDC00 + ((C - 0x10000) & 0x3FF)));
}

/// One character of Text at Pos, which moves behind it; false (and one byte further) when malformed.
bool DecodeUtf8(std::string_view Text, size_t& Pos, char32_t& C) noexcept {
  auto At = [&](size_t I) { return static_cast<unsigned char>(Text[I]); };
  const unsigned Lead = At(Pos++);
  C = Lead;
  if (Lead < 0x80) return true;
  const size_t More = Lead >= 0xF0 ? 3 : Lead >= 0xE0 ? 2 : 1;
  if (Lead < 0xC2 || Lead > 0xF4 || Text.size() - Pos < More) return false;
  C = Lead & (0x3FU >> More);
  for (size_t I = 0; I < More; ++I) {
    if ((At(Pos + I) & 0xC0) != 0x80) return false;
    C = (C << 6) | (At(Pos + I) & 0x3F);
  }
  constexpr char32_t Least[] = {0, 0x80, 0x800, 0x10000};
  if (C < Least[More] || C > 0x10FFFF || (C >= 0xD800 && C <= 0xDFFF)) return false;
  Pos += More;
  return true;
}

/// Length of the ASCII that Text starts with, eight bytes at a time: nearly all texts are nothing else.
size_t AsciiPrefix(std::string_view Text) noexcept {
  size_t Pos = 0;
  for (; Text.size() - Pos >= 8; Pos += 8) {
    std::uint64_t Bytes;
    std::memcpy(&Bytes, Text.data() + Pos, sizeof Bytes);
    if ((Bytes & 0x8080'8080'8080'8080U) != 0) break;
  }
  while (Pos < Text.size() && static_cast<unsigned char>(Text[Pos]) < 0x80) ++Pos;
  return Pos;
}

size_t AsciiPrefix(std::u16string_view Text) noexcept {
  size_t Pos = 0;
  while (Pos < Text.size() && Text[Pos] < 0x80) ++Pos;
  return Pos;
}

} // namespace

std::u16string_view TrimView(std::u16string_view Text) noexcept {
  while (!Text.empty() && Text.front() <= u' ') Text.remove_prefix(1);
  while (!Text.empty() && Text.back() <= u' ') Text.remove_suffix(1);
  return Text;
}

std::u16string Trim(std::u16string_view Text) {
  return std::u16string(TrimView(Text));
}

bool SameFolded(std::u16string_view A, std::u16string_view B) noexcept {
  return std::equal(A.begin(), A.end(), B.begin(),
                    [](char16_t X, char16_t Y) { return UpperAscii(X) == UpperAscii(Y); });
}

int CompareText(std::u16string_view A, std::u16string_view B) noexcept {
  const size_t Common = std::min(A.size(), B.size());
  for (size_t I = 0; I < Common; ++I)
    if (const int Diff = UpperAscii(A[I]) - UpperAscii(B[I])) return Diff;
  return A.size() < B.size() ? -1 : A.size() > B.size() ? 1 : 0;
}

std::u16string LeftStr(std::u16string_view Text, int Count) {
  return std::u16string(Text.substr(0, static_cast<size_t>(std::max(Count, 0))));
}

std::u16string RightStr(std::u16string_view Text, int Count) {
  const size_t Keep = std::min(Text.size(), static_cast<size_t>(std::max(Count, 0)));
  return std::u16string(Text.substr(Text.size() - Keep));
}

std::u16string ReplaceStr(std::u16string_view Text, std::u16string_view Old, std::u16string_view New) {
  std::u16string Result;
  Result.reserve(Text.size());
  for (size_t Pos = 0;;) {
    const size_t Hit = Text.find(Old, Pos);
    Result.append(Text.substr(Pos, Hit - Pos));
    if (Hit == std::u16string_view::npos) return Result;
    Result.append(New);
    Pos = Hit + Old.size();
  }
}

std::string ToUtf8(std::u16string_view Text) {
  const size_t Ascii = AsciiPrefix(Text);
  std::string Out(Ascii, '\0');
  std::transform(Text.begin(), Text.begin() + static_cast<std::ptrdiff_t>(Ascii), Out.begin(),
                 [](char16_t C) { return static_cast<char>(C); });
  for (size_t I = Ascii; I < Text.size(); ++I) {
    char32_t C = Text[I];
    if (IsHighSurrogate(C) && I + 1 < Text.size() && IsLowSurrogate(Text[I + 1]))
      C = 0x10000 + ((C - 0xD800) << 10) + (Text[++I] - 0xDC00U);
    else if (IsHighSurrogate(C) || IsLowSurrogate(C))
      C = Replacement;
    AppendUtf8(Out, C);
  }
  return Out;
}

std::u16string FromUtf8(std::string_view Text) {
  const size_t Ascii = AsciiPrefix(Text);
  std::u16string Out(Ascii, u'\0');
  std::transform(Text.begin(), Text.begin() + static_cast<std::ptrdiff_t>(Ascii), Out.begin(),
                 [](char C) { return static_cast<char16_t>(C); });
  for (size_t Pos = Ascii; Pos < Text.size();) {
    char32_t C = 0;
    AppendUtf16(Out, DecodeUtf8(Text, Pos, C) ? C : Replacement);
  }
  return Out;
}

bool IsUtf8(std::string_view Text) noexcept {
  char32_t C = 0;
  for (size_t Pos = 0;;) {
    Pos += AsciiPrefix(Text.substr(Pos));
    if (Pos == Text.size()) return true;
    if (!DecodeUtf8(Text, Pos, C)) return false;
  }
}

} // namespace unitlib
