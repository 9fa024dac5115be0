/* Loads one settings file through the C interface in a process of its own, tells how that ended, and proves
 * that the library works on with a good file. probe FILE GOOD FOLDER [nobody]     FOLDER: for the working
 * copy; nobody: without root's rights Output: status, line, element, attribute and message, one a line; then
 * the text of 1676.4 mm of the good file. */
#include <unitlib.h>

#include <pwd.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

static void print_last(int32_t part) {
  static char text[4096];
  if (ul_last_error_text_u8(part, text, sizeof text, NULL) != UL_OK) strcpy(text, "(too long)");
  puts(text);
}

/* Of this program alone: what wait4 tells counts the memory of the one that started it. */
static long peak_memory(void) {
  char line[256];
  long kilobytes = 0;
  FILE* const file = fopen("/proc/self/status", "r");
  while (file && fgets(line, sizeof line, file))
    if (sscanf(line, "VmHWM: %ld", &kilobytes) == 1) break;
  if (file) fclose(file);
  return kilobytes;
}

static int become_nobody(void) {
  const struct passwd* const nobody = getpwnam("nobody");
  if (getuid() != 0) return 1; /* permissions bind already */
  return nobody && setgid(nobody->pw_gid) == 0 && setuid(nobody->pw_uid) == 0;
}

int main(int count, char** values) {
  ul_error error = {0, 0, 0, 0};
  ul_status status;
  char text[64] = "";
  if (count < 4) return 2;
  if (ul_set_common_documents_path_u8(values[3], UL_TO_NUL) != UL_OK) return 3;
  if (count > 4 && !become_nobody()) return 4;

  status = ul_init_system_unit_u8(values[1], UL_TO_NUL);
  if (status != UL_OK) ul_last_error(&error);
  printf("%d\n%d\n", (int)status, (int)error.line);
  print_last(UL_LAST_ELEMENT);
  print_last(UL_LAST_ATTRIBUTE);
  print_last(UL_LAST_MESSAGE);
  printf("%ld\n", peak_memory());

  if (ul_initial_unit_system_u8(values[2], UL_TO_NUL, UL_US_IMPERIAL, 0) != UL_OK) return 5;
  if (ul_store_to_display_u8(0, 609600, UL_BASE_SCALE, 0, text, sizeof text, NULL) != UL_OK) return 6;
  puts(text);
  return 0;
}
