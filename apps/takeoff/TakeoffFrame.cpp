#include "apps/takeoff/TakeoffFrame.h"

#include "apps/common/Files.h"
#include "apps/takeoff/DataFolder.h"
#include "apps/takeoff/Errors.h"
#include "apps/takeoff/Measures.h"
#include "apps/takeoff/ValueField.h"
#include "unitlib/notify/ZELUnitRefreshUtils.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/ui/Toolkit.h"

#include <wx/button.h>
#include <wx/filedlg.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/progdlg.h>
#include <wx/sizer.h>

#include <cstdio>

namespace unitlib::takeoff {
namespace {

enum TCommand : int {
  ImportCommand = wxID_HIGHEST + 1,
  ExportCommand,
  AddCommand,
  DeleteCommand,
  UnitsCommand
};

constexpr const char* ProjectFiles = "Take-off projects (*.takeoff)|*.takeoff|All files|*";
constexpr const char* CsvFiles = "CSV files (*.csv)|*.csv|All files|*";

/// Runs a command; nothing it raises gets into the toolkit's loop.
template <class TBody> void Guard(wxWindow* Window, TBody Body) {
  try {
    Body();
  } catch (const EUnitError& Error) {
    ShowError(Window, Error.Message());
  } catch (const std::exception& Error) {
    ShowError(Window, FromUtf8(Error.what()));
  }
}

/// Progress of a long run; nothing is shown for a short one.
class TProgressWindow {
public:
  TProgressWindow(wxWindow* Parent, const wxString& Title, std::uint64_t Total) : FTotal(Total) {
    constexpr std::uint64_t Long = std::uint64_t{256} * 1024; // bytes that take noticeable time
    constexpr int Style = wxPD_APP_MODAL | wxPD_AUTO_HIDE | wxPD_CAN_ABORT | wxPD_ELAPSED_TIME;
    if (Total >= Long) FDialog.emplace(Title, "Reading...", Steps, Parent, Style);
  }

  /// False: the user has cancelled.
  bool Update(std::uint64_t Done, const wxString& Text) {
    const auto Step = static_cast<int>(
        std::min<std::uint64_t>(Done * Steps / std::max<std::uint64_t>(FTotal, 1), Steps - 1));
    return !FDialog || FDialog->Update(Step, Text);
  }

private:
  static constexpr int Steps = 1000;
  std::uint64_t FTotal;
  std::optional<wxProgressDialog> FDialog;
};

wxString ItemCount(std::size_t Count) {
  return wxString::Format(Count == 1 ? "%zu item" : "%zu items", Count);
}

} // namespace

void ShowError(wxWindow* Parent, const std::u16string& Message) {
  std::fprintf(stderr, "takeoff: %s\n", ToUtf8(Message).c_str());
  wxMessageBox(ToWx(Message), "Take-off", wxOK | wxICON_ERROR, Parent);
}

TTakeoffFrame::TTakeoffFrame(std::optional<std::u16string> Settings)
    : wxFrame(nullptr, wxID_ANY, "Take-off", wxDefaultPosition, wxDefaultSize, wxDEFAULT_FRAME_STYLE,
              "TakeoffFrame"),
      FOneSettings(std::move(Settings)) {
  BuildMenus();
  CreateStatusBar(2)->SetName("Status");
  const int Widths[] = {-1, FromDIP(150)};
  SetStatusWidths(2, Widths);
  FInfo = new wxInfoBar(this);
  FGrid = new TScheduleGrid(this);
  FTyping = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                             wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END, "Typing");
  FGrid->OnTyping = [this](const wxString& Hint) { FTyping->SetLabelText(Hint); };
  FTotals = new TTotalsList(this);
  FTotals->SetMinSize(FromDIP(wxSize(-1, 215)));
  FGrid->OnEdit = [this](const TScheduleTable::TEdit& Edit) { ShowEdit(Edit); };

