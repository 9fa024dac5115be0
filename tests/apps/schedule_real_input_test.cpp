/// The program over real input: the quantities of a small building in all four unit systems, and the
/// published weights of reinforcing bars. The data is read where it lies and never copied.
#include "tests/support/Settings.h"

#include "apps/common/CsvReader.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Text.h"

#include <cmath>
#include <cstdlib>
#include <iostream>
#include <map>

namespace unitlib::test {
namespace {

bool MustBePresent() {
  return std::getenv("CI") || std::getenv("UNITLIB_REQUIRE_DATA");
}

/// An argument for the shell.
std::string Shell(const std::string& Argument) {
#ifdef _WIN32
  return "\"" + Argument + "\"";
#else
  return "'" + Argument + "'";
#endif
}

class RealInput : public ::testing::Test {
protected:
  /// Path of a data file; empty and said so where there is none.
  static std::string Data(const std::string& Name) {
    const std::string Path = SharedData(Name);
    if (!Path.empty()) return Path;
    if (MustBePresent()) // says nothing that CTest would take for a reason to skip the test
      ADD_FAILURE() << Name << " must be present in CI: set UNITLIB_SHARED_DATA to its folder";
    else
      std::cout << "no shared data: " << Name << " is not there, the check is skipped\n";
    return {};
  }

  int Run(const std::vector<std::string>& Arguments) const {
    std::string Line =
        Shell(UNITCTL_PROGRAM) + " --settings " + Shell((Folders.Root() / "UnitConfig.xml").string());
    for (const std::string& Argument : Arguments) Line += " " + Shell(Argument);
#ifdef _WIN32
    Line = "\"" + Line + "\""; // the outer pair is taken off again
#endif
    return std::system(Line.c_str());
  }

  /// The rows of an output file, the header first.
  std::vector<std::vector<std::string>> Rows(const std::string& Name) const {
    app::TInput Input((Folders.Root() / Name).string());
    app::TCsvReader Reader(Input);
    app::TCsvRecord Record;
    app::TCsvFields Fields;
    std::vector<std::vector<std::string>> Result;
    while (Reader.Next(Record)) {
      EXPECT_TRUE(Fields.Split(Record.Raw));
      Result.emplace_back(Fields.All().begin(), Fields.All().end());
    }
    return Result;
  }

