/// The Format dialog: what it shows, what its lists change, what it stores.
#include "tests/ui/UiFixture.h"

#include "unitlib/rtl/Errors.h"

#include <wx/choice.h>

namespace unitlib {
namespace {

using namespace test;

struct TValidityRow {
  const char* Name;
  std::u16string_view Text;
  bool Valid;
};
class FormatValidity : public ::testing::TestWithParam<TValidityRow> {};

TEST_P(FormatValidity, Increment) {
  EXPECT_EQ(TSystemUnitFormatFrm::IsValidity(GetParam().Text), GetParam().Valid);
}

INSTANTIATE_TEST_SUITE_P(Rows, FormatValidity,
                         ::testing::ValuesIn(std::vector<TValidityRow>{
                             {"Fraction", u"0.015625", true},
                             {"PlusBeforePoint", u"+1.5", true},
                             {"NoWhole", u".5", true},
                             {"NoFraction", u"5.", true},
                             {"PlusNoWhole", u"+.5", true},
                             {"PlusNoFraction", u"+5.", true},
                             {"Zero", u"0", true},
                             {"ZeroWithPoint", u"0.0", true},
                             {"TwelveDigits", u"123456789012", true},
                             {"TwelveBehindPoint", u"1.123456789012", true},
                             {"LongWholeBeforePoint", u"12345678901234567890.5", true},
                             {"PlusWithoutPoint", u"+5", false},
                             {"Minus", u"-1", false},
                             {"MinusWithPoint", u"-1.5", false},
                             {"Slash", u"1/16", false},
                             {"TwoPoints", u"1.2.3", false},
                             {"ThirteenDigits", u"1234567890123", false},
                             {"ThirteenBehindPoint", u"1.1234567890123", false},
                             {"Empty", u"", false},
                             {"PointOnly", u".", false},
                             {"PlusPoint", u"+.", false},
                             {"PlusOnly", u"+", false},
                             {"TwoPluses", u"++1.5", false},
                             {"PlusInside", u"1+1.5", false},
                             {"PlusBehindPoint", u"1.+5", false},
                             {"BlankInside", u"1 .5", false},
                             {"BlankAround", u" 1.5", false},
                             {"Exponent", u"1e5", false},
                             {"ExponentWithPoint", u"1.5E3", false},
                             {"Comma", u"1,000", false},
                             {"FullWidthDigit", u"\uFF11", false},
                             {"LoneSurrogate", std::u16string_view(u"\xD800", 1), false},
                             {"Nul", std::u16string_view(u"1\0.5", 4), false},
                         }),
                         [](const auto& Info) { return Info.param.Name; });

class FormatDialog : public TUiFixture {
protected:
  FormatDialog() { InitialUnitSystem(File, CYAmInch, false); }

  static bool Open(int ClassifyCode) { return TSystemUnitFormatFrm::Execute(ClassifyCode, 500, 369, 100); }
  static TMeasure& Measure(int ClassifyCode) {
    return *TSystemUnitDataManager::CurConfigMeasure(ClassifyCode);
  }
  static std::string Increment(wxDialog& Dialog) {
    return Control<wxTextCtrl>(Dialog, "edtPrecise").GetValue().utf8_string();
  }
  static bool IncrementOpen(wxDialog& Dialog) {
    return Control<wxTextCtrl>(Dialog, "edtPrecise").IsEnabled();
  }
  /// "E" enabled, "C" checked, for the six boxes in the order of their tags.
  static std::string Boxes(wxDialog& Dialog) {
    std::string Result;
    for (const char* const Name : {"ckPrjSetting", "ckXQHXZ", "ckXQLYC", "ckZZXSJ", "ckSYSWFZ", "ckXQKG"}) {
      const auto& Box = Control<TFormatCheckBox>(Dialog, Name);
      Result += std::string(Box.IsEnabled() ? "E" : "-") + (Box.GetValue() ? "C " : "- ");
    }
    return Result;
  }
};

TEST_F(FormatDialog, ShowsTheCurrentUnit) {
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Dialog.GetTitle(), "Format");
    EXPECT_EQ(Selected(Dialog, "cbbUnit"), "Square feet");
    EXPECT_EQ(Control<wxChoice>(Dialog, "cbbUnit").GetCount(), 5u);
    EXPECT_EQ(Selected(Dialog, "cbbsheru"), "3 decimal places");
    EXPECT_EQ(Control<wxChoice>(Dialog, "cbbsheru").GetCount(), 8u);
    EXPECT_EQ(Increment(Dialog), "0.001");
    EXPECT_FALSE(IncrementOpen(Dialog));
    EXPECT_EQ(Selected(Dialog, "cbbUnitCharacter"), "None");
    EXPECT_EQ(Boxes(Dialog), "-- E- -- E- EC -- ");
    PressKey(WXK_ESCAPE);
  });
  EXPECT_FALSE(Open(1));
}

