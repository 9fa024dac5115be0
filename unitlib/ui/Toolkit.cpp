#include "unitlib/ui/Toolkit.h"

#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/ui/UiTexts.h"
#include "unitlib/ui/UnitDialogs.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/toplevel.h>
#include <wx/window.h>
#ifdef __WXMSW__
#include <wx/nativewin.h>
#endif

#include <clocale>

namespace unitlib {
namespace {

/// The application object of a host that has no toolkit of its own.
class TUnitApp : public wxApp {
public:
  bool OnInit() override {
    SetExitOnFrameDelete(false); // the loop is the host's, not ours to end
    return true;
  }
  /// A host of another toolkit cannot do anything about one; by default a box would come up in its midst.
  void OnAssertFailure(const wxChar*, int, const wxChar*, const wxChar*, const wxChar*) override {}
};

/// wxWidgets from its first need to the unloading of the library.
class TOwnToolkit {
public:
  ~TOwnToolkit() { Free(); }

  void Start() {
    if (wxTheApp) return; // the host's, or ours from an earlier dialog
    const std::string Numeric =
        std::setlocale(LC_NUMERIC, nullptr); // the toolkit takes over the user's locale
    wxApp::SetInstance(new TUnitApp);
    static char Name[] = "unitlib";
    static char* Arguments[] = {Name, nullptr};
    int Count = 1;
    FStarted = wxEntryStart(Count, Arguments);
    std::setlocale(LC_NUMERIC, Numeric.c_str()); // the host's number texts stay as they were
    if (!FStarted || !wxTheApp->CallOnInit()) {
      Free();
      throw EUnitError(std::u16string(UiText(TUiText::NoToolkit)), u"");
    }
  }

  void Free() noexcept {
    if (FStarted) wxEntryCleanup();
    FStarted = false;
  }

private:
  bool FStarted = false;
};

TOwnToolkit& OwnToolkit() {
  static TOwnToolkit Toolkit; // made at the first dialog, so it goes before everything that was there then
  return Toolkit;
}

} // namespace

wxString ToWx(std::u16string_view Text) {
  return wxString::FromUTF8(ToUtf8(Text));
}

std::u16string FromWx(const wxString& Text) {
  return FromUtf8(Text.utf8_string());
}

void StartToolkit() {
  OwnToolkit().Start();
}

void FreeUnitDialogs() noexcept {
  OwnToolkit().Free();
}

#ifdef __WXMSW__

struct THostWindow::TForeign {
  explicit TForeign(HWND AHandle) : Handle(AHandle), Window(AHandle) { ::EnableWindow(Handle, FALSE); }
  ~TForeign() {
    ::EnableWindow(Handle, TRUE);
    ::SetActiveWindow(Handle);
  }
  HWND Handle;
  wxNativeContainerWindow Window;
};

#else

struct THostWindow::TForeign {};

#endif

THostWindow::THostWindow() {
  if (wxWindow* const Active = wxGetActiveWindow()) FWindow = wxGetTopLevelParent(Active);
#ifdef __WXMSW__
  const HWND Handle = ::GetActiveWindow();
  if (!FWindow && Handle) {
    FForeign = std::make_unique<TForeign>(Handle);
    FWindow = &FForeign->Window;
  }
#endif
}

THostWindow::~THostWindow() = default;

} // namespace unitlib
