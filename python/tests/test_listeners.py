"""Listeners, and the dialog of a library without one."""

import pytest

from unitlib import Code, _library, errors


@pytest.fixture
def log(units):
    entries = []
    attached = []

    def attach(attach_function, detach_function, listener):
        attach_function(listener)
        attached.append((detach_function, listener))

    yield entries, attach
    for detach_function, listener in attached:
        detach_function(listener)


def test_called_in_order_and_once(units, log):
    entries, attach = log

    def first():
        entries.append("first")

    def second():
        entries.append(units.format_value(Code.LENGTH, 304.8))

    attach(units.attach_refresh_unit, units.detach_refresh_unit, first)
    attach(units.attach_refresh_unit, units.detach_refresh_unit, second)
    units.attach_refresh_unit(first)
    units.refresh_unit()
    assert entries == ["first", "1' 0\""]
    units.detach_refresh_unit(first)
    units.detach_refresh_unit(first)
    units.refresh_unit()
    assert entries == ["first", "1' 0\"", "1' 0\""]


def test_before_and_after(units, log):
    entries, attach = log
    attach(units.attach_before_unit_change, units.detach_before_unit_change, lambda: entries.append("before"))
    attach(units.attach_refresh_unit, units.detach_refresh_unit, lambda: entries.append("after"))
    units.refresh_before_unit_change()
    assert entries == ["before"]
    units.refresh_unit()
    assert entries == ["before", "after"]


def test_an_exception_of_a_listener_comes_out(units, log):
    entries, attach = log

    def fail():
        raise KeyError("from a listener")

    attach(units.attach_refresh_unit, units.detach_refresh_unit, fail)
    attach(units.attach_refresh_unit, units.detach_refresh_unit, lambda: entries.append("called all the same"))
    with pytest.raises(KeyError, match="from a listener"):
        units.refresh_unit()
    assert entries == ["called all the same"]
    units.detach_refresh_unit(fail)
    units.refresh_unit()


def test_dialog_without_dialogs(units, tmp_path):
    if _library.int_of("ul_dialogs_available"):
        pytest.fail("these tests run against the library without dialogs")
    with pytest.raises(errors.NotAvailableError):
        units.project_units_dialog(tmp_path / "UnitConfig.xml", on_ok=lambda: None, lock_file=lambda path, lock: None)
