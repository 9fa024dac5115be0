/* A host in C that opens the dialog. Keys are sent from outside, by xdotool, to whatever window has the
 * keyboard. Run on an X server of its own; with the argument "no-display", without any. */
#define _POSIX_C_SOURCE 200809L
#include "unitlib.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

static int failures = 0;

static void check(int good, const char* what) {
  if (good) return;
  ++failures;
  fprintf(stderr, "failed: %s\n", what);
}

/* What the callbacks were called for, in order. */
typedef struct trace {
  char calls[256];
  char file[512];
} trace;

static void note(trace* t, const char* call) {
  if (strlen(t->calls) + strlen(call) < sizeof t->calls) strcat(t->calls, call);
}

static void UL_CALL on_before(void* context) {
  note(context, "before ");
}
static void UL_CALL on_refresh(void* context) {
  note(context, "redraw ");
}
static void UL_CALL on_ok(void* context) {
  note(context, "ok ");
  check(ul_refresh_unit() == UL_OK, "listeners are told in the OK callback");
}
static int32_t UL_CALL on_lock(void* context, const char* file, int32_t length, int32_t lock) {
  trace* t = context;
  note(t, lock ? "lock " : "unlock ");
  if (length == (int32_t)strlen(file) && strlen(file) < sizeof t->file) strcpy(t->file, file);
  return 1;
}

static void press_later(const char* keys) {
  char command[256];
  sprintf(command, "(sleep 1; xdotool key --delay 100 %s) &", keys);
  check(system(command) == 0, "keys are sent");
}

static int32_t current(void) {
  int32_t index = -7;
  ul_get_cur_config_index(&index);
  return index;
}

static ul_status open_dialog(const char* file, trace* t, int32_t* outcome) {
  *outcome = -7;
  memset(t, 0, sizeof *t);
  return ul_project_units_dialog_u8(UL_US_IMPERIAL, file, UL_TO_NUL, on_ok, t, on_lock, t, outcome);
}

static void test_dialog(const char* file) {
  trace t, listeners;
  int32_t outcome;
  memset(&listeners, 0, sizeof listeners);
  ul_attach_before_unit_change(on_before, &listeners);
  ul_attach_refresh_unit(on_refresh, &listeners);

  press_later("Down Return"); /* the next configuration, OK */
  check(open_dialog(file, &t, &outcome) == UL_OK, "the dialog opens");
  check(outcome == UL_DIALOG_OK, "and is accepted");
  check(strcmp(t.calls, "unlock lock unlock lock ok ") == 0, "file callbacks, then OK");
  check(strcmp(t.file, file) == 0, "about the file");
  check(strcmp(listeners.calls, "before redraw ") == 0, "listeners before and after");
  check(current() == 1, "the second configuration is current");
  check(ul_initial_unit_system_u8(file, UL_TO_NUL, UL_US_IMPERIAL, 0) == UL_OK && current() == 1,
        "and saved");

  press_later("Down Escape");
  check(open_dialog(file, &t, &outcome) == UL_OK, "the dialog opens again");
  check(outcome == UL_DIALOG_CANCEL, "and is cancelled");
  check(strstr(t.calls, "ok") == NULL, "without the OK callback");
  check(strcmp(listeners.calls, "before redraw before ") == 0, "without a redraw");
  check(current() == 1, "nothing has changed");

  check(ul_set_text_u8("dialog.project-units", UL_TO_NUL, "Einheiten", UL_TO_NUL) == UL_OK, "a text is set");
  press_later("$(xdotool search --name '^Einheiten$' >/dev/null && echo Down) Return");
  check(open_dialog(file, &t, &outcome) == UL_OK && current() == 2, "the dialog has the host's caption");
  check(ul_set_text_u8("dialog.project-units", UL_TO_NUL, NULL, 0) == UL_OK, "and English again");

  press_later("Escape");
  check(ul_project_units_dialog_u8(UL_US_IMPERIAL, file, UL_TO_NUL, NULL, NULL, NULL, NULL, NULL) == UL_OK,
        "every callback may be null");
  check(ul_free_dialogs() == UL_OK, "the dialogs are ended");
}

static void test_without_display(const char* file) {
  trace t;
  int32_t outcome;
  ul_error error;
  unsetenv("DISPLAY");
  unsetenv("WAYLAND_DISPLAY");
  check(open_dialog(file, &t, &outcome) == UL_ERROR_NOT_AVAILABLE, "no window system is an error");
  check(outcome == -7 && t.calls[0] == 0, "without result and callbacks");
  check(ul_last_error(&error) == UL_OK && error.code == UL_ERROR_NOT_AVAILABLE, "that can be asked for");
}

int main(int argc, char** argv) {
  char folder[] = "/tmp/unitlib-dialog-XXXXXX", file[64], command[128];
  int32_t available = 0;
  if (!mkdtemp(folder)) return 2;
  sprintf(file, "%s/project.xml", folder);
  check(ul_set_common_documents_path_u8(folder, UL_TO_NUL) == UL_OK, "a folder of its own");
  check(ul_generate_default_config_file_u8(file, UL_TO_NUL) == UL_OK, "the factory settings");
  check(ul_dialogs_available(&available) == UL_OK && available == 1, "this library has the dialogs");
  if (argc > 1 && strcmp(argv[1], "no-display") == 0)
    test_without_display(file);
  else
    test_dialog(file);
  ul_free_unit_system();
  sprintf(command, "rm -r '%s'", folder);
  check(system(command) == 0, "the folder is removed");
  return failures != 0;
}
