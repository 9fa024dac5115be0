#include "unitlib/ui/StringGrid.h"

#include <wx/control.h>
#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include <algorithm>
#include <cstdlib>

namespace unitlib {
namespace {

constexpr int Padding = 3; // left of a text

wxColour Colour(wxSystemColour Index) {
  return wxSystemSettings::GetColour(Index);
}

void DrawText(wxDC& DC, const wxString& Text, const wxRect& Cell) {
  const wxRect Inside(Cell.x + Padding, Cell.y, Cell.width - 2 * Padding, Cell.height);
  const wxString Shown =
      wxControl::Ellipsize(Text, DC, wxELLIPSIZE_END, Inside.width, wxELLIPSIZE_FLAGS_NONE);
  DC.DrawLabel(Shown, Inside, wxALIGN_LEFT | wxALIGN_CENTRE_VERTICAL);
}

} // namespace

TStringGrid::TStringGrid(wxWindow* Parent, const wxString& WindowName, TGuard Guard)
    : wxPanel(Parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, WindowName),
      FGuard(std::move(Guard)), FCells(new wxPanel(this)) {
  FCells->SetName(WindowName + "Cells");
  for (wxWindow* const Drawn : {static_cast<wxWindow*>(this), static_cast<wxWindow*>(FCells)})
    Drawn->SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { FGuard([this] { DrawHeader(); }); });
  FCells->Bind(wxEVT_PAINT, [this](wxPaintEvent&) { FGuard([this] { DrawCells(); }); });
  Bind(wxEVT_SIZE, [this](wxSizeEvent& Event) {
    Event.Skip();
    FGuard([this] { ScrollTo(FOffset); });
  });
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& Event) { FGuard([&] { HandleHeaderClick(Event); }); });
  Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& Event) { FGuard([&] { HandleWheel(Event); }); });
  FCells->Bind(wxEVT_CHILD_FOCUS, [this](wxChildFocusEvent& Event) { FGuard([&] { HandleFocus(Event); }); });
  FCells->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& Event) { FGuard([&] { HandleKey(Event); }); });
  FCells->Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& Event) { FGuard([&] { HandleWheel(Event); }); });
  FCells->Bind(wxEVT_LEFT_DOWN,
               [this](wxMouseEvent& Event) { FGuard([&] { FocusRow(RowAt(Event.GetY())); }); });
  FCells->Bind(wxEVT_MOTION, [this](wxMouseEvent& Event) {
    Event.Skip();
    FGuard([&] { ShowTip(RowAt(Event.GetY())); });
  });
}

wxString TStringGrid::Cell(int Col, int Row) const {
  if (Row < 0 || Row >= RowCount() || Col < 0 || Col >= ColCount()) return {};
  return FRows[static_cast<size_t>(Row)].Cells[static_cast<size_t>(Col)];
}

wxRect TStringGrid::CellRect(int Col, int Row) const {
  int X = 0;
  for (int I = 0; I < Col && I < ColCount(); ++I) X += FColWidths[static_cast<size_t>(I)];
  const int Width = Col >= 0 && Col < ColCount() ? FColWidths[static_cast<size_t>(Col)] : 0;
  const int Y = Row == 0 ? 0 : (Row - 1) * FRowHeight - FOffset;
  return wxRect(X, Y, Width, FRowHeight);
}

void TStringGrid::SetCounts(int Cols, int Rows) {
  FCells->DestroyChildren();
  FRows.assign(static_cast<size_t>(std::max(0, Rows)),
               TRow{std::vector<wxString>(static_cast<size_t>(Cols))});
  FColWidths.assign(static_cast<size_t>(Cols), 0);
  FOffset = 0;
  FCurrentRow = 1;
  Refresh();
  FCells->Refresh();
}

void TStringGrid::SetRowHeight(int Height) {
  FRowHeight = std::max(1, Height);
  ScrollTo(FOffset);
}

void TStringGrid::SetColWidths(std::vector<int> Widths) {
  Widths.resize(FColWidths.size());
  FColWidths = std::move(Widths);
  ScrollTo(FOffset);
}

