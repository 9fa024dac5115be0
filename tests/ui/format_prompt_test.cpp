/// The prompt for a bad increment: when it comes, how often, and that nothing is written meanwhile.
#include "tests/ui/UiFixture.h"

#include <wx/choice.h>

namespace unitlib {
namespace {

using namespace test;

constexpr const char* Prompt = "Format: Invalid input, please input again.";

class FormatPrompt : public TUiFixture {
protected:
  FormatPrompt() {
    InitialUnitSystem(File, CYAmInch, false);
    Unit().CurRoundIndex = 7; // custom
    Unit().GetCurRound()->SetIncrement(u"0.5");
  }
  static TUnit& Unit() { return *TSystemUnitDataManager::CurConfigMeasure(1)->GetCurUnit(); }
  static bool Open() { return TSystemUnitFormatFrm::Execute(1, 500, 369, 100); }
  static wxTextCtrl& Edit(wxDialog& Dialog) { return Control<wxTextCtrl>(Dialog, "edtPrecise"); }
  static void Type(wxDialog& Dialog, const char* Text) {
    FocusOn(Edit(Dialog));
    Edit(Dialog).SelectAll();
    PressKey(WXK_DELETE);
    TypeText(Text);
  }
  /// One prompt, the dialog still open with the focus in the edit, nothing written.
  void ExpectPromptedOnce(wxDialog& Dialog) {
    WaitFor([&] { return FocusName() == "edtPrecise"; });
    Settle(120);
    EXPECT_EQ(Driver.Boxes, std::vector<std::string>{Prompt});
    EXPECT_TRUE(Dialog.IsModal());
    EXPECT_EQ(FocusName(), "edtPrecise");
    EXPECT_EQ(Unit().GetCurRound()->Increment, u"0.5");
  }
};

struct TLeaveRow {
  const char* Name;
  std::function<void(wxDialog&)> Leave;
};
class FormatPromptOn : public FormatPrompt, public ::testing::WithParamInterface<TLeaveRow> {};

TEST_P(FormatPromptOn, InvalidTextPromptsOnceAndKeepsTheDialog) {
  Driver.Next([&](wxDialog& Dialog) {
    Type(Dialog, "1/16");
    GetParam().Leave(Dialog);
    ExpectPromptedOnce(Dialog);
    PressKey(WXK_ESCAPE);
  });
  EXPECT_FALSE(Open());
  EXPECT_EQ(Driver.Boxes.size(), 1u);
}

TEST_P(FormatPromptOn, ValidTextNeverPrompts) {
  Driver.Next([&](wxDialog& Dialog) {
    Type(Dialog, "0.25");
    GetParam().Leave(Dialog);
    ReleaseMouse();
    Settle(120);
    if (Dialog.IsModal()) Dialog.Close();
  });
  Open();
  EXPECT_TRUE(Driver.Boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Ways, FormatPromptOn,
    ::testing::Values(TLeaveRow{"Enter", [](wxDialog&) { PressKey(WXK_RETURN); }},
                      TLeaveRow{"NumpadEnter", [](wxDialog&) { PressKey(WXK_NUMPAD_ENTER); }},
                      TLeaveRow{"OKByMouse", [](wxDialog& D) { Click(D, "btnOK"); }},
                      TLeaveRow{"OKByFocus", [](wxDialog& D) { Control(D, "btnOK").SetFocus(); }},
                      TLeaveRow{"Tab", [](wxDialog&) { PressKey(WXK_TAB); }},
                      TLeaveRow{"ShiftTab", [](wxDialog&) { PressKey(WXK_TAB, wxMOD_SHIFT); }},
                      TLeaveRow{"AltU", [](wxDialog&) { PressKey('U', wxMOD_ALT); }},
                      TLeaveRow{"CheckBoxByMouse", [](wxDialog& D) { ClickOn(Control(D, "ckZZXSJ")); }},
                      TLeaveRow{"ListByMouse", [](wxDialog& D) { PressMouseOn(Control(D, "cbbUnit")); }}),
    [](const auto& Info) { return Info.param.Name; });

struct TCancelRow {
  const char* Name;
  std::function<void(wxDialog&)> Leave;
};
class FormatCancel : public FormatPrompt, public ::testing::WithParamInterface<TCancelRow> {};

TEST_P(FormatCancel, NeverPrompts) {
  for (const char* const Text : {"", "1/16", "."}) {
    Driver.Next([&](wxDialog& Dialog) {
      Type(Dialog, Text);
      GetParam().Leave(Dialog);
    });
    EXPECT_FALSE(Open());
  }
  EXPECT_TRUE(Driver.Boxes.empty());
  EXPECT_EQ(Unit().GetCurRound()->Increment, u"0.5");
}

INSTANTIATE_TEST_SUITE_P(Ways, FormatCancel,
                         ::testing::Values(TCancelRow{"Button", [](wxDialog& D) { Click(D, "btnCancel"); }},
                                           TCancelRow{"Escape", [](wxDialog&) { PressKey(WXK_ESCAPE); }},
                                           TCancelRow{"CloseBox", [](wxDialog& D) { D.Close(); }}),
                         [](const auto& Info) { return Info.param.Name; });

TEST_F(FormatPrompt, EmptyEnabledIncrementIsInvalid) {
  Unit().GetCurRound()->SetIncrement(u"");
  Driver.Next([&](wxDialog&) {
    PressKey(WXK_RETURN); // from the unit list: the OK button
    EXPECT_EQ(Driver.Boxes, std::vector<std::string>{Prompt});
    EXPECT_TRUE(WaitFor([] { return FocusName() == "edtPrecise"; }));
    PressKey(WXK_ESCAPE);
  });
  EXPECT_FALSE(Open());
}

TEST_F(FormatPrompt, DisabledIncrementIsNotTested) {
  Unit().CurRoundIndex = 6;
  Driver.Next([](wxDialog& Dialog) { Click(Dialog, "btnOK"); });
  EXPECT_TRUE(Open());
  EXPECT_TRUE(Driver.Boxes.empty());
}

TEST_F(FormatPrompt, BlanksAroundTheTextAreCutExceptOnEnter) {
  Driver.Next([&](wxDialog& Dialog) {
    Type(Dialog, " 0.25 ");
    PressKey(WXK_TAB);
    EXPECT_TRUE(Driver.Boxes.empty());
    FocusOn(Edit(Dialog));
    PressKey(WXK_RETURN); // tests the text as it stands
    EXPECT_EQ(Driver.Boxes.size(), 1u);
    Click(Dialog, "btnOK");
  });
  EXPECT_TRUE(Open());
  EXPECT_EQ(Unit().GetCurRound()->Increment, u"0.25");
}

TEST_F(FormatPrompt, EnterStoresAndCloses) {
  Driver.Next([&](wxDialog& Dialog) {
    Type(Dialog, "0.25");
    PressKey(WXK_RETURN);
  });
  EXPECT_TRUE(Open());
  EXPECT_EQ(Unit().GetCurRound()->Increment, u"0.25");
  EXPECT_EQ(Unit().Precision, 0.25);
}

TEST_F(FormatPrompt, MessageBoxIsShownAndClosedByKey) {
  Driver.ShowMessageBoxes();
  Driver.Next([&](wxDialog& Dialog) {
    Type(Dialog, "1/16");
    PressKey(WXK_RETURN);
    EXPECT_TRUE(WaitFor([] { return FocusName() == "edtPrecise"; }));
    TypeText("2.");
    PressKey(WXK_RETURN);
  });
  Driver.Next([](wxDialog&) {
    SaveScreenshot("prompt");
    PressKey(WXK_RETURN);
  });
  EXPECT_TRUE(Open());
  EXPECT_EQ(Driver.Boxes, std::vector<std::string>{Prompt});
  EXPECT_EQ(Unit().GetCurRound()->Increment, u"2.");
}

struct TPromptHost {
  std::vector<std::u16string> Said;
  void Show(std::u16string_view Text, std::u16string_view Title) {
    Said.push_back(std::u16string(Title) + u": " + std::u16string(Text));
  }
};

TEST_F(FormatPrompt, HostsHookReplacesTheBox) {
  TPromptHost HostPrompt;
  SetPromptHook(MethodOf<&TPromptHost::Show>(&HostPrompt));
  Driver.Next([&](wxDialog& Dialog) {
    Type(Dialog, "1/16");
    PressKey(WXK_RETURN);
    EXPECT_EQ(FocusName(), "edtPrecise");
    PressKey(WXK_ESCAPE);
  });
  EXPECT_FALSE(Open());
  EXPECT_TRUE(Driver.Boxes.empty());
  EXPECT_EQ(HostPrompt.Said, std::vector<std::u16string>{u"Format: Invalid input, please input again."});
}

} // namespace
} // namespace unitlib
