#include "unitlib/ui/ZELUnitFram.h"

#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/ui/Controls.h"
#include "unitlib/ui/FileLock.h"
#include "unitlib/ui/StringGrid.h"
#include "unitlib/ui/Toolkit.h"
#include "unitlib/ui/UnitDialog.h"
#include "unitlib/ui/ZELUnitFormatFrm.h"
#include "unitlib/ui/ZELUnitFrm.h"

#include <wx/display.h>

#include <algorithm>

namespace unitlib {
namespace {

// The design, in pixels at 96 dpi.
constexpr int ClientWidth = 369;
constexpr int ClientHeight = 412;
constexpr int TopHeight = 41;
constexpr int MiddleHeight = 280;
constexpr int BottomHeight = ClientHeight - TopHeight - MiddleHeight;
constexpr int RowHeight = 24;
constexpr int FrameHeight = 60;          // kept free for title bar and borders when the screen is low
constexpr int MaxDescriptionWidth = 320; // a longer one is shown with an ellipsis and a tip

wxString ButtonName(int ClassifyCode) {
  return wxString::Format("BtnClassifyCode%d", ClassifyCode);
}

/// Example text and default unit character; without the latter when the measure has no current unit, and
/// nothing at all when its example cannot be shown.
std::u16string MeasureCaption(const TMeasure& Measure) {
  TUnit* const Unit = Measure.UnitContainer.Find(Measure.CurUnitIndex);
  if (Measure.ExampleDisplayValue.empty() || !Unit) return Measure.ExampleDisplayValue;
  return Measure.ExampleDisplayValue + GetDefUnitCharacter(Unit);
}

} // namespace

TMeasureButton::TMeasureButton(wxWindow* Parent, int ClassifyCode)
    : wxButton(Parent, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT,
               wxDefaultValidator, ButtonName(ClassifyCode)),
      Tag(ClassifyCode) {}

void UpdateExamples() {
  TSystemUnitDataManager::CurConfig();
  try {
    TSystemUnitDataManager::UpdateDispalyValue();
  } catch (const EUnitError&) {
    // Every measure has been tried; the texts of those that failed are empty.
  }
}

TSystemUnitFram::TSystemUnitFram(wxWindow* Owner, std::u16string_view FileName)
    : wxPanel(Owner, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "SystemUnitFram"),
      FFileName(FileName), FScale(*Owner) {
  CreateTop();
  CreateMiddle();
  CreateBottom();
  BindEvents();
}

void TSystemUnitFram::Connect(TConfigueType ConfigType, const TLockFileFunc& LockFile) {
  FConfigType = ConfigType;
  FLockFile = LockFile;
}

template <class TBody> void TSystemUnitFram::Guard(TBody Body) {
  if (TUnitDialog* const Dialog = TUnitDialog::Of(this))
    Dialog->Guard(Body);
  else
    Body(); // a host that builds the frame into a window of its own keeps the errors itself
}

void TSystemUnitFram::CreateTop() {
  FTop = AddPanel(this, "pnlTop");
  wxStaticText* const Label = AddLabel(FTop, TUiText::Config);
  cbbUnitType = AddCombo(FTop, "cbbUnitType");
  FTopPlaces = {{Label, 10, 14}, {cbbUnitType, 127, 10, 217, ComboHeight, 232}};
}

void TSystemUnitFram::CreateMiddle() {
  FMiddle = AddPanel(this, "pnlMiddle");
  sgGridUnit =
      new TStringGrid(FMiddle, "sgGridUnit", [this](const std::function<void()>& Body) { Guard(Body); });
}

void TSystemUnitFram::CreateBottom() {
  FBottom = AddPanel(this, "pnlBottom");
  wxStaticText* const Label = AddLabel(FBottom, TUiText::DigitGrouping);
  cbbSWFZGroup = AddCombo(FBottom, "cbbSWFZGroup");
  btnRestore = AddButton(FBottom, wxID_ANY, TUiText::Default, "btnRestore");
  btnOK = AddButton(FBottom, wxID_OK, TUiText::OK, "btnOK");
  btnCancel = AddButton(FBottom, wxID_CANCEL, TUiText::Cancel, "btnCancel");
  btnOK->SetDefault();
  FBottomPlaces = {{Label, 6, 12},
                   {cbbSWFZGroup, 6, 31, 185, ComboHeight, 250},
                   {btnRestore, 266, 31, 81, 23, 0, true},
                   {btnOK, 177, 60, 83, 25, 0, true},
                   {btnCancel, 266, 60, 83, 25, 0, true}};
}

void TSystemUnitFram::BindEvents() {
  const auto OnCommand = [this](auto Type, wxWindow* Control, void (TSystemUnitFram::*Handler)()) {
    Control->Bind(Type, [this, Handler](wxCommandEvent&) { Guard([this, Handler] { (this->*Handler)(); }); });
  };
  OnCommand(wxEVT_CHOICE, cbbUnitType, &TSystemUnitFram::cbbUnitTypeChange);
  OnCommand(wxEVT_CHOICE, cbbSWFZGroup, &TSystemUnitFram::cbbSWFZGroupChange);
  OnCommand(wxEVT_BUTTON, btnRestore, &TSystemUnitFram::btnRestoreClick);
  OnCommand(wxEVT_BUTTON, btnOK, &TSystemUnitFram::btnOKClick);
  OnCommand(wxEVT_BUTTON, btnCancel, &TSystemUnitFram::btnCancelClick);
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& Event) { Guard([&] { CustomKeyDown(Event); }); });
  Bind(wxEVT_SIZE, [this](wxSizeEvent& Event) {
    Event.Skip();
    Guard([this] { PlacePanels(); });
  });
}

