"""Project units for estimators' scripts: a thin module over the unitlib C library, standard library only.

    import unitlib
    unitlib.load("UnitConfig.xml")
    unitlib.format_value(unitlib.Code.LENGTH, 1689.1)          # "5' 6 1/2\\""
    unitlib.parse_value(unitlib.Code.LENGTH, "5'6 1/2\\"")      # 1689.1 (mm)

Values are stored values: millimetres, square and cubic millimetres, kilograms and what is made of them; scale 3 stands
for a thousand of these (metres), 4 for a million, 5 for a thousand million. A measure is named by its classify code.
Settings are one per process. Errors are exceptions with the library's message: see unitlib.errors.
"""

from __future__ import annotations

import ctypes
import enum
import os
from collections.abc import Iterable
from typing import Literal, NamedTuple

from . import columns as _columns
from . import errors
from ._library import call, double_of, encode, int_of, load_library, text_of
from .errors import UnitError
from .listeners import (
    attach_before_unit_change,
    attach_refresh_unit,
    detach_before_unit_change,
    detach_refresh_unit,
    project_units_dialog,
    refresh_before_unit_change,
    refresh_unit,
)
from .model import (
    Code,
    Config,
    Measure,
    Round,
    Switch,
    SwitchState,
    Unit,
    configs,
    current_config,
    digit_group,
    digit_groups,
    measure,
    update_display_values,
    use_config,
    use_digit_group,
)
from .typed import TypedFlag, TypedProblem, TypedReading, read_typed

__all__ = [
    "BASE_SCALE", "Code", "Config", "ConfigType", "Evaluation", "Flag", "Measure", "Round", "Switch", "SwitchState",
    "TypedFlag", "TypedProblem", "TypedReading", "Unit", "UnitError", "attach_before_unit_change", "attach_refresh_unit", "can_parse", "check_elevation", "configs",
    "current_config", "detach_before_unit_change", "detach_refresh_unit", "digit_group", "digit_groups",
    "elevation_display", "elevation_edit", "elevation_store", "errors", "evaluate", "evaluate_expression",
    "evaluate_expressions", "evaluate_values", "format_value", "format_values", "free", "generate_default", "is_loaded",
    "library_version", "load", "load_library", "load_report", "load_texts", "measure", "parse_value", "parse_values",
    "project_units_dialog", "read_typed", "refresh_before_unit_change", "refresh_unit", "register_unit_parser", "save", "set_folders", "set_text",
    "settings_file", "unit_symbol", "update_display_values", "use_config", "use_digit_group",
]

BASE_SCALE = -1
Errors = Literal["raise", "none"]


class ConfigType(enum.IntEnum):
    """The unit system to take where a settings file has not chosen one."""

    US_IMPERIAL = 0
    UK_IMPERIAL = 1
    STANDARD_METRIC = 2
    TAIWAN_METRIC = 3


class Flag(enum.IntFlag):
    """How a value is shown, besides what the settings say."""

    NONE = 0
    APPEND_SYMBOL = 1
    NO_SYMBOL = 2
    NO_DIGIT_GROUP = 4
    NO_ROUND = 8
    NO_PLUS_SIGN = 16


class Evaluation(NamedTuple):
    """Value of arithmetic: a plain number, or (is_length) metres."""

    value: float
    is_length: bool


def _path(path: str | os.PathLike[str] | None) -> tuple[bytes, int]:
    data = b"" if path is None else os.fspath(path).encode("utf-8")
    return data, len(data)


def _text(text: str) -> tuple[bytes, int]:
    data = encode(text)
    return data, len(data)


def library_version() -> tuple[int, int, int]:
    """Version of the C library."""
    numbers = [ctypes.c_int32() for _ in range(3)]
    call("ul_version", *map(ctypes.byref, numbers))
    return numbers[0].value, numbers[1].value, numbers[2].value


# Settings


def load(path: str | os.PathLike[str] | None = None, config_type: int = ConfigType.US_IMPERIAL, *,
         save: bool = False) -> None:
    """Loads settings; None means "UnitConfig.xml" beside the program (see set_folders).

    config_type counts where the file has not chosen a unit system; the working copy of the settings is then written
    into the documents folder, as it is with save.
    """
    call("ul_initial_unit_system_u8", *_path(path), config_type, save)


def load_report(path: str | os.PathLike[str]) -> None:
    """Loads the report's settings, which are current from then on; choose a unit system with use_config."""
    call("ul_init_system_unit_u8", *_path(path))


def free() -> None:
    """Frees all settings."""
    call("ul_free_unit_system")


def is_loaded() -> bool:
    """Whether settings are loaded."""
    return bool(int_of("ul_is_loaded"))


def save(path: str | os.PathLike[str] | None = None) -> None:
    """Writes the settings; None means the file loaded last. The file is replaced as a whole or not at all."""
    call("ul_save_config_file_u8", *_path(path))


