/// Places controls at positions given in pixels at 96 dpi, and makes room where the platform's controls need
/// more.
#pragma once

#include <wx/gdicmn.h>

#include <vector>

class wxWindow;

namespace unitlib {

/// Pixels at 96 dpi to pixels of a window's screen.
class TScale {
public:
  explicit TScale(const wxWindow& Window);
  int operator()(int Pixels) const noexcept;

private:
  double FFactor;
};

/// One control of a panel. Width and Height 0: the control's own. MaxWidth: how far the control may widen for
/// its contents; its neighbours on the right then give way.
struct TPlace {
  wxWindow* Control;
  int X;
  int Y;
  int Width = 0;
  int Height = 0;
  int MaxWidth = 0;
  bool AtRight = false; // keeps its distance from the right edge when the panel is wider than designed
};

/// Size a panel needs: what the design says, or more where a control needs it.
/// Controls whose places overlap in height form a row. A row with a control that is higher than its place
/// grows, the others stay centred beside it, and the rows below move down, so nothing overlaps or is cut.
class TPanelPlacing {
public:
  TPanelPlacing(const TScale& Scale, wxSize Design, const std::vector<TPlace>& Places);
  wxSize Needed() const noexcept { return FNeeded; }
  /// Moves the controls, for a panel of this width.
  void Apply(int Width) const;

private:
  struct TPlaced {
    TPlace Place;
    wxSize Size;
    int Left = 0;
    int Top = 0;
  };
  size_t PlaceRow(const TScale& Scale, size_t First, int& Shift);
  void GiveWay(const TScale& Scale, size_t First, size_t End);

  std::vector<TPlaced> FPlaced;
  wxSize FNeeded;
  int FDesignWidth;
};

} // namespace unitlib
