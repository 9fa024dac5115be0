"""Number text of the slow second implementation: reading, testing and writing numbers.

Everything here is exact (integers and fractions) until the one rounding that the result needs.
"""

import decimal
import math
import re
from fractions import Fraction

INT64_MIN = -(2**63)
INT64_MAX = 2**63 - 1

# Numbers of any length must stay readable; the interpreter's own limit is about hostile input.
import sys

if hasattr(sys, "set_int_max_str_digits"):
    sys.set_int_max_str_digits(0)


class OracleError(Exception):
    """A refusal of the library: kind is 'list', 'convert', 'range' or 'any' (which one is free)."""

    def __init__(self, kind, text=""):
        super().__init__(f"{kind}: {text}")
        self.kind = kind
        self.text = text


_NUMBER = re.compile(r" *([+-]?(?:[0-9]+(?:\.[0-9]*)?|\.[0-9]+)(?:[eE][+-]?[0-9]+)?) *", re.ASCII)
_INT64 = re.compile(r" *([+-]?[0-9]+)", re.ASCII)


def number_body(text):
    """The number inside a number text without the blanks around it; None when it is none."""
    match = _NUMBER.fullmatch(text)
    if match is None or math.isinf(float(match.group(1))):
        return None
    return match.group(1)


def is_numeric(text):
    return number_body(text) is not None


def is_int64(text):
    match = _INT64.fullmatch(text)
    return match is not None and INT64_MIN <= int(match.group(1)) <= INT64_MAX


def str_to_float(text):
    """The nearest double; raises 'convert' when the text is no number."""
    body = number_body(text)
    if body is None:
        raise OracleError("convert", text)
    return float(body)


def str_to_exact(text):
    """The exact value of a number text; what is below the smallest double counts as 0."""
    body = number_body(text)
    if body is None:
        raise OracleError("convert", text)
    if float(body) == 0.0:
        return Fraction(0)
    return Fraction(body)


def is_exact_zero_text(text):
    """True when every digit before the exponent is 0 ("0", "-0.00", "0e5")."""
    mantissa = re.split("[eE]", number_body(text))[0]
    return all(c not in "123456789" for c in mantissa)


def to_double(exact):
    """The nearest double of an exact value; raises 'range' beyond the double range."""
    try:
        return exact.numerator / exact.denominator
    except OverflowError:
        raise OracleError("range") from None


def exact_of(value):
    """Exact value of a double or of an already exact value; raises 'range' for NaN, infinities."""
    if isinstance(value, float):
        if math.isnan(value) or math.isinf(value):
            raise OracleError("range", repr(value))
        return Fraction(value)
    return Fraction(value)


def _fifteen_digits(exact):
    """(negative, digits without trailing zeros, exponent): value = 0.d1d2d3... * 10^exponent."""
    # Python integers, no library rounding: scale to 15 digits, look at what is left over.
    negative = exact < 0
    exact = abs(exact)
    exponent = len(str(exact.numerator)) - len(str(exact.denominator)) + 1
    while exact < Fraction(10) ** (exponent - 1):
        exponent -= 1
    scaled = exact * Fraction(10) ** (15 - exponent)
    whole, rest = divmod(scaled.numerator, scaled.denominator)
    twice = 2 * rest
    if twice > scaled.denominator or (twice == scaled.denominator and whole % 2 == 1):
        whole += 1
    if whole == 10**15:
        whole //= 10
        exponent += 1
    return negative, str(whole).rstrip("0"), exponent


def float_to_str(value):
    """General text: 15 significant digits, exponent form outside 0.00001 .. 999999999999999."""
    exact = exact_of(value)
    if exact == 0:
        return "0"
    negative, digits, exponent = _fifteen_digits(exact)
    sign = "-" if negative else ""
    if exponent > 15 or exponent < -4:
        mantissa = digits[0] + ("." + digits[1:] if len(digits) > 1 else "")
        return f"{sign}{mantissa}E{exponent - 1}"
    return sign + _place_point(digits, exponent)


def float_to_plain_str(value):
    """The same 15 digits, never with an exponent."""
    text = float_to_str(value).upper()
    if "E" not in text:
        return text
    mantissa, exponent = text.split("E")
    sign = ""
    if mantissa.startswith("-"):
        sign, mantissa = "-", mantissa[1:]
    digits = mantissa.replace(".", "")
    return sign + _place_point(digits, int(exponent) + 1)


def _place_point(digits, exponent):
    """Fixed form of 0.digits * 10^exponent."""
    if exponent <= 0:
        return "0." + "0" * -exponent + digits
    if len(digits) <= exponent:
        return digits + "0" * (exponent - len(digits))
    return digits[:exponent] + "." + digits[exponent:]


def five_decimals(value):
    """Five digits behind the point, the exact double rounded half to even."""
    exact_of(value)
    with decimal.localcontext() as context:
        context.prec = 1000
        return str(decimal.Decimal(value).quantize(decimal.Decimal("0.00001"), rounding=decimal.ROUND_HALF_EVEN))


_HALF_WITHIN = Fraction(1, 2) - Fraction(1, 10**12)


def round_classic(exact):
    """Halves away from zero; what lies within 1e-12 of a half counts as the half.

    Raises 'range' when the whole number does not fit 64 bits.
    """
    magnitude = abs(exact)
    whole = magnitude.numerator // magnitude.denominator
    if magnitude - whole >= _HALF_WITHIN:
        whole += 1
    if whole > INT64_MAX:
        raise OracleError("range")
    return -whole if exact < 0 else whole


def truncate_int64(exact):
    """Towards zero; raises 'range' when it does not fit 64 bits."""
    whole = abs(exact).numerator // abs(exact).denominator
    whole = -whole if exact < 0 else whole
    if not INT64_MIN <= whole <= INT64_MAX:
        raise OracleError("range")
    return whole


def trim(text):
    """Without everything up to the blank (U+0020) at both ends."""
    start, end = 0, len(text)
    while start < end and ord(text[start]) <= 0x20:
        start += 1
    while end > start and ord(text[end - 1]) <= 0x20:
        end -= 1
    return text[start:end]


def lower_ascii(text):
    """Letters A to Z in lower case, everything else as it is."""
    return "".join(chr(ord(c) + 32) if "A" <= c <= "Z" else c for c in text)
