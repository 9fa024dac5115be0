/// The window of the host, worked with key and mouse events.
#include "apps/takeoff/DataFolder.h"
#include "apps/takeoff/SampleHouse.h"
#include "apps/takeoff/TakeoffFrame.h"
#include "tests/takeoff/KilledHost.h"
#include "tests/takeoff/SharedBuilding.h"
#include "tests/ui/DialogDriver.h"
#include "tests/ui/UiFixture.h"
#include "unitlib/notify/ZELUnitRefreshUtils.h"

#include <wx/stattext.h>
#include <wx/statusbr.h>

#include <gmock/gmock.h>

namespace unitlib::takeoff {
namespace {

using namespace unitlib::test;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/// The host with a project of its own in a private folder.
class TWindowTest : public ::testing::Test {
protected:
  TWindowTest() : Path(Folders.File("house.takeoff")) {
    TProjectStore::Create(Path, SampleHouse());
    Show();
  }
  ~TWindowTest() override { Hide(); }

  void Show() {
    Frame = new TTakeoffFrame(std::nullopt);
    Frame->Open(Path);
    Frame->Show();
    Frame->Raise();
    Settle(150);
    // Without a window manager the pointer decides who gets the keys.
    ClickOn(Find<wxWindow>(*Frame, "Totals"));
    Frame->Grid().SetFocus();
    Settle();
  }
  void Hide() {
    delete Frame;
    Settle(10);
  }

  void GoTo(int Row, TColumn Column) {
    Frame->Grid().GoTo(static_cast<std::size_t>(Row), Column);
    Settle();
  }
  /// Types a text into a cell and ends with Enter.
  void Type(int Row, TColumn Column, const char* Text) {
    GoTo(Row, Column);
    TypeText(Text);
    PressKey(WXK_RETURN);
  }
  std::string Cell(int Row, TColumn Column) { return Frame->Grid().GetCellValue(Row, Column).utf8_string(); }
  std::string Status() { return Frame->GetStatusBar()->GetStatusText().utf8_string(); }
  std::string Total(const char* Measure) {
    auto& List = Find<wxListCtrl>(*Frame, "Totals");
    for (long Line = 0; Line < List.GetItemCount(); ++Line)
      if (List.GetItemText(Line) == Measure) return List.GetItemText(Line, 1).utf8_string();
    return "no such line";
  }
  /// Ctrl and a letter, as from the keyboard.
  static void Shortcut(char Letter) { PressKey(Letter, wxMOD_CONTROL); }
  /// Gives a command that asks for a file, and types its path into the dialog.
  void ChooseFile(char Letter, const std::string& File) {
    Driver.Next([File](wxDialog&) {
      TypeText(File.c_str());
      Settle(300); // the dialog looks the folder up
      PressKey(WXK_RETURN);
    });
    Shortcut(Letter);
  }
  /// Chooses a configuration in the Project Units dialog and presses a button.
  void SwitchSystem(int System, const char* Button) {
    Driver.Next([=](wxDialog& Dialog) {
      Choose(Dialog, "cbbUnitType", System);
      Click(Dialog, Button);
    });
    Shortcut('U');
    WaitFor([&] { return !wxWindow::FindWindowByName("TSystemUnitForm"); });
  }

