"""Puts the measurements together: one table on the screen, one JSON file, and on demand the page of the last table.

report.py TIMES.json COUNTS.txt CALLGRIND_FOLDER FILES.json OUT.json [PAGE.md]
"""
import json
import os
import re
import statistics
import subprocess
import sys

from counts import read_counts

# Operation as the rows name it -> what it may cost, as a ratio to the limit.
TARGETS = {
    "StoreToDisplay, metres, 3 decimals, symbol, groups of three": 4,
    "StoreToDisplay, feet and fractional inches, 1/16": 3.5,
    'DisplayToStore, "1,234.568 m"': 6,
    'DisplayToStore, "5\'6 1/2""': 6,
    'CheckDisplay, "5\'6 1/2""': 6,
    "CheckDisplay, 40 characters, words": 6,
    "CheckDisplay, 40 characters, wrong at the end": 6,
    "ExprToStore, 40 characters, three imperial numbers": 6,
    'Parse, merge, value, "(1+2)*3-4/5*(6-7)"': 15,
    'GetElevDisplayValue, "L1+5\'6 1/2""': None,
    "InitialUnitSystem, factory file": 3,
    "SaveConfigFile, to memory": 2,
}
UNITS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


def read_times(path):
    """(operation, competitor) -> processor and wall ns per operation, medians of the repetitions.

    Of the rows that compare one thread with two the fastest: whatever else the machine does costs the second thread first.
    """
    runs = {}
    with open(path, encoding="utf-8") as file:
        measured = json.load(file)
    for run in measured["benchmarks"]:
        if run["run_type"] != "iteration":
            continue
        name = tuple(run["run_name"].split("/process_time")[0].split("|"))
        unit = UNITS[run["time_unit"]] / run["operations"]
        runs.setdefault(name, []).append((run["cpu_time"] * unit, run["real_time"] * unit))
    choose = lambda name: min if "per thread" in name[0] else statistics.median
    times = {name: tuple(choose(name)(column) for column in zip(*all_runs)) for name, all_runs in runs.items()}
    return times, measured["context"]


def number(value, digits=1):
    if value is None:
        return ""
    return f"{value:,.{digits}f}" if value < 1000 else f"{value:,.0f}"


def build_rows(times, counts):
    rows = []
    for operation, target in TARGETS.items():
        ours, limit = times.get((operation, "ours")), times.get((operation, "limit"))
        if not ours:
            continue
        peers = {c: {"ns": t[0], "ratio": t[0] / ours[0]} for (o, c), t in times.items()
                 if o == operation and c not in ("ours", "limit")}
        count = counts.get((operation, "ours"), {})
        rows.append({"operation": operation, "ours_ns": ours[0], "limit_ns": limit[0] if limit else None,
                     "ratio": ours[0] / limit[0] if limit else None, "target": target,
                     "allocations": count.get("allocations"), "instructions": count.get("instructions"),
                     "peers": dict(sorted(peers.items()))})
    return rows


def table(header, rows):
    """Markdown, aligned: it reads well on a screen too."""
    cells = [header, *rows]
    widths = [max(len(row[i]) for row in cells) for i in range(len(header))]
    line = lambda row: "| " + " | ".join(
        c.ljust(w) if i == 0 else c.rjust(w) for i, (c, w) in enumerate(zip(row, widths))) + " |"
    rule = "|" + "|".join("-" * (w + 2) if i == 0 else "-" * (w + 1) + ":" for i, w in enumerate(widths)) + "|"
    return "\n".join([line(header), rule, *map(line, rows)])


def main_table(rows):
    body = []
    for row in rows:
        peers = "; ".join(f"{name} {number(peer['ns'])} ({number(peer['ratio'])}x)" for name, peer in row["peers"].items())
        body.append([row["operation"], number(row["ours_ns"]), number(row["limit_ns"]),
                     number(row["ratio"], 2), number(row["target"], 1), number(row["allocations"]),
                     number(row["instructions"], 0), peers])
    return table(["operation", "ours, ns", "limit, ns", "ratio", "target", "allocations", "instructions",
                  "peers, ns (times ours)"], body)


