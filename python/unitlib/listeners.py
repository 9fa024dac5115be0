"""Listeners before and after units change, and the dialog.

An exception of a listener ends nothing in the library; it is kept and raised when the call that fired returns.
"""

from __future__ import annotations

import os
from collections.abc import Callable
from ctypes import byref, c_int32
from typing import Any

from ._library import CALLBACK, LOCK_FILE, call

Listener = Callable[[], None]
LockFile = Callable[[str, bool], object]

_raised: list[BaseException] = []
_after: dict[Listener, Any] = {}
_before: dict[Listener, Any] = {}


def _guarded(listener: Callable[..., object], *arguments: object) -> None:
    try:
        listener(*arguments)
    except BaseException as problem:  # nothing may pass through the library
        _raised.append(problem)


def _fire(name: str, *arguments: object) -> None:
    """Calls the library, then raises what the first failed listener raised."""
    _raised.clear()
    call(name, *arguments)
    if _raised:
        first = _raised[0]
        _raised.clear()
        raise first


def _attach(known: dict[Listener, Any], name: str, listener: Listener) -> None:
    if listener in known:
        return
    callback = CALLBACK(lambda _context: _guarded(listener))
    call(name, callback, None)
    known[listener] = callback  # the library calls it as long as it is attached


def _detach(known: dict[Listener, Any], name: str, listener: Listener) -> None:
    if listener in known:
        call(name, known[listener], None)
        del known[listener]


def attach_refresh_unit(listener: Listener) -> None:
    """Calls the listener after units have changed: at every refresh_unit(). Once, however often attached."""
    _attach(_after, "ul_attach_refresh_unit", listener)


def detach_refresh_unit(listener: Listener) -> None:
    """Undoes attach_refresh_unit; a listener that is not attached changes nothing."""
    _detach(_after, "ul_detach_refresh_unit", listener)


def refresh_unit() -> None:
    """Calls the listeners after a change: the one who has changed units calls this."""
    _fire("ul_refresh_unit")


def attach_before_unit_change(listener: Listener) -> None:
    """Calls the listener before units change: when the dialog opens, and at refresh_before_unit_change()."""
    _attach(_before, "ul_attach_before_unit_change", listener)


def detach_before_unit_change(listener: Listener) -> None:
    """Undoes attach_before_unit_change."""
    _detach(_before, "ul_detach_before_unit_change", listener)


def refresh_before_unit_change() -> None:
    """Calls the listeners before a change: the one who is about to change units calls this."""
    _fire("ul_refresh_before_unit_change")


def project_units_dialog(path: str | os.PathLike[str] | None = None, config_type: int = 0, *,
                         on_ok: Listener | None = None, lock_file: LockFile | None = None) -> bool | None:
    """Opens the Project Units dialog on a settings file. True: OK, the settings were saved; False: cancelled, nothing
    changed; None: not opened, because listeners are running or it is open already.

    Needs the library with the dialogs; NotAvailableError otherwise. lock_file(path, lock) is called around every use
    of the file.
    """
    data = b"" if path is None else os.fspath(path).encode("utf-8")

    def ok(_context: object) -> None:
        if on_ok:
            _guarded(on_ok)

    def lock(_context: object, name: bytes, length: int, locked: int) -> int:
        if lock_file:
            _guarded(lock_file, name[:length].decode("utf-8"), bool(locked))
        return 1

    outcome = c_int32()
    _fire("ul_project_units_dialog_u8", config_type, data, len(data), CALLBACK(ok), None, LOCK_FILE(lock), None, byref(outcome))
    return {1: True, 2: False}.get(outcome.value)
