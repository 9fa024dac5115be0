/* A host in C99 that knows nothing but unitlib.h: sizes, constants, and a walk through the interface. */
#include "unitlib.h"

#include <stddef.h>
#include <stdio.h>
#include <string.h>

static int failures = 0;

static void check(int good, const char* what) {
  if (good) return;
  ++failures;
  fprintf(stderr, "failed: %s\n", what);
}

static void check_layout(void) {
  check(sizeof(ul_status) == 4, "a status has 4 bytes");
  check(sizeof(ul_char16) == 2, "a unit of UTF-16 has 2 bytes");
  check(sizeof(ul_error) == 16, "ul_error has 16 bytes");
  check(sizeof(ul_config_info) == 8, "ul_config_info has 8 bytes");
  check(sizeof(ul_measure_info) == 20, "ul_measure_info has 20 bytes");
  check(sizeof(ul_unit_info) == 32, "ul_unit_info has 32 bytes");
  check(sizeof(ul_round_info) == 12, "ul_round_info has 12 bytes");
  check(sizeof(ul_switch_info) == 16, "ul_switch_info has 16 bytes");
  check(sizeof(ul_typed_info) == 20, "ul_typed_info has 20 bytes");
  check(offsetof(ul_error, item) == 12, "ul_error ends in item");
  check(offsetof(ul_measure_info, cur_unit_index) == 16, "ul_measure_info ends in cur_unit_index");
  check(offsetof(ul_unit_info, cur_symbol_index) == 28, "ul_unit_info ends in cur_symbol_index");
  check(offsetof(ul_switch_info, checked) == 12, "ul_switch_info ends in checked");
}

static void print_error(const char* call) {
  ul_error error;
  char message[512];
  ul_last_error(&error);
  if (ul_last_error_text_u8(UL_LAST_MESSAGE, message, sizeof message, NULL) != UL_OK) message[0] = 0;
  fprintf(stderr, "%s: status %d: %s\n", call, (int)error.code, message);
}

/* The settings of this test lie beside the program, as a host's do. */
static int load(void) {
  ul_status status = ul_generate_default_config_file_u8("c_host_settings.xml", UL_TO_NUL);
  if (status == UL_OK) status = ul_set_common_documents_path_u8(".", UL_TO_NUL);
  if (status == UL_OK)
    status = ul_initial_unit_system_u8("c_host_settings.xml", UL_TO_NUL, UL_US_IMPERIAL, 0);
  if (status != UL_OK) print_error("load");
  return status == UL_OK;
}

static void check_conversions(void) {
  char text[64];
  ul_char16 wide[64];
  static const ul_char16 typed[] = {'5', '\'', '6', '"', 0};
  double value = 0;
  int32_t needed = 0;

  check(ul_store_to_display_u8(0, 1676.4, UL_BASE_SCALE, 0, text, 64, &needed) == UL_OK, "a length is shown");
  check(strcmp(text, "5' 6\"") == 0 && needed == 6, "1676.4 mm is 5' 6\"");
  check(ul_store_to_display(0, 1676.4, UL_BASE_SCALE, 0, wide, 64, &needed) == UL_OK,
        "a length is shown in UTF-16");
  check(needed == 6 && wide[0] == '5' && wide[4] == '"' && wide[5] == 0, "it is the same text");
  check(ul_display_to_store(0, typed, UL_TO_NUL, UL_BASE_SCALE, 0, &value) == UL_OK, "a text is read");
  check(value > 1676.3999 && value < 1676.4001, "5'6\" is 1676.4 mm");
  check(ul_display_to_store_u8(0, "abc", UL_TO_NUL, UL_BASE_SCALE, 0, &value) == UL_ERROR_CONVERT,
        "abc is refused");
}

static void check_model(void) {
  int32_t measure = 0;
  ul_measure_info info;
  char text[64];
  check(ul_find_measure(UL_CURRENT, 1, &measure) == UL_OK, "there are areas");
  check(ul_get_measure(UL_CURRENT, measure, &info) == UL_OK && info.unit_count == 5, "in five units");
  check(ul_set_cur_unit_u8(UL_CURRENT, measure, "Square meters", UL_TO_NUL) == UL_OK, "one is square metres");
  check(ul_store_to_display_u8(1, 2.5e6, UL_BASE_SCALE, UL_APPEND_SYMBOL, text, 64, NULL) == UL_OK,
        "it is shown");
  check(strcmp(text, "2.500 m2") == 0, "2500000 mm2 are 2.500 m2");
}

static void UL_CALL count_call(void* context) {
  ++*(int*)context;
}

static void check_listeners(void) {
  int calls = 0;
  check(ul_attach_refresh_unit(count_call, &calls) == UL_OK, "a listener is attached");
  check(ul_refresh_unit() == UL_OK && calls == 1, "and called");
  check(ul_detach_refresh_unit(count_call, &calls) == UL_OK, "and detached");
  check(ul_refresh_unit() == UL_OK && calls == 1, "and not called any more");
}

int main(void) {
  check_layout();
  if (!load()) return 1;
  check_conversions();
  check_model();
  check_listeners();
  check(ul_free_unit_system() == UL_OK, "the settings are freed");
  check(ul_update_display_values() == UL_ERROR_NOT_LOADED, "and gone");
  remove("c_host_settings.xml");
  return failures != 0;
}
