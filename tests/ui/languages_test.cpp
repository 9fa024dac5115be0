/// The dialogs in another language: every text comes from the host's source, nothing is cut.
#include "tests/ui/UiFixture.h"

#include "unitlib/rtl/Text.h"
#include "unitlib/rtl/UserTexts.h"

#include <set>

namespace unitlib {
namespace {

using namespace test;

class Languages : public TUiFixture {
protected:
  Languages() { LoadTextTable(SourceFile("examples/texts/zh.txt").u16string()); }
  ~Languages() override { LoadTextTable(u""); }
};

std::string Shown(TUiText Id) {
  return ToUtf8(UiText(Id));
}

TEST_F(Languages, ProjectUnitsInChinese) {
  Driver.Next([](wxDialog& Dialog) {
    ExpectNothingOverlapsOrIsCut(Dialog);
    EXPECT_EQ(Dialog.GetTitle().utf8_string(), Shown(TUiText::ProjectUnits));
    EXPECT_EQ(Control(Dialog, "btnCancel").GetLabel().utf8_string(), Shown(TUiText::Cancel));
    EXPECT_NE(Shown(TUiText::Cancel), "Cancel");
    EXPECT_EQ(Selected(Dialog, "cbbUnitType"), "US Imperial System") << "a key of the settings stays";
    SaveScreenshot("languages_project_units");
    Click(Dialog, "btnCancel");
  });
  Execute();
}

TEST_F(Languages, FormatInChinese) {
  InitialUnitSystem(File, CYAmInch, false);
  Driver.Next([](wxDialog& Dialog) {
    ExpectNothingOverlapsOrIsCut(Dialog);
    EXPECT_EQ(Control(Dialog, "ckXQHXZ").GetLabel().utf8_string(), Shown(TUiText::SuppressTrailing0));
    SaveScreenshot("languages_format");
    PressKey(WXK_ESCAPE);
  });
  TSystemUnitFormatFrm::Execute(1, 500, 369, 100);
}

/// Writes down which keys are asked for.
std::u16string Note(void* Context, std::u16string_view Key, std::u16string_view) {
  static_cast<std::set<std::u16string>*>(Context)->emplace(Key);
  return u"<" + std::u16string(Key) + u">";
}

TEST_F(Languages, EveryTextIsAskedForByItsKey) {
  std::set<std::u16string> Asked, Table;
  SetTextSource(TTextSource::Of<&Note>(&Asked));
  Driver.Next([&](wxDialog& Dialog) {
    Driver.Next([](wxDialog& Format) {
      Choose(Format, "cbbsheru", 7); // Custom
      FocusOn(Control(Format, "edtPrecise"));
      TypeText("1..2");
      PressKey(WXK_RETURN);
      PressKey(WXK_ESCAPE);
    });
    ClickOn(MeasureButton(Dialog, 1));
    PressKey(WXK_ESCAPE);
  });
  Execute();
  SetTextSource({});
  for (const TUiTextRow& Row : UiTexts)
    if (!Row.Key.empty()) Table.emplace(Row.Key);
  EXPECT_EQ(Asked, Table);
  EXPECT_EQ(Driver.Boxes, std::vector<std::string>{"<dialog.format>: <dialog.invalid-input>"});
}

std::u16string Fail(void*, std::u16string_view, std::u16string_view) {
  throw std::runtime_error("no texts today");
}

TEST_F(Languages, AFailingSourceEndsTheDialogAndNothingElse) {
  const std::string Before = Bytes();
  SetTextSource(TTextSource::Of<&Fail>(nullptr));
  EXPECT_THROW(Execute(), std::runtime_error);
  SetTextSource({});
  EXPECT_EQ(Bytes(), Before);
  Driver.Next([](wxDialog& Dialog) { Click(Dialog, "btnCancel"); });
  Execute();
  EXPECT_EQ(Driver.DialogsOpened, 1);
}

} // namespace
} // namespace unitlib
