#include "Cases.h"

#include "unitlib.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <random>
#include <sstream>

namespace checksums {
namespace fs = std::filesystem;

namespace {

constexpr int32_t Measures[] = {0, 7, 3, 1, 2, 6, 4, 5};
constexpr int32_t Scales[] = {UL_BASE_SCALE, UL_BASE_SCALE, UL_THOUSAND_SCALE, UL_MILLION_SCALE,
                              UL_MILLIARD_SCALE};

void Must(ul_status Status, const char* What) {
  if (Status == UL_OK) return;
  std::cerr << "unitlib_checksums: " << What << ": status " << Status << "\n";
  std::exit(2);
}

int32_t Length(const std::u16string& Text) {
  return static_cast<int32_t>(Text.size());
}

fs::path Folder() {
  static const fs::path Own =
      fs::temp_directory_path() / ("unitlib-checksums-" + std::to_string(std::random_device()()));
  return Own;
}

std::u16string File(const char* Name) {
  return (Folder() / Name).u16string();
}

/// Status and, after a failure, what the library says about it.
void AddStatus(TResults& Results, ul_status Status) {
  Results.Add(int64_t{Status});
  if (Status == UL_OK) return;
  ul_error Error;
  char16_t Message[2048];
  int32_t Needed = 0;
  ul_last_error(&Error);
  Results.Add(int64_t{Error.position});
  if (ul_last_error_text(UL_LAST_MESSAGE, Message, 2048, &Needed) == UL_OK)
    Results.Add(std::u16string_view(Message, static_cast<size_t>(Needed - 1)));
}

using TSource = std::function<ul_status(char16_t*, int32_t, int32_t*)>;
void AddText(TResults& Results, const TSource& Source) {
  char16_t Text[4096];
  int32_t Needed = 0;
  const ul_status Status = Source(Text, 4096, &Needed);
  AddStatus(Results, Status);
  if (Status == UL_OK) Results.Add(std::u16string_view(Text, static_cast<size_t>(Needed - 1)));
}

void AddValue(TResults& Results, const std::function<ul_status(double*)>& Source) {
  double Value = 0;
  const ul_status Status = Source(&Value);
  AddStatus(Results, Status);
  if (Status == UL_OK) Results.Add(Value);
}

void AddFlag(TResults& Results, const std::function<ul_status(int32_t*)>& Source) {
  int32_t Flag = -1;
  AddStatus(Results, Source(&Flag));
  Results.Add(int64_t{Flag});
}

/// Chooses unit, rounding, symbol, switches, configuration and digit group at random. return: the measure.
int32_t ChangeSettings(TRandom& Random, TResults& Results) {
  int32_t Count = 0, Measure = 0;
  const int32_t Code = Random.Pick(Measures);
  Must(ul_get_config_count(&Count), "configurations");
  Must(ul_set_cur_config_index(Random.Below(Count)), "configuration");
  Must(ul_get_digit_group_count(&Count), "digit groups");
  Must(ul_set_cur_digit_group_index(Random.Below(Count)), "digit group");
  Must(ul_find_measure(UL_CURRENT, Code, &Measure), "measure");
  ul_measure_info Info;
  Must(ul_get_measure(UL_CURRENT, Measure, &Info), "measure");
  Must(ul_set_cur_unit_index(UL_CURRENT, Measure, Random.Below(Info.unit_count)), "unit");
  ul_unit_info Unit;
  Must(ul_get_unit(UL_CURRENT, Measure, UL_CURRENT, &Unit), "unit");
  if (Unit.round_count > 0)
    Must(ul_set_cur_round_index(UL_CURRENT, Measure, UL_CURRENT, Random.Below(Unit.round_count)), "round");
  if (Unit.symbol_count > 0)
    Must(ul_set_cur_symbol_index(UL_CURRENT, Measure, UL_CURRENT, Random.Below(Unit.symbol_count)), "symbol");
  for (int32_t Switch = UL_USE_PROJECT_SETTING; Switch <= UL_SUPPRESS_SPACE; ++Switch)
    Must(ul_set_switch(UL_CURRENT, Measure, UL_CURRENT, Switch, 1,
                       Switch != UL_USE_PROJECT_SETTING && Random.OneIn(2)),
         "switch");
  Results.Add(int64_t{Code});
  Results.Add(int64_t{Unit.identify_code});
  return Code;
}

uint32_t DisplayFlags(TRandom& Random) {
  return static_cast<uint32_t>(Random.Below(32));
}

void Shown(TRandom& Random, TResults& Results) {
  const int32_t Measure = ChangeSettings(Random, Results), Scale = Random.Pick(Scales);
  const uint32_t Flags = DisplayFlags(Random);
  const double Value = Random.Value();
  Results.Add(Value);
  AddText(Results, [&](auto... Out) { return ul_store_to_display(Measure, Value, Scale, Flags, Out...); });
}

void ShownWithSymbol(TRandom& Random, TResults& Results) {
  const int32_t Measure = Random.OneIn(8) ? UL_NO_MEASURE : ChangeSettings(Random, Results);
  const int32_t Scale = Random.Pick(Scales);
  const uint32_t Flags = DisplayFlags(Random);
  const double Value = Random.Value();
  int32_t HasSymbol = Random.OneIn(2);
  Results.Add(Value);
  AddText(Results, [&](auto... Out) {
    return ul_store_to_display_symbol(&HasSymbol, Measure, Value, Scale, Flags, Out...);
  });
  Results.Add(int64_t{HasSymbol});
}

void Read(TRandom& Random, TResults& Results) {
  const int32_t Measure = ChangeSettings(Random, Results), Scale = Random.Pick(Scales);
  const uint32_t Flags = Random.OneIn(3) ? UL_UNCHECKED : 0;
  const std::u16string Text = Random.OneIn(2) ? Random.NumberText() : Random.ImperialText();
  Results.Add(Text);
  AddValue(Results, [&](double* Value) {
    return ul_display_to_store(Measure, Text.data(), Length(Text), Scale, Flags, Value);
  });
}

void ShownAndRead(TRandom& Random, TResults& Results) {
  const int32_t Measure = ChangeSettings(Random, Results), Scale = Random.Pick(Scales);
  const double Value = Random.Value();
  char16_t Text[4096];
  Results.Add(Value);
  const ul_status Status = ul_store_to_display(Measure, Value, Scale, 0, Text, 4096, nullptr);
  AddStatus(Results, Status);
  if (Status != UL_OK) return;
  AddValue(Results,
           [&](double* Back) { return ul_display_to_store(Measure, Text, UL_TO_NUL, Scale, 0, Back); });
}

void Decimal(TRandom& Random, TResults& Results) {
  const int32_t Measure = ChangeSettings(Random, Results), Scale = Random.Pick(Scales);
  const double Number = Random.Value();
  Results.Add(Number);
  AddValue(Results, [&](double* Value) { return ul_decimal_value_to_store(Measure, Number, Scale, Value); });
}

void Checked(TRandom& Random, TResults& Results) {
  const int32_t Measure = ChangeSettings(Random, Results);
  const std::u16string Text = Random.OneIn(2) ? Random.NumberText() : Random.ImperialText();
  Results.Add(Text);
  AddFlag(Results, [&](int32_t* Flag) { return ul_check_display(Measure, Text.data(), Length(Text), Flag); });
  for (int32_t Reject : {0, 1})
    AddFlag(Results,
            [&](int32_t* Flag) { return ul_is_a_num(Measure, Text.data(), Length(Text), Reject, Flag); });
}

void Replaced(TRandom& Random, TResults& Results) {
  const int32_t Measure = ChangeSettings(Random, Results);
  const std::u16string Text = Random.Arithmetic();
  const int32_t Skip = Random.OneIn(2);
  Results.Add(Text);
  AddText(Results,
          [&](auto... Out) { return ul_expr_to_store(Measure, Text.data(), Length(Text), Skip, Out...); });
}

void Evaluated(TRandom& Random, TResults& Results) {
  const int32_t Measure = ChangeSettings(Random, Results), Scale = Random.Pick(Scales);
  const std::u16string Text = Random.Arithmetic(3);
  int32_t IsImperial = -1;
  Results.Add(Text);
  AddValue(Results,
           [&](double* Value) { return ul_evaluate(Text.data(), Length(Text), Value, &IsImperial); });
  Results.Add(int64_t{IsImperial});
  AddValue(Results, [&](double* Value) {
    return ul_expression_to_store(Measure, Text.data(), Length(Text), Scale, Value);
  });
}

void Elevations(TRandom& Random, TResults& Results) {
  ChangeSettings(Random, Results);
  const std::u16string Text = Random.Elevation();
  Results.Add(Text);
  AddFlag(Results, [&](int32_t* Flag) { return ul_check_elev_edit_value(Text.data(), Length(Text), Flag); });
  for (const auto Function : {&ul_get_elev_store_value, &ul_get_elev_edit_value, &ul_get_elev_display_value})
    AddText(Results, [&](auto... Out) { return Function(Text.data(), Length(Text), Out...); });
}

void Grouped(TRandom& Random, TResults& Results) {
  static constexpr std::u16string_view Names[] = {u"TDigitGroup3CommaParser", u"TDigitGroup4CommaParser",
                                                  u"TOther"};
  const std::u16string_view Name = Random.Pick(Names);
  const std::u16string Text = Random.NumberText();
  Results.Add(Name);
  Results.Add(Text);
  AddText(Results, [&](auto... Out) {
    return ul_group_digits(Name.data(), static_cast<int32_t>(Name.size()), Text.data(), Length(Text), Out...);
  });
}

/// Changed settings as they are saved, with the examples recomputed.
void Saved(TRandom& Random, TResults& Results) {
  for (int I = 0; I < 20; ++I) ChangeSettings(Random, Results);
  AddStatus(Results, ul_update_display_values());
  const std::string Content = TSettings::Saved();
  Results.Add(std::u16string(Content.begin(), Content.end()));
}

} // namespace

const TFamily Families[] = {
    {"shown", 40000, Shown},
    {"shown_with_symbol", 20000, ShownWithSymbol},
    {"read", 40000, Read},
    {"shown_and_read", 20000, ShownAndRead},
    {"decimal", 10000, Decimal},
    {"checked", 20000, Checked},
    {"replaced", 15000, Replaced},
    {"evaluated", 15000, Evaluated},
    {"elevations", 15000, Elevations},
    {"grouped", 10000, Grouped},
    {"saved", 20, Saved},
};
const int FamilyCount = sizeof Families / sizeof Families[0];

TSettings::TSettings() {
  fs::create_directories(Folder());
  const std::u16string Own = File("settings.xml"), Documents = Folder().u16string();
  Must(ul_set_common_documents_path(Documents.data(), Length(Documents)), "documents folder");
  Must(ul_generate_default_config_file(Own.data(), Length(Own)), "default settings");
  Must(ul_initial_unit_system(Own.data(), Length(Own), UL_US_IMPERIAL, 0), "loading");
}

TSettings::~TSettings() {
  ul_free_unit_system();
  std::error_code Ignored;
  fs::remove_all(Folder(), Ignored);
}

std::string TSettings::Saved() {
  const std::u16string Copy = File("copy.xml");
  Must(ul_save_config_file(Copy.data(), Length(Copy)), "saving");
  std::ifstream In(fs::path(Copy), std::ios::binary);
  std::ostringstream Content;
  Content << In.rdbuf();
  return Content.str();
}

} // namespace checksums
