/// Controls of the Format dialog, their places and their events.
#include "unitlib/model/UnitModel.h"
#include "unitlib/ui/Controls.h"
#include "unitlib/ui/Placing.h"
#include "unitlib/ui/Toolkit.h"
#include "unitlib/ui/ZELUnitFormatFrm.h"

#include <algorithm>

namespace unitlib {
namespace {

// The design, in pixels at 96 dpi.
constexpr int ClientWidth = 349;
constexpr int ClientHeight = 360;
constexpr int PanelHeights[] = {41, 35, 53, 51, 128};
constexpr int ButtonsHeight = ClientHeight - (41 + 35 + 53 + 51 + 128);
constexpr int CheckPitch = 24;
constexpr int CheckHeight = 17;

/// Stacks panels with their controls from top to bottom.
class TPanelStack {
public:
  TPanelStack(wxWindow& Form, const TScale& Scale) : FForm(Form), FScale(Scale) {}

  wxPanel* Add(const wxString& Name) {
    FPanels.push_back(AddPanel(&FForm, Name));
    return FPanels.back();
  }
  void Place(int Height, const std::vector<TPlace>& Places) {
    FPlacings.emplace_back(FScale, wxSize(ClientWidth, Height), Places);
  }
  /// Moves everything and returns the size needed.
  wxSize Apply() {
    wxSize Size(0, 0);
    for (const TPanelPlacing& P : FPlacings) Size.x = std::max(Size.x, P.Needed().x);
    for (size_t I = 0; I < FPlacings.size(); ++I) {
      FPanels[I]->SetSize(0, Size.y, Size.x, FPlacings[I].Needed().y);
      FPlacings[I].Apply(Size.x);
      Size.y += FPlacings[I].Needed().y;
    }
    return Size;
  }

private:
  wxWindow& FForm;
  const TScale FScale;
  std::vector<wxPanel*> FPanels;
  std::vector<TPanelPlacing> FPlacings;
};

} // namespace

TFormatCheckBox::TFormatCheckBox(wxWindow* Parent, int ATag, TUiText Text, const wxString& WindowName)
    : wxCheckBox(Parent, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                 WindowName),
      Tag(ATag) {
  SetLabelText(ToWx(UiText(Text)));
}

void TSystemUnitFormatFrm::CreateControls() {
  TPanelStack Stack(*this, TScale(*this));

  wxPanel* Panel = Stack.Add("pnlProject");
  ckPrjSetting = new TFormatCheckBox(Panel, 1, TUiText::UseProjectSettings, "ckPrjSetting");
  Stack.Place(PanelHeights[0], {{ckPrjSetting, 10, 12, 0, CheckHeight}});

  Panel = Stack.Add("pnlUnit");
  wxStaticText* const Units = AddLabel(Panel, TUiText::Units);
  cbbUnit = AddCombo(Panel, "cbbUnit");
  InitUnitList();
  Stack.Place(PanelHeights[1], {{Units, 10, 10}, {cbbUnit, 136, 6, 189, ComboHeight, 203}});

  Panel = Stack.Add("pnlRounding");
  wxStaticText* const Rounding = AddLabel(Panel, TUiText::Rounding);
  cbbsheru = AddCombo(Panel, "cbbsheru");
  FillForWidth(*cbbsheru, &TUnit::GetRoundDescriptionArray);
  wxStaticText* const Increment = AddLabel(Panel, TUiText::RoundingIncrement);
  edtPrecise = new wxTextCtrl(Panel, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                              wxTE_PROCESS_ENTER, wxDefaultValidator, "edtPrecise");
  Stack.Place(PanelHeights[2], {{Rounding, 10, 6},
                                {Increment, 173, 6},
                                {cbbsheru, 10, 24, 145, ComboHeight, 165},
                                {edtPrecise, 170, 24, 155, ComboHeight}});

  Panel = Stack.Add("pnlSymbol");
  wxStaticText* const Symbol = AddLabel(Panel, TUiText::UnitSymbol);
  cbbUnitCharacter = AddCombo(Panel, "cbbUnitCharacter");
  FillForWidth(*cbbUnitCharacter, &TUnit::GetUnitSymbolDescriptionArray);
  Stack.Place(PanelHeights[3], {{Symbol, 10, 6}, {cbbUnitCharacter, 10, 23, 145, ComboHeight, 329}});

  Panel = Stack.Add("pnlSwitches");
  std::vector<TPlace> Places;
  const auto AddSwitch = [&](int Tag, TUiText Text, const wxString& Name) {
    auto* const Box = new TFormatCheckBox(Panel, Tag, Text, Name);
    Places.push_back({Box, 10, 6 + CheckPitch * static_cast<int>(Places.size()), 0, CheckHeight});
    return Box;
  };
  ckXQHXZ = AddSwitch(2, TUiText::SuppressTrailing0, "ckXQHXZ");
  ckXQLYC = AddSwitch(3, TUiText::Suppress0Feet, "ckXQLYC");
  ckZZXSJ = AddSwitch(4, TUiText::ShowPlus, "ckZZXSJ");
  ckSYSWFZ = AddSwitch(5, TUiText::UseDigitGrouping, "ckSYSWFZ");
  ckXQKG = AddSwitch(6, TUiText::SuppressSpaces, "ckXQKG");
  Stack.Place(PanelHeights[4], Places);

  Panel = Stack.Add("pnlButtons");
  btnOK = AddButton(Panel, wxID_OK, TUiText::OK, "btnOK");
  btnCancel = AddButton(Panel, wxID_CANCEL, TUiText::Cancel, "btnCancel");
  btnOK->SetDefault();
  Stack.Place(ButtonsHeight, {{btnOK, 145, 6, 89, 25, 0, true}, {btnCancel, 242, 6, 89, 25, 0, true}});

  SetClientSize(Stack.Apply());
}

/// Everything the list will hold for one unit or another, so that its place is wide enough for each.
void TSystemUnitFormatFrm::FillForWidth(wxChoice& List,
                                        std::vector<std::u16string> (TUnit::*Texts)() const) const {
  for (const auto& Unit : Setting().UnitContainer)
    for (const std::u16string& Text : (Unit.get()->*Texts)()) List.Append(ToWx(Text));
}

void TSystemUnitFormatFrm::BindEvents() {
  cbbUnit->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { Guard([this] { cbbUnitChange(); }); });
  cbbsheru->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { Guard([this] { cbbsheruChange(); }); });
  btnOK->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Guard([this] { AcceptOrPrompt(); }); });
  // A box cannot be opened while the focus is on its way, so the test waits until it has arrived.
  const auto CheckLater = [this] { CallAfter([this] { Guard([this] { CheckAfterExit(); }); }); };
  edtPrecise->Bind(wxEVT_KILL_FOCUS, [this, CheckLater](wxFocusEvent& Event) {
    Event.Skip();
    FExitPending = true;
    CheckLater();
  });
  // After a drop-down list of this dialog has closed.
  Bind(wxEVT_ACTIVATE, [this, CheckLater](wxActivateEvent& Event) {
    Event.Skip();
    if (Event.GetActive() && FExitPending) CheckLater();
  });
}

void TSystemUnitFormatFrm::BindKeys() {
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& Event) { Guard([&] { CustomKeyDown(Event); }); });
  edtPrecise->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& Event) { Guard([&] { edtPreciseKeyDown(Event); }); });
}

} // namespace unitlib
