#include "fuzz/SettingsMaker.h"

#include "fuzz/Check.h"
#include "fuzz/slow/Regex.h"

namespace unitlib::fuzz {
namespace {

constexpr unsigned MostChildren = 3;
constexpr std::size_t LongestText = 40;

/// True for what an XML file can carry.
bool IsXmlCharacter(char16_t C) {
  return (C >= 0x20 || C == u'\t' || C == u'\n' || C == u'\r') && C < 0xD800;
}

class TMaker {
public:
  explicit TMaker(TInput& Input) : FInput(Input) {}

  TMadeSettings Make() {
    const unsigned Order = FInput.Below(4);
    FXml = "<?xml version=\"1.0\"?>\n<Unit>";
    const int Config = FInput.Integer(), Group = FInput.Integer();
    FModel = "current " + Show(Config) + " " + Show(Group) + "\n";
    Open("TemplateConfig");
    Whole("CurConfigIndex", Config);
    FXml += ">";
    for (unsigned I = FInput.Below(MostChildren); I > 0; --I)
      AddConfig(Order % 2 == 0 ? "Config" : "AnyName");
    FXml += "</TemplateConfig><!-- <Config/> -->";
    Open("DigitGroup");
    Whole("CurDigitGroupIndex", Group);
    FXml += ">";
    for (unsigned I = FInput.Below(MostChildren); I > 0; --I) AddGroup();
    FXml += "</DigitGroup></Unit>";
    return {FXml, FModel};
  }

private:
  void Open(const char* Name) { FXml += std::string("<") + Name; }
  /// One of the two quotes, each character plain or as a reference.
  void Attribute(const char* Name, const std::u16string& Value) {
    FXml += std::string(" ") + Name + "=\"";
    for (const char16_t C : Value) {
      const bool Plain = C >= 0x20 && C != u'<' && C != u'&' && C != u'"';
      FXml += Plain ? slow::Utf8(std::u16string(1, C)) : "&#" + std::to_string(int{C}) + ";";
    }
    FXml += '"';
  }
  void Whole(const char* Name, int Value) {
    const std::string Text = std::to_string(Value);
    Attribute(Name, std::u16string(Text.begin(), Text.end()));
  }
  std::u16string TakeText() {
    std::u16string Text = FInput.Text().substr(0, LongestText);
    std::erase_if(Text, [](char16_t C) { return !IsXmlCharacter(C); });
    return Text;
  }
  void Field(const std::string& Shown) { FModel += " " + Shown; }
  void Text(const char* Name) {
    const std::u16string Value = TakeText();
    Attribute(Name, Value);
    Field(Show(Value));
  }
  void Number(const char* Name) {
    const int Value = FInput.Integer();
    Whole(Name, Value);
    Field(Show(Value));
  }
  void Boolean(const char* Name) {
    constexpr const char16_t* Texts[] = {u"false", u"true", u"0", u"1", u"False", u"-1", u"FALSE", u"TRUE"};
    const unsigned Choice = FInput.Below(std::size(Texts));
    Attribute(Name, Texts[Choice]);
    Field(Show(Choice % 2 != 0));
  }

  void AddConfig(const char* Element) {
    FXml += std::string("<") + Element;
    FModel += "config";
    Text("Description");
    Number("OrderIndex");
    FModel += "\n";
    FXml += ">";
    for (unsigned I = FInput.Below(MostChildren); I > 0; --I) AddMeasure();
    FXml += std::string("</") + Element + ">";
  }

  void AddMeasure() {
    Open("Measurement");
    FModel += "measure";
    Text("Description");
    Number("OrderIndex");
    Number("DefUnitIndex");
    Number("CurUnitIndex");
    Text("ExampleValue");
    Number("ClassifyCode");
    FModel += "\n";
    FXml += ">";
    for (unsigned I = FInput.Below(MostChildren); I > 0; --I) AddUnit();
    FXml += "</Measurement>";
  }

  void AddUnit() {
    Open("Unit");
    FModel += "unit";
    Number("UnitIdentifyCode");
    Text("Description");
    Number("OrderIndex");
    Number("DefRoundIndex");
    Number("CurRoundIndex");
    Number("DefUnitSymbolIndex");
    Number("CurUnitSymbolIndex");
    Text("DefUnitSymbolWhenNone");
    Text("UnitParserClassName");
    FModel += "\n";
    FXml += "><Rounds>";
    for (unsigned I = FInput.Below(MostChildren); I > 0; --I) AddRound();
    FXml += "</Rounds><UnitSymbols>";
    for (unsigned I = FInput.Below(MostChildren); I > 0; --I) {
      FXml += "<UnitSymbol";
      FModel += "symbol";
      Text("Description");
      Number("OrderIndex");
      Close();
    }
    FXml += "</UnitSymbols><Format>";
    for (const char* Name : {"UseProjectSetting", "SuppressTrail0", "Suppress0Feet",
                             "ShowPlusSymbolForPosValue", "UseDigitGroup", "SuppressSpace"}) {
      Open(Name);
      FModel += "switch";
      for (const char* Flag : {"DefEnable", "Enable", "DefChecked", "Checked"}) Boolean(Flag);
      Close();
    }
    FXml += "</Format></Unit>";
  }

  void AddRound() {
    Open("Round");
    FModel += "round";
    Text("Description");
    Text("Increment");
    Boolean("IncrementCanEdit");
    Boolean("IncrementCanVisible");
    Number("OrderIndex");
    Close();
  }

  void AddGroup() {
    Open("CGroup");
    FModel += "group";
    Text("Description");
    Number("OrderIndex");
    Text("DigitGroupParserClassName");
    Close();
  }

  void Close() {
    FXml += "/>";
    FModel += "\n";
  }

  TInput& FInput;
  std::string FXml, FModel;
};

} // namespace

TMadeSettings MakeSettings(TInput& Input) {
  return TMaker(Input).Make();
}

} // namespace unitlib::fuzz
