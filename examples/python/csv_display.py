"""Adds a column with the displayed quantity to a CSV file of stored values.

    csv_display.py takeoff.csv shown.csv --settings UnitConfig.xml --config "US Imperial System"

The file has a column "measure" (classify code) and one "value" (stored value, may be empty). One call of the library
converts all the values of a measure, however many rows there are.
"""

import argparse
import csv
from collections import defaultdict

import unitlib


def display_column(rows):
    """The displayed text of every row."""
    by_measure = defaultdict(list)
    for place, row in enumerate(rows):
        by_measure[int(row["measure"])].append(place)
    shown = [""] * len(rows)
    for measure, places in by_measure.items():
        values = [float(rows[place]["value"]) if rows[place]["value"] else None for place in places]
        texts = unitlib.format_values(measure, values, flags=unitlib.Flag.APPEND_SYMBOL)
        for place, text in zip(places, texts):
            shown[place] = text or ""
    return shown


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("source")
    options.add_argument("target")
    options.add_argument("--settings", required=True)
    options.add_argument("--config", default="US Imperial System")
    given = options.parse_args()

    unitlib.load_report(given.settings)
    unitlib.use_config(given.config)
    with open(given.source, newline="", encoding="utf-8") as file:
        reader = csv.DictReader(file)
        rows, fields = list(reader), list(reader.fieldnames or [])
    for row, text in zip(rows, display_column(rows)):
        row["display"] = text
    with open(given.target, "w", newline="", encoding="utf-8") as file:
        writer = csv.DictWriter(file, [*fields, "display"], lineterminator="\n")
        writer.writeheader()
        writer.writerows(rows)


if __name__ == "__main__":
    main()