def growth_table(times):
    groups = {}
    for (operation, competitor), (cpu, _) in times.items():
        if operation not in TARGETS and "per thread" not in operation:
            groups.setdefault(operation, []).append((competitor, cpu))
    size = lambda item: int(re.sub(r"\D", "", item[0]) or 0)
    return table(["what grows", "ns"], [[f"{operation}, {name}", number(cpu)]
                                        for operation, items in sorted(groups.items())
                                        for name, cpu in sorted(items, key=size)])


def files_table(files):
    cat = files["programs"]["cat"]["wall"]
    return table(["program", "wall, s", "processor, s", "times cat", "memory, MiB"],
                 [[name, number(run["wall"], 2), number(run["cpu"], 2), number(run["wall"] / cat),
                   number(run["memory_mib"])] for name, run in files["programs"].items()])


def describe(context, times, files):
    threads = {c: t for (o, c), t in times.items() if "per thread" in o}
    speedup = {who: 2 * threads[f"{who}, one"][1] / threads[f"{who}, two"][1] for who in ("ours", "limit")}
    commit = subprocess.run(["git", "rev-parse", "--short=12", "HEAD"], capture_output=True, text=True).stdout.strip()
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True).stdout.splitlines()[0]
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        cpu = re.search(r"model name\s*: (.*)", file.read())
    load = ", ".join(f"{value:.2f}" for value in context["load_avg"])
    return {"processor": cpu[1] if cpu else "unknown", "cores": context["num_cpus"], "compiler": compiler,
            "flags": "-O2", "commit": commit, "date": context["date"][:10], "load": load,
            "two_threads": speedup, "start_ms": files["start_ms"]}


def report(facts, rows, times, files):
    growth = "; ".join(f"{int(count):,} rows {run['wall']:.2f} s, {run['memory_mib']:.0f} MiB"
                       for count, run in files["growth"].items())
    start = facts["start_ms"]
    return f"""{facts['processor']}, {facts['cores']} cores; {facts['compiler']}, {facts['flags']}; commit {facts['commit']},
{facts['date']}; load of the machine when the measurement began (1, 5, 15 minutes): {facts['load']}.

## One call

Processor time, medians. Allocations and instructions (callgrind) are ours, per call.

{main_table(rows)}

Two threads converting do {facts['two_threads']['ours']:.2f} times the work of one in the same time (the fastest of the runs each); with
the limit's function, which shares nothing, {facts['two_threads']['limit']:.2f} times.

## Whole files

`unitctl schedule` over {files['rows']:,} rows ({files['bytes'] / 1e6:,.0f} MB), from file to file; medians of three.

{files_table(files)}

The same at a hundredth, a tenth and the whole: {growth}.
Start and end of `unitctl format`: {start['unitctl format']:.1f} ms wall; of a program that does nothing: {start['true']:.1f} ms.

## Growth

{growth_table(times)}
"""


PAGE_HEAD = """# How fast it is

Made by `./tools/bench --page`; not written by hand. Every row runs over 100,000 random values or texts through the
public interface as a host calls it: measure code in, UTF-16 text out, the parser class looked up by its name, settings
read at every call. *limit* is a function written in `bench/Limits.cpp` for that one shape, with integers, into a string
of its own: no settings, no other unit, no errors; for the settings file it is pugixml alone. Everything in a table was
measured in the same run, in random order.

"""


def main():
    times_path, counts_path, callgrind, files_path, out_path, *page = sys.argv[1:]
    times, context = read_times(times_path)
    counts = read_counts(counts_path, callgrind)
    with open(files_path, encoding="utf-8") as file:
        files = json.load(file)
    rows = build_rows(times, counts)
    facts = describe(context, times, files)
    text = report(facts, rows, times, files)
    with open(out_path, "w", encoding="utf-8") as file:
        json.dump({"machine": facts, "rows": rows, "files": files,
                   "all": [{"operation": o, "competitor": c, "cpu_ns": t[0], "wall_ns": t[1], **counts.get((o, c), {})}
                           for (o, c), t in times.items()]}, file, indent=1, ensure_ascii=False)
    print(text)
    if page:
        with open(page[0], "w", encoding="utf-8") as file:
            file.write(PAGE_HEAD + text)


main()
