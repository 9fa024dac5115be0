"""Imperial length text of the slow second implementation.

Every table entry is tried one by one through a plain regular expression, however slow.
"""

import re
from fractions import Fraction

from number_text import (
    INT64_MAX,
    OracleError,
    exact_of,
    float_to_str,
    is_int64,
    is_numeric,
    lower_ascii,
    str_to_exact,
    to_double,
    trim,
)

FOOT = "'"
INCH = '"'

SIGNS = ["-", "", r"\+"]
SINGLES = [r"\d{1,15}", r"\d{1,15}'", r'\d{1,15}"']
FEET_PARTS = [r"\d{1,15}'", r"\d{1,15}-", ""]
INCH_PARTS = [
    r"\d{1,15}",
    r"\d{1,15}/\d{1,15}",
    r"\d{1,15} \d{1,15}/\d{1,15}",
    r'\d{1,15}"',
    r'\d{1,15}/\d{1,15}"',
    r'\d{1,15} \d{1,15}/\d{1,15}"',
]
ZERO_DENOMINATOR = r"\d+/0"
STANDARD_FORM = r"\d+'\d+ \d+/\d+\"|-\d+'\d+ \d+/\d+\""


def _first_match_is_all(pattern, text):
    match = re.search(pattern, text, re.ASCII)
    return match is not None and lower_ascii(match.group(0)) == lower_ascii(text)


def is_end_with_symbol(text):
    return text.endswith(FOOT) or text.endswith(INCH)


def get_identifiable_form(text):
    doubled = re.sub(r"\s+", "  ", text, flags=re.ASCII)
    between_digits = re.sub(r"(?<=[0-9])  (?=[0-9])", " ", doubled)
    return between_digits.replace("  ", "")


def is_fraction(text):
    s = get_identifiable_form(text)
    if re.search(ZERO_DENOMINATOR, s, re.ASCII):
        return False
    for sign in SIGNS:
        for single in SINGLES:
            if _first_match_is_all(sign + single, s):
                return True
    for sign in SIGNS:
        for feet in FEET_PARTS:
            for inch in INCH_PARTS:
                if feet.endswith("-") and inch.endswith(INCH):
                    continue
                if _first_match_is_all(sign + feet + inch, s):
                    return True
    return False


def is_standard_format(text):
    return _first_match_is_all(STANDARD_FORM, text)


def get_fraction_standard_format(text):
    if is_standard_format(text):
        return text
    sign, feet, inches, numerator, denominator, accumulator = "", "0", "0", "0", "1", ""
    s = get_identifiable_form(text)
    if not is_end_with_symbol(s):
        s += INCH
    if s.startswith("-"):
        sign, s = "-", s[1:]
    elif s.startswith("+"):
        s = s[1:]
    for c in s:
        if c == FOOT or c == "-":
            feet, accumulator = accumulator, ""
        elif c == " ":
            inches, accumulator = accumulator, ""
        elif c == "/":
            numerator, accumulator = accumulator, ""
        elif c == INCH:
            if "/" in s:
                denominator = accumulator
            else:
                inches = accumulator
            accumulator = ""
        else:
            accumulator += c
    return f"{sign}{feet}'{inches} {numerator}/{denominator}\""


def exact_inches(text):
    """The length in inches as a fraction; 0 when the text cannot be read."""
    t = get_fraction_standard_format(text)
    if not is_standard_format(t):
        return Fraction(0)
    negative = t.startswith("-")
    if negative:
        t = t[1:]
    feet, rest = t.split(FOOT, 1)
    inches, rest = rest.split(" ", 1)
    numerator, rest = rest.split("/", 1)
    denominator = rest.split(INCH, 1)[0]
    numbers = [int(part) for part in (feet, inches, numerator, denominator)]
    if any(number > INT64_MAX for number in numbers) or numbers[3] == 0:
        return Fraction(0)
    length = numbers[0] * 12 + numbers[1] + Fraction(numbers[2], numbers[3])
    return -length if negative else length


def get_inch_num_by_fraction(text):
    return to_double(exact_inches(text))


def is_imperial_num(text, exclude_integers):
    if exclude_integers and is_int64(text):
        return False
    if is_fraction(text):
        return True
    if is_end_with_symbol(text):
        return is_numeric(text[:-1])
    return False


def is_a_num(text):
    return is_numeric(text) or is_imperial_num(text, False)


# --- imperial numbers inside an arithmetic text ---------------------------------------------

DELIMITERS = "+-*/^)\r"


def _is_integer(part):
    return is_int64(trim(part))


def _is_integer_with_inch_mark(token):
    t = trim(token)
    return t.endswith(INCH) and _is_integer(t[:-1])


def _is_feet_inches_whole(token):
    """Integer feet, foot mark, integer inches, blank, whole number: 5'6 1 or 5' 6 1."""
    t = trim(token)
    if FOOT not in t or " " not in t:
        return False
    feet, rest = t.split(FOOT, 1)
    if " " not in rest:
        return False
    inches, whole = rest.rsplit(" ", 1)
    return _is_integer(feet) and _is_integer(inches) and _is_integer(whole)


def _joins(last, new):
    """Whether new is the denominator of the fraction that begins at the end of last."""
    if _is_feet_inches_whole(last) and (_is_integer(new) or _is_integer_with_inch_mark(new)):
        return True
    if not _is_integer_with_inch_mark(new):
        return False
    if _is_integer(last):
        return True
    # Feet or inches missing: the joined text must be an imperial number.
    return is_imperial_num(trim(last) + "/" + trim(new), False)


def scan_tokens(text):
    """The recorded (start, token) pairs of an arithmetic text."""
    work = re.sub("[mM][oO][dD]", "+++", text + "+")
    tokens = []
    current, start, inside, slash = "", 0, False, False
    for position, c in enumerate(work):
        if not inside:
            if c not in "0123456789":
                inside = slash = False
                continue
            inside, current, start = True, c, position
            continue
        if c not in DELIMITERS:
            current += c
            continue
        if slash and tokens and _joins(tokens[-1][1], current):
            tokens[-1] = (tokens[-1][0], tokens[-1][1] + "/" + current)
            inside = slash = False
        else:
            tokens.append((start, current))
            inside = False
            slash = c == "/"
        current = ""
    return tokens


def _is_left_alone(token):
    return is_numeric(token) or is_numeric(token.replace("/", "").replace(".", ""))


def _exact_feet(token):
    if is_end_with_symbol(token) and is_numeric(token[:-1]):
        value = str_to_exact(token[:-1])
        return value / 12 if token.endswith(INCH) else value
    return exact_inches(token) / 12


def replace_imperial_numbers(text, mode, factor):
    result, grown = text, 0
    for start, token in scan_tokens(text):
        if _is_left_alone(token) or not is_imperial_num(token, False):
            continue
        value = _exact_feet(token)
        if mode != 2:
            value = value * 12 * Fraction("25.4") / 1000
        try:
            converted = value * exact_of(factor)
            to_double(converted)
        except OracleError:
            continue  # beyond the double range: not a number, so nothing takes its place
        written = float_to_str(converted)
        at = start + grown
        result = result[:at] + written + result[at + len(token) :]
        grown += len(written) - len(token)
    return result


