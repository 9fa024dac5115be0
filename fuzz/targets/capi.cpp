/// Input: calls of the C interface, a byte for the function and what its arguments need; texts end at a
/// separator.
#include "fuzz/Check.h"
#include "fuzz/ModelText.h"
#include "fuzz/Targets.h"
#include "fuzz/WorkFolder.h"
#include "fuzz/capi/Sequence.h"

#include <algorithm>
#include <iterator>

namespace unitlib::fuzz {
namespace {

constexpr int MostCalls = 40;
constexpr std::int32_t Codes[] = {0, 7, 3, 1, -1, 2, 42};

std::size_t Behind(const std::string& Text, std::string_view Mark, std::size_t From) {
  return Text.find(Mark, From) + Mark.size();
}

/// The factory settings, cut down to what loads fast: the first configuration with four measures, and of each
/// measure the first two units and the last one.
std::string SmallSettings(std::string Xml) {
  std::size_t End = 0;
  for (int I = 0; I < 4; ++I) {
    const std::size_t Second = Behind(Xml, "</Unit>", Behind(Xml, "</Unit>", End));
    Xml.erase(Second, Xml.rfind("<Unit ", Xml.find("</Measurement>", Second)) - Second);
    End = Behind(Xml, "</Measurement>", Second);
  }
  Xml.erase(End, Xml.find("</Config>", End) - End);
  const std::size_t Config = Behind(Xml, "</Config>", End);
  Xml.erase(Config, Xml.find("</TemplateConfig>") - Config);
  return Xml.replace(Xml.find("\"-1\""), 4, "\"0\""); // a choice, so that loading does not save
}

const std::string& SettingsFile() {
  static const std::string Path = [] {
    // Nothing may be written outside: the working copy goes beside the settings.
    for (const auto Set : {ul_set_common_documents_path_u8, ul_set_exe_path_u8})
      if (Set(WorkPath("").c_str(), UL_TO_NUL) != UL_OK) Fail("no folders");
    const std::string File = WorkPath("small.xml");
    if (ul_generate_default_config_file_u8(File.c_str(), UL_TO_NUL) != UL_OK) Fail("no factory settings");
    WriteFile(File, SmallSettings(ReadFile(File)));
    return File;
  }();
  return Path;
}

} // namespace

const TCalls::TFunction TCalls::Functions[] = {&TCalls::Load,
                                               &TCalls::LoadMissing,
                                               &TCalls::Free,
                                               &TCalls::Save,
                                               &TCalls::StoreToDisplay,
                                               &TCalls::DisplayToStore,
                                               &TCalls::DecimalValueToStore,
                                               &TCalls::IsANum,
                                               &TCalls::ExprToStore,
                                               &TCalls::UnitSymbol,
                                               &TCalls::DisplayValue,
                                               &TCalls::Evaluate,
                                               &TCalls::ExpressionToStore,
                                               &TCalls::Elevation,
                                               &TCalls::ReadConfig,
                                               &TCalls::ReadMeasure,
                                               &TCalls::ReadUnit,
                                               &TCalls::ReadDigitGroups,
                                               &TCalls::Choose,
                                               &TCalls::ChooseByText,
                                               &TCalls::SetIncrement,
                                               &TCalls::SetSwitch,
                                               &TCalls::Restore,
                                               &TCalls::GroupDigits,
                                               &TCalls::HasParser,
                                               &TCalls::Listeners,
                                               &TCalls::Columns,
                                               &TCalls::Arguments,
                                               &TCalls::LastErrorText};

const TCalls::TFunction TCalls::Changing[] = {&TCalls::Free,         &TCalls::Choose,
                                              &TCalls::ChooseByText, &TCalls::SetIncrement,
                                              &TCalls::SetSwitch,    &TCalls::Restore};

std::int32_t TCalls::Code() {
  return Codes[FInput.Below(std::size(Codes))];
}

void TCalls::Run() {
  ClearTrace();
  [[maybe_unused]] static const bool Loaded = (Load(), true);
  for (int I = 0; I < MostCalls && !FInput.AtEnd(); ++I) {
    const TFunction Function = Functions[FInput.Below(std::size(Functions))];
    (this->*Function)();
    FChanged =
        FChanged || std::find(std::begin(Changing), std::end(Changing), Function) != std::end(Changing);
  }
  if (FChanged) CheckSavedModel();
  if (FChanged) Load();
  Checked(ul_detach_refresh_unit(Listener, this));
  if (Checked(ul_set_cur_config_index(4711)) != UL_ERROR_INDEX) FailCall("a configuration outside the list");
  ClearTrace();
}

void TCalls::Load() {
  Trace("load");
  Checked(ul_initial_unit_system_u8(SettingsFile().c_str(), UL_TO_NUL, UL_US_IMPERIAL, 0));
}
void TCalls::LoadMissing() {
  Trace("load a file that is not there");
  const TTextIn Name(WideWorkPath("missing/none.xml"));
  if (Checked(ul_init_system_unit(Name.Wide(), Name.WideLength())) != UL_ERROR_FILE)
    FailCall("no file error");
  Load();
}
void TCalls::Free() {
  Trace("free");
  Checked(ul_free_unit_system());
  const auto Loaded = ResultOf<std::int32_t>("is_loaded", ul_is_loaded);
  if (Loaded != 0) FailCall("loaded after freeing");
  if (Checked(ul_set_cur_config_index(0)) != UL_ERROR_NOT_LOADED) FailCall("settings after freeing");
}
void TCalls::Save() {
  Trace("save");
  const std::string Path = WorkPath("saved.xml");
  Checked(ul_save_config_file_u8(Path.c_str(), UL_TO_NUL));
}

void TCalls::CheckSavedModel() {
  std::int32_t Loaded = 0;
  if (ul_is_loaded(&Loaded) != UL_OK || !Loaded) return;
  Trace("save at the end");
  const std::string Path = WorkPath("saved.xml");
  const std::string Before = ModelText(true);
  const ul_status Status = Checked(ul_save_config_file_u8(Path.c_str(), UL_TO_NUL));
  if (Status == UL_ERROR_XML) return; // a text that XML cannot carry was set
  if (Status != UL_OK) FailCall("not saved: " + Show(Status));
  if (Checked(ul_init_system_unit_u8(Path.c_str(), UL_TO_NUL)) != UL_OK) FailCall("not loaded again");
  if (ModelText(false) != Before) FailCall("other settings after saving and loading: " + ModelText(false));
}

void RunCapi(TInput& Input) {
  TCalls(Input).Run();
}

} // namespace unitlib::fuzz