  TPrivateFolders Folders;
  std::u16string Path;
  TTakeoffFrame* Frame = nullptr;
  TDialogDriver Driver;
};

// Rows of the sample: 0 a length as a result (m), 1 a volume per length, 5 a length (mm), 6 an area (m2).

TEST_F(TWindowTest, ShowsTheSampleInMetricUnits) {
  EXPECT_EQ(Frame->GetTitle(), "house - Take-off");
  EXPECT_EQ(Cell(0, ValueColumn), "35.040 m");
  EXPECT_EQ(Cell(0, ElevationColumn), "L1-0.750");
  EXPECT_EQ(Cell(5, ValueColumn), "150 mm");
  EXPECT_EQ(Cell(6, ValueColumn), "71.590 m2");
  EXPECT_EQ(Total("Length (Calculation Result)"), "199.845 m"); // 35040 + 164804.7 mm
}

TEST_F(TWindowTest, TypedLengthsAreStoredAndShown) {
  Type(0, ValueColumn, "5'6 1/2\"");
  EXPECT_EQ(Cell(0, ValueColumn), "1.689 m");
  EXPECT_EQ(Cell(0, TypedColumn), "5'6 1/2\"");
  EXPECT_EQ(Status(), "5'6 1/2\"  =  1.689 m");
  Type(5, ValueColumn, "3'6\"+2*1'");
  EXPECT_EQ(Cell(5, ValueColumn), "1676 mm");
  EXPECT_NEAR(Frame->Project()->Item(5).Value, 1676.4, 1e-9);
  Type(5, ValueColumn, "-5'");
  EXPECT_EQ(Cell(5, ValueColumn), "-1524 mm");
  Type(5, ElevationColumn, "L1+5'");
  EXPECT_EQ(Cell(5, ElevationColumn), "L1+1.524");
  Type(1, NameColumn, "Trench");
  EXPECT_EQ(Cell(1, NameColumn), "Trench");
  Hide();
  Show();
  EXPECT_EQ(Cell(0, ValueColumn), "1.689 m");
  EXPECT_EQ(Cell(5, ElevationColumn), "L1+1.524");
  EXPECT_EQ(Cell(1, NameColumn), "Trench");
}

TEST_F(TWindowTest, ABarTellsWhileTypingHowTheTextIsRead) {
  const auto Bar = [this] { return Find<wxStaticText>(*Frame, "Typing").GetLabelText().utf8_string(); };
  EXPECT_EQ(Bar(), "");
  GoTo(5, ValueColumn);
  TypeText("10'-6\"");
  EXPECT_EQ(Bar(), "Not clear: the dash may join or take away; write 10' 6\" or (10')-(6\")");
  SaveScreenshot("takeoff_typing_not_clear");
  PressKey(WXK_ESCAPE);
  EXPECT_EQ(Bar(), "");
  TypeText("10' 6 1/2\"");
  EXPECT_EQ(Bar(), "Read as 10 feet 6 1/2 inches");
  SaveScreenshot("takeoff_typing_read");
  PressKey(WXK_RETURN);
  EXPECT_EQ(Bar(), "");
  EXPECT_NEAR(Frame->Project()->Item(5).Value, 3213.1, 1e-9); // 126.5 inches
  GoTo(5, ElevationColumn);
  TypeText("L1 - 6\"");
  EXPECT_EQ(Bar(), "Read as L1 minus 0.152 m");
  PressKey(WXK_RETURN);
  GoTo(5, NameColumn);
  TypeText("10'-6\"");
  EXPECT_EQ(Bar(), "");
}

TEST_F(TWindowTest, RefusedTextsLeaveTheCellAndSayWhy) {
  struct TRow {
    const char* Text;
    const char* Reason;
  };
  for (const TRow& Row :
       {TRow{"abc", "\"abc\" is neither a number nor a unit"}, TRow{"1e300", "no unit that is read here"},
        TRow{"2'*3'", "two amounts are not multiplied"}, TRow{"1,5", "a comma separates thousands"},
        TRow{"5'-6\"", "the dash may join or take away"}, TRow{" ", "needs a value"}}) {
    Type(5, ValueColumn, Row.Text);
    EXPECT_EQ(Cell(5, ValueColumn), "150 mm") << Row.Text;
    EXPECT_EQ(Frame->Project()->Item(5).Value, 150.0) << Row.Text;
    EXPECT_THAT(Status(), StartsWith("Not changed: ")) << Row.Text;
    EXPECT_THAT(Status(), HasSubstr(Row.Reason)) << Row.Text;
    EXPECT_EQ(Frame->Grid().GetGridCursorRow(), 5) << Row.Text;
  }
}

TEST_F(TWindowTest, F2BringsARefusedTextBack) {
  Type(5, ValueColumn, "3'6");
  EXPECT_EQ(Cell(5, ValueColumn), "1067 mm");
  Type(5, ValueColumn, "3'6\"+ab");
  PressKey(WXK_F2);
  PressKey(WXK_BACK);
  PressKey(WXK_BACK);
  TypeText("1'");
  PressKey(WXK_RETURN);
  EXPECT_EQ(Cell(5, TypedColumn), "3'6\"+1'");
  EXPECT_EQ(Cell(5, ValueColumn), "1372 mm");
}

TEST_F(TWindowTest, LookingAtACellChangesNothing) {
  GoTo(18, ValueColumn); // 5650.83 mm, shown as 5.651 m
  PressKey(WXK_F2);
  PressKey(WXK_RETURN);
  EXPECT_EQ(Frame->Project()->Item(18).Value, 5650.83);
  PressKey(WXK_F2);
  TypeText("12");
  PressKey(WXK_ESCAPE);
  EXPECT_EQ(Frame->Project()->Item(18).Value, 5650.83);
}

TEST_F(TWindowTest, ImportsABuildingAndFollowsTheUnits) {
  const std::string Csv = SharedBuilding();
  if (Csv.empty()) return;
  const int First = static_cast<int>(Frame->Project()->Count());
  ChooseFile('I', Csv);
  WaitFor([&] { return Frame->Project()->Count() > static_cast<std::size_t>(First); });
  EXPECT_EQ(Status(), "377 items imported");
  ASSERT_EQ(Frame->Project()->Count(), static_cast<std::size_t>(First) + 377);
  EXPECT_EQ(Cell(First, NameColumn), "Level 1 / Space / 1 / NetFloorArea");
  EXPECT_EQ(Cell(First, ValueColumn), "49.920 m2");
  EXPECT_EQ(Cell(First + 1, ValueColumn), "4000 mm");
  EXPECT_EQ(Frame->Grid().GetGridCursorRow(), First);

  SwitchSystem(0, "btnOK");
  EXPECT_EQ(Cell(First, ValueColumn), "537.334 SF");        // 49920000 / 92903.04 = 537.3344...
  EXPECT_EQ(Cell(First + 1, ValueColumn), "13' 1 15/32\""); // 4000 / 25.4 = 157.4803... inches
  EXPECT_EQ(Cell(5, ValueColumn), "0' 5 29/32\"");
  EXPECT_EQ(Cell(0, ElevationColumn), "L1-2' 5 17/32\"");
  EXPECT_EQ(Total("Length (Calculation Result)"), "655.658 FT"); // 199844.7 / 304.8 = 655.6584...

  SwitchSystem(2, "btnOK");
  EXPECT_EQ(Cell(First, ValueColumn), "49.920 m2");
}

TEST_F(TWindowTest, CancelledUnitsChangeNothing) {
  const std::string Before = ReadBytes(SettingsBeside(Path));
  SwitchSystem(0, "btnCancel");
  EXPECT_EQ(Cell(0, ValueColumn), "35.040 m");
  EXPECT_EQ(ReadBytes(SettingsBeside(Path)), Before);
}

TEST_F(TWindowTest, ATypedNumberIsNotOfferedInOtherUnits) {
  Type(0, ValueColumn, "2.5");
  SwitchSystem(0, "btnOK");
  EXPECT_EQ(Cell(0, TypedColumn), "2.5  (Meters)");
  GoTo(0, ValueColumn);
  PressKey(WXK_F2);
  PressKey(WXK_END);
  TypeText("+1'");
  PressKey(WXK_RETURN);
  // The editor held 8.2020997... feet, to which a length with a mark cannot be added.
  EXPECT_THAT(Status(), HasSubstr("of which unit?"));
  EXPECT_EQ(Frame->Project()->Item(0).Value, 2500.0);
}

TEST_F(TWindowTest, TheCellBeingEditedIsCommittedBeforeUnitsChange) {
  GoTo(5, ValueColumn);
  TypeText("1'");
  ASSERT_TRUE(Frame->Grid().IsCellEditControlShown());
  double InDialog = 0;
  Driver.Next([&](wxDialog& Dialog) {
    InDialog = Frame->Project()->Item(5).Value;
    Click(Dialog, "btnCancel");
  });
  ClickOn(Find<wxWindow>(*Frame, "ProjectUnits"));
  WaitFor([&] { return InDialog != 0; });
  EXPECT_EQ(InDialog, 304.8);
}

TEST_F(TWindowTest, ItemsAreAddedAndDeleted) {
  const std::size_t Count = Frame->Project()->Count();
  GoTo(5, NameColumn);
  ClickOn(Find<wxWindow>(*Frame, "AddItem"));
  ASSERT_EQ(Frame->Project()->Count(), Count + 1);
  EXPECT_EQ(Frame->Grid().GetGridCursorRow(), static_cast<int>(Count));
  EXPECT_EQ(Cell(static_cast<int>(Count), ValueColumn), "0 mm");
  TypeText("Beam");
  PressKey(WXK_RETURN);
  EXPECT_EQ(Cell(static_cast<int>(Count), NameColumn), "Beam");

  GoTo(2, NameColumn);
  const std::string Next = Cell(3, NameColumn);
  Driver.ShowMessageBoxes();
  Driver.Next([](wxDialog&) { PressKey(WXK_ESCAPE); });
  PressKey(WXK_DELETE, wxMOD_CONTROL);
  EXPECT_EQ(Frame->Project()->Count(), Count + 1);
  Driver.Next([](wxDialog&) { PressKey(WXK_RETURN); });
  PressKey(WXK_DELETE, wxMOD_CONTROL);
  EXPECT_TRUE(WaitFor([&] { return Frame->Project()->Count() == Count; }));
  EXPECT_EQ(Cell(2, NameColumn), Next);
}

TEST_F(TWindowTest, AMeasureIsChosenFromTheListAndKeepsTheBaseUnit) {
  const auto ChooseMeasure = [&](int Row, int Steps) {
    GoTo(Row, MeasureColumn);
    PressKey(WXK_F2);
    for (int I = 0; I < Steps; ++I) PressKey(WXK_DOWN);
    PressKey(WXK_RETURN);
    Settle();
    if (Frame->Grid().IsCellEditControlEnabled()) PressKey(WXK_RETURN); // the first one closed the list only
  };
  ChooseMeasure(5, 1); // from the first length to the second
  EXPECT_EQ(Cell(5, MeasureColumn), "Length (Calculation Result)");
  EXPECT_EQ(Cell(5, ValueColumn), "0.150 m");
  ChooseMeasure(5, 2); // to the area
  EXPECT_EQ(Cell(5, MeasureColumn), "Length (Calculation Result)");
  EXPECT_THAT(Status(), HasSubstr("0.150 m cannot become a value of \"Area\""));
}

TEST_F(TWindowTest, ClosingCommitsTheCellOrStays) {
  GoTo(5, ValueColumn);
  TypeText("abc");
  EXPECT_FALSE(Frame->Close());
  EXPECT_THAT(Status(), HasSubstr("\"abc\" is neither a number nor a unit"));
  EXPECT_TRUE(Frame->IsShown());
  Settle();
  GoTo(5, ValueColumn);
  TypeText("1'");
  EXPECT_TRUE(Frame->Close());
  Settle();
  Frame = nullptr;
  EXPECT_EQ(TProject(Path).Item(5).Value, 304.8);
}

TEST_F(TWindowTest, TheSettingsAreLockedAlsoAfterTheyWereSaved) {
  TSettingsLock Other(SettingsBeside(Path));
  EXPECT_FALSE(Other.Take());
  SwitchSystem(0, "btnOK"); // replaces the file
  EXPECT_FALSE(Other.Take());
  Hide();
  Frame = nullptr;
  EXPECT_TRUE(Other.Take());
  Show();
  EXPECT_EQ(Cell(0, ValueColumn), "114.961 FT");
  Shortcut('U');
  WaitFor([&] { return !Driver.Boxes.empty(); });
  ASSERT_EQ(Driver.Boxes.size(), 1u);
  EXPECT_THAT(Driver.Boxes[0], HasSubstr("Another program is using the unit settings"));
}

TEST_F(TWindowTest, ANewProjectStartsEmpty) {
  ChooseFile('N', (Folders.Root() / "garage").string());
  WaitFor([&] { return Frame->GetTitle().StartsWith("garage"); });
  EXPECT_EQ(Frame->Project()->Count(), 0u);
  ClickOn(Find<wxWindow>(*Frame, "AddItem"));
  ASSERT_EQ(Frame->Project()->Count(), 1u);
  Type(0, ValueColumn, "5'");
  EXPECT_EQ(Cell(0, ValueColumn), "1524 mm");
  EXPECT_EQ(TProject(Path).Count(), SampleHouse().size()) << "the project before is closed";
}

TEST_F(TWindowTest, ExportsTheShownSchedule) {
  const std::u16string Csv = Folders.File("out.csv");
  SwitchSystem(0, "btnOK");
  ChooseFile('E', ToUtf8(Csv));
  WaitFor([&] { return Status().find("exported") != std::string::npos; });
  const std::string Text = ReadBytes(Csv);
  EXPECT_THAT(Text, StartsWith("name,measure,display,elevation,typed,value\n"));
  EXPECT_THAT(Text, HasSubstr("\"Ground slab, thickness\",Length (Basic Information),\"0' 5 29/32\"\"\","));
}

TEST_F(TWindowTest, BadRowsOfAnImportAreAskedAbout) {
  const std::u16string Csv = Folders.File("in.csv");
  WriteBytes(Csv, "name,measure,value\nA,0,100\nB,42,1\nC,0,x\n");
  const std::size_t Count = Frame->Project()->Count();
  ChooseFile('I', ToUtf8(Csv));
  WaitFor([&] { return !Driver.Boxes.empty(); });
  ASSERT_EQ(Driver.Boxes.size(), 1u);
  EXPECT_THAT(Driver.Boxes[0], HasSubstr("2 rows cannot be imported"));
  EXPECT_THAT(Driver.Boxes[0], HasSubstr("line 3: measure 42 is not in the unit settings"));
  EXPECT_THAT(Driver.Boxes[0], HasSubstr("line 4: the value \"x\" is not a number"));
  EXPECT_EQ(Frame->Project()->Count(), Count);
}

TEST_F(TWindowTest, WhatCannotBeShownIsTold) {
  Hide();
  TDatabase(Path, TDatabase::TAccess::Write)
      .Run("UPDATE item SET measure=42 WHERE id=1; UPDATE item SET value='x' WHERE id=6");
  Show();
  EXPECT_EQ(Cell(0, ValueColumn), "(measure 42 is not in the unit settings)");
  EXPECT_EQ(Cell(0, MeasureColumn), "measure 42");
  EXPECT_EQ(Cell(5, ValueColumn), "(no number in the project file)");
  EXPECT_EQ(Total("Length (Calculation Result)"), "164.805 m"); // without the 35.04 m
  Type(5, ValueColumn, "1'");
  EXPECT_EQ(Cell(5, ValueColumn), "305 mm");
}

TEST_F(TWindowTest, SettingsThatAreGoneAreReportedAndValuesAreNotGuessed) {
  std::filesystem::remove(std::filesystem::path(SettingsBeside(Path)));
  Shortcut('U');
  WaitFor([&] { return !Driver.Boxes.empty(); });
  ASSERT_EQ(Driver.Boxes.size(), 1u);
  EXPECT_THAT(Driver.Boxes[0], HasSubstr("house.units.xml"));
  EXPECT_EQ(Cell(0, ValueColumn), "(no unit settings are loaded)");
  Type(0, ValueColumn, "1");
  EXPECT_EQ(Frame->Project()->Item(0).Value, 35040.0);
}

TEST_F(TWindowTest, AProjectInUseIsRefusedAndTheOpenOneStays) {
  const std::u16string Other = Folders.File("other.takeoff");
  TProjectStore::Create(Other, SampleHouse());
  const TProject Locked(Other);
  ChooseFile('O', ToUtf8(Other));
  WaitFor([&] { return !Driver.Boxes.empty(); });
  ASSERT_EQ(Driver.Boxes.size(), 1u);
  EXPECT_THAT(Driver.Boxes[0], HasSubstr("in use by another program"));
  EXPECT_EQ(Cell(0, ValueColumn), "35.040 m");
}

TEST_F(TWindowTest, AnotherProjectBringsItsOwnUnits) {
  const std::u16string Other = Folders.File("other.takeoff");
  TProjectStore::Create(Other, SampleHouse());
  SwitchSystem(0, "btnOK");
  EXPECT_EQ(Cell(0, ValueColumn), "114.961 FT");
  ChooseFile('O', ToUtf8(Other));
  WaitFor([&] { return Frame->GetTitle().StartsWith("other"); });
  EXPECT_EQ(Cell(0, ValueColumn), "35.040 m");
}

TEST_F(TWindowTest, AWriteProtectedProjectIsShownAndNotChanged) {
  Hide();
  std::filesystem::permissions(std::filesystem::path(Path), std::filesystem::perms::owner_read);
  Show();
  EXPECT_EQ(Frame->GetTitle(), "house [read only] - Take-off");
  Type(5, ValueColumn, "1'");
  EXPECT_EQ(Cell(5, ValueColumn), "150 mm");
  EXPECT_THAT(Status(), HasSubstr("can only be read"));
  std::filesystem::permissions(std::filesystem::path(Path), std::filesystem::perms::owner_all);
}

/// The parameter is the first of ten rounds: in five tests, for they may run side by side.
class TKilledHostTest : public TWindowTest, public ::testing::WithParamInterface<int> {};

TEST_P(TKilledHostTest, KeepsEveryCommittedEdit) {
  constexpr int Kills = 10;
  Hide();
  Frame = nullptr;
  for (int I = GetParam(); I < GetParam() + Kills && !HasFailure(); ++I) {
    const int Last = KillHostWhileTyping(Path, I);
    ASSERT_GT(Last, 0) << "the host did not get to its first edit";
    const TProject Project(Path);
    // The edit behind the last one that the host showed may have reached the disk before the kill.
    const double Value = Project.Item(KilledRow).Value;
    EXPECT_TRUE(Value == Last || Value == Last + 1) << Value << " after " << Last;
    EXPECT_EQ(Project.Count(), SampleHouse().size());
  }
}

INSTANTIATE_TEST_SUITE_P(Rounds, TKilledHostTest, ::testing::Values(0, 10, 20, 30, 40));

} // namespace
} // namespace unitlib::takeoff
