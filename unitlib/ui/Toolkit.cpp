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
#include <wx/msw/private.h>
#include <wx/nativewin.h>
#endif

#include <clocale>
#include <vector>

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

#ifdef __WXMSW__

/// The program or DLL that this code has been linked into.
HINSTANCE OwnModule() {
  HMODULE Module = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&OwnModule), &Module);
  return Module;
}

#endif

/// wxWidgets from its first need to the unloading of the library.
class TOwnToolkit {
public:
  ~TOwnToolkit() { Free(); }

  void Start() {
    if (wxTheApp) return; // the host's, or ours from an earlier dialog
    // The toolkit takes over the user's locale. Asking for it is as unsafe on several threads as the
    // toolkit's start itself, which belongs to the user-interface thread.
    const std::string Numeric = std::setlocale(LC_NUMERIC, nullptr); // NOLINT(concurrency-mt-unsafe)
#ifdef __WXMSW__
    wxSetInstance(OwnModule()); // window classes and resources are not the host program's
#endif
    wxApp::SetInstance(new TUnitApp);
    static char Name[] = "unitlib";
    static char* Arguments[] = {Name, nullptr};
    int Count = 1;
    FStarted = wxEntryStart(Count, Arguments);
    // The host's number texts stay as they were.
    std::setlocale(LC_NUMERIC, Numeric.c_str()); // NOLINT(concurrency-mt-unsafe)
    if (!FStarted || !wxTheApp->CallOnInit()) {
      Free();
      throw EUnitError(UiText(TUiText::NoToolkit), u"");
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

/// The look that the manifest of a DLL asks for: without this the host's own manifest decides, and a host
/// without one has the controls of the nineties.
TDialogLook::TDialogLook() {
  const HINSTANCE Module = OwnModule();
  if (Module == ::GetModuleHandleW(nullptr)) return; // the program itself, whose manifest rules already
  std::vector<wchar_t> Path(32768);
  if (::GetModuleFileNameW(Module, Path.data(), static_cast<DWORD>(Path.size())) == 0) return;
  ACTCTXW Manifest{};
  Manifest.cbSize = sizeof Manifest;
  Manifest.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
  Manifest.lpSource = Path.data();
  Manifest.hModule = Module;
  Manifest.lpResourceName = MAKEINTRESOURCEW(2); // where the manifest of a DLL lies
  const HANDLE Context = ::CreateActCtxW(&Manifest);
  if (Context == INVALID_HANDLE_VALUE) return;
  FContext = Context;
  ULONG_PTR Cookie = 0;
  FActive = ::ActivateActCtx(Context, &Cookie) != FALSE;
  FCookie = Cookie;
}

TDialogLook::~TDialogLook() {
  if (FActive) ::DeactivateActCtx(0, FCookie);
  if (FContext) ::ReleaseActCtx(FContext);
}

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

TDialogLook::TDialogLook() = default;
TDialogLook::~TDialogLook() = default;

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
