/// The grid of a schedule: shows and edits the items of a project, and follows the project's units.
#pragma once

#include "apps/takeoff/ScheduleTable.h"

namespace unitlib::takeoff {

/// A listener on both lists of the refresh manager: before units change it commits the cell being edited,
/// after the change it draws anew.
class TScheduleGrid final : public wxGrid {
public:
  explicit TScheduleGrid(wxWindow* Parent);
  ~TScheduleGrid() override;

  /// What became of an edit.
  std::function<void(const TScheduleTable::TEdit&)> OnEdit;

  /// How the text in the open editor would be read; empty when there is none.
  std::function<void(const wxString&)> OnTyping;

  /// Called by the editor as its text changes.
  void TellTyping(int Row, int Column, const wxString& Text);

  /// Shows a project (borrowed; null: none).
  void SetProject(TProject* Project);
  /// After rows were added to or taken from the project.
  void RowsChanged();
  /// Ends editing as Enter does. False: the text was refused.
  bool CommitEdit();
  /// The rows of all selected cells, else the cursor's.
  std::vector<std::size_t> ChosenRows() const;
  void GoTo(std::size_t Row, TColumn Column);

  /// Listeners.
  void BeforeUnitChange() { CommitEdit(); }
  void RefreshUnit();

private:
  void SetUpColumns();
  void SetUpMeasures();
  void HandleEdit(const TScheduleTable::TEdit& Edit);
  void ReturnTo(int Row, int Column);

  TScheduleTable* FTable;  // owned by the grid
  int FRows = 0;           // that the grid knows of
  bool FRefused = false;   // the last edit was
  bool FReturning = false; // the cursor is on its way back to a refused text
};

} // namespace unitlib::takeoff
