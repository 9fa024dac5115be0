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

/// One thread and two, each over all the values again and again, so that starting a thread does not count. Beside
/// it the function that shares nothing with anybody: what the machine gives.
template <class TShow>
void AddTwoThreads(const std::string& Who, const std::vector<double>& Values, std::function<void()> Prepare,
                   TShow ShowOne) {
  constexpr std::size_t Rounds = 8;
  const auto RunAll = [&Values, ShowOne](std::size_t Count) {
    for (std::size_t I = 0; I < Count; ++I) Keep(ShowOne(Values[I % Values.size()]));
  };
  for (const int Threads : {1, 2})
    Rows().push_back({"StoreToDisplay, metres, per thread", Who + (Threads == 1 ? ", one" : ", two"),
                      Rounds * Values.size(), RunAll, Prepare, Threads});
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
  AddTwoThreads("ours", In.Lengths, UseMetres, Show);
  AddTwoThreads("limit", In.Lengths, {}, LimitMetres);
}

} // namespace unitlib::bench
