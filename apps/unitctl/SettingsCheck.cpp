#include "apps/unitctl/SettingsCheck.h"

#include "apps/unitctl/Command.h"
#include "apps/unitctl/FactoryRows.h"
#include "apps/unitctl/Increments.h"
#include "apps/unitctl/SettingsReader.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/convert/ZELUnitCommon.h"
#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <set>

namespace unitlib::app {
namespace {

/// Tests settings that were read and repairs them on the way, from the inside out, so that a position is
/// tested against the list as it will be.
class TChecker {
public:
  TChecker(TSettings& Settings, TFindingList& Findings, const std::vector<std::string>& Known)
      : FSettings(Settings), FFindings(Findings) {
    for (const std::string& Name : Known) FKnown.push_back(FromTerminal(Name));
  }

  void Check() {
    CheckGroups();
    if (FSettings.Systems.Count() == 0) {
      FFindings.Add("empty-list", 0, Say("doctor.no-systems"), Say("doctor.no-systems.do"));
      for (const std::u16string_view Name : defaults::Configs) {
        TConfig& System = FSettings.Systems.Add();
        System.Description = Name;
        AddFactoryMeasures(System);
      }
    }
    CheckNames(FSettings.Systems, Say("kind.system"));
    for (const auto& System : FSettings.Systems) CheckSystem(*System);
    const int Count = FSettings.Systems.Count();
    if (FSettings.CurrentSystem < -1 || FSettings.CurrentSystem >= Count)
      ReportIndex("current-system", 0, Say("doctor.current-system"), FSettings.CurrentSystem, Count, -1);
  }

private:
  void ReportIndex(std::string_view Kind, int Line, const std::string& What, int& Index, int Count,
                   int Instead) {
    FFindings.Add(Kind, Line, Say("doctor.index", What, std::to_string(Index), std::to_string(Count)),
                  Instead == -1 ? Say("doctor.index.none", std::to_string(Count - 1))
                                : Say("doctor.index.do", std::to_string(Count - 1), std::to_string(Instead)));
    Index = Instead;
  }

  bool IsKnown(std::u16string_view Class) const {
    return std::any_of(FKnown.begin(), FKnown.end(), [&](const auto& Name) { return SameText(Name, Class); });
  }

  /// Later ones of the same description get a number, except the pair of the factory settings.
  template <class T> void CheckNames(const TOwningList<T>& List, const std::string& Kind) {
    std::set<std::u16string> Names;
    for (const auto& Item : List) {
      if constexpr (std::is_same_v<T, TMeasure>)
        if (IsFactoryTwin(*Item)) continue;
      if (Names.insert(Item->Description).second) continue;
      const std::u16string Old = Item->Description;
      for (int Number = 2; !Names.insert(Item->Description).second; ++Number)
        Item->Description = Old + u" (" + IntToStr(Number) + u")";
      FFindings.Add("duplicate-name", FFindings.Line(Item.get()),
                    Say("doctor.duplicate-name", Kind, Quoted(Old)),
                    Say("doctor.rename", Quoted(Item->Description)));
    }
  }

  void CheckGroups() {
    auto& Groups = FSettings.Groups;
    for (int I = 0; I < Groups.Count(); ++I)
      if (!CheckGroupClass(Groups[I])) Groups.Delete(I--);
    if (Groups.Count() == 0) {
      FFindings.Add("empty-list", 0, Say("doctor.no-groups"), Say("doctor.factory.do"));
      AddFactoryGroups(Groups);
    }
    CheckNames(Groups, Say("kind.group"));
    const int Count = Groups.Count();
    if (FSettings.CurrentGroup < 0 || FSettings.CurrentGroup >= Count)
      ReportIndex("current-digit-group", 0, Say("doctor.current-group"), FSettings.CurrentGroup, Count, 0);
  }

  bool CheckGroupClass(TDigitGroup& Group) {
    if (LibraryGroupSize(Group.DigitGroupParserClassName) > 0 || IsKnown(Group.DigitGroupParserClassName))
      return true;
    const TFindingList::TScope Scope(FFindings, Group.Description);
    const auto& Rows = defaults::DigitGroups;
    const auto Row = std::find_if(Rows.begin(), Rows.end(),
                                  [&](const auto& R) { return R.Description == Group.Description; });
    const bool Factory = Row != Rows.end();
    FFindings.Add("unknown-digit-group-class", FFindings.Line(&Group),
                  Say("doctor.unknown-class", Quoted(Group.DigitGroupParserClassName)),
                  Factory ? Say("doctor.put-in", Quoted(Row->ParserClassName)) : Say("doctor.class.do"));
    if (Factory) Group.DigitGroupParserClassName = Row->ParserClassName;
    return Factory;
  }

