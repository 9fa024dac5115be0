"""Columns: one call of the library each, and the same results as single values."""

import random

import pytest

from unitlib import Code, Evaluation, _library, errors


@pytest.fixture
def calls(monkeypatch):
    """Names of the C functions called from here on."""
    names = []
    loaded = _library.library()

    class Counting:
        def __getattr__(self, name):
            names.append(name)
            return getattr(loaded, name)

    monkeypatch.setattr(_library, "_library", Counting())
    return names


def test_one_call_per_column(units, calls):
    texts = units.format_values(Code.LENGTH, [304.8 * feet for feet in range(1000)])
    assert calls == ["ul_store_to_display_column_u8"]
    assert texts[999] == "999' 0\""
    calls.clear()
    values = units.parse_values(Code.LENGTH, texts)
    assert calls == ["ul_display_to_store_column_u8"]
    assert values[999] == pytest.approx(999 * 304.8, rel=1e-15)
    calls.clear()
    assert units.evaluate_values(["1+1"] * 500) == [Evaluation(2.0, False)] * 500
    assert units.evaluate_expressions(Code.AREA, ["1+1"] * 500, scale=4) == [pytest.approx(0.18580608)] * 500
    assert calls == ["ul_evaluate_column_u8", "ul_expression_to_store_column_u8"]


def test_equal_to_single_values(units):
    rng = random.Random(20240607)
    values = [rng.uniform(-1e7, 1e7) for _ in range(500)]
    for code in (Code.LENGTH, Code.AREA, Code.MASS):
        texts = units.format_values(code, values)
        assert texts == [units.format_value(code, value) for value in values]
        assert units.parse_values(code, texts) == [units.parse_value(code, text) for text in texts]


def test_none_stays_none(units):
    assert units.format_values(Code.LENGTH, [None, 304.8, None]) == [None, "1' 0\"", None]
    assert units.parse_values(Code.LENGTH, ["1'", None]) == [304.8, None]
    assert units.evaluate_values([None, "2*3"]) == [None, Evaluation(6.0, False)]
    assert units.format_values(Code.LENGTH, [None]) == [None]


def test_empty_columns(units):
    assert units.format_values(Code.LENGTH, []) == []
    assert units.parse_values(Code.LENGTH, []) == []
    assert units.evaluate_values([]) == []


def test_any_iterable(units):
    assert units.format_values(Code.LENGTH, (304.8 * feet for feet in (1, 2))) == ["1' 0\"", "2' 0\""]
    assert units.parse_values(Code.LENGTH, iter(("1'", "2'"))) == [304.8, 609.6]


def test_the_first_failure_raises_with_its_place(units):
    with pytest.raises(errors.ConvertError) as caught:
        units.parse_values(Code.LENGTH, ["1'", None, "abc", "def"])
    assert caught.value.item == 2
    assert caught.value.text == "abc"
    assert str(caught.value) == '"abc" is not a value of measure 0'


def test_failures_may_become_none(units):
    assert units.parse_values(Code.LENGTH, ["1'", "abc", None, "2'"], errors="none") == [304.8, None, None, 609.6]
    assert units.format_values(Code.AREA, [float("nan"), 0.0], errors="none") == [None, "0.000"]
    assert units.evaluate_values(["1/0", "A", "4/2"], errors="none") == [None, None, Evaluation(2.0, False)]
    assert units.evaluate_expressions(Code.LENGTH, ["1+", "1'"], errors="none") == [
        None, pytest.approx(304.8, rel=1e-15)]


def test_an_unknown_measure_raises_whatever_is_asked(units):
    for mode in ("raise", "none"):
        with pytest.raises(errors.PositionError):
            units.parse_values(99, ["1"], errors=mode)


def test_wrong_arguments(units):
    with pytest.raises(ValueError):
        units.parse_values(Code.LENGTH, ["1'"], errors="ignore")
    with pytest.raises(TypeError):
        units.format_values(Code.LENGTH, ["304.8"])
    with pytest.raises(AttributeError):
        units.parse_values(Code.LENGTH, [304.8])


def test_texts_beyond_ascii(units, tmp_path):
    content = (tmp_path / "UnitConfig.xml").read_text(encoding="utf-8")
    (tmp_path / "own.xml").write_text(content.replace('Description="SF"', 'Description="pieds carrés"'), encoding="utf-8")
    units.load(tmp_path / "own.xml")
    units.measure(Code.AREA).unit.symbol = "pieds carrés"
    assert units.format_values(Code.AREA, [92903.04, None, 0]) == ["1.000 pieds carrés", None, "0.000 pieds carrés"]
    assert units.parse_values(Code.AREA, ["2 pieds carrés", "１"], errors="none") == [185806.08, None]


def test_a_column_wider_than_expected(units, calls):
    """Texts longer than the first buffer: the column is converted once more, into one that fits."""
    units.format_value(Code.VOLUME, 1.0)
    units.measure(Code.VOLUME).unit.round.increment = "0." + "0" * 59 + "1"
    calls.clear()
    texts = units.format_values(Code.VOLUME, [0.0] * 50)
    assert texts == ["0." + "0" * 60] * 50
    assert calls == ["ul_store_to_display_column_u8"] * 2
