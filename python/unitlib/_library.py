"""The C library behind the module: finding it, its functions with their types, texts and errors across the border."""

from __future__ import annotations

import ctypes
import ctypes.util
import os
import pathlib
import sys
import threading
from collections.abc import Callable
from ctypes import POINTER, Structure, c_char_p, c_double, c_int32, c_uint32, c_void_p

from .errors import UnitError, error_of

OK, BUFFER_TOO_SMALL, ITEMS_FAILED = 0, 1, 2
CURRENT = -1

# Bytes go in as c_char_p or, from the middle of a buffer and for results, by address.
_TEXT, _OUT = c_char_p, c_void_p
_INT, _INTS = c_int32, POINTER(c_int32)
_DOUBLES = POINTER(c_double)

CALLBACK = ctypes.CFUNCTYPE(None, c_void_p)
LOCK_FILE = ctypes.CFUNCTYPE(c_int32, c_void_p, c_char_p, c_int32, c_int32)


class CError(Structure):
    """ul_error"""

    _fields_ = [(name, c_int32) for name in ("code", "line", "position", "item")]


class CConfig(Structure):
    """ul_config_info"""

    _fields_ = [(name, c_int32) for name in ("order_index", "measure_count")]


class CMeasure(Structure):
    """ul_measure_info"""

    _fields_ = [(name, c_int32) for name in ("classify_code", "order_index", "unit_count", "def_unit_index",
                                             "cur_unit_index")]


class CUnit(Structure):
    """ul_unit_info"""

    _fields_ = [(name, c_int32) for name in ("identify_code", "order_index", "round_count", "def_round_index",
                                             "cur_round_index", "symbol_count", "def_symbol_index",
                                             "cur_symbol_index")]


class CRound(Structure):
    """ul_round_info"""

    _fields_ = [(name, c_int32) for name in ("order_index", "increment_can_edit", "increment_can_visible")]


class CSwitch(Structure):
    """ul_switch_info"""

    _fields_ = [(name, c_int32) for name in ("def_enable", "enable", "def_checked", "checked")]


class CTyped(Structure):
    """ul_typed_info"""

    _fields_ = [(name, c_int32) for name in ("problem", "has_value", "position", "suggestions", "steps")]


_BUFFER = (_OUT, _INT, _INTS)  # buffer, capacity, needed
_PATH3, _PATH4 = (_INT, _INT, _INT), (_INT, _INT, _INT, _INT)  # config, measure, unit(, round or symbol)

