#include "fuzz/slow/Regex.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <cstdlib>

namespace unitlib::fuzz::slow {
namespace {

PCRE2_SPTR Bytes(const std::string& Text) {
  return reinterpret_cast<PCRE2_SPTR>(Text.data());
}

} // namespace

TRegex::TRegex(const std::string& Pattern) {
  int Error = 0;
  PCRE2_SIZE Offset = 0;
  FCode = pcre2_compile(Bytes(Pattern), Pattern.size(), PCRE2_UTF, &Error, &Offset, nullptr);
  if (!FCode) std::abort(); // the patterns are ours
  FData = pcre2_match_data_create_from_pattern(static_cast<const pcre2_code*>(FCode), nullptr);
}

TRegex::~TRegex() {
  pcre2_match_data_free(static_cast<pcre2_match_data*>(FData));
  pcre2_code_free(static_cast<pcre2_code*>(FCode));
}

/// Count of the groups that took part, the whole match included; below 0 when nothing is found.
int TRegex::Match(const std::string& Subject, std::size_t Start) const {
  const int Count = pcre2_match(static_cast<const pcre2_code*>(FCode), Bytes(Subject), Subject.size(), Start,
                                PCRE2_NO_JIT, static_cast<pcre2_match_data*>(FData), nullptr);
  if (Count < 0 && Count != PCRE2_ERROR_NOMATCH) std::abort(); // a limit: the targets keep their texts short
  return Count;
}

TRegex::TMatch TRegex::Search(const std::string& Subject, std::size_t Start) const {
  const int Count = Match(Subject, Start);
  if (Count < 0) return {};
  const PCRE2_SIZE* Spans = pcre2_get_ovector_pointer(static_cast<pcre2_match_data*>(FData));
  TMatch Found{true, Spans[0], Spans[1], {}};
  for (int I = 1; I < Count; ++I) {
    const PCRE2_SIZE Begin = Spans[2 * I], End = Spans[2 * I + 1];
    Found.Groups.push_back(Begin == PCRE2_UNSET ? std::string() : Subject.substr(Begin, End - Begin));
  }
  return Found;
}

bool TRegex::IsFound(const std::string& Subject) const {
  return Match(Subject, 0) >= 0;
}

bool TRegex::FirstMatchIsAll(const std::string& Subject) const {
  if (Match(Subject, 0) < 0) return false;
  const PCRE2_SIZE* Spans = pcre2_get_ovector_pointer(static_cast<pcre2_match_data*>(FData));
  return Spans[0] == 0 && Spans[1] == Subject.size();
}

std::string TRegex::Replace(const std::string& Subject, const std::string& By) const {
  std::string Result;
  std::size_t Pos = 0;
  for (TMatch Found = Search(Subject); Found.Found; Found = Search(Subject, Pos)) {
    Result += Subject.substr(Pos, Found.Begin - Pos) + By;
    Pos = Found.End;
  }
  return Result + Subject.substr(Pos);
}

std::string Utf8(std::u16string_view Text) {
  std::string Result;
  for (std::size_t I = 0; I < Text.size(); ++I) {
    unsigned long C = Text[I];
    const bool IsHigh = C >= 0xD800 && C < 0xDC00, IsLow = C >= 0xDC00 && C < 0xE000;
    const bool HasPartner = I + 1 < Text.size() && Text[I + 1] >= 0xDC00 && Text[I + 1] < 0xE000;
    if (IsHigh && HasPartner)
      C = 0x10000 + (C - 0xD800) * 0x400 + (Text[++I] - 0xDC00UL);
    else if (IsHigh || IsLow)
      C = 0xFFFD;
    const auto Tail = [&](int Shift) { Result += static_cast<char>(0x80 | ((C >> Shift) & 0x3F)); };
    if (C < 0x80) {
      Result += static_cast<char>(C);
    } else if (C < 0x800) {
      Result += static_cast<char>(0xC0 | C >> 6);
      Tail(0);
    } else if (C < 0x10000) {
      Result += static_cast<char>(0xE0 | C >> 12);
      Tail(6);
      Tail(0);
    } else {
      Result += static_cast<char>(0xF0 | C >> 18);
      Tail(12);
      Tail(6);
      Tail(0);
    }
  }
  return Result;
}

} // namespace unitlib::fuzz::slow
