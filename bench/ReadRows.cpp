/// Texts to stored values, and what is no text of a value.
#include "bench/Inputs.h"
#include "bench/Limits.h"
#include "bench/Row.h"
#include "bench/Settings.h"
#include "unitlib/convert/ZELUnitConvertor.h"

#include <charconv>

namespace unitlib::bench {
namespace {

double Read(const std::u16string& Text) {
  return TMeasureDataManager::DisplayToStore(0, Text);
}
bool Check(const std::u16string& Text) {
  return TMeasureDataManager::CheckDisplay(0, Text);
}

void AddFromChars(const std::string& Operation) {
  static const std::vector<std::string> Texts = [] {
    std::vector<std::string> Result = Narrow(Inputs().MetreTexts);
    for (std::string& Text : Result) std::erase(Text, ',');
    return Result;
  }();
  AddRow(Operation, "std::from_chars", Texts, {}, [](const std::string& Text) {
    double Value = 0;
    std::from_chars(Text.data(), Text.data() + Text.size(), Value);
    return Value * 1000;
  });
}

} // namespace

void AddReadRows() {
  const TInputs& In = Inputs();
  const std::string Metres = "DisplayToStore, \"1,234.568 m\"", Feet = "DisplayToStore, \"5'6 1/2\"\"",
                    Good = "CheckDisplay, \"5'6 1/2\"\"", Words = "CheckDisplay, 40 characters, words",
                    Ends = "CheckDisplay, 40 characters, wrong at the end";
  AddRow(Metres, "ours", In.MetreTexts, UseMetres, Read);
  AddRow(Metres, "limit", In.MetreTexts, {}, LimitReadMetres);
  AddFromChars(Metres);
  AddRow(Feet, "ours", In.FeetTexts, UseFeet, Read);
  AddRow(Feet, "limit", In.FeetTexts, {}, LimitReadFeet);
  AddRow(Good, "ours", In.FeetTexts, UseFeet, Check);
  AddRow(Good, "limit", In.FeetTexts, {}, LimitReadFeet);
  AddRow(Words, "ours", In.NoLengthWords, UseFeet, Check);
  AddRow(Words, "limit", In.NoLengthWords, {}, LimitIsLength);
  AddRow(Ends, "ours", In.NoLengthEnds, UseFeet, Check);
  AddRow(Ends, "limit", In.NoLengthEnds, {}, LimitIsLength);
}

} // namespace unitlib::bench
