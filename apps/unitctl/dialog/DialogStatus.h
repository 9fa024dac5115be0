/// What unitctl and the program with the dialog agree on.
#pragma once

namespace unitlib::app {

#ifdef _WIN32
inline constexpr const char* DialogProgram = "unitctl-dialog.exe";
#else
inline constexpr const char* DialogProgram = "unitctl-dialog";
#endif

inline constexpr int DialogSaved = 0;
inline constexpr int DialogFailed = 1;
inline constexpr int DialogCancelled = 3;

} // namespace unitlib::app
