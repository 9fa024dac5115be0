#include "apps/takeoff/ScheduleGrid.h"

#include "apps/takeoff/Measures.h"
#include "unitlib/notify/ZELUnitRefreshUtils.h"
#include "unitlib/ui/Toolkit.h"

#include <wx/settings.h>
#include <wx/textctrl.h>

#include <set>

namespace unitlib::takeoff {
namespace {

/// Edits a cell's edit text instead of the one it shows, so that nothing is lost to rounding by looking at
/// it.
/// Tells the grid what is typed.
class TCellEditor final : public wxGridCellTextEditor {
public:
  void Create(wxWindow* Parent, wxWindowID Id, wxEvtHandler* Handler) override {
    wxGridCellTextEditor::Create(Parent, Id, Handler);
    Text()->Bind(wxEVT_TEXT, [this](wxCommandEvent& Event) {
      Event.Skip();
      if (FGrid) FGrid->TellTyping(FRow, FColumn, Text()->GetValue());
    });
  }

  void BeginEdit(int Row, int Column, wxGrid* Grid) override {
    FGrid = static_cast<TScheduleGrid*>(Grid);
    FRow = Row;
    FColumn = Column;
    const auto& Table = static_cast<const TScheduleTable&>(*Grid->GetTable());
    FUnchanged = Table.EditText(Row, Column);
    FStart = Table.StartText(Row, Column);
    DoBeginEdit(FStart);
    Text()->SetInsertionPointEnd(); // F2 goes on with the text ...
    FGrid->TellTyping(Row, Column, FStart);
  }

  void StartingKey(wxKeyEvent& Event) override {
    Text()->SelectAll(); // ... a typed character replaces it
    wxGridCellTextEditor::StartingKey(Event);
  }

  /// Ctrl and Delete is a command, not the start of an edit.
  bool IsAcceptedKey(wxKeyEvent& Event) override {
    return !Event.ControlDown() && wxGridCellTextEditor::IsAcceptedKey(Event);
  }

  bool EndEdit(int, int, const wxGrid*, const wxString&, wxString* Value) override {
    FEdited = Text()->GetValue();
    if (FEdited == FUnchanged) return false;
    if (Value) *Value = FEdited;
    return true;
  }

