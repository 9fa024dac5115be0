/// Starts a Windows program and tells what windows it shows. Run under Wine, where only a program of the same
/// Wine server can see them; the driver outside sends the keys and the mouse.
///   window_spy PROGRAM [ARGUMENT...]
/// Commands on standard input:
///   list    a line per visible window of the program: depth, class, x, y, width, height (on the screen),
///   enabled,
///           focused, state, text, all between tabs; depth 0 are the windows on the desktop. "." ends the
///           list
///   wait    waits for the end of the program and gives "exit N"
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <iostream>
#include <string>

namespace {

DWORD Program = 0; // process number
constexpr UINT Patience = 5000;

LRESULT Ask(HWND Window, UINT Message, WPARAM Word = 0, LPARAM Data = 0) {
  DWORD_PTR Result = 0;
  SendMessageTimeoutW(Window, Message, Word, Data, SMTO_ABORTIFHUNG, Patience, &Result);
  return static_cast<LRESULT>(Result);
}

std::string Utf8(const std::wstring& Text) {
  std::string Result(Text.size() * 3 + 1, '\0');
  const int Size = WideCharToMultiByte(CP_UTF8, 0, Text.data(), static_cast<int>(Text.size()), Result.data(),
                                       static_cast<int>(Result.size()), nullptr, nullptr);
  Result.resize(static_cast<size_t>(Size));
  for (char& C : Result)
    if (C == '\t' || C == '\n' || C == '\r') C = ' ';
  return Result;
}

std::wstring TextOf(HWND Window) {
  wchar_t Text[1024] = L"";
  Ask(Window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(Text));
  return Text;
}

std::wstring ClassOf(HWND Window) {
  wchar_t Name[256] = L"";
  GetClassNameW(Window, Name, 256);
  return Name;
}

/// Checked or not of a button, the chosen position of a drop-down list, else nothing.
std::string StateOf(HWND Window, const std::wstring& Class) {
  if (Class == L"Button") return std::to_string(Ask(Window, BM_GETCHECK));
  if (Class == L"ComboBox")
    return std::to_string(Ask(Window, CB_GETCURSEL)) + "/" + std::to_string(Ask(Window, CB_GETCOUNT));
  return "-";
}

HWND FocusOf(HWND Window) {
  GUITHREADINFO Info{};
  Info.cbSize = sizeof Info;
  return GetGUIThreadInfo(GetWindowThreadProcessId(Window, nullptr), &Info) ? Info.hwndFocus : nullptr;
}

void Print(HWND Window, int Depth) {
  RECT Place{};
  GetWindowRect(Window, &Place);
  const std::wstring Class = ClassOf(Window);
  std::cout << Depth << '\t' << Utf8(Class) << '\t' << Place.left << '\t' << Place.top << '\t'
            << Place.right - Place.left << '\t' << Place.bottom - Place.top << '\t'
            << (IsWindowEnabled(Window) ? 1 : 0) << '\t' << (FocusOf(Window) == Window ? 1 : 0) << '\t'
            << StateOf(Window, Class) << '\t' << Utf8(TextOf(Window)) << '\n';
}

void PrintTree(HWND Window, int Depth) {
  Print(Window, Depth);
  for (HWND Child = GetWindow(Window, GW_CHILD); Child; Child = GetWindow(Child, GW_HWNDNEXT))
    if (IsWindowVisible(Child)) PrintTree(Child, Depth + 1);
}

BOOL CALLBACK PrintWindow(HWND Window, LPARAM) {
  DWORD Owner = 0;
  GetWindowThreadProcessId(Window, &Owner);
  if (Owner == Program && IsWindowVisible(Window)) PrintTree(Window, 0);
  return TRUE;
}

/// The command line behind our own name.
std::wstring Rest(int Count, wchar_t** Arguments) {
  std::wstring Line;
  for (int I = 1; I < Count; ++I) Line += (I > 1 ? L" \"" : L"\"") + std::wstring(Arguments[I]) + L"\"";
  return Line;
}

} // namespace

int wmain(int Count, wchar_t** Arguments) {
  std::wstring Line = Rest(Count, Arguments);
  STARTUPINFOW Start{};
  Start.cb = sizeof Start;
  PROCESS_INFORMATION Made{};
  if (!CreateProcessW(nullptr, Line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &Start, &Made)) {
    std::cerr << "window_spy: cannot start " << Utf8(Line) << ": error " << GetLastError() << "\n";
    return 2;
  }
  Program = Made.dwProcessId;
  for (std::string Command; std::getline(std::cin, Command);) {
    while (!Command.empty() && Command.back() == '\r') Command.pop_back();
    if (Command == "list") {
      EnumWindows(&PrintWindow, 0);
      std::cout << "." << std::endl;
    } else if (Command == "wait") {
      DWORD Code = 0;
      WaitForSingleObject(Made.hProcess, 20000);
      GetExitCodeProcess(Made.hProcess, &Code);
      std::cout << "exit " << Code << std::endl;
    }
  }
  TerminateProcess(Made.hProcess, 97); // nothing when it has ended
  return 0;
}