  auto* const Sizer = new wxBoxSizer(wxVERTICAL);
  Sizer->Add(FInfo, 0, wxEXPAND);
  Sizer->Add(BuildButtons(), 0, wxEXPAND | wxALL, FromDIP(4));
  Sizer->Add(FGrid, 1, wxEXPAND);
  Sizer->Add(FTyping, 0, wxEXPAND | wxALL, FromDIP(4));
  Sizer->Add(FTotals, 0, wxEXPAND | wxTOP, FromDIP(4));
  SetSizer(Sizer);
  SetClientSize(FromDIP(wxSize(960, 700)));
  Centre();
  Bind(wxEVT_CLOSE_WINDOW, &TTakeoffFrame::HandleClose, this);
}

TTakeoffFrame::~TTakeoffFrame() {
  FGrid->SetProject(nullptr);
  FTotals->ShowProject(nullptr);
}

void TTakeoffFrame::BuildMenus() {
  auto* const File = new wxMenu;
  File->Append(wxID_NEW, "&New Project...\tCtrl+N");
  File->Append(wxID_OPEN, "&Open Project...\tCtrl+O");
  File->AppendSeparator();
  File->Append(ImportCommand, "&Import CSV...\tCtrl+I");
  File->Append(ExportCommand, "&Export CSV...\tCtrl+E");
  File->AppendSeparator();
  File->Append(wxID_EXIT, "&Quit\tCtrl+Q");
  auto* const Edit = new wxMenu;
  Edit->Append(AddCommand, "&Add Item\tCtrl+Return");
  Edit->Append(DeleteCommand, "&Delete Items\tCtrl+Delete");
  Edit->AppendSeparator();
  Edit->Append(UnitsCommand, "Project &Units...\tCtrl+U");
  auto* const Bar = new wxMenuBar;
  Bar->Append(File, "&File");
  Bar->Append(Edit, "&Edit");
  SetMenuBar(Bar);

  const auto On = [this](int Command, void (TTakeoffFrame::*Method)()) {
    const auto Run = [this, Method](wxCommandEvent&) { Guard(this, [&] { (this->*Method)(); }); };
    Bind(wxEVT_MENU, Run, Command);
    Bind(wxEVT_BUTTON, Run, Command);
  };
  On(wxID_NEW, &TTakeoffFrame::NewProject);
  On(wxID_OPEN, &TTakeoffFrame::OpenProject);
  On(ImportCommand, &TTakeoffFrame::ImportCsv);
  On(ExportCommand, &TTakeoffFrame::ExportCsv);
  On(AddCommand, &TTakeoffFrame::AddItem);
  On(DeleteCommand, &TTakeoffFrame::DeleteItems);
  On(UnitsCommand, &TTakeoffFrame::EditUnits);
  Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, wxID_EXIT);
}

wxSizer* TTakeoffFrame::BuildButtons() {
  auto* const Row = new wxBoxSizer(wxHORIZONTAL);
  const auto Add = [&](int Command, const char* Label, const char* Name) {
    auto* const Button = new wxButton(this, Command, Label, wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT,
                                      wxDefaultValidator, Name);
    Row->Add(Button, 0, wxRIGHT, FromDIP(4));
  };
  Add(AddCommand, "Add Item", "AddItem");
  Add(DeleteCommand, "Delete", "DeleteItems");
  Add(ImportCommand, "Import CSV...", "ImportCsv");
  Add(ExportCommand, "Export CSV...", "ExportCsv");
  Row->AddStretchSpacer();
  Add(UnitsCommand, "Project Units...", "ProjectUnits");
  return Row;
}

void TTakeoffFrame::Open(const std::u16string& Path) {
  auto Opened = std::make_unique<TProject>(Path);
  LoadSettings(FOneSettings.value_or(SettingsBeside(Path)));
  FGrid->SetProject(Opened.get());
  FTotals->ShowProject(Opened.get());
  FProject = std::move(Opened);
  SetTitle(ToWx(ProjectTitle(Path)) + (FProject->ReadOnly() ? " [read only]" : "") + " - Take-off");
  Refill();
  TellProblems();
}

