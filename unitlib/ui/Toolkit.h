/// The border to wxWidgets: text, start-up when the host has none, the host's window.
#pragma once

#include <wx/string.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

class wxWindow;

namespace unitlib {

wxString ToWx(std::u16string_view Text);
std::u16string FromWx(const wxString& Text);

/// Starts wxWidgets when the host has not; it then stays until the process ends or FreeUnitDialogs is called.
/// errors      EUnitError there is no window system
void StartToolkit();

/// The look of the system's present controls, for windows made while this lives, also in a host that has not
/// asked for it. Only Windows needs it.
class TDialogLook {
public:
  TDialogLook();
  ~TDialogLook(); // NOLINT(performance-trivially-destructible): it has work to do on Windows
  TDialogLook(const TDialogLook&) = delete;
  TDialogLook& operator=(const TDialogLook&) = delete;

private:
  [[maybe_unused]] void* FContext = nullptr;
  [[maybe_unused]] uintptr_t FCookie = 0;
  [[maybe_unused]] bool FActive = false;
};

/// The host's active window, as the owner of a modal dialog. A window of another toolkit is wrapped, and
/// disabled while this object lives.
class THostWindow {
public:
  THostWindow();
  THostWindow(const THostWindow&) = delete;
  THostWindow& operator=(const THostWindow&) = delete;
  ~THostWindow();

  /// Null when the host has no window.
  wxWindow* Window() const noexcept { return FWindow; }

private:
  struct TForeign;
  std::unique_ptr<TForeign> FForeign;
  wxWindow* FWindow = nullptr;
};

} // namespace unitlib
