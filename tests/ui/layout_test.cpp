/// Where the controls are: the design's places, nothing overlapping, nothing cut, at every text size and
/// content.
#include "tests/ui/UiFixture.h"

#include "unitlib/ui/Placing.h"

#include <wx/choice.h>
#include <wx/display.h>
#include <wx/stattext.h>

namespace unitlib {
namespace {

using namespace test;

/// A control's place in the design: left, top, width (0: its own), in pixels at 96 dpi.
struct TDesign {
  const char* Name;
  int Left, Top, Width;
};

/// Left and width exactly as designed (a list may be wider for its contents); no control higher up than
/// designed.
void ExpectDesign(wxDialog& Dialog, std::initializer_list<TDesign> Design) {
  const TScale Scale(Dialog);
  for (const TDesign& D : Design) {
    const wxRect Place = Control(Dialog, D.Name).GetRect();
    EXPECT_EQ(Place.x, Scale(D.Left)) << D.Name;
    EXPECT_GE(Place.y, Scale(D.Top)) << D.Name;
    if (!D.Width) continue;
    if (dynamic_cast<wxChoice*>(&Control(Dialog, D.Name)))
      EXPECT_GE(Place.width, Scale(D.Width)) << D.Name;
    else
      EXPECT_EQ(Place.width, Scale(D.Width)) << D.Name;
  }
}

class Layout : public TUiFixture {
protected:
  /// Replaces the measures of configuration 0 by copies of its "Area".
  void MakeMeasures(int Count, const std::string& Description) {
    std::string Content = Bytes();
    const size_t First = Content.find("<Measurement"), End = Content.find("</Config>");
    const size_t Area = Content.find("<Measurement", Content.find("Elevation/Segment"));
    std::string Block = Content.substr(Area, Content.find("</Measurement>", Area) + 14 - Area), All;
    for (int I = 0; I < Count; ++I) {
      std::string One = Block;
      const auto Put = [&](const std::string& Key, const std::string& Value) {
        const size_t At = One.find(Key + "=\"") + Key.size() + 2;
        One.replace(At, One.find('"', At) - At, Value);
      };
      Put("ClassifyCode", std::to_string(100 + I));
      Put("Description", Description + (Count > 1 ? " " + std::to_string(I + 1) : ""));
      All += One;
    }
    Content.replace(First, End - First, All);
    WriteBytes(File, Content);
  }
  void OpenAndLook(
      const char* Screenshot, std::function<void(wxDialog&)> Look = [](wxDialog&) {}) {
    Driver.Next([=](wxDialog& Dialog) {
      ExpectNothingOverlapsOrIsCut(Dialog);
      const wxRect Screen = wxDisplay(&Dialog).GetClientArea();
      EXPECT_TRUE(Screen.Contains(Dialog.GetRect()));
      SaveScreenshot(Screenshot);
      Look(Dialog);
      Click(Dialog, "btnCancel");
    });
    Execute();
  }
};

TEST_F(Layout, ProjectUnitsAsDesigned) {
  OpenAndLook("project_units", [](wxDialog& Dialog) {
    const TScale Scale(Dialog);
    EXPECT_EQ(Dialog.GetClientSize().x, Scale(369));
    EXPECT_GE(Dialog.GetClientSize().y, Scale(412));
    EXPECT_GE(Control(Dialog, "pnlTop").GetSize().y, Scale(41));
    EXPECT_GE(Control(Dialog, "pnlMiddle").GetSize().y, Scale(280));
    EXPECT_EQ(Control(Dialog, "sgGridUnit").GetSize(), Control(Dialog, "pnlMiddle").GetClientSize());
    ExpectDesign(Dialog, {{"cbbUnitType", 127, 10, 217},
                          {"cbbSWFZGroup", 6, 31, 185},
                          {"btnRestore", 266, 31, 81},
                          {"btnOK", 177, 60, 83},
                          {"btnCancel", 266, 60, 83}});
  });
}

TEST_F(Layout, FormatAsDesigned) {
  InitialUnitSystem(File, CYAmInch, false);
  for (const int Code : {1, 3}) {
    Driver.Next([&](wxDialog& Dialog) {
      const TScale Scale(Dialog);
      EXPECT_EQ(Dialog.GetClientSize().x, Scale(349));
      EXPECT_GE(Dialog.GetClientSize().y, Scale(360));
      ExpectDesign(Dialog, {{"ckPrjSetting", 10, 0, 0},
                            {"cbbUnit", 136, 6, 189},
                            {"cbbsheru", 10, 24, 145},
                            {"cbbUnitCharacter", 10, 23, 145},
                            {"ckXQHXZ", 10, 0, 0},
                            {"ckXQKG", 10, 0, 0},
                            {"btnOK", 145, 6, 89},
                            {"btnCancel", 242, 6, 89}});
      const wxRect Edit = Control(Dialog, "edtPrecise").GetRect();
      EXPECT_GE(Edit.x, Scale(170));
      EXPECT_EQ(Edit.width, Scale(155));
      ExpectNothingOverlapsOrIsCut(Dialog);
      for (const char* const List : {"cbbUnit", "cbbsheru", "cbbUnitCharacter"})
        EXPECT_GE(Control(Dialog, List).GetSize().x, Control(Dialog, List).GetBestSize().x) << List;
      SaveScreenshot(Code == 1 ? "format_area" : "format_elevation");
      PressKey(WXK_ESCAPE);
    });
    TSystemUnitFormatFrm::Execute(Code, 500, 369, 100);
  }
}

TEST_F(Layout, OneMeasure) {
  MakeMeasures(1, "Area");
  OpenAndLook("one_measure", [](wxDialog& Dialog) {
    EXPECT_EQ(Control<TStringGrid>(Dialog, "sgGridUnit").RowCount(), 2);
    EXPECT_GE(Control(Dialog, "pnlMiddle").GetSize().y, TScale(Dialog)(280));
  });
}

TEST_F(Layout, FortyMeasures) {
  MakeMeasures(40, "Area");
  OpenAndLook("forty_measures", [](wxDialog& Dialog) {
    EXPECT_EQ(Control<TStringGrid>(Dialog, "sgGridUnit").RowCount(), 41);
    FocusOn(MeasureButton(Dialog, 100));
    PressKey(WXK_END);
    EXPECT_EQ(FocusName(), "BtnClassifyCode139");
    const wxRect Cells(Control(Dialog, "sgGridUnitCells").GetClientSize());
    EXPECT_TRUE(Cells.Contains(MeasureButton(Dialog, 139).GetRect()));
    SaveScreenshot("forty_measures_end");
  });
}

TEST_F(Layout, VeryLongDescriptions) {
  std::string Long;
  for (int I = 0; I < 30; ++I) Long += "reinforced concrete surface ";
  MakeMeasures(12, Long);
  ReplaceInFile("Description=\"US Imperial System\"", "Description=\"" + Long + "\"");
  ReplaceInFile("Description=\"Square feet\"", "Description=\"Square feet of " + Long + "\"");
  ReplaceInFile("Description=\"3 decimal places\"", "Description=\"3 decimal places of " + Long + "\"");
  OpenAndLook("long_descriptions");
  Driver.Next([](wxDialog& Dialog) {
    ExpectNothingOverlapsOrIsCut(Dialog);
    SaveScreenshot("long_descriptions_format");
    PressKey(WXK_ESCAPE);
  });
  TSystemUnitFormatFrm::Execute(100, 500, 369, 100);
}

TEST_F(Layout, ChineseDescriptions) {
  MakeMeasures(
      9,
      "\xE9\x9D\xA2\xE7\xA9\x8D\xE8\xA8\x88\xE7\xAE\x97\xE7\xB5\x90\xE6\x9E\x9C"); // area, calculation result
  ReplaceInFile("Description=\"US Imperial System\"",
                "Description=\"\xE7\xBE\x8E\xE5\x9C\x8B\xE8\x8B\xB1\xE5\x88\xB6\xE7\xB3\xBB\xE7\xB5\xB1\"");
  ReplaceInFile("Description=\"Square feet\"",
                "Description=\"\xE5\xB9\xB3\xE6\x96\xB9\xE8\x8B\xB1\xE5\xB0\xBA\"");
  OpenAndLook("chinese", [](wxDialog& Dialog) {
    EXPECT_EQ(Selected(Dialog, "cbbUnitType"),
              "\xE7\xBE\x8E\xE5\x9C\x8B\xE8\x8B\xB1\xE5\x88\xB6\xE7\xB3\xBB\xE7\xB5\xB1");
  });
  Driver.Next([](wxDialog&) {
    SaveScreenshot("chinese_format");
    PressKey(WXK_ESCAPE);
  });
  TSystemUnitFormatFrm::Execute(100, 500, 369, 100);
}

TEST_F(Layout, LongExampleWidensTheFormSoThatNoDigitIsCut) {
  EditFile(
      [] { TSystemUnitDataManager::CurConfigMeasure(2)->ExampleValue = u"1234567890123456789012345678"; });
  OpenAndLook("long_example", [](wxDialog& Dialog) {
    EXPECT_GE(MeasureButton(Dialog, 2).GetSize().x, MeasureButton(Dialog, 2).GetBestSize().x);
  });
}

TEST_F(Layout, AmpersandsAreShownAsTheyAre) {
  EditFile([] {
    TUnit& Unit = *TSystemUnitDataManager::CurConfigMeasure(1)->GetCurUnit();
    Unit.UnitSymbolContainer.Item(1).Description = u"S&F";
    Unit.CurUnitSymbolIndex = 1;
  });
  OpenAndLook("ampersand", [](wxDialog& Dialog) { EXPECT_EQ(Caption(Dialog, 1), "13,288.778 S&F"); });
}

} // namespace
} // namespace unitlib
