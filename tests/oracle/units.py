"""Unit parsers and digit grouping of the slow second implementation."""

import math
from dataclasses import dataclass, field
from fractions import Fraction

import imperial_text
from number_text import (
    OracleError,
    float_to_plain_str,
    is_exact_zero_text,
    is_numeric,
    lower_ascii,
    number_body,
    round_classic,
    str_to_exact,
    str_to_float,
    to_double,
    truncate_int64,
)

# class name -> (size of one display unit in the family's base unit, way of reading and writing)
DECIMAL, DECIMAL_IMPERIAL, FRACTIONAL_INCH, FEET_INCH = range(4)
PARSERS = {
    "TKilogramsPerMeterParser": ("1", DECIMAL),
    "TPoundPerFootParser": ("1.4881639461", DECIMAL),
    "TDecimalFeetParser": ("304.8", DECIMAL_IMPERIAL),
    "TFeetAndFractionalInchParser": ("25.4", FEET_INCH),
    "TDecimalInchParser": ("25.4", DECIMAL_IMPERIAL),
    "TFractionalInchParser": ("25.4", FRACTIONAL_INCH),
    "TMetreParser": ("1000", DECIMAL),
    "TCentimeterParser": ("10", DECIMAL),
    "TMillimetreParser": ("1", DECIMAL),
    "TSquareFootParser": ("92903.04", DECIMAL),
    "TSquareInchParser": ("645.16", DECIMAL),
    "TSquareMeterParser": ("1000000", DECIMAL),
    "TSquareCentimetreParser": ("100", DECIMAL),
    "TSquareMillimeterParser": ("1", DECIMAL),
    "TCubicYardParser": ("764554857.984", DECIMAL),
    "TCubicFootParser": ("28316846.592", DECIMAL),
    "TCubicInchParser": ("16387.064", DECIMAL),
    "TCubicMeterParser": ("1000000000", DECIMAL),
    "TCubicCentimeterParser": ("1000", DECIMAL),
    "TCubicMillimetreParser": ("1", DECIMAL),
    "TKiogramsPerCubicMeterParser": ("1", DECIMAL),
    "TPoundPerCubicFootParser": ("16.01846337396", DECIMAL),
    "TPoundPerCubicYardParser": ("0.593276421257783", DECIMAL),
    "TCubicMetersPerMeterParser": ("1", DECIMAL),
    "TCubicFeetPerFootParser": ("0.09290304", DECIMAL),
    "TCubicYardsPerFootParser": ("2.50838208", DECIMAL),
    "TKilogramsParser": ("1", DECIMAL),
    "TBangParser": ("0.45359237", DECIMAL),
    "TTonParser": ("1000", DECIMAL),
    "TShortTonParser": ("907", DECIMAL),  # whole on purpose
    "TLongTonParser": ("1016", DECIMAL),  # whole on purpose
    "TCubicMetersPerSquareMetersParser": ("1", DECIMAL),
    "TCubicFeetPerSquareFeetParser": ("0.3048", DECIMAL),
    "TCubicYardsPerSquareFeetParser": ("8.2296", DECIMAL),
}

SWITCHES = ["UseProjectSetting", "SuppressTrail0", "Suppress0Feet", "ShowPlus", "UseDigitGroup", "SuppressSpace"]


@dataclass
class Round:
    increment: str
    can_edit: bool = False


@dataclass
class Unit:
    parser: str = "TMillimetreParser"
    code: int = 16
    round: Round | None = None
    symbols: list = field(default_factory=list)
    symbol_index: int = 0
    checked: set = field(default_factory=set)
    none_symbol: str = ""

    def symbol_description(self):
        if 0 <= self.symbol_index < len(self.symbols):
            return self.symbols[self.symbol_index]
        return ""


@dataclass
class Settings:
    """What is chosen once for all: the digit group; None stands for an index outside the list."""

    group_parser: str | None = "TDigitGroup3CommaParser"


def group_digits(parser_name, text):
    size = {"tdigitgroup3commaparser": 3, "tdigitgroup4commaparser": 4}.get(lower_ascii(parser_name))
    if size is None:
        return text
    point = text.find(".")
    length = point if point >= 0 else len(text)
    rest = length % size
    out = ""
    for i in range(1, length + 1):
        out += text[i - 1]
        if i % size == rest and i != length:
            out += ","
    return out + (text[point:] if point >= 0 else "")


