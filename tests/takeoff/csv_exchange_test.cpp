/// Schedules in and out as CSV.
#include "apps/takeoff/CsvExchange.h"
#include "apps/takeoff/Errors.h"
#include "tests/takeoff/SharedBuilding.h"

#include <gmock/gmock.h>

#include <cstring>

namespace unitlib::takeoff {
namespace {

using test::TFactorySettings;
using ::testing::HasSubstr;

class TText final : public app::TByteSource {
public:
  explicit TText(std::string_view Text) : FRest(Text) {}
  std::size_t Read(char* Buffer, std::size_t Size) override {
    const std::size_t Count = FRest.copy(Buffer, Size);
    FRest.remove_prefix(Count);
    return Count;
  }

private:
  std::string_view FRest;
};

class TMemory final : public app::TByteSink {
public:
  void Write(std::string_view Bytes) override { Text += Bytes; }
  void Commit() override { Committed = true; }
  std::string Text;
  bool Committed = false;
};

class TCsvExchangeTest : public TFactorySettings {
protected:
  static TImport Read(std::string_view Csv) {
    TText Source(Csv);
    return ReadItems(Source);
  }
};

TEST_F(TCsvExchangeTest, JoinsTheOtherColumnsToAName) {
  const TImport Import = Read("storey,Measure,element,display,VALUE\nLevel 1,0,Wall,ignored,1676.4\n"
                              "Level 2,Area,\"Slab, top\",,1e6\n");
  ASSERT_EQ(Import.Items.size(), 2u);
  EXPECT_EQ(Import.BadRows, 0u);
  EXPECT_EQ(Import.Items[0].Name, u"Level 1 / Wall");
  EXPECT_EQ(Import.Items[0].Measure, 0);
  EXPECT_EQ(Import.Items[0].Value, 1676.4);
  EXPECT_EQ(Import.Items[1].Name, u"Level 2 / Slab, top");
  EXPECT_EQ(Import.Items[1].Measure, 1);
}

TEST_F(TCsvExchangeTest, ReadsElevationsAsTyped) {
  const TImport Import = Read("name,measure,value,elevation\nSill,3,900,L1+5'\nRidge,3,900,L1+L2\n");
  ASSERT_EQ(Import.Items.size(), 1u);
  EXPECT_EQ(Import.Items[0].Elevation, u"L1+1.524");
  EXPECT_EQ(Import.BadRows, 1u);
}

TEST_F(TCsvExchangeTest, NamesTheBadRows) {
  const TImport Import =
      Read("name,measure,value\nA,0,1\nB,42,1\nC,0,\nD,0,nan\nE,0\nF,0,1e300\nG,Length,1\n\nH,0,2\n");
  EXPECT_EQ(Import.Items.size(), 2u);
  ASSERT_EQ(Import.Problems.size(), 6u);
  EXPECT_EQ(Import.BadRows, 6u);
  EXPECT_EQ(Import.Problems[0].Line, 3u);
  EXPECT_EQ(Import.Problems[0].Message, u"measure 42 is not in the unit settings");
  EXPECT_EQ(Import.Problems[1].Message, u"the value \"\" is not a number");
  EXPECT_EQ(Import.Problems[2].Message, u"the value \"nan\" is not a number");
  EXPECT_EQ(Import.Problems[3].Message, u"the row has 2 fields, the header 3");
  EXPECT_THAT(ToUtf8(Import.Problems[4].Message), HasSubstr("cannot be shown"));
  EXPECT_EQ(Import.Problems[5].Line, 8u);
}

TEST_F(TCsvExchangeTest, NeedsItsColumns) {
  EXPECT_THROW(Read("name,value\nA,1\n"), ERefused);
  EXPECT_THROW(Read("name,measure\nA,1\n"), ERefused);
  EXPECT_THROW(Read("value,measure,Value\n1,0,1\n"), ERefused);
  EXPECT_THROW(Read(""), ERefused);
}

TEST_F(TCsvExchangeTest, StopsWhenAsked) {
  std::string Csv = "measure,value\n";
  for (int I = 0; I < 5000; ++I) Csv += "0,1\n";
  TText Source(Csv);
  const TImport Import = ReadItems(Source, [](std::uint64_t Bytes) { return Bytes < 8000; });
  EXPECT_TRUE(Import.Stopped);
  EXPECT_LT(Import.Items.size(), 5000u);
}

TEST_F(TCsvExchangeTest, WritesTheScheduleAsShown) {
  const std::u16string Path = Folders.File("house.takeoff");
  TItem Item;
  Item.Name = u"Wall, north \u00fc";
  Item.Value = 1689.1;
  Item.Typed = u"5'6 1/2\"";
  Item.Elevation = u"L1+1.524";
  TItem Unknown = Item;
  Unknown.Measure = 42;
  TProjectStore::Create(Path, {Item, Unknown});
  TMemory Out;
  WriteSchedule(TProject(Path), Out);
  EXPECT_TRUE(Out.Committed);
  EXPECT_EQ(Out.Text,
            "name,measure,display,elevation,typed,value\n"
            "\"Wall, north \u00fc\",Length (Basic Information),\"5' 6 1/2\"\"\",\"L1+5' 0\"\"\","
            "\"5'6 1/2\"\"\",1689.1\n"
            "\"Wall, north \u00fc\",measure 42,(measure 42 is not in the unit settings),\"L1+5' 0\"\"\","
            "\"5'6 1/2\"\"\",1689.1\n");
}

TEST_F(TCsvExchangeTest, ReadsItsOwnExport) {
  const std::u16string Path = Folders.File("house.takeoff");
  TItem Item;
  Item.Name = u"Wall";
  Item.Measure = 7;
  Item.Value = 1689.1;
  TProjectStore::Create(Path, {Item});
  TMemory Out;
  WriteSchedule(TProject(Path), Out);
  const TImport Import = Read(Out.Text);
  ASSERT_EQ(Import.Items.size(), 1u);
  EXPECT_EQ(Import.Items[0].Name, u"Wall");
  EXPECT_EQ(Import.Items[0].Measure, 7);
  EXPECT_EQ(Import.Items[0].Value, 1689.1);
}

TEST_F(TCsvExchangeTest, ReadsTheSharedBuilding) {
  const std::string Path = SharedBuilding();
  if (Path.empty()) return;
  app::TInput Source(Path);
  const TImport Import = ReadItems(Source);
  EXPECT_EQ(Import.Items.size(), 377u);
  EXPECT_EQ(Import.BadRows, 0u);
  EXPECT_EQ(Import.Items[0].Name, u"Level 1 / Space / 1 / NetFloorArea");
  EXPECT_EQ(Import.Items[0].Value, 49920000.0);
}

} // namespace
} // namespace unitlib::takeoff