TEST_F(FormatDialog, CheckBoxesCarryTagsOneToSix) {
  Driver.Next([](wxDialog& Dialog) {
    int Tag = 0;
    for (const char* const Name : {"ckPrjSetting", "ckXQHXZ", "ckXQLYC", "ckZZXSJ", "ckSYSWFZ", "ckXQKG"})
      EXPECT_EQ(Control<TFormatCheckBox>(Dialog, Name).Tag, ++Tag) << Name;
    PressKey(WXK_ESCAPE);
  });
  Open(1);
}

TEST_F(FormatDialog, UnitWithoutSymbolsDisablesTheirList) {
  Driver.Next([](wxDialog& Dialog) {
    auto& Symbols = Control<wxChoice>(Dialog, "cbbUnitCharacter");
    EXPECT_FALSE(Symbols.IsEnabled()); // feet and fractional inches
    EXPECT_EQ(Symbols.GetCount(), 0u);
    Choose(Dialog, "cbbUnit", 0); // decimal feet
    EXPECT_TRUE(Symbols.IsEnabled());
    EXPECT_EQ(Symbols.GetCount(), 4u);
    EXPECT_EQ(Selected(Dialog, "cbbUnitCharacter"), "None");
    PressKey(WXK_ESCAPE);
  });
  Open(3);
}

TEST_F(FormatDialog, RoundingChoosesWhatTheIncrementShows) {
  Driver.Next([](wxDialog& Dialog) {
    Choose(Dialog, "cbbsheru", 4);
    EXPECT_EQ(Increment(Dialog), "0.1");
    EXPECT_FALSE(IncrementOpen(Dialog));
    Choose(Dialog, "cbbsheru", 7);         // "Custom" keeps the text and opens it
    EXPECT_EQ(Increment(Dialog), "0.001"); // of the round passed on the way
    EXPECT_TRUE(IncrementOpen(Dialog));
    FocusOn(Control(Dialog, "edtPrecise"));
    TypeText("25");
    Choose(Dialog, "cbbsheru", 0);
    EXPECT_EQ(Increment(Dialog), "1000");
    EXPECT_FALSE(IncrementOpen(Dialog));
    PressKey(WXK_ESCAPE);
  });
  Open(1);
}

TEST_F(FormatDialog, FractionalRoundEmptiesAndClosesTheIncrement) {
  Measure(3).CurUnitIndex = 0; // decimal feet
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Increment(Dialog), "0.001");
    Choose(Dialog, "cbbUnit", 1); // feet and fractional inches
    EXPECT_EQ(Selected(Dialog, "cbbsheru"), "To the nearest 1/32\"");
    EXPECT_EQ(Increment(Dialog), "");
    EXPECT_FALSE(IncrementOpen(Dialog));
    Choose(Dialog, "cbbsheru", 3);
    EXPECT_EQ(Increment(Dialog), "");
    EXPECT_FALSE(IncrementOpen(Dialog));
    PressKey(WXK_ESCAPE);
  });
  Open(3);
}

