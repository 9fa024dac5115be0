"""Errors: their classes, messages and details; each thread has its own."""

import threading

import pytest

import unitlib
from unitlib import Code, errors


def test_nothing_loaded(units):
    units.free()
    with pytest.raises(errors.NotLoadedError) as caught:
        units.format_value(Code.LENGTH, 1)
    assert caught.value.status == 6
    assert isinstance(caught.value, RuntimeError)
    assert isinstance(caught.value, unitlib.UnitError)


def test_a_missing_file(units, tmp_path):
    path = tmp_path / "nothing.xml"
    with pytest.raises(OSError) as caught:
        units.load(path)
    assert caught.value.path == str(path)
    assert str(path) in str(caught.value)


def test_a_wrong_file(units, tmp_path):
    path = tmp_path / "wrong.xml"
    path.write_text('<Unit>\n <TemplateConfig CurConfigIndex="x"/>\n <DigitGroup CurDigitGroupIndex="0"/>\n</Unit>\n')
    with pytest.raises(errors.SettingsContentError) as caught:
        units.load(path)
    assert caught.value.line == 2
    assert caught.value.text == "x"
    assert "CurConfigIndex" in str(caught.value)


def test_a_wrong_expression(units):
    with pytest.raises(errors.ExpressionError) as caught:
        units.evaluate("7+A")
    assert str(caught.value) == '"A" is a name, not a number'
    assert caught.value.position == 2
    with pytest.raises(errors.ExpressionError) as caught:
        units.evaluate("\U0001d7d9+A")  # two units of UTF-16, one character of Python
    assert caught.value.position in (0, 2)


def test_an_unknown_measure(units):
    with pytest.raises(IndexError) as caught:
        units.format_value(99, 1)
    assert str(caught.value) == "There is no measure with classify code 99"


def test_unknown_flags(units):
    with pytest.raises(errors.ArgumentError):
        units.format_value(Code.LENGTH, 1, flags=32)


def test_every_thread_has_its_own(units):
    seen = {}

    def fail(code):
        for _ in range(200):
            with pytest.raises(errors.PositionError) as caught:
                units.format_value(code, 1)
            seen.setdefault(code, set()).add(str(caught.value))

    threads = [threading.Thread(target=fail, args=(code,)) for code in range(100, 108)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert seen == {code: {f"There is no measure with classify code {code}"} for code in range(100, 108)}


def test_every_status_has_a_class():
    assert {errors.error_of(status) for status in range(3, 14)} == {
        errors.NotFoundError, errors.ArgumentError, errors.NotLoadedError, errors.PositionError, errors.ConvertError,
        errors.NumberRangeError, errors.SettingsFileError, errors.SettingsContentError, errors.ExpressionError,
        errors.NotAvailableError}
    assert errors.error_of(14) is unitlib.UnitError
