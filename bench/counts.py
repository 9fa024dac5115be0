"""Allocations as unitlib_bench --counts prints them, instructions as callgrind dumps them."""
import glob
import os
import re


def read_counts(path, folder):
    """(operation, competitor) -> allocations and instructions per operation."""
    counts = {}
    with open(path, encoding="utf-8") as file:
        for line in file:
            operation, competitor, times, allocations = line.rstrip("\n").split("|")
            counts[operation, competitor] = {"allocations": int(allocations) / int(times)}
    with open(os.path.join(folder, "instructions.txt"), encoding="utf-8") as file:
        counted = {tuple(line.split("|")[:2]): int(line.split("|")[2]) for line in file}
    for dump in glob.glob(os.path.join(folder, "callgrind.out.*")):
        with open(dump, encoding="utf-8") as file:
            text = file.read()
        name = re.search(r"^desc: Trigger: Client Request: (.*)\|(.*)$", text, re.M)
        total = re.search(r"^(?:summary|totals): (\d+)", text, re.M)
        if name and total and name.groups() in counts:
            counts[name.groups()]["instructions"] = int(total[1]) / counted[name.groups()]
    return counts