void TStringGrid::SetCell(int Col, int Row, const wxString& Text) {
  FRows.at(static_cast<size_t>(Row)).Cells.at(static_cast<size_t>(Col)) = Text;
  FCells->Refresh();
}

void TStringGrid::SetControl(int Row, wxWindow* Control) {
  FRows.at(static_cast<size_t>(Row)).Control = Control;
  Control->Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& Event) { FGuard([&] { HandleWheel(Event); }); });
  Control->SetSize(CellRect(ColCount() - 1, Row));
}

void TStringGrid::ShowRow(int Row) {
  const int Top = (Row - 1) * FRowHeight, Bottom = Top + FRowHeight, Height = FCells->GetClientSize().y;
  if (Top < FOffset)
    ScrollTo(Top);
  else if (Bottom > FOffset + Height)
    ScrollTo(Bottom - Height);
}

int TStringGrid::MaxOffset() const {
  return std::max(0, (RowCount() - 1) * FRowHeight - FCells->GetClientSize().y);
}

int TStringGrid::RowAt(int Y) const {
  return (Y + FOffset) / FRowHeight + 1;
}

int TStringGrid::RowOf(const wxWindow* Control) const {
  const auto Found =
      std::find_if(FRows.begin(), FRows.end(), [&](const TRow& R) { return R.Control == Control; });
  return Control && Found != FRows.end() ? static_cast<int>(Found - FRows.begin()) : -1;
}

int TStringGrid::PageRows() const {
  return std::max(1, FCells->GetClientSize().y / FRowHeight - 1);
}

void TStringGrid::ScrollTo(int Offset) {
  const wxSize Client = GetClientSize();
  FCells->SetSize(0, FRowHeight, Client.x, std::max(0, Client.y - FRowHeight));
  FOffset = std::clamp(Offset, 0, MaxOffset());
  PlaceControls();
  Refresh();
  FCells->Refresh();
}

void TStringGrid::PlaceControls() {
  for (int Row = 1; Row < RowCount(); ++Row)
    if (wxWindow* const Control = FRows[static_cast<size_t>(Row)].Control)
      Control->SetSize(CellRect(ColCount() - 1, Row));
}

void TStringGrid::FocusRow(int Row) {
  if (RowCount() < 2) return;
  Row = std::clamp(Row, 1, RowCount() - 1);
  ShowRow(Row);
  if (wxWindow* const Control = FRows[static_cast<size_t>(Row)].Control) Control->SetFocus();
}

wxRect TStringGrid::ArrowRect(bool Up) const {
  const int Right = GetClientSize().x - (Up ? 2 : 1) * FRowHeight;
  return wxRect(Right, 0, FRowHeight, FRowHeight);
}

void TStringGrid::DrawHeader() {
  wxAutoBufferedPaintDC DC(this);
  DC.SetBackground(wxBrush(Colour(wxSYS_COLOUR_BTNFACE)));
  DC.Clear();
  DC.SetFont(GetFont());
  DC.SetTextForeground(Colour(wxSYS_COLOUR_BTNTEXT));
  DC.SetPen(wxPen(Colour(wxSYS_COLOUR_BTNSHADOW)));
  for (int Col = 0; Col < ColCount(); ++Col) {
    const wxRect R = CellRect(Col, 0);
    DrawText(DC, Cell(Col, 0), R);
    DC.DrawLine(R.GetRight(), R.y, R.GetRight(), R.GetBottom());
  }
  DC.DrawLine(0, FRowHeight - 1, GetClientSize().x, FRowHeight - 1);
  if (MaxOffset() == 0) return;
  DrawArrow(DC, true);
  DrawArrow(DC, false);
}

void TStringGrid::DrawArrow(wxDC& DC, bool Up) const {
  const bool More = Up ? FOffset > 0 : FOffset < MaxOffset();
  const wxRect R = ArrowRect(Up);
  const int Size = std::max(3, FRowHeight / 6), X = R.x + R.width / 2, Y = R.y + R.height / 2;
  const int Tip = Up ? -Size / 2 : Size / 2;
  const wxPoint Triangle[] = {
      {X - Size, Y - Tip}, {X + Size, Y - Tip}, {X, Y + (Up ? -Size : Size) - Tip / 2}};
  const wxColour Fill = Colour(More ? wxSYS_COLOUR_BTNTEXT : wxSYS_COLOUR_BTNSHADOW);
  DC.SetPen(wxPen(Fill));
  DC.SetBrush(wxBrush(Fill));
  DC.DrawPolygon(3, Triangle);
}

