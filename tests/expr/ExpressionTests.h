/// What the tests of typed arithmetic share: the units of elevations, trees as short texts.
#pragma once

#include "tests/support/Settings.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitConst.h"

#include <string>
#include <string_view>
#include <vector>

namespace unitlib::test {

/// Units of the elevation measure, in the order of the factory settings.
enum TLengthUnit {
  DecimalFeet,
  FeetAndInches,
  DecimalInches,
  FractionalInches,
  Meters,
  Centimeters,
  Millimeters
};

inline const std::vector<TLengthUnit> Imperial = {DecimalFeet, FeetAndInches, DecimalInches,
                                                  FractionalInches};
inline const std::vector<TLengthUnit> Metric = {Meters, Centimeters, Millimeters};
inline const std::vector<TLengthUnit> Every = {DecimalFeet, FeetAndInches, DecimalInches, FractionalInches,
                                               Meters,      Centimeters,   Millimeters};

/// Factory settings, loaded once for all tests of a suite, whose elevation unit a test chooses; every test
/// starts with feet and fractional inches.
class TExpressionTest : public testing::Test {
protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();
  void SetUp() override { Use(FeetAndInches); }

  static TUnit& Use(TLengthUnit Unit);
};

/// A tree as text: (op left right), blocks in square brackets, -[...] for a negative block; behind an operand
/// ":v" for a variable, ":i" for an imperial length.
std::string Described(const TNode& Node);
/// The same for a tree that may not be there: "none".
std::string Described(const std::unique_ptr<TNode>& Root);

/// What became of a text: its tree, or "! " and the message.
std::string Parsed(std::u16string_view Text);
/// The same after Merge.
std::string Merged(std::u16string_view Text);
/// Store text after Merge, or "! " and the message.
std::string MergedText(std::u16string_view Text);

} // namespace unitlib::test
