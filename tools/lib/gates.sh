# What tools/check-gates breaks, a row per gate: name, what is broken in words, the break, the gate, what the red gate says.
# Breaks and gates run in a clone, where $root is; edit and add change a file there.
# shellcheck shell=bash disable=SC2016    # breaks are Perl, whose $1 is its own

# ---------------------------------------------------------------- breaks of more than one line

in_check() { # STATEMENT   into CheckDisplay
  edit unitlib/convert/ZELUnitConvertor.cpp \
    's/(bool TMeasureDataManager::CheckDisplay\(int AMeasure, std::u16string_view AText\) \{\n)/$1  '"$1"'\n/'
}
wrong_inch() { edit unitlib/convert/ZELUnitCommon.cpp 's/\* 127 \/ \(5/* 128 \/ (5/'; }
other_name() { # FILE...   a given name gets the spelling that somebody may think is the right one
  local file
  for file in $(git grep -l UpdateDispalyValue unitlib apps fuzz); do edit "$file" 's/UpdateDispalyValue/UpdateDisplayValue/g'; done
  git mv unitlib/convert/UpdateDisp{al,la}yValue.cpp
}
in_place() { # what is saved is written into the file itself
  edit unitlib/rtl/FilesPosix.cpp 's/O_WRONLY \| O_CREAT \| O_EXCL/O_WRONLY | O_CREAT | O_TRUNC/; s/return Name\.append\(TemporaryEnd\)/return Target/'
}

# ---------------------------------------------------------------- gates of more than one line

# ci_build TARGET...   quiet while it works
ci_build() { build ci "$@" >"$root/build/gate.log" 2>&1 || { cat "$root/build/gate.log"; return 1; }; }

