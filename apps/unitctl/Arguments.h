/// Prepares the arguments so that values and texts may begin with any character: "format 0 -1676.4",
/// "eval --5", "parse 0 [3]".
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace unitlib::app {

/// The arguments for App.parse. In a command whatever is not a known option is a text: also "-1676.4" and
/// "-(1+2)". Texts are marked so that the parser leaves them alone; UnguardText takes the mark off. Two
/// hyphens and a letter are always an option, unless they stand behind a lone "--".
/// Command      receives the name of the command as soon as it is known, also when an error follows
/// errors      ERefused an unknown option or command, with the nearest known one; an option without its value
std::vector<std::string> PrepareArguments(CLI::App& App, const std::vector<std::string>& Arguments,
                                          std::string& Command);

/// A text without its mark.
std::string UnguardText(std::string Text);

} // namespace unitlib::app