bool TSystemUnitFram::DoLockFile(std::u16string_view FileName, bool Lock) const {
  return FLockFile ? FLockFile(FileName, Lock) : true;
}

void TSystemUnitFram::InitGridStyles() {
  CreateRows();
  InitGroupData(); // before the sizes are computed, which depend on what the lists hold
  FTopPlacing.emplace(FScale, wxSize(ClientWidth, TopHeight), FTopPlaces);
  FBottomPlacing.emplace(FScale, wxSize(ClientWidth, BottomHeight), FBottomPlaces);
  Refresh();
}

void TSystemUnitFram::CreateRows() {
  const TConfig& Config = *TSystemUnitDataManager::CurConfig();
  FButtons.clear();
  sgGridUnit->SetCounts(2, Config.MeasureCount() + 1);
  sgGridUnit->SetCell(0, 0, ToWx(UiText(TUiText::GridUnits)));
  sgGridUnit->SetCell(1, 0, ToWx(UiText(TUiText::GridFormat)));
  for (int I = 0; I < Config.MeasureCount(); ++I) CreateRow(I + 1, *Config.Measure(I, false));
}

void TSystemUnitFram::CreateRow(int Row, const TMeasure& Measure) {
  sgGridUnit->SetCell(0, Row, ToWx(Measure.Description));
  auto* const Button = new TMeasureButton(sgGridUnit->Cells(), Measure.ClassifyCode);
  FButtons.push_back(Button);
  SetCaption(*Button, Measure);
  Button->Bind(wxEVT_BUTTON,
               [this, Button](wxCommandEvent&) { Guard([&] { ShowFormateSetting(*Button); }); });
  sgGridUnit->SetControl(Row, Button);
}

void TSystemUnitFram::InitGroupData() {
  cbbSWFZGroup->Clear();
  for (int I = 0; I < TSystemUnitDataManager::DigitGroupCount(); ++I)
    cbbSWFZGroup->Append(ToWx(TSystemUnitDataManager::DigitGroup(I)->Description));
  SelectItem(*cbbSWFZGroup, TSystemUnitDataManager::GetCurDigitGroupIndex());
  cbbUnitType->Clear();
  for (const auto& Config : TSystemUnitDataManager::CurUseUnitConfigContainer())
    cbbUnitType->Append(ToWx(Config->Description));
  SelectItem(*cbbUnitType, TSystemUnitDataManager::GetCurConfigIndex());
}

