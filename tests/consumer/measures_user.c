/* Uses a shared library that has unitlib inside. Argument: a folder for the settings. */
#include <stdio.h>

double measures_read_length(const char* folder, const char* text);

int main(int count, char** arguments) {
  double value;
  if (count < 2) return 2;
  value = measures_read_length(arguments[1], "5'6 1/2\"");
  printf("%.1f mm\n", value);
  return value == 1689.1 && measures_read_length("/nowhere/at/all", "5'") == -1 ? 0 : 1;
}
