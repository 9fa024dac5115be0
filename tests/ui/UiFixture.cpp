#include "tests/ui/UiFixture.h"

#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Text.h"

#include <wx/choice.h>

namespace unitlib::test {

TUiFixture::TUiFixture()
    : File(Folders.File("project.xml")),
      Host(new wxFrame(nullptr, wxID_ANY, "Host", wxPoint(300, 200), wxSize(600, 500))) {
  GenerateUnitDefaultConfigFile(File);
  EditFile([] { TSystemUnitDataManager::SetCurConfig(CYAmInch); });
  Host->SetName("Host");
  Host->Show();
  Settle();
}

TUiFixture::~TUiFixture() {
  FreeUnitSystem();
  SetPromptHook({});
  delete Host;
  Settle(10);
}

void TUiFixture::EditFile(const std::function<void()>& Edit) {
  TSystemUnitDataManager::InitUnitSystemSetting(File);
  Edit();
  TSystemUnitDataManager::SaveConfigFile(u"");
  FreeUnitSystem();
}

void TUiFixture::ReplaceInFile(const std::string& Old, const std::string& New) {
  std::string Content = Bytes();
  size_t Count = 0;
  for (size_t At = 0; (At = Content.find(Old, At)) != std::string::npos; At += New.size(), ++Count)
    Content.replace(At, Old.size(), New);
  ASSERT_GT(Count, 0u) << Old;
  WriteBytes(File, Content);
}

bool TUiFixture::HandleLock(std::u16string_view FileName, bool Lock) {
  EXPECT_EQ(FileName, File);
  Calls += Lock ? "lock " : "unlock ";
  const auto Do = DuringLock; // a copy: it may replace itself
  Do(Lock);
  return true;
}

void TUiFixture::HandleOK() {
  Calls += "ok ";
  const auto Do = DuringOK;
  Do();
}

wxButton& MeasureButton(wxDialog& Dialog, int ClassifyCode) {
  return Find<wxButton>(Dialog, wxString::Format("BtnClassifyCode%d", ClassifyCode));
}

std::string Caption(wxDialog& Dialog, int ClassifyCode) {
  return MeasureButton(Dialog, ClassifyCode).GetLabelText().utf8_string();
}

std::string Selected(wxDialog& Dialog, const char* ListName) {
  return Control<wxChoice>(Dialog, ListName).GetStringSelection().utf8_string();
}

void Choose(wxDialog& Dialog, const char* ListName, int Item) {
  auto& List = Control<wxChoice>(Dialog, ListName);
  FocusOn(List);
  for (int Guard = 0; List.GetSelection() != Item && Guard < 50; ++Guard)
    PressKey(List.GetSelection() < Item ? WXK_DOWN : WXK_UP);
  EXPECT_EQ(List.GetSelection(), Item);
}

void Click(wxDialog& Dialog, const char* ButtonName) {
  ClickOn(Control<wxButton>(Dialog, ButtonName));
}

void ExpectNothingOverlapsOrIsCut(wxWindow& Parent) {
  const bool Scrolls = Parent.GetName() == "sgGridUnitCells";
  const wxRect Client(wxPoint(0, 0), Parent.GetClientSize());
  const auto& Children = Parent.GetChildren();
  for (wxWindow* const Child : Children) {
    const wxRect Place = Child->GetRect();
    if (!Scrolls) {
      EXPECT_TRUE(Client.Contains(Place))
          << Child->GetName().utf8_string() << " leaves " << Parent.GetName().utf8_string();
    }
    for (wxWindow* const Other : Children)
      if (Other != Child) {
        EXPECT_FALSE(Place.Intersects(Other->GetRect()))
            << Child->GetName().utf8_string() << " over " << Other->GetName().utf8_string();
      }
    const wxSize Best = Child->GetBestSize();
    const int Spare = dynamic_cast<wxButton*>(Child) ? 4 : 0; // a button's own least width is not its text
    if (Child->GetChildren().empty() && !dynamic_cast<wxTextCtrl*>(Child) &&
        !dynamic_cast<wxChoice*>(Child)) {
      EXPECT_GE(Place.width + Spare, Best.x) << Child->GetLabel().utf8_string();
      EXPECT_GE(Place.height, Best.y) << Child->GetLabel().utf8_string();
    }
    ExpectNothingOverlapsOrIsCut(*Child);
  }
}

} // namespace unitlib::test
