#include "tests/hostile/SettingsText.h"

#include "tests/support/Settings.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"

#include <algorithm>
#include <regex>
#include <sstream>

namespace unitlib::test {
namespace {

using TManager = TSystemUnitDataManager;

template <class T> void KeepFirst(TOwningList<T>& List) {
  while (List.Count() > 1) List.Delete(List.Count() - 1);
}

/// The factory settings loaded, changed by Change and written.
template <class TChange> TSettingsText Made(TChange Change) {
  const TPrivateFolders Folders;
  const std::u16string Path = Folders.File("made.xml");
  GenerateUnitDefaultConfigFile(Path);
  TManager::InitUnitSystemSetting(Path);
  TManager::SetCurConfig(0);
  Change();
  TManager::SaveConfigFile(Path);
  FreeUnitSystem();
  return TSettingsText(ReadBytes(Path));
}

std::string Indent(const std::string& Line) {
  return Line.substr(0, Line.find_first_not_of(' '));
}

std::string Attribute(const TSettingsText::TAttribute& Item) {
  return " " + Item.Name + "=\"" + Item.Value + "\"";
}

std::string Replaced(std::string Line, const std::string& Old, const std::string& New) {
  return Line.replace(Line.find(Old), Old.size(), New);
}

} // namespace

const TSettingsText& TSettingsText::Factory() {
  static const TSettingsText Text = Made([] {});
  return Text;
}

const TSettingsText& TSettingsText::Small() {
  static const TSettingsText Text = Made([] {
    KeepFirst(TManager::CurUseUnitConfigContainer());
    TConfig& Config = *TManager::CurConfig();
    KeepFirst(Config.MeasureContainer);
    TMeasure& Measure = Config.MeasureContainer[0];
    KeepFirst(Measure.UnitContainer);
    Measure.CurUnitIndex = Measure.DefUnitIndex = 0;
    TUnit& Unit = Measure.UnitContainer[0];
    KeepFirst(Unit.RoundContainer);
    KeepFirst(Unit.UnitSymbolContainer);
    Unit.CurRoundIndex = Unit.DefRoundIndex = 0;
  });
  return Text;
}

std::string TSettingsText::SmallWithElevation() {
  std::string Text = Small().Text();
  const std::size_t Begin = Text.find("      <Measurement "), End = Text.find("    </Config>");
  std::string Second = Replaced(Text.substr(Begin, End - Begin), "ClassifyCode=\"0\"", "ClassifyCode=\"3\"");
  Second = Replaced(Second, "OrderIndex=\"0\" DefUnit", "OrderIndex=\"1\" DefUnit");
  return Text.insert(End, Second);
}

TSettingsText::TSettingsText(std::string_view Text) {
  static const std::regex Name(R"(^ *<(\w+))"), Item(R"x( (\w+)="([^"]*)")x");
  std::istringstream Stream{std::string(Text)};
  std::vector<std::string> Parents{""};
  for (std::string Line; std::getline(Stream, Line);) {
    FLines.push_back(Line);
    std::smatch Found;
    if (Line.find("</") != Line.npos) Parents.pop_back();
    if (!std::regex_search(Line, Found, Name)) continue;
    TElement Element{Found[1], Parents.back(), static_cast<int>(FLines.size()), {}};
    for (std::sregex_iterator I(Line.begin(), Line.end(), Item), End; I != End; ++I)
      Element.Attributes.push_back({(*I)[1], (*I)[2]});
    if (Line.find("/>") == Line.npos) Parents.push_back(Element.Name);
    FElements.push_back(std::move(Element));
  }
}

std::string TSettingsText::Joined(std::vector<std::string> Lines) const {
  std::string Result;
  for (const std::string& Line : Lines) Result += Line + "\n";
  return Result;
}

std::string TSettingsText::Text() const {
  return Joined(FLines);
}

const std::string& TSettingsText::LineOf(const TElement& Element) const {
  return FLines[static_cast<std::size_t>(Element.Line - 1)];
}

std::string TSettingsText::WithoutElement(const TElement& Element) const {
  auto Lines = FLines;
  const auto First = Lines.begin() + Element.Line - 1;
  auto Last = First;
  const std::string Closing = Indent(*First) + "</" + Element.Name + ">";
  if (First->find("/>") == First->npos) Last = std::find(First, Lines.end(), Closing);
  Lines.erase(First, Last + 1);
  return Joined(std::move(Lines));
}

std::string TSettingsText::WithLine(const TElement& Element, std::string Line) const {
  auto Lines = FLines;
  Lines[static_cast<std::size_t>(Element.Line - 1)] = std::move(Line);
  return Joined(std::move(Lines));
}

std::string TSettingsText::WithoutAttribute(const TElement& Element, const TAttribute& Item) const {
  return WithLine(Element, Replaced(LineOf(Element), Attribute(Item), ""));
}

std::string TSettingsText::WithValue(const TElement& Element, const TAttribute& Item,
                                     std::string_view Value) const {
  return WithLine(Element,
                  Replaced(LineOf(Element), Attribute(Item), Attribute({Item.Name, std::string(Value)})));
}

std::string TSettingsText::WithLines(int Line, std::string_view Lines) const {
  auto All = FLines;
  All.insert(All.begin() + Line - 1, std::string(Lines));
  return Joined(std::move(All));
}

} // namespace unitlib::test
