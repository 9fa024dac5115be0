#include "apps/unitctl/SettingsReader.h"

#include "apps/unitctl/Command.h"
#include "apps/unitctl/FactoryRows.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <optional>

namespace unitlib::app {
namespace {

class TReader {
public:
  TReader(TSettings& Settings, TFindingList& Findings) : FSettings(Settings), FFindings(Findings) {}

  bool Read(TXMLNode Root) {
    const std::optional<TXMLNode> Systems = Child(Root, u"TemplateConfig"),
                                  Groups = Child(Root, u"DigitGroup");
    if (!Systems && !Groups) {
      FFindings.Add("not-settings", Root.Line(), Say("doctor.not-settings"), Say("doctor.not-settings.do"),
                    false);
      return false;
    }
    if (Systems) {
      FSettings.CurrentSystem = Integer(*Systems, u"CurConfigIndex", -1);
      for (TXMLNode Node = Systems->FirstChild(); Node; Node = Node.NextSibling())
        ReadSystem(Node, FSettings.Systems.Add());
    } else {
      ReportElement(Root, u"TemplateConfig");
    }
    if (Groups) {
      FSettings.CurrentGroup = Integer(*Groups, u"CurDigitGroupIndex", 0);
      for (TXMLNode Node = Groups->FirstChild(); Node; Node = Node.NextSibling())
        ReadGroup(Node, FSettings.Groups.Add());
    } else {
      ReportElement(Root, u"DigitGroup");
    }
    return true;
  }

private:
  static std::optional<TXMLNode> Child(TXMLNode Parent, std::u16string_view Name) {
    try {
      return Parent.ChildByName(Name);
    } catch (const EXmlError&) {
      return std::nullopt;
    }
  }

  static std::optional<std::u16string> Found(TXMLNode Node, std::u16string_view Name) {
    try {
      return Node.AttributeText(Name);
    } catch (const EXmlError&) {
      return std::nullopt;
    }
  }

  void ReportElement(TXMLNode Parent, std::u16string_view Name) {
    FFindings.Add("missing-element", Parent.Line(), Say("doctor.missing-element", ToUtf8(Name)),
                  Say("doctor.missing-element.do"));
  }

  void ReportMissing(TXMLNode Node, std::u16string_view Name, std::u16string_view Instead) {
    FFindings.Add("missing-attribute", Node.Line(),
                  Say("doctor.missing-attribute", ToUtf8(Name), Printable(ToUtf8(Node.Name()))),
                  Say("doctor.put-in", Quoted(Instead)));
  }

  std::u16string Text(TXMLNode Node, std::u16string_view Name, std::u16string_view Instead) {
    if (const auto Value = Found(Node, Name)) return *Value;
    ReportMissing(Node, Name, Instead);
    return std::u16string(Instead);
  }

  /// An attribute of another form: read by the library's own function, which refuses what is not of it.
  template <class T, class TRead>
  T Typed(TXMLNode Node, std::u16string_view Name, T Instead, const std::u16string& InsteadText, TRead Read) {
    const auto Value = Found(Node, Name);
    if (!Value) {
      ReportMissing(Node, Name, InsteadText);
      return Instead;
    }
    try {
      return Read();
    } catch (const EXmlError&) {
      FFindings.Add("bad-attribute", Node.Line(), Say("doctor.bad-attribute", ToUtf8(Name), Quoted(*Value)),
                    Say("doctor.put-in", Quoted(InsteadText)));
      return Instead;
    }
  }

  int Integer(TXMLNode Node, std::u16string_view Name, int Instead) {
    return Typed(Node, Name, Instead, IntToStr(Instead), [&] { return Node.AttributeInteger(Name); });
  }

  bool Boolean(TXMLNode Node, std::u16string_view Name, bool Instead) {
    return Typed(Node, Name, Instead, Instead ? u"true" : u"false",
                 [&] { return Node.AttributeBoolean(Name); });
  }

  static std::u16string Numbered(const char16_t* Word, int Position) {
    return std::u16string(Word) + u" " + IntToStr(Position + 1);
  }

