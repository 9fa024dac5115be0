/* Stored values to texts and back, one by one and as a column. */
#include <stdio.h>
#include <unitlib.h>

/* Prints what the library says about the call that failed. */
static int fail(const char* what) {
  char message[1024];
  if (ul_last_error_text_u8(UL_LAST_MESSAGE, message, sizeof message, NULL) != UL_OK) message[0] = 0;
  fprintf(stderr, "%s: %s\n", what, message);
  return 1;
}

int main(void) {
  const double lengths[] = {304.8, 1689.1, -25.4}; /* mm */
  char text[64], column[256];
  int32_t offsets[4], i;
  double value;

  if (ul_generate_default_config_file_u8("units.xml", UL_TO_NUL) != UL_OK) return fail("generate");
  if (ul_init_system_unit_u8("units.xml", UL_TO_NUL) != UL_OK) return fail("load");
  if (ul_set_cur_config_index(UL_US_IMPERIAL) != UL_OK) return fail("choose");

  if (ul_store_to_display_u8(0, 1676.4, UL_BASE_SCALE, 0, text, 64, NULL) != UL_OK) return fail("show");
  printf("%s\n", text); /* 5' 6" */
  if (ul_display_to_store_u8(0, "5'6 1/2\"", UL_TO_NUL, UL_BASE_SCALE, 0, &value) != UL_OK)
    return fail("read");
  printf("%.1f mm\n", value); /* 1689.1 mm */

  if (ul_store_to_display_column_u8(0, lengths, 3, UL_BASE_SCALE, 0, column, 256, NULL, offsets, NULL) !=
      UL_OK)
    return fail("column");
  for (i = 0; i < 3; ++i) printf("%.*s\n", (int)(offsets[i + 1] - offsets[i]), column + offsets[i]);

  if (ul_display_to_store_u8(0, "five feet", UL_TO_NUL, UL_BASE_SCALE, 0, &value) != UL_OK)
    fail("as expected"); /* "five feet" is not a value of measure 0 */
  return ul_free_unit_system() == UL_OK ? 0 : fail("free");
}