/// The settings of the project to come; when they cannot be loaded, those of the project that stays.
void TTakeoffFrame::LoadSettings(const std::u16string& Path) {
  using enum TUnitSettings::TIfMissing;
  const std::u16string Old = FSettings ? FSettings->Path() : u"";
  if (Old == Path) return;
  FSettings.reset(); // before the next one is loaded: there is one set per process
  try {
    FSettings = std::make_unique<TUnitSettings>(Path, FOneSettings ? Refuse : Create);
  } catch (...) {
    if (!Old.empty()) FSettings = std::make_unique<TUnitSettings>(Old, Refuse);
    throw;
  }
}

/// Items that the file holds and that cannot be shown.
void TTakeoffFrame::TellProblems() {
  std::size_t Count = 0;
  std::u16string First;
  for (std::size_t Row = 0; Row < FProject->Count(); ++Row) {
    const TItem& Item = FProject->Item(Row);
    const TValueField Field(Item.Measure);
    if (Field.CanDisplay(Item.Value) || ++Count > 1) continue;
    First = u"row " + FromWx(wxString::Format("%zu", Row + 1)) + u" \"" + Item.Name + u"\": " +
            Field.Display(Item.Value);
  }
  if (Count == 0) return FInfo->Dismiss();
  const wxString Others = Count > 1 ? wxString::Format(", and %zu more", Count - 1) : wxString();
  FInfo->ShowMessage("Cannot be shown and is not counted: " + ToWx(First) + Others, wxICON_WARNING);
}

/// After rows came or went.
void TTakeoffFrame::Refill() {
  FGrid->RowsChanged();
  FTotals->ShowProject(FProject.get());
  SetStatusText(FProject ? ItemCount(FProject->Count()) : wxString(), 1);
}

void TTakeoffFrame::Say(const wxString& Text) {
  SetStatusText(Text);
}

void TTakeoffFrame::ShowEdit(const TScheduleTable::TEdit& Edit) {
  if (!Edit.Problem.empty()) {
    wxBell();
    return Say("Not changed: " + ToWx(Edit.Problem) + "  (F2 brings the text back)");
  }
  if (Edit.Column == ValueColumn || Edit.Column == ElevationColumn)
    Say(ToWx(Trim(Edit.Text)) + "  =  " + FGrid->GetCellValue(Edit.Row, Edit.Column));
  else
    Say("");
  FTotals->ShowProject(FProject.get());
}

std::string TTakeoffFrame::AskFile(const wxString& Title, const wxString& Wildcard, long Style) {
  wxFileDialog Dialog(this, Title, "", "", Wildcard, Style);
  return Dialog.ShowModal() == wxID_OK ? Dialog.GetPath().utf8_string() : std::string();
}

void TTakeoffFrame::NewProject() {
  const std::string File = AskFile("New Project", ProjectFiles, wxFD_SAVE);
  if (File.empty() || !FGrid->CommitEdit()) return;
  const std::u16string Path = WithExtension(FromUtf8(File));
  TProjectStore::Create(Path);
  Open(Path);
}

