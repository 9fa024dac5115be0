# What tools/check-gates breaks, one row per gate: name, break, gate, what a red gate says.
# Breaks and gates run in a clone; there, edit and add change a file, in_check puts a statement into CheckDisplay.

in_check() { # STATEMENT
  edit unitlib/convert/ZELUnitConvertor.cpp \
    's/(bool TMeasureDataManager::CheckDisplay\(int AMeasure, std::u16string_view AText\) \{\n)/$1  '"$1"'\n/'
}

# ci_test CTEST_PATTERN TARGET...   builds the targets of the CI build and runs the tests
ci_test() {
  local pattern=$1; shift
  if [ $# -gt 0 ]; then build ci "$@" >/dev/null 2>"$scratch/../gate.log" || { cat "$scratch/../gate.log"; return 1; }; fi
  ctest --test-dir "$root/build/ci" --output-on-failure -R "$pattern" --no-tests=error
}

break_nul_check() { edit unitlib/rtl/Xml.cpp 's/Nul != std::string::npos/Nul == 1/'; }
break_short_write() { edit unitlib/rtl/FilesPosix.cpp 's/if \(Written <= 0\) RaiseErrno[^\n]*/if (Written <= 0) return;/'; }
break_clean_up() { edit unitlib/rtl/FilesPosix.cpp 's/if \(!FName.empty\(\)\) unlink\(FName.c_str\(\)\);//'; }
break_foot_mark() { edit unitlib/typing/Tokens.cpp 's/!IsInch && IsFootMark\(Raw\(1\)\)/!IsInch/'; }

build_shows() { build "$@" 2>&1; }

sanitized() { # PRESET
  configure "$1"
  build "$1" unitlib_tests >/dev/null
  "$root/build/$1/tests/unitlib_tests" --gtest_brief=1
}

gates() {
  local do=$1
  # Style and compiler.
  $do format 'add unitlib/rtl/Text.cpp "int  Crooked ;"' 'tools/check-style' 'clang-formatted'
  $do layers 'add unitlib/model/UnitModel.cpp "#include <pugixml.hpp>"' 'tools/check-style' 'pugixml outside its one file'
  $do unfinished 'add unitlib/rtl/Text.cpp "// T""ODO later"' 'tools/check-style' 'unfinished'
  $do warnings 'add unitlib/rtl/Text.cpp "static int Unused() { return 1; }"' 'build_shows ci unitlib' 'Werror=unused-function'
  $do header-alone 'add unitlib/rtl/Alone.h "#pragma once
inline std::vector<int> Alone() { return {}; }"' 'build_shows ci unitlib_headers_alone' 'Alone\.h'
  $do clang-tidy 'add unitlib/rtl/Text.cpp "#include <string>
bool IsNothing(const std::string& Text);
bool IsNothing(const std::string& Text) { return Text.size() == 0; }"' \
    'build ci unitlib >/dev/null && python3 tools/lib/tidy.py build/ci "$scratch/../tidy" unitlib/rtl' 'readability-container-size-empty'
  $do cppcheck 'add unitlib/rtl/Text.cpp "int Beyond();
int Beyond() { int Two[2] = {0, 0}; return Two[2]; }"' 'tools/lint --cppcheck' 'arrayIndexOutOfBounds'
  # Wrong numbers and names.
  $do wrong-inch 'edit unitlib/convert/ZELUnitCommon.cpp "s/\* 127 \/ \(5/* 128 \/ (5/"' 'ci_test "^unitlib_tests$" unitlib_tests' 'FAILED'
  $do second-implementation 'edit unitlib/convert/ZELUnitCommon.cpp "s/\* 127 \/ \(5/* 128 \/ (5/"' 'ci_test "^differential_test$" differential_test' 'FAILED|differ'
  $do wrong-expression 'edit unitlib/convert/ReplaceImperialNumbers.cpp "s/= 127 \* /= 128 * /"' 'ci_test "^unitlib_expr_tests$" unitlib_expr_tests' 'FAILED'
  $do factory-settings 'edit unitlib/model/DefaultConfigTables.cpp "s/0\.001/0.002/"' 'ci_test "^unitlib_tests$" unitlib_tests' 'FAILED'
  $do given-names 'edit unitlib/model/ZELUnitMgr.h "s/static void UpdateDispalyValue\(\);/static void UpdateDispalyValue();\n  static void UpdateDisplayValue() { UpdateDispalyValue(); }/; s/UpdateDispalyValue/UpdateDisplayedValue/g"' \
    'build_shows ci unitlib_tests' 'UpdateDispalyValue'
  # Files, faults and limits.
  $do hostile-files break_nul_check 'ci_test "^unitlib_hostile_tests$" unitlib_hostile_tests' 'FAILED'
  $do torn-save break_short_write 'ci_test "^unitlib_fault_tests$" unitlib_fault_tests unitlib_fault_layer' 'FAILED'
  $do left-behind break_clean_up 'ci_test "^unitlib_fault_tests$" unitlib_fault_tests unitlib_fault_layer' 'FAILED'
  $do broken-models 'in_check "if (AMeasure > 100) throw 1;"' 'ci_test "^unitlib_limits_tests$" unitlib_limits_tests' 'FAILED|terminate'
  $do failing-allocations 'in_check "static int* Kept = nullptr; Kept = new int[16]; (void)Kept;"' 'ci_test "^unitlib_memory_tests$" unitlib_memory_tests' 'FAILED'
  # Typed readings.
  $do typing-corpus break_foot_mark 'ci_test "^unitlib_typing_tests$" unitlib_typing_tests' 'FAILED'
  # The C interface.
  $do c-symbols 'edit unitlib/capi/symbols.txt "s/\nfunction ul_status ul_check_display\([^\n]*//"' 'ci_test "^unitlib_capi_symbols$" unitlib_capi' 'ul_check_display'
  $do c-signature 'edit unitlib/capi/symbols.txt "s/ul_evaluate\(const ul_char16 \*, int32_t/ul_evaluate(const ul_char16 *, int64_t/"' 'ci_test "^unitlib_capi_symbols$" unitlib_capi' 'ul_evaluate'
  # What is installed and shown.
  $do installed-package 'edit cmake/unitlibConfig.cmake.in "s/find_dependency/no_such_command/"' \
    'configure ci && build ci >/dev/null && tests/consumer/check build/ci' 'no_such_command'
  $do readme 'edit README.md "s/#include <iostream>/#include <ostream>/"' 'ci_test readme' 'differ'
  $do missing-data 'true' 'UNITLIB_REQUIRE_DATA=1 UNITLIB_SHARED_DATA=/nowhere ci_test schedule_real_input' 'nowhere|not there|FAILED'
  # Memory and threads.
  $do address 'in_check "{ auto Heap = std::make_unique<int[]>(4); volatile int Beyond = Heap.get()[AText.size() + 4]; (void)Beyond; }"' \
    'sanitized asan' 'heap-buffer-overflow'
  $do undefined-behaviour 'in_check "volatile int Sum = 2147483647; Sum = Sum + 1;"' 'sanitized asan' 'signed integer overflow'
  $do leak 'in_check "static_cast<void>((new int[8])[0]);"' 'sanitized asan' 'LeakSanitizer'
  $do thread 'in_check "static int Calls = 0; ++Calls;"' 'sanitized tsan' 'data race'
}