def settings_file() -> str:
    """The file loaded last."""
    return text_of("ul_get_unit_config_file_name_u8")


def generate_default(path: str | os.PathLike[str] | None = None) -> None:
    """Writes the factory settings, replacing a file that is there."""
    call("ul_generate_default_config_file_u8", *_path(path))


def set_folders(program: str | os.PathLike[str] | None = None,
                documents: str | os.PathLike[str] | None = None) -> None:
    """Folders of the default file and of the working copy; None brings the system's back."""
    call("ul_set_exe_path_u8", *_path(program))
    call("ul_set_common_documents_path_u8", *_path(documents))


def load_texts(path: str | os.PathLike[str] | None = None) -> None:
    """Takes the texts of the dialogs from a file of lines "key = text"; None: English again."""
    call("ul_load_texts_u8", *_path(path))


def set_text(key: str, text: str) -> None:
    """Replaces one text of the dialogs, such as "dialog.cancel"; "" is English again."""
    call("ul_set_text_u8", *_text(key), *_text(text))


def register_unit_parser(name: str, size: float) -> None:
    """A decimal unit of your own, of that many base units, for settings that name it as UnitParserClassName."""
    call("ul_register_unit_parser_u8", *_text(name), size)


# Single values


def format_value(measure: int, value: float, *, scale: int = BASE_SCALE, flags: int = 0) -> str:
    """Text of a stored value in the measure's current unit."""
    return text_of("ul_store_to_display_u8", measure, value, scale, flags)


def parse_value(measure: int, text: str, *, scale: int = BASE_SCALE) -> float:
    """Stored value of a text; ConvertError when it is none."""
    return double_of("ul_display_to_store_u8", measure, *_text(text), scale, 0)


def can_parse(measure: int, text: str) -> bool:
    """Whether parse_value reads the text."""
    return bool(int_of("ul_check_display_u8", measure, *_text(text)))


def unit_symbol(measure: int, *, empty_for_feet_inch: bool = False) -> str:
    """The symbol of the measure's current unit."""
    return text_of("ul_get_unit_symbol_u8", measure, empty_for_feet_inch)


def evaluate(text: str) -> Evaluation:
    """Value of arithmetic such as "2*(3+4)" or, while elevations are in feet or inches, "5'6\\"*2" (in metres)."""
    value, is_length = ctypes.c_double(), ctypes.c_int32()
    call("ul_evaluate_u8", *_text(text), ctypes.byref(value), ctypes.byref(is_length))
    return Evaluation(value.value, bool(is_length.value))


def evaluate_expression(measure: int, text: str, *, scale: int = BASE_SCALE) -> float:
    """Stored value of arithmetic typed for a measure: plain numbers count its current unit (feet, for feet and
    fractional inches), imperial lengths are what they are."""
    return double_of("ul_expression_to_store_u8", measure, *_text(text), scale)


def elevation_store(text: str) -> str:
    """An elevation ("5'6\\"", "L1+5'6\\"") in store form; what is no elevation comes back unchanged."""
    return text_of("ul_get_elev_store_value_u8", *_text(text))


def elevation_edit(text: str) -> str:
    """The store form of an elevation as an edit field shows it."""
    return text_of("ul_get_elev_edit_value_u8", *_text(text))


def elevation_display(text: str) -> str:
    """The store form of an elevation as a cell shows it."""
    return text_of("ul_get_elev_display_value_u8", *_text(text))


def check_elevation(text: str) -> bool:
    """Whether a text is an acceptable elevation."""
    return bool(int_of("ul_check_elev_edit_value_u8", *_text(text)))


# Columns: one call of the library each. Items that are None stay None.


def format_values(measure: int, values: Iterable[float | None], *, scale: int = BASE_SCALE, flags: int = 0,
                  errors: Errors = "raise") -> list[str | None]:
    """format_value for every value. errors="none": None for an item that fails, instead of raising."""
    return _columns.show(measure, values, scale, flags, errors)


def parse_values(measure: int, texts: Iterable[str | None], *, scale: int = BASE_SCALE,
                 errors: Errors = "raise") -> list[float | None]:
    """parse_value for every text."""
    return _columns.store(measure, texts, scale, errors)


def evaluate_values(texts: Iterable[str | None], *, errors: Errors = "raise") -> list[Evaluation | None]:
    """evaluate for every text."""
    pairs = _columns.evaluate(texts, errors)
    return [None if pair is None else Evaluation(*pair) for pair in pairs]


def evaluate_expressions(measure: int, texts: Iterable[str | None], *, scale: int = BASE_SCALE,
                         errors: Errors = "raise") -> list[float | None]:
    """evaluate_expression for every text."""
    return _columns.store_expressions(measure, texts, scale, errors)