def m_scale(scale_index):
    return {3: 1000, 4: 1000000, 5: 1000000000}.get(scale_index, 1)


def remove_delimiters(text):
    return text.replace(",", "")


def decimals_of(text):
    point = text.find(".")
    return 0 if point < 0 else len(text) - (point + 1)


def is_decimal_imperial(class_name):
    return PARSERS[class_name][1] == DECIMAL_IMPERIAL


def is_fractional_class(class_name):
    return PARSERS[class_name][1] in (FRACTIONAL_INCH, FEET_INCH)


def gcd(a, b):
    """Euclid with a remainder that takes the sign of the dividend."""
    while b != 0:
        a, b = b, _remainder(a, b)
    return a


def _remainder(a, b):
    rest = abs(a) % abs(b)
    return -rest if a < 0 else rest


def get_unit_parser(name, unit, settings):
    """A parser of the class registered under name (any letter case), None when there is none."""
    for class_name, (factor, kind) in PARSERS.items():
        if lower_ascii(class_name) == lower_ascii(name):
            maker = {DECIMAL: Parser, DECIMAL_IMPERIAL: DecimalImperialParser}.get(kind)
            if maker is None:
                maker = FractionalInchParser if kind == FRACTIONAL_INCH else FeetInchParser
            return maker(unit, settings, Fraction(factor))
    return None


class Parser:
    """Plain decimal units."""

    def __init__(self, unit, settings, factor):
        self.unit = unit
        self.settings = settings
        self.factor = factor

    def get_scale(self, scale_index):
        return to_double(self.factor / m_scale(scale_index))

    def get_unit_symbol(self):
        description = self.unit.symbol_description()
        return "" if description == "None" else description

    def append_symbol(self):
        symbol = self.get_unit_symbol()
        return " " + symbol if symbol else ""

    def remove_symbol(self, text):
        for description in self.unit.symbols[1:]:
            if description and lower_ascii(text).endswith(lower_ascii(description)):
                return text[: len(text) - len(description)]
        return text

    def as_double(self, text, scale_index):
        return self.scaled(str_to_float(remove_delimiters(self.remove_symbol(text))), scale_index)

    def scaled(self, number, scale_index):
        """One double product; never an infinity."""
        product = number * self.get_scale(scale_index)
        if math.isinf(product):
            raise OracleError("range")
        return product

    def as_fraction_double(self, text, scale_index):
        return to_double(Fraction("25.4") * imperial_text.exact_inches(text) / m_scale(scale_index))

    def is_valid(self, text):
        rest = remove_delimiters(self.remove_symbol(text))
        if not is_numeric(rest):
            return False
        value = abs(float(number_body(rest)))
        return is_exact_zero_text(rest) or 1e-15 < value < 1e15

    def as_string(self, value, scale_index, no_symbol, no_group, no_round, no_plus):
        if math.isnan(value) or math.isinf(value):
            raise OracleError("range")
        scale = self.get_scale(scale_index)
        d = value / scale
        if math.isinf(d):
            raise OracleError("range")
        sign = ""
        if d < 0:
            sign, d = "-", -d
        elif d > 0 and "ShowPlus" in self.unit.checked and not no_plus:
            sign = "+"
        number = self.round_off(Fraction(d), no_group, no_round)
        return sign + number + self.symbol_part(no_symbol)

    def symbol_part(self, no_symbol):
        return "" if no_symbol else self.append_symbol()

    def round_off(self, d, no_group, no_round):
        current = self.unit.round or Round("", False)
        increment = Fraction(1) if current.increment == "" else str_to_exact(current.increment)
        number = float_to_plain_str(d if no_round else self.rounded(d, increment))
        out = number
        if "UseDigitGroup" in self.unit.checked and not no_group:
            if self.settings.group_parser is None:
                raise OracleError("list")
            out = group_digits(self.settings.group_parser, number)
        if "SuppressTrail0" in self.unit.checked:
            return out
        increment_text = current.increment if current.can_edit else float_to_plain_str(increment)
        missing = decimals_of(increment_text) - decimals_of(number)
        if missing > 0:
            out += ("." if decimals_of(number) == 0 else "") + "0" * missing
        return out

    @staticmethod
    def rounded(d, increment):
        """The nearest multiple; d itself when there is none or its count does not fit 64 bits."""
        if increment == 0:
            return d
        try:
            return round_classic(d / increment) * increment
        except OracleError:
            return d


