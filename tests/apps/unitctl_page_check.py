"""docs/unitctl.md: every example gives what the page shows, every command, exit status and link is there.

Usage: unitctl_page_check.py PROGRAM PAGE [--write]     --write puts in what the examples give now, to be read by hand
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

program, page = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
text = page.read_text(encoding="utf-8")
folder = tempfile.mkdtemp(prefix="unitctl-page-")
shutil.copy(program, folder)  # its settings file lies beside it
environment = {**os.environ, "PATH": folder + os.pathsep + os.environ["PATH"]}
environment.pop("UNITLIB_TEXTS", None)
problems = []
status = 0


def run(line):
    global status
    result = subprocess.run(["bash", "-c", f"(exit {status}); {line}"], cwd=folder, env=environment, timeout=60,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    status = result.returncode
    return result.stdout.decode().replace(folder + os.sep, "")


def replay(block):
    commands = re.findall(r"^\$ (.*)$", block.group(1), re.M)
    shown = "".join(f"$ {command}\n{run(command)}" for command in commands)
    if shown != block.group(1):
        problems.append(f"shown:\n{block.group(1)}\ngiven:\n{shown}")
    return f"```console\n{shown}```"


try:
    fresh = re.sub(r"```console\n(.*?)```", replay, text, flags=re.S)
    commands = run('unitctl complete -- ""').split()
    statuses = re.findall(r"^\.TP\n\\fB(\d)\\fR\n(.*)$", pathlib.Path(program.parent / "unitctl.1").read_text("utf-8"), re.M)
finally:
    shutil.rmtree(folder)
if "--write" in sys.argv:
    page.write_text(fresh, encoding="utf-8")
    sys.exit()
for command in commands:
    if f"`{command}`" not in text and f"`unitctl {command} " not in text:
        problems.append(f"the command {command} is not described")
rows = [(number, meaning) for number, _, meaning in re.findall(r"^\| (\d) \| (.*?) \| (.*?) \|$", text, re.M)]
if rows != statuses:
    problems.append(f"exit statuses are {statuses}, the page has {rows}")
for target in re.findall(r"\]\(([^)#:]+)\)", text):
    if not (page.parent / target).exists():
        problems.append(f"the link to {target} leads nowhere")
for problem in problems:
    print(problem)
sys.exit(bool(problems))
