/// Writes the man page of unitctl, while the project is built.
#include "apps/unitctl/ManPage.h"

#include <cstdio>

int main() {
  const std::string Page = unitlib::app::ManPage();
  return std::fwrite(Page.data(), 1, Page.size(), stdout) == Page.size() && std::fflush(stdout) == 0 ? 0 : 1;
}
