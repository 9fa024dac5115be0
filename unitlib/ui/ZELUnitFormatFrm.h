/// The modal form "Format": unit, rounding, symbol and switches of one measure.
#pragma once

#include "unitlib/rtl/Prompt.h"
#include "unitlib/ui/UnitDialog.h"

#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/textctrl.h>

#include <string_view>
#include <vector>

namespace unitlib {

class TCheckBoxSetting;
class TMeasure;
class TRound;
class TUnit;

/// A check box that stands for one of the six format switches.
class TFormatCheckBox : public wxCheckBox {
public:
  TFormatCheckBox(wxWindow* Parent, int ATag, TUiText Text, const wxString& WindowName);
  int Tag;
};

/// Edits the live settings of a measure of the current configuration, on OK only. Saving them is left to the
/// caller.
class TSystemUnitFormatFrm : public TUnitDialog {
public:
  /// Shows the dialog to the right of a window, or to its left where the screen is too narrow.
  /// AnchorX, AnchorWidth   right edge and width of that window
  /// AnchorTop              where the dialog's top shall be
  /// return                 true when the user has accepted; the measure is changed then
  /// errors      EConvertError the current configuration has no such measure; those of converting and
  /// storing, the
  ///             measure being as it was
  static bool Execute(int ClassifyCode, int AnchorX, int AnchorWidth, int AnchorTop);

  TSystemUnitFormatFrm(wxWindow* Owner, int ClassifyCode);

  /// True for digits with at most one ".", at least one digit and at most 12 behind the "."; one "+" may
  /// stand before a number with "."; at most 12 digits in one without. "0" is valid: values are shown
  /// unrounded then.
  static bool IsValidity(std::u16string_view Text) noexcept; // sic

  void InitFormatState();
  void InitUnitList();
  void InitRoundList();
  void InitUnitCharList(int UnitIndex);
  void UpdateSheruList(int UnitIndex); // sic
  void InitCheckboxState();
  /// Shows the defaults of the selected unit's switches, not their stored states.
  void UpdateCheckBoxState();
  /// Writes the dialog into the measure. When that fails half-way the measure is put back as it was.
  void SaveSystemUnitState();
  void UpdateUnitDesc();
  void TransfromDataValue(); // sic

  // Event handlers.
  void cbbUnitChange();
  void cbbsheruChange();
  void edtPreciseExit();
  void edtPreciseKeyDown(wxKeyEvent& Event);
  void CustomKeyDown(wxKeyEvent& Event);

  // Controls, each a window of the same name.
  TFormatCheckBox* ckPrjSetting = nullptr;
  wxChoice* cbbUnit = nullptr;
  wxChoice* cbbsheru = nullptr;
  wxTextCtrl* edtPrecise = nullptr;
  wxChoice* cbbUnitCharacter = nullptr;
  TFormatCheckBox* ckXQHXZ = nullptr;
  TFormatCheckBox* ckXQLYC = nullptr;
  TFormatCheckBox* ckZZXSJ = nullptr;
  TFormatCheckBox* ckSYSWFZ = nullptr;
  TFormatCheckBox* ckXQKG = nullptr;
  wxButton* btnOK = nullptr;
  wxButton* btnCancel = nullptr;

private:
  struct TSwitch {
    TFormatCheckBox* Box;
    TCheckBoxSetting TUnit::*Setting;
  };

  void CreateControls();
  void FillForWidth(wxChoice& List, std::vector<std::u16string> (TUnit::*Texts)() const) const;
  void BindEvents();
  void BindKeys();
  void AcceptOrPrompt();
  void CheckAfterExit();
  bool HoldsFocus();
  void PromptInvalid();
  void CloseLists();
  void ShowPromptBox(std::u16string_view Text, std::u16string_view Title);
  void StoreState();
  void ShowIncrement(const TRound* Round);
  std::u16string IncrementText() const;
  bool IncrementFails() const;
  TMeasure& Setting() const;
  TUnit* SelectedUnit() const;
  TRound* SelectedRound() const;
  std::vector<TSwitch> Switches() const;
  void PlaceBeside(int AnchorX, int AnchorWidth, int AnchorTop);

  int FClassifyCode;
  mutable TMeasure* FUnitSetting; // of the current configuration, not owned; see Setting
  bool FPrompting = false;
  bool FExitPending = false; // the edit has lost the focus, its text is not tested yet
};

} // namespace unitlib