PROTOTYPES: dict[str, tuple[object, ...]] = {
    "ul_version": (_INTS, _INTS, _INTS),
    "ul_last_error": (POINTER(CError),),
    "ul_last_error_text_u8": (_INT, *_BUFFER),
    "ul_initial_unit_system_u8": (_TEXT, _INT, _INT, _INT),
    "ul_init_system_unit_u8": (_TEXT, _INT),
    "ul_free_unit_system": (),
    "ul_is_loaded": (_INTS,),
    "ul_generate_default_config_file_u8": (_TEXT, _INT),
    "ul_save_config_file_u8": (_TEXT, _INT),
    "ul_save_to_model": (),
    "ul_get_unit_config_file_name_u8": _BUFFER,
    "ul_get_temp_path_for_unit_u8": _BUFFER,
    "ul_get_exe_path_u8": _BUFFER,
    "ul_set_exe_path_u8": (_TEXT, _INT),
    "ul_get_common_documents_path_u8": _BUFFER,
    "ul_set_common_documents_path_u8": (_TEXT, _INT),
    "ul_store_to_display_u8": (_INT, c_double, _INT, c_uint32, *_BUFFER),
    "ul_check_display_u8": (_INT, _TEXT, _INT, _INTS),
    "ul_display_to_store_u8": (_INT, _TEXT, _INT, _INT, c_uint32, _DOUBLES),
    "ul_decimal_value_to_store": (_INT, c_double, _INT, _DOUBLES),
    "ul_is_a_num_u8": (_INT, _TEXT, _INT, _INT, _INTS),
    "ul_expr_to_store_u8": (_INT, _TEXT, _INT, _INT, *_BUFFER),
    "ul_get_unit_symbol_u8": (_INT, _INT, *_BUFFER),
    "ul_store_to_display_column_u8": (_INT, _DOUBLES, _INT, _INT, c_uint32, *_BUFFER, _INTS, _INTS),
    "ul_display_to_store_column_u8": (_INT, _TEXT, _INTS, _INT, _INT, c_uint32, _DOUBLES, _INTS),
    "ul_evaluate_column_u8": (_TEXT, _INTS, _INT, _DOUBLES, _INTS, _INTS),
    "ul_expression_to_store_column_u8": (_INT, _TEXT, _INTS, _INT, _INT, _DOUBLES, _INTS),
    "ul_evaluate_u8": (_TEXT, _INT, _DOUBLES, _INTS),
    "ul_expression_to_store_u8": (_INT, _TEXT, _INT, _INT, _DOUBLES),
    "ul_get_elev_store_value_u8": (_TEXT, _INT, *_BUFFER),
    "ul_get_elev_edit_value_u8": (_TEXT, _INT, *_BUFFER),
    "ul_get_elev_display_value_u8": (_TEXT, _INT, *_BUFFER),
    "ul_check_elev_edit_value_u8": (_TEXT, _INT, _INTS),
    "ul_read_typed_u8": (_INT, _TEXT, _INT, _INT, c_uint32, _DOUBLES, POINTER(CTyped)),
    "ul_get_typed_text_u8": (_INT, _TEXT, _INT, c_uint32, _INT, _INT, *_BUFFER),
    "ul_get_config_count": (_INTS,),
    "ul_get_cur_config_index": (_INTS,),
    "ul_get_config": (_INT, POINTER(CConfig)),
    "ul_get_config_description_u8": (_INT, *_BUFFER),
    "ul_find_measure": (_INT, _INT, _INTS),
    "ul_get_measure": (_INT, _INT, POINTER(CMeasure)),
    "ul_get_measure_text_u8": (_INT, _INT, _INT, *_BUFFER),
    "ul_get_unit": (*_PATH3, POINTER(CUnit)),
    "ul_get_unit_text_u8": (*_PATH3, _INT, *_BUFFER),
    "ul_get_switch": (*_PATH3, _INT, POINTER(CSwitch)),
    "ul_get_round": (*_PATH4, POINTER(CRound)),
    "ul_get_round_text_u8": (*_PATH4, _INT, *_BUFFER),
    "ul_get_symbol_description_u8": (*_PATH4, *_BUFFER),
    "ul_get_digit_group_count": (_INTS,),
    "ul_get_cur_digit_group_index": (_INTS,),
    "ul_get_digit_group_text_u8": (_INT, _INT, *_BUFFER),
    "ul_set_cur_config_index": (_INT,),
    "ul_set_cur_unit_index": _PATH3,
    "ul_set_cur_round_index": _PATH4,
    "ul_set_cur_symbol_index": _PATH4,
    "ul_set_cur_digit_group_index": (_INT,),
    "ul_set_cur_unit_u8": (_INT, _INT, _TEXT, _INT),
    "ul_set_cur_round_u8": (*_PATH3, _TEXT, _INT),
    "ul_set_cur_symbol_u8": (*_PATH3, _TEXT, _INT),
    "ul_set_cur_digit_group_u8": (_TEXT, _INT),
    "ul_set_increment_u8": (*_PATH4, _TEXT, _INT),
    "ul_set_switch": (*_PATH3, _INT, _INT, _INT),
    "ul_restore_default_measure": (_INT, _INT),
    "ul_restore_default_config": (_INT,),
    "ul_update_display_values": (),
    "ul_register_unit_parser_u8": (_TEXT, _INT, c_double),
    "ul_attach_refresh_unit": (CALLBACK, c_void_p),
    "ul_detach_refresh_unit": (CALLBACK, c_void_p),
    "ul_refresh_unit": (),
    "ul_attach_before_unit_change": (CALLBACK, c_void_p),
    "ul_detach_before_unit_change": (CALLBACK, c_void_p),
    "ul_refresh_before_unit_change": (),
    "ul_load_texts_u8": (_TEXT, _INT),
    "ul_set_text_u8": (_TEXT, _INT, _TEXT, _INT),
    "ul_dialogs_available": (_INTS,),
    "ul_project_units_dialog_u8": (_INT, _TEXT, _INT, CALLBACK, c_void_p, LOCK_FILE, c_void_p, _INTS),
}

