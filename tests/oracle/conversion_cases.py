"""Generated cases of numbers, imperial texts, unit parsers and the measure facade."""

import math
import struct
from fractions import Fraction

import facade
import imperial_text as imperial
import number_text as numbers
import random_texts as texts
import random_units
from case_format import attempt, bits, escape, flag, line, unit_field
from units import group_digits, get_unit_parser, is_decimal_imperial, is_fractional_class

SCALES = [-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, -2147483648, 2147483647]
BORDER_VALUES = [
    0.0, -0.0, 1e-12, -1e-12, math.nextafter(1e-12, 1), math.nextafter(1e-12, 0), 1e-13, 5e-324, -5e-324, 1e-300,
    1.7976931348623157e308, -1.7976931348623157e308, math.inf, -math.inf, math.nan, 1e15, 999999999999999.0, 999999999999999.5,
    1e16, 123456789012345678.0, 2.0**53, 2.0**63, 2.0**64, 9.2e18, 1.25, 1.125, 2.0, 0.5, 1.5, 2.5, 0.05, 0.15, 0.25, 0.00001, 0.000009999999999999999,
    0.000012345, 1e-5, 9.9999e-6, 100000.0, 1234.56789012345, 1234567890.12345, 1e21, 1e22, 1e23, 304.8, 25.4, 1524.0, 1676.4, 907.0, 1016.0,
]  # fmt: skip


def random_double(rng):
    """Any finite or infinite bit pattern, or a value of everyday size."""
    chance = rng.random()
    if chance < 0.25:
        return struct.unpack(">d", struct.pack(">Q", rng.getrandbits(64)))[0]
    if chance < 0.5:
        return rng.choice([-1, 1]) * 10 ** rng.uniform(-8, 20)
    if chance < 0.75:
        return rng.choice([-1, 1]) * rng.randint(0, 10 ** rng.randint(1, 17)) / 10 ** rng.randint(0, 8)
    if chance < 0.9:
        return fifteen_digit_tie(rng)
    return rng.choice(BORDER_VALUES)


