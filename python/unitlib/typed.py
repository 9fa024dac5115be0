"""Texts as people type them: read as a value, or refused with a reason and with what to type instead."""

from __future__ import annotations

import ctypes
import enum
import math
from dataclasses import dataclass

from ._library import CTyped, _position_in, call, encode, text_of

_REWRITTEN, _UNDERSTOOD, _REASON, _SUGGESTION, _STEP_NAME, _STEP_TEXT = range(6)


class TypedFlag(enum.IntFlag):
    """What a field takes, and what is read in it."""

    NONE = 0
    EXPRESSION = 1  # arithmetic, in which a dash may take away; without: one value
    DECIMAL_COMMA = 2  # 2,5 is two and a half
    GERMAN = 16  # unit words of this language, beside the English ones
    FRENCH = 32
    SPANISH = 64
    CHINESE = 128


class TypedProblem(enum.IntEnum):
    """Why a text was refused."""

    ACCEPTED = 0
    EMPTY = 1
    AMBIGUOUS = 2  # two readings, both suggested
    MISSING_MARK = 3  # feet or inches?
    OTHER_QUANTITY = 4
    UNKNOWN_UNIT = 5
    NOT_A_NUMBER = 6
    BAD_FRACTION = 7
    BAD_ORDER = 8
    BAD_ARITHMETIC = 9
    BAD_NAME = 10
    OUT_OF_RANGE = 11
    TOO_LONG = 12
    NO_FIELD = 13


@dataclass(frozen=True)
class TypedReading:
    """How a text was read. Refused: problem, reason, position and suggestions tell why. value is None then, and for an
    expression with a name, of which rewritten is all there is."""

    problem: TypedProblem
    value: float | None
    rewritten: str
    understood: str
    reason: str
    position: int
    suggestions: tuple[str, ...]
    steps: tuple[tuple[str, str], ...]

    @property
    def accepted(self) -> bool:
        return self.problem == TypedProblem.ACCEPTED


def read_typed(measure: int, text: str, *, scale: int = -1, flags: int = 0) -> TypedReading:
    """Reads a text typed for a measure: all that parse_value reads, with the same value, and the spellings of the
    trade, such as 10'-6" and 2.5 m in feet. See TypedFlag."""
    data = encode(text)
    value, info = ctypes.c_double(math.nan), CTyped()
    call("ul_read_typed_u8", measure, data, len(data), scale, flags, ctypes.byref(value), ctypes.byref(info))

    def part(number: int, index: int = 0) -> str:
        return text_of("ul_get_typed_text_u8", measure, data, len(data), flags, number, index)

    return TypedReading(
        problem=TypedProblem(info.problem),
        value=value.value if info.has_value else None,
        rewritten=part(_REWRITTEN),
        understood=part(_UNDERSTOOD),
        reason=part(_REASON),
        position=_position_in(text, info.position),
        suggestions=tuple(part(_SUGGESTION, index) for index in range(info.suggestions)),
        steps=tuple((part(_STEP_NAME, index), part(_STEP_TEXT, index)) for index in range(info.steps)),
    )
