"""The reference parts of docs/c-interface.md and docs/python.md, taken from what they are about."""

import ast
import pathlib
import re


def _first_sentence(text: str) -> str:
    """Up to the first full stop that ends a sentence, with bars and stars safe in a table."""
    flat = " ".join(text.split("\n\n")[0].replace('\\"', '"').split())
    found = re.match(r"(.*?[^.0-9\"]\.)(?=\s+[A-Z*\"]|$)", flat)
    sentence = (found[1] if found else flat).rstrip(".")
    return re.sub(r"\berrors?: .*", "", sentence).strip().rstrip(".").replace("|", "\\|").replace("*", "\\*")


def c_reference(root: pathlib.Path) -> str:
    """A table per section of unitlib.h: every function with its arguments, and what it does as the page says it; a new one
    starts with the first sentence of its comment."""
    page = (root / "docs/c-interface.md").read_text(encoding="utf-8")
    said = dict(re.findall(r"^\| `(ul_\w+)`(?: \*)? \| [^|]*\| (.*) \|$", page, re.M))
    text = (root / "unitlib/capi/unitlib.h").read_text(encoding="utf-8")
    lines, comment, twin = [], "", set(re.findall(r"\b(ul_\w+)_u8\(", text))
    pieces = re.compile(r"^/\* ---- (?P<section>[^\n]*?) -+ \*/$|^/\*(?P<comment>(?:(?!\*/).)*)\*/$|"
                        r"^UL_API ul_status UL_CALL (?P<name>ul_\w+)\((?P<arguments>.*?)\);", re.S | re.M)
    for piece in pieces.finditer(text):
        if piece["section"]:
            section, comment = piece["section"], ""
        elif piece["comment"] is not None:
            comment = _first_sentence(re.sub(r"\n \*", "\n", piece["comment"]))
        elif not piece["name"].endswith("_u8"):
            if section:
                lines += ["", f"### {section}", "", "| Function | Arguments | What it does |", "|---|---|---|"]
                section = ""
            arguments = re.findall(r"(\w+)(?:,|$)", " ".join(piece["arguments"].split()))
            named = ", ".join(arguments) if arguments != ["void"] else ""
            mark = " *" if piece["name"] in twin else ""
            lines.append(f"| `{piece['name']}`{mark} | {named} | {said.get(piece['name'], comment)} |")
    return "\n".join(lines).strip()


def _signature(node: ast.FunctionDef) -> str:
    arguments = ast.unparse(node.args)
    return re.sub(r"(\w+): (?:[^,=\[\]]|\[[^\]]*\])+(?=[,=]|$)", r"\1", arguments).strip()


def python_reference(root: pathlib.Path) -> str:
    """A row for every public name: its arguments and the first sentence of its description."""
    folder = root / "python/unitlib"
    trees = [ast.parse(path.read_text(encoding="utf-8")) for path in sorted(folder.glob("*.py"))]
    trees.sort(key=lambda tree: any(isinstance(node, ast.ImportFrom) and node.module == "model" for node in tree.body))
    found = {node.name: node for tree in trees for node in tree.body if isinstance(node, ast.FunctionDef | ast.ClassDef)}
    package = ast.parse((folder / "__init__.py").read_text(encoding="utf-8"))
    names = next(ast.literal_eval(node.value) for node in package.body
                 if isinstance(node, ast.Assign) and getattr(node.targets[0], "id", "") == "__all__")
    functions, classes = [], []
    for name in names:
        node = found.get(name)
        if node is None:
            continue
        text = _first_sentence(ast.get_docstring(node) or "")
        if isinstance(node, ast.FunctionDef):
            functions.append(f"| `{name}({_signature(node)})` | {text} |")
        else:
            members = [item.name for item in node.body if isinstance(item, ast.FunctionDef) and item.name[0] != "_"]
            members += [target.id for item in node.body if isinstance(item, ast.Assign) for target in item.targets
                        if target.id[0] != "_"]
            members += [item.target.id for item in node.body if isinstance(item, ast.AnnAssign)]
            classes.append(f"| `{name}` | {text} | {', '.join(dict.fromkeys(members)).lstrip()} |")
    return "\n".join(["| Function | What it does |", "|---|---|", *functions, "", "| Class | What it is | Members |",
                      "|---|---|---|", *classes])
