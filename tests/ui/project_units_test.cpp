/// The Project Units dialog: every row of its handler table, commit and discard.
#include "tests/ui/UiFixture.h"

#include <wx/choice.h>

namespace unitlib {
namespace {

using namespace test;

class ProjectUnits : public TUiFixture {};

TEST_F(ProjectUnits, ShowsTheConfigurationsAndDigitGroups) {
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Dialog.GetTitle(), "Project Units");
    EXPECT_EQ(Selected(Dialog, "cbbUnitType"), "US Imperial System");
    EXPECT_EQ(Control<wxChoice>(Dialog, "cbbUnitType").GetCount(), 4u);
    EXPECT_EQ(Selected(Dialog, "cbbSWFZGroup"), "123,456,789.00");
    EXPECT_EQ(Control<wxChoice>(Dialog, "cbbSWFZGroup").GetCount(), 2u);
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(ProjectUnits, GridHasAHeaderAndARowPerMeasure) {
  Driver.Next([](wxDialog& Dialog) {
    auto& Grid = Control<TStringGrid>(Dialog, "sgGridUnit");
    EXPECT_EQ(Grid.ColCount(), 2);
    EXPECT_EQ(Grid.RowCount(), 10);
    EXPECT_EQ(Grid.Cell(0, 0), wxString(' ', 21) + "Units");
    EXPECT_EQ(Grid.Cell(1, 0), wxString(' ', 21) + "Format");
    EXPECT_EQ(Grid.Cell(0, 1), "Length (Basic Information)");
    EXPECT_EQ(Grid.Cell(0, 4), "Area");
    EXPECT_EQ(Grid.Cell(0, 9), "Volume per Unit Length");
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(ProjectUnits, ButtonsCarryNameTagAndCaption) {
  Driver.Next([](wxDialog& Dialog) {
    for (const int Code : {0, 7, 3, 1, 2, 6, 4, 5})
      EXPECT_EQ(dynamic_cast<TMeasureButton&>(MeasureButton(Dialog, Code)).Tag, Code);
    // 1234.56789 mm = 4.0504... ft; 1234567890.12345 mm2 = 13288.778... sq ft; 1 kg = 2.2046 lb
    EXPECT_EQ(Caption(Dialog, 7), "4.050 [FT]");
    EXPECT_EQ(Caption(Dialog, 1), "13,288.778 [SF]");
    EXPECT_EQ(Caption(Dialog, 6), "2.205 [lb]");
    EXPECT_EQ(Caption(Dialog, 0), "4' 0 19/32\""); // a fractional unit carries its own marks
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(ProjectUnits, ButtonLiesExactlyOverItsCell) {
  Driver.Next([](wxDialog& Dialog) {
    auto& Grid = Control<TStringGrid>(Dialog, "sgGridUnit");
    EXPECT_EQ(MeasureButton(Dialog, 7).GetRect(), Grid.CellRect(1, 2));
    EXPECT_EQ(MeasureButton(Dialog, 5).GetRect(), Grid.CellRect(1, 8));
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(ProjectUnits, ChoosingAConfigurationShowsItsFormats) {
  Driver.Next([](wxDialog& Dialog) {
    Choose(Dialog, "cbbUnitType", 2);
    EXPECT_EQ(TSystemUnitDataManager::GetCurConfigIndex(), 2);
    EXPECT_EQ(Caption(Dialog, 7), "1.235 [m]");
    EXPECT_EQ(Caption(Dialog, 0), "1235 [mm]");
    EXPECT_EQ(Caption(Dialog, 6), "1.000 [kg]");
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(ProjectUnits, ChoosingADigitGroupShowsIt) {
  Driver.Next([](wxDialog& Dialog) {
    Choose(Dialog, "cbbSWFZGroup", 1);
    EXPECT_EQ(TSystemUnitDataManager::GetCurDigitGroupIndex(), 1);
    EXPECT_EQ(Caption(Dialog, 1), "1,3288.778 [SF]");
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(ProjectUnits, DefaultRestoresTheConfiguration) {
  EditFile([] {
    TMeasure& Area = *TSystemUnitDataManager::CurConfigMeasure(1);
    Area.CurUnitIndex = 2; // square meters
  });
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Caption(Dialog, 1), "1234.568 [m2]");
    Click(Dialog, "btnRestore");
    EXPECT_EQ(Caption(Dialog, 1), "13,288.778 [SF]");
    EXPECT_EQ(TSystemUnitDataManager::GetCurConfigIndex(), 0);
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(ProjectUnits, MeasureButtonOpensTheFormatAndShowsTheNewExample) {
  Driver.Next([](wxDialog& Dialog) {
    ClickOn(MeasureButton(Dialog, 1));
    EXPECT_EQ(Caption(Dialog, 1), "1234.568 [m2]");
    EXPECT_EQ(Caption(Dialog, 2), "1,614.754 [CY]");
    PressKey(WXK_ESCAPE);
  });
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Selected(Dialog, "cbbUnit"), "Square feet");
    Choose(Dialog, "cbbUnit", 2);
    Click(Dialog, "btnOK");
  });
  Execute();
  EXPECT_EQ(Driver.DialogsOpened, 2);
}

TEST_F(ProjectUnits, CancelledFormatChangesNothing) {
  Driver.Next([](wxDialog& Dialog) {
    ClickOn(MeasureButton(Dialog, 1));
    EXPECT_EQ(Caption(Dialog, 1), "13,288.778 [SF]");
    PressKey(WXK_ESCAPE);
  });
  Driver.Next([](wxDialog& Dialog) {
    Choose(Dialog, "cbbUnit", 2);
    Click(Dialog, "btnCancel");
  });
  Execute();
}

TEST_F(ProjectUnits, OKWritesTheFileAndCallsBack) {
  Driver.Next([](wxDialog& Dialog) {
    Choose(Dialog, "cbbUnitType", 2);
    Click(Dialog, "btnOK");
  });
  Execute();
  EXPECT_EQ(Calls, "unlock lock unlock lock ok ");
  EXPECT_NE(Bytes().find("CurConfigIndex=\"2\""), std::string::npos);
  EXPECT_EQ(ReadBytes(Folders.WorkingCopy()), Bytes());
  EXPECT_EQ(TSystemUnitDataManager::GetCurConfigIndex(), 2);
}

TEST_F(ProjectUnits, FileIsUnlockedExactlyWhileItIsWritten) {
  std::string Seen;
  DuringLock = [&](bool Lock) {
    if (Calls != "unlock lock unlock " && Calls != "unlock lock unlock lock ") return;
    Seen += Bytes().find("CurConfigIndex=\"2\"") == std::string::npos ? "old" : "new";
    Seen += Lock ? " at lock " : " at unlock ";
  };
  Driver.Next([](wxDialog& Dialog) {
    Choose(Dialog, "cbbUnitType", 2);
    Click(Dialog, "btnOK");
  });
  Execute();
  EXPECT_EQ(Seen, "old at unlock new at lock ");
}

/// Ways to leave without accepting, and the reloads each makes: one at the start, one by the Cancel button,
/// one at the end.
struct TDiscardRow {
  const char* Name;
  std::function<void(wxDialog&)> Leave;
  const char* Calls;
};
class ProjectUnitsDiscard : public TUiFixture, public ::testing::WithParamInterface<TDiscardRow> {};

TEST_P(ProjectUnitsDiscard, LeavesFileAndModelAsTheyWere) {
  const std::string Before = Bytes();
  Driver.Next([&](wxDialog& Dialog) {
    Choose(Dialog, "cbbUnitType", 3);
    Choose(Dialog, "cbbSWFZGroup", 1);
    Click(Dialog, "btnRestore");
    GetParam().Leave(Dialog);
  });
  Execute();
  EXPECT_EQ(Calls, GetParam().Calls);
  EXPECT_EQ(Bytes(), Before);
  EXPECT_EQ(TSystemUnitDataManager::GetCurConfigIndex(), 0);
  EXPECT_EQ(TSystemUnitDataManager::GetCurDigitGroupIndex(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, ProjectUnitsDiscard,
    ::testing::Values(TDiscardRow{"CancelButton", [](wxDialog& D) { Click(D, "btnCancel"); },
                                  "unlock lock unlock lock unlock lock "},
                      TDiscardRow{"Escape", [](wxDialog&) { PressKey(WXK_ESCAPE); },
                                  "unlock lock unlock lock unlock lock "},
                      TDiscardRow{"CloseBox", [](wxDialog& D) { D.Close(); }, "unlock lock unlock lock "}),
    [](const auto& Info) { return Info.param.Name; });

TEST_F(ProjectUnits, WithoutCallbacksOKSavesAndCancelDiscards) {
  Driver.Next([](wxDialog& Dialog) {
    auto& Form = dynamic_cast<TSystemUnitForm&>(Dialog);
    EXPECT_TRUE(Form.DoLockFile(u"any", false));
    EXPECT_TRUE(Form.Frame()->DoLockFile(u"any", true));
    Choose(Dialog, "cbbUnitType", 1);
    Click(Dialog, "btnOK");
  });
  TSystemUnitForm::Execute(CYAmInch, File, {}, {});
  EXPECT_NE(Bytes().find("CurConfigIndex=\"1\""), std::string::npos);
  Driver.Next([](wxDialog& Dialog) { Click(Dialog, "btnCancel"); });
  ExecuteSystemUnitForm(CYAmInch, File);
  EXPECT_EQ(TSystemUnitDataManager::GetCurConfigIndex(), 1);
}

TEST_F(ProjectUnits, StartsFromTheFileNotFromTheModel) {
  InitialUnitSystem(File, CYAmInch, false);
  TSystemUnitDataManager::SetCurConfig(3); // unsaved
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Selected(Dialog, "cbbUnitType"), "US Imperial System");
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(ProjectUnits, FileWithoutAChoiceTakesTheHostsConfiguration) {
  ReplaceInFile("CurConfigIndex=\"0\"", "CurConfigIndex=\"-1\"");
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Selected(Dialog, "cbbUnitType"), "Standard Metric System");
    Click(Dialog, "btnOK");
  });
  TSystemUnitForm::Execute(CYStandMetric, File, OnOK(), LockFile());
  EXPECT_NE(Bytes().find("CurConfigIndex=\"2\""), std::string::npos);
}

TEST_F(ProjectUnits, EmptyFileNameMeansTheFileBesideTheProgram) {
  WriteBytes(Folders.File("UnitConfig.xml"), Bytes());
  Driver.Next([](wxDialog& Dialog) {
    Choose(Dialog, "cbbUnitType", 3);
    Click(Dialog, "btnOK");
  });
  TSystemUnitForm::Execute(CYAmInch, u"", {}, {});
  EXPECT_NE(ReadBytes(Folders.File("UnitConfig.xml")).find("CurConfigIndex=\"3\""), std::string::npos);
}

TEST_F(ProjectUnits, MeasureOfTheSameCodeKeepsItsButtonAndCreationCaption) {
  EditFile([] { TSystemUnitDataManager::CurConfig()->Measure(1, false)->ClassifyCode = 0; }); // decimal feet
  Driver.Next([](wxDialog& Dialog) {
    auto& Grid = Control<TStringGrid>(Dialog, "sgGridUnit");
    const auto Second = [&] {
      return Grid.Cells()->GetChildren().Item(1)->GetData()->GetLabel().utf8_string();
    };
    EXPECT_EQ(Second(), "4' 0 19/32\" [FT]"); // the example of the first measure with code 0, its own unit
    TSystemUnitDataManager::CurConfigMeasure(0)->CurUnitIndex = 6;
    dynamic_cast<TSystemUnitForm&>(Dialog).Frame()->cbbSWFZGroupChange();
    EXPECT_EQ(Caption(Dialog, 0), "1235 [mm]");
    EXPECT_EQ(Second(), "4' 0 19/32\" [FT]");
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(ProjectUnits, MeasureWithoutUnitShowsItsExampleWithoutSuffix) {
  Driver.Next([](wxDialog& Dialog) {
    auto& Grid = Control<TStringGrid>(Dialog, "sgGridUnit");
    EXPECT_EQ(Grid.Cells()->GetChildren().Item(8)->GetData()->GetLabel(), "4' 0 19/32\"");
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(ProjectUnits, MeasureThatCannotBeShownIsEmptyAndCanBeRepaired) {
  EditFile([] {
    TRound& Round = *TSystemUnitDataManager::CurConfigMeasure(1)->GetCurUnit()->GetCurRound();
    Round.SetIncrement(u"one thousandth");
  });
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Caption(Dialog, 1), "");
    EXPECT_EQ(Caption(Dialog, 2), "1,614.754 [CY]");
    Choose(Dialog, "cbbUnitType", 1);
    Choose(Dialog, "cbbUnitType", 0); // the failing measure does not get in the way
    ClickOn(MeasureButton(Dialog, 1));
    EXPECT_EQ(Caption(Dialog, 1), "13,288.78 [SF]");
    Click(Dialog, "btnOK");
  });
  Driver.Next([](wxDialog& Dialog) {
    Choose(Dialog, "cbbsheru", 5); // 2 decimal places
    Click(Dialog, "btnOK");
  });
  Execute();
  EXPECT_EQ(Calls, "unlock lock unlock lock ok ");
}

TEST_F(ProjectUnits, ConfigurationWithOtherMeasuresGetsItsOwnRows) {
  EditFile([] {
    TConfig& Taiwan = TSystemUnitDataManager::CurUseUnitConfigContainer()[3];
    while (Taiwan.MeasureCount() > 2) Taiwan.MeasureContainer.Delete(2);
    Taiwan.Measure(1, false)->Description = u"Wall length";
  });
  Driver.Next([](wxDialog& Dialog) {
    auto& Grid = Control<TStringGrid>(Dialog, "sgGridUnit");
    Choose(Dialog, "cbbUnitType", 3);
    EXPECT_EQ(Grid.RowCount(), 3);
    EXPECT_EQ(Grid.Cell(0, 2), "Wall length");
    EXPECT_EQ(Caption(Dialog, 7), "1.235 [m]");
    Choose(Dialog, "cbbUnitType", 0);
    EXPECT_EQ(Grid.RowCount(), 10);
    EXPECT_EQ(Caption(Dialog, 7), "4.050 [FT]");
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(ProjectUnits, IsModalToTheHostsWindowAndCentredOnIt) {
  Host->SetFocus();
  Settle();
  Driver.Next([this](wxDialog& Dialog) {
    EXPECT_FALSE(Host->IsEnabled() && Host->IsThisEnabled() && !Dialog.IsModal());
    const wxRect Form = Dialog.GetRect(), Owner = Host->GetRect();
    EXPECT_NEAR(Form.x + Form.width / 2, Owner.x + Owner.width / 2, 2);
    EXPECT_NEAR(Form.y + Form.height / 2, Owner.y + Owner.height / 2, 2);
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

} // namespace
} // namespace unitlib
