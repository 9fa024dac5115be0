/// Perl-compatible regular expressions over UTF-16 subjects, matched as UTF-8.
#pragma once

#include <string_view>

namespace unitlib {

/// A compiled expression. Made once, then used by any number of threads at a time: matching keeps nothing.
/// \d and \s are ASCII digits and ASCII white space.
class TPerlRegEx {
public:
  /// errors      EConvertError the pattern is no valid expression
  explicit TPerlRegEx(std::u16string_view Pattern, bool IgnoreCase = false);
  ~TPerlRegEx();
  TPerlRegEx(const TPerlRegEx&) = delete;
  TPerlRegEx& operator=(const TPerlRegEx&) = delete;

  /// True when the expression matches anywhere in Subject.
  bool Match(std::u16string_view Subject) const;
  /// True when the first match in Subject is the whole of Subject.
  bool MatchesWhole(std::u16string_view Subject) const;

private:
  struct TSpan;
  TSpan FirstMatch(std::u16string_view Subject) const;

  void* FCode;
};

} // namespace unitlib
