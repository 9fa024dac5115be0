/// Writes docs/settings-file.md from the tables that the writer of the factory settings walks, and from a document that it
/// has written. What a newly written attribute means has to be added here: the program fails until it is.
///   settings_page OUTPUT       writes the page
///   settings_page --check PAGE exit status 1 when the page is not what would be written
#include "unitlib/model/DefaultConfigTables.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace unitlib {
namespace {

/// What an attribute means, by "Element/Attribute". The six switches share one row each.
const std::map<std::string, std::string> Meanings = {
    {"TemplateConfig/CurConfigIndex", "integer; position of the unit system in use, from 0; -1: none chosen "
                                      "yet, the host chooses at the next load"},
    {"Config/Description", "name of the unit system, as the dialog lists it"},
    {"Config/OrderIndex", "integer; renumbered 0, 1, 2, ... by every save"},
    {"Measurement/ExampleValue", "a value in the base unit, which the dialog shows as the example"},
    {"Measurement/ClassifyCode",
     "integer; the number that conversions name the quantity by. Where two have the same, "
     "the first one counts"},
    {"Measurement/Description", "name of the quantity, as the dialog lists it"},
    {"Measurement/OrderIndex", "integer; renumbered by every save"},
    {"Measurement/DefUnitIndex", "integer; position of the unit that \"restore defaults\" chooses"},
    {"Measurement/CurUnitIndex", "integer; position of the unit in use; -1: none"},
    {"Unit/UnitIdentifyCode",
     "integer; kind of unit: 10 to 13 are lengths in feet and inches, 14 to 16 metric lengths"},
    {"Unit/Description", "name of the unit; programs choose units by it, so it stays untranslated"},
    {"Unit/OrderIndex", "integer; kept as it is"},
    {"Unit/DefUnitSymbolWhenNone", "symbol for headings when the chosen symbol is \"None\""},
    {"Unit/UnitParserClassName", "the class that converts (see below); an unknown one converts nothing"},
    {"Unit/DefRoundIndex", "integer; position of the rounding that \"restore defaults\" chooses"},
    {"Unit/CurRoundIndex", "integer; position of the rounding in use"},
    {"Unit/DefUnitSymbolIndex", "integer; position of the default symbol"},
    {"Unit/CurUnitSymbolIndex", "integer; position of the symbol in use"},
    {"Round/Description", "name of the rounding, as the dialog lists it"},
    {"Round/Increment",
     "what values are rounded to, in the unit: a decimal number, or (inches) a fraction such as 1/16"},
    {"Round/IncrementCanEdit", "Boolean; the user may type an increment"},
    {"Round/IncrementCanVisible", "Boolean; the increment is shown"},
    {"Round/OrderIndex", "integer; kept as it is"},
    {"UnitSymbol/Description", "what is shown behind the value; \"None\" for nothing"},
    {"UnitSymbol/OrderIndex", "integer; kept as it is"},
    {"*/DefEnable", "Boolean; the default of the next"},
    {"*/Enable", "Boolean; the user may tick the switch"},
    {"*/DefChecked", "Boolean; the default of the next"},
    {"*/Checked", "Boolean; the switch is ticked"},
    {"DigitGroup/CurDigitGroupIndex", "integer; position of the grouping in use"},
    {"CGroup/Description", "how the grouping looks, as the dialog lists it"},
    {"CGroup/OrderIndex", "integer; renumbered by every save"},
    {"CGroup/DigitGroupParserClassName", "the class that groups digits"},
};

const std::map<std::string, std::string> Switches = {
    {"UseProjectSetting", "kept for hosts; the library does not look at it"},
    {"SuppressTrail0", "no zeros at the end of decimals: 1.5 instead of 1.500"},
    {"Suppress0Feet", "no feet when there are none: 6\" instead of 0' 6\""},
    {"ShowPlusSymbolForPosValue", "a + before positive values"},
    {"UseDigitGroup", "digits in groups: 1,234,567"},
    {"SuppressSpace", "no blank behind the foot mark: 5'6\""},
};

struct TElement {
  std::string Name;
  int Depth = 0;
  std::vector<std::string> Attributes;
};

/// The elements of a document, each kind once, in the order of their first appearance.
std::vector<TElement> ElementsOf(const std::string& Xml) {
  std::vector<TElement> Found;
  std::set<std::string> Seen;
  std::istringstream Lines(Xml);
  std::vector<std::string> Path;
  for (std::string Line;
       std::getline(Lines, Line);) { // the writer puts one tag on a line, indented by its depth
    const size_t Start = Line.find('<');
    if (Start == std::string::npos || Line[Start + 1] == '?' || Line[Start + 1] == '/') continue;
    TElement Element;
    Element.Depth = static_cast<int>(Start / 2);
    std::istringstream Tag(Line.substr(Start + 1, Line.find_first_of(" />", Start) - Start - 1));
    Tag >> Element.Name;
    Path.resize(static_cast<size_t>(Element.Depth));
    Path.push_back(Element.Name);
    bool Quoted = false;
    std::string Word;
    for (const char C : Line.substr(Start)) {
      if (C == '"') Quoted = !Quoted;
      if (Quoted || C == '"') continue;
      if (C == '=') Element.Attributes.push_back(Word);
      Word = C == ' ' || C == '=' ? std::string() : Word + C;
    }
    std::string Key;
    for (const auto& Name : Path) Key += Name + "/";
    if (Seen.insert(Key).second) Found.push_back(Element);
  }
  return Found;
}

/// Text of a table cell.
std::string Cell(std::string_view Text) {
  std::string Result;
  for (const char C : Text) Result += C == '|' ? std::string("\\|") : std::string(1, C);
  return Result;
}
std::string Cell(std::u16string_view Text) {
  return Cell(ToUtf8(Text));
}

std::string Range(const std::vector<std::string>& Items) {
  std::string Text;
  for (const auto& Item : Items) Text += (Text.empty() ? "" : ", ") + Item;
  return Text.empty() ? "none" : Text;
}

class TPage {
public:
  std::string Write() {
    Intro();
    Tree();
    Attributes();
    FormatSwitches();
    Systems();
    Units();
    Groups();
    return FOut.str();
  }

private:
  void Intro() {
    FOut << "# Settings file\n\n"
            "<!-- Written by docs/site/settings_page.cpp from the tables of the writer: change those, then "
            "run\n"
            "     build/ci/docs/site/settings_page docs/settings-file.md -->\n\n"
            "One XML file holds all settings of a project: unit systems, their quantities, the units of each "
            "with "
            "roundings, symbols\nand switches, and what is chosen. Everything is in attributes; elements "
            "only give "
            "the structure. Names are letter for letter.\n\n"
            "- It is read in UTF-8, UTF-16 or, where declared, ISO 8859-1, and written in UTF-8, as a whole "
            "or not at "
            "all.\n"
            "- Every element and attribute below must be there. A file that lacks one is refused with line, "
            "element and "
            "attribute;\n  others are ignored when reading and not written again.\n"
            "- Integers are decimal. Booleans are read as `true`, `false`, `1`, `0`, `-1` in any letter "
            "case.\n"
            "- Positions count from 0 in the order of the file.\n\n";
  }

