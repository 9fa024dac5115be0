"""The examples as they are run, and the code of the documentation."""

import csv
import doctest
import os
import pathlib
import sqlite3
import subprocess
import sys

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "examples" / "python"
SHOWN = ["14' 3\"", "1,000.000", "10.000", "1,000.000", "", "9' 0\""]
SHOWN_WITH_SYMBOLS = ["14' 3\"", "1,000.000 SF", "10.000 CY", "1,000.000 lb", "", "9' 0\""]


@pytest.fixture
def settings(units, tmp_path):
    return str(tmp_path / "UnitConfig.xml")


def run(script, *arguments):
    path = os.pathsep.join(filter(None, [str(ROOT / "python"), os.environ.get("PYTHONPATH")]))
    return subprocess.run([sys.executable, EXAMPLES / script, *arguments], capture_output=True, encoding="utf-8",
                          check=False, env={**os.environ, "PYTHONPATH": path, "PYTHONIOENCODING": "utf-8"})


def test_csv(settings, tmp_path):
    target = tmp_path / "shown.csv"
    outcome = run("csv_display.py", EXAMPLES / "takeoff.csv", target, "--settings", settings)
    assert outcome.returncode == 0, outcome.stderr
    with open(target, newline="", encoding="utf-8") as file:
        rows = list(csv.DictReader(file))
    assert list(rows[0]) == ["element", "measure", "value", "display"]
    assert [row["display"] for row in rows] == SHOWN_WITH_SYMBOLS


def test_csv_in_metres(settings, tmp_path):
    target = tmp_path / "shown.csv"
    run("csv_display.py", EXAMPLES / "takeoff.csv", target, "--settings", settings, "--config", "Standard Metric System")
    with open(target, newline="", encoding="utf-8") as file:
        assert next(csv.DictReader(file))["display"] == "4343 mm"


@pytest.fixture
def database(tmp_path):
    path = tmp_path / "project.db"
    connection = sqlite3.connect(path)
    with open(EXAMPLES / "takeoff.csv", newline="", encoding="utf-8") as file, connection:
        connection.execute("CREATE TABLE takeoff(element TEXT, measure INTEGER, value REAL)")
        rows = [(row["element"], row["measure"], row["value"] or None) for row in csv.DictReader(file)]
        connection.executemany("INSERT INTO takeoff VALUES (?, ?, ?)", rows)
    connection.close()
    return path


def column(database, name):
    connection = sqlite3.connect(database)
    found = [row[0] for row in connection.execute(f"SELECT {name} FROM takeoff")]
    connection.close()
    return found


def test_sqlite(settings, database):
    outcome = run("sqlite_display.py", database, "takeoff", "--settings", settings)
    assert outcome.returncode == 0, outcome.stderr
    assert [text or "" for text in column(database, "display")] == SHOWN
    assert "Wall W1 length: 14' 3\"" in outcome.stdout


def test_sqlite_takes_a_typed_quantity(settings, database):
    run("sqlite_display.py", database, "takeoff", "--settings", settings, "--set", "Wall W1 length", "15'6\"")
    assert column(database, "value")[0] == pytest.approx(4724.4, rel=1e-15)
    assert column(database, "display")[0] == "15' 6\""


def test_sqlite_refuses_a_wrong_quantity_and_changes_nothing(settings, database):
    outcome = run("sqlite_display.py", database, "takeoff", "--settings", settings, "--set", "Wall W1 length", "wide")
    assert outcome.returncode != 0
    assert '"wide" is not a value of measure 0' in outcome.stderr
    assert column(database, "value")[0] == 4343.4


def test_the_documentation(tmp_path, monkeypatch):
    """Every >>> of the page gives what the page says."""
    monkeypatch.chdir(tmp_path)
    outcome = doctest.testfile(str(ROOT / "docs" / "python.md"), module_relative=False, encoding="utf-8")
    assert outcome.attempted > 20
    assert outcome.failed == 0