void TSystemUnitFram::Refresh() {
  if (!ShowsMeasuresOfCurConfig()) CreateRows();
  const TConfig& Config = *TSystemUnitDataManager::CurConfig();
  for (const auto& Measure : Config.MeasureContainer)
    if (TSystemUnitDataManager::CurConfigMeasure(Measure->ClassifyCode) ==
        Measure.get()) // the first of its code
      RefreshCaption(*Measure);
  FitForm();
}

void TSystemUnitFram::Refresh(int ClassifyCode) {
  const TMeasure* const Measure = TSystemUnitDataManager::CurConfigMeasure(ClassifyCode);
  if (!Measure) return;
  RefreshCaption(*Measure);
  FitForm();
}

void TSystemUnitFram::Refresh(bool EraseBackground, const wxRect* Rect) {
  wxPanel::Refresh(EraseBackground, Rect);
}

bool TSystemUnitFram::ShowsMeasuresOfCurConfig() const {
  const TConfig& Config = *TSystemUnitDataManager::CurConfig();
  if (static_cast<size_t>(Config.MeasureCount()) != FButtons.size()) return false;
  for (int I = 0; I < Config.MeasureCount(); ++I) {
    const TMeasure& Measure = *Config.Measure(I, false);
    if (FButtons[static_cast<size_t>(I)]->Tag != Measure.ClassifyCode) return false;
    if (sgGridUnit->Cell(0, I + 1) != ToWx(Measure.Description)) return false;
  }
  return true;
}

void TSystemUnitFram::RefreshCaption(const TMeasure& Measure) {
  const auto Found = std::find_if(FButtons.begin(), FButtons.end(),
                                  [&](const TMeasureButton* B) { return B->Tag == Measure.ClassifyCode; });
  if (Found != FButtons.end()) SetCaption(**Found, Measure);
}

void TSystemUnitFram::SetCaption(TMeasureButton& Button, const TMeasure& Measure) {
  Button.SetLabelText(ToWx(MeasureCaption(Measure)));
}

/// Column 0 takes what the descriptions need, column 1 the rest, or more when a caption needs it: a cut
/// number would be misread. The form never shrinks while it is open.
void TSystemUnitFram::ComputeSizes() {
  const int Half = FScale(ClientWidth) / 2;
  int Description = Half, Caption = Half, RowNeeds = FScale(RowHeight);
  for (int Row = 1; Row < sgGridUnit->RowCount(); ++Row)
    Description = std::max(Description, sgGridUnit->GetTextExtent(sgGridUnit->Cell(0, Row)).x + FScale(8));
  Description = std::min(Description, FScale(MaxDescriptionWidth));
  for (const TMeasureButton* const Button : FButtons) {
    Caption = std::max(Caption, Button->GetBestSize().x);
    RowNeeds = std::max(RowNeeds, Button->GetBestSize().y);
  }
  const wxRect Screen = wxDisplay(wxGetTopLevelParent(this)).GetClientArea();
  FWidth = std::max({FWidth, FScale(ClientWidth), FTopPlacing->Needed().x, FBottomPlacing->Needed().x,
                     std::min(Description + Caption, Screen.width - FScale(20))});
  sgGridUnit->SetRowHeight(RowNeeds);
  sgGridUnit->SetColWidths({Description, FWidth - Description});
  ComputeMiddleHeight(Screen.height);
  for (TMeasureButton* const Button : FButtons)
    Button->SetToolTip(Button->GetBestSize().x > FWidth - Description ? Button->GetLabelText() : wxString());
}

