/// Every function of the list, with nothing, with nothing loaded, and with arguments taken at random.
#include "tests/capi/AllFunctions.h"
#include "tests/capi/CapiTest.h"

#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace capi_test {
namespace {

class TEveryFunction : public TCapi {};

TEST_F(TEveryFunction, RefusesNullResults) {
  // Null is allowed where nothing else is asked for: the sizes of an empty column, the columns of no texts.
  const std::set<std::string> Allowed = {
      "ul_display_to_store_column", "ul_display_to_store_column_u8", "ul_evaluate_column",
      "ul_evaluate_column_u8",      "ul_expression_to_store_column", "ul_expression_to_store_column_u8"};
  for (const auto& [Name, Function] : AllFunctions()) {
    SCOPED_TRACE(Name);
    const ul_status Status = Function.WithNothing();
    EXPECT_TRUE(IsKnown(Status)) << Status;
    if (Function.HasResult && !Allowed.contains(Name) && !Name.starts_with("ul_project_units_dialog")) {
      EXPECT_EQ(UL_ERROR_ARGUMENT, Status);
    }
  }
}

TEST_F(TEveryFunction, SaysThatNothingIsLoaded) {
  EXPECT_EQ(UL_OK, ul_free_unit_system());
  double Value = 0;
  int32_t Answer = 0;
  char Buffer[64];
  ul_config_info Config;
  ul_measure_info Measure;
  ul_unit_info Unit;
  ul_round_info Round;
  ul_switch_info Switch;
  ul_typed_info Typed;
  const int32_t Offsets[] = {0, 1};
  int32_t OffsetsOut[2];
  const ul_status Statuses[] = {
      ul_save_config_file(nullptr, 0),
      ul_save_to_model(),
      ul_store_to_display_u8(0, 1, -1, 0, Buffer, 64, nullptr),
      ul_store_to_display_symbol_u8(&Answer, 0, 1, -1, 0, Buffer, 64, nullptr),
      ul_check_display_u8(0, "1", 1, &Answer),
      ul_display_to_store_u8(0, "1", 1, -1, 0, &Value),
      ul_decimal_value_to_store(0, 1, -1, &Value),
      ul_is_a_num_u8(0, "1", 1, 0, &Answer),
      ul_expr_to_store_u8(0, "1", 1, 0, Buffer, 64, nullptr),
      ul_get_unit_symbol_u8(0, 0, Buffer, 64, nullptr),
      ul_store_to_display_column_u8(0, &Value, 1, -1, 0, Buffer, 64, nullptr, OffsetsOut, nullptr),
      ul_display_to_store_column_u8(0, "1", Offsets, 1, -1, 0, &Value, nullptr),
      ul_evaluate_column_u8("1", Offsets, 1, &Value, nullptr, nullptr),
      ul_expression_to_store_column_u8(0, "1", Offsets, 1, -1, &Value, nullptr),
      ul_evaluate_u8("1", 1, &Value, nullptr),
      ul_expression_to_store_u8(0, "1", 1, -1, &Value),
      ul_get_elev_store_value_u8("1", 1, Buffer, 64, nullptr),
      ul_get_elev_edit_value_u8("1", 1, Buffer, 64, nullptr),
      ul_get_elev_display_value_u8("1", 1, Buffer, 64, nullptr),
      ul_check_elev_edit_value_u8("1", 1, &Answer),
      ul_read_typed_u8(0, "1", 1, -1, 0, &Value, &Typed),
      ul_get_typed_text_u8(0, "1", 1, 0, 0, 0, Buffer, 64, nullptr),
      ul_get_config_count(&Answer),
      ul_get_cur_config_index(&Answer),
      ul_get_config(0, &Config),
      ul_get_config_description_u8(0, Buffer, 64, nullptr),
      ul_find_measure(0, 0, &Answer),
      ul_find_measure_by_order_index(0, 0, &Answer),
      ul_get_measure(0, 0, &Measure),
      ul_get_measure_text_u8(0, 0, 0, Buffer, 64, nullptr),
      ul_get_unit(0, 0, 0, &Unit),
      ul_get_unit_text_u8(0, 0, 0, 0, Buffer, 64, nullptr),
      ul_get_switch(0, 0, 0, 0, &Switch),
      ul_get_round(0, 0, 0, 0, &Round),
      ul_get_round_text_u8(0, 0, 0, 0, 0, Buffer, 64, nullptr),
      ul_get_symbol(0, 0, 0, 0, &Answer),
      ul_get_symbol_description_u8(0, 0, 0, 0, Buffer, 64, nullptr),
      ul_get_digit_group_count(&Answer),
      ul_get_cur_digit_group_index(&Answer),
      ul_get_digit_group(0, &Answer),
      ul_get_digit_group_text_u8(0, 0, Buffer, 64, nullptr),
      ul_set_cur_config_index(0),
      ul_set_config_type(0, 0),
      ul_configure_unit_system(0),
      ul_set_cur_unit_index(0, 0, 0),
      ul_set_cur_round_index(0, 0, 0, 0),
      ul_set_cur_symbol_index(0, 0, 0, 0),
      ul_set_cur_digit_group_index(0),
      ul_set_cur_unit_u8(0, 0, "a", 1),
      ul_set_cur_round_u8(0, 0, 0, "a", 1),
      ul_set_cur_symbol_u8(0, 0, 0, "a", 1),
      ul_set_cur_digit_group_u8("a", 1),
      ul_set_increment_u8(0, 0, 0, 0, "1", 1),
      ul_set_switch(0, 0, 0, 0, 0, 0),
      ul_restore_default_unit(0, 0, 0),
      ul_restore_default_measure(0, 0),
      ul_restore_default_config(0),
      ul_restore_default_unit_system(0),
      ul_update_display_values(),
  };
  int Row = 0;
  for (const ul_status Status : Statuses) EXPECT_EQ(UL_ERROR_NOT_LOADED, Status) << "row " << Row++;
}

TEST_F(TEveryFunction, StandsRandomArguments) {
  // Files are written under relative names: into the private folder. The folders themselves stay, or the
  // system's would be written to.
  const std::filesystem::path Before = std::filesystem::current_path();
  std::filesystem::current_path(Folder);
  auto Functions = AllFunctions();
  std::erase_if(Functions, [](const auto& Entry) { return Entry.first.find("_path") != std::string::npos; });
  std::erase_if(Functions, [](const auto& Entry) { return Entry.first.starts_with("ul_register_"); });

  constexpr unsigned Seed = 20240607;
  constexpr int Rounds = 60;
  std::map<ul_status, int> Seen;
  TArguments Arguments(Seed);
  for (int Round = 0; Round < Rounds; ++Round) {
    if (Round % 10 == 0) ul_initial_unit_system(nullptr, 0, UL_US_IMPERIAL, 0);
    for (const auto& [Name, Function] : Functions) {
      const ul_status Status = Function.AtRandom(Arguments);
      ASSERT_TRUE(IsKnown(Status)) << Name << ", round " << Round << ", status " << Status;
      ASSERT_NE(UL_ERROR_UNEXPECTED, Status) << Name << ", round " << Round << ": " << LastText();
      ++Seen[Status];
    }
  }
  EXPECT_GT(Seen[UL_OK], Rounds) << "the arguments were not all wrong";
  EXPECT_GT(Seen[UL_ERROR_ARGUMENT], Rounds) << "nor all right";
  std::filesystem::current_path(Before);
}

} // namespace
} // namespace capi_test
