#include "apps/unitctl/FormatOptions.h"

#include "apps/unitctl/Arguments.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/convert/ZELUnitConvertor.h"

#include <CLI/CLI.hpp>

namespace unitlib::app {

void AddScaleOption(CLI::App& Command, int& Scale) {
  Command.add_option("--scale", Scale, Say("option.scale"))->type_name("N")->transform(UnguardText);
}

void AddFormatOptions(CLI::App& Command, TFormatOptions& Options) {
  AddScaleOption(Command, Options.Scale);
  Command.add_flag("--append-symbol", Options.AppendSymbol, Say("option.append-symbol"));
  Command.add_flag("--no-symbol", Options.NoSymbol, Say("option.no-symbol"));
  Command.add_flag("--no-group", Options.NoDigitGroup, Say("option.no-group"));
  Command.add_flag("--no-round", Options.NoRound, Say("option.no-round"));
  Command.add_flag("--no-plus", Options.NoPlusSign, Say("option.no-plus"));
}

std::u16string DisplayText(int ClassifyCode, double Value, const TFormatOptions& Options) {
  return TMeasureDataManager::StoreToDisplay(ClassifyCode, Value, Options.Scale, Options.AppendSymbol,
                                             Options.NoSymbol, Options.NoDigitGroup, Options.NoRound,
                                             Options.NoPlusSign);
}

std::string NumberProblem(std::string_view Text) {
  if (Text.find_first_not_of(' ') == std::string_view::npos) return Say("value.empty", Quoted(Text));
  return NumberStop(Text) == NoPlace ? Say("value.range", Quoted(Text))
                                     : Say("value.no-number", Quoted(Text));
}

} // namespace unitlib::app
