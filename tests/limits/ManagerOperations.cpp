#include "tests/limits/ArgumentPools.h"
#include "tests/limits/Operations.h"
#include "unitlib/model/DefaultConfigTables.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/notify/ZELUnitRefreshUtils.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Xml.h"

namespace unitlib::test {
namespace {

using TManager = TSystemUnitDataManager;
using TTry = TOperation::TTry;

/// Runs what changes the selection and brings it back.
void Selecting(const TTry& Try, const std::function<void()>& Change) {
  const int Config = TManager::FCurConfigIndex, Group = TManager::FCurDigitGroupIndex;
  Try(Change);
  Try([] { TManager::CurConfig(); });
  Try([] { TManager::CurDigitGroup(); });
  TManager::FCurConfigIndex = Config;
  TManager::FCurDigitGroupIndex = Group;
}

struct TListener {
  void Notify() {}
};

} // namespace

std::vector<TOperation> ManagerOperations() {
  return {
      {"CurConfig", [](const TTry& Try) { Try([] { TManager::CurConfig(); }); }},
      {"CurConfigMeasure",
       [](const TTry& Try) {
         for (const int Code : Integers()) Try([=] { TManager::CurConfigMeasure(Code); });
       }},
      {"CurUseUnitConfigContainer",
       [](const TTry& Try) { Try([] { TManager::CurUseUnitConfigContainer(); }); }},
      {"CurDigitGroup", [](const TTry& Try) { Try([] { TManager::CurDigitGroup(); }); }},
      {"DigitGroup",
       [](const TTry& Try) {
         for (const int Index : Integers()) Try([=] { TManager::DigitGroup(Index); });
         Try([] { TManager::DigitGroupCount(); });
       }},
      {"SetCurDigitGroup",
       [](const TTry& Try) {
         for (const auto& Text : Texts()) Selecting(Try, [&] { TManager::SetCurDigitGroup(Text); });
         for (const int Index : Integers()) Selecting(Try, [=] { TManager::SetCurDigitGroupIndex(Index); });
       }},
      {"SetCurConfig",
       [](const TTry& Try) {
         for (const int Index : Integers()) Selecting(Try, [=] { TManager::SetCurConfig(Index); });
         for (int Type = 0; Type < 256; Type += 51)
           Selecting(Try, [=] { TManager::ConfigueUnitSystem(static_cast<TConfigueType>(Type)); });
         Try([] { TManager::GetCurConfigIndex(); });
         Try([] { TManager::GetCurDigitGroupIndex(); });
       }},
      {"SetCurretnConfigueType",
       [](const TTry& Try) { Selecting(Try, [] { TManager::SetCurretnConfigueType(CYINMetric, true); }); }},
      {"UpdateDispalyValue", [](const TTry& Try) { Try([] { TManager::UpdateDispalyValue(); }); }},
      {"SaveConfigFile",
       [](const TTry& Try) {
         Try([] { TManager::SaveConfigFile(GetExePath() + u"saved.xml"); });
         Try([] { TManager::SavetoModel(CYINMetric); });
         Try([] { TManager::SaveConfigFile(GetExePath() + u"no/such/folder.xml"); });
       }},
      {"ParseUnitConfigXMLFile",
       [](const TTry& Try) { Try([] { TManager::ParseUnitConfigXMLFile(GetExePath() + u"none.xml"); }); }},
      {"texts of the manager",
       [](const TTry& Try) {
         Try([] { TManager::GetUnitConfigFileName(); });
         Try([] { GetTempPathForUnit(); });
         for (const auto& Text : Texts()) Try([&] { GetDisplayValue(Text); });
         Try([] { GetDefUnitCharacter(nullptr); });
         Try([] {
           TCheckBoxSetting* None = nullptr;
           SetCheckBoxSetting(None, true, true);
         });
       },
       false},
      {"default tables",
       [](const TTry& Try) {
         for (const int I : Integers()) {
           Try([=] { defaults::MeasureRow(I); });
           for (const int J : Integers()) {
             Try([=] { defaults::UnitRow(I, J); });
             Try([=] { defaults::DefaultUnit(defaults::MeasureRow(J), I); });
           }
         }
       },
       false},
      {"writers of the default file",
       [](const TTry& Try) {
         for (const int I : Integers()) {
           const auto Document = CreateXMLDocument();
           const TXMLNode Root = Document->AddDocumentElement(u"Unit");
           Try([=] { GenerateOneConfig(Root, u"", I); });
           Try([=] { GenerateOneMeasure(Root, I, u"", I); });
           Try([=] { GenerateOneUnit(Root, I, I, u"", I, u"", u"", I); });
           for (const auto& Text : Texts()) {
             Try([&] { GenerateOneRound(Root, Text, Text, true, true, I); });
             Try([&] { GenerateOneUnitSymbol(Root, Text, I); });
             Try([&] { GenerateOneGroup(Root, Text, I, Text); });
             Try([&] { GenerateOneFormatState(Root, u"Name", true, true); });
           }
           Try([&] { Document->SaveToMemory(); });
         }
       },
       false},
      {"listeners",
       [](const TTry& Try) {
         TListener Listener;
         const THRXRefreshUnit Event = MethodOf<&TListener::Notify>(&Listener), None;
         TUnitRefreshManager& Manager = *UnitRefreshManager();
         for (const THRXRefreshUnit& One : {Event, None, Event, None}) {
           Try([&] { Manager.Attach(One); });
           Try([&] { Manager.BeforeUnitChangeAttach(One); });
         }
         Try([&] { Manager.RefreshUnit(); });
         Try([&] { Manager.RefreshBeforeUnitChange(); });
         for (const THRXRefreshUnit& One : {Event, None, Event, None}) {
           Try([&] { Manager.Detach(One); });
           Try([&] { Manager.BeforeUnitChangeDetach(One); });
         }
         THRXRefreshUnitEventList List;
         Try([&] { List.DoAttach(None, u""); });
         for (const int I : Integers()) {
           Try([&] { List.GetItems(I); });
           Try([&] { List.GetMethodByIndex(I); });
           Try([&] { List.GetDescriptions(I); });
         }
         Try([&] { List.DoEvent(); });
       },
       false},
  };
}

std::vector<TOperation> ModelOperations() {
  auto ForEachUnit = [](const std::function<void(TConfig&, TMeasure&, TUnit&)>& Use) {
    if (!TManager::FCurUseUnitConfigContainer) return;
    for (const auto& Config : *TManager::FCurUseUnitConfigContainer)
      for (const auto& Measure : Config->MeasureContainer)
        for (const auto& Unit : Measure->UnitContainer) Use(*Config, *Measure, *Unit);
  };
  return {
      {"TConfig and TMeasure",
       [](const TTry& Try) {
         if (!TManager::FCurUseUnitConfigContainer) return;
         for (const auto& Config : *TManager::FCurUseUnitConfigContainer) {
           for (const int I : Integers()) {
             Try([&] { Config->Measure(I, false); });
             Try([&] { Config->Measure(I, true); });
             Try([&] { Config->MeasureContainer.Delete(I < 0 ? I : 1000000); });
           }
           for (const auto& Measure : Config->MeasureContainer) {
             for (const int I : Integers()) Try([&] { Measure->GetUnit(I); });
             Try([&] { Measure->GetCurUnit(); });
             Try([&] { Measure->GetUnitDescriptionArray(); });
             Try([&] { Measure->SetCurUnit(u"no such unit"); });
           }
         }
       }},
      {"TUnit",
       [=](const TTry& Try) {
         ForEachUnit([&](TConfig&, TMeasure&, TUnit& Unit) {
           for (const int I : Integers()) {
             Try([&] { Unit.GetRound(I); });
             Try([&] { Unit.GetUnitSymbol(I); });
           }
           Try([&] { Unit.GetCurRound(); });
           Try([&] { Unit.GetCurUnitSymbolDescription(); });
           Try([&] { Unit.GetRoundDescriptionArray(); });
           Try([&] { Unit.GetUnitSymbolDescriptionArray(); });
           Try([&] { GetDefUnitCharacter(&Unit); });
           Try([&] { Unit.SetCurRound(u"no such round"); });
           Try([&] { Unit.SetCurUnitSymbol(u"no such symbol"); });
         });
       }},
      {"an item that is null",
       [](const TTry& Try) {
         TOwningList<TUnit> List;
         Try([&] { List.Add(nullptr); });
         Try([&] { List.Item(0); });
         for (const auto& Item : List) Try([&] { Item->Description.size(); });
       },
       false},
  };
}

std::vector<TOperation> RestoringOperations() {
  return {
      {"RestoreDefaultUnitSystem",
       [](const TTry& Try) {
         for (const int Index : Integers())
           Selecting(Try, [=] { TManager::RestoreDefaultUnitSystem(Index); });
       }},
      {"RestoreDefault",
       [](const TTry& Try) {
         if (!TManager::FCurUseUnitConfigContainer) return;
         for (const auto& Config : *TManager::FCurUseUnitConfigContainer)
           Try([&] { Config->RestoreDefault(); });
         Try([] { TManager::UpdateDispalyValue(); });
       }},
  };
}

} // namespace unitlib::test
