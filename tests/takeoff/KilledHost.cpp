#include "tests/takeoff/KilledHost.h"

#include "apps/takeoff/TakeoffFrame.h"
#include "tests/ui/DialogDriver.h"
#include "unitlib/rtl/Text.h"

#include <wx/uiaction.h>
#include <wx/utils.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace unitlib::takeoff {
namespace {

/// Pid of the started program; its standard output is read from Output.
pid_t StartHost(const std::u16string& Project, int& Output) {
  int Ends[2];
  if (pipe(Ends) != 0) return -1;
  const pid_t Child = fork();
  if (Child == 0) {
    dup2(Ends[1], STDOUT_FILENO);
    execl("/proc/self/exe", "takeoff_window_tests", "--type-for-ever", ToUtf8(Project).c_str(), nullptr);
    _exit(127);
  }
  close(Ends[1]);
  Output = Ends[0];
  return Child;
}

/// The number of the last whole line.
int LastLine(const std::string& Text) {
  const std::size_t End = Text.rfind('\n');
  if (End == std::string::npos) return 0;
  const std::size_t Begin = End == 0 ? std::string::npos : Text.rfind('\n', End - 1);
  return std::atoi(Text.c_str() + (Begin == std::string::npos ? 0 : Begin + 1));
}

/// A killed process may have left a key down, which would repeat into the next one for ever.
void ReleaseKeys() {
  wxUIActionSimulator Keys;
  for (char Digit = '0'; Digit <= '9'; ++Digit) Keys.KeyUp(Digit);
  Keys.KeyUp(WXK_RETURN);
  Keys.MouseUp();
}

void TypeAndWait(TTakeoffFrame& Frame, int Number) {
  wxUIActionSimulator Keys;
  Frame.Grid().GoTo(KilledRow, ValueColumn);
  for (const char Digit : std::to_string(Number)) Keys.Char(Digit);
  Keys.Char(WXK_RETURN);
  while (Frame.Project()->Item(KilledRow).Value != Number) wxYield();
}

} // namespace

int KillHostWhileTyping(const std::u16string& Project, int Round) {
  constexpr int Stride = 7919; // microseconds; spreads the kills over the edits
  int Output = -1;
  const pid_t Child = StartHost(Project, Output);
  std::string Text;
  char Buffer[256];
  ssize_t Got = read(Output, Buffer, sizeof Buffer); // the first edit is there
  if (Got > 0) Text.append(Buffer, static_cast<std::size_t>(Got));
  usleep(static_cast<useconds_t>(Round * Stride % 300'000));
  kill(Child, SIGKILL);
  waitpid(Child, nullptr, 0);
  while ((Got = read(Output, Buffer, sizeof Buffer)) > 0) Text.append(Buffer, static_cast<std::size_t>(Got));
  close(Output);
  return LastLine(Text);
}

void TypeForEver(const std::u16string& Project) {
  constexpr unsigned Patience = 30; // seconds
  alarm(Patience);
  ReleaseKeys();
  auto* const Frame = new TTakeoffFrame(std::nullopt);
  Frame->Open(Project);
  Frame->Show();
  Frame->Raise();
  test::Settle(100);
  test::ClickOn(test::Find<wxWindow>(*Frame, "Totals"));
  // Not the number that an earlier process ended with: every edit must be a new one.
  const int First = Frame->Project()->Item(KilledRow).Value == 1 ? 2 : 1;
  for (int Number = First;; ++Number) {
    TypeAndWait(*Frame, Number);
    std::printf("%d\n", Number);
    std::fflush(stdout);
  }
}

} // namespace unitlib::takeoff
