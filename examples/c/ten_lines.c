#include <stdio.h>
#include <unitlib.h>
int main(void) {
  char text[64];
  double mm;
  if (ul_generate_default_config_file_u8("units.xml", UL_TO_NUL)) return 1; /* the factory settings, once */
  if (ul_init_system_unit_u8("units.xml", UL_TO_NUL) || ul_set_cur_config_index(UL_US_IMPERIAL)) return 1;
  if (ul_store_to_display_u8(0, 1689.1, UL_BASE_SCALE, 0, text, 64, NULL)) return 1;
  if (ul_display_to_store_u8(0, text, UL_TO_NUL, UL_BASE_SCALE, 0, &mm)) return 1;
  return printf("%s is %.1f mm\n", text, mm) < 0; /* 5' 6 1/2" is 1689.1 mm */
}
