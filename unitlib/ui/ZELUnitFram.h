/// The frame of the Project Units form: all its controls and what they do.
#pragma once

#include "unitlib/ui/Placing.h"
#include "unitlib/ui/UnitDialogs.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/panel.h>

#include <optional>
#include <string>
#include <vector>

namespace unitlib {

class TMeasure;
class TStringGrid;

/// A button that opens the format of one measure.
class TMeasureButton : public wxButton {
public:
  TMeasureButton(wxWindow* Parent, int ClassifyCode);
  int Tag; // ClassifyCode of the measure
};

/// Recomputes every measure's example text. A measure that cannot be shown, for example because of a bad
/// increment, has an empty text afterwards and can be repaired in the dialog.
/// errors      EListError no
/// configuration is current
void UpdateExamples();

/// Edits the live settings: every control changes them at once. OK saves them, Cancel reads the file again.
class TSystemUnitFram : public wxPanel {
public:
  TSystemUnitFram(wxWindow* Owner, std::u16string_view FileName);
  /// What the form hands on before InitGridStyles.
  void Connect(TConfigueType ConfigType, const TLockFileFunc& LockFile);
  /// Fills grid and lists from the current configuration.
  void InitGridStyles();
  void InitGroupData();

  /// Captions of the measure buttons: one per distinct ClassifyCode, through the first measure that has it,
  /// on the first button found. The rows are made anew only when the configuration has other measures than
  /// those shown.
  void Refresh();
  void Refresh(int ClassifyCode);
  /// The toolkit's own: paints again.
  void Refresh(bool EraseBackground, const wxRect* Rect = nullptr) override;

  /// The host's answer, or true without a TLockFileFunc.
  bool DoLockFile(std::u16string_view FileName, bool Lock) const;
  /// Size at which nothing is cut.
  wxSize NeededSize() const;

  // Event handlers.
  void cbbUnitTypeChange();
  void cbbSWFZGroupChange();
  void btnRestoreClick();
  void btnOKClick();
  void btnCancelClick();
  void ShowFormateSetting(TMeasureButton& Button); // sic
  void CustomKeyDown(wxKeyEvent& Event);

  // Controls, each a window of the same name.
  wxChoice* cbbUnitType = nullptr;
  TStringGrid* sgGridUnit = nullptr;
  wxChoice* cbbSWFZGroup = nullptr;
  wxButton* btnRestore = nullptr;
  wxButton* btnOK = nullptr;
  wxButton* btnCancel = nullptr;

private:
  template <class TBody> void Guard(TBody Body);
  void CreateTop();
  void CreateMiddle();
  void CreateBottom();
  void BindEvents();
  void CreateRows();
  void CreateRow(int Row, const TMeasure& Measure);
  bool ShowsMeasuresOfCurConfig() const;
  void RefreshCaption(const TMeasure& Measure);
  void SetCaption(TMeasureButton& Button, const TMeasure& Measure);
  void ComputeSizes();
  void ComputeMiddleHeight(int ScreenHeight);
  void PlacePanels();
  void FitForm();

  TConfigueType FConfigType = CYAmInch;
  std::u16string FFileName;
  TLockFileFunc FLockFile;

  const TScale FScale;
  wxPanel* FTop = nullptr;
  wxPanel* FMiddle = nullptr;
  wxPanel* FBottom = nullptr;
  std::vector<TPlace> FTopPlaces;
  std::vector<TPlace> FBottomPlaces;
  std::optional<TPanelPlacing> FTopPlacing;
  std::optional<TPanelPlacing> FBottomPlacing;
  std::vector<TMeasureButton*> FButtons; // by row
  int FMiddleHeight = 0;
  int FWidth = 0;
};

} // namespace unitlib
