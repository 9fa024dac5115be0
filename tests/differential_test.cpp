/// Compares the library with the slow second implementation on generated cases.
///   UNITLIB_CASES    a file of cases made by tests/oracle/generate.py; without it the file made with the
///   build
#include "differential/CaseLine.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>

namespace unitlib::differential {
namespace {

struct TFamily {
  const char* Name;
  TChecker Check;
};

constexpr TFamily Families[] = {
    {"numtext", CheckNumberText}, {"numval", CheckNumberValue},  {"group", CheckGroup},
    {"imperial", CheckImperial},  {"replace", CheckReplace},     {"exprstore", CheckExprToStore},
    {"format", CheckFormat},      {"nomeasure", CheckNoMeasure}, {"noparser", CheckNoParser},
    {"parse", CheckParse},        {"symbol", CheckSymbol},       {"expr", CheckExpression},
    {"elev", CheckElevation},
};

/// Differences beyond these are only counted.
constexpr int ReportedDifferences = 20;

const char* CaseFile() {
  const char* Given = std::getenv("UNITLIB_CASES");
  return Given != nullptr ? Given : UNITLIB_DEFAULT_CASES;
}

class Differential : public testing::TestWithParam<TFamily> {};

TEST_P(Differential, AgreesWithTheSecondImplementation) {
  std::ifstream File(CaseFile());
  ASSERT_TRUE(File) << "no case file " << CaseFile();
  const std::string Start = std::string(GetParam().Name) + "\t";
  long Count = 0;
  long Different = 0;
  for (std::string Line; std::getline(File, Line);) {
    if (!Line.starts_with(Start)) continue;
    ++Count;
    const std::string Report = GetParam().Check(Split(std::string_view(Line).substr(Start.size()), '\t'));
    if (Report.empty()) continue;
    if (++Different <= ReportedDifferences) ADD_FAILURE() << Line << Report;
  }
  RecordProperty("cases", static_cast<int>(Count));
  std::printf("%s: %ld cases, %ld differ\n", GetParam().Name, Count, Different);
  // A file given by hand may hold some families only; the one made with the build holds all.
  EXPECT_TRUE(Count > 0 || std::getenv("UNITLIB_CASES") != nullptr) << "no cases";
  EXPECT_EQ(Different, 0);
}

TEST(DifferentialDefaults, GeneratedFileHoldsTheSecondWritingDown) {
  std::ifstream File(UNITLIB_DEFAULT_CASES);
  ASSERT_TRUE(File) << "no case file " << UNITLIB_DEFAULT_CASES;
  std::vector<std::string> Wanted;
  constexpr std::string_view Start = "defaults\t";
  for (std::string Line; std::getline(File, Line);)
    if (Line.starts_with(Start)) Wanted.push_back(Line.substr(Start.size()));
  const std::vector<std::string> Found =
      GeneratedDefaultLines(testing::TempDir() + "differential_defaults.xml");
  ASSERT_FALSE(Wanted.empty());
  ASSERT_EQ(Found.size(), Wanted.size());
  for (size_t I = 0; I < Found.size(); ++I) ASSERT_EQ(Found[I], Wanted[I]) << "element " << I;
}

INSTANTIATE_TEST_SUITE_P(Families, Differential, testing::ValuesIn(Families),
                         [](const auto& Info) { return std::string(Info.param.Name); });

} // namespace
} // namespace unitlib::differential
