/// unitctl: the unit library at the command line.
#include "apps/common/Platform.h"
#include "apps/unitctl/CommandLine.h"

int main(int Count, char** Values) {
  using namespace unitlib::app;
  platform::PrepareStreams();
  return RunUnitctl(platform::Arguments(Count, Values), {stdin, stdout, stderr});
}
