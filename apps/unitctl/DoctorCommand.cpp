/// unitctl doctor: checks a settings file and writes a repaired copy.
#include "apps/unitctl/Arguments.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Json.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/SettingsCheck.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace unitlib::app {
namespace {

struct TDoctorOptions {
  std::optional<std::string> File;
  std::optional<std::string> Output;
  std::vector<std::string> Known;
  bool Fix = false;
  bool Force = false;
  bool Json = false;
};

std::filesystem::path NativePath(const std::string& Path) {
  return std::filesystem::path(std::u8string(Path.begin(), Path.end()));
}

/// "project.xml" gives "project-repaired.xml".
std::string BesideName(const std::string& Path) {
  const std::filesystem::path File = NativePath(Path);
  std::filesystem::path Name = File.stem();
  Name += "-repaired";
  Name += File.extension();
  const std::u8string Result =
      File.parent_path().empty() ? Name.u8string() : (File.parent_path() / Name).u8string();
  return {Result.begin(), Result.end()};
}

/// Where the copy goes. errors      ERefused the file itself, or a file that is there already
std::string CopyPath(const TDoctorOptions& Options, const std::string& Path) {
  if (Options.Output && Options.Output->empty()) throw ERefused(Say("schedule.no-output"));
  std::string Copy = Options.Output.value_or(BesideName(Path));
  std::error_code Error;
  if (std::filesystem::equivalent(NativePath(Copy), NativePath(Path), Error))
    throw ERefused(Say("doctor.same-file", Printable(Copy)));
  const auto Status = std::filesystem::symlink_status(NativePath(Copy), Error);
  if (Status.type() != std::filesystem::file_type::not_found && !Options.Force)
    throw ERefused(Say("doctor.exists", Printable(Copy)));
  return Copy;
}

std::string AsText(const std::string& Path, const std::vector<TFinding>& Findings) {
  std::string Text;
  for (const TFinding& Finding : Findings) {
    Text += Printable(Path);
    if (Finding.Line > 0) Text += ":" + std::to_string(Finding.Line);
    Text += ": " + (Finding.Place.empty() ? "" : Finding.Place + ": ") + Finding.Problem + "\n";
    Text += "    " + Finding.Advice + "\n";
  }
  return Text;
}

std::string AsJson(const std::string& Path, const std::vector<TFinding>& Findings, const std::string& Copy) {
  TJson Json;
  Json.Open('{');
  Json.Key("settings");
  Json.Text(Path);
  Json.Key("findings");
  Json.Open('[');
  for (const TFinding& Finding : Findings) {
    Json.Open('{');
    Json.Key("kind");
    Json.Text(Finding.Kind);
    Json.Key("line");
    if (Finding.Line > 0)
      Json.Number(Finding.Line);
    else
      Json.Null();
    Json.Key("place");
    Json.Text(Finding.Place);
    Json.Key("problem");
    Json.Text(Finding.Problem);
    Json.Key("advice");
    Json.Text(Finding.Advice);
    Json.Key("repairable");
    Json.Boolean(Finding.Repaired);
    Json.Close('}');
  }
  Json.Close(']');
  Json.Key("repaired");
  if (Copy.empty())
    Json.Null();
  else
    Json.Text(Copy);
  Json.Close('}');
  return Json.Take();
}

/// Writes the copy when there is something to repair and it can be. return      its path, else empty
std::string WriteCopy(const TDoctorOptions& Options, const std::string& Path,
                      const TCheckedSettings& Checked) {
  if (!Options.Fix || !Checked.Repaired || Checked.Findings.empty()) return {};
  std::string Copy = CopyPath(Options, Path);
  const std::string Content = Checked.Repaired->SaveToMemory();
  // A copy that is not sound would be worse than none.
  if (!CheckSettings(Content, Copy, Options.Known).Findings.empty()) throw ERefused(Say("doctor.failed"));
  WriteWholeFile(FromTerminal(Copy), Content);
  return Copy;
}

std::string Closing(const std::vector<TFinding>& Findings, const std::string& Path, const std::string& Copy) {
  if (Findings.empty()) return Say("doctor.sound", Printable(Path)) + "\n";
  const std::string Count =
      Findings.size() == 1 ? Say("doctor.one") : Say("doctor.many", std::to_string(Findings.size()));
  return Count + (Copy.empty() ? "" : "; " + Say("doctor.wrote", Printable(Copy))) + "\n";
}

void Doctor(TContext& Context, const TDoctorOptions& Options) {
  UseFileArgument(Context, Options.File);
  if (Options.Output && !Options.Fix) throw ERefused(Say("doctor.output-without-fix"));
  const std::string Path = SettingsPath(Context);
  const TCheckedSettings Checked = CheckSettingsFile(Path, Options.Known);
  const std::string Copy = WriteCopy(Options, Path, Checked);
  const auto& Findings = Checked.Findings;
  if (!Findings.empty() && Copy.empty()) Context.ExitCode = ExitBad;
  Context.Print(Options.Json ? AsJson(Path, Findings, Copy)
                             : AsText(Path, Findings) + Closing(Findings, Path, Copy));
}

} // namespace

void AddDoctorCommand(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TDoctorOptions>();
  CLI::App* Command =
      AddCommand(App, "doctor", Say("help.group.files"), Say("help.doctor"),
                 "unitctl doctor project.xml\nunitctl doctor project.xml --fix -o repaired.xml",
                 Say("help.doctor.notes"));
  AddText(*Command, "FILE", Options->File, Say("option.file"));
  Command->add_flag("--fix", Options->Fix, Say("option.doctor.fix"));
  Command->add_option("-o,--output", Options->Output, Say("option.doctor.output"))
      ->type_name("FILE")
      ->transform(UnguardText);
  Command->add_flag("--force", Options->Force, Say("option.force"));
  Command->add_option("--known", Options->Known, Say("option.doctor.known"))
      ->type_name("CLASS")
      ->transform(UnguardText)
      ->expected(1)
      ->allow_extra_args(false)
      ->take_all();
  Command->add_flag("--json", Options->Json, Say("option.json"));
  Command->callback([&Context, Options] { Doctor(Context, *Options); });
}

} // namespace unitlib::app
