"""Compares instructions per operation with a recorded baseline.

gate.py CALLGRIND_FOLDER BASELINE [--record]     exit status 1 when an operation takes over 5 % more than recorded
"""
import os
import sys

from counts import read_counts

LIMIT = 1.05


def main():
    folder, baseline_path = sys.argv[1:3]
    counts = read_counts(os.path.join(folder, "instructions.txt"), folder)
    now = {operation: round(count["instructions"]) for (operation, competitor), count in counts.items()
           if competitor == "ours" and "instructions" in count}
    if not now:
        sys.exit("callgrind counted nothing")
    if "--record" in sys.argv:
        os.makedirs(os.path.dirname(baseline_path), exist_ok=True)
        with open(baseline_path, "w", encoding="utf-8") as file:
            file.write("".join(f"{operation}|{count}\n" for operation, count in now.items()))
        print(f"{len(now)} operations recorded in {baseline_path}")
        return
    with open(baseline_path, encoding="utf-8") as file:
        recorded = {operation: int(count) for operation, count in (line.rsplit("|", 1) for line in file)}
    missing = sorted(set(recorded) - set(now))
    worse = [name for name, count in now.items() if name not in recorded or count > recorded[name] * LIMIT]
    for name, count in now.items():
        was = recorded.get(name)
        change = f"{count / was - 1:+7.1%}" if was else "    new"
        print(f"{change}  {count:>12,}  {name}{'   <== over 5 %' if name in worse else ''}")
    for name in missing:
        print(f"not measured: {name}")
    if worse or missing:
        sys.exit("more instructions than recorded; when that is meant: tools/bench --record")


main()
