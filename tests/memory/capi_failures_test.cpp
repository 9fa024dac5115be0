/// The same through the C interface: a status, UL_ERROR_MEMORY where nothing else can be said, and nothing
/// lost.
#include "tests/hostile/SettingsText.h"
#include "tests/memory/Allocations.h"
#include "tests/support/Settings.h"
#include "unitlib/capi/unitlib.h"

#include <array>
#include <pthread.h>
#include <set>

namespace unitlib::test {
namespace {

std::string File; // the settings file
std::array<char, 4096> Out;
constexpr int32_t Size = static_cast<int32_t>(Out.size());
constexpr int32_t Count = 3;
constexpr double Values[Count] = {1, 2, 3};
constexpr int32_t Offsets[Count + 1] = {0, 1, 4, 9};
constexpr const char* Column = "1(2+3'4\"*2";
std::array<int32_t, Count + 1> OffsetsOut;
std::array<double, Count> Results;
std::array<ul_status, Count> Statuses;
double Value;
int32_t Answer;

void UL_CALL Listen(void*) {}

/// A thread that fails has an error record of its own to make. pthread_create, unlike std::thread, takes nothing
/// from operator new.
ul_status ErrorOfAThread() {
  ul_status Status = UL_OK;
  pthread_t Thread;
  const auto Fail = [](void* Result) -> void* {
    *static_cast<ul_status*>(Result) = ul_set_cur_config_index(99999);
    return nullptr;
  };
  if (pthread_create(&Thread, nullptr, Fail, &Status) != 0) return UL_ERROR_UNEXPECTED;
  pthread_join(Thread, nullptr);
  return Status;
}

struct TRow {
  const char* Name;
  ul_status (*Run)();
  std::set<ul_status> Usual = {UL_OK}; // without a failure
};

const TRow Rows[] = {
    {"initial_unit_system",
     [] { return ul_initial_unit_system_u8(File.c_str(), UL_TO_NUL, UL_US_IMPERIAL, 1); }},
    {"init_system_unit", [] { return ul_init_system_unit_u8(File.c_str(), UL_TO_NUL); }},
    {"init_missing", [] { return ul_init_system_unit_u8("/no/such/file.xml", UL_TO_NUL); }, {UL_ERROR_FILE}},
    {"save_config_file", [] { return ul_save_config_file_u8(nullptr, 0); }},
    {"save_nowhere", [] { return ul_save_config_file_u8("/no/such/file.xml", UL_TO_NUL); }, {UL_ERROR_FILE}},
    {"save_to_model", [] { return ul_save_to_model(); }},
    {"store_to_display",
     [] { return ul_store_to_display_u8(0, 1.5e300, -1, UL_NO_ROUND, Out.data(), Size, nullptr); }},
    {"store_to_display_nothing",
     [] { return ul_store_to_display_u8(99, 1, -1, 0, Out.data(), Size, nullptr); },
     {UL_ERROR_INDEX}},
    {"display_to_store",
     [] { return ul_display_to_store_u8(0, "1,234' 5 1/2\"", UL_TO_NUL, -1, 0, &Value); },
     {UL_OK, UL_ERROR_CONVERT}},
    {"check_display", [] { return ul_check_display_u8(0, "5'6\"", UL_TO_NUL, &Answer); }},
    {"expr_to_store",
     [] { return ul_expr_to_store_u8(0, "5'6\"+3/4\"", UL_TO_NUL, 0, Out.data(), Size, nullptr); }},
    {"evaluate", [] { return ul_evaluate_u8("2*(3+4)*5", UL_TO_NUL, &Value, nullptr); }},
    {"evaluate_wrong",
     [] { return ul_evaluate_u8("(1+2)*(3-4/5)+(", UL_TO_NUL, &Value, nullptr); },
     {UL_ERROR_EXPRESSION}},
    {"expression_to_store",
     [] { return ul_expression_to_store_u8(0, "(1+2)*5'6\"", UL_TO_NUL, -1, &Value); }},
    {"elevation",
     [] { return ul_get_elev_display_value_u8("Level 1+1.6764", UL_TO_NUL, Out.data(), Size, nullptr); }},
    {"store_to_display_column",
     [] {
       return ul_store_to_display_column_u8(0, Values, Count, -1, 0, Out.data(), Size, nullptr,
                                            OffsetsOut.data(), Statuses.data());
     }},
    {"display_to_store_column",
     [] {
       return ul_display_to_store_column_u8(0, Column, Offsets, Count, -1, 0, Results.data(),
                                            Statuses.data());
     },
     {UL_ITEMS_FAILED}},
    {"evaluate_column",
     [] { return ul_evaluate_column_u8(Column, Offsets, Count, Results.data(), nullptr, Statuses.data()); },
     {UL_ITEMS_FAILED}},
    {"texts of the settings",
     [] { return ul_get_unit_text_u8(0, 0, 0, UL_UNIT_PARSER_CLASS_NAME, Out.data(), Size, nullptr); }},
    {"set_increment", [] { return ul_set_increment_u8(0, 0, 0, 0, "1000", UL_TO_NUL); }},
    {"set_cur_unit", [] { return ul_set_cur_unit_u8(0, 0, "no such unit", UL_TO_NUL); }, {UL_NOT_FOUND}},
    {"update_display_values", [] { return ul_update_display_values(); }},
    {"last_error_text", [] { return ul_last_error_text_u8(UL_LAST_MESSAGE, Out.data(), Size, nullptr); }},
    {"first error of a thread", ErrorOfAThread, {UL_ERROR_INDEX}},
    {"not UTF-8", [] { return ul_check_display_u8(0, "\xFF", UL_TO_NUL, &Answer); }, {UL_ERROR_ENCODING}},
    {"listeners",
     [] {
       const ul_status Attached = ul_attach_refresh_unit(&Listen, &Out);
       const ul_status Fired = ul_refresh_unit();
       const ul_status Detached = ul_detach_refresh_unit(&Listen, &Out);
       return Attached ? Attached : Fired ? Fired : Detached;
     }},
};

class CapiAllocation : public testing::TestWithParam<TRow> {
protected:
  CapiAllocation() {
    File = (Folders.Root() / "settings.xml").string();
    FGood = TSettingsText::SmallWithElevation();
    WriteBytes(Folders.File("settings.xml"), FGood);
    std::filesystem::create_directories(Folders.Root() / "docs/Quillmere/ZEL/9.0");
    const std::string Documents = (Folders.Root() / "docs").string();
    EXPECT_EQ(ul_set_common_documents_path_u8(Documents.c_str(), UL_TO_NUL), UL_OK);
    Fresh();
  }
  ~CapiAllocation() override {
    ul_detach_refresh_unit(&Listen, &Out);
    ul_free_unit_system();
  }

