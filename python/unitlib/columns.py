"""Columns: whole sequences converted by one call of the library each.

Every function takes errors="raise" (the first item that fails raises, its position is the error's item) or
errors="none" (items that fail become None). An item that is None stays None.
"""

from __future__ import annotations

import array
import ctypes
from collections.abc import Iterable, Sequence
from ctypes import c_double, c_int32
from itertools import accumulate

from ._library import BUFFER_TOO_SMALL, ITEMS_FAILED, OK, check, encode, last_error, library

_BYTES_PER_TEXT = 24  # of the first attempt; a column that takes more is converted twice


def _ints(count: int) -> ctypes.Array[c_int32]:
    return (c_int32 * count)()


def _require_mode(errors: str) -> None:
    if errors not in ("raise", "none"):
        raise ValueError(f'errors must be "raise" or "none", not {errors!r}')


class _Present:
    """The items of a column that are not None, and the way back to all of them."""

    def __init__(self, items: Iterable[object | None]) -> None:
        self.all = list(items)
        self.places = [place for place, item in enumerate(self.all) if item is not None]
        self.items = self.all if len(self.places) == len(self.all) else [self.all[place] for place in self.places]

    def spread(self, results: Sequence[object]) -> list[object]:
        if self.items is self.all:
            return list(results)
        spread: list[object] = [None] * len(self.all)
        for place, result in zip(self.places, results):
            spread[place] = result
        return spread

    def settle(self, status: int, statuses: ctypes.Array[c_int32], errors: str) -> set[int]:
        """The failed items, after raising for them where that is asked."""
        if status == OK:
            return set()
        if status != ITEMS_FAILED:
            check(status)
        if errors == "raise":
            error = last_error()
            error.item = self.places[error.item]
            raise error
        return {place for place, item_status in enumerate(statuses) if item_status != OK}


def _texts_of(buffer: bytes, offsets: Sequence[int]) -> list[str]:
    text = buffer.decode("utf-8")
    if len(text) == len(buffer):  # one byte per character, so the offsets are positions in the text too
        return [text[start:end] for start, end in zip(offsets, offsets[1:])]
    return [buffer[start:end].decode("utf-8") for start, end in zip(offsets, offsets[1:])]


def show(measure: int, values: Iterable[float | None], scale: int, flags: int, errors: str) -> list[str | None]:
    """Texts of stored values."""
    _require_mode(errors)
    present = _Present(values)
    numbers = array.array("d", present.items)  # type: ignore[type-var]
    count = len(numbers)
    source = (c_double * count).from_buffer(numbers) if count else (c_double * 0)()
    offsets, statuses, needed = _ints(count + 1), _ints(count), c_int32()
    capacity = _BYTES_PER_TEXT * count + 1
    while True:
        buffer = ctypes.create_string_buffer(capacity)
        status = library().ul_store_to_display_column_u8(measure, source, count, scale, flags, buffer, capacity,
                                                         ctypes.byref(needed), offsets, statuses)
        if status != BUFFER_TOO_SMALL:
            break
        capacity = needed.value
    failed = present.settle(status, statuses, errors)
    texts: list[str | None] = list(_texts_of(buffer.raw[:needed.value], offsets[:]))
    for place in failed:
        texts[place] = None
    return present.spread(texts)  # type: ignore[return-value]


def _column(texts: Sequence[object]) -> tuple[bytes, ctypes.Array[c_int32]]:
    """Texts as one buffer with offsets."""
    parts = [encode(text) for text in texts]  # type: ignore[arg-type]
    offsets = list(accumulate(map(len, parts), initial=0))
    if offsets[-1] > 0x7FFFFFFF:
        raise ValueError("the texts of a column take more than 2 GiB: convert fewer at once")
    return b"".join(parts), (c_int32 * len(offsets))(*offsets)


def _values(present: _Present, name: str, before: tuple[object, ...], after: tuple[object, ...],
            imperial: ctypes.Array[c_int32] | None, errors: str) -> list[float | None]:
    _require_mode(errors)
    buffer, offsets = _column(present.items)
    count = len(present.items)
    values, statuses = (c_double * count)(), _ints(count)
    flags = () if imperial is None else (imperial,)
    status = getattr(library(), name)(*before, buffer, offsets, count, *after, values, *flags, statuses)
    failed = present.settle(status, statuses, errors)
    return [None if place in failed else value for place, value in enumerate(values)]


def store(measure: int, texts: Iterable[str | None], scale: int, errors: str) -> list[float | None]:
    """Stored values of texts."""
    present = _Present(texts)
    results = _values(present, "ul_display_to_store_column_u8", (measure,), (scale, 0), None, errors)
    return present.spread(results)  # type: ignore[return-value]


def store_expressions(measure: int, texts: Iterable[str | None], scale: int, errors: str) -> list[float | None]:
    """Stored values of typed arithmetic."""
    present = _Present(texts)
    results = _values(present, "ul_expression_to_store_column_u8", (measure,), (scale,), None, errors)
    return present.spread(results)  # type: ignore[return-value]


def evaluate(texts: Iterable[str | None], errors: str) -> list[tuple[float, bool] | None]:
    """Values of arithmetic, and whether they are lengths in metres."""
    present = _Present(texts)
    imperial = _ints(len(present.items))
    values = _values(present, "ul_evaluate_column_u8", (), (), imperial, errors)
    pairs = [None if value is None else (value, bool(is_length)) for value, is_length in zip(values, imperial)]
    return present.spread(pairs)  # type: ignore[return-value]