  void ApplyEdit(int Row, int Column, wxGrid* Grid) override {
    Grid->GetTable()->SetValue(Row, Column, FEdited);
  }
  void Reset() override { DoReset(FStart); }
  wxGridCellEditor* Clone() const override { return new TCellEditor(*this); }

private:
  TScheduleGrid* FGrid = nullptr;
  int FRow = 0;
  int FColumn = 0;
  wxString FUnchanged;
  wxString FStart;
  wxString FEdited;
};

} // namespace

TScheduleGrid::TScheduleGrid(wxWindow* Parent)
    : wxGrid(Parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS, "Schedule"),
      FTable(new TScheduleTable) {
  SetTable(FTable, true, wxGridSelectCells);
  FTable->OnEdit = [this](const TScheduleTable::TEdit& Edit) { HandleEdit(Edit); };
  SetUpColumns();
  Bind(wxEVT_GRID_SELECT_CELL, [this](wxGridEvent& Event) {
    if (!FReturning) FTable->ForgetRefused(Event.GetRow(), Event.GetCol());
    Event.Skip();
  });
  Bind(wxEVT_GRID_EDITOR_HIDDEN, [this](wxGridEvent& Event) {
    if (OnTyping) OnTyping({});
    Event.Skip();
  });
  UnitRefreshManager()->BeforeUnitChangeAttach(MethodOf<&TScheduleGrid::BeforeUnitChange>(this));
  UnitRefreshManager()->Attach(MethodOf<&TScheduleGrid::RefreshUnit>(this));
}

TScheduleGrid::~TScheduleGrid() {
  UnitRefreshManager()->BeforeUnitChangeDetach(MethodOf<&TScheduleGrid::BeforeUnitChange>(this));
  UnitRefreshManager()->Detach(MethodOf<&TScheduleGrid::RefreshUnit>(this));
}

void TScheduleGrid::SetUpColumns() {
  constexpr int Widths[ColumnCount] = {300, 190, 150, 150, 120};
  SetDefaultEditor(new TCellEditor);
  SetDefaultCellAlignment(wxALIGN_LEFT, wxALIGN_CENTRE);
  DisableDragRowSize(); // rows of one height cost nothing, however many
  SetRowLabelSize(FromDIP(50));
  SetColLabelSize(FromDIP(26));
  SetDefaultRowSize(FromDIP(24), true);
  for (int Column = 0; Column < ColumnCount; ++Column) SetColSize(Column, FromDIP(Widths[Column]));

  auto* const Right = new wxGridCellAttr;
  Right->SetAlignment(wxALIGN_RIGHT, wxALIGN_CENTRE);
  SetColAttr(ValueColumn, Right);
  auto* const Locked = new wxGridCellAttr;
  Locked->SetReadOnly();
  Locked->SetTextColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
  SetColAttr(TypedColumn, Locked);
}

/// The measures to choose from follow the settings.
void TScheduleGrid::SetUpMeasures() {
  wxArrayString Names;
  for (const TMeasureChoice& Choice : UsableMeasures()) Names.push_back(ToWx(Choice.Name));
  auto* const Choices = new wxGridCellAttr;
  Choices->SetEditor(new wxGridCellChoiceEditor(Names));
  SetColAttr(MeasureColumn, Choices);
}

void TScheduleGrid::SetProject(TProject* Project) {
  DisableCellEditControl();
  FTable->SetProject(nullptr);
  RowsChanged();
  FTable->SetProject(Project);
  SetUpMeasures();
  RowsChanged();
  if (FRows > 0) GoTo(0, NameColumn);
}

void TScheduleGrid::RowsChanged() {
  const int Rows = FTable->GetNumberRows();
  if (Rows > FRows) {
    wxGridTableMessage Message(FTable, wxGRIDTABLE_NOTIFY_ROWS_APPENDED, Rows - FRows);
    ProcessTableMessage(Message);
  } else if (Rows < FRows) {
    wxGridTableMessage Message(FTable, wxGRIDTABLE_NOTIFY_ROWS_DELETED, Rows, FRows - Rows);
    ProcessTableMessage(Message);
  }
  FRows = Rows;
  FTable->ForgetRefused(-1, -1);
  ForceRefresh();
}

bool TScheduleGrid::CommitEdit() {
  FRefused = false;
  if (IsCellEditControlEnabled()) DisableCellEditControl();
  return !FRefused;
}

std::vector<std::size_t> TScheduleGrid::ChosenRows() const {
  std::set<std::size_t> Rows;
  for (const wxGridBlockCoords& Block : GetSelectedBlocks())
    for (int Row = Block.GetTopRow(); Row <= Block.GetBottomRow(); ++Row)
      Rows.insert(static_cast<std::size_t>(Row));
  if (Rows.empty() && GetGridCursorRow() >= 0) Rows.insert(static_cast<std::size_t>(GetGridCursorRow()));
  return {Rows.begin(), Rows.end()};
}

void TScheduleGrid::GoTo(std::size_t Row, TColumn Column) {
  GoToCell(static_cast<int>(Row), Column);
  SetFocus();
}

void TScheduleGrid::TellTyping(int Row, int Column, const wxString& Text) {
  if (OnTyping) OnTyping(FTable->Hint(Row, Column, Text));
}

void TScheduleGrid::RefreshUnit() {
  SetUpMeasures();
  ForceRefresh();
}

void TScheduleGrid::HandleEdit(const TScheduleTable::TEdit& Edit) {
  FRefused = !Edit.Problem.empty();
  if (FRefused) ReturnTo(Edit.Row, Edit.Column);
  ForceRefresh(); // the edit may show in other columns too
  if (OnEdit) OnEdit(Edit);
}

/// The key that ended editing may move the cursor on; a refused text brings it back.
void TScheduleGrid::ReturnTo(int Row, int Column) {
  FReturning = true;
  CallAfter([this, Row, Column] {
    if (Row < FRows) GoToCell(Row, Column);
    FReturning = false;
  });
}

} // namespace unitlib::takeoff
