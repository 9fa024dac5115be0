#!/usr/bin/env python3
"""Writes test cases of the slow second implementation to standard output.

  generate.py --seed 1 --count 2000              2000 cases of every family
  generate.py --seed 7 --count 50000 --family parse --family elev

The same seed and count always give the same lines.
"""

import argparse
import random
import sys
import threading

import conversion_cases
import default_cases
import expression_cases

FAMILIES = {**conversion_cases.FAMILIES, **expression_cases.FAMILIES}


def fixed_cases(rng, wanted):
    """Rows that every run holds: each anchored text, the factory defaults."""
    if "expr" in wanted:
        for text in expression_cases.MESSAGES:
            for _ in range(4):
                yield expression_cases.expression_case(rng, text)
        for text in expression_cases.DEEP:
            yield expression_cases.expression_case(rng, text)
    if "elev" in wanted:
        for text in expression_cases.MESSAGES:
            for _ in range(4):
                yield expression_cases.elevation_case(rng, text)
    if "defaults" in wanted:
        yield from default_cases.cases()


def write_cases(arguments, out):
    wanted = arguments.family or [*FAMILIES, "defaults"]
    for row in fixed_cases(random.Random(f"{arguments.seed}/fixed"), wanted):
        out.write(row + "\n")
    for family in wanted:
        if family not in FAMILIES:
            continue
        rng = random.Random(f"{arguments.seed}/{family}")
        for _ in range(arguments.count):
            out.write(FAMILIES[family](rng) + "\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=1000, help="cases of every family")
    parser.add_argument("--family", action="append", choices=[*FAMILIES, "defaults"])
    parser.add_argument("--output", help="file to write instead of standard output")
    arguments = parser.parse_args()
    # Brackets nest a thousand deep in some cases: a roomy stack of its own.
    sys.setrecursionlimit(50_000)
    threading.stack_size(512 * 1024 * 1024)
    failed = []

    def run():
        try:
            if arguments.output is None:
                write_cases(arguments, sys.stdout)
            else:
                with open(arguments.output, "w", encoding="ascii", newline="\n") as out:
                    write_cases(arguments, out)
        except BaseException as error:
            failed.append(error)
            raise

    worker = threading.Thread(target=run)
    worker.start()
    worker.join()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