class DecimalImperialParser(Parser):
    """Decimal inches and decimal feet: imperial text is read too, the symbol has no blank."""

    def append_symbol(self):
        return self.get_unit_symbol()

    def remove_symbol(self, text):
        rest = remove_delimiters(super().remove_symbol(text))
        return rest if is_numeric(rest) else text

    def is_valid(self, text):
        return super().is_valid(text) or imperial_text.is_fraction(text)

    def as_double(self, text, scale_index):
        s = self.remove_symbol(text)
        if is_numeric(remove_delimiters(s)):
            return self.scaled(str_to_float(remove_delimiters(s)), scale_index)
        return self.as_fraction_double(imperial_text.get_identifiable_form(s), scale_index)


class FractionalLengthParser(Parser):
    """What fractional inches and feet-and-inches share."""

    can_ignore_symbol = True

    def append_symbol(self):
        return imperial_text.INCH

    def symbol_part(self, no_symbol):
        return self.append_symbol() if not no_symbol or not self.can_ignore_symbol else ""

    def is_valid(self, text):
        if super().is_valid(text) and "." not in text:
            return True
        return imperial_text.is_fraction(text)

    def as_double(self, text, scale_index):
        s = remove_delimiters(self.remove_symbol(text))
        if is_numeric(s):
            return self.scaled(str_to_float(s), scale_index)
        return self.as_fraction_double(s, scale_index)

    def fen_zi_fen_mu(self):
        """(numerator, denominator, has a slash) of the increment."""
        text = self.unit.round.increment if self.unit.round else ""
        if "/" in text:
            before, after = text.split("/", 1)
            numerator, denominator, slash = str_to_exact(before), str_to_exact(after), True
        else:
            numerator, denominator, slash = str_to_exact(text), Fraction(1), False
        if numerator == 0 or denominator == 0:
            raise OracleError("convert", text)
        return numerator, denominator, slash

    def inches_rounded(self, d):
        numerator, denominator, _ = self.fen_zi_fen_mu()
        return round_classic(d * denominator / numerator) * numerator / denominator

    def fraction_part(self, e):
        """Blank and reduced fraction of the remainder e, empty when it rounds to nothing."""
        numerator, denominator, _ = self.fen_zi_fen_mu()
        s = truncate_int64(denominator / numerator)
        k = round_classic(s * e)
        if k <= 0:
            return ""
        g = gcd(s, k)
        return f" {k // g}/{s // g}"  # both divisions are exact


class FractionalInchParser(FractionalLengthParser):
    def round_off(self, d, no_group, no_round):
        whole = truncate_int64(self.inches_rounded(d))
        return str(whole) + self.fraction_part(d - whole)


class FeetInchParser(FractionalLengthParser):
    can_ignore_symbol = False

    def whole_increment(self):
        numerator, denominator, slash = self.fen_zi_fen_mu()
        return None if slash else truncate_int64(numerator / denominator)

    def rounds_to_feet(self):
        n = self.whole_increment()
        return n is not None and n % 12 == 0

    def rounds_to_inches(self):
        n = self.whole_increment()
        return n is not None and 0 < n < 12

    def append_symbol(self):
        return "" if self.rounds_to_feet() else imperial_text.INCH

    def round_off(self, d, no_group, no_round):
        t = truncate_int64(self.inches_rounded(d))
        feet = t // 12  # t is never negative: d and its rounding are not
        if self.rounds_to_feet():
            return str(feet) + imperial_text.FOOT
        out = ""
        if feet != 0 or "Suppress0Feet" not in self.unit.checked:
            out = str(feet) + imperial_text.FOOT + ("" if "SuppressSpace" in self.unit.checked else " ")
        out += str(t - 12 * feet)
        if not self.rounds_to_inches():
            out += self.fraction_part(d - t)
        return out
