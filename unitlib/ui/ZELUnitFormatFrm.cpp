#include "unitlib/ui/ZELUnitFormatFrm.h"

#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/ui/Controls.h"
#include "unitlib/ui/MeasureBackup.h"
#include "unitlib/ui/Placing.h"
#include "unitlib/ui/Toolkit.h"

#include <wx/display.h>
#include <wx/msgdlg.h>

#include <algorithm>

namespace unitlib {
namespace {

constexpr int MaxDigits = 12;

/// Sets the box that shows prompts while a dialog is open.
class TPromptBoxScope {
public:
  explicit TPromptBoxScope(TPromptFunc Box) : FBefore(SetPromptBox(Box)) {}
  TPromptBoxScope(const TPromptBoxScope&) = delete;
  TPromptBoxScope& operator=(const TPromptBoxScope&) = delete;
  ~TPromptBoxScope() { SetPromptBox(FBefore); }

private:
  TPromptFunc FBefore;
};

TMeasure& RequiredMeasure(int ClassifyCode) {
  if (TMeasure* const Measure = TSystemUnitDataManager::CurConfigMeasure(ClassifyCode)) return *Measure;
  const std::u16string Code = IntToStr(ClassifyCode);
  throw EConvertError(UiText(TUiText::UnknownMeasure) + Code, Code);
}

void Fill(wxChoice& Combo, const std::vector<std::u16string>& Texts, int Selection) {
  Combo.Clear();
  for (const std::u16string& Text : Texts) Combo.Append(ToWx(Text));
  SelectItem(Combo, Selection);
}

bool AreDigits(std::u16string_view Text) noexcept {
  return std::all_of(Text.begin(), Text.end(), IsDigit);
}

} // namespace

bool TSystemUnitFormatFrm::Execute(int ClassifyCode, int AnchorX, int AnchorWidth, int AnchorTop) {
  StartToolkit();
  const THostWindow Host;
  wxWindow* const Owner = Running() ? Running() : Host.Window();
  const auto Form = std::make_unique<TSystemUnitFormatFrm>(Owner, ClassifyCode);
  const TPromptBoxScope Box(MethodOf<&TSystemUnitFormatFrm::ShowPromptBox>(Form.get()));
  Form->PlaceBeside(AnchorX, AnchorWidth, AnchorTop);
  if (Form->RunModal() != wxID_OK) return false;
  Form->UpdateUnitDesc();
  return true;
}

TSystemUnitFormatFrm::TSystemUnitFormatFrm(wxWindow* Owner, int ClassifyCode)
    : TUnitDialog(Owner, TUiText::Format, "SystemUnitFormatFrm"), FClassifyCode(ClassifyCode),
      FUnitSetting(&RequiredMeasure(ClassifyCode)) {
  CreateControls();
  InitFormatState();
  BindEvents();
  BindKeys();
  StartAt(cbbUnit); // the switch above it is not enabled in most settings
}

void TSystemUnitFormatFrm::PlaceBeside(int AnchorX, int AnchorWidth, int AnchorTop) {
  const TScale Scale(*this);
  const int Index = wxDisplay::GetFromPoint(wxPoint(AnchorX - 1, AnchorTop));
  const wxRect Screen = wxDisplay(Index == wxNOT_FOUND ? 0u : static_cast<unsigned>(Index)).GetGeometry();
  const int Width = GetSize().x, Gap = Scale(10);
  int Left = AnchorX + Gap;
  if (Screen.GetRight() + 1 < Width + Left + Gap) Left = AnchorX - Width - AnchorWidth - Gap;
  // A screen too narrow for both still shows the whole dialog.
  Move(std::max(Left, Screen.x),
       std::clamp(AnchorTop, Screen.y, std::max(Screen.y, Screen.GetBottom() - GetSize().y)));
}

bool TSystemUnitFormatFrm::IsValidity(std::u16string_view Text) noexcept {
  const size_t Point = Text.find(u'.');
  if (Point == Text.npos) return !Text.empty() && AreDigits(Text) && Text.size() <= MaxDigits;
  std::u16string_view Whole = Text.substr(0, Point);
  const std::u16string_view Fraction = Text.substr(Point + 1);
  if (Whole.starts_with(u'+')) Whole.remove_prefix(1);
  const bool SomeDigit = !Whole.empty() || !Fraction.empty(); // "." and "+." are no numbers
  return SomeDigit && AreDigits(Whole) && AreDigits(Fraction) && Fraction.size() <= MaxDigits;
}

/// The measure, looked up anew: should the host load other settings meanwhile, that is an error and not a
/// crash.
TMeasure& TSystemUnitFormatFrm::Setting() const {
  FUnitSetting = &RequiredMeasure(FClassifyCode);
  return *FUnitSetting;
}

void TSystemUnitFormatFrm::InitFormatState() {
  InitUnitList();
  InitRoundList();
  InitUnitCharList(Setting().CurUnitIndex);
  ShowIncrement(SelectedUnit() ? SelectedUnit()->GetCurRound() : nullptr);
  InitCheckboxState();
}

void TSystemUnitFormatFrm::InitUnitList() {
  Fill(*cbbUnit, Setting().GetUnitDescriptionArray(), Setting().CurUnitIndex);
}

void TSystemUnitFormatFrm::InitRoundList() {
  UpdateSheruList(Setting().CurUnitIndex);
}

void TSystemUnitFormatFrm::InitUnitCharList(int UnitIndex) {
  const TUnit* const Unit = Setting().UnitContainer.Find(UnitIndex);
  if (Unit)
    Fill(*cbbUnitCharacter, Unit->GetUnitSymbolDescriptionArray(), Unit->CurUnitSymbolIndex);
  else
    cbbUnitCharacter->Clear();
  cbbUnitCharacter->Enable(!cbbUnitCharacter->IsEmpty());
}

void TSystemUnitFormatFrm::UpdateSheruList(int UnitIndex) {
  const TUnit* const Unit = Setting().UnitContainer.Find(UnitIndex);
  if (Unit)
    Fill(*cbbsheru, Unit->GetRoundDescriptionArray(), Unit->CurRoundIndex);
  else
    cbbsheru->Clear();
}

void TSystemUnitFormatFrm::InitCheckboxState() {
  const TUnit* const Unit = Setting().UnitContainer.Find(Setting().CurUnitIndex);
  for (const TSwitch& S : Switches()) {
    S.Box->Enable(Unit && (Unit->*S.Setting).Enable);
    S.Box->SetValue(Unit && (Unit->*S.Setting).Checked);
  }
}

void TSystemUnitFormatFrm::UpdateCheckBoxState() {
  const TUnit* const Unit = SelectedUnit();
  for (const TSwitch& S : Switches()) {
    S.Box->Enable(Unit && (Unit->*S.Setting).DefEnable);
    S.Box->SetValue(Unit && (Unit->*S.Setting).DefChecked);
  }
}

/// The increment of a round: open to edit where the round allows it, shown where it shall be visible.
void TSystemUnitFormatFrm::ShowIncrement(const TRound* Round) {
  edtPrecise->Enable(Round && Round->IncrementCanEdit);
  edtPrecise->ChangeValue(Round && Round->IncrementCanVisible ? ToWx(Round->Increment) : wxString());
}

void TSystemUnitFormatFrm::SaveSystemUnitState() {
  TMeasureBackup Backup(Setting(), SelectedUnit(), SelectedRound());
  StoreState();
  Backup.Drop();
}

void TSystemUnitFormatFrm::StoreState() {
  Setting().CurUnitIndex = cbbUnit->GetSelection();
  TUnit* const Unit = SelectedUnit();
  if (!Unit) return; // a measure that had no unit, and still has none
  for (const TSwitch& S : Switches()) {
    (Unit->*S.Setting).Enable = S.Box->IsEnabled();
    (Unit->*S.Setting).Checked = S.Box->GetValue();
  }
  Unit->CurRoundIndex = cbbsheru->GetSelection();
  Unit->CurUnitSymbolIndex = cbbUnitCharacter->GetSelection();
  const std::u16string Increment = IncrementText();
  TRound* const Round = Unit->GetCurRound();
  if (Round && Round->IncrementCanVisible) Round->SetIncrement(Increment);
  if (!Increment.empty()) Unit->Precision = StrToFloat(Increment);
  TransfromDataValue();
}

void TSystemUnitFormatFrm::UpdateUnitDesc() {
  SaveSystemUnitState();
}

void TSystemUnitFormatFrm::TransfromDataValue() {
  Setting().ExampleDisplayValue = TMeasureDataManager::StoreToDisplay(
      FClassifyCode, StrToFloat(Setting().ExampleValue), BaseScale, false, false, false, false, false);
}

void TSystemUnitFormatFrm::cbbUnitChange() {
  UpdateSheruList(cbbUnit->GetSelection());
  InitUnitCharList(cbbUnit->GetSelection());
  ShowIncrement(SelectedRound());
  UpdateCheckBoxState();
}

void TSystemUnitFormatFrm::cbbsheruChange() {
  const TRound* const Round = SelectedRound();
  if (Round && Round->IncrementCanEdit)
    edtPrecise->Enable(); // what stands in it is the user's to keep
  else
    ShowIncrement(Round);
}

void TSystemUnitFormatFrm::edtPreciseExit() {
  if (IncrementFails()) PromptInvalid();
}

void TSystemUnitFormatFrm::edtPreciseKeyDown(wxKeyEvent& Event) {
  const int Key = Event.GetKeyCode();
  if ((Key != WXK_RETURN && Key != WXK_NUMPAD_ENTER) || Event.HasAnyModifiers()) return Event.Skip();
  if (!IsValidity(FromWx(edtPrecise->GetValue()))) return PromptInvalid(); // untrimmed here
  SaveSystemUnitState();
  if (IsModal()) EndModal(wxID_OK);
}

void TSystemUnitFormatFrm::CustomKeyDown(wxKeyEvent& Event) {
  const bool Alt = Event.AltDown() && !Event.ControlDown();
  const struct {
    int Key;
    wxWindow* Control;
  } Keys[] = {{'U', cbbUnit}, {'R', cbbsheru}, {'I', edtPrecise}, {'S', cbbUnitCharacter}};
  for (const auto& K : Keys)
    if (Alt && Event.GetKeyCode() == K.Key) {
      if (K.Control->IsEnabled()) K.Control->SetFocus();
      return;
    }
  Event.Skip();
}

/// OK: the increment is tested once more, since not every way to the button leaves the edit first.
void TSystemUnitFormatFrm::AcceptOrPrompt() {
  if (IncrementFails()) return PromptInvalid();
  if (IsModal()) EndModal(wxID_OK);
}

/// The edit has lost the focus. Only now is it known to whom: Cancel never prompts, OK does so itself when
/// the mouse lets go of it, and going to another window (a message box, another program) is not leaving the
/// field.
void TSystemUnitFormatFrm::CheckAfterExit() {
  if (!FExitPending || FPrompting || !IsModal() || !HoldsFocus()) return;
  wxWindow* const Now = FindFocus(); // null inside a drop-down list
  const bool PressingOK = Now == btnOK && wxGetMouseState().LeftIsDown();
  if (Now == btnCancel || PressingOK) return;
  FExitPending = false;
  if (Now != edtPrecise) edtPreciseExit();
}

/// True also while a list of this dialog drops down, which is another window to the system.
bool TSystemUnitFormatFrm::HoldsFocus() {
  if (IsActive()) return true;
  wxWindow* const Under = wxFindWindowAtPoint(wxGetMousePosition());
  return wxGetMouseState().LeftIsDown() && Under && wxGetTopLevelParent(Under) == this;
}

void TSystemUnitFormatFrm::PromptInvalid() {
  if (FPrompting) return;
  struct TMark {
    bool& Flag;
    explicit TMark(bool& AFlag) : Flag(AFlag) { Flag = true; }
    ~TMark() { Flag = false; }
  } Mark(FPrompting);
  CloseLists();
  ShowPrompt(UiText(TUiText::InvalidInput), UiText(TUiText::Format));
  FExitPending = false;
  edtPrecise->SetFocus();
  edtPrecise->SelectAll();
}

/// A list that has dropped down would keep mouse and keyboard from the prompt. There is no portable way to
/// close one but to take it away for a moment.
void TSystemUnitFormatFrm::CloseLists() {
  if (IsActive()) return; // none is open
  for (wxChoice* const List : {cbbUnit, cbbsheru, cbbUnitCharacter}) {
    List->Hide();
    List->Show();
  }
}

void TSystemUnitFormatFrm::ShowPromptBox(std::u16string_view Text, std::u16string_view Title) {
  wxMessageDialog Box(this, ToWx(Text), ToWx(Title), wxOK | wxICON_WARNING);
  // In English the system's own button stays, with its own keys.
  const std::u16string OK = UiText(TUiText::OK);
  if (OK != UiTexts[static_cast<size_t>(TUiText::OK)].English) Box.SetOKLabel(ToWx(OK));
  Box.ShowModal();
}

std::u16string TSystemUnitFormatFrm::IncrementText() const {
  return Trim(FromWx(edtPrecise->GetValue()));
}

bool TSystemUnitFormatFrm::IncrementFails() const {
  return edtPrecise->IsEnabled() && !IsValidity(IncrementText());
}

TUnit* TSystemUnitFormatFrm::SelectedUnit() const {
  return Setting().UnitContainer.Find(cbbUnit->GetSelection());
}

TRound* TSystemUnitFormatFrm::SelectedRound() const {
  const TUnit* const Unit = SelectedUnit();
  return Unit ? Unit->GetRound(cbbsheru->GetSelection()) : nullptr;
}

std::vector<TSystemUnitFormatFrm::TSwitch> TSystemUnitFormatFrm::Switches() const {
  return {{ckPrjSetting, &TUnit::UseProjectSetting}, {ckXQHXZ, &TUnit::SuppressTrail0},
          {ckXQLYC, &TUnit::Suppress0Feet},          {ckZZXSJ, &TUnit::ShowPlusForPosValue},
          {ckSYSWFZ, &TUnit::UseDigitGroup},         {ckXQKG, &TUnit::SuppressSpace}};
}

} // namespace unitlib
