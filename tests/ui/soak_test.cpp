/// Opening and closing the dialogs over and over: neither memory nor windows grow.
#include "tests/ui/UiFixture.h"

#include <X11/Xlib.h>

#include <fstream>
#include <memory>

#include <unistd.h>

namespace unitlib {
namespace {

using namespace test;

/// Windows below a window of the X server, of this program and all others.
size_t CountWindows(Display* Server, Window Top) {
  Window Root = 0, Parent = 0, *Children = nullptr;
  unsigned Count = 0;
  if (!XQueryTree(Server, Top, &Root, &Parent, &Children, &Count)) return 0;
  size_t Sum = Count;
  for (unsigned I = 0; I < Count; ++I) Sum += CountWindows(Server, Children[I]);
  if (Children) XFree(Children);
  return Sum;
}

size_t CountWindows() {
  const std::unique_ptr<Display, int (*)(Display*)> Server(XOpenDisplay(nullptr), &XCloseDisplay);
  return CountWindows(Server.get(), DefaultRootWindow(Server.get()));
}

size_t ResidentBytes() {
  size_t Total = 0, Resident = 0;
  std::ifstream("/proc/self/statm") >> Total >> Resident;
  return Resident * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

size_t OpenFiles() {
  size_t Count = 0;
  for ([[maybe_unused]] const auto& Entry : std::filesystem::directory_iterator("/proc/self/fd")) ++Count;
  return Count;
}

#ifdef __SANITIZE_ADDRESS__
constexpr double Allowed = 64 * 1024; // the sanitizer keeps books on every round; it finds leaks itself
#else
constexpr double Allowed = 8 * 1024;
#endif

class Soak : public TUiFixture {
protected:
  /// Opens both dialogs, one from the other, and leaves them in one of three ways.
  void Round(int I) {
    Driver.Next([I](wxDialog& Dialog) {
      wxCommandEvent Press(wxEVT_BUTTON);
      MeasureButton(Dialog, 1).ProcessWindowEvent(Press);
      Dialog.EndModal(I % 2 ? wxID_OK : wxID_CANCEL);
    });
    Driver.Next([I](wxDialog& Dialog) { Dialog.EndModal(I % 3 ? wxID_OK : wxID_CANCEL); });
    Execute();
  }
};

TEST_F(Soak, TwoHundredRoundsKeepMemoryAndWindows) {
  Driver.Patience = 0;
  for (int I = 0; I < 40; ++I) Round(I); // caches of the toolkit fill
  Settle();
  const size_t Windows = CountWindows(), Memory = ResidentBytes(), Files = OpenFiles();
  for (int I = 0; I < 200; ++I) Round(I);
  Settle();
  EXPECT_LE(CountWindows(), Windows);
  EXPECT_EQ(wxTopLevelWindows.GetCount(), 1u);
  EXPECT_LE(OpenFiles(), Files);
  const double Growth = (static_cast<double>(ResidentBytes()) - static_cast<double>(Memory)) / 200;
  std::printf("growth per round: %.0f bytes\n", Growth);
  EXPECT_LT(Growth, Allowed);
}

} // namespace
} // namespace unitlib