  void CheckSystem(TConfig& System) {
    const TFindingList::TScope Scope(FFindings, System.Description);
    auto& Measures = System.MeasureContainer;
    for (int I = 0; I < Measures.Count(); ++I)
      if (!CheckUnits(Measures[I])) Measures.Delete(I--);
    if (Measures.Count() == 0) {
      FFindings.Add("empty-list", FFindings.Line(&System), Say("doctor.no-measures"),
                    Say("doctor.factory.do"));
      AddFactoryMeasures(System);
    }
    CheckNames(Measures, Say("kind.measure"));
    CheckCodes(System);
    for (const auto& Measure : Measures) CheckMeasure(*Measure, IsFactoryTwin(*Measure));
  }

  void CheckCodes(const TConfig& System) {
    std::set<int> Used, Reached;
    for (const auto& Measure : System.MeasureContainer) Used.insert(Measure->ClassifyCode);
    for (const auto& Measure : System.MeasureContainer) {
      if (Reached.insert(Measure->ClassifyCode).second || IsFactoryTwin(*Measure)) continue;
      const int Old = Measure->ClassifyCode;
      const defaults::TMeasureRow* Row = FactoryMeasure(*Measure);
      const bool OwnCode =
          Row && Row->Description == Measure->Description && !Used.contains(Row->ClassifyCode);
      Measure->ClassifyCode = OwnCode ? Row->ClassifyCode : *Used.rbegin() + 1;
      Used.insert(Measure->ClassifyCode);
      Reached.insert(Measure->ClassifyCode);
      FFindings.Add("duplicate-code", FFindings.Line(Measure.get()),
                    Say("doctor.duplicate-code", Quoted(Measure->Description), std::to_string(Old)),
                    Say("doctor.duplicate-code.do", std::to_string(Measure->ClassifyCode)));
    }
  }

  /// False: nothing is left of the measure.
  bool CheckUnits(TMeasure& Measure) {
    const TFindingList::TScope Scope(FFindings, Measure.Description);
    auto& Units = Measure.UnitContainer;
    for (int I = 0; I < Units.Count(); ++I) {
      if (CheckParser(Units[I])) continue;
      Units.Delete(I);
      for (int* const Index : {&Measure.DefUnitIndex, &Measure.CurUnitIndex})
        if (*Index > I)
          --*Index;
        else if (*Index == I)
          *Index = 0;
      --I;
    }
    if (Units.Count() > 0) return true;
    const defaults::TMeasureRow* Row = FactoryMeasure(Measure);
    FFindings.Add("empty-list", FFindings.Line(&Measure), Say("doctor.no-units"),
                  Row ? Say("doctor.factory.do") : Say("doctor.leave-out.do"));
    if (Row) AddFactoryUnits(*Row, Measure);
    return Row != nullptr;
  }

  bool CheckParser(TUnit& Unit) {
    if (GetUnitParser(Unit.UnitParserClassName, &Unit) || IsKnown(Unit.UnitParserClassName)) return true;
    const TFindingList::TScope Scope(FFindings, Unit.Description);
    const defaults::TUnitRow* Row = SameFactoryUnit(Unit);
    FFindings.Add("unknown-parser", FFindings.Line(&Unit),
                  Say("doctor.unknown-class", Quoted(Unit.UnitParserClassName)),
                  Row ? Say("doctor.put-in", Quoted(Row->ParserClassName)) : Say("doctor.class.do"));
    if (Row) Unit.UnitParserClassName = Row->ParserClassName;
    return Row != nullptr;
  }

