/// libFuzzer's entry: unitlib_fuzz --target=NAME [LIBFUZZER_ARGUMENT...]; --list prints the names.
#include "fuzz/Targets.h"

#include <cstdio>
#include <cstdlib>

namespace {

const unitlib::fuzz::TTarget* Target = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int* Count, char*** Arguments) {
  constexpr std::string_view Option = "--target=";
  for (int I = 1; I < *Count; ++I) {
    const std::string_view Argument = (*Arguments)[I];
    if (Argument == "--list") {
      unitlib::fuzz::ListTargets();
      std::exit(0);
    }
    if (Argument.starts_with(Option)) Target = unitlib::fuzz::FindTarget(Argument.substr(Option.size()));
  }
  if (Target) return 0;
  std::fprintf(stderr, "Use: unitlib_fuzz --target=NAME, one of\n");
  std::fflush(stderr);
  unitlib::fuzz::ListTargets();
  std::exit(2);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  unitlib::fuzz::TInput Input(Data, Size);
  Target->Run(Input);
  return 0;
}
