"""The border to the C library: prototypes as it promises them, finding it, the demo."""

import ctypes
import os
import pathlib
import subprocess
import sys

import pytest

from unitlib import _library

ROOT = pathlib.Path(__file__).resolve().parents[2]

KINDS = {
    "int32_t": [ctypes.c_int32],
    "uint32_t": [ctypes.c_uint32],
    "double": [ctypes.c_double],
    "const char *": [ctypes.c_char_p],
    "char *": [ctypes.c_void_p],
    "void *": [ctypes.c_void_p],
    "int32_t *": [ctypes.POINTER(ctypes.c_int32)],
    "ul_status *": [ctypes.POINTER(ctypes.c_int32)],
    "const int32_t *": [ctypes.POINTER(ctypes.c_int32)],
    "double *": [ctypes.POINTER(ctypes.c_double)],
    "const double *": [ctypes.POINTER(ctypes.c_double)],
    "ul_callback": [_library.CALLBACK],
    "ul_lock_file_u8": [_library.LOCK_FILE],
    "ul_error *": [ctypes.POINTER(_library.CError)],
    "ul_config_info *": [ctypes.POINTER(_library.CConfig)],
    "ul_measure_info *": [ctypes.POINTER(_library.CMeasure)],
    "ul_unit_info *": [ctypes.POINTER(_library.CUnit)],
    "ul_round_info *": [ctypes.POINTER(_library.CRound)],
    "ul_switch_info *": [ctypes.POINTER(_library.CSwitch)],
    "ul_typed_info *": [ctypes.POINTER(_library.CTyped)],
}


def listed():
    lines = (ROOT / "unitlib" / "capi" / "symbols.txt").read_text(encoding="utf-8").splitlines()
    functions = [line.removeprefix("function ul_status ") for line in lines if line.startswith("function ")]
    return {name: parameters.rstrip(")").split(", ") for name, parameters in (line.split("(") for line in functions)}


def test_prototypes_are_those_of_the_list():
    promised = listed()
    for name, arguments in _library.PROTOTYPES.items():
        parameters = [] if promised[name] == ["void"] else promised[name]
        assert len(parameters) == len(arguments), name
        for parameter, argument in zip(parameters, arguments):
            assert argument in KINDS[parameter], f"{name}: {parameter} is not {argument}"


@pytest.mark.parametrize(("structure", "size"), [
    (_library.CError, 16), (_library.CConfig, 8), (_library.CMeasure, 20), (_library.CUnit, 32),
    (_library.CRound, 12), (_library.CSwitch, 16), (_library.CTyped, 20)])
def test_structures_have_their_sizes(structure, size):
    assert ctypes.sizeof(structure) == size


def run(*arguments, **environment):
    return subprocess.run([sys.executable, *arguments], capture_output=True, encoding="utf-8", check=False,
                          env={**os.environ, "PYTHONIOENCODING": "utf-8", **environment})


def test_demo():
    outcome = run("-m", "unitlib")
    assert outcome.returncode == 0, outcome.stderr
    for text in ("1,000.000 SF", "92.903 m2", "14' 3\"", "1689.1", '"five feet" is not a value of measure 0'):
        assert text in outcome.stdout


def test_a_library_that_is_not_there():
    outcome = run("-c", "import unitlib; unitlib.library_version()", UNITLIB_LIBRARY="/nowhere/unitlib")
    assert outcome.returncode != 0
    assert "ImportError" in outcome.stderr
    assert "/nowhere/unitlib" in outcome.stderr


def test_a_second_library_is_refused(units):
    with pytest.raises(RuntimeError):
        units.load_library("/nowhere/unitlib")


def test_texts_of_the_dialogs(units, tmp_path):
    (tmp_path / "texts.txt").write_text("dialog.ok = \u597d\n", encoding="utf-8")
    units.load_texts(tmp_path / "texts.txt")
    units.set_text("dialog.cancel", "Abbrechen")
    units.load_texts()
    (tmp_path / "wrong.txt").write_text("dialog.ok =\n", encoding="utf-8")
    with pytest.raises(units.UnitError, match="wrong.txt:1: The text is empty: dialog.ok"):
        units.load_texts(tmp_path / "wrong.txt")


def test_a_library_without_the_functions_is_refused():
    code = "import unitlib; unitlib.load_library('libc.so.6')"
    done = subprocess.run([sys.executable, "-c", code], capture_output=True, encoding="utf-8", check=False)
    assert "ImportError: libc.so.6 has no function ul_version: it is older than this module" in done.stderr