  void Tree() {
    FOut << "## Elements\n\n```\n";
    const std::set<std::string> Repeated = {"Config", "Measurement", "Round", "UnitSymbol", "CGroup"};
    for (const auto& Element : FElements) {
      const bool Many = Repeated.contains(Element.Name) || (Element.Name == "Unit" && Element.Depth > 0);
      FOut << std::string(static_cast<size_t>(Element.Depth) * 2, ' ') << Element.Name << (Many ? " ..." : "")
           << "\n";
    }
    FOut << "```\n\n`...`: any number of them. The root and the units inside a quantity are both called "
            "`Unit`.\n\n";
  }

  void Attributes() {
    FOut << "## Attributes\n\n| Element | Attribute | Meaning |\n|---|---|---|\n";
    bool SwitchShown = false;
    for (const auto& Element : FElements) {
      const bool IsSwitch = Switches.contains(Element.Name);
      if (IsSwitch && SwitchShown) continue;
      SwitchShown |= IsSwitch;
      for (const auto& Attribute : Element.Attributes)
        FOut << "| " << (IsSwitch ? "each switch" : "`" + Element.Name + "`") << " | `" << Attribute << "` | "
             << MeaningOf((IsSwitch ? "*" : Element.Name) + "/" + Attribute) << " |\n";
    }
    for (const auto& [Key, Text] : Meanings)
      if (!FUsed.contains(Key)) throw std::runtime_error("nothing writes " + Key);
    FOut << "\n";
  }

  std::string MeaningOf(const std::string& Key) {
    FUsed.insert(Key);
    const auto Found = Meanings.find(Key);
    if (Found == Meanings.end()) throw std::runtime_error("say what " + Key + " means");
    return Cell(Found->second);
  }

