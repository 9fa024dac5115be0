/// ul_last_error: what it tells, and that it is each thread's own.
#include "tests/capi/CapiTest.h"

#include <gmock/gmock.h>

#include <cmath>
#include <fstream>
#include <latch>
#include <string>
#include <thread>
#include <vector>

namespace capi_test {
namespace {

using ::testing::HasSubstr;

class TErrors : public TCapi {
protected:
  std::string Write(std::string_view Name, std::string_view Content) const {
    std::ofstream(Folder / Name, std::ios::binary) << Content;
    return Path(Name);
  }
  static ul_status Load(const std::string& File) {
    return ul_initial_unit_system_u8(File.data(), Size(File), UL_US_IMPERIAL, 0);
  }
  static void FailOn(int32_t Measure) {
    int32_t Valid = 0;
    EXPECT_EQ(UL_ERROR_INDEX, ul_check_display_u8(Measure, "5", 1, &Valid));
  }
};

TEST_F(TErrors, KnowNothingOnAThreadWithoutFailure) {
  ul_error Error = {1, 1, 1, 1};
  std::string Message = "?";
  std::thread([&] {
    Error = LastError();
    Message = LastText();
  }).join();
  EXPECT_EQ(UL_OK, Error.code);
  EXPECT_EQ(0, Error.line);
  EXPECT_EQ(-1, Error.position);
  EXPECT_EQ(-1, Error.item);
}

TEST_F(TErrors, StayUntilTheNextFailure) {
  FailOn(77);
  EXPECT_EQ("5' 6\"", Show(Length, 1676.4)); // asks for the size first, which is a failure of its own
  EXPECT_EQ(UL_BUFFER_TOO_SMALL, LastError().code);
  FailOn(78);
  int32_t Valid = 0;
  EXPECT_EQ(UL_OK, ul_check_display_u8(Length, "5", 1, &Valid));
  EXPECT_EQ(UL_ERROR_INDEX, LastError().code);
  EXPECT_EQ("There is no measure with classify code 78", LastText());
  EXPECT_EQ("78", LastText(UL_LAST_TEXT));
}

TEST_F(TErrors, AreNotReplacedByReadingThem) {
  FailOn(77);
  char Buffer[4];
  EXPECT_EQ(UL_BUFFER_TOO_SMALL, ul_last_error_text_u8(UL_LAST_MESSAGE, Buffer, 4, nullptr));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_last_error_text_u8(5, Buffer, 4, nullptr));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_last_error_text_u8(-1, Buffer, 4, nullptr));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_last_error_text_u8(UL_LAST_MESSAGE, nullptr, 4, nullptr));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_last_error(nullptr));
  EXPECT_EQ(UL_ERROR_INDEX, LastError().code);
  EXPECT_EQ("There is no measure with classify code 77", LastText());
}

TEST_F(TErrors, GiveTheSameTextInBothForms) {
  FailOn(77);
  EXPECT_EQ(u"There is no measure with classify code 77", Text16([](char16_t* B, int32_t C, int32_t* N) {
              return ul_last_error_text(UL_LAST_MESSAGE, B, C, N);
            }));
}

TEST_F(TErrors, HoldTextsOfAnyLength) {
  const std::string Long(100000, 'x');
  double Value = 0;
  EXPECT_EQ(UL_ERROR_CONVERT,
            ul_display_to_store_u8(Length, Long.data(), Size(Long), UL_BASE_SCALE, 0, &Value));
  EXPECT_EQ(Long, LastText(UL_LAST_TEXT));
}

TEST_F(TErrors, TellThePathOfAFileThatIsNotThere) {
  const std::string File = Path("nothing \xC3\xA9.xml");
  EXPECT_EQ(UL_ERROR_FILE, Load(File));
  EXPECT_EQ(File, LastText(UL_LAST_PATH));
  EXPECT_EQ(0, LastError().line);
  EXPECT_NE("", LastText(UL_LAST_TEXT)) << "the system's cause";
}

TEST_F(TErrors, TellLineElementAndAttributeOfAWrongFile) {
  const std::string File = Write("wrong.xml", "<Unit>\n"
                                              " <TemplateConfig CurConfigIndex=\"0\">\n"
                                              "  <Config Description=\"C\" OrderIndex=\"none\"/>\n"
                                              " </TemplateConfig>\n"
                                              " <DigitGroup CurDigitGroupIndex=\"0\"/>\n"
                                              "</Unit>\n");
  EXPECT_EQ(UL_ERROR_XML, Load(File));
  EXPECT_EQ(3, LastError().line);
  EXPECT_EQ(File, LastText(UL_LAST_PATH));
  EXPECT_EQ("Config", LastText(UL_LAST_ELEMENT));
  EXPECT_EQ("OrderIndex", LastText(UL_LAST_ATTRIBUTE));
  EXPECT_EQ("none", LastText(UL_LAST_TEXT));
  EXPECT_THAT(LastText(), HasSubstr(File));
}

TEST_F(TErrors, ForgetTheFileAtTheNextFailure) {
  EXPECT_EQ(UL_ERROR_XML, Load(Write("wrong.xml", "<Unit>")));
  EXPECT_NE("", LastText(UL_LAST_PATH));
  int32_t Valid = 0;
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_check_display_u8(Length, nullptr, 1, &Valid));
  EXPECT_EQ("", LastText(UL_LAST_PATH));
  EXPECT_EQ(0, LastError().line);
}

TEST_F(TErrors, BelongToTheirThread) {
  constexpr int Threads = 16, Rounds = 200;
  FailOn(1000);
  std::latch Start(Threads);
  std::vector<int> Wrong(Threads, 0);
  std::vector<std::thread> Running;
  for (int I = 0; I < Threads; ++I)
    Running.emplace_back([&, I] {
      const std::string Expected = "There is no measure with classify code " + std::to_string(100 + I);
      Start.arrive_and_wait();
      for (int Round = 0; Round < Rounds; ++Round) {
        int32_t Valid = 0;
        ul_check_display_u8(100 + I, "5", 1, &Valid);
        if (LastText() != Expected) ++Wrong[static_cast<size_t>(I)];
      }
    });
  for (std::thread& Thread : Running) Thread.join();
  EXPECT_EQ(std::vector<int>(Threads, 0), Wrong);
  EXPECT_EQ("There is no measure with classify code 1000", LastText());
}

TEST_F(TErrors, ConversionsRunOnSeveralThreads) {
  constexpr int Threads = 8;
  std::vector<int> Wrong(Threads, 0);
  std::vector<std::thread> Running;
  for (int I = 0; I < Threads; ++I)
    Running.emplace_back([&Wrong, I] {
      for (int Feet = 0; Feet < 500; ++Feet) {
        char Buffer[32];
        double Value = 0;
        ul_store_to_display_u8(Length, Feet * 304.8, UL_BASE_SCALE, 0, Buffer, 32, nullptr);
        const bool Read =
            ul_display_to_store_u8(Length, Buffer, UL_TO_NUL, UL_BASE_SCALE, 0, &Value) == UL_OK;
        if (!Read || std::fabs(Value - Feet * 304.8) > 1e-9) ++Wrong[static_cast<size_t>(I)];
      }
    });
  for (std::thread& Thread : Running) Thread.join();
  EXPECT_EQ(std::vector<int>(Threads, 0), Wrong);
}

} // namespace
} // namespace capi_test
