#include "unitlib/ui/Controls.h"

#include "unitlib/ui/Toolkit.h"

namespace unitlib {

wxPanel* AddPanel(wxWindow* Parent, const wxString& Name) {
  return new wxPanel(Parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, Name);
}

wxStaticText* AddLabel(wxWindow* Parent, TUiText Text) {
  auto* const Label = new wxStaticText(Parent, wxID_ANY, wxEmptyString);
  Label->SetLabelText(ToWx(UiText(Text)));
  return Label;
}

wxChoice* AddCombo(wxWindow* Parent, const wxString& Name) {
  return new wxChoice(Parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr, 0, wxDefaultValidator,
                      Name);
}

wxButton* AddButton(wxWindow* Parent, wxWindowID Id, TUiText Text, const wxString& Name) {
  return new wxButton(Parent, Id, ToWx(UiText(Text)), wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                      Name);
}

void SelectItem(wxChoice& Combo, int Index) {
  const bool There = Index >= 0 && static_cast<unsigned>(Index) < Combo.GetCount();
  Combo.SetSelection(There ? Index : wxNOT_FOUND);
  Combo.SetToolTip(Combo.GetStringSelection()); // a long text may be cut in the closed list
}

} // namespace unitlib
