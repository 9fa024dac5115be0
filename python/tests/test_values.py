"""Single values: format, parse, evaluate, elevations."""

import math

import pytest

from unitlib import Code, Evaluation, Flag, errors

SQUARE_FOOT = 92903.04  # mm2, exact


@pytest.mark.parametrize(
    ("measure", "value", "flags", "text"),
    [
        (Code.LENGTH, 1689.1, 0, "5' 6 1/2\""),
        (Code.LENGTH, -304.8, 0, "-1' 0\""),
        (Code.AREA, 1234567.5 * SQUARE_FOOT, 0, "1,234,567.500"),
        (Code.AREA, 1234567.5 * SQUARE_FOOT, Flag.NO_DIGIT_GROUP, "1234567.500"),
        (Code.AREA, SQUARE_FOOT, Flag.APPEND_SYMBOL | Flag.NO_PLUS_SIGN, "1.000 SF"),
        (-1, 1.125, 0, "1.12500"),
    ],
)
def test_format(units, measure, value, flags, text):
    assert units.format_value(measure, value, flags=flags) == text


def test_scale(units):
    assert units.format_value(Code.RESULT_LENGTH, 3.048, scale=3) == "10.000"
    assert units.parse_value(Code.RESULT_LENGTH, "10", scale=3) == 3.048


def test_parse(units):
    assert units.parse_value(Code.LENGTH, "5'6 1/2\"") == 1689.1
    assert units.parse_value(Code.AREA, "1,234.5 SF") == 1234.5 * SQUARE_FOOT


@pytest.mark.parametrize("text", ["", "abc", "5''6", "2.5", "\ud800"])
def test_a_text_that_is_no_value_raises(units, text):
    with pytest.raises(ValueError):
        units.parse_value(Code.LENGTH, text)


def test_can_parse(units):
    assert units.can_parse(Code.LENGTH, "5'6")
    assert not units.can_parse(Code.LENGTH, "abc")


def test_symbol(units):
    assert units.unit_symbol(Code.AREA) == "SF"
    assert units.unit_symbol(Code.LENGTH) == "FT-IN"
    assert units.unit_symbol(Code.LENGTH, empty_for_feet_inch=True) == ""


def test_evaluate(units):
    assert units.evaluate("2*(3+4)") == Evaluation(14.0, False)
    assert units.evaluate("5'6\"*2") == Evaluation(3.3528, True)


def test_evaluate_expression(units):
    assert units.evaluate_expression(Code.RESULT_LENGTH, "5'6\"+2") == 2286.0
    assert units.evaluate_expression(Code.RESULT_LENGTH, "5'6\"+2", scale=3) == pytest.approx(2.286, rel=1e-15)


def test_elevations(units):
    assert units.elevation_store("L1+5'6\"") == "L1+1.6764"
    assert units.elevation_edit("1.6764") == "5' 6\""
    assert units.elevation_display("1.6764") == "5' 6\""
    assert units.check_elevation("L1+5'6\"")
    assert not units.check_elevation("A+B")


def test_long_texts_come_back_whole(units):
    name = "L" * 5000
    assert units.elevation_store(name) == name


@pytest.mark.parametrize("value", [math.nan, math.inf, -math.inf])
def test_a_number_that_is_not_finite_raises(units, value):
    with pytest.raises(errors.NumberRangeError):
        units.format_value(Code.AREA, value)
