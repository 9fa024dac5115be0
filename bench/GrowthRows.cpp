/// What must grow with the length of a text and no faster, and what must not grow with the number of
/// measures.
#include "bench/Row.h"
#include "bench/Settings.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Numbers.h"

namespace unitlib::bench {
namespace {

/// Piece repeated, with Between between the pieces.
std::u16string Repeat(std::u16string_view Piece, std::u16string_view Between, std::size_t Times) {
  std::u16string Text;
  for (std::size_t I = 0; I < Times; ++I) Text.append(I > 0 ? Between : std::u16string_view()).append(Piece);
  return Text;
}

template <class TUse>
void AddLengths(const std::string& Operation, std::u16string_view Piece, std::u16string_view Between,
                std::function<void()> Prepare, TUse Use) {
  for (const std::size_t Times : {10U, 100U, 1000U}) {
    const auto Run = [Use, Text = Repeat(Piece, Between, Times)](std::size_t Count) {
      for (std::size_t I = 0; I < Count; ++I) Keep(Use(Text));
    };
    Rows().push_back({Operation, std::to_string(Times / 10) + "x", 200, Run, Prepare});
  }
}

/// Measures are added to, and taken from, the configuration until there are Count of them.
void HaveMeasures(int Count) {
  constexpr int FirstCode = 1000;
  UseMetres();
  auto& Measures = TSystemUnitDataManager::CurConfig()->MeasureContainer;
  const auto Source = Measures[0].GetCurUnit();
  while (Measures.Count() > Count) Measures.Delete(Measures.Count() - 1);
  while (Measures.Count() < Count) {
    TMeasure& Added = Measures.Add();
    Added.ClassifyCode = FirstCode + Measures.Count();
    Added.UnitContainer.Add().UnitParserClassName = Source->UnitParserClassName;
  }
}

void AddMeasureCounts() {
  for (const int Count : {9, 50, 200}) {
    const auto Run = [Count](std::size_t Times) {
      const auto& Measures = TSystemUnitDataManager::CurConfig()->MeasureContainer;
      std::vector<int> Codes;
      for (int I = 0; I < Count; ++I) Codes.push_back(Measures[(I * 7919) % Count].ClassifyCode);
      std::size_t Next = 0;
      for (std::size_t I = 0; I < Times; ++I) {
        Keep(TSystemUnitDataManager::CurConfigMeasure(Codes[Next]));
        Next = Next + 1 == Codes.size() ? 0 : Next + 1;
      }
    };
    Rows().push_back({"Look-up of a measure by its classify code", std::to_string(Count) + " measures",
                      100'000, Run, [Count] { HaveMeasures(Count); }});
  }
}

void AddRegistry() {
  const auto Run = [](std::size_t Times) {
    std::vector<TUnit*> Units;
    for (const auto& Measure : TSystemUnitDataManager::CurConfig()->MeasureContainer)
      for (const auto& Unit : Measure->UnitContainer) Units.push_back(Unit.get());
    for (std::size_t I = 0; I < Times; ++I) {
      TUnit* Unit = Units[I % Units.size()];
      Keep(GetUnitParser(Unit->UnitParserClassName, Unit));
    }
  };
  Rows().push_back({"Parser by class name, made and freed", "ours", 100'000, Run, [] { HaveMeasures(9); }});
}

} // namespace

void AddGrowthRows() {
  AddLengths("Parse, merge, value of a text that grows", u"1.5*2", u"+", UseMetres,
             [](const std::u16string& Text) {
               TParser Parser(Text);
               auto Root = Parser.Parse();
               Parser.Merge(Root);
               return Parser.GetDoubleValue(*Root);
             });
  AddLengths("ExprToStore of a text that grows", u"3'6 1/2\"", u"+", UseMetres,
             [](const std::u16string& Text) { return TMeasureDataManager::ExprToStore(0, Text); });
  AddLengths("CheckDisplay of a text that grows", u"12 ", u"", UseFeet,
             [](const std::u16string& Text) { return TMeasureDataManager::CheckDisplay(0, Text); });
  AddMeasureCounts();
  AddRegistry();
}

} // namespace unitlib::bench
