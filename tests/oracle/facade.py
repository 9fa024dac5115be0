"""Conversions by measure of the slow second implementation."""

import re
from dataclasses import dataclass, field

import imperial_text
from number_text import (
    OracleError,
    five_decimals,
    float_to_str,
    lower_ascii,
    trim,
)
from units import Settings, get_unit_parser

FEET_AND_INCHES = 11
FRACTIONAL_INCHES = 13
FRACTION_FORM = r"(\d+\s*-\s*\d+\s*/\s*\d+)|(\d+\s*-\s*\d+)|(\d+\s*/\s*\d+)"


@dataclass
class Project:
    """The current unit of each measure, by classify code."""

    units: dict = field(default_factory=dict)
    settings: Settings = field(default_factory=Settings)


class Command:
    def __init__(self, project, code):
        self.project = project
        self.unit = project.units.get(code)

    def parser(self):
        if self.unit is None:
            return None
        return get_unit_parser(self.unit.parser, self.unit, self.project.settings)

    def needed_parser(self):
        parser = self.parser()
        if parser is None:
            raise OracleError("any", "no parser")
        return parser

    def check_display(self, text):
        parser = self.parser()
        return parser is not None and parser.is_valid(text)

    def display_to_store(self, text, scale_index):
        parser = self.parser()
        return 0.0 if parser is None else parser.as_double(text, scale_index)

    def store_to_display(self, value, scale_index, flags):
        parser = self.parser()
        return float_to_str(value) if parser is None else parser.as_string(value, scale_index, *flags)

    def unit_symbol(self, empty_for_feet_inch):
        if self.unit is None:
            return ""
        symbol = self.unit.symbol_description()
        if symbol != "" and symbol != "None":
            return symbol
        if self.unit.code == FEET_AND_INCHES and empty_for_feet_inch:
            return ""
        return self.unit.none_symbol

    def has_unit_symbol(self):
        if self.unit is None:
            return False
        symbol = self.unit.symbol_description()
        if symbol != "" and lower_ascii(symbol) != "none":
            return True
        return self.unit.code in (FEET_AND_INCHES, FRACTIONAL_INCHES)


def settled(value):
    """Negative zero and tiny residues become 0."""
    return 0.0 if abs(value) <= 1e-12 else value


def store_to_display_first(project, measure, value, scale_index, append, flags, has_symbol):
    """(text, has symbol)"""
    value = settled(value)
    if measure == -1:
        return float_to_str(value), has_symbol
    text = store_to_display_second(project, measure, value, scale_index, append, flags)
    return text, Command(project, measure).has_unit_symbol()


def store_to_display_second(project, measure, value, scale_index, append, flags):
    value = settled(value)
    if measure == -1:
        text = float_to_str(value)
        return five_decimals(value) if text[::-1].find(".") + 1 > 3 else text
    command = Command(project, measure)
    text = command.store_to_display(value, scale_index, flags)
    if append and not command.has_unit_symbol():
        text += " " + command.unit_symbol(False)
    return text


def expr_to_store(project, measure, text, skip_imperial):
    if measure not in (0, 3, 7):
        return text
    if skip_imperial and imperial_text.is_imperial_num(text, False):
        return text
    command = Command(project, measure)
    scale = command.needed_parser().get_scale(-1)
    if command.unit.code == FEET_AND_INCHES:
        scale *= 12
    return imperial_text.replace_imperial_numbers(text, 0, 1000 / scale)


def is_a_num(project, measure, text, reject_fraction_form):
    rest = Command(project, measure).needed_parser().remove_symbol(text)
    result = imperial_text.is_a_num(rest)
    if result and reject_fraction_form:
        trimmed = trim(rest)
        match = re.search(FRACTION_FORM, trimmed, re.ASCII)
        if match is not None and lower_ascii(match.group(0)) == lower_ascii(trimmed):
            return False
    return result


def decimal_value_to_store(project, measure, value, scale_index):
    command = Command(project, measure)
    scale = command.needed_parser().get_scale(scale_index)
    if command.unit.code == FEET_AND_INCHES:
        scale *= 12
    return value * scale
