#!/usr/bin/env python3
"""filter.py FILE: what doxygen reads of a file of this project, whose comments are written for the eye of who opens it.

Markdown: a code span with a foot mark (`5'`) is written as a tag, since doxygen takes `5' for the start of a quotation.
Headers: comment lines "Name    what it is" become list items, indented lines code, backslashes stay backslashes.
unitlib.h: its plain C comments become comments of the functions they stand above.
"""

import html
import pathlib
import re
import sys


# A link to a file that is no page of the site.
FILE_LINK = re.compile(r"\[([^\]]+)\]\((?!https?:|[^)]*\.(?:md|png|svg)\b)[^)#\s]+\)")

# A link to a heading, whose names doxygen makes up by itself: the link to the page stays.
HEADING_LINK = re.compile(r"\[([^\]]+)\](?:\(#[^)]*\)|(\([\w./-]+\.md)#[^)]*(?=\)))")


def code_span(match: re.Match[str]) -> str:
    text = html.escape(match[1], quote=False).replace("'", "&apos;").replace('"', "&quot;")
    return "<code>" + re.sub(r"([\\*@#~|])", r"\\\1", text) + "</code>"


def markdown(text: str) -> str:
    lines, fenced = [], False
    for line in text.splitlines():
        if line.lstrip().startswith("```"):
            fenced = not fenced
        elif not fenced:
            line = FILE_LINK.sub(r"\1", line)
            line = HEADING_LINK.sub(lambda m: f"[{m[1]}]{m[2]}" if m[2] else m[1], line)
            line = re.sub(r"(?<!`)`([^`]*['\"][^`]*)`(?!`)", code_span, line)
            # A double quote would keep what follows it, up to the next one, from being Markdown.
            line = "".join(piece if piece.startswith(("<", "`")) else piece.replace('"', "&quot;")
                           for piece in re.split(r"(<[^>]*>|`[^`]*`)", line))
        lines.append(line)
    return "\n".join(lines) + "\n"


def escaped(text: str) -> str:
    """Doxygen's commands start with a backslash or an at sign, its tags with <, its links with #; dashes are no tables."""
    return re.sub(r"([\\@#<>|~*_`\[\]])", r"\\\1", text).replace("\\`", "`").replace('"', "&quot;")


def comment(lines: list[str]) -> list[str]:
    """The body of one comment: texts behind the comment mark, with one blank of indentation taken off."""
    result, in_code, in_item = [], False, False
    for line in lines:
        label = re.match(r"(\*?\w[\w().,* ]{0,28}?)\s{2,}(\S.*)$", line)
        label = label or re.match(r"((?:errors|return)):? +(\S.*)$", line)
        deep = len(line) - len(line.lstrip())
        is_code = deep >= 2 and not in_item
        if in_code and not is_code:
            result.append("@endcode")
        if is_code:
            result += ([] if in_code else ["@code{.cpp}"]) + [line[2:]]
        elif label:
            result += ([] if in_item else [""]) + [f"- **{escaped(label[1])}** {escaped(label[2])}"]
        elif in_item and deep >= 2:
            result.append("  " + escaped(line.strip()))
        else:
            result += ([""] if in_item else []) + [escaped(line)]
        in_code, in_item = is_code, bool(line.strip()) and (bool(label) or in_item and deep >= 2)
    return result + (["@endcode"] if in_code else [])


def header(text: str) -> str:
    result, block, first = [], [], True

    def flush() -> None:
        nonlocal block, first
        if block:
            body = comment([line[1:] if line.startswith(" ") else line for line in block])
            result.extend(["/// @file"] if first else [])
            result.extend(f"/// {line}".rstrip() for line in body)
            first, block = False, []

    for line in text.splitlines():
        if line.lstrip().startswith("///") and not line.lstrip().startswith("///<"):
            block.append(line.lstrip()[3:])
        else:
            flush()
            result.append(line)
    flush()
    return "\n".join(result) + "\n"


def c_interface(text: str) -> str:
    def block(match: re.Match[str]) -> str:
        inside = match[0][2:-2]
        if inside.lstrip().startswith("----"):
            return ""
        lines = [re.sub(r"^ \*", "", line) for line in inside.splitlines()]
        lines = [line[1:] if line.startswith(" ") else line for line in lines]
        kind = ["@file"] if match.start() == 0 else []
        return "/**\n" + "\n".join(kind + comment([line.rstrip() for line in lines])) + "\n*/"

    text = re.sub(r"^/\*.*?\*/", block, text, flags=re.S | re.M)
    text = re.sub(r"(?<=\S)( +)/\* (.*?) \*/$", lambda m: f"{m[1]}/**< {escaped(m[2])} */", text, flags=re.M)
    # The twin in UTF-8 has no comment of its own.
    twin = re.compile(r"^(UL_API ul_status UL_CALL (ul_\w+)_u8\()", re.M)
    return twin.sub(r"/** The same in UTF-8: see \2(). */\n\1", text)


path = pathlib.Path(sys.argv[1])
content = path.read_text(encoding="utf-8")
if path.suffix == ".md":
    content = markdown(content)
elif path.name == "unitlib.h":
    content = c_interface(content)
else:
    content = header(content)
sys.stdout.buffer.write(content.encode())
