/// The items of a project as the grid's table: texts are made when a cell is drawn, edits go straight to the
/// project.
#pragma once

#include "apps/takeoff/Project.h"

#include <wx/grid.h>

#include <functional>
#include <optional>

namespace unitlib::takeoff {

enum TColumn : int { NameColumn, MeasureColumn, ValueColumn, TypedColumn, ElevationColumn, ColumnCount };

/// Converts nothing but the cells that are asked for, so that any number of rows is drawn as fast as a
/// screenful.
class TScheduleTable final : public wxGridTableBase {
public:
  /// An edit and what became of it: Problem is empty when it was made.
  struct TEdit {
    int Row = 0;
    int Column = 0;
    std::u16string Text;
    std::u16string Problem;
  };
  std::function<void(const TEdit&)> OnEdit;

  /// The project is borrowed; null: no rows. The grid has to be told by its own means (see TScheduleGrid).
  void SetProject(TProject* Project) noexcept { FProject = Project; }

  /// Text that editing a cell starts with: what was refused there last, else the cell's own.
  wxString StartText(int Row, int Column) const;
  /// The cell's own text for editing; an edit that ends with it changes nothing.
  wxString EditText(int Row, int Column) const;
  /// How a text typed into a cell would be read.
  wxString Hint(int Row, int Column, const wxString& Text) const;
  /// Forgets a refused text unless it stands in this cell.
  void ForgetRefused(int Row, int Column);

  int GetNumberRows() override;
  int GetNumberCols() override { return ColumnCount; }
  wxString GetValue(int Row, int Column) override;
  void SetValue(int Row, int Column, const wxString& Value) override;
  wxString GetColLabelValue(int Column) override;

private:
  const TItem& Item(int Row) const { return FProject->Item(static_cast<std::size_t>(Row)); }
  void Edit(std::size_t Row, int Column, std::u16string_view Text);

  TProject* FProject = nullptr;
  std::optional<TEdit> FRefused;
};

} // namespace unitlib::takeoff