TEST_F(FormatDialog, OpensWithStoredSwitchesButSwitchesUnitsToTheDefaultOnes) {
  TUnit& Feet = *Measure(1).GetUnit(0);
  Feet.ShowPlusForPosValue.Checked = true;
  Feet.UseDigitGroup.Checked = false;
  TUnit& Inches = *Measure(1).GetUnit(1);
  Inches.ShowPlusForPosValue.Checked = true;
  Inches.SuppressTrail0.Enable = false;
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Boxes(Dialog), "-- E- -- EC E- -- ");
    Choose(Dialog, "cbbUnit", 1);
    EXPECT_EQ(Boxes(Dialog), "-- E- -- E- E- -- "); // defaults of square inches
    Choose(Dialog, "cbbUnit", 0);
    EXPECT_EQ(Boxes(Dialog), "-- E- -- E- EC -- "); // defaults of square feet, not its stored states
    PressKey(WXK_ESCAPE);
  });
  Open(1);
}

TEST_F(FormatDialog, CheckBoxesDoNotInfluenceOneAnother) {
  Driver.Next([](wxDialog& Dialog) {
    for (const char* const Name : {"ckXQHXZ", "ckZZXSJ", "ckSYSWFZ"}) {
      FocusOn(Control(Dialog, Name));
      PressKey(WXK_SPACE);
    }
    EXPECT_EQ(Boxes(Dialog), "-- EC -- EC E- -- ");
    PressKey(WXK_ESCAPE);
  });
  Open(1);
}

TEST_F(FormatDialog, OKStoresEverything) {
  Driver.Next([](wxDialog& Dialog) {
    Choose(Dialog, "cbbUnit", 2);          // square meters
    Choose(Dialog, "cbbsheru", 7);         // custom
    Choose(Dialog, "cbbUnitCharacter", 1); // m2
    FocusOn(Control(Dialog, "ckZZXSJ"));
    PressKey(WXK_SPACE);
    FocusOn(Control(Dialog, "edtPrecise"));
    Control<wxTextCtrl>(Dialog, "edtPrecise").SelectAll();
    TypeText(" 0.25 ");
    Click(Dialog, "btnOK");
  });
  EXPECT_TRUE(Open(1));
  EXPECT_EQ(Measure(1).CurUnitIndex, 2);
  const TUnit& Unit = *Measure(1).GetCurUnit();
  EXPECT_EQ(Unit.CurRoundIndex, 7);
  EXPECT_EQ(Unit.GetCurRound()->Increment, u"0.25"); // trimmed
  EXPECT_EQ(Unit.Precision, 0.25);
  EXPECT_EQ(Unit.CurUnitSymbolIndex, 1);
  EXPECT_TRUE(Unit.ShowPlusForPosValue.Checked);
  EXPECT_TRUE(Unit.ShowPlusForPosValue.Enable);
  EXPECT_FALSE(Unit.Suppress0Feet.Enable);
  EXPECT_EQ(Measure(1).ExampleDisplayValue, u"+1234.50 m2"); // 1234.567... to the nearest 0.25
}

TEST_F(FormatDialog, IncrementOfZeroShowsTheValueUnrounded) {
  Driver.Next([](wxDialog& Dialog) {
    Choose(Dialog, "cbbUnit", 2);
    Choose(Dialog, "cbbsheru", 7);
    FocusOn(Control(Dialog, "edtPrecise"));
    Control<wxTextCtrl>(Dialog, "edtPrecise").SelectAll();
    TypeText("0");
    Click(Dialog, "btnOK");
  });
  EXPECT_TRUE(Open(1));
  EXPECT_EQ(Measure(1).ExampleDisplayValue, u"1234.56789012345");
}

TEST_F(FormatDialog, CancelLeavesMeasureUnitsAndExample) {
  const int Round = Measure(1).GetCurUnit()->CurRoundIndex;
  TSystemUnitDataManager::UpdateDispalyValue();
  const std::u16string Example = Measure(1).ExampleDisplayValue;
  for (const bool CloseBox : {false, true}) {
    Driver.Next([&](wxDialog& Dialog) {
      Choose(Dialog, "cbbsheru", 2);
      Choose(Dialog, "cbbUnit", 3);
      if (CloseBox)
        Dialog.Close();
      else
        Click(Dialog, "btnCancel");
    });
    EXPECT_FALSE(Open(1));
    EXPECT_EQ(Measure(1).CurUnitIndex, 0);
    EXPECT_EQ(Measure(1).GetCurUnit()->CurRoundIndex, Round);
    EXPECT_EQ(Measure(1).ExampleDisplayValue, Example);
  }
}

