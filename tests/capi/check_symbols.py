"""Holds the C interface to its list: unitlib.h, unitlib/capi/symbols.txt and the built library must agree.

  check_symbols.py HEADER LIST                      prototypes, structures, callbacks and constants
  check_symbols.py HEADER LIST --library FILE       and the symbols that the library exports
  check_symbols.py HEADER LIST --write              makes the list anew: for additions, after a review

A line of the list that changes or goes breaks programs that are already out; only new lines are harmless.
"""

import argparse
import re
import subprocess
import sys


def without_comments(text: str) -> str:
    return re.sub(r"/\*.*?\*/", " ", text, flags=re.S)


def squeeze(text: str) -> str:
    text = re.sub(r"\s+", " ", text).strip()
    text = re.sub(r"\s*\*\s*", " *", text)
    return text.replace("( ", "(").replace(" )", ")")


def parameter_type(parameter: str) -> str:
    """The type alone: a parameter's name is no promise."""
    parameter = squeeze(parameter)
    return parameter if parameter == "void" else squeeze(re.sub(r"\w+$", "", parameter))


def signature(result: str, name: str, parameters: str) -> str:
    return f"{squeeze(result)} {name}({', '.join(parameter_type(p) for p in parameters.split(','))})"


def constants(text: str) -> list[str]:
    return sorted(
        f"constant {name} {value}"
        for body in re.findall(r"\benum\s*\{(.*?)\}", text, flags=re.S)
        for name, value in re.findall(r"(\w+)\s*=\s*(-?\w+)", body)
    )


def interface(header: str) -> list[str]:
    text = without_comments(header)
    structures = [
        f"struct {name} {squeeze(body)}"
        for name, body in re.findall(r"typedef struct (\w+) \{(.*?)\}", text, flags=re.S)
    ]
    callbacks = [
        "callback " + signature(*match)
        for match in re.findall(r"typedef (\w+)\s*\(UL_CALL\s*\*\s*(\w+)\)\((.*?)\);", text, flags=re.S)
    ]
    functions = [
        "function " + signature(*match)
        for match in re.findall(r"UL_API (\w+) UL_CALL (\w+)\((.*?)\);", text, flags=re.S)
    ]
    return sorted(functions) + sorted(callbacks) + sorted(structures) + constants(text)


def listed(text: str) -> list[str]:
    return [line for line in text.splitlines() if line and not line.startswith("#")]


def run(*command: str) -> str:
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def exported_by_dll(library: str, objdump: str) -> set[str]:
    table = run(objdump, "-p", library).split("[Ordinal/Name Pointer] Table", 1)[1]
    return set(re.findall(r"^\s*\[\s*\d+\]\s*(?:\+base\[\s*\d+\]\s*)?(?:[0-9a-f]{4}\s+)?(\S+)\s*$", table, flags=re.M))


def exported_by_so(library: str, nm: str, node: str) -> set[str]:
    names = set()
    for line in run(nm, "-D", "--defined-only", "--with-symbol-versions", library).splitlines():
        kind, name = line.split()[-2:]
        if kind == "A":
            continue  # the version node itself
        plain, _, version = name.partition("@@")
        names.add(plain if version == node else name)
    return names


def report(title: str, lines: set[str]) -> bool:
    for line in sorted(lines):
        print(f"{title}: {line}")
    return bool(lines)


def main() -> int:
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("header")
    options.add_argument("list")
    options.add_argument("--library")
    options.add_argument("--node", default="")
    options.add_argument("--nm", default="nm")
    options.add_argument("--objdump", default="objdump")
    options.add_argument("--write", action="store_true")
    given = options.parse_args()

    with open(given.header, encoding="utf-8") as file:
        found = interface(file.read())
    if given.write:
        with open(given.list, "w", encoding="utf-8", newline="\n") as file:
            file.write("# The C interface as it is promised: see tests/capi/check_symbols.py.\n")
            file.write("\n".join(found) + "\n")
        return 0

    with open(given.list, encoding="utf-8") as file:
        promised = listed(file.read())
    failed = report("promised, but not in the header", set(promised) - set(found))
    failed |= report("in the header, but not in the list", set(found) - set(promised))
    if given.library:
        names = {re.search(r"(\w+)\(", line).group(1) for line in promised if line.startswith("function ")}
        is_dll = given.library.endswith(".dll")
        exported = (exported_by_dll(given.library, given.objdump) if is_dll
                    else exported_by_so(given.library, given.nm, given.node))
        failed |= report("listed, but not exported", names - exported)
        failed |= report("exported, but not listed", exported - names)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
