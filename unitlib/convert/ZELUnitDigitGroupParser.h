/// Digit grouping of a number text: "1,234,567.89" or "123,4567.89".
#pragma once

#include <string>
#include <string_view>

namespace unitlib {

/// Base: the number text as it stands, ungrouped.
class TDigitGroupParser {
public:
  explicit TDigitGroupParser(std::u16string_view AText) : FOriginStr(AText) {}
  virtual ~TDigitGroupParser() = default;
  TDigitGroupParser(const TDigitGroupParser&) = delete;
  TDigitGroupParser& operator=(const TDigitGroupParser&) = delete;

  /// The text to show.
  virtual std::u16string ToStr() const { return FOriginStr; }

protected:
  std::u16string FOriginStr;
};

/// Groups of three: "123,456,789.00". Every character before the first "." counts as a digit, a sign too, so
/// callers hand over unsigned digit texts.
class TDigitGroup3CommaParser : public TDigitGroupParser {
public:
  using TDigitGroupParser::TDigitGroupParser;
  std::u16string ToStr() const override;
  /// Digits per group.
  virtual int GetNum() const { return 3; }
};

/// Groups of four: "1,2345,6789.00".
class TDigitGroup4CommaParser : public TDigitGroup3CommaParser {
public:
  using TDigitGroup3CommaParser::TDigitGroup3CommaParser;
  int GetNum() const override { return 4; }
};

/// Appends a number text in groups of Size digits (at least 1), as ToStr of the classes above gives it.
void AppendGroupedDigits(std::u16string& Out, std::u16string_view NumberText, int Size);

} // namespace unitlib