void TStringGrid::DrawCells() {
  wxAutoBufferedPaintDC DC(FCells);
  DC.SetBackground(wxBrush(Colour(wxSYS_COLOUR_WINDOW)));
  DC.Clear();
  DC.SetFont(GetFont());
  const wxWindow* const Focus = FindFocus();
  for (int Row = 1; Row < RowCount(); ++Row) {
    const wxRect R = CellRect(0, Row);
    if (R.GetBottom() < 0 || R.y > FCells->GetClientSize().y) continue;
    const bool Marked = Focus && FRows[static_cast<size_t>(Row)].Control == Focus;
    if (Marked) {
      DC.SetPen(*wxTRANSPARENT_PEN);
      DC.SetBrush(wxBrush(Colour(wxSYS_COLOUR_HIGHLIGHT)));
      DC.DrawRectangle(R);
    }
    DC.SetTextForeground(Colour(Marked ? wxSYS_COLOUR_HIGHLIGHTTEXT : wxSYS_COLOUR_WINDOWTEXT));
    DrawText(DC, Cell(0, Row), R);
    DC.SetPen(wxPen(Colour(wxSYS_COLOUR_BTNSHADOW)));
    DC.DrawLine(0, R.GetBottom(), FCells->GetClientSize().x, R.GetBottom());
    DC.DrawLine(R.GetRight(), R.y, R.GetRight(), R.GetBottom());
  }
}

void TStringGrid::HandleKey(wxKeyEvent& Event) {
  const int Row = RowOf(dynamic_cast<wxWindow*>(Event.GetEventObject()));
  if (Row < 1 || Event.HasAnyModifiers()) return Event.Skip();
  switch (Event.GetKeyCode()) {
  case WXK_UP:
  case WXK_NUMPAD_UP:
    return FocusRow(Row - 1);
  case WXK_DOWN:
  case WXK_NUMPAD_DOWN:
    return FocusRow(Row + 1);
  case WXK_PAGEUP:
  case WXK_NUMPAD_PAGEUP:
    return FocusRow(Row - PageRows());
  case WXK_PAGEDOWN:
  case WXK_NUMPAD_PAGEDOWN:
    return FocusRow(Row + PageRows());
  case WXK_HOME:
  case WXK_NUMPAD_HOME:
    return FocusRow(1);
  case WXK_END:
  case WXK_NUMPAD_END:
    return FocusRow(RowCount() - 1);
  default:
    Event.Skip();
  }
}

void TStringGrid::HandleWheel(wxMouseEvent& Event) {
  if (Event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL) return;
  FWheel += Event.GetWheelRotation();
  const int Notches = FWheel / std::max(1, Event.GetWheelDelta());
  FWheel -= Notches * std::max(1, Event.GetWheelDelta());
  if (Notches) ScrollTo(FOffset - Notches * FRowHeight);
}

void TStringGrid::HandleHeaderClick(wxMouseEvent& Event) {
  for (const bool Up : {true, false})
    if (MaxOffset() > 0 && ArrowRect(Up).Contains(Event.GetPosition()))
      return ScrollTo(FOffset + (Up ? -1 : 1) * PageRows() * FRowHeight);
  FocusRow(FCurrentRow);
}

void TStringGrid::HandleFocus(wxChildFocusEvent& Event) {
  Event.Skip();
  const int Row = RowOf(Event.GetWindow());
  if (Row < 1) return;
  FCurrentRow = Row;
  ShowRow(Row);
  FCells->Refresh();
}

void TStringGrid::ShowTip(int Row) {
  const wxString Text = Cell(0, Row);
  const bool Cut = !FColWidths.empty() && GetTextExtent(Text).x > FColWidths[0] - 2 * Padding;
  const wxString Tip = Cut ? Text : wxString();
  if (FCells->GetToolTipText() != Tip) FCells->SetToolTip(Tip);
}

} // namespace unitlib
