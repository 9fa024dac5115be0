#!/usr/bin/env python3
"""Runs clang-tidy over the sources of one build folder, on all processors, and remembers what was clean.

Usage: tidy.py BUILD_FOLDER CACHE_FOLDER FOLDER...

A source is looked at again when its own text, a file it includes, its compile command, the list of checks or
clang-tidy itself has changed. Only clean results are remembered. Exit code 1 when anything was found.
"""
import concurrent.futures
import hashlib
import json
import os
import re
import subprocess
import sys
from pathlib import Path


def included_files(build: Path) -> dict[str, list[str]]:
    """Object file -> the files the last compilation read, from ninja's own record."""
    found: dict[str, list[str]] = {}
    current: list[str] = []
    text = subprocess.run(["ninja", "-C", str(build), "-t", "deps"], check=True, capture_output=True, text=True).stdout
    for line in text.splitlines():
        if line.startswith("    "):
            current.append(line.strip())
        elif match := re.match(r"(\S+): #deps", line):
            current = found.setdefault(match.group(1), [])
    return found


class Hashes:
    def __init__(self, build: Path):
        self.build, self.known = build, {}

    def of(self, name: str) -> bytes:
        if name not in self.known:
            path = self.build / name
            self.known[name] = hashlib.sha256(path.read_bytes()).digest() if path.is_file() else b"none"
        return self.known[name]


def checks_for(source: Path, root: Path) -> bytes:
    """The lists of checks that clang-tidy reads for a source: the project's and those of its folders."""
    folders = [folder for folder in reversed(source.parents) if folder == root or root in folder.parents]
    return b"".join((folder / ".clang-tidy").read_bytes() for folder in folders if (folder / ".clang-tidy").is_file())


def key_of(entry, files, hashes, fixed: bytes, root: str) -> str:
    key = hashlib.sha256(fixed)
    key.update(entry["command"].replace(root, "").encode())
    # What is included is named from the build folder, so that the order is the same wherever the project lies.
    for name in sorted(files) + [entry["file"]]:
        key.update(name.replace(root, "").encode() + hashes.of(name))
    return key.hexdigest()


def main() -> int:
    root = Path(__file__).resolve().parents[2]
    build, cache, folders = Path(sys.argv[1]).resolve(), Path(sys.argv[2]), sys.argv[3:]
    cache.mkdir(parents=True, exist_ok=True)
    version = subprocess.run(["clang-tidy", "--version"], check=True, capture_output=True).stdout
    wanted = tuple(str(root / folder) + os.sep for folder in folders)
    entries = [e for e in json.loads((build / "compile_commands.json").read_text()) if e["file"].startswith(wanted)]
    if not entries:
        print(f"tidy: no sources of {', '.join(folders)} in {build}", file=sys.stderr)
        return 2
    deps, hashes = included_files(build), Hashes(build)
    todo = []
    for entry in entries:
        files = deps.get(re.search(r" -o (\S+)", entry["command"]).group(1), [])
        if not files:
            print(f"tidy: {entry['file']} has not been compiled; build first", file=sys.stderr)
            return 2
        key = key_of(entry, files, hashes, version + checks_for(Path(entry["file"]), root), str(root))
        if not (cache / key).exists():
            todo.append((entry["file"], key))

    def look(item):
        source, key = item
        command = ["clang-tidy", "-p", str(build), "--quiet", "--extra-arg=-Wno-unknown-warning-option", source]
        run = subprocess.run(command, capture_output=True, text=True)
        if run.returncode == 0 and "warning:" not in run.stdout:
            (cache / key).touch()
            return source, ""
        return source, run.stdout or run.stderr

    bad = 0
    with concurrent.futures.ThreadPoolExecutor(int(os.environ.get("UNITLIB_JOBS", os.cpu_count() or 1))) as pool:
        for source, text in pool.map(look, todo):
            if text:
                bad += 1
                print(text)
    print(f"tidy: {len(entries)} sources, {len(todo)} looked at, {bad} with findings")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
