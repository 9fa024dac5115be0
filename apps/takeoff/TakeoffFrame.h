/// The window of the program: a project's schedule, its totals and the commands.
#pragma once

#include "apps/takeoff/CsvExchange.h"
#include "apps/takeoff/Project.h"
#include "apps/takeoff/ScheduleGrid.h"
#include "apps/takeoff/TotalsList.h"
#include "apps/takeoff/UnitSettings.h"

#include <wx/frame.h>
#include <wx/infobar.h>
#include <wx/stattext.h>

#include <memory>
#include <optional>
#include <string>

namespace unitlib::takeoff {

class TTakeoffFrame final : public wxFrame {
public:
  /// Settings     one settings file for every project; without it each project has its own beside it
  explicit TTakeoffFrame(std::optional<std::u16string> Settings);
  ~TTakeoffFrame() override;

  /// Shows a project in place of the one that is open, which stays open when this fails.
  /// errors      EProjectError, EFileError, EXmlError
  void Open(const std::u16string& Path);

  // Commands. None raises: failures are shown.

  void NewProject();
  void OpenProject();
  void ImportCsv();
  void ExportCsv();
  void AddItem();
  void DeleteItems();
  void EditUnits();

  TScheduleGrid& Grid() const noexcept { return *FGrid; }
  const TProject* Project() const noexcept { return FProject.get(); }

private:
  void BuildMenus();
  wxSizer* BuildButtons();
  void LoadSettings(const std::u16string& Path);
  void TellProblems();
  void Refill();
  void ShowEdit(const TScheduleTable::TEdit& Edit);
  bool ConfirmImport(const TImport& Import, const std::string& File);
  void Import(const std::string& File);
  void UnitsChanged();
  void HandleClose(wxCloseEvent& Event);
  std::string AskFile(const wxString& Title, const wxString& Wildcard, long Style);
  void Say(const wxString& Text);

  std::optional<std::u16string> FOneSettings;
  std::unique_ptr<TProject> FProject;
  std::unique_ptr<TUnitSettings> FSettings;
  wxInfoBar* FInfo;
  TScheduleGrid* FGrid;
  wxStaticText* FTyping; // how the text being typed is read
  TTotalsList* FTotals;
};

/// Shows an error in a box, and on the terminal for those who started the program there.
void ShowError(wxWindow* Parent, const std::u16string& Message);

} // namespace unitlib::takeoff
