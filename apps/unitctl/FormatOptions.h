/// How values become text: the options that format, schedule and compare share.
#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace unitlib::app {

struct TFormatOptions {
  int Scale = -1; // store unit of the values, see the library's scale index
  bool AppendSymbol = false;
  bool NoSymbol = false;
  bool NoDigitGroup = false;
  bool NoRound = false;
  bool NoPlusSign = false;
};

/// Adds --scale.
void AddScaleOption(CLI::App& Command, int& Scale);
/// Adds --scale and the switches.
void AddFormatOptions(CLI::App& Command, TFormatOptions& Options);

/// Text of a stored value of the measure with this classify code.
/// errors      as TMeasureDataManager::StoreToDisplay
std::u16string DisplayText(int ClassifyCode, double Value, const TFormatOptions& Options);

/// Why a text is no number, as a message: "\"12x\" is not a number".
std::string NumberProblem(std::string_view Text);

} // namespace unitlib::app
