/// The totals under the schedule: one line for each measure that occurs.
#pragma once

#include "apps/takeoff/Project.h"

#include <wx/listctrl.h>

namespace unitlib::takeoff {

class TTotalsList final : public wxListCtrl {
public:
  explicit TTotalsList(wxWindow* Parent);
  ~TTotalsList() override;

  /// Counts the project (borrowed; null: none) anew.
  void ShowProject(const TProject* Project);

  /// Listener: the same sums in other units.
  void RefreshUnit() { ShowProject(FProject); }

private:
  void AddLine(const wxString& Measure, const wxString& Total, std::size_t Count);

  const TProject* FProject = nullptr;
};

} // namespace unitlib::takeoff