TEST_F(FormatDialog, UnitWithoutRoundsShowsAnEmptyClosedIncrement) {
  TMeasure& Weight = *TSystemUnitDataManager::CurConfig()->Measure(8, false);
  Weight.ClassifyCode = 8;
  Weight.CurUnitIndex = 0; // kilograms per meter: no rounds, no symbols
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Control<wxChoice>(Dialog, "cbbsheru").GetCount(), 0u);
    EXPECT_EQ(Increment(Dialog), "");
    EXPECT_FALSE(IncrementOpen(Dialog));
    Click(Dialog, "btnOK");
  });
  EXPECT_TRUE(Open(8));
  EXPECT_EQ(Weight.CurUnitIndex, 0);
}

TEST_F(FormatDialog, MeasureWithoutUnitCanBeGivenOne) {
  TMeasure& Weight = *TSystemUnitDataManager::CurConfig()->Measure(8, false);
  Weight.ClassifyCode = 8;
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Selected(Dialog, "cbbUnit"), "");
    EXPECT_EQ(Boxes(Dialog), "-- -- -- -- -- -- ");
    Choose(Dialog, "cbbUnit", 1);
    EXPECT_EQ(Boxes(Dialog), "-- E- -- E- E- -- ");
    Click(Dialog, "btnOK");
  });
  EXPECT_TRUE(Open(8));
  EXPECT_EQ(Weight.CurUnitIndex, 1);
}

TEST_F(FormatDialog, UnknownCodeRaises) {
  try {
    Open(99);
    ADD_FAILURE() << "no error";
  } catch (const EConvertError& E) {
    EXPECT_EQ(E.Text(), u"99");
  }
}

TEST_F(FormatDialog, FailureWhileStoringPutsTheMeasureBack) {
  TMeasure& Area = Measure(1);
  Area.ExampleValue = u"no number";
  Area.ExampleDisplayValue = u"as before";
  Driver.Next([](wxDialog& Dialog) {
    Choose(Dialog, "cbbUnit", 2);
    Choose(Dialog, "cbbsheru", 7);
    Choose(Dialog, "cbbUnitCharacter", 1);
    FocusOn(Control(Dialog, "ckZZXSJ"));
    PressKey(WXK_SPACE);
    Click(Dialog, "btnOK");
  });
  EXPECT_THROW(Open(1), EConvertError);
  EXPECT_EQ(Area.CurUnitIndex, 0);
  EXPECT_EQ(Area.ExampleDisplayValue, u"as before");
  const TUnit& Meters = *Area.GetUnit(2);
  EXPECT_EQ(Meters.CurRoundIndex, 6);
  EXPECT_EQ(Meters.CurUnitSymbolIndex, 0);
  EXPECT_EQ(Meters.Precision, 0.0);
  EXPECT_EQ(Meters.GetRound(7)->Increment, u"");
  EXPECT_FALSE(Meters.ShowPlusForPosValue.Checked);
}

TEST_F(FormatDialog, StandsRightOfItsAnchorOrLeftOfIt) {
  wxPoint Right, Left;
  int Width = 0;
  Driver.Next([&](wxDialog& Dialog) {
    Right = Dialog.GetPosition();
    Width = Dialog.GetSize().x;
    PressKey(WXK_ESCAPE);
  });
  TSystemUnitFormatFrm::Execute(1, 500, 369, 100);
  EXPECT_EQ(Right, wxPoint(510, 100));
  Driver.Next([&](wxDialog& Dialog) {
    Left = Dialog.GetPosition();
    PressKey(WXK_ESCAPE);
  });
  TSystemUnitFormatFrm::Execute(1, 1100, 369, 120); // the screen is 1280 wide
  EXPECT_EQ(Left, wxPoint(1100 - Width - 369 - 10, 120));
}

} // namespace
} // namespace unitlib
