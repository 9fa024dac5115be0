/* A Windows program in plain C with its own windows, which knows nothing of the library but unitlib.h.
 *
 *   windows_host [SETTINGS-FILE [DOCUMENTS-FOLDER]]
 *
 * It shows a few quantities, takes new ones as the user would type them, opens the dialog "Project Units"
 * from its menu, and draws its quantities anew when the units have changed. Without arguments the settings
 * are "UnitConfig.xml" beside the program. unitlib.dll is loaded when the program starts and given back when
 * it ends.
 */
#include "unitlib_functions.h"

#include <stdio.h>

enum { ID_LIST = 100, ID_TEXT, ID_SET, ID_STATUS, ID_PROJECT_UNITS, ID_EXIT };
enum { TEXT_UNITS = 256, ROW_HEIGHT = 22, LEFT = 12, VALUE_LEFT = 190 };

typedef struct quantity {
  const wchar_t* name;
  int32_t measure; /* classify code */
  double value;    /* in the base unit: mm, mm2, mm3, kg */
} quantity;

static quantity quantities[] = {
    {L"Wall length", 0, 5486.4},      {L"Level of first floor", 3, 3048.0},
    {L"Floor area", 1, 26477366.4},   {L"Concrete", 2, 6116438862.9312},
    {L"Reinforcement", 6, 1234.5678}, {L"Reinforcement ratio", 4, 92.4},
};
enum { QUANTITY_COUNT = sizeof quantities / sizeof quantities[0] };

static unitlib_functions ul;
static wchar_t settings_file[32768];
static HWND main_window, list, edit, status_line;

static void say(const wchar_t* text) {
  SetWindowTextW(status_line, text);
}

/* What the library says about the call that has just failed. */
static void say_error(void) {
  wchar_t message[1024];
  if (ul.last_error_text(UL_LAST_MESSAGE, message, 1024, NULL) != UL_OK) lstrcpyW(message, L"Unknown error");
  say(message);
}

static void show_quantity(const quantity* q, wchar_t* text, int32_t capacity) {
  if (ul.store_to_display(q->measure, q->value, UL_BASE_SCALE, UL_APPEND_SYMBOL, text, capacity, NULL) !=
      UL_OK)
    lstrcpyW(text, L"?");
}

static void paint(HWND window) {
  PAINTSTRUCT area;
  HDC dc = BeginPaint(window, &area);
  HGDIOBJ old = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
  SetBkMode(dc, TRANSPARENT);
  for (int i = 0; i < QUANTITY_COUNT; ++i) {
    wchar_t text[TEXT_UNITS];
    const int top = LEFT + i * ROW_HEIGHT;
    TextOutW(dc, LEFT, top, quantities[i].name, lstrlenW(quantities[i].name));
    show_quantity(&quantities[i], text, TEXT_UNITS);
    TextOutW(dc, VALUE_LEFT, top, text, lstrlenW(text));
  }
  SelectObject(dc, old);
  EndPaint(window, &area);
}

/* The listener: the units have changed, so every shown value has. */
static void UL_CALL redraw(void* context) {
  InvalidateRect((HWND)context, NULL, TRUE);
}

static void say_units(const wchar_t* what) {
  wchar_t name[TEXT_UNITS], line[2 * TEXT_UNITS];
  if (ul.get_config_description(UL_CURRENT, name, TEXT_UNITS, NULL) != UL_OK) {
    say_error();
    return;
  }
  lstrcpyW(line, what);
  lstrcatW(line, name);
  say(line);
}

static void UL_CALL units_chosen(void* context) {
  (void)context;
  if (ul.refresh_unit() != UL_OK) say_error();
}

static void open_project_units(void) {
  int32_t outcome = UL_DIALOG_NOT_OPENED;
  const ul_status status = ul.project_units_dialog(UL_US_IMPERIAL, settings_file, UL_TO_NUL, units_chosen,
                                                   NULL, NULL, NULL, &outcome);
  if (status != UL_OK)
    say_error();
  else if (outcome == UL_DIALOG_OK)
    say_units(L"Units changed: ");
  else
    say_units(L"Units unchanged: ");
}

/* Takes the text in the field as the new value of the quantity chosen in the list. */
static void set_value(void) {
  wchar_t text[TEXT_UNITS];
  quantity* q = &quantities[SendMessageW(list, CB_GETCURSEL, 0, 0)];
  GetWindowTextW(edit, text, TEXT_UNITS);
  if (ul.display_to_store(q->measure, text, UL_TO_NUL, UL_BASE_SCALE, 0, &q->value) != UL_OK) {
    say_error();
    return;
  }
  redraw(main_window);
  wsprintfW(text, L"%s set", q->name);
  say(text);
}

static HWND add(const wchar_t* class_name, const wchar_t* text, DWORD style, int x, int y, int width,
                int height, int id) {
  HWND control = CreateWindowExW(lstrcmpW(class_name, L"EDIT") == 0 ? WS_EX_CLIENTEDGE : 0, class_name, text,
                                 WS_CHILD | WS_VISIBLE | style, x, y, width, height, main_window,
                                 (HMENU)(INT_PTR)id, GetModuleHandleW(NULL), NULL);
  SendMessageW(control, WM_SETFONT, (WPARAM)GetStockObject(DEFAULT_GUI_FONT), TRUE);
  return control;
}