# ci_test CTEST_PATTERN TARGET...   builds the targets of the CI build and runs the tests
ci_test() {
  local pattern=$1; shift
  [ $# = 0 ] || ci_build "$@"
  ctest --test-dir "$root/build/ci" --output-on-failure --no-tests=error -R "$pattern"
}

tidy() { # FOLDER   with the memory of what is clean that tools/lint keeps
  ci_build unitlib
  python3 "$root/tools/lib/tidy.py" "$root/build/ci" "$(dirname "$root")/tidy" "$1"
}

sanitized() { # PRESET
  configure "$1"
  build "$1" unitlib_tests
  UBSAN_OPTIONS=print_stacktrace=1 ctest --test-dir "$root/build/$1" --output-on-failure --no-tests=error -R '^unitlib_tests$'
}

# ---------------------------------------------------------------- the rows

gates() { # COMMAND   is called with each row
  local gate=$1
  # Style and compiler.
  $gate format "a line that clang-format would lay out otherwise" \
    'add unitlib/rtl/Text.cpp "int  Crooked ;"' 'tools/check-style' 'Text\.cpp:.*clang-formatted'
  $gate layers "an include of pugixml outside its one file" \
    'add unitlib/model/UnitModel.cpp "#include <pugixml.hpp>"' 'tools/check-style' 'pugixml outside its one file'
  $gate unfinished "a word that marks unfinished work" \
    'add unitlib/rtl/Text.cpp "// T""ODO later"' 'tools/check-style' '\^ unfinished'
  $gate warnings "an unused function" \
    'add unitlib/rtl/Text.cpp "static int Unused() { return 1; }"' 'ci_build unitlib' 'Werror=unused-function'
  $gate header-alone "a header that lacks an include" \
    'add unitlib/rtl/Alone.h "#pragma once
inline std::vector<int> Alone() { return {}; }"' 'ci_build unitlib_headers_alone' 'Alone\.h.*vector'
  $gate clang-tidy "size() == 0 in place of empty()" \
    'add unitlib/rtl/Text.cpp "#include <string>
bool IsNothing(const std::string& Text);
bool IsNothing(const std::string& Text) { return Text.size() == 0; }"' 'tidy unitlib/rtl' 'Text\.cpp:.*readability-container-size-empty'
  $gate cppcheck "an index behind the end of an array" \
    'add unitlib/rtl/Text.cpp "int Beyond();
int Beyond() { int Two[2] = {0, 0}; return Two[2]; }"' 'tools/lint --cppcheck' 'Text\.cpp.*arrayIndexOutOfBounds'
  # Wrong numbers, names and texts.
  $gate wrong-inch "an inch of 25.6 mm" wrong_inch 'ci_test "^unitlib_tests$" unitlib_tests' 'FAILED.*(Length|Imperial|Fraction)'
  $gate second-implementation "an inch of 25.6 mm" wrong_inch 'ci_test "^differential_test$" differential_test' 'differ|FAILED'
  $gate wrong-expression "an inch of 25.6 mm inside arithmetic" \
    'edit unitlib/convert/ReplaceImperialNumbers.cpp "s/= 127 \* /= 128 * /"' \
    'ci_test "^unitlib_tests$" unitlib_tests' 'FAILED.*Imperial'
  $gate wrong-arithmetic "a difference that is a sum" \
    'edit unitlib/expr/NumberFolding.cpp "s/return Left - Right;/return Left + Right;/"' \
    'ci_test "^unitlib_expr_tests$" unitlib_expr_tests' 'FAILED'
  $gate factory-settings "an increment of 0.002" \
    'edit unitlib/model/DefaultConfigTables.cpp "s/0\.001/0.002/"' 'ci_test "^unitlib_tests$" unitlib_tests' 'FAILED.*FactoryDefaults'
  $gate golden-settings "a symbol of the factory settings" \
    'edit unitlib/model/DefaultConfigTables.cpp "s/\"ft2\"/\"sqft\"/"' \
    'ci_test "^unitlib_compat_tests$" unitlib_compat_tests' 'FAILED.*TheNewestIsWhatTheWriterWrites'
  $gate settings-form "the writer gives an attribute another name" \
    'edit unitlib/model/UnitConfigText.cpp "s/\"CurUnitIndex\"/\"CurrentUnitIndex\"/"' \
    'ci_test "^unitlib_compat_tests$" unitlib_compat_tests' 'FAILED.*AreWrittenAgainAsTheyWere'
  $gate given-names "a given name in its right spelling" \
    other_name 'ci_build unitlib_tests' 'given_names_test\.cpp:.*UpdateDispalyValue'
  $gate typing-corpus "foot marks are not seen" \
    'edit unitlib/typing/Tokens.cpp "s/if \(IsFootMark\(Raw\(\)\) \|\| /if (/"' \
    'ci_test "^unitlib_typing_tests$" unitlib_typing_tests' 'FAILED'
  $gate allocations "a block taken and given back in CheckDisplay" \
    'in_check "auto* volatile Copy = new std::u16string(AText); delete Copy;"' \
    'ci_test "^unitlib_allocation_tests$" unitlib_allocation_tests' 'FAILED.*CheckDisplay'
  $gate instructions "a loop of 200 steps in CheckDisplay" \
    'in_check "for (volatile int I = 0; I < 200; I = I + 1) {}"' 'tools/bench --gate' 'CheckDisplay.*<== over 5 %'
  # Fuzzing: the kept inputs run again in the normal test run.
  $gate fuzz-replay "a comma in front of grouped numbers" \
    'edit unitlib/convert/ZELUnitDigitGroupParser.cpp "s/if \(Pos > 0\) Out/Out/"' 'ci_test "^fuzz_" unitlib_fuzz_replay' \
    'digit groups of .*the library says .*, the oracle'
  $gate fuzz-oracle "the second implementation of the imperial reader" \
    'edit fuzz/slow/Imperial.cpp "s/12/13/"' 'ci_test "^fuzz_imperial$" unitlib_fuzz_replay' 'the library says .*, the oracle'
  # Files, faults and limits.
  $gate hostile-files "NUL in a settings file is let through" \
    'edit unitlib/rtl/Xml.cpp "s/Nul != std::string::npos/Nul == 1/"' 'ci_test "^unitlib_hostile_tests$" unitlib_hostile_tests' 'FAILED'
  $gate torn-save "a write that fails is taken for done" \
    'edit unitlib/rtl/FilesPosix.cpp "s/if \(Written <= 0\) RaiseErrno[^\n]*/if (Written <= 0) return;/"' \
    'ci_test "^unitlib_fault_tests$" unitlib_fault_tests' 'FAILED'
  $gate left-behind "the temporary file of a failed save stays" \
    'edit unitlib/rtl/FilesPosix.cpp "s/if \(!FName.empty\(\)\) unlink\(FName.c_str\(\)\);//"' \
    'ci_test "^unitlib_fault_tests$" unitlib_fault_tests' 'FAILED'
  $gate killed-save "a save writes into the file itself" \
    in_place 'ci_test "^unitlib_fault_process_tests$" unitlib_fault_process_tests' 'FAILED.*IsKilledAtRandomMoments'
  $gate broken-models "an exception of another kind for a bad index" \
    'in_check "if (AMeasure > 100) throw 1;"' 'ci_test "^unitlib_limits_tests$" unitlib_limits_tests' 'FAILED|terminate'
  $gate failing-allocations "a block that is never given back" \
    'in_check "auto* volatile Kept = new int[16]; (void)Kept;"' \
    'ci_test "^unitlib_memory_tests$" unitlib_memory_tests' 'FAILED'
  # The C interface and Python.
  $gate c-symbols "a function of the C interface is not in the list" \
    'edit unitlib/capi/symbols.txt "s/\nfunction ul_status ul_check_display\([^\n]*//"' \
    'ci_test "^unitlib_capi_symbols$" unitlib_capi' 'ul_check_display'
  $gate c-signature "a parameter of the C interface has another type" \
    'edit unitlib/capi/symbols.txt "s/ul_evaluate\(const ul_char16 \*, int32_t/ul_evaluate(const ul_char16 *, int64_t/"' \
    'ci_test "^unitlib_capi_symbols$" unitlib_capi' 'ul_evaluate'
  $gate c-interface "an inch of 25.6 mm" wrong_inch 'ci_test "^unitlib_capi_tests$" unitlib_capi_tests' 'FAILED'
  $gate python "a function of the Python module shows the negative" \
    'edit python/unitlib/__init__.py "s/(ul_store_to_display_u8\", measure, )value/\$1-value/"' 'ci_test "^unitlib_python$"' 'FAILED .*test'
  # Programs and pages.
  $gate dialogs "the buttons OK and Cancel say something else" \
    'edit unitlib/ui/UiTexts.h "s/\"Cancel\"/\"Close\"/"' 'GTEST_FILTER="GivenNames.*" ci_test "^unitlib_ui_tests_part" unitlib_ui_tests' 'FAILED.*TextsOfBothDialogs'
  $gate man-page "the commands are missing in the man page" \
    'edit apps/unitctl/ManPage.cpp "s/AddCommand\(Page, \*Command, Command->get_name\(\)\);/Page.Line(Command->get_name());/"' \
    'ci_test "^unitctl_shell$" unitctl unitctl_man_page' 'FAIL: test_man_page'
  $gate text-table "a text lacks in the Chinese table" \
    'edit examples/texts/zh.txt "s/\ndialog.cancel = [^\n]*//"' 'ci_test "^unitctl_shell$" unitctl unitctl_man_page' 'FAIL: test_chinese_is_complete'
  $gate page-of-unitctl "the page shows another result" \
    'edit docs/unitctl.md "s/\n3200\.4\n/\n3200.5\n/"' 'ci_test "^unitctl_page$" unitctl' '^3200\.5'
  $gate guide-example "an example of the guide for hosts gives another length" \
    'edit examples/guide/host.cpp "s/1689\.1\)/1690.1)/"' 'ci_test "^example_guide_host$" example_guide_host' 'Required regular expression not found'
  $gate readme "README shows an example that is another one" \
    'edit README.md "s/#include <iostream>/#include <ostream>/"' 'ci_test "^pages$"' 'README.md shows examples/convert.cpp.*differently'
  $gate undocumented "a function of the C interface without a row on its page" \
    'edit docs/c-interface.md "s/\n\| \`ul_evaluate\`[^\n]*//"' 'ci_test "^pages$"' 'c-interface.md has no row for ul_evaluate'
  $gate settings-page "the page about the settings file is not of this version" \
    'edit unitlib/model/DefaultConfigTables.cpp "s/\"ft2\"/\"sqft\"/"' 'ci_test "^settings_page_is_current$" settings_page' 'is not what the tables say'
  $gate docs "a comment refers to what is not there" \
    'edit unitlib/rtl/Text.h "s/(#pragma once\n)/\$1\n\/** See \\\\ref NoSuchThing. *\/\nint Documented();\n/"' 'tools/docs' 'NoSuchThing'
  # What is installed.
  $gate installed-package "the package for CMake calls what is not there" \
    'edit cmake/unitlibConfig.cmake.in "s/find_dependency/no_such_command/"' \
    'configure ci && ci_build && tests/consumer/check build/ci' 'no_such_command'
  $gate missing-data "the shared inputs are not where they must be" \
    true 'UNITLIB_REQUIRE_DATA=1 UNITLIB_SHARED_DATA=/nowhere ci_test "^schedule_real_input$" schedule_real_input unitctl' 'must be present in CI'
  # Memory and threads.
  $gate address "a read behind the end of a block" \
    'in_check "{ auto Heap = std::make_unique<int[]>(4); volatile int Beyond = Heap.get()[AText.size() + 4]; (void)Beyond; }"' \
    'sanitized asan' 'heap-buffer-overflow'
  $gate undefined-behaviour "a sum beyond the integers" \
    'in_check "volatile int Sum = 2147483647; Sum = Sum + 1;"' 'sanitized asan' 'signed integer overflow'
  $gate leak "a block that is never given back" \
    'in_check "auto* volatile Lost = new int[8]; (void)Lost;"' 'sanitized asan' 'LeakSanitizer: detected memory leaks'
  $gate thread "a counter that all threads write" \
    'in_check "static int Calls = 0; ++Calls;"' 'sanitized tsan' 'ThreadSanitizer: data race'
  [ "$slow" = yes ] || return 0
  # Minutes each.
  $gate coverage "a function that no test calls" \
    'add unitlib/rtl/Text.cpp "namespace unitlib { int NeverRun(int Number); int NeverRun(int Number) { return Number + 1; } }"' \
    'tools/coverage' 'unitlib/rtl/Text\.cpp:[0-9]+: .*NeverRun'
  $gate packages "the Debian packages lack the header of the C interface" \
    'edit cmake/UnitlibInstall.cmake "s/  install\(FILES [^\n]*capi.unitlib\.h [^\n]*\n//"' 'tools/packages --test' 'unitlib\.h'
  $gate fuzzing "an inch of 25.6 mm" wrong_inch 'tools/fuzz --runs 2000 units' 'the library says .*, the oracle'
  $gate windows "a file that is there is not replaced" \
    'edit unitlib/rtl/FilesWindows.cpp "s/if \(Exists && ReplaceFileW/if (!Exists \&\& ReplaceFileW/"' \
    'tools/windows --test --arch i686' 'unitlib_windows_tests.*Failed'
}
