#include "apps/takeoff/TotalsList.h"

#include "apps/takeoff/Measures.h"
#include "apps/takeoff/ValueField.h"
#include "unitlib/notify/ZELUnitRefreshUtils.h"
#include "unitlib/ui/Toolkit.h"

namespace unitlib::takeoff {

TTotalsList::TTotalsList(wxWindow* Parent)
    : wxListCtrl(Parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxLC_SINGLE_SEL,
                 wxDefaultValidator, "Totals") {
  AppendColumn("Totals", wxLIST_FORMAT_LEFT, FromDIP(340));
  AppendColumn("Sum", wxLIST_FORMAT_RIGHT, FromDIP(190));
  AppendColumn("Items", wxLIST_FORMAT_RIGHT, FromDIP(80));
  UnitRefreshManager()->Attach(MethodOf<&TTotalsList::RefreshUnit>(this));
}

TTotalsList::~TTotalsList() {
  UnitRefreshManager()->Detach(MethodOf<&TTotalsList::RefreshUnit>(this));
}

void TTotalsList::ShowProject(const TProject* Project) {
  FProject = Project;
  Freeze();
  DeleteAllItems();
  if (Project) {
    const TTotals Totals = Project->Totals();
    for (const TTotal& Total : Totals.ByMeasure)
      AddLine(ToWx(MeasureName(Total.Measure)), ToWx(TValueField(Total.Measure).Display(Total.Sum)),
              Total.Count);
    if (Totals.LeftOut > 0) AddLine("Not counted: no number or no usable measure", "", Totals.LeftOut);
  }
  Thaw();
}

void TTotalsList::AddLine(const wxString& Measure, const wxString& Total, std::size_t Count) {
  const long Line = InsertItem(GetItemCount(), Measure);
  SetItem(Line, 1, Total);
  SetItem(Line, 2, wxString::Format("%zu", Count));
}

} // namespace unitlib::takeoff
