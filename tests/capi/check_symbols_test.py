"""The check of the symbol list finds what it is for: a line that is gone, changed or new."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
CAPI = HERE.parent.parent / "unitlib" / "capi"


class SymbolCheck(unittest.TestCase):
    def check(self, change):
        header = change((CAPI / "unitlib.h").read_text(encoding="utf-8"))
        with tempfile.TemporaryDirectory() as folder:
            changed = pathlib.Path(folder) / "unitlib.h"
            changed.write_text(header, encoding="utf-8")
            return subprocess.run([sys.executable, HERE / "check_symbols.py", changed, CAPI / "symbols.txt"],
                                  capture_output=True, text=True, check=False)

    def replaced(self, old, new):
        def change(header):
            self.assertIn(old, header)
            return header.replace(old, new, 1)
        return self.check(change)

    def test_agreement(self):
        outcome = self.check(lambda header: header)
        self.assertEqual((0, ""), (outcome.returncode, outcome.stdout))

    def test_renamed_parameter_is_no_change(self):
        self.assertEqual(0, self.replaced("ul_is_loaded(int32_t* loaded)", "ul_is_loaded(int32_t* yes)").returncode)

    def test_removed_function(self):
        outcome = self.replaced("UL_API ul_status UL_CALL ul_refresh_unit(void);", "")
        self.assertEqual(1, outcome.returncode)
        self.assertIn("promised, but not in the header: function ul_status ul_refresh_unit(void)", outcome.stdout)

    def test_changed_parameter(self):
        outcome = self.replaced("ul_is_loaded(int32_t* loaded)", "ul_is_loaded(int64_t* loaded)")
        self.assertEqual(1, outcome.returncode)

    def test_new_function(self):
        outcome = self.replaced("UL_API ul_status UL_CALL ul_refresh_unit(void);",
                                "UL_API ul_status UL_CALL ul_refresh_unit(void);\n"
                                "UL_API ul_status UL_CALL ul_new(void);")
        self.assertEqual("in the header, but not in the list: function ul_status ul_new(void)\n", outcome.stdout)

    def test_changed_constant(self):
        self.assertEqual(1, self.replaced("UL_NOT_FOUND = 3", "UL_NOT_FOUND = 33").returncode)

    def test_changed_structure(self):
        self.assertEqual(1, self.replaced("  int32_t measure_count;\n", "").returncode)


if __name__ == "__main__":
    unittest.main()
