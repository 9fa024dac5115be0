/* The functions of unitlib.dll that this host uses, found at run time. A host that links the import library
 * (libunitlib.dll.a) calls them by their names instead and needs none of this. */
#ifndef UNITLIB_FUNCTIONS_H
#define UNITLIB_FUNCTIONS_H

#ifndef UNICODE
#define UNICODE
#endif
#include <windows.h>

#define UL_NO_IMPORT
#include <unitlib.h>

typedef struct unitlib_functions {
  HMODULE module;
  ul_status(UL_CALL* last_error_text)(int32_t part, ul_char16* buffer, int32_t capacity, int32_t* needed);
  ul_status(UL_CALL* initial_unit_system)(const ul_char16* file, int32_t length, int32_t config_type,
                                          int32_t save);
  ul_status(UL_CALL* free_unit_system)(void);
  ul_status(UL_CALL* generate_default_config_file)(const ul_char16* file, int32_t length);
  ul_status(UL_CALL* get_exe_path)(ul_char16* buffer, int32_t capacity, int32_t* needed);
  ul_status(UL_CALL* set_common_documents_path)(const ul_char16* path, int32_t length);
  ul_status(UL_CALL* get_config_description)(int32_t config, ul_char16* buffer, int32_t capacity,
                                             int32_t* needed);
  ul_status(UL_CALL* store_to_display)(int32_t measure, double value, int32_t scale, uint32_t flags,
                                       ul_char16* buffer, int32_t capacity, int32_t* needed);
  ul_status(UL_CALL* display_to_store)(int32_t measure, const ul_char16* text, int32_t length, int32_t scale,
                                       uint32_t flags, double* value);
  ul_status(UL_CALL* attach_refresh_unit)(ul_callback listener, void* context);
  ul_status(UL_CALL* detach_refresh_unit)(ul_callback listener, void* context);
  ul_status(UL_CALL* refresh_unit)(void);
  ul_status(UL_CALL* project_units_dialog)(int32_t config_type, const ul_char16* file, int32_t length,
                                           ul_callback on_ok, void* ok_context, ul_lock_file lock_file,
                                           void* lock_context, int32_t* outcome);
  ul_status(UL_CALL* free_dialogs)(void);
} unitlib_functions;

/* Loads unitlib.dll, from the folder of the program first. False when it or one of the functions is missing.
 */
int load_unitlib(unitlib_functions* functions);

#endif
