"""pages_check.py ROOT [--write]: the pages say what the code says.

- A code block announced by "`examples/FILE`:" or "`examples/FILE`, part `NAME`:" is that file or part, letter for letter
  (--write puts it there); in the guides every block of C++ is announced, and so compiled.
- Every link leads somewhere, every page is reachable from the index docs/README.md.
- Every function of the C interface has its row on its page, every public name of the Python module on its own; the rows
  are taken from header and module (--write puts them there).
- The version stands in CMakeLists.txt; what has to repeat it agrees.
"""

import ast
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1]).resolve()
sys.path.insert(0, str(root / "docs" / "site"))
sys.dont_write_bytecode = True
import references  # noqa: E402: found by the path above

write = "--write" in sys.argv
problems = []

ANNOUNCED = re.compile(r"`(examples/[\w./-]+)`(?:, part `(\w+)`)?:\n\n(```\w*\n)(.*?)```", re.S)


def read(name: str) -> str:
    return (root / name).read_text(encoding="utf-8")


def part_of(name: str, part: str) -> str:
    text = read(name)
    if not part:
        return text
    found = re.search(rf"^[ \t]*// part {part}\n(.*?)^[ \t]*// end part$", text, re.S | re.M)
    if not found:
        raise ValueError(f"{name} has no part {part}")
    return found[1]


def check_examples(page: pathlib.Path) -> str:
    text = page.read_text(encoding="utf-8")

    def shown(match: re.Match[str]) -> str:
        want = part_of(match[1], match[2])
        if match[4] != want and not write:
            problems.append(f"{page.name} shows {match[1]} {match[2] or ''} differently")
        return match[0][: match.start(4) - match.start()] + want + "```"

    new = ANNOUNCED.sub(shown, text)
    if write and new != text:
        page.write_text(new, encoding="utf-8")
    return new


def check_links(page: pathlib.Path, text: str) -> None:
    prose = re.sub(r"```.*?```", "", text, flags=re.S)
    for target in re.findall(r"\]\(([^)#:\s]+)(?:#[^)]*)?\)", prose):
        if not (page.parent / target).exists():
            problems.append(f"{page.name} links to {target}, which is not there")


def check_guide(page: pathlib.Path, text: str) -> None:
    if len(re.findall(r"^```cpp$", text, re.M)) != len([m for m in ANNOUNCED.finditer(text) if m[3] == "```cpp\n"]):
        problems.append(f"{page.name}: a block of C++ is not announced, so nobody compiles it")


def check_reference(name: str, reference: str) -> None:
    """The marked part of a page is what the code says (--write puts it there)."""
    page = root / "docs" / name
    text = page.read_text(encoding="utf-8")
    marked = re.compile(r"(<!-- reference: .*? -->\n\n).*?(\n\n<!-- end of reference -->)", re.S)
    new = marked.sub(lambda match: match[1] + reference + match[2], text)
    if reference not in new:
        problems.append(f"{name} has no place for the reference")
    if new != text and write:
        page.write_text(new, encoding="utf-8")
    elif new != text:
        problems.append(f"the reference in {name} is not current: tests/pages_check.py . --write")


def check_c_page() -> None:
    check_reference("c-interface.md", references.c_reference(root))
    functions = set(re.findall(r"^function ul_status (ul_\w+)\(", read("unitlib/capi/symbols.txt"), re.M))
    text = read("docs/c-interface.md")
    for name in sorted(functions):
        if not name.endswith("_u8") and f"| `{name}`" not in text:
            problems.append(f"c-interface.md has no row for {name}")


def check_python_page() -> None:
    check_reference("python.md", references.python_reference(root))
    tree = ast.parse(read("python/unitlib/__init__.py"))
    names = next(ast.literal_eval(node.value) for node in tree.body
                 if isinstance(node, ast.Assign) and getattr(node.targets[0], "id", "") == "__all__")
    text = read("docs/python.md")
    for name in names:
        if not re.search(rf"\b{name}\b", text):
            problems.append(f"python.md does not mention {name}")


def check_version() -> None:
    version = re.search(r"^project\(unitlib VERSION ([\d.]+)", read("CMakeLists.txt"), re.M)[1]
    repeated = {
        "python/pyproject.toml": rf'^version = "{version}"$',
        "packaging/vcpkg/ports/unitlib/vcpkg.json": rf'^  "version": "{version}",$',
        "CHANGELOG.md": rf"^## (Unreleased|{version}\b)",
    }
    for name, pattern in repeated.items():
        if not re.search(pattern, read(name), re.M):
            problems.append(f"{name} does not have the version of CMakeLists.txt, {version}")


pages = sorted((root / "docs").glob("*.md")) + [root / name for name in ("README.md", "CONTRIBUTING.md", "SECURITY.md")]
index = read("docs/README.md")
for page in pages:
    if not page.exists():
        continue
    content = check_examples(page)
    check_links(page, content)
    if page.name == "host-guide.md":
        check_guide(page, content)
    if page.parent.name == "docs" and page.name != "README.md" and f"]({page.name})" not in index:
        problems.append(f"docs/README.md does not lead to {page.name}")
check_c_page()
check_python_page()
check_version()
for problem in problems:
    print(problem)
sys.exit(bool(problems))
