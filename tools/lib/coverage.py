#!/usr/bin/env python3
"""Judges what gcovr measured: lines and branches of the core by folder, and every line that no test runs.

Usage: coverage.py GCOVR_JSON EXPLAINED LEAST_PERCENT

EXPLAINED holds rows "file | the line's text | why no test runs it", each for one line. A line that no test runs and no
row explains is an error, and so is a row that no longer fits. Exit code 1 on an error or below LEAST_PERCENT of lines.
"""
import collections
import json
import sys
from pathlib import Path

Root = Path(__file__).resolve().parents[2]


def read_explained(path: str) -> collections.Counter[tuple[str, str]]:
    rows = collections.Counter()
    for number, line in enumerate(Path(path).read_text().splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        parts = [part.strip() for part in line.split(" | ", 2)]
        if len(parts) != 3:
            sys.exit(f"{path}:{number}: not of the form file | line | reason")
        rows[parts[0], parts[1]] += 1
    return rows


def folder_of(name: str) -> str:
    return "/".join(name.split("/")[:2]) if name.count("/") > 1 else "unitlib"


def main() -> int:
    measured, explained, least = json.loads(Path(sys.argv[1]).read_text()), read_explained(sys.argv[2]), float(sys.argv[3])
    lines, branches = collections.defaultdict(lambda: [0, 0]), collections.defaultdict(lambda: [0, 0])
    unexplained, explanations = [], explained.total()
    for file in measured["files"]:
        name, text = file["file"], (Root / file["file"]).read_text().splitlines()
        by_number = collections.defaultdict(int)
        ways = collections.defaultdict(int)
        for line in file["lines"]:
            if line.get("gcovr/noncode") or line.get("gcovr/excluded"):
                continue
            by_number[line["line_number"]] += line["count"]
            for index, branch in enumerate(line.get("branches", [])):
                if not branch.get("throw"):
                    ways[line["line_number"], index] += branch["count"]
        for number, count in sorted(by_number.items()):
            for key in (folder_of(name), "all"):
                lines[key][0] += count > 0
                lines[key][1] += 1
            if count == 0:
                code = text[number - 1].strip()
                if explained[name, code] > 0:
                    explained[name, code] -= 1
                else:
                    unexplained.append(f"{name}:{number}: {code}")
        for count in ways.values():
            for key in (folder_of(name), "all"):
                branches[key][0] += count > 0
                branches[key][1] += 1
    print(f"{'folder':20} {'lines':>16} {'branches':>18}")
    for key in sorted(lines, key=lambda k: (k == "all", k)):
        cells = [f"{100 * hit / total:6.2f} % {hit}/{total}" if total else "-" for hit, total in (lines[key], branches[key])]
        print(f"{key:20} {cells[0]:>20} {cells[1]:>20}")
    stale = [f"{name} | {code}" for name, code in explained.elements()]
    for title, rows in (("No test runs", unexplained), ("Explained, but a test runs it or it is gone", stale)):
        if rows:
            print(f"\n{title}:\n  " + "\n  ".join(rows))
    print(f"{explanations} lines that no test runs have their reason in {Path(sys.argv[2]).name}")
    percent = 100 * lines["all"][0] / max(1, lines["all"][1])
    if percent < least:
        print(f"\n{percent:.2f} % of lines, at least {least} are wanted")
    return 1 if unexplained or stale or percent < least else 0


if __name__ == "__main__":
    sys.exit(main())
