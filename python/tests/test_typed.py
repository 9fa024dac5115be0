"""Texts as people type them."""

import pytest

from unitlib import Code, TypedFlag, TypedProblem, errors


@pytest.mark.parametrize(
    ("text", "flags", "value"),
    [
        ("10'-6\"", 0, 3200.4),
        ("2.5 m", 0, 2500.0),
        ("½\"", 0, 12.7),
        ("-5'6\"", 0, -1676.4),
        ("2,5 m", TypedFlag.DECIMAL_COMMA, 2500.0),
        ("12 Zoll", TypedFlag.GERMAN, 304.8),
        ("2 * (3')", TypedFlag.EXPRESSION, 1828.8),
    ],
)
def test_read(units, text, flags, value):
    reading = units.read_typed(Code.LENGTH, text, flags=flags)
    assert reading.accepted
    assert reading.value == pytest.approx(value, rel=1e-12)
    assert reading.position == -1


def test_words_and_steps(units):
    reading = units.read_typed(Code.LENGTH, "10'-6 1/2\"")
    assert reading.understood == "10 feet 6 1/2 inches, dash read as a separator"
    assert reading.rewritten == "10'6 1/2\""
    assert ("fraction", "1/2") in reading.steps


def test_scale(units):
    assert units.read_typed(Code.LENGTH, "2.5 m", scale=3).value == 2.5


def test_refused(units):
    reading = units.read_typed(Code.LENGTH, "½+5-6", flags=TypedFlag.EXPRESSION)
    assert not reading.accepted
    assert reading.value is None
    assert reading.problem == TypedProblem.AMBIGUOUS
    assert reading.position == 3
    assert reading.reason


def test_name(units):
    reading = units.read_typed(Code.ELEVATION, "L1 - (-5' 6 1/2\")", flags=TypedFlag.EXPRESSION)
    assert reading.accepted
    assert reading.value is None
    assert units.elevation_store(reading.rewritten) == "L1+1.6891"


def test_bad_arguments(units):
    with pytest.raises(errors.ArgumentError):
        units.read_typed(Code.LENGTH, "1", flags=4)
    with pytest.raises(IndexError):
        units.read_typed(42, "1")
