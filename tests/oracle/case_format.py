"""The line form of test cases: one case per line, fields between tabs, readable without a parser.

Every character outside a small safe set is written as \\uXXXX (one UTF-16 code unit), so that
":", ";" and "|" are free to separate parts inside a field.
"""

import struct

from number_text import OracleError
from units import SWITCHES

_SAFE = set("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 '\"/.+-*()_,<>=!#[]%^")


def escape(text):
    return "".join(c if c in _SAFE else f"\\u{ord(c):04X}" for c in text)


def bits(value):
    return struct.pack(">d", value).hex()


def flag(value):
    return "1" if value else "0"


def attempt(call, write):
    """"=" and the written result, or "!" and the kind of refusal."""
    try:
        return "=" + write(call())
    except OracleError as error:
        return "!" + error.kind


def each(texts):
    """Every text with "|" before it: a list that may be empty."""
    return "".join("|" + escape(text) for text in texts)


def unit_field(unit, settings):
    how = "0" if unit.round is None else ("3" if unit.round.can_edit else "1")
    increment = unit.round.increment if unit.round else ""
    parts = [
        unit.parser,
        str(unit.code),
        how,
        escape(increment),
        "".join(";" + escape(symbol) for symbol in unit.symbols),
        str(unit.symbol_index),
        "".join(flag(name in unit.checked) for name in SWITCHES),
        escape(unit.none_symbol),
        "?" if settings.group_parser is None else escape(settings.group_parser),
    ]
    return "|".join(parts)


def line(family, *fields):
    return "\t".join((family,) + fields)
