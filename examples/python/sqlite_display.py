"""Adds a column with the displayed quantity to a table of an SQLite database, by the SQL function unit_display.

    sqlite_display.py project.db takeoff --settings UnitConfig.xml --config "US Imperial System"
    sqlite_display.py project.db takeoff --settings UnitConfig.xml --set "Wall W1 length" "15'"

The table has the columns "element", "measure" (classify code) and "value" (stored value). --set reads a typed quantity
by unit_store and stores it.
"""

import argparse
import contextlib
import sqlite3
import sys

import unitlib
import unitlib.sqlite


def quoted(name):
    return '"' + name.replace('"', '""') + '"'


def set_value(connection, table, element, text):
    changed = connection.execute(
        f"UPDATE {quoted(table)} SET value = unit_store(measure, ?) WHERE element = ?", (text, element))
    if changed.rowcount != 1:
        raise LookupError(f"{changed.rowcount} rows have the element {element!r}")


def add_display(connection, table):
    known = [column[1] for column in connection.execute(f"PRAGMA table_info({quoted(table)})")]
    if "display" not in known:
        connection.execute(f"ALTER TABLE {quoted(table)} ADD COLUMN display TEXT")
    connection.execute(f"UPDATE {quoted(table)} SET display = unit_display(measure, value)")


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("database")
    options.add_argument("table")
    options.add_argument("--settings", required=True)
    options.add_argument("--config", default="US Imperial System")
    options.add_argument("--set", nargs=2, metavar=("ELEMENT", "QUANTITY"))
    given = options.parse_args()

    unitlib.load_report(given.settings)
    unitlib.use_config(given.config)
    with contextlib.closing(sqlite3.connect(given.database)) as connection:
        unitlib.sqlite.register(connection, report=lambda problem: print(problem, file=sys.stderr))
        with connection:  # all rows or none
            if given.set:
                set_value(connection, given.table, *given.set)
            add_display(connection, given.table)
        for element, display in connection.execute(f"SELECT element, display FROM {quoted(given.table)}"):
            print(f"{element}: {display or ''}")


if __name__ == "__main__":
    main()
