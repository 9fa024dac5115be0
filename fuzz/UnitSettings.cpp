#include "fuzz/UnitSettings.h"

#include "unitlib/model/ZELUnitMgr.h"

namespace unitlib::fuzz {
namespace {

constexpr std::u16string_view Increments[] = {u"1/16", u"1",     u"12",  u"6",    u"1/256", u"0.01", u"",
                                              u"1000", u"0.001", u"1/2", u"1/32", u"0.5",   u"100",  u"24"};

std::u16string_view GroupClass(int Size) {
  return Size == 3 ? u"TDigitGroup3CommaParser" : Size == 4 ? u"TDigitGroup4CommaParser" : u"";
}

} // namespace

void TakeUnitSettings(TInput& Input, slow::TUnitSetup& Setup) {
  const unsigned Switches = Input.Byte();
  Setup.SuppressTrail0 = Switches & 1;
  Setup.Suppress0Feet = Switches & 2;
  Setup.ShowPlus = Switches & 4;
  Setup.UseDigitGroup = Switches & 8;
  Setup.SuppressSpace = Switches & 16;
  Setup.CanEdit = Switches & 32;
  constexpr int Sizes[] = {3, 4, 0, 3, 4, -1};
  Setup.GroupSize = Sizes[Input.Below(std::size(Sizes))];
  // A letter: one of the usual increments, none, or one that is typed.
  constexpr unsigned Count = std::size(Increments);
  const unsigned Increment = Input.Below(26);
  Setup.HasRound = Increment != Count;
  Setup.Increment = Increment < Count ? std::u16string(Increments[Increment])
                    : Setup.HasRound  ? Input.Text()
                                      : u"";
  // Symbols with a bar between them.
  std::u16string Symbols = Input.Text().substr(0, 60);
  while (!Symbols.empty() && Setup.Symbols.size() < 5) {
    const std::size_t Bar = Symbols.find(u'|');
    Setup.Symbols.push_back(Symbols.substr(0, Bar));
    Symbols.erase(0, Bar == Symbols.npos ? Bar : Bar + 1);
  }
  Setup.SymbolIndex = static_cast<int>(Input.Below(10)) - 1;
}

TLoadedUnit::TLoadedUnit(const slow::TUnitSetup& Setup, int ClassifyCode) {
  using TManager = TSystemUnitDataManager;
  TManager::FUnitConfigContainer = std::make_unique<TManager::TConfigList>();
  TManager::FDigitGroupContainer = std::make_unique<TManager::TDigitGroupList>();
  TManager::FCurUseUnitConfigContainer = TManager::FUnitConfigContainer.get();
  TManager::FCurUseDigitGroupContainer = TManager::FDigitGroupContainer.get();
  TManager::SetCurConfig(0);
  TManager::SetCurDigitGroupIndex(Setup.GroupSize < 0 ? 7 : 0);
  TManager::FDigitGroupContainer->Add().DigitGroupParserClassName = GroupClass(Setup.GroupSize);
  TMeasure& Measure = TManager::FUnitConfigContainer->Add().MeasureContainer.Add();
  Measure.ClassifyCode = ClassifyCode;
  FUnit = &Measure.UnitContainer.Add();
  FUnit->UnitParserClassName = Setup.ClassName;
  FUnit->UnitIdentifyCode = Setup.Code;
  FUnit->DefUnitSymbolWhenNone = Setup.SymbolWhenNone;
  FUnit->CurRoundIndex = Setup.HasRound ? 0 : -1;
  TRound& Round = FUnit->RoundContainer.Add();
  Round.SetIncrement(Setup.Increment);
  Round.IncrementCanEdit = Setup.CanEdit;
  for (const std::u16string& Symbol : Setup.Symbols) FUnit->UnitSymbolContainer.Add().Description = Symbol;
  FUnit->CurUnitSymbolIndex = Setup.SymbolIndex;
  FUnit->SuppressTrail0.Checked = Setup.SuppressTrail0;
  FUnit->Suppress0Feet.Checked = Setup.Suppress0Feet;
  FUnit->ShowPlusForPosValue.Checked = Setup.ShowPlus;
  FUnit->UseDigitGroup.Checked = Setup.UseDigitGroup;
  FUnit->SuppressSpace.Checked = Setup.SuppressSpace;
}

TLoadedUnit::~TLoadedUnit() {
  FreeUnitSystem();
}

} // namespace unitlib::fuzz
