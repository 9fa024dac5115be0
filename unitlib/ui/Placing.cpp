#include "unitlib/ui/Placing.h"

#include <wx/dcclient.h>
#include <wx/window.h>

#include <algorithm>
#include <cmath>

namespace unitlib {
namespace {

#ifdef __WXGTK__
/// Here layout units are always 1/96 inch, but the desktop may ask for larger text (150 %): then everything
/// must grow with it. The resolution shows in how much wider a font of 72 points is than one of 96 pixels.
double TextScale(const wxWindow& Window) {
  wxFont Points = Window.GetFont(), Pixels = Window.GetFont();
  Points.SetPointSize(72);
  Pixels.SetNativeFontInfo(Pixels.GetFaceName() + " 96px");
  int PointWidth = 0, PixelWidth = 0;
  Window.GetTextExtent("0123456789", &PointWidth, nullptr, nullptr, nullptr, &Points);
  Window.GetTextExtent("0123456789", &PixelWidth, nullptr, nullptr, nullptr, &Pixels);
  if (PointWidth <= 0 || PixelWidth <= 0) return 1.0;
  const double Scale = static_cast<double>(PointWidth) / PixelWidth;
  return std::abs(Scale - 1.0) < 0.02 ? 1.0 : Scale; // rounding of glyph widths
}
#else
double TextScale(const wxWindow&) {
  return 1.0;
}
#endif

constexpr int Margin =
    6; // kept free behind a control that needs more room than designed, in pixels at 96 dpi

} // namespace

TScale::TScale(const wxWindow& Window)
    : FFactor(std::max(Window.FromDIP(1000) / 1000.0, TextScale(Window))) {}

int TScale::operator()(int Pixels) const noexcept {
  return static_cast<int>(std::lround(Pixels * FFactor));
}

TPanelPlacing::TPanelPlacing(const TScale& Scale, wxSize Design, const std::vector<TPlace>& Places)
    : FNeeded(Scale(Design.x), Scale(Design.y)), FDesignWidth(Scale(Design.x)) {
  for (const TPlace& Place : Places) {
    const wxSize Best = Place.Control->GetBestSize();
    wxSize Size(Place.Width ? Scale(Place.Width) : Best.x, std::max(Scale(Place.Height), Best.y));
    if (Place.MaxWidth) Size.x = std::clamp(Best.x, Size.x, Scale(Place.MaxWidth));
    FPlaced.push_back({Place, Size, Scale(Place.X)});
  }
  std::stable_sort(FPlaced.begin(), FPlaced.end(),
                   [](const TPlaced& A, const TPlaced& B) { return A.Place.Y < B.Place.Y; });
  int Shift = 0;
  for (size_t I = 0; I < FPlaced.size();) I = PlaceRow(Scale, I, Shift);
  for (const TPlaced& P : FPlaced) {
    FNeeded.y = std::max(FNeeded.y, P.Top + P.Size.y + Scale(Margin) / 2);
    if (!P.Place.Width) FNeeded.x = std::max(FNeeded.x, Scale(P.Place.X) + P.Size.x + Scale(Margin));
  }
}

/// Sets the tops of the row that begins at First; returns where the next row begins. Shift is how far this
/// row, and then the next, has moved down from its design.
size_t TPanelPlacing::PlaceRow(const TScale& Scale, size_t First, int& Shift) {
  // A control without a height of its own in the design takes what it needs, and counts as designed so.
  const auto DesignTop = [&](const TPlaced& P) { return Scale(P.Place.Y); };
  const auto DesignHeight = [&](const TPlaced& P) {
    return P.Place.Height ? Scale(P.Place.Height) : P.Size.y;
  };
  const int Top = DesignTop(FPlaced[First]);
  int Bottom = Top, Height = 0;
  size_t End = First;
  for (; End < FPlaced.size() && (End == First || DesignTop(FPlaced[End]) < Bottom); ++End) {
    Bottom = std::max(Bottom, DesignTop(FPlaced[End]) + DesignHeight(FPlaced[End]));
    Height = std::max(Height, FPlaced[End].Size.y);
  }
  const int Grown = std::max(0, Height - (Bottom - Top));
  GiveWay(Scale, First, End);
  for (size_t I = First; I < End; ++I) {
    TPlaced& P = FPlaced[I];
    const int Own = P.Size.y - DesignHeight(P); // what the control itself has grown by
    P.Top = DesignTop(P) + Shift + std::max(0, (Grown - Own) / 2);
  }
  if (End < FPlaced.size()) {
    const int Gap = std::min(Scale(4), std::max(0, DesignTop(FPlaced[End]) - Bottom));
    Shift = std::max(0, Bottom + Grown + Shift + Gap - DesignTop(FPlaced[End]));
  }
  return End;
}

/// Moves the controls of a row that stand right of a widened one.
void TPanelPlacing::GiveWay(const TScale& Scale, size_t First, size_t End) {
  for (size_t I = First; I < End; ++I)
    for (size_t J = First; J < End; ++J)
      if (FPlaced[I].Place.MaxWidth && FPlaced[J].Place.X > FPlaced[I].Place.X)
        FPlaced[J].Left = std::max(FPlaced[J].Left, FPlaced[I].Left + FPlaced[I].Size.x + Scale(Margin));
}

void TPanelPlacing::Apply(int Width) const {
  for (const TPlaced& P : FPlaced) {
    const int Right = P.Place.AtRight ? std::max(0, Width - FDesignWidth) : 0;
    P.Place.Control->SetSize(P.Left + Right, P.Top, P.Size.x, P.Size.y);
  }
}

} // namespace unitlib
