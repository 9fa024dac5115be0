"""python -m unitlib: what the module does, on settings of its own."""

from __future__ import annotations

import pathlib
import tempfile

import unitlib
from unitlib import Code

VALUES = [
    ("wall length", Code.LENGTH, 4343.4),
    ("slab area", Code.AREA, 92903040.0),
    ("footing volume", Code.VOLUME, 7645548579.84),
    ("rebar mass", Code.MASS, 453.59237),
    ("ceiling height", Code.ELEVATION, 2743.2),
]
TYPED = [(Code.LENGTH, "5'6 1/2\""), (Code.AREA, "1,234.5 SF"), (Code.LENGTH, "five feet")]


def table() -> None:
    columns = {}
    for config in unitlib.configs():
        unitlib.use_config(config)
        columns[config.description] = [unitlib.format_value(code, value, flags=unitlib.Flag.APPEND_SYMBOL)
                                       for _name, code, value in VALUES]
    print(f"{'':16}" + "".join(f"{name:>24}" for name in columns))
    for row, (name, _code, _value) in enumerate(VALUES):
        print(f"{name:16}" + "".join(f"{texts[row]:>24}" for texts in columns.values()))


def typed() -> None:
    unitlib.use_config("US Imperial System")
    for code, text in TYPED:
        try:
            print(f"{text!r:16} -> {unitlib.parse_value(code, text)!r}")
        except unitlib.UnitError as problem:
            print(f"{text!r:16} -> {problem}")
    print(f"{'3 rooms':16} -> {unitlib.evaluate_expression(Code.RESULT_LENGTH, '3*(12+0.5)')!r} mm for 3*(12+0.5) feet")


def main() -> None:
    with tempfile.TemporaryDirectory() as folder:
        unitlib.set_folders(folder, folder)
        unitlib.generate_default()
        unitlib.load()
        print(f"unitlib {'.'.join(map(str, unitlib.library_version()))}, "
              f"settings {pathlib.Path(unitlib.settings_file()).name}\n")
        table()
        print()
        typed()
        unitlib.free()
        unitlib.set_folders()


if __name__ == "__main__":
    main()
