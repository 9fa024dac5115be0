#include "apps/unitctl/SettingsDiff.h"

#include "apps/unitctl/Command.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>

namespace unitlib::app {
namespace {

template <class T> struct TPair {
  const T* A;
  const T* B;
};

int CodeOf(const TConfig&) {
  return -1;
}
int CodeOf(const TMeasure& Measure) {
  return Measure.ClassifyCode;
}
int CodeOf(const TUnit& Unit) {
  return Unit.UnitIdentifyCode;
}
int CodeOf(const TRound&) {
  return -1;
}
int CodeOf(const TUnitSymbol&) {
  return -1;
}
int CodeOf(const TDigitGroup&) {
  return -1;
}

/// Pairs of two lists: the n-th of a description with the n-th of it, then what is left by code. One side of
/// a pair is null where nothing matches.
template <class T> class TMatching {
public:
  TMatching(const TOwningList<T>& A, const TOwningList<T>& B) {
    for (const auto& Item : B) FLeft.push_back(Item.get());
    for (const auto& Item : A)
      FPairs.push_back(
          {Item.get(), Take([&](const T& Other) { return Other.Description == Item->Description; })});
    for (auto& Pair : FPairs)
      if (!Pair.B)
        Pair.B =
            Take([&](const T& Other) { return CodeOf(Other) != -1 && CodeOf(Other) == CodeOf(*Pair.A); });
    for (const T* Item : FLeft) FPairs.push_back({nullptr, Item});
  }
  const std::vector<TPair<T>>& Pairs() const { return FPairs; }

private:
  template <class TMatch> const T* Take(TMatch Match) {
    const auto Found = std::find_if(FLeft.begin(), FLeft.end(), [&](const T* Item) { return Match(*Item); });
    if (Found == FLeft.end()) return nullptr;
    const T* Result = *Found;
    FLeft.erase(Found);
    return Result;
  }

  std::vector<const T*> FLeft;
  std::vector<TPair<T>> FPairs;
};

template <class T> bool SameOrder(const TOwningList<T>& A, const TOwningList<T>& B) {
  return std::equal(A.begin(), A.end(), B.begin(), B.end(),
                    [](const auto& X, const auto& Y) { return X->Description == Y->Description; });
}

template <class T> std::string NameAt(const TOwningList<T>& List, int Index) {
  const T* Item = List.Find(Index);
  if (!Item) return Index == -1 ? Say("diff.none") : std::to_string(Index);
  const auto First = std::find_if(List.begin(), List.end(),
                                  [&](const auto& Other) { return Other->Description == Item->Description; });
  const std::string Name = Quoted(Item->Description);
  return First->get() == Item ? Name : Name + " (" + std::to_string(Index) + ")";
}

std::string OnOff(bool Value) {
  return Value ? Say("show.on") : Say("show.off");
}

class TComparer {
public:
  void Settings(const TLoadedSettings& A, const TLoadedSettings& B) {
    Changed(Say("diff.system-in-use"), NameAt(*A.Systems, A.CurrentSystem),
            NameAt(*B.Systems, B.CurrentSystem));
    Changed(Say("diff.group-in-use"), NameAt(*A.Groups, A.CurrentGroup), NameAt(*B.Groups, B.CurrentGroup));
    List(*A.Groups, *B.Groups, Say("kind.group"), &TComparer::Group);
    List(*A.Systems, *B.Systems, Say("kind.system"), &TComparer::System);
  }

  std::vector<TDifference> Take() { return std::move(FFound); }

private:
  void Add(std::string Text) {
    std::string Place;
    for (const std::string& Part : FPlace) Place += (Place.empty() ? "" : " / ") + Part;
    FFound.push_back({std::move(Place), std::move(Text)});
  }

  void Changed(const std::string& What, const std::string& A, const std::string& B) {
    if (A != B) Add(Say("diff.changed", What, B, A));
  }
  void Changed(const std::string& What, const std::u16string& A, const std::u16string& B) {
    Changed(What, Quoted(A), Quoted(B));
  }
  void Changed(const std::string& What, int A, int B) { Changed(What, std::to_string(A), std::to_string(B)); }
  void Changed(const std::string& What, bool A, bool B) { Changed(What, OnOff(A), OnOff(B)); }

  template <class T>
  void List(const TOwningList<T>& A, const TOwningList<T>& B, const std::string& Kind,
            void (TComparer::*Compare)(const T&, const T&)) {
    const std::size_t Before = FFound.size();
    const TMatching<T> Matching(A, B);
    for (const TPair<T>& Pair : Matching.Pairs()) {
      if (!Pair.A)
        Add(Say("diff.added", Kind, Quoted(Pair.B->Description)));
      else if (!Pair.B)
        Add(Say("diff.missing", Kind, Quoted(Pair.A->Description)));
      else
        Inside(*Pair.A, *Pair.B, Compare);
    }
    // A name that came, went or changed explains another order.
    if (FFound.size() == Before && !SameOrder(A, B)) Add(Say("diff.order", Kind));
  }

