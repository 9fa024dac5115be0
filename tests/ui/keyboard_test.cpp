/// The dialogs by keyboard alone.
#include "tests/ui/UiFixture.h"

#include <wx/choice.h>

namespace unitlib {
namespace {

using namespace test;

class Keyboard : public TUiFixture {};

/// Names of the windows that Tab visits, from the present one until it comes round.
std::vector<std::string> TabRound(int Modifiers = 0) {
  std::vector<std::string> Names{FocusName()};
  for (int Guard = 0; Guard < 80; ++Guard) {
    PressKey(WXK_TAB, Modifiers);
    if (FocusName() == Names.front()) break;
    Names.push_back(FocusName());
  }
  return Names;
}

TEST_F(Keyboard, TabGoesRoundTheProjectUnitsInTheOrderOfTheLayout) {
  std::vector<std::string> Forward{"cbbUnitType"};
  for (const char* const Code : {"0", "7", "3", "1", "2", "6", "4", "5", "0"})
    Forward.push_back(std::string("BtnClassifyCode") + Code);
  for (const char* const Name : {"cbbSWFZGroup", "btnRestore", "btnOK", "btnCancel"}) Forward.push_back(Name);
  std::vector<std::string> Backward(Forward);
  std::reverse(Backward.begin() + 1, Backward.end());
  Driver.Next([&](wxDialog&) {
    EXPECT_EQ(TabRound(), Forward);
    EXPECT_EQ(TabRound(wxMOD_SHIFT), Backward);
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(Keyboard, TabGoesRoundTheFormatInTheOrderOfTheLayout) {
  EditFile([] {
    TUnit& Unit = *TSystemUnitDataManager::CurConfigMeasure(1)->GetCurUnit();
    Unit.CurRoundIndex = 7; // opens the increment
    Unit.GetCurRound()->SetIncrement(u"0.5");
    for (TCheckBoxSetting* const Box : {&Unit.UseProjectSetting, &Unit.Suppress0Feet, &Unit.SuppressSpace})
      Box->Enable = true;
  });
  InitialUnitSystem(File, CYAmInch, false);
  const std::vector<std::string> Forward{"cbbUnit", "cbbsheru", "edtPrecise", "cbbUnitCharacter",
                                         "ckXQHXZ", "ckXQLYC",  "ckZZXSJ",    "ckSYSWFZ",
                                         "ckXQKG",  "btnOK",    "btnCancel",  "ckPrjSetting"};
  std::vector<std::string> Backward(Forward);
  std::reverse(Backward.begin() + 1, Backward.end());
  Driver.Next([&](wxDialog&) {
    EXPECT_EQ(TabRound(), Forward);
    EXPECT_EQ(TabRound(wxMOD_SHIFT), Backward);
    PressKey(WXK_ESCAPE);
  });
  TSystemUnitFormatFrm::Execute(1, 500, 369, 100);
}

TEST_F(Keyboard, AltCAndAltGFromEveryControl) {
  Driver.Next([](wxDialog& Dialog) {
    for (const char* const From :
         {"cbbUnitType", "BtnClassifyCode0", "BtnClassifyCode5", "cbbSWFZGroup", "sgGridUnit"})
      for (const auto& [Key, To] : {std::pair{'C', "cbbUnitType"}, {'G', "cbbSWFZGroup"}}) {
        Control(Dialog, From).SetFocus();
        Settle();
        PressKey(Key, wxMOD_ALT);
        EXPECT_EQ(FocusName(), To) << From;
      }
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(Keyboard, OtherKeysAreNotHandled) {
  Driver.Next([](wxDialog& Dialog) {
    FocusOn(MeasureButton(Dialog, 7));
    PressKey('C');
    PressKey('C', wxMOD_CONTROL);
    PressKey('X', wxMOD_ALT);
    EXPECT_EQ(FocusName(), "BtnClassifyCode7");
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(Keyboard, AltKeysOfTheFormat) {
  InitialUnitSystem(File, CYAmInch, false);
  TUnit& Unit = *TSystemUnitDataManager::CurConfigMeasure(1)->GetCurUnit();
  Unit.CurRoundIndex = 7;
  Unit.GetCurRound()->SetIncrement(u"0.5");
  const char* const Controls[] = {"cbbUnit", "cbbsheru", "edtPrecise", "cbbUnitCharacter"};
  Driver.Next([&](wxDialog& Dialog) {
    for (const char* const From :
         {"cbbUnit", "cbbsheru", "edtPrecise", "cbbUnitCharacter", "ckZZXSJ", "btnOK"})
      for (int I = 0; I < 4; ++I) {
        FocusOn(Control(Dialog, From));
        PressKey("URIS"[I], wxMOD_ALT);
        EXPECT_EQ(FocusName(), Controls[I]) << From;
      }
    EXPECT_EQ(Control<wxTextCtrl>(Dialog, "edtPrecise").GetValue(), "0.5"); // nothing typed by the way
    PressKey(WXK_ESCAPE);
  });
  TSystemUnitFormatFrm::Execute(1, 500, 369, 100);
}

TEST_F(Keyboard, AltIAndAltSDoNothingWhileTheirControlIsDisabled) {
  InitialUnitSystem(File, CYAmInch, false);
  Driver.Next([](wxDialog&) {
    PressKey('I', wxMOD_ALT);
    EXPECT_EQ(FocusName(), "cbbUnit");
    PressKey('S', wxMOD_ALT);
    EXPECT_EQ(FocusName(), "cbbUnit");
    PressKey(WXK_ESCAPE);
  });
  TSystemUnitFormatFrm::Execute(3, 500, 369, 100); // feet and fractional inches
}

TEST_F(Keyboard, ArrowsMoveThroughTheGrid) {
  Driver.Next([](wxDialog& Dialog) {
    FocusOn(MeasureButton(Dialog, 7));
    const std::pair<int, const char*> Steps[] = {
        {WXK_DOWN, "BtnClassifyCode3"},  {WXK_UP, "BtnClassifyCode7"},   {WXK_END, "BtnClassifyCode0"},
        {WXK_UP, "BtnClassifyCode5"},    {WXK_HOME, "BtnClassifyCode0"}, {WXK_DOWN, "BtnClassifyCode7"},
        {WXK_PAGEUP, "BtnClassifyCode0"}};
    for (const auto& [Key, Name] : Steps) {
      PressKey(Key);
      EXPECT_EQ(FocusName(), Name) << Key;
    }
    PressKey(WXK_ESCAPE);
  });
  Execute();
}

TEST_F(Keyboard, FromTheGridToTheFormatAndBackWithoutTheMouse) {
  Driver.Next([](wxDialog& Dialog) {
    PressKey('C', wxMOD_ALT);
    for (int I = 0; I < 4; ++I) PressKey(WXK_TAB); // to "Elevation/Segment" and one more: "Area"
    EXPECT_EQ(FocusName(), "BtnClassifyCode1");
    PressKey(WXK_SPACE);
    EXPECT_EQ(FocusName(), "BtnClassifyCode1");
    EXPECT_EQ(Caption(Dialog, 1), "1234.568 [m2]");
    PressKey(WXK_DOWN);
    PressKey(WXK_RETURN);
    EXPECT_EQ(Caption(Dialog, 2), "1614.75 yd3");
    PressKey('C', wxMOD_ALT);
    PressKey(WXK_RETURN); // OK
  });
  Driver.Next([](wxDialog&) {
    PressKey('U', wxMOD_ALT);
    PressKey(WXK_DOWN);
    PressKey(WXK_DOWN);
    PressKey(WXK_RETURN);
  });
  Driver.Next([](wxDialog&) {
    PressKey('R', wxMOD_ALT);
    PressKey(WXK_UP); // 2 decimal places
    PressKey('S', wxMOD_ALT);
    PressKey(WXK_DOWN);
    PressKey(WXK_DOWN); // yd3
    while (FocusName() != "ckSYSWFZ") PressKey(WXK_TAB);
    PressKey(WXK_SPACE); // no digit grouping
    while (FocusName() != "btnOK") PressKey(WXK_TAB);
    PressKey(WXK_SPACE);
  });
  Execute();
  EXPECT_EQ(Calls, "unlock lock unlock lock ok ");
}

TEST_F(Keyboard, EnterInAListAcceptsAndItsPopUpIsSpaceOrAltDown) {
  Driver.Next([](wxDialog& Dialog) {
    PressKey(WXK_SPACE); // opens the list
    PressKey(WXK_DOWN);
    PressKey(WXK_RETURN); // chooses in it
    EXPECT_EQ(Selected(Dialog, "cbbUnitType"), "UK Imperial System");
    PressKey(WXK_DOWN, wxMOD_ALT);
    PressKey(WXK_DOWN);
    PressKey(WXK_ESCAPE); // closes the list, not the dialog
    EXPECT_EQ(Selected(Dialog, "cbbUnitType"), "UK Imperial System");
    EXPECT_TRUE(Dialog.IsModal());
    PressKey(WXK_RETURN);
  });
  Execute();
  EXPECT_EQ(Calls, "unlock lock unlock lock ok ");
  EXPECT_EQ(TSystemUnitDataManager::GetCurConfigIndex(), 1);
}

TEST_F(Keyboard, EnterOnCancelCancels) {
  Driver.Next([](wxDialog& Dialog) {
    FocusOn(Control(Dialog, "btnCancel"));
    PressKey(WXK_RETURN);
  });
  Execute();
  EXPECT_EQ(Calls, "unlock lock unlock lock unlock lock ");
}

} // namespace
} // namespace unitlib
