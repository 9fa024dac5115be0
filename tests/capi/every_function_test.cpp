/// Every function of the list, with nothing, with nothing loaded, and with arguments taken at random.
#include "tests/capi/CapiTest.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace capi_test {
namespace {

/// Sizes up to which random arguments may go: every buffer holds this many items, and no length is larger.
constexpr int32_t Most = 4095;

void UL_CALL Listen(void*) {}
int32_t UL_CALL Lock(void*, const char16_t*, int32_t, int32_t) {
  return 1;
}
int32_t UL_CALL Lock8(void*, const char*, int32_t, int32_t) {
  return 1;
}

/// Arguments of every type that occurs, from small pools that mix right and wrong.
class TArguments {
public:
  explicit TArguments(unsigned Seed) : FRandom(Seed) {
    for (size_t I = 0; I < FTexts.size(); ++I) {
      FTexts8[I].assign(Most + 1, '\0');
      FTexts16[I].assign(Most + 1, u'\0');
      std::copy(FTexts[I].begin(), FTexts[I].end(), FTexts8[I].begin());
      std::transform(FTexts[I].begin(), FTexts[I].end(), FTexts16[I].begin(),
                     [](char C) { return static_cast<char16_t>(static_cast<unsigned char>(C)); });
    }
    for (int32_t I = 0; I <= Most; ++I) FOffsetsIn.push_back(I / 2);
  }

  template <class T> T Take() {
    if constexpr (std::is_same_v<T, int32_t>) {
      return Pick<int32_t>({INT32_MIN, -2, -1, 0, 0, 1, 2, 3, 4, 5, 6, 7, 16, 99, 300, Most});
    } else if constexpr (std::is_same_v<T, uint32_t>) {
      return Pick<uint32_t>({0, 0, 1, 31, 32, 0xFFFFFFFFU});
    } else if constexpr (std::is_same_v<T, double>) {
      const double Inf = std::numeric_limits<double>::infinity();
      return Pick<double>({0, -0.0, 1, 1676.4, -25.4, 1e-300, 1e300, Inf, -Inf, std::nan("")});
    } else if constexpr (std::is_same_v<T, const char*>) {
      return Pick<const char*>({nullptr, Text(FTexts8).data(), Text(FTexts8).data(), Text(FTexts8).data()});
    } else if constexpr (std::is_same_v<T, const char16_t*>) {
      return Pick<const char16_t*>({nullptr, Text(FTexts16).data(), Text(FTexts16).data()});
    } else if constexpr (std::is_same_v<T, const int32_t*>) {
      return Pick<const int32_t*>({nullptr, FOffsetsIn.data(), FOffsetsIn.data()});
    } else if constexpr (std::is_same_v<T, ul_callback>) {
      return Pick<ul_callback>({nullptr, &Listen});
    } else if constexpr (std::is_same_v<T, ul_lock_file>) {
      return Pick<ul_lock_file>({nullptr, &Lock});
    } else if constexpr (std::is_same_v<T, ul_lock_file_u8>) {
      return Pick<ul_lock_file_u8>({nullptr, &Lock8});
    } else { // a place for results
      return Pick<T>({nullptr, reinterpret_cast<T>(FResults[FNext].data()),
                      reinterpret_cast<T>(FResults[FNext].data())});
    }
  }
  void NextResult() { FNext = (FNext + 1) % FResults.size(); }

private:
  template <class T> T Pick(std::initializer_list<T> Pool) {
    return *(Pool.begin() + std::uniform_int_distribution<size_t>(0, Pool.size() - 1)(FRandom));
  }
  template <class T> const T& Text(const T* Pool, size_t Size) {
    return Pool[std::uniform_int_distribution<size_t>(0, Size - 1)(FRandom)];
  }
  template <class T, size_t N> const T& Text(const std::array<T, N>& Pool) { return Text(Pool.data(), N); }

  static constexpr size_t TextCount = 8;
  static inline const std::array<std::string, TextCount> FTexts = {
      "", "5'6\"", "12.5", "Square meters", "own.xml", "1+(2*3", "\xFF\xC0", "TSquareFootParser"};

  std::mt19937 FRandom;
  std::array<std::string, TextCount> FTexts8;
  std::array<std::u16string, TextCount> FTexts16;
  std::vector<int32_t> FOffsetsIn;
  // One block per result of a call, so that none overlaps another; each holds Most doubles.
  std::array<std::vector<double>, 6> FResults{std::vector<double>(Most + 2), std::vector<double>(Most + 2),
                                              std::vector<double>(Most + 2), std::vector<double>(Most + 2),
                                              std::vector<double>(Most + 2), std::vector<double>(Most + 2)};
  size_t FNext = 0;
};

template <class... A> ul_status CallAtRandom(ul_status(UL_CALL* Function)(A...), TArguments& Arguments) {
  const std::tuple<A...> Taken{(Arguments.NextResult(), Arguments.Take<A>())...};
  return std::apply(Function, Taken);
}

template <class... A> ul_status CallWithNothing(ul_status(UL_CALL* Function)(A...)) {
  return Function(A{}...);
}

template <class T>
constexpr bool IsResult =
    std::is_pointer_v<T> && !std::is_const_v<std::remove_pointer_t<T>> &&
    !std::is_void_v<std::remove_pointer_t<T>> && !std::is_function_v<std::remove_pointer_t<T>>;

/// One function as the tests below call it.
struct TFunction {
  std::function<ul_status()> WithNothing;
  std::function<ul_status(TArguments&)> AtRandom;
  bool HasResult;
};

template <class... A> TFunction Describe(ul_status(UL_CALL* Function)(A...)) {
  return {[=] { return CallWithNothing(Function); },
          [=](TArguments& Arguments) { return CallAtRandom(Function, Arguments); }, (IsResult<A> || ...)};
}

std::map<std::string, TFunction> AllFunctions() {
  std::map<std::string, TFunction> All;
#define UL_FUNCTION(name) All.emplace(#name, Describe(&name));
#include "all_functions.h"
#undef UL_FUNCTION
  int32_t Available = 0;
  ul_dialogs_available(&Available);
  if (Available) { // they would open, and wait for somebody
    All.erase("ul_project_units_dialog");
    All.erase("ul_project_units_dialog_u8");
  }
  return All;
}

bool IsKnown(ul_status Status) {
  return Status >= UL_OK && Status <= UL_ERROR_UNEXPECTED;
}

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