/// As many rows can be seen as the design shows, whatever a row needs here, and as the screen has room for;
/// the grid scrolls to the others.
void TSystemUnitFram::ComputeMiddleHeight(int ScreenHeight) {
  const int Row = sgGridUnit->RowHeight();
  const int Shown = FScale(MiddleHeight) * Row / FScale(RowHeight);
  const int Room = ScreenHeight - FTopPlacing->Needed().y - FBottomPlacing->Needed().y - FScale(FrameHeight);
  const int Wanted =
      std::max({FMiddleHeight, FScale(MiddleHeight), std::min(sgGridUnit->FullHeight(), Shown)});
  FMiddleHeight = std::min(Wanted, std::max(Room, 3 * Row));
}

wxSize TSystemUnitFram::NeededSize() const {
  return wxSize(FWidth, FTopPlacing->Needed().y + FMiddleHeight + FBottomPlacing->Needed().y);
}

void TSystemUnitFram::PlacePanels() {
  if (!FTopPlacing) return; // not filled yet
  const wxSize Client = GetClientSize();
  const int Top = FTopPlacing->Needed().y;
  FTop->SetSize(0, 0, Client.x, Top);
  FMiddle->SetSize(0, Top, Client.x, FMiddleHeight);
  FBottom->SetSize(0, Top + FMiddleHeight, Client.x, std::max(0, Client.y - Top - FMiddleHeight));
  sgGridUnit->SetSize(FMiddle->GetClientSize());
  FTopPlacing->Apply(Client.x);
  FBottomPlacing->Apply(Client.x);
}

void TSystemUnitFram::FitForm() {
  ComputeSizes();
  if (auto* const Form = dynamic_cast<TSystemUnitForm*>(GetParent()); Form && Form->Frame() == this)
    Form->FitFrame();
}

void TSystemUnitFram::cbbUnitTypeChange() {
  const int Index = cbbUnitType->GetSelection();
  if (Index != wxNOT_FOUND) TSystemUnitDataManager::ConfigueUnitSystem(static_cast<TConfigueType>(Index));
  UpdateExamples();
  Refresh();
}

void TSystemUnitFram::cbbSWFZGroupChange() {
  const int Index = cbbSWFZGroup->GetSelection();
  if (Index != wxNOT_FOUND) TSystemUnitDataManager::SetCurDigitGroupIndex(Index);
  UpdateExamples();
  Refresh();
}

void TSystemUnitFram::btnRestoreClick() {
  TSystemUnitDataManager::RestoreDefaultUnitSystem(cbbUnitType->GetSelection());
  UpdateExamples();
  Refresh();
}

void TSystemUnitFram::btnOKClick() {
  TSystemUnitDataManager::SavetoModel(static_cast<TConfigueType>(cbbUnitType->GetSelection()));
  RunUnlocked([this](bool Lock) { DoLockFile(FFileName, Lock); },
              [] { TSystemUnitDataManager::SaveConfigFile(u""); });
  if (auto* const Dialog = TUnitDialog::Of(this); Dialog && Dialog->IsModal()) Dialog->EndModal(wxID_OK);
}

void TSystemUnitFram::btnCancelClick() {
  FreeUnitSystem();
  RunUnlocked([this](bool Lock) { DoLockFile(FFileName, Lock); },
              [this] { InitialUnitSystem(FFileName, FConfigType, true); });
  if (auto* const Dialog = TUnitDialog::Of(this); Dialog && Dialog->IsModal()) Dialog->EndModal(wxID_CANCEL);
}

void TSystemUnitFram::ShowFormateSetting(TMeasureButton& Button) {
  const wxRect Form = wxGetTopLevelParent(this)->GetRect();
  const bool Changed =
      TSystemUnitFormatFrm::Execute(Button.Tag, Form.x + Form.width, Form.width, Form.y + FScale(20));
  if (Changed) Refresh(Button.Tag);
  Button.SetFocus(); // not every window manager gives it back
}

void TSystemUnitFram::CustomKeyDown(wxKeyEvent& Event) {
  const bool Alt = Event.AltDown() && !Event.ControlDown();
  if (Alt && Event.GetKeyCode() == 'C')
    cbbUnitType->SetFocus();
  else if (Alt && Event.GetKeyCode() == 'G')
    cbbSWFZGroup->SetFocus();
  else
    Event.Skip();
}

} // namespace unitlib
