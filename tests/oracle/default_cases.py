"""The factory-default file as case lines: one element per line."""

from case_format import escape, line
from defaults import elements


def cases():
    for depth, name, attributes in elements():
        yield line("defaults", str(depth), name, *(f"{key}={escape(value)}" for key, value in attributes.items()))
