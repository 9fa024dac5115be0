#include "unitlib_functions.h"

#include <string.h>

/* A function's address in place, whatever its type. */
static int find(HMODULE module, const char* name, void* place) {
  const FARPROC found = GetProcAddress(module, name);
  memcpy(place, &found, sizeof found);
  return found != NULL;
}

int load_unitlib(unitlib_functions* functions) {
  int complete;
  HMODULE module = LoadLibraryW(L"unitlib.dll");
  functions->module = module;
  if (!module) return 0;
#define FIND(name) find(module, "ul_" #name, &functions->name)
  complete = FIND(last_error_text) && FIND(initial_unit_system) && FIND(free_unit_system) &&
             FIND(generate_default_config_file) && FIND(get_exe_path) && FIND(set_common_documents_path) &&
             FIND(get_config_description) && FIND(store_to_display) && FIND(display_to_store) &&
             FIND(attach_refresh_unit) && FIND(detach_refresh_unit) && FIND(refresh_unit) &&
             FIND(project_units_dialog) && FIND(free_dialogs);
#undef FIND
  if (!complete) {
    FreeLibrary(module);
    functions->module = NULL;
  }
  return complete;
}
