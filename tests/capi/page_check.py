"""page_check.py PAGE ROOT: the code blocks of a page that name a file are that file, letter for letter; every function
that the page names is in the list of the interface, and every link leads somewhere."""

import pathlib
import re
import sys

page, root = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
text = page.read_text(encoding="utf-8")
problems = []

blocks = re.findall(r"`(examples/[\w./-]+)`:\n\n```\w*\n(.*?)```", text, re.S)
if not blocks:
    problems.append("no example is shown")
for name, block in blocks:
    if (root / name).read_text(encoding="utf-8") != block:
        problems.append(f"{name} is shown differently")

listed = (root / "unitlib" / "capi" / "symbols.txt").read_text(encoding="utf-8")
known = set(re.findall(r"\b(ul_\w+)", listed)) | set(re.findall(r"\b(UL_\w+)", listed))
for name in set(re.findall(r"`(ul_\w+|UL_\w+)`", text)) - known - {"ul_char16", "UL_CHAR16", "UL_NO_IMPORT"}:
    problems.append(f"{name} is not in the interface")
for target in re.findall(r"\]\(([^)#:]+)\)", text):
    if not (page.parent / target).exists():
        problems.append(f"the link to {target} leads nowhere")

for problem in problems:
    print(f"{page.name}: {problem}")
sys.exit(bool(problems))
