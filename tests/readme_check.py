"""The code blocks of the README are the compiled and tested example files, letter for letter.

A block is announced by the name of its file in the line above it: `examples/convert.cpp`:
"""
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
text = (root / "README.md").read_text(encoding="utf-8")
blocks = re.findall(r"`(examples/[\w./-]+)`:\n\n```\w*\n(.*?)```", text, re.S)
if not blocks:
    sys.exit("README.md shows no example")
for name, block in blocks:
    if (root / name).read_text(encoding="utf-8") != block:
        sys.exit(f"README.md and {name} differ")
    print(f"{name}: shown as it is")
for target in re.findall(r"\]\(([^)#:]+)\)", text):
    if not (root / target).exists():
        sys.exit(f"README.md links to {target}, which is not there")