  template <class T> void Inside(const T& A, const T& B, void (TComparer::*Compare)(const T&, const T&)) {
    if (A.Description != B.Description)
      Add(Say("diff.renamed", Quoted(B.Description), Quoted(A.Description)));
    FPlace.push_back(Printable(ToUtf8(A.Description)));
    Changed("OrderIndex", A.OrderIndex, B.OrderIndex);
    (this->*Compare)(A, B);
    FPlace.pop_back();
  }

  void Group(const TDigitGroup& A, const TDigitGroup& B) {
    Changed(Say("diff.class"), A.DigitGroupParserClassName, B.DigitGroupParserClassName);
  }

  void System(const TConfig& A, const TConfig& B) {
    List(A.MeasureContainer, B.MeasureContainer, Say("kind.measure"), &TComparer::Measure);
  }

  void Measure(const TMeasure& A, const TMeasure& B) {
    if (ShownAs(A) != ShownAs(B)) Add(Say("diff.shown", ShownAs(B), ShownAs(A)));
    Changed(Say("diff.code"), A.ClassifyCode, B.ClassifyCode);
    Changed(Say("diff.example"), A.ExampleValue, B.ExampleValue);
    Changed(Say("doctor.current-unit"), NameAt(A.UnitContainer, A.CurUnitIndex),
            NameAt(B.UnitContainer, B.CurUnitIndex));
    Changed(Say("doctor.default-unit"), NameAt(A.UnitContainer, A.DefUnitIndex),
            NameAt(B.UnitContainer, B.DefUnitIndex));
    List(A.UnitContainer, B.UnitContainer, Say("kind.unit"), &TComparer::Unit);
  }

  void Unit(const TUnit& A, const TUnit& B) {
    Changed(Say("diff.unit-code"), A.UnitIdentifyCode, B.UnitIdentifyCode);
    Changed(Say("diff.class"), A.UnitParserClassName, B.UnitParserClassName);
    Changed(Say("diff.symbol-when-none"), A.DefUnitSymbolWhenNone, B.DefUnitSymbolWhenNone);
    Changed(Say("doctor.current-round"), NameAt(A.RoundContainer, A.CurRoundIndex),
            NameAt(B.RoundContainer, B.CurRoundIndex));
    Changed(Say("doctor.default-round"), NameAt(A.RoundContainer, A.DefRoundIndex),
            NameAt(B.RoundContainer, B.DefRoundIndex));
    Changed(Say("doctor.current-symbol"), NameAt(A.UnitSymbolContainer, A.CurUnitSymbolIndex),
            NameAt(B.UnitSymbolContainer, B.CurUnitSymbolIndex));
    Changed(Say("doctor.default-symbol"), NameAt(A.UnitSymbolContainer, A.DefUnitSymbolIndex),
            NameAt(B.UnitSymbolContainer, B.DefUnitSymbolIndex));
    for (const TSwitch& Switch : Switches())
      SwitchState(std::string(Switch.Name), A.*Switch.Setting, B.*Switch.Setting);
    List(A.RoundContainer, B.RoundContainer, Say("kind.rounding"), &TComparer::Round);
    List(A.UnitSymbolContainer, B.UnitSymbolContainer, Say("kind.symbol"), &TComparer::Symbol);
  }

  void SwitchState(const std::string& Name, const TCheckBoxSetting& A, const TCheckBoxSetting& B) {
    Changed(Name, A.Checked, B.Checked);
    Changed(Say("diff.switch-enabled", Name), A.Enable, B.Enable);
    Changed(Say("diff.switch-default", Name), A.DefChecked, B.DefChecked);
    Changed(Say("diff.switch-default-enabled", Name), A.DefEnable, B.DefEnable);
  }

  void Round(const TRound& A, const TRound& B) {
    Changed(Say("diff.increment"), A.Increment, B.Increment);
    Changed(Say("diff.editable"), A.IncrementCanEdit, B.IncrementCanEdit);
    Changed(Say("diff.visible"), A.IncrementCanVisible, B.IncrementCanVisible);
  }

  void Symbol(const TUnitSymbol&, const TUnitSymbol&) {}

  std::vector<std::string> FPlace;
  std::vector<TDifference> FFound;
};

} // namespace

std::string ShownAs(const TMeasure& Measure) {
  const TUnit* Unit = Measure.UnitContainer.Find(Measure.CurUnitIndex);
  if (!Unit) return Say("set.summary-none");
  std::string Result = Printable(ToUtf8(Unit->Description));
  if (const TRound* Round = Unit->GetCurRound()) {
    Result += ", " + Printable(ToUtf8(Round->Description));
    if (Round->IncrementCanEdit) Result += " " + Printable(ToUtf8(Round->Increment));
  }
  const std::u16string& Symbol = Unit->GetCurUnitSymbolDescription();
  return Symbol.empty() ? Result : Result + Say("set.summary-symbol", Printable(ToUtf8(Symbol)));
}

std::vector<TDifference> CompareSettings(const TLoadedSettings& A, const TLoadedSettings& B) {
  TComparer Comparer;
  Comparer.Settings(A, B);
  return Comparer.Take();
}

} // namespace unitlib::app
