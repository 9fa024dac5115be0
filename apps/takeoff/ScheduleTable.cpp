#include "apps/takeoff/ScheduleTable.h"

#include "apps/takeoff/Errors.h"
#include "apps/takeoff/Measures.h"
#include "apps/takeoff/ValueField.h"
#include "unitlib/ui/Toolkit.h"

namespace unitlib::takeoff {
namespace {

constexpr const char* Labels[ColumnCount] = {"Item", "Measure", "Value", "As typed", "Elevation"};

} // namespace

int TScheduleTable::GetNumberRows() {
  return FProject ? static_cast<int>(FProject->Count()) : 0;
}

wxString TScheduleTable::GetColLabelValue(int Column) {
  // Elevations are written without their unit, among names: the heading says it once.
  return Labels[Column] + (Column == ElevationColumn ? ToWx(TElevationField::UnitSuffix()) : wxString());
}

wxString TScheduleTable::GetValue(int Row, int Column) {
  const TItem& Shown = Item(Row);
  switch (Column) {
  case NameColumn:
    return ToWx(Shown.Name);
  case MeasureColumn:
    return ToWx(MeasureName(Shown.Measure));
  case ValueColumn:
    return ToWx(TValueField(Shown.Measure).Display(Shown.Value));
  case TypedColumn:
    return ToWx(TValueField::TypedText(Shown));
  default:
    return ToWx(TElevationField::Display(Shown.Elevation));
  }
}

wxString TScheduleTable::EditText(int Row, int Column) const {
  const TItem& Edited = Item(Row);
  switch (Column) {
  case ValueColumn:
    return ToWx(TValueField(Edited.Measure).EditText(Edited));
  case ElevationColumn:
    return ToWx(TElevationField::EditText(Edited.Elevation));
  default:
    return ToWx(Edited.Name);
  }
}

wxString TScheduleTable::StartText(int Row, int Column) const {
  if (FRefused && FRefused->Row == Row && FRefused->Column == Column) return ToWx(FRefused->Text);
  return EditText(Row, Column);
}

wxString TScheduleTable::Hint(int Row, int Column, const wxString& Text) const {
  switch (Column) {
  case ValueColumn:
    return ToWx(TValueField(Item(Row).Measure).Hint(FromWx(Text)));
  case ElevationColumn:
    return ToWx(TElevationField::Hint(FromWx(Text)));
  default:
    return {};
  }
}

void TScheduleTable::ForgetRefused(int Row, int Column) {
  if (FRefused && (FRefused->Row != Row || FRefused->Column != Column)) FRefused.reset();
}

/// Called by the grid when the editing of a cell ends with another text than it started with.
void TScheduleTable::SetValue(int Row, int Column, const wxString& Value) {
  TEdit Made{Row, Column, FromWx(Value), {}};
  FRefused.reset();
  try {
    Edit(static_cast<std::size_t>(Row), Column, Made.Text);
  } catch (const EUnitError& Error) {
    Made.Problem = Error.Message();
    FRefused = Made;
  }
  if (OnEdit) OnEdit(Made);
}

void TScheduleTable::Edit(std::size_t Row, int Column, std::u16string_view Text) {
  switch (Column) {
  case NameColumn:
    return FProject->SetName(Row, Text);
  case MeasureColumn:
    return FProject->SetMeasure(Row, Text);
  case ValueColumn:
    return FProject->SetValue(Row, Text);
  case ElevationColumn:
    return FProject->SetElevation(Row, Text);
  default:
    return;
  }
}

} // namespace unitlib::takeoff
