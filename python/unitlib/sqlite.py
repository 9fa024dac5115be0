"""unit_display and unit_store as functions of SQL.

    unitlib.sqlite.register(connection)
    connection.execute("SELECT name, unit_display(measure, value) FROM takeoff")
    connection.execute("SELECT unit_store(1, '12.5 SF')")

A null in is a null out. A value that cannot be shown and a text that cannot be read fail the statement, so that no row
gets a wrong number: sqlite3 raises OperationalError, and register's report function tells the library's message.
"""

from __future__ import annotations

import sqlite3
from collections.abc import Callable
from typing import Optional, TypeVar

from . import format_value, parse_value

_Result = TypeVar("_Result", Optional[str], Optional[float])


def register(connection: sqlite3.Connection, report: Callable[[Exception], None] | None = None) -> None:
    """Makes unit_display(measure, value[, scale]) and unit_store(measure, text[, scale]) known to a connection.

    They read the settings at each row, so none is deterministic: no index can be built on them.
    """

    def told(function: Callable[..., _Result]) -> Callable[..., _Result]:
        def wrapped(*arguments: object) -> _Result:
            try:
                return function(*arguments)
            except Exception as problem:
                if report:
                    report(problem)
                raise
        return wrapped

    def display(measure: int, value: float | None, scale: int = -1) -> str | None:
        return None if value is None else format_value(measure, value, scale=scale)

    def store(measure: int, text: str | None, scale: int = -1) -> float | None:
        return None if text is None else parse_value(measure, str(text), scale=scale)

    for count in (2, 3):
        connection.create_function("unit_display", count, told(display))
        connection.create_function("unit_store", count, told(store))
