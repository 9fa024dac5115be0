#!/usr/bin/env python3
"""What a host gets with unitlib.dll: nothing needed beside it, no time stamp, no path of the sources.

check_dll.py DLL --objdump OBJDUMP --forbid TEXT...
"""

import argparse
import re
import subprocess
import sys

SYSTEM = {
    "advapi32", "bcrypt", "comctl32", "comdlg32", "gdi32", "kernel32", "msimg32", "msvcrt", "ole32", "oleacc", "oleaut32", "rpcrt4",
    "shell32", "shlwapi", "user32", "uuid", "uxtheme", "version", "winmm", "winspool",
}  # fmt: skip


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("dll")
    parser.add_argument("--objdump", required=True)
    parser.add_argument("--forbid", nargs="*", default=[])
    arguments = parser.parse_args()
    headers = subprocess.run([arguments.objdump, "-p", arguments.dll], check=True, capture_output=True, text=True).stdout
    faults = []

    imported = {name.lower().rsplit(".", 1)[0] for name in re.findall(r"DLL Name: (\S+)", headers)}
    if not imported:
        faults.append("imports nothing: not a DLL of Windows?")
    faults += [f"needs {name}.dll beside it" for name in sorted(imported - SYSTEM)]

    stamp = re.search(r"^Time/Date\s+(.*)$", headers, re.MULTILINE)
    if not stamp or "1970" not in stamp.group(1):
        faults.append(f"carries a time stamp: {stamp.group(1) if stamp else 'unknown'}")
    for flag in ("DYNAMIC_BASE", "NX_COMPAT"):
        if flag not in headers:
            faults.append(f"is not {flag}")

    with open(arguments.dll, "rb") as file:
        content = file.read()
    for text in arguments.forbid:
        if text.encode() in content or text.encode("utf-16-le") in content:
            faults.append(f"contains {text}")
    for fault in faults:
        print(f"{arguments.dll} {fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