  /// The good settings, and always the same last error.
  static void Fresh() {
    EXPECT_EQ(ul_free_unit_system(), UL_OK);
    EXPECT_EQ(ul_initial_unit_system_u8(File.c_str(), UL_TO_NUL, UL_US_IMPERIAL, 0), UL_OK);
    EXPECT_EQ(ul_set_cur_config_index(99999), UL_ERROR_INDEX);
  }

  void CheckThatTheLibraryWorksOn() const {
    EXPECT_EQ(ReadBytes(Folders.File("settings.xml")), FGood);
    EXPECT_EQ(ul_store_to_display_u8(0, 609600, -1, 0, Out.data(), Size, nullptr), UL_OK);
    EXPECT_STREQ(Out.data(), "2000");
  }

  TPrivateFolders Folders;

private:
  std::string FGood;
};

TEST_P(CapiAllocation, GivesAStatusAndLosesNothing) {
  for (const bool Lasting : {false, true}) {
    GetParam().Run(); // what is made once and kept
    bool Failed = true;
    for (long Number = 1; Failed; ++Number) {
      ASSERT_LT(Number, 20000);
      Fresh();
      const long Blocks = LiveBlocks();
      FailAllocation(Number, Lasting);
      const ul_status Status = GetParam().Run();
      Failed = StopFailing();
      EXPECT_TRUE(GetParam().Usual.contains(Status) ||
                  (Failed && (Status == UL_ERROR_MEMORY || Status == UL_ITEMS_FAILED)))
          << "allocation " << Number << ": " << Status;
      ul_detach_refresh_unit(&Listen, &Out);
      Fresh();
      EXPECT_EQ(LiveBlocks(), Blocks) << "leak at allocation " << Number;
      CheckThatTheLibraryWorksOn();
      if (HasFailure()) return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, CapiAllocation, testing::ValuesIn(Rows),
                         [](const auto& Info) { return RowName(Info.param.Name); });

} // namespace
} // namespace unitlib::test
