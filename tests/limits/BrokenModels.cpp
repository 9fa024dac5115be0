#include "tests/limits/BrokenModels.h"

#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Text.h"

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <stdexcept>

namespace unitlib::test {
namespace {

using TManager = TSystemUnitDataManager;
constexpr int Largest = std::numeric_limits<int>::max(), Smallest = std::numeric_limits<int>::min();

void ForEachMeasure(const std::function<void(TMeasure&)>& Break) {
  for (const auto& Config : TManager::CurUseUnitConfigContainer())
    for (const auto& Measure : Config->MeasureContainer) Break(*Measure);
}

void ForEachUnit(const std::function<void(TUnit&)>& Break) {
  ForEachMeasure([&](TMeasure& Measure) {
    for (const auto& Unit : Measure.UnitContainer) Break(*Unit);
  });
}

template <class T> void Empty(TOwningList<T>& List) {
  while (List.Count() > 0) List.Delete(0);
}

std::u16string Long(char16_t C) {
  return std::u16string(5000, C);
}

/// An index of the model, set to Value everywhere.
struct TIndexRow {
  const char* Name;
  void (*Set)(int Value);
};

const TIndexRow Indices[] = {
    {"current configuration", [](int I) { TManager::FCurConfigIndex = I; }},
    {"current digit group", [](int I) { TManager::FCurDigitGroupIndex = I; }},
    {"current unit", [](int I) { ForEachMeasure([=](TMeasure& M) { M.CurUnitIndex = I; }); }},
    {"default unit", [](int I) { ForEachMeasure([=](TMeasure& M) { M.DefUnitIndex = I; }); }},
    {"classify code", [](int I) { ForEachMeasure([=](TMeasure& M) { M.ClassifyCode = I; }); }},
    {"order index", [](int I) { ForEachMeasure([=](TMeasure& M) { M.OrderIndex = I; }); }},
    {"current round", [](int I) { ForEachUnit([=](TUnit& U) { U.CurRoundIndex = I; }); }},
    {"default round", [](int I) { ForEachUnit([=](TUnit& U) { U.DefRoundIndex = I; }); }},
    {"current symbol", [](int I) { ForEachUnit([=](TUnit& U) { U.CurUnitSymbolIndex = I; }); }},
    {"default symbol", [](int I) { ForEachUnit([=](TUnit& U) { U.DefUnitSymbolIndex = I; }); }},
    {"identify code", [](int I) { ForEachUnit([=](TUnit& U) { U.UnitIdentifyCode = I; }); }},
};

/// A text of the model, set to Value everywhere.
struct TTextRow {
  const char* Name;
  void (*Set)(const std::u16string& Value);
};

using TText = const std::u16string&;
const TTextRow Texts[] = {
    {"parser class", [](TText T) { ForEachUnit([&](TUnit& U) { U.UnitParserClassName = T; }); }},
    {"digit-group class",
     [](TText T) {
       for (const auto& Group : *TManager::FCurUseDigitGroupContainer) Group->DigitGroupParserClassName = T;
       ForEachUnit([](TUnit& U) { U.UseDigitGroup.Checked = true; });
     }},
    {"increment",
     [](TText T) {
       ForEachUnit([&](TUnit& U) {
         for (const auto& Round : U.RoundContainer) Round->SetIncrement(T);
       });
     }},
    {"typed increment",
     [](TText T) {
       ForEachUnit([&](TUnit& U) {
         for (const auto& Round : U.RoundContainer) {
           Round->IncrementCanEdit = true;
           Round->SetIncrement(T);
         }
       });
     }},
    {"symbol",
     [](TText T) {
       ForEachUnit([&](TUnit& U) {
         for (const auto& Symbol : U.UnitSymbolContainer) Symbol->Description = T;
         U.CurUnitSymbolIndex = U.UnitSymbolContainer.Count() - 1;
       });
     }},
    {"symbol for none", [](TText T) { ForEachUnit([&](TUnit& U) { U.DefUnitSymbolWhenNone = T; }); }},
    {"unit description", [](TText T) { ForEachUnit([&](TUnit& U) { U.Description = T; }); }},
    {"example value", [](TText T) { ForEachMeasure([&](TMeasure& M) { M.ExampleValue = T; }); }},
};

std::vector<std::u16string> TextValues() {
  std::vector<std::u16string> Values = {
      u"",
      u" ",
      u"0",
      u"-0",
      u"-1",
      u"1",
      u".",
      u",",
      u"-",
      u"+",
      u"e",
      u"'",
      u"\"",
      u"/",
      u"1/0",
      u"0/0",
      u"0/1",
      u"1/",
      u"/1",
      u"1/2/3",
      u"-1/-2",
      u"1/0.5",
      u"1e308",
      u"1e400",
      u"1e-308",
      u"4.9e-324",
      u"1e-400",
      u"nan",
      u"inf",
      u"0x10",
      u"3",
      u"0.1",
      u"1E3",
      u"1,5",
      u"none",
      u"None",
      u"TMetreParser",
      u"tfeetandfractionalinchparser",
      u"TDigitGroup4CommaParser",
      u"\u4E2D\u0301",
      u"\U0001F4D0",
      u"9007199254740993",
      u"1e15/1e-15",
      u"99999999999999999999/7",
      u"0.3333333333333333333333333333333333333333333333333333333333333333333333333333",
  };
  Values.emplace_back(u"a\0b", 3);
  Values.emplace_back(1, static_cast<char16_t>(0xD800));
  Values.push_back(Long(u'9'));
  Values.push_back(Long(u'x'));
  Values.push_back(u"0." + Long(u'0') + u"1e5000");
  Values.push_back(u"1/" + Long(u'3'));
  return Values;
}

std::string Shown(const std::u16string& Text) {
  return Text.size() < 90 ? ToUtf8(Text)
                          : "of " + std::to_string(Text.size()) + " characters " + ToUtf8(Text.substr(0, 2));
}

const std::vector<TBrokenModel> Lists = {
    {"nothing broken", [] {}},
    {"no configurations", [] { Empty(TManager::CurUseUnitConfigContainer()); }},
    {"no digit groups", [] { Empty(*TManager::FCurUseDigitGroupContainer); }},
    {"no digit groups, though they are used",
     [] {
       Empty(*TManager::FCurUseDigitGroupContainer);
       ForEachUnit([](TUnit& U) { U.UseDigitGroup.Checked = true; });
     }},
    {"no measures",
     [] {
       for (const auto& Config : TManager::CurUseUnitConfigContainer()) Empty(Config->MeasureContainer);
     }},
    {"no units", [] { ForEachMeasure([](TMeasure& M) { Empty(M.UnitContainer); }); }},
    {"no rounds", [] { ForEachUnit([](TUnit& U) { Empty(U.RoundContainer); }); }},
    {"no symbols", [] { ForEachUnit([](TUnit& U) { Empty(U.UnitSymbolContainer); }); }},
    {"fresh objects only",
     [] {
       Empty(TManager::CurUseUnitConfigContainer());
       TManager::CurUseUnitConfigContainer().Add().MeasureContainer.Add().UnitContainer.Add();
     }},
    {"every switch on",
     [] {
       ForEachUnit([](TUnit& U) {
         for (TCheckBoxSetting* S : {&U.UseProjectSetting, &U.SuppressTrail0, &U.Suppress0Feet,
                                     &U.ShowPlusForPosValue, &U.UseDigitGroup, &U.SuppressSpace})
           *S = {true, true, true, true};
       });
     }},
    {"nothing loaded", [] { FreeUnitSystem(); }, false},
    {"no list of configurations", [] { TManager::FCurUseUnitConfigContainer = nullptr; }, false},
    {"no list of digit groups", [] { TManager::FCurUseDigitGroupContainer = nullptr; }, false},
};

} // namespace

std::vector<TBrokenModel> BrokenModels() {
  std::vector<TBrokenModel> Models = Lists;
  for (const TIndexRow& Row : Indices)
    for (const int Value : {Smallest, -1, 0, 1, 2, 3, 10, 11, 13, 14, 1000, Largest})
      Models.push_back(
          {Row.Name + std::string(" ") + std::to_string(Value), [&Row, Value] { Row.Set(Value); }});
  for (const TTextRow& Row : Texts)
    for (const std::u16string& Value : TextValues())
      Models.push_back({Row.Name + (" " + Shown(Value)), [&Row, Value] { Row.Set(Value); }});
  return Models;
}

std::vector<TBrokenModel> ModelsToWalk() {
  const std::vector<TBrokenModel> All = BrokenModels();
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  const std::size_t Step = std::getenv("UNITLIB_FULL_SIZE") ? 1 : 4;
#else
  const std::size_t Step = 1;
#endif
  std::vector<TBrokenModel> Models(All.begin(), All.begin() + static_cast<std::ptrdiff_t>(Lists.size()));
  for (std::size_t I = Lists.size(); I < All.size(); I += Step) Models.push_back(All[I]);
  return Models;
}

TBrokenModel BrokenModel(const std::string& Name) {
  for (const TBrokenModel& Model : BrokenModels())
    if (Model.Name == Name) return Model;
  throw std::invalid_argument(Name);
}

} // namespace unitlib::test
