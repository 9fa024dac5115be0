/// Regular expressions for the oracles: PCRE2 as it is, interpreted, a pattern compiled once. Subjects are
/// matched as UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib::fuzz::slow {

class TRegex {
public:
  explicit TRegex(const std::string& Pattern);
  ~TRegex();
  TRegex(const TRegex&) = delete;
  TRegex& operator=(const TRegex&) = delete;

  struct TMatch {
    bool Found = false;
    std::size_t Begin = 0, End = 0;  // of the whole match
    std::vector<std::string> Groups; // texts of the groups, from group 1
  };
  /// The first match at Start or behind it.
  TMatch Search(const std::string& Subject, std::size_t Start = 0) const;
  bool IsFound(const std::string& Subject) const;
  /// True when the first match found is all of the subject.
  bool FirstMatchIsAll(const std::string& Subject) const;
  /// Subject with every match replaced.
  std::string Replace(const std::string& Subject, const std::string& By) const;

private:
  int Match(const std::string& Subject, std::size_t Start) const;

  void* FCode;
  void* FData; // of the last match: one thread only
};

/// UTF-16 as UTF-8; half a surrogate pair becomes U+FFFD.
std::string Utf8(std::u16string_view Text);

} // namespace unitlib::fuzz::slow
