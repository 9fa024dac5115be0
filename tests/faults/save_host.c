/* A host that saves settings through the C interface.
 *   save_host FILE FOLDER GROUP [COUNT] [nobody]
 * Loads FILE and saves it COUNT times (0: for ever), with digit group GROUP current, or with GROUP and the
 * other one in turn where COUNT is not 1. FOLDER: for the working copy; nobody: saves without root's rights.
 * Exit status 0: saved; 1: refused, and the message is printed. */
#include <unitlib.h>

#include <pwd.h>
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

static int refused(void) {
  char text[4096] = "";
  ul_last_error_text_u8(UL_LAST_MESSAGE, text, sizeof text, NULL);
  puts(text);
  return 1;
}

static int become_nobody(void) {
  const struct passwd* const nobody = getpwnam("nobody");
  if (getuid() != 0) return 1; /* permissions bind already */
  return nobody && setgid(nobody->pw_gid) == 0 && setuid(nobody->pw_uid) == 0;
}

int main(int count, char** values) {
  long saves, i;
  int32_t group;
  if (count < 4) return 2;
  group = atoi(values[3]);
  saves = count > 4 ? atol(values[4]) : 1;
  if (ul_set_common_documents_path_u8(values[2], UL_TO_NUL) != UL_OK) return 3;
  if (ul_initial_unit_system_u8(values[1], UL_TO_NUL, UL_US_IMPERIAL, 0) != UL_OK) return refused();
  if (count > 5 && !become_nobody()) return 4;
  puts("loaded");
  fflush(stdout);
  for (i = 0; saves == 0 || i < saves; ++i) {
    if (ul_set_cur_digit_group_index(i % 2 ? 1 - group : group) != UL_OK) return refused();
    if (ul_save_config_file_u8(NULL, 0) != UL_OK) return refused();
  }
  return 0;
}
