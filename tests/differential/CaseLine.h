/// One generated test case: fields between tabs, every unusual character of a text written as \uXXXX.
#pragma once

#include "unitlib/rtl/Errors.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib::differential {

/// The fields of a line behind its family.
using TFields = std::vector<std::string_view>;

std::vector<std::string_view> Split(std::string_view Text, char Separator);
/// The parts of a list whose every entry has Separator before it: "" is an empty list, ";" one empty entry.
std::vector<std::string_view> SplitList(std::string_view Text, char Separator);
std::u16string Unescape(std::string_view Field);
std::string Escape(std::u16string_view Text);

/// The double whose bits are written as 16 hexadecimal digits, and back.
double FromBits(std::string_view Digits);
std::string ToBits(double Value);

/// True when the doubles are equal (zeros of either sign are) or at most Ulps representable doubles apart.
bool Near(double A, double B, int Ulps);
/// True when the texts are equal, or both are numbers whose 15 digits differ by at most one in the last.
bool SameNumberText(std::u16string_view A, std::u16string_view B);

/// "=" and the result of Call, or "!" and the kind of the library's error.
std::string Attempt(const std::function<std::string()>& Call);
/// True when the outcome of Attempt is the wanted one; "!any" is met by every error of the library.
bool SameOutcome(std::string_view Wanted, std::string_view Got);

/// Collects what differs in one case.
class TDifference {
public:
  void Expect(std::string_view What, std::string_view Wanted, std::string_view Got);
  void ExpectFlag(std::string_view What, std::string_view Wanted, bool Got) {
    Expect(What, Wanted, Got ? "1" : "0");
  }
  void ExpectText(std::string_view What, std::string_view Wanted, std::u16string_view Got) {
    Expect(What, Wanted, Escape(Got));
  }
  void Add(std::string_view What, std::string_view Wanted, std::string_view Got);
  /// Empty when nothing differs.
  const std::string& Report() const noexcept { return FReport; }

private:
  std::string FReport;
};

/// Compares the library with the wanted results of one case.
using TChecker = std::string (*)(const TFields& Fields);

// One checker per family of cases.
std::string CheckNumberText(const TFields& Fields);
std::string CheckNumberValue(const TFields& Fields);
std::string CheckGroup(const TFields& Fields);
std::string CheckImperial(const TFields& Fields);
std::string CheckReplace(const TFields& Fields);
std::string CheckExprToStore(const TFields& Fields);
std::string CheckFormat(const TFields& Fields);
std::string CheckNoMeasure(const TFields& Fields);
std::string CheckNoParser(const TFields& Fields);
std::string CheckParse(const TFields& Fields);
std::string CheckSymbol(const TFields& Fields);
std::string CheckExpression(const TFields& Fields);
std::string CheckElevation(const TFields& Fields);

/// The elements of an XML text without text content, one "depth, name, attributes" line each in document
/// order. Enough for a settings file: ">" does not occur in its attributes.
std::vector<std::string> ElementLines(const std::string& Xml);
/// Writes the factory-default settings to a file (ASCII path) and gives its elements.
std::vector<std::string> GeneratedDefaultLines(const std::string& Path);

} // namespace unitlib::differential
