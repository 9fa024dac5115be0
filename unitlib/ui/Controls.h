/// The few kinds of controls both dialogs are made of.
#pragma once

#include "unitlib/ui/UiTexts.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/panel.h>
#include <wx/stattext.h>

namespace unitlib {

constexpr int ComboHeight = 21; // pixels at 96 dpi, as designed

// Each is a child of Parent and freed with it. A name is the window's name, for tests and screen readers.
wxPanel* AddPanel(wxWindow* Parent, const wxString& Name);
wxStaticText* AddLabel(wxWindow* Parent, TUiText Text);
wxChoice* AddCombo(wxWindow* Parent, const wxString& Name); // a drop-down list: nothing can be typed
wxButton* AddButton(wxWindow* Parent, wxWindowID Id, TUiText Text, const wxString& Name);

/// Selects an item; none when there is no such one.
void SelectItem(wxChoice& Combo, int Index);

} // namespace unitlib
