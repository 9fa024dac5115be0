/// Stored values to texts, and the bare conversions of the standard library.
#include "bench/Inputs.h"
#include "bench/Limits.h"
#include "bench/Row.h"
#include "bench/Settings.h"
#include "unitlib/convert/ZELUnitConvertor.h"

#include <charconv>
#include <thread>

namespace unitlib::bench {
namespace {

std::u16string Show(double Value) {
  return TMeasureDataManager::StoreToDisplay(0, Value);
}

/// Both threads show all the values.
void AddTwoThreads(const std::vector<double>& Values) {
  const auto RunAll = [&Values](std::size_t Count) {
    for (std::size_t I = 0; I < Count; ++I) Keep(Show(Values[I]));
  };
  Rows().push_back({"StoreToDisplay, metres, per thread", "one thread", Values.size(), RunAll, UseMetres});
  Rows().push_back(
      {"StoreToDisplay, metres, per thread", "two threads", Values.size(), RunAll, UseMetres, 2});
}

} // namespace

void AddShowRows() {
  const TInputs& In = Inputs();
  const std::string Metres = "StoreToDisplay, metres, 3 decimals, symbol, groups of three",
                    Feet = "StoreToDisplay, feet and fractional inches, 1/16";
  AddRow(Metres, "ours", In.Lengths, UseMetres, Show);
  AddRow(Metres, "limit", In.Lengths, {}, LimitMetres);
  AddRow(Metres, "std::to_chars", In.Lengths, {}, [](double Value) {
    char Text[64];
    const auto End = std::to_chars(Text, Text + sizeof Text, Value / 1000, std::chars_format::fixed, 3).ptr;
    return std::string(Text, End);
  });
  AddRow(Feet, "ours", In.ShortLengths, UseFeet, Show);
  AddRow(Feet, "limit", In.ShortLengths, {}, LimitFeet);
  AddTwoThreads(In.Lengths);
}

} // namespace unitlib::bench