  void FormatSwitches() {
    FOut << "## Switches\n\n| Element | Ticked | May be ticked | Ticked by default |\n|---|---|---|---|\n";
    for (const auto& State : defaults::FormatStates(defaults::Measures[0].Units[0])) {
      std::set<std::string> May, Is;
      for (const auto& Measure : defaults::Measures)
        for (const auto& Unit : Measure.Units)
          for (const auto& Of : defaults::FormatStates(Unit))
            if (Of.Name == State.Name) {
              const bool Inches = Unit.Profile == defaults::TFormatProfile::Fractional;
              if (Of.Enable) May.insert(Inches ? "feet and inches" : "decimal units");
              if (Of.Checked) Is.insert(ToUtf8(Unit.Description));
            }
      FOut << "| `" << ToUtf8(State.Name) << "` | " << Cell(Switches.at(ToUtf8(State.Name))) << " | "
           << Range({May.begin(), May.end()}) << " | " << Range({Is.begin(), Is.end()}) << " |\n";
    }
    FOut << "\n";
  }

  void Systems() {
    FOut
        << "## Factory settings: quantities\n\nThe unit in use in each system, which is also its default.\n\n"
           "| Position | Quantity | Classify code | Example value |";
    for (const auto Config : defaults::Configs) FOut << " " << Cell(Config) << " |";
    FOut << "\n|---|---|---|---|---|---|---|---|\n";
    int Position = 0;
    for (const auto& Measure : defaults::Measures) {
      FOut << "| " << Position++ << " | " << Cell(Measure.Description) << " | " << Measure.ClassifyCode
           << " | " << Cell(Measure.ExampleValue) << " |";
      for (const int Unit : Measure.DefUnit)
        FOut << " " << (Unit < 0 ? "none" : Cell(Measure.Units[static_cast<size_t>(Unit)].Description))
             << " |";
      FOut << "\n";
    }
    FOut << "\nThe last quantity, weight per length, has the description of the one before it, the classify "
            "code of "
            "the first and no unit\nin use: files in use are written so.\n\n";
  }

  void Units() {
    FOut << "## Factory settings: units\n\n";
    const defaults::TUnitRow* Shown = nullptr;
    for (const auto& Measure : defaults::Measures) {
      if (Measure.Units.data() == Shown) continue; // the three kinds of length share their units
      Shown = Measure.Units.data();
      FOut << "### " << Cell(Measure.Description) << (Measure.DefUnit[0] < 0 ? " (weight)" : "") << "\n\n"
           << "| Unit | Code | Parser class | Symbols | Symbol for None | Roundings | Default "
              "|\n|---|---|---|---|---|---|---|\n";
      for (const auto& Unit : Measure.Units) UnitRow(Unit);
      FOut << "\n";
    }
  }

  void UnitRow(const defaults::TUnitRow& Unit) {
    std::vector<std::string> Symbols, Rounds;
    for (const auto Symbol : Unit.Symbols) Symbols.push_back("`" + Cell(Symbol) + "`");
    for (const auto& Round : Unit.Rounds) Rounds.push_back(Round.CanEdit ? "custom" : Cell(Round.Increment));
    const auto Default = static_cast<size_t>(Unit.DefRound);
    FOut << "| " << Cell(Unit.Description) << " | " << Unit.IdentifyCode << " | `"
         << Cell(Unit.ParserClassName) << "` | " << Range(Symbols) << " | " << Cell(Unit.SymbolWhenNone)
         << " | " << Range(Rounds) << " | " << (Default < Rounds.size() ? Rounds[Default] : "none") << " |\n";
  }

  void Groups() {
    FOut << "## Factory settings: digit groups\n\n| Position | Description | Class |\n|---|---|---|\n";
    int Position = 0;
    for (const auto& Group : defaults::DigitGroups)
      FOut << "| " << Position++ << " | " << Cell(Group.Description) << " | `" << Cell(Group.ParserClassName)
           << "` |\n";
    FOut << "\nThe first one is in use.\n";
  }

  std::ostringstream FOut;
  std::vector<TElement> FElements = ElementsOf(BuildUnitDefaultConfig()->SaveToMemory());
  std::set<std::string> FUsed;
};

int Run(const std::vector<std::string>& Arguments) {
  const bool Check = !Arguments.empty() && Arguments.front() == "--check";
  if (Arguments.size() != (Check ? 2u : 1u)) {
    std::cerr << "settings_page OUTPUT | settings_page --check PAGE\n";
    return 2;
  }
  const std::string Page = TPage().Write();
  if (!Check) return (std::ofstream(Arguments.back(), std::ios::binary) << Page).flush() ? 0 : 1;
  std::ifstream File(Arguments.back(), std::ios::binary);
  if (std::string(std::istreambuf_iterator<char>(File), {}) == Page) return 0;
  std::cerr << Arguments.back() << " is not what the tables say; write it again with settings_page\n";
  return 1;
}

} // namespace
} // namespace unitlib

int main(int Count, char** Arguments) {
  try {
    return unitlib::Run({Arguments + 1, Arguments + Count});
  } catch (const std::exception& Problem) {
    std::cerr << Problem.what() << "\n";
    return 1;
  }
}