  /// Twin: the measure that the factory settings leave without a current unit, out of reach.
  void CheckMeasure(TMeasure& Measure, bool Twin) {
    const TFindingList::TScope Scope(FFindings, Measure.Description);
    const int Line = FFindings.Line(&Measure);
    CheckNames(Measure.UnitContainer, Say("kind.unit"));
    for (const auto& Unit : Measure.UnitContainer) CheckUnit(*Unit);
    const int Count = Measure.UnitContainer.Count(), Least = Twin ? -1 : 0;
    if (Measure.DefUnitIndex < Least || Measure.DefUnitIndex >= Count)
      ReportIndex("default-unit", Line, Say("doctor.default-unit"), Measure.DefUnitIndex, Count, 0);
    if (Measure.CurUnitIndex < Least || Measure.CurUnitIndex >= Count)
      ReportIndex("current-unit", Line, Say("doctor.current-unit"), Measure.CurUnitIndex, Count,
                  Measure.DefUnitIndex);
    double Value = 0;
    if (TryStrToFloat(Measure.ExampleValue, Value)) return;
    const defaults::TMeasureRow* Row = FactoryMeasure(Measure);
    const std::u16string Instead(Row ? Row->ExampleValue : u"1000");
    FFindings.Add("bad-example", Line, Say("doctor.bad-example", Quoted(Measure.ExampleValue)),
                  Say("doctor.put-in", Quoted(Instead)));
    Measure.ExampleValue = Instead;
  }

  void CheckUnit(TUnit& Unit) {
    const TFindingList::TScope Scope(FFindings, Unit.Description);
    CheckEmptyLists(Unit);
    CheckNames(Unit.RoundContainer, Say("kind.rounding"));
    CheckNames(Unit.UnitSymbolContainer, Say("kind.symbol"));
    for (int I = 0; I < Unit.RoundContainer.Count(); ++I)
      if (!CheckIncrement(Unit, Unit.RoundContainer[I])) I -= LeaveOut(Unit, I);
    const int Line = FFindings.Line(&Unit);
    const defaults::TUnitRow* Row = FactoryUnit(Unit);
    const int Rounds = Unit.RoundContainer.Count();
    const int Usual = Row && Row->DefRound < Rounds ? Row->DefRound : 0;
    CheckPair({"default-rounding", "current-rounding"}, Line,
              {Say("doctor.default-round"), Say("doctor.current-round")}, Unit.DefRoundIndex,
              Unit.CurRoundIndex, Rounds, Usual);
    CheckPair({"default-symbol", "current-symbol"}, Line,
              {Say("doctor.default-symbol"), Say("doctor.current-symbol")}, Unit.DefUnitSymbolIndex,
              Unit.CurUnitSymbolIndex, Unit.UnitSymbolContainer.Count(), 0);
    CheckChosenIncrement(Unit, Line, Usual);
  }

  /// A unit of the host's own may have neither; one of the factory settings has what these have.
  void CheckEmptyLists(TUnit& Unit) {
    const defaults::TUnitRow* Row = SameFactoryUnit(Unit);
    if (!Row) return;
    const int Line = FFindings.Line(&Unit);
    if (Unit.RoundContainer.Count() == 0 && !Row->Rounds.empty()) {
      FFindings.Add("empty-list", Line, Say("doctor.no-rounds"), Say("doctor.factory.do"));
      AddFactoryRounds(*Row, Unit);
    }
    if (Unit.UnitSymbolContainer.Count() == 0 && !Row->Symbols.empty()) {
      FFindings.Add("empty-list", Line, Say("doctor.no-symbols"), Say("doctor.factory.do"));
      AddFactorySymbols(*Row, Unit);
    }
  }

  /// In an empty list every position is as good as another.
  void CheckPair(const std::array<std::string_view, 2>& Kinds, int Line,
                 const std::array<std::string, 2>& What, int& Default, int& Current, int Count, int Usual) {
    if (Count == 0) return;
    if (Default < 0 || Default >= Count) ReportIndex(Kinds[0], Line, What[0], Default, Count, Usual);
    if (Current < 0 || Current >= Count) ReportIndex(Kinds[1], Line, What[1], Current, Count, Default);
  }

  /// False: the rounding cannot be kept.
  bool CheckIncrement(const TUnit& Unit, TRound& Round) {
    const std::u16string_view Text = TrimView(Round.Increment);
    if (Text.empty() && Round.IncrementCanEdit) return true;
    if (IsIncrement(Text, IsFractional(Unit))) return true;
    const std::u16string Instead = FactoryIncrement(Round.Description);
    const bool Kept = Round.IncrementCanEdit || IsIncrement(Instead, IsFractional(Unit));
    FFindings.Add("bad-increment", FFindings.Line(&Round),
                  Say("doctor.bad-increment", Quoted(Round.Description), Quoted(Round.Increment)),
                  !Kept             ? Say("doctor.bad-increment.leave-out")
                  : Instead.empty() ? Say("doctor.bad-increment.clear")
                                    : Say("doctor.put-in", Quoted(Instead)));
    Round.Increment = Instead;
    return Kept;
  }

