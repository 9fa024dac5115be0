/// The dialog's way through the C interface, with a stand-in for the dialog: callbacks, outcomes, errors. The dialog
/// itself is opened from C in dialog_host_test.c.
#include "tests/capi/CapiTest.h"

#include "unitlib/capi/DialogHost.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"

#include <vector>

namespace {

/// What the stand-in does instead of a dialog.
enum class TDoes { Nothing, Cancels, SaysOK, LacksAWindowSystem, FindsABadFile };
TDoes Does = TDoes::Nothing;
std::vector<std::string> Calls; // in order
bool LockAnswer = false;

} // namespace

namespace unitlib::capi {

bool HasDialogs() noexcept {
  return true;
}

void RunProjectUnits(TConfigueType ConfigType, std::u16string_view File, const TUnitOKFunc& OnOK,
                     const TLockFileFunc& LockFile) {
  Calls.push_back("dialog " + std::to_string(static_cast<int>(ConfigType)) + " " + ToUtf8(File));
  if (Does == TDoes::LacksAWindowSystem) throw EUnitError(u"There is no display", u"");
  if (Does == TDoes::Nothing) return;
  LockAnswer = LockFile(File, false);
  if (Does == TDoes::FindsABadFile) throw EFileError(u"Cannot be read", File, u"Gone");
  LockFile(File, true);
  if (Does == TDoes::SaysOK) OnOK();
}

void EndDialogs() noexcept {
  Calls.push_back("end");
}

} // namespace unitlib::capi

namespace capi_test {
namespace {

const std::string File8 = "L\xC3\xA4nge.xml";
const std::u16string File16 = u"L\u00E4nge.xml";

class TDialogCalls : public TCapi {
protected:
  TDialogCalls() {
    Calls.clear();
    Does = TDoes::Nothing;
  }
  static void UL_CALL OnOK(void* Context) { Calls.push_back("ok " + *static_cast<std::string*>(Context)); }
  static int32_t UL_CALL Lock8(void* Context, const char* File, int32_t Length, int32_t Lock) {
    Calls.push_back(std::string(Lock ? "lock " : "unlock ") + *static_cast<std::string*>(Context) + " " +
                    std::string(File, static_cast<size_t>(Length)));
    return 1;
  }
  static int32_t UL_CALL Lock16(void* Context, const char16_t* File, int32_t Length, int32_t Lock) {
    const std::string Name = unitlib::ToUtf8({File, static_cast<size_t>(Length)});
    Calls.push_back(std::string(Lock ? "lock " : "unlock ") + *static_cast<std::string*>(Context) + " " +
                    Name);
    return 0;
  }
  ul_status Open8(TDoes What) {
    Does = What;
    return ul_project_units_dialog_u8(UL_UK_IMPERIAL, File8.c_str(), UL_TO_NUL, &OnOK, &Me, &Lock8, &Me,
                                      &Outcome);
  }
  ul_status Open16(TDoes What) {
    Does = What;
    return ul_project_units_dialog(UL_UK_IMPERIAL, File16.c_str(), UL_TO_NUL, &OnOK, &Me, &Lock16, &Me,
                                   &Outcome);
  }

  using TCalls = std::vector<std::string>;
  std::string Me = "host";
  int32_t Outcome = -7;
};

TEST_F(TDialogCalls, TellTheHostBeforeTheFileIsUsedAndAfter) {
  const TCalls Expected = {"dialog 1 " + File8, "unlock host " + File8, "lock host " + File8, "ok host"};
  EXPECT_EQ(UL_OK, Open8(TDoes::SaysOK));
  EXPECT_EQ(UL_DIALOG_OK, Outcome);
  EXPECT_TRUE(LockAnswer);
  EXPECT_EQ(Expected, Calls);
  Calls.clear();
  EXPECT_EQ(UL_OK, Open16(TDoes::SaysOK));
  EXPECT_EQ(UL_DIALOG_OK, Outcome);
  EXPECT_FALSE(LockAnswer) << "what the host has answered";
  EXPECT_EQ(Expected, Calls);
}

TEST_F(TDialogCalls, TellWhatBecameOfTheDialog) {
  EXPECT_EQ(UL_OK, Open8(TDoes::Nothing));
  EXPECT_EQ(UL_DIALOG_NOT_OPENED, Outcome);
  EXPECT_EQ(UL_OK, Open8(TDoes::Cancels));
  EXPECT_EQ(UL_DIALOG_CANCEL, Outcome);
}

TEST_F(TDialogCalls, NeedNoCallbacks) {
  Does = TDoes::SaysOK;
  EXPECT_EQ(UL_OK, ul_project_units_dialog_u8(UL_US_IMPERIAL, File8.c_str(), UL_TO_NUL, nullptr, nullptr,
                                              nullptr, nullptr, nullptr));
  EXPECT_EQ(TCalls{"dialog 0 " + File8}, Calls);
  EXPECT_TRUE(LockAnswer);
}

TEST_F(TDialogCalls, FailWithAStatus) {
  EXPECT_EQ(UL_ERROR_NOT_AVAILABLE, Open8(TDoes::LacksAWindowSystem));
  EXPECT_EQ("There is no display", LastText());
  EXPECT_EQ(UL_ERROR_FILE, Open8(TDoes::FindsABadFile));
  EXPECT_EQ(File8 + ": Cannot be read: Gone", LastText());
  EXPECT_EQ(-7, Outcome) << "there is none";
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_project_units_dialog_u8(9, File8.c_str(), UL_TO_NUL, nullptr, nullptr,
                                                          nullptr, nullptr, nullptr));
}

TEST_F(TDialogCalls, AreThereAndEnd) {
  int32_t Available = -7;
  EXPECT_EQ(UL_OK, ul_dialogs_available(&Available));
  EXPECT_EQ(1, Available);
  EXPECT_EQ(UL_OK, ul_free_dialogs());
  EXPECT_EQ(TCalls{"end"}, Calls);
}

} // namespace
} // namespace capi_test