  TPrivateFolders Folders;
};

/// Rows worked out by hand. Feet and inches: value / 25.4 inches, to 1/32 inch. Square feet: value /
/// 92903.04. Cubic yards: value / 764554857.984. Metres: value / 10^6 and / 10^9. Three decimals, centimetres
/// one, millimetres none.
struct TExpectedRow {
  int Line; // of the file, the header is 1
  const char* Element;
  const char* Quantity;
  const char* Value;
  const char* Imperial; // both imperial systems
  const char* Metric;
  const char* Taiwan;
};

const TExpectedRow ExpectedRows[] = {
    // 537 x 92903.04 = 49888932.48, rest 31067.52 = 0.3344 square feet
    {2, "Space", "NetFloorArea", "49920000.0", "537.334", "49.920", "49.920"},
    // 157.4803 inches = 13 feet 1.4803 inches; 0.4803 x 32 = 15.37
    {3, "Space", "Height", "4000.0", "13' 1 15/32\"", "4000", "400.0"},
    // 428 x 92903.04 = 39762501.12, rest 17498.88 = 0.1884
    {5, "Space", "NetFloorArea", "39780000.0000002", "428.188", "39.780", "39.780"},
    // 151.5748 inches = 12 feet 7.5748; x 32 = 18.39, 18/32 = 9/16
    {26, "Wallstandardcase", "Height", "3850.0", "12' 7 9/16\"", "3850", "385.0"},
    // 322.8346 inches = 26 feet 10.8346; x 32 = 26.71
    {27, "Wallstandardcase", "Length", "8200.0", "26' 10 27/32\"", "8200", "820.0"},
    // 7.8740 inches; x 32 = 27.97, 28/32 = 7/8
    {28, "Wallstandardcase", "Width", "200.0", "0' 7 7/8\"", "200", "20.0"},
    // 17 x 92903.04 = 1579351.68, rest 60648.32 = 0.6528
    {29, "Wallstandardcase", "GrossFootprintArea", "1639999.99999998", "17.653", "1.640", "1.640"},
    // 8 x 764554857.984 = 6116438863.872, rest 197561136.128 = 0.2584
    {30, "Wallstandardcase", "NetVolume", "6314000000.0", "8.258", "6.314", "6.314"},
    // 7 x 764554857.984 = 5351884005.888, rest 292335994.112 = 0.3824
    {33, "Wallstandardcase", "NetVolume", "5644220000.00001", "7.382", "5.644", "5.644"},
    // 72.0472 inches = 6 feet 0.0472; x 32 = 1.51, 2/32 = 1/16
    {358, "Window", "Height", "1830.0", "6' 0 1/16\"", "1830", "183.0"},
    // 36.0236 inches = 3 feet 0.0236; x 32 = 0.76, 1/32
    {359, "Window", "Width", "915.0", "3' 0 1/32\"", "915", "91.5"},
    // 34 x 92903.04 = 3158703.36, rest 20050.64 = 0.2158
    {360, "Window", "Area", "3178754.0000001304", "34.216", "3.179", "3.179"},
    // 1662 x 92903.04 = 154404852.48, rest 35147.52 = 0.3783; the area is grouped
    {367, "Slab", "GrossArea", "154440000.0", "1,662.378", "154.440", "154.440"},
    // 30300 x 764554857.984 is 12196915 too much, that is 0.0160 cubic yards
    {369, "Slab", "GrossVolume", "23166000000000.098", "30,299.984", "23166.000", "23166.000"},
    // 2173.2283 inches = 181 feet 1.2283; x 32 = 7.31
    {371, "Slab", "Perimeter", "55200.0000000001", "181' 1 7/32\"", "55200", "5520.0"},
    // 3562 x 92903.04 = 330920628.48, rest 39371.52 = 0.4238
    {374, "Slab", "NetArea", "330960000.000001", "3,562.424", "330.960", "330.960"},
    // 80 x 764554857.984 = 61164388638.72, rest 611611361.28 = 0.79996
    {376, "Slab", "NetVolume", "61776000000.000206", "80.800", "61.776", "61.776"},
    // 15.7480 inches = 1 foot 3.7480; x 32 = 23.94, 24/32 = 3/4
    {378, "Slab", "Width", "400.0", "1' 3 3/4\"", "400", "40.0"},
};

struct TSystemColumn {
  const char* Name;
  const char* TExpectedRow::*Text;
};

const TSystemColumn Systems[] = {
    {"US Imperial System", &TExpectedRow::Imperial},
    {"UK Imperial System", &TExpectedRow::Imperial},
    {"Standard Metric System", &TExpectedRow::Metric},
    {"Taiwan Metric System", &TExpectedRow::Taiwan},
};

TEST_F(RealInput, BuildingQuantitiesInAllFourSystems) {
  const std::string Path = Data("building-quantities.csv");
  if (Path.empty()) return;
  ASSERT_EQ(Run({"init"}), 0);
  for (const TSystemColumn& System : Systems) {
    SCOPED_TRACE(System.Name);
    ASSERT_EQ(Run({"--system", System.Name, "schedule", Path, "-o", (Folders.Root() / "out.csv").string()}),
              0);
    const auto Output = Rows("out.csv");
    ASSERT_EQ(Output.size(), 378U); // header and 377 quantities
    EXPECT_EQ(Output[0], (std::vector<std::string>{"storey", "element", "name", "quantity", "measure",
                                                   "value", "display"}));
    for (const TExpectedRow& Row : ExpectedRows) {
      SCOPED_TRACE("line " + std::to_string(Row.Line));
      const auto& Fields = Output[static_cast<std::size_t>(Row.Line) - 1];
      ASSERT_EQ(Fields.size(), 7U);
      EXPECT_EQ(Fields[1], Row.Element);
      EXPECT_EQ(Fields[3], Row.Quantity);
      EXPECT_EQ(Fields[5], Row.Value);
      EXPECT_EQ(Fields[6], Row.*System.Text);
    }
    for (const auto& Fields : Output) EXPECT_FALSE(Fields.back().empty());
  }
}

/// Factory settings whose last measure, mass per unit length, gets what it lacks: a classify code of its own,
/// a unit, and a rounding to two decimals.
void MakeWeightSettings(std::u16string_view Path) {
  using TManager = TSystemUnitDataManager;
  GenerateUnitDefaultConfigFile(Path);
  TManager::InitUnitSystemSetting(Path);
  TManager::SetCurConfig(CYAmInch);
  TMeasure& Measure = *TManager::CurConfig()->Measure(8, false);
  Measure.ClassifyCode = 8;
  Measure.Description = u"Mass per Unit Length";
  Measure.SetCurUnit(u"Pounds per Foot");
  TUnit& Unit = *Measure.GetCurUnit();
  TRound& Round = Unit.RoundContainer.Add();
  Round.Description = u"2 decimal places";
  Round.SetIncrement(u"0.01");
  Unit.CurRoundIndex = 0;
  TManager::SaveConfigFile(u"");
  FreeUnitSystem();
}

/// Half a unit of the last digit of a decimal text: what its rounding may have taken away.
double HalfOfLastDigit(const std::string& Text) {
  const std::size_t Point = Text.find('.');
  const auto Decimals = Point == Text.npos ? 0 : static_cast<int>(Text.size() - Point - 1);
  return 0.5 * std::pow(10.0, -Decimals);
}

/// Mass in kg/m / 1.4881639461, to two decimals, by hand.
const std::map<std::string, std::string> BarWeights = {
    {"#3", "0.38"},  // 0.560 / 1.4881639461 = 0.37630
    {"#4", "0.67"},  // 0.994: 0.66794
    {"#5", "1.04"},  // 1.552: 1.04290
    {"#6", "1.50"},  // 2.235: 1.50185
    {"#7", "2.04"},  // 3.042: 2.04413
    {"#8", "2.67"},  // 3.973: 2.66973
    {"#9", "3.40"},  // 5.060: 3.40016
    {"#10", "4.30"}, // 6.404: 4.30329
    {"#11", "5.31"}, // 7.907: 5.31326
    {"#14", "7.65"}, // 11.38: 7.64701
    {"#18", "13.60"} // 20.24: 13.60065
};

TEST_F(RealInput, ReinforcingBarsInPoundsPerFoot) {
  const std::string Path = Data("rebar-a615.csv");
  if (Path.empty()) return;
  MakeWeightSettings(Folders.File("UnitConfig.xml"));
  ASSERT_EQ(Run({"schedule", Path, "--measure", "8", "--value-column", "mass_kg_per_m", "-o",
                 (Folders.Root() / "out.csv").string()}),
            0);
  const auto Output = Rows("out.csv");
  ASSERT_EQ(Output.size(), 12U);
  for (std::size_t I = 1; I < Output.size(); ++I) {
    const auto& Fields = Output[I];
    SCOPED_TRACE(Fields[0]);
    ASSERT_EQ(Fields.size(), 7U);
    const std::string& Mass = Fields[4];
    const std::string& Weight = Fields[5];
    const std::string& Shown = Fields[6];
    EXPECT_EQ(Shown, BarWeights.at(Fields[0]));
    // Three roundings stand between the shown and the published weight: ours to two decimals, and the
    // standard's of both its columns (#14 and #18 have two decimals of kg/m only). None may do more than half
    // its last digit.
    const double Tolerance = 0.005 + HalfOfLastDigit(Weight) + HalfOfLastDigit(Mass) / 1.4881639461;
    EXPECT_NEAR(std::strtod(Shown.c_str(), nullptr), std::strtod(Weight.c_str(), nullptr), Tolerance + 1e-12);
  }
}

} // namespace
} // namespace unitlib::test
