#include "apps/unitctl/FormatOptions.h"

#include "apps/unitctl/Arguments.h"
#include "apps/unitctl/Command.h"
#include "unitlib/convert/ZELUnitConvertor.h"

#include <CLI/CLI.hpp>

namespace unitlib::app {

void AddScaleOption(CLI::App& Command, int& Scale) {
  Command
      .add_option(
          "--scale", Scale,
          "Values count 3: thousands, 4: millions, 5: thousand millions of the base unit, else base units")
      ->type_name("N")
      ->transform(UnguardText);
}

void AddFormatOptions(CLI::App& Command, TFormatOptions& Options) {
  AddScaleOption(Command, Options.Scale);
  Command.add_flag("--append-symbol", Options.AppendSymbol,
                   "Add the unit's symbol where the unit shows none");
  Command.add_flag("--no-symbol", Options.NoSymbol, "Leave out the unit symbol");
  Command.add_flag("--no-group", Options.NoDigitGroup, "Do not group digits");
  Command.add_flag("--no-round", Options.NoRound, "Do not round (fractional inches are always rounded)");
  Command.add_flag("--no-plus", Options.NoPlusSign, "No + before positive values");
}

std::u16string DisplayText(int ClassifyCode, double Value, const TFormatOptions& Options) {
  return TMeasureDataManager::StoreToDisplay(ClassifyCode, Value, Options.Scale, Options.AppendSymbol,
                                             Options.NoSymbol, Options.NoDigitGroup, Options.NoRound,
                                             Options.NoPlusSign);
}

std::string NumberProblem(std::string_view Text) {
  if (Text.find_first_not_of(' ') == std::string_view::npos) return "is empty where a number should be";
  return NumberStop(Text) == NoPlace ? "is beyond the range of numbers" : "is not a number";
}

} // namespace unitlib::app