  void ReadSystem(TXMLNode Node, TConfig& System) {
    const int Position = FSettings.Systems.Count() - 1;
    const auto Known = static_cast<std::size_t>(Position);
    System.Description = Text(Node, u"Description",
                              Known < defaults::Configs.size() ? std::u16string(defaults::Configs[Known])
                                                               : Numbered(u"Unit system", Position));
    const TFindingList::TScope Scope(FFindings, System.Description);
    FFindings.SetLine(&System, Node.Line());
    System.OrderIndex = Integer(Node, u"OrderIndex", Position);
    for (TXMLNode Child = Node.FirstChild(); Child; Child = Child.NextSibling())
      ReadMeasure(Child, System.MeasureContainer.Add(), System.MeasureContainer.Count() - 1);
  }

  void ReadMeasure(TXMLNode Node, TMeasure& Measure, int Position) {
    Measure.Description = Found(Node, u"Description").value_or(u"");
    int Code = Measure.ClassifyCode;
    TryStrToInt(Found(Node, u"ClassifyCode").value_or(u"-1"), Code);
    Measure.ClassifyCode = Code;
    const defaults::TMeasureRow* Row = FactoryMeasure(Measure);
    Measure.Description =
        Text(Node, u"Description", Row ? std::u16string(Row->Description) : Numbered(u"Measure", Position));
    const TFindingList::TScope Scope(FFindings, Measure.Description);
    FFindings.SetLine(&Measure, Node.Line());
    constexpr int OwnCodes = 1000; // behind those of the factory settings
    Measure.ClassifyCode = Integer(Node, u"ClassifyCode", Row ? Row->ClassifyCode : OwnCodes + Position);
    Measure.OrderIndex = Integer(Node, u"OrderIndex", Position);
    Measure.ExampleValue = Text(Node, u"ExampleValue", Row ? Row->ExampleValue : u"1000");
    for (TXMLNode Child = Node.FirstChild(); Child; Child = Child.NextSibling())
      ReadUnit(Child, Measure.UnitContainer.Add(), Measure.UnitContainer.Count() - 1);
    const int First = Measure.UnitContainer.Count() > 0 ? 0 : -1;
    Measure.DefUnitIndex = Integer(Node, u"DefUnitIndex", First);
    Measure.CurUnitIndex = Integer(Node, u"CurUnitIndex", Measure.DefUnitIndex);
  }

  void ReadUnit(TXMLNode Node, TUnit& Unit, int Position) {
    Unit.Description = Found(Node, u"Description").value_or(u"");
    Unit.UnitParserClassName = Found(Node, u"UnitParserClassName").value_or(u"");
    TryStrToInt(Found(Node, u"UnitIdentifyCode").value_or(u"-1"), Unit.UnitIdentifyCode);
    const defaults::TUnitRow* Row = FactoryUnit(Unit);
    Unit.Description =
        Text(Node, u"Description", Row ? std::u16string(Row->Description) : Numbered(u"Unit", Position));
    const TFindingList::TScope Scope(FFindings, Unit.Description);
    FFindings.SetLine(&Unit, Node.Line());
    constexpr int OwnCodes = 1000; // none that the library knows
    Unit.UnitIdentifyCode = Integer(Node, u"UnitIdentifyCode", Row ? Row->IdentifyCode : OwnCodes + Position);
    Unit.UnitParserClassName = Text(Node, u"UnitParserClassName", Row ? Row->ParserClassName : u"");
    Unit.OrderIndex = Integer(Node, u"OrderIndex", Position);
    Unit.DefUnitSymbolWhenNone = Text(Node, u"DefUnitSymbolWhenNone", Row ? Row->SymbolWhenNone : u"");
    ReadRounds(Node, Unit, Row);
    ReadSymbols(Node, Unit, Row);
    Unit.DefRoundIndex = Integer(Node, u"DefRoundIndex", Row ? Row->DefRound : 0);
    Unit.CurRoundIndex = Integer(Node, u"CurRoundIndex", Unit.DefRoundIndex);
    Unit.DefUnitSymbolIndex = Integer(Node, u"DefUnitSymbolIndex", 0);
    Unit.CurUnitSymbolIndex = Integer(Node, u"CurUnitSymbolIndex", Unit.DefUnitSymbolIndex);
    ReadSwitches(Node, Unit, Row);
  }

