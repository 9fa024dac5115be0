#include "CaseLine.h"

#include "unitlib/model/ZELUnitConfigFileGenerator.h"

#include <fstream>
#include <sstream>

namespace unitlib::differential {
namespace {

/// The character that an XML reference stands for.
std::string Resolved(std::string_view Name) {
  if (Name == "quot") return "\"";
  if (Name == "apos") return "'";
  if (Name == "amp") return "&";
  if (Name == "lt") return "<";
  if (Name == "gt") return ">";
  return "?";
}

std::string Decoded(std::string_view Value) {
  std::string Text;
  for (size_t I = 0; I < Value.size(); ++I) {
    if (Value[I] != '&') {
      Text += Value[I];
      continue;
    }
    const size_t End = Value.find(';', I);
    Text += Resolved(Value.substr(I + 1, End - I - 1));
    I = End;
  }
  return Text;
}

/// "Name\tkey=value..." of one start tag.
std::string ElementFields(std::string_view Tag) {
  const size_t NameEnd = std::min(Tag.find_first_of(" \t\n/"), Tag.size());
  std::string Fields(Tag.substr(0, NameEnd));
  for (size_t At = NameEnd;;) {
    const size_t Equals = Tag.find("=\"", At);
    if (Equals == std::string_view::npos) return Fields;
    const size_t KeyStart = Tag.find_last_of(" \t\n", Equals) + 1;
    const size_t End = Tag.find('"', Equals + 2);
    const std::string Value = Decoded(Tag.substr(Equals + 2, End - Equals - 2));
    Fields.append("\t").append(Tag.substr(KeyStart, Equals - KeyStart)).append("=");
    Fields += Escape(std::u16string(Value.begin(), Value.end()));
    At = End + 1;
  }
}

} // namespace

std::vector<std::string> ElementLines(const std::string& Xml) {
  std::vector<std::string> Lines;
  int Depth = 0;
  for (size_t Open = Xml.find('<'); Open != std::string::npos; Open = Xml.find('<', Open + 1)) {
    const size_t Close = Xml.find('>', Open);
    const std::string_view Tag = std::string_view(Xml).substr(Open + 1, Close - Open - 1);
    if (Tag.starts_with('?') || Tag.starts_with('!')) continue;
    if (Tag.starts_with('/')) {
      --Depth;
      continue;
    }
    Lines.push_back(std::to_string(Depth) + "\t" + ElementFields(Tag));
    if (!Tag.ends_with('/')) ++Depth;
  }
  return Lines;
}

std::vector<std::string> GeneratedDefaultLines(const std::string& Path) {
  GenerateUnitDefaultConfigFile(std::u16string(Path.begin(), Path.end()));
  std::ifstream File(Path);
  std::ostringstream Content;
  Content << File.rdbuf();
  return ElementLines(Content.str());
}

} // namespace unitlib::differential