_lock = threading.Lock()
_library: ctypes.CDLL | None = None


def _candidates() -> list[str]:
    """Where the library may be, best first: UNITLIB_LIBRARY, beside this package, where the system looks."""
    name = "unitlib.dll" if sys.platform == "win32" else "libunitlib_c.so.0"
    beside = pathlib.Path(__file__).resolve().parent / name
    found = [os.environ["UNITLIB_LIBRARY"]] if os.environ.get("UNITLIB_LIBRARY") else []
    return found or [str(beside)] * beside.exists() + [name]


def load_library(path: str | os.PathLike[str] | None = None) -> None:
    """Loads the C library from a path, or from the first place where it is found. Called by itself when needed.

    A process uses one library: once it is loaded, other paths are refused.
    """
    global _library
    with _lock:
        if _library is not None:
            if path is not None and os.fspath(path) != _library._name:
                raise RuntimeError(f"the library is loaded already, from {_library._name}")
            return
        problems = []
        for candidate in [os.fspath(path)] if path is not None else _candidates():
            try:
                library = ctypes.CDLL(candidate)
            except OSError as problem:
                problems.append(f"{candidate}: {problem}")
                continue
            for name, arguments in PROTOTYPES.items():
                try:
                    function = getattr(library, name)
                except AttributeError:
                    raise ImportError(f"{candidate} has no function {name}: it is older than this module") from None
                function.argtypes = arguments
                function.restype = c_int32
            _library = library
            return
        raise ImportError("the unitlib C library was not found: set UNITLIB_LIBRARY to its path ("
                          + "; ".join(problems) + ")")


def library() -> ctypes.CDLL:
    """The loaded library."""
    if _library is None:
        load_library()
    assert _library is not None
    return _library


def encode(text: str) -> bytes:
    """A text as it goes in. The library refuses one with a lone surrogate."""
    return text.encode("utf-8", "surrogatepass")


def _read_buffer(fill: Callable[[object, int, object], int], status_of: Callable[[int], None]) -> str:
    """The text that fill(buffer, capacity, needed) gives, first into a small buffer, then into one that fits."""
    needed = c_int32()
    capacity = 256
    while True:
        buffer = ctypes.create_string_buffer(capacity)
        status = fill(buffer, capacity, ctypes.byref(needed))
        if status != BUFFER_TOO_SMALL:
            status_of(status)
            return buffer.raw[:needed.value - 1].decode("utf-8")
        capacity = needed.value


def _position_in(text: str, units: int) -> int:
    """An index into a Python text from one that counts units of UTF-16."""
    if units < 0:
        return -1
    return len(text.encode("utf-16-le", "surrogatepass")[:2 * units].decode("utf-16-le", "ignore"))


def last_error() -> UnitError:
    """The last failed call of this thread as an exception."""
    loaded = library()
    info = CError()
    loaded.ul_last_error(ctypes.byref(info))

    def ignore(_status: int) -> None:
        pass

    def part(number: int) -> str:
        return _read_buffer(lambda *buffer: loaded.ul_last_error_text_u8(number, *buffer), ignore)

    text = part(2)
    return error_of(info.code)(info.code, part(0), path=part(1), line=info.line,
                               position=_position_in(text, info.position), item=info.item, text=text)


def check(status: int) -> None:
    """Raises the error of a call that failed."""
    if status != OK:
        raise last_error()


def call(name: str, *arguments: object) -> None:
    """Calls a function without result."""
    check(getattr(library(), name)(*arguments))


def text_of(name: str, *arguments: object) -> str:
    """Calls a function that gives a text."""
    function = getattr(library(), name)
    return _read_buffer(lambda *buffer: function(*arguments, *buffer), check)


def int_of(name: str, *arguments: object) -> int:
    """Calls a function whose last argument receives an integer."""
    result = c_int32()
    call(name, *arguments, ctypes.byref(result))
    return result.value


def double_of(name: str, *arguments: object) -> float:
    """Calls a function whose last argument receives a number."""
    result = c_double()
    call(name, *arguments, ctypes.byref(result))
    return result.value