  /// Takes a rounding out of its list; positions behind it move up. return      1, for the loop
  static int LeaveOut(TUnit& Unit, int Position) {
    Unit.RoundContainer.Delete(Position);
    for (int* const Index : {&Unit.DefRoundIndex, &Unit.CurRoundIndex})
      if (*Index > Position)
        --*Index;
      else if (*Index == Position)
        *Index = -1; // reported as outside the list
    return 1;
  }

  /// A rounding without an increment of its own may wait in the list, but chosen it would round to whole
  /// units.
  void CheckChosenIncrement(TUnit& Unit, int Line, int Usual) {
    const auto IsEmpty = [&Unit](int Index) {
      const TRound* Round = Unit.GetRound(Index);
      return Round && TrimView(Round->Increment).empty();
    };
    for (int* const Index : {&Unit.DefRoundIndex, &Unit.CurRoundIndex}) {
      if (!IsEmpty(*Index)) continue;
      int Instead = Usual;
      for (int I = 0; IsEmpty(Instead) && I < Unit.RoundContainer.Count(); ++I) Instead = I;
      const std::string Name = Quoted(Unit.GetRound(*Index)->Description);
      if (IsEmpty(Instead)) {
        Unit.GetRound(*Index)->Increment = u"0.001";
        FFindings.Add("empty-increment", Line, Say("doctor.empty-increment", Name),
                      Say("doctor.put-in", "\"0.001\""));
      } else {
        FFindings.Add("empty-increment", Line, Say("doctor.empty-increment", Name),
                      Say("doctor.empty-increment.do", Quoted(Unit.GetRound(Instead)->Description)));
        *Index = Instead;
      }
    }
  }

  TSettings& FSettings;
  TFindingList& FFindings;
  std::vector<std::u16string> FKnown;
};

/// The message without "path:line: ", which every finding has in front.
std::string WithoutPlace(const EXmlError& Error) {
  std::u16string Place = Error.Path();
  if (Error.Line() > 0) Place.append(u":").append(IntToStr(Error.Line()));
  Place += u": ";
  const std::u16string& Message = Error.Message();
  return Printable(ToUtf8(Message.starts_with(Place) ? Message.substr(Place.size()) : Message));
}

/// The settings as the library writes them.
std::unique_ptr<TXMLDocument> Written(const TSettings& Settings) {
  auto Document = CreateXMLDocument();
  TXMLNode Root = Document->AddDocumentElement(u"Unit");
  TXMLNode Template = Root.AddChild(u"TemplateConfig");
  Template.AddInteger(u"CurConfigIndex", Settings.CurrentSystem);
  int Position = 0;
  for (const auto& System : Settings.Systems)
    GenerateOneConfig(Template, System->Description, Position++, *System);
  TXMLNode Groups = Root.AddChild(u"DigitGroup");
  Groups.AddInteger(u"CurDigitGroupIndex", Settings.CurrentGroup);
  Position = 0;
  for (const auto& Group : Settings.Groups)
    GenerateOneGroup(Groups, Group->Description, Position++, Group->DigitGroupParserClassName);
  return Document;
}

} // namespace

TCheckedSettings CheckSettings(std::string Content, const std::string& Path,
                               const std::vector<std::string>& Known) {
  TCheckedSettings Result;
  TFindingList Findings;
  TSettings Settings;
  const auto Document = CreateXMLDocument();
  bool Readable = false;
  try {
    Document->LoadFromMemory(std::move(Content), FromTerminal(Path));
    Readable = ReadSettings(*Document, Settings, Findings);
  } catch (const EXmlError& Error) {
    Findings.Add("not-xml", Error.Line(), WithoutPlace(Error), Say("doctor.not-xml.do"), false);
  }
  if (Readable) {
    TChecker(Settings, Findings, Known).Check();
    Result.Repaired = Written(Settings);
  }
  Result.Findings = Findings.Take();
  return Result;
}

TCheckedSettings CheckSettingsFile(const std::string& Path, const std::vector<std::string>& Known) {
  return CheckSettings(ReadWholeFile(FromTerminal(Path)), Path, Known);
}

} // namespace unitlib::app