void TTakeoffFrame::OpenProject() {
  const std::string File = AskFile("Open Project", ProjectFiles, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (!File.empty() && FGrid->CommitEdit()) Open(FromUtf8(File));
}

void TTakeoffFrame::ImportCsv() {
  if (!FGrid->CommitEdit()) return;
  const std::string File = AskFile("Import CSV", CsvFiles, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (!File.empty()) Import(File);
}

void TTakeoffFrame::Import(const std::string& File) {
  app::TInput Source(File);
  TImport Import;
  {
    TProgressWindow Progress(this, "Import CSV", Source.Size());
    Import = ReadItems(Source, [&](std::uint64_t Bytes) { return Progress.Update(Bytes, "Reading..."); });
  }
  if (Import.Stopped || !ConfirmImport(Import, File)) return Say("Nothing was imported");
  const std::size_t Count = Import.Items.size();
  const std::size_t First = FProject->Count();
  bool Added = false;
  {
    TProgressWindow Progress(this, "Import CSV", Source.Size());
    const auto Total = std::max<std::uint64_t>(Source.Size(), 1);
    Added = FProject->Add(std::move(Import.Items), [&](std::size_t Done) {
      return Progress.Update(Total * Done / std::max<std::size_t>(Count, 1), "Storing...");
    });
  }
  if (!Added) return Say("Nothing was imported");
  Refill();
  FGrid->GoTo(First, NameColumn);
  Say(ItemCount(Count) + " imported");
}

/// Rows that are left out are not left out in silence.
bool TTakeoffFrame::ConfirmImport(const TImport& Import, const std::string& File) {
  constexpr std::size_t Listed = 8;
  if (Import.BadRows == 0 && !Import.Items.empty()) return true;
  if (Import.BadRows == 0) throw ERefused(u"\"" + FromUtf8(File) + u"\" has no rows");
  wxString Text = wxString::Format("%zu rows cannot be imported:\n", Import.BadRows);
  for (std::size_t I = 0; I < Import.Problems.size() && I < Listed; ++I)
    Text += wxString::Format("line %llu: ", static_cast<unsigned long long>(Import.Problems[I].Line)) +
            ToWx(Import.Problems[I].Message) + "\n";
  if (Import.BadRows > Listed) Text += "...\n";
  if (Import.Items.empty()) throw ERefused(FromWx(Text));
  Text += "\nImport the other " + ItemCount(Import.Items.size()) + "?";
  return wxMessageBox(Text, "Import CSV", wxYES_NO | wxNO_DEFAULT | wxICON_WARNING, this) == wxYES;
}

void TTakeoffFrame::ExportCsv() {
  if (!FGrid->CommitEdit()) return;
  const std::string File = AskFile("Export CSV", CsvFiles, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
  if (File.empty()) return;
  app::TFileOutput Output(File);
  WriteSchedule(*FProject, Output);
  Say(ItemCount(FProject->Count()) + " exported to " + wxString::FromUTF8(File));
}

/// A new item like the one at the cursor, to be filled in.
void TTakeoffFrame::AddItem() {
  if (!FGrid->CommitEdit()) return;
  TItem Item;
  Item.Name = u"New item";
  const int Row = FGrid->GetGridCursorRow();
  if (Row >= 0) Item.Measure = FProject->Item(static_cast<std::size_t>(Row)).Measure;
  const std::vector<TMeasureChoice> Measures = UsableMeasures();
  if (!Measures.empty() && (Row < 0 || !MeasureProblem(Item.Measure).empty()))
    Item.Measure = Measures.front().Code;
  FProject->Add({Item});
  Refill();
  FGrid->GoTo(FProject->Count() - 1, NameColumn);
  Say("");
}

void TTakeoffFrame::DeleteItems() {
  if (!FGrid->CommitEdit()) return;
  const std::vector<std::size_t> Rows = FGrid->ChosenRows();
  if (Rows.empty()) return;
  const wxString What =
      Rows.size() == 1 ? "\"" + ToWx(FProject->Item(Rows.front()).Name) + "\"" : ItemCount(Rows.size());
  if (wxMessageBox("Delete " + What + "?", "Delete Items", wxYES_NO | wxICON_QUESTION, this) != wxYES) return;
  FProject->Delete(Rows);
  Refill();
  if (FProject->Count() > 0) FGrid->GoTo(std::min(Rows.front(), FProject->Count() - 1), NameColumn);
  Say(ItemCount(Rows.size()) + " deleted");
}

void TTakeoffFrame::EditUnits() {
  // Cancel and failures reload the settings too, which may have been changed by hand meanwhile.
  struct TRedraw {
    TTakeoffFrame* Frame;
    ~TRedraw() {
      Frame->FGrid->RefreshUnit();
      Frame->FTotals->RefreshUnit();
    }
  } const Redraw{this};
  FSettings->Edit(MethodOf<&TTakeoffFrame::UnitsChanged>(this));
}

/// The OK callback of the dialog: every view of the host is told.
void TTakeoffFrame::UnitsChanged() {
  UnitRefreshManager()->RefreshUnit();
  TellProblems();
}

void TTakeoffFrame::HandleClose(wxCloseEvent& Event) {
  if (!FGrid->CommitEdit() && Event.CanVeto()) return Event.Veto();
  Event.Skip();
}

} // namespace unitlib::takeoff
