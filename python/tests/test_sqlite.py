"""unit_display and unit_store in SQL."""

import sqlite3

import pytest

import unitlib.sqlite
from unitlib import errors


@pytest.fixture
def connection(units):
    with sqlite3.connect(":memory:") as opened:
        unitlib.sqlite.register(opened)
        yield opened
    opened.close()


def one(connection, statement, *arguments):
    return connection.execute(statement, arguments).fetchone()[0]


def test_display(connection):
    assert one(connection, "SELECT unit_display(0, 1689.1)") == "5' 6 1/2\""
    assert one(connection, "SELECT unit_display(7, 3.048, 3)") == "10.000"
    assert one(connection, "SELECT unit_display(0, 0)") == "0' 0\""


def test_store(connection):
    assert one(connection, "SELECT unit_store(0, ?)", "5'6 1/2\"") == 1689.1
    assert one(connection, "SELECT unit_store(7, 10, 3)") == 3.048
    assert one(connection, "SELECT sum(unit_store(0, t)) FROM (SELECT '1''' AS t UNION ALL SELECT '2''')") == (
        pytest.approx(914.4, rel=1e-15))


def test_null_stays_null(connection):
    assert one(connection, "SELECT unit_display(0, NULL)") is None
    assert one(connection, "SELECT unit_store(0, NULL)") is None


def test_a_wrong_text_fails_the_statement(units):
    told = []
    with sqlite3.connect(":memory:") as opened:
        unitlib.sqlite.register(opened, told.append)
        opened.execute("CREATE TABLE takeoff(length REAL)")
        with pytest.raises(sqlite3.OperationalError):
            opened.execute("INSERT INTO takeoff SELECT unit_store(0, t) FROM (SELECT '1''' AS t UNION ALL SELECT 'abc')")
        assert one(opened, "SELECT count(*) FROM takeoff") == 0
    assert [type(problem) for problem in told] == [errors.ConvertError]
    assert str(told[0]) == '"abc" is not a value of measure 0'
    opened.close()


def test_settings_are_read_at_each_row(units, connection):
    assert one(connection, "SELECT unit_display(1, 92903.04)") == "1.000"
    units.measure(1).unit = "Square meters"
    assert one(connection, "SELECT unit_display(1, 92903.04)") == "0.093"
