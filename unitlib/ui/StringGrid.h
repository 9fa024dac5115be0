/// A grid of texts under a header row, with a control placed exactly over the last cell of each row.
#pragma once

#include <wx/panel.h>

#include <functional>
#include <vector>

namespace unitlib {

/// Rows are counted from 0, the header. The grid has no scroll bars; rows that do not fit are reached with
/// the wheel, the arrow and page keys, Tab, and the two arrows the header shows then. The grid itself takes
/// no focus while it has controls: setting the focus to it sets it to the current row's control.
class TStringGrid : public wxPanel {
public:
  /// Runs the body of each event handler; the owner keeps errors away from the toolkit.
  using TGuard = std::function<void(const std::function<void()>&)>;

  TStringGrid(wxWindow* Parent, const wxString& WindowName, TGuard Guard);

  int ColCount() const noexcept { return static_cast<int>(FColWidths.size()); }
  int RowCount() const noexcept { return static_cast<int>(FRows.size()); }
  /// Text of a cell; empty outside the grid.
  wxString Cell(int Col, int Row) const;
  /// Where a cell is, relative to Cells() (to the grid for the header).
  wxRect CellRect(int Col, int Row) const;
  /// The parent window for controls.
  wxWindow* Cells() const noexcept { return FCells; }
  /// Height at which every row can be seen.
  int FullHeight() const noexcept { return RowCount() * FRowHeight + 1; }
  int RowHeight() const noexcept { return FRowHeight; }

  /// Empties the grid and frees its controls.
  void SetCounts(int Cols, int Rows);
  void SetRowHeight(int Height);
  void SetColWidths(std::vector<int> Widths);
  void SetCell(int Col, int Row, const wxString& Text);
  /// Puts a child of Cells() over the last cell of a row; the grid moves it from now on.
  void SetControl(int Row, wxWindow* Control);
  /// Scrolls until the row can be seen.
  void ShowRow(int Row);

private:
  struct TRow {
    std::vector<wxString> Cells;
    wxWindow* Control = nullptr;
  };

  int MaxOffset() const;
  int RowAt(int Y) const;
  int RowOf(const wxWindow* Control) const;
  int PageRows() const;
  void ScrollTo(int Offset);
  void PlaceControls();
  void FocusRow(int Row);
  wxRect ArrowRect(bool Up) const;

  void DrawHeader();
  void DrawCells();
  void DrawArrow(wxDC& DC, bool Up) const;
  void HandleKey(wxKeyEvent& Event);
  void HandleWheel(wxMouseEvent& Event);
  void HandleHeaderClick(wxMouseEvent& Event);
  void HandleFocus(wxChildFocusEvent& Event);
  void ShowTip(int Row);

  TGuard FGuard;
  wxPanel* FCells;
  std::vector<TRow> FRows;
  std::vector<int> FColWidths;
  int FRowHeight = 24;
  int FOffset = 0; // pixels scrolled
  int FCurrentRow = 1;
  int FWheel = 0; // wheel rotation not yet used
};

} // namespace unitlib
