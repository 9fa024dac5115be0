/// unitctl init: writes the factory settings.
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>

namespace unitlib::app {
namespace {

struct TInitOptions {
  std::optional<std::string> File;
  bool Force = false;
};

void RequireAbsent(const std::string& Path) {
  std::error_code Error;
  if (std::filesystem::symlink_status(std::filesystem::path(std::u8string(Path.begin(), Path.end())), Error)
          .type() != std::filesystem::file_type::not_found)
    throw ERefused(Say("init.exists", Printable(Path)));
}

/// Position of a system of the factory settings.
int FactorySystem(const std::string& Name) {
  const auto Document = BuildUnitDefaultConfig();
  const TXMLNode Systems = Document->DocumentElement().ChildByName(u"TemplateConfig");
  std::vector<TKnownName> Known;
  for (TXMLNode System = Systems.FirstChild(); System; System = System.NextSibling())
    Known.push_back({static_cast<int>(Known.size()), System.AttributeText(u"Description")});
  return FindName(Say("kind.system"), Name, Known);
}

void Init(TContext& Context, const TInitOptions& Options) {
  UseFileArgument(Context, Options.File);
  const std::string Path = SettingsPath(Context);
  // Everything that can be refused comes before the first write.
  const std::optional<int> System =
      Context.System ? std::optional(FactorySystem(*Context.System)) : std::nullopt;
  if (!Options.Force) RequireAbsent(Path);
  GenerateUnitDefaultConfigFile(FromTerminal(Path));
  if (System) {
    TSession Session(Context);
    Session.Choose(*System);
    Session.Save();
  }
  std::string Text = Say("init.wrote", Printable(Path)) + "\n";
  if (!System) Text += Say("init.next") + "\n";
  Context.Print(Text);
}

} // namespace

void AddInitCommand(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TInitOptions>();
  CLI::App* Command =
      AddCommand(App, "init", Say("help.group.start"), Say("help.init"),
                 "unitctl init project.xml --system \"Standard Metric System\"", Say("help.init.notes"));
  AddText(*Command, "FILE", Options->File, Say("option.init.file"));
  Command->add_flag("--force", Options->Force, Say("option.force"));
  Command->callback([&Context, Options] { Init(Context, *Options); });
}

} // namespace unitlib::app