def fifteen_digit_tie(rng):
    """A double with exactly sixteen digits, the last one a 5."""
    k = rng.randint(1, 6)
    whole = rng.randint(10 ** (15 - k), 2**53 // 2 ** (k + 1))
    value = whole + rng.randrange(2**k) / 2**k if k < 6 else whole + 0.5
    return math.nextafter(value, rng.choice([-1, 1]) * math.inf) if rng.random() < 0.3 else value


# --- numbers --------------------------------------------------------------------------------


def number_text_case(rng):
    text = texts.number(rng)
    if rng.random() < 0.2:
        text = " " * rng.randint(0, 2) + text + " " * rng.randint(0, 2)
    if rng.random() < 0.3:
        text = texts.mutated(rng, text)
    if rng.random() < 0.1:
        text = texts.garbage(rng)
    return line(
        "numtext",
        escape(text),
        flag(numbers.is_numeric(text)),
        flag(numbers.is_int64(text)),
        attempt(lambda: numbers.str_to_float(text), bits),
    )


def number_value_case(rng):
    value = random_double(rng)
    return line(
        "numval",
        bits(value),
        attempt(lambda: numbers.float_to_str(value), escape),
        attempt(lambda: numbers.float_to_plain_str(value), escape),
    )


def group_case(rng):
    text = rng.choice([texts.number(rng), texts.digits(rng, 12), texts.garbage(rng), "-" + texts.digits(rng, 9)])
    return line(
        "group",
        escape(text),
        escape(group_digits("TDigitGroup3CommaParser", text)),
        escape(group_digits("TDigitGroup4CommaParser", text)),
    )


# --- imperial texts -------------------------------------------------------------------------


def imperial_case(rng):
    text = rng.choice(texts.ANCHORED) if rng.random() < 0.05 else texts.value_text(rng)
    return line(
        "imperial",
        escape(text),
        flag(imperial.is_end_with_symbol(text)),
        escape(imperial.get_identifiable_form(text)),
        flag(imperial.is_fraction(text)),
        flag(imperial.is_standard_format(text)),
        escape(imperial.get_fraction_standard_format(text)),
        bits(imperial.get_inch_num_by_fraction(text)),
        flag(imperial.is_imperial_num(text, False)),
        flag(imperial.is_imperial_num(text, True)),
        flag(imperial.is_a_num(text)),
    )


ATOMS = [
    "10/5\"", "10 /5\"", "10/ 5\"", "5'6 1/2\"", "5' 6 1/2\"", "5'6 1/2", "5' 6 1/2", "5' 1/2\"", "6 1/2\"", "6 1/2", "5'1/2\"", "5'1/2", "5'6/2",
    "5'6/2\"", "3'6\"", "1/2", "1/2/3\"", "2.5'", "2.5' ", "5' ", "5\"", "2", "2.5", "1e5", "1e5'", "5'6 1/0\"", "10/0\"", "10/0", "1234567890123456/5\"",
    "12345678901234567890/5\"", "A", "A5'", "5'A", "5-6", "5-6 3/4", "5mod2", "5'mod3\"", "5MoD 6\"", "2^3'", "(5')", "5'\r6\"", "5'\n", "7'\t6\"",
    "5'6\t1/2\"", "5'  6  1 /2\"", "1 2/3\"", "1 2/3", "1 2 3/4\"", "5'6 1/2 \"", "10/5 \"", "5'/2'", "5'/2\"", "5\"/2\"", "5'6 1.5/2\"", "5.0'6 1/2\"",
    "1./2\"", "9/16\"", "0/1\"", "007/8\"", "\uff15'", "5'\x00", "5'\ud800", "\ud83d\ude005'", "mo", "MOD", "5'6\"mod", "1'+++2'", "..5'", "5..'",
]  # fmt: skip


def arithmetic_text(rng):
    """Imperial and plain numbers between operators, brackets and blanks.

    No token directly behind a point: the number that takes its place would have no visible start.
    Nothing at the end of the double range: whether a product is still inside it depends on its rounding.
    """
    while True:
        text = random_arithmetic(rng)
        if "e308" not in text and not any(start > 0 and text[start - 1] == "." for start, _ in imperial.scan_tokens(text)):
            return text


def random_arithmetic(rng):
    out = ""
    for _ in range(rng.randint(1, 5)):
        chance = rng.random()
        if chance < 0.35:
            piece = rng.choice(ATOMS)
        elif chance < 0.75:
            piece = texts.imperial(rng)
        elif chance < 0.9:
            piece = texts.number(rng)
        else:
            piece = texts.garbage(rng)
        out += piece + rng.choice(["+", "-", "*", "/", "^", ")", "(", " + ", " - ", " / ", "/", "mod", "\r", " ", ""])
    return out


def replace_case(rng):
    text = arithmetic_text(rng)
    mode = rng.choice([0, 0, 0, 1, 2, -1])
    factor = rng.choice([1000.0, 1000.0, 1.0, 1000 / 25.4, 1000 / 304.8, 100.0, 0.001, 1 / 3, -1.0, 0.0])
    return line(
        "replace", escape(text), str(mode), bits(factor), escape(imperial.replace_imperial_numbers(text, mode, factor))
    )


# --- unit parsers ---------------------------------------------------------------------------


def hard_value(rng, unit, scale_index, settings):
    """A stored value near a tie, a carry or a border of the unit's rounding."""
    chance = rng.random()
    if chance < 0.3:
        return random_double(rng)
    scale = get_unit_parser(unit.parser, unit, settings).get_scale(scale_index)
    step = increment_of(unit)
    count = rng.choice([rng.randint(0, 40), rng.randint(0, 10 ** rng.randint(1, 15)), rng.choice([9, 99, 999, 9999, 11, 12, 95, 143, 144])])
    if rng.random() < 0.03:
        count = rng.choice([2**63 - 1, 2**63, 2**63 + 2**11, 2**62, 10**15, 10**15 - 1, 10**18])
    part = rng.choice(
        [Fraction(1, 2), Fraction(1, 2), Fraction(0), Fraction(1, 4), Fraction(499999, 10**6), Fraction(rng.randint(0, 10**6), 10**6)]
        + [Fraction(1, 2) + sign * Fraction(1, 10**power) for sign in (-1, 1) for power in (11, 12, 13, 14)]
    )
    try:
        value = numbers.to_double((count + part) * step) * scale
    except numbers.OracleError:
        return random_double(rng)
    for _ in range(rng.choice([0, 0, 1, 2])):
        value = math.nextafter(value, rng.choice([-1, 1]) * math.inf)
    return -value if rng.random() < 0.3 else value


def increment_of(unit):
    """The rounding step in display units; 1 where there is none."""
    text = unit.round.increment if unit.round else ""
    try:
        parts = [numbers.str_to_exact(part) for part in text.split("/", 1)]
        step = parts[0] / parts[1] if len(parts) == 2 else parts[0]
        return abs(step) or Fraction(1)
    except (numbers.OracleError, ZeroDivisionError):
        return Fraction(1)


def format_case(rng):
    settings = random_units.random_settings(rng)
    unit = random_units.random_unit(rng)
    scale_index = rng.choice(SCALES)
    value = hard_value(rng, unit, scale_index, settings)
    flags = [rng.random() < 0.25 for _ in range(4)]
    append, has = rng.random() < 0.3, rng.random() < 0.5
    project = facade.Project({0: unit}, settings)
    parser = get_unit_parser(unit.parser, unit, settings)
    return line(
        "format",
        unit_field(unit, settings),
        str(scale_index),
        "".join(map(flag, flags)) + flag(append) + flag(has),
        bits(value),
        attempt(lambda: parser.as_string(value, scale_index, *flags), escape),
        attempt(
            lambda: facade.store_to_display_first(project, 0, value, scale_index, append, flags, has),
            lambda result: escape(result[0]) + "|" + flag(result[1]),
        ),
        attempt(lambda: facade.store_to_display_second(project, 0, value, scale_index, append, flags), escape),
    )


def no_measure_case(rng):
    """Measure -1, and a measure that no configuration knows."""
    value = random_double(rng)
    has, append = rng.random() < 0.5, rng.random() < 0.5
    flags = [False] * 4
    project = facade.Project()
    return line(
        "nomeasure",
        bits(value),
        flag(has) + flag(append),
        attempt(
            lambda: facade.store_to_display_first(project, -1, value, -1, append, flags, has),
            lambda result: escape(result[0]) + "|" + flag(result[1]),
        ),
        attempt(lambda: facade.store_to_display_second(project, -1, value, -1, append, flags), escape),
        attempt(lambda: facade.store_to_display_second(project, 77, value, -1, append, flags), escape),
    )


def symbol_dressed(rng, unit, text):
    """The text with one of the unit's symbols behind it, in some letter case."""
    if not unit.symbols or rng.random() < 0.6:
        return text
    symbol = rng.choice(unit.symbols)
    symbol = rng.choice([symbol, symbol.upper(), symbol.lower(), symbol * 2])
    return text + rng.choice(["", " ", "  "]) + symbol


def displayed_text(rng, unit, settings):
    """What the unit itself shows for some value: the text that users edit most."""
    parser = get_unit_parser(unit.parser, unit, settings)
    try:
        flags = [rng.random() < 0.2 for _ in range(4)]
        return parser.as_string(hard_value(rng, unit, -1, settings), -1, *flags)
    except numbers.OracleError:
        return texts.value_text(rng)


def parse_case(rng):
    settings = random_units.random_settings(rng, bad=False)
    unit = random_units.random_unit(rng)
    text = displayed_text(rng, unit, settings) if rng.random() < 0.25 else texts.value_text(rng)
    text = symbol_dressed(rng, unit, text)
    scale_index = rng.choice(SCALES)
    parser = get_unit_parser(unit.parser, unit, settings)
    project = facade.Project({0: unit}, settings)
    return line(
        "parse",
        unit_field(unit, settings),
        str(scale_index),
        escape(text),
        flag(parser.is_valid(text)),
        escape(parser.remove_symbol(text)),
        attempt(lambda: parser.as_double(text, scale_index), bits),
        flag(facade.is_a_num(project, 0, text, False)),
        flag(facade.is_a_num(project, 0, text, True)),
        flag(reads_as_fraction(unit, parser, text)),
    )


def reads_as_fraction(unit, parser, text):
    """Whether the value is a sum of inches rather than one product of doubles."""
    if not is_decimal_imperial(unit.parser) and not is_fractional_class(unit.parser):
        return False
    return not numbers.is_numeric(parser.remove_symbol(text).replace(",", ""))


def symbol_case(rng):
    settings = random_units.random_settings(rng, bad=False)
    unit = random_units.random_unit(rng)
    project = facade.Project({0: unit}, settings)
    command = facade.Command(project, 0)
    value = rng.choice([1.0, -2.5, 0.0, 66.0, 1234.5, rng.uniform(-1e6, 1e6)])
    scale_index = rng.choice(SCALES)
    return line(
        "symbol",
        unit_field(unit, settings),
        str(scale_index),
        bits(value),
        escape(command.unit_symbol(False)),
        escape(command.unit_symbol(True)),
        flag(command.has_unit_symbol()),
        attempt(lambda: facade.decimal_value_to_store(project, 0, value, scale_index), bits),
    )


def expr_to_store_case(rng):
    settings = random_units.random_settings(rng, bad=False)
    unit = random_units.random_unit(rng)
    measure = rng.choice([0, 0, 3, 3, 7, 1, 2])
    text = arithmetic_text(rng) if rng.random() < 0.8 else texts.imperial(rng)
    skip = rng.random() < 0.5
    project = facade.Project({measure: unit}, settings)
    return line(
        "exprstore",
        unit_field(unit, settings),
        str(measure),
        escape(text),
        flag(skip),
        attempt(lambda: facade.expr_to_store(project, measure, text, skip), escape),
    )


def no_parser_case(rng):
    """A unit whose parser class is not registered, and a measure that no configuration knows."""
    settings = random_units.random_settings(rng)
    unit = random_units.random_unit(rng)
    unit.parser = rng.choice(["TFoo", "", "TCommonUnitParser", "TFractionalLengthParser", "TMetreParser ", "TUnit"])
    project = facade.Project({3: unit}, settings)
    measure = rng.choice([3, 3, 77, 0])
    value, text = random_double(rng), texts.value_text(rng)
    append = rng.random() < 0.5
    command = facade.Command(project, measure)
    return line(
        "noparser",
        unit_field(unit, settings),
        str(measure),
        bits(value),
        escape(text),
        flag(append),
        attempt(
            lambda: facade.store_to_display_first(project, measure, value, -1, append, [False] * 4, True),
            lambda result: escape(result[0]) + "|" + flag(result[1]),
        ),
        flag(command.check_display(text)),
        attempt(lambda: command.display_to_store(text, -1), bits),
        attempt(lambda: facade.expr_to_store(project, measure, text, True), escape),
        attempt(lambda: facade.is_a_num(project, measure, text, False), flag),
        attempt(lambda: facade.decimal_value_to_store(project, measure, value, -1), bits),
        escape(command.unit_symbol(False)) + "|" + escape(command.unit_symbol(True)),
    )


FAMILIES = {
    "noparser": no_parser_case,
    "numtext": number_text_case,
    "numval": number_value_case,
    "group": group_case,
    "imperial": imperial_case,
    "replace": replace_case,
    "exprstore": expr_to_store_case,
    "format": format_case,
    "nomeasure": no_measure_case,
    "parse": parse_case,
    "symbol": symbol_case,
}