  void ReadRounds(TXMLNode Node, TUnit& Unit, const defaults::TUnitRow* Row) {
    const auto Rounds = Child(Node, u"Rounds");
    if (!Rounds) {
      ReportElement(Node, u"Rounds");
      if (Row) AddFactoryRounds(*Row, Unit);
      return;
    }
    int Position = 0;
    for (TXMLNode Child = Rounds->FirstChild(); Child; Child = Child.NextSibling()) {
      TRound& Round = Unit.RoundContainer.Add();
      FFindings.SetLine(&Round, Child.Line());
      Round.Description = Text(Child, u"Description", Numbered(u"Rounding", Position));
      const TFindingList::TScope Scope(FFindings, Round.Description);
      Round.Increment = Text(Child, u"Increment", FactoryIncrement(Round.Description));
      Round.IncrementCanEdit = Boolean(Child, u"IncrementCanEdit", false);
      Round.IncrementCanVisible = Boolean(Child, u"IncrementCanVisible", true);
      Round.OrderIndex = Integer(Child, u"OrderIndex", Position++);
    }
  }

  void ReadSymbols(TXMLNode Node, TUnit& Unit, const defaults::TUnitRow* Row) {
    const auto Symbols = Child(Node, u"UnitSymbols");
    if (!Symbols) {
      ReportElement(Node, u"UnitSymbols");
      if (Row) AddFactorySymbols(*Row, Unit);
      return;
    }
    int Position = 0;
    for (TXMLNode Child = Symbols->FirstChild(); Child; Child = Child.NextSibling()) {
      TUnitSymbol& Symbol = Unit.UnitSymbolContainer.Add();
      FFindings.SetLine(&Symbol, Child.Line());
      Symbol.Description = Text(Child, u"Description", Numbered(u"Symbol", Position));
      Symbol.OrderIndex = Integer(Child, u"OrderIndex", Position++);
    }
  }

  void ReadSwitches(TXMLNode Node, TUnit& Unit, const defaults::TUnitRow* Row) {
    if (Row) SetFactorySwitches(*Row, Unit);
    const auto Format = Child(Node, u"Format");
    if (!Format) return ReportElement(Node, u"Format");
    for (const TSwitch& Switch : Switches()) {
      const std::u16string Name = FromUtf8(Switch.Name);
      const auto State = Child(*Format, Name);
      if (!State) {
        ReportElement(*Format, Name);
        continue;
      }
      TCheckBoxSetting& Setting = Unit.*Switch.Setting;
      Setting.DefEnable = Boolean(*State, u"DefEnable", Setting.DefEnable);
      Setting.DefChecked = Boolean(*State, u"DefChecked", Setting.DefChecked);
      Setting.Enable = Boolean(*State, u"Enable", Setting.DefEnable);
      Setting.Checked = Boolean(*State, u"Checked", Setting.DefChecked);
    }
  }

  void ReadGroup(TXMLNode Node, TDigitGroup& Group) {
    const int Position = FSettings.Groups.Count() - 1;
    const auto Known = static_cast<std::size_t>(Position);
    const bool Factory = Known < defaults::DigitGroups.size();
    Group.Description = Text(Node, u"Description",
                             Factory ? std::u16string(defaults::DigitGroups[Known].Description)
                                     : Numbered(u"Digit grouping", Position));
    const TFindingList::TScope Scope(FFindings, Group.Description);
    FFindings.SetLine(&Group, Node.Line());
    Group.OrderIndex = Integer(Node, u"OrderIndex", Position);
    Group.DigitGroupParserClassName = Text(Node, u"DigitGroupParserClassName",
                                           Factory ? defaults::DigitGroups[Known].ParserClassName : u"");
  }

  TSettings& FSettings;
  TFindingList& FFindings;
};

} // namespace

bool ReadSettings(const TXMLDocument& Document, TSettings& Settings, TFindingList& Findings) {
  return TReader(Settings, Findings).Read(Document.DocumentElement());
}

} // namespace unitlib::app