static void create_controls(void) {
  const int top = LEFT + QUANTITY_COUNT * ROW_HEIGHT + LEFT;
  list = add(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, LEFT, top, 168, 200, ID_LIST);
  edit = add(L"EDIT", L"", ES_AUTOHSCROLL | WS_TABSTOP, VALUE_LEFT, top, 120, 22, ID_TEXT);
  add(L"BUTTON", L"&Set", BS_DEFPUSHBUTTON | WS_TABSTOP, VALUE_LEFT + 128, top, 60, 23, ID_SET);
  status_line = add(L"STATIC", L"", SS_LEFTNOWORDWRAP | SS_NOPREFIX, LEFT, top + 36, 366, 18, ID_STATUS);
  for (int i = 0; i < QUANTITY_COUNT; ++i) SendMessageW(list, CB_ADDSTRING, 0, (LPARAM)quantities[i].name);
  SendMessageW(list, CB_SETCURSEL, 0, 0);
}

static LRESULT CALLBACK handle(HWND window, UINT message, WPARAM word, LPARAM data) {
  switch (message) {
  case WM_PAINT:
    paint(window);
    return 0;
  case WM_DESTROY:
    PostQuitMessage(0);
    return 0;
  case WM_COMMAND:
    switch (LOWORD(word)) {
    case ID_PROJECT_UNITS:
      open_project_units();
      return 0;
    case ID_SET:
    case IDOK:
      set_value();
      return 0;
    case ID_EXIT:
      DestroyWindow(window);
      return 0;
    }
    break;
  }
  return DefWindowProcW(window, message, word, data);
}

static HMENU create_menu(void) {
  HMENU bar = CreateMenu(), project = CreatePopupMenu();
  AppendMenuW(project, MF_STRING, ID_PROJECT_UNITS, L"Project &Units...");
  AppendMenuW(project, MF_SEPARATOR, 0, NULL);
  AppendMenuW(project, MF_STRING, ID_EXIT, L"E&xit");
  AppendMenuW(bar, MF_POPUP, (UINT_PTR)project, L"&Project");
  return bar;
}

static int create_window(void) {
  WNDCLASSW type = {0};
  RECT area = {0, 0, 390, LEFT + QUANTITY_COUNT * ROW_HEIGHT + LEFT + 64};
  const DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
  type.lpfnWndProc = handle;
  type.hInstance = GetModuleHandleW(NULL);
  type.lpszClassName = L"UnitlibWindowsHost";
  type.hbrBackground = (HBRUSH)(COLOR_BTNFACE + 1);
  type.hCursor = LoadCursorW(NULL, (LPCWSTR)IDC_ARROW);
  if (!RegisterClassW(&type)) return 0;
  AdjustWindowRect(&area, style, TRUE);
  main_window = CreateWindowW(type.lpszClassName, L"Quantities", style, 40, 40, area.right - area.left,
                              area.bottom - area.top, NULL, create_menu(), type.hInstance, NULL);
  if (!main_window) return 0;
  create_controls();
  return 1;
}

/* The settings: those named, or the default file beside the program, made when it is not there. */
static ul_status load_settings(int count, wchar_t** arguments) {
  if (count > 2) {
    const ul_status status = ul.set_common_documents_path(arguments[2], UL_TO_NUL);
    if (status != UL_OK) return status;
  }
  if (count > 1) {
    lstrcpynW(settings_file, arguments[1], 32768);
  } else {
    const ul_status status = ul.get_exe_path(settings_file, 32768 - 16, NULL);
    if (status != UL_OK) return status;
    lstrcatW(settings_file, L"UnitConfig.xml");
  }
  if (GetFileAttributesW(settings_file) == INVALID_FILE_ATTRIBUTES) {
    const ul_status status = ul.generate_default_config_file(settings_file, UL_TO_NUL);
    if (status != UL_OK) return status;
  }
  return ul.initial_unit_system(settings_file, UL_TO_NUL, UL_US_IMPERIAL, 0);
}

static int run(void) {
  MSG message;
  if (ul.attach_refresh_unit(redraw, main_window) != UL_OK) say_error();
  ShowWindow(main_window, SW_SHOW);
  while (GetMessageW(&message, NULL, 0, 0) > 0) {
    if (IsDialogMessageW(main_window, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  ul.detach_refresh_unit(redraw, main_window);
  return (int)message.wParam;
}

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE before, PWSTR command_line, int show) {
  int count = 0, result = 1;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  (void)instance, (void)before, (void)command_line, (void)show;
  if (!load_unitlib(&ul)) {
    MessageBoxW(NULL, L"unitlib.dll is missing or too old.", L"Quantities", MB_ICONERROR);
    return 2;
  }
  if (create_window()) {
    if (load_settings(count, arguments) == UL_OK)
      say_units(L"Units: ");
    else
      say_error();
    result = run();
  }
  ul.free_unit_system();
  ul.free_dialogs(); /* before the library goes */
  FreeLibrary(ul.module);
  LocalFree(arguments);
  return result;
}
