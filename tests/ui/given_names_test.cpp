/// Names of the dialogs that hosts and settings know them by, odd spellings included: a helpful correction
/// fails here.
#include "tests/ui/UiFixture.h"

#include <wx/choice.h>

#include <gmock/gmock.h>

namespace unitlib {
namespace {

using namespace test;

// A name that is gone does not compile.
[[maybe_unused]] constexpr auto Methods = [] {
  static_cast<void>(&TSystemUnitFram::ShowFormateSetting); // sic
  static_cast<void>(&TSystemUnitFram::cbbSWFZGroupChange);
  static_cast<void>(&TSystemUnitFormatFrm::UpdateSheruList);    // sic
  static_cast<void>(&TSystemUnitFormatFrm::cbbsheruChange);     // sic
  static_cast<void>(&TSystemUnitFormatFrm::TransfromDataValue); // sic
  static_cast<void>(&TSystemUnitFormatFrm::IsValidity);         // sic
  static_cast<void>(&TSystemUnitFormatFrm::InitCheckboxState);
  static_cast<void>(&TSystemUnitFormatFrm::UpdateCheckBoxState); // another capital than its sister
  return 0;
};

class GivenNames : public TUiFixture {};

TEST_F(GivenNames, WindowsOfTheProjectUnits) {
  Driver.Next([](wxDialog& Dialog) {
    for (const char* const Name :
         {"SystemUnitFram", "cbbUnitType", "sgGridUnit", "cbbSWFZGroup", "btnRestore", "btnOK", "btnCancel",
          "BtnClassifyCode0", "BtnClassifyCode7", "BtnClassifyCode3", "BtnClassifyCode1", "BtnClassifyCode2",
          "BtnClassifyCode6", "BtnClassifyCode4", "BtnClassifyCode5"})
      EXPECT_NE(wxWindow::FindWindowByName(Name, &Dialog), nullptr) << Name;
    EXPECT_EQ(Dialog.GetName(), "SystemUnitForm");
    Dialog.Close();
  });
  Execute();
}

TEST_F(GivenNames, WindowsOfTheFormat) {
  InitialUnitSystem(File, CYAmInch, false);
  Driver.Next([](wxDialog& Dialog) {
    for (const char* const Name :
         {"ckPrjSetting", "cbbUnit", "cbbsheru", "edtPrecise", "cbbUnitCharacter", "ckXQHXZ", "ckXQLYC",
          "ckZZXSJ", "ckSYSWFZ", "ckXQKG", "btnOK", "btnCancel"})
      EXPECT_NE(wxWindow::FindWindowByName(Name, &Dialog), nullptr) << Name;
    EXPECT_EQ(Dialog.GetName(), "SystemUnitFormatFrm");
    Dialog.Close();
  });
  TSystemUnitFormatFrm::Execute(1, 500, 369, 100);
}

/// Every text of a dialog, as the user reads it.
void CollectTexts(const wxWindow& Parent, std::vector<std::string>& Texts) {
  for (const wxWindow* const Child : Parent.GetChildren()) {
    if (!dynamic_cast<const wxChoice*>(Child)) Texts.push_back(Child->GetLabel().utf8_string());
    CollectTexts(*Child, Texts);
  }
}

void ExpectTexts(wxDialog& Dialog, std::initializer_list<const char*> Expected) {
  std::vector<std::string> Texts;
  CollectTexts(Dialog, Texts);
  for (const char* const Text : Expected) EXPECT_THAT(Texts, ::testing::Contains(Text));
}

TEST_F(GivenNames, TextsOfBothDialogs) {
  Driver.Next([](wxDialog& Dialog) {
    ExpectTexts(Dialog, {" Config: ", "Decimal Symbol/Digit Grouping:", "Default", "OK", "Cancel"});
    ClickOn(MeasureButton(Dialog, 1));
    Dialog.Close();
  });
  Driver.Next([](wxDialog& Dialog) {
    ExpectTexts(Dialog,
                {"Use Project Settings", "Units:", " Rounding:", "Rounding Increment:", "Unit Symbol:",
                 "Suppress trailing 0's", "Suppress 0 feet", "Show + for positive values",
                 "Use digit grouping", "Suppress spaces", "OK", "Cancel"});
    Dialog.Close();
  });
  Execute();
}

} // namespace
} // namespace unitlib
