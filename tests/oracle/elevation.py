"""Elevation functions of the slow second implementation.

Each answers a list of texts of which one must be the library's, and whether the text is
accepted; None where the library is free.
"""

from dataclasses import dataclass, field

import facade
from expression import MEASURE, NUM, SCALE, Node, Parser, parse_messages
from merging import MIXED, PRODUCT, expected_refusals, linear, merge_numbers, variables
from number_text import OracleError, float_to_str, to_double


@dataclass
class Pieces:
    """Around a variable the spelling is free, the pieces are not: offset is what the one number must
    look like when it is added, opposite when it is taken away. Both None: no number at all."""

    offset: str | None = None
    opposite: str | None = None


@dataclass
class Answer:
    store: list | Pieces | None = field(default_factory=list)
    edit: list | Pieces | None = field(default_factory=list)
    display: list | Pieces | None = field(default_factory=list)
    accepted: list = field(default_factory=list)
    # Around a variable: name, k, whether it is k / x, whether the offset is 0, and how far, in parts of
    # itself, the offset may be off because its terms were folded one by one with 15 digits.
    value: tuple | None = None


def refused(text):
    return Answer([text], [text], [text], [False])


def elevation(project, text):
    if text == "":
        return Answer([""], [""], [""], [False])
    root, messages = parse_messages(project, text)
    if messages or root is None:
        return refused(text)
    names = variables(root)
    if len(names) >= 2:
        return refused(text)
    parser = Parser(project, text)
    try:
        if not names:
            return single_number(project, parser, text, root)
        return around_variable(project, parser, text, root)
    except OracleError:
        return refused(text)


def formed(parser, project, text, node, form):
    """The text that form writes, the given text where writing fails."""
    writer = Parser(project, text)
    try:
        result = form(writer, node)
    except OracleError:
        return text
    return text if writer.failed else result


def single_number(project, parser, text, root):
    node = merge_numbers(parser, root)
    if parser.failed:
        return refused(text)
    node.elev = True
    store = formed(parser, project, text, node, single_store)
    writer = Parser(project, text)
    try:
        single_store(writer, node)
        accepted = not writer.failed
    except OracleError:
        accepted = False
    return Answer(
        [store],
        [formed(parser, project, text, node, lambda w, n: w.edit_operand(n))],
        [formed(parser, project, text, node, lambda w, n: w.display_operand(n))],
        [accepted],
    )


def single_store(writer, node):
    if node.imperial:
        return node.store
    command = facade.Command(writer.project, MEASURE)
    if not command.check_display(node.store):
        writer.fail("")
        return ""
    return float_to_str(command.display_to_store(node.store, SCALE))


def around_variable(project, parser, text, root):
    form = linear(parser, root)
    if parser.failed:
        return refused(text)
    messages, must, may = expected_refusals(form)
    if must:
        return refused(text)
    if may or (form.kind == MIXED and form.inverse):
        return Answer(None, None, None, [True, False])
    if form.only_the_variable and form.k == 1:
        return Answer([form.name], [form.name], [form.name], [True])
    return written_around(project, text, form, root)


def written_around(project, text, form, root):
    """k * x + b, whose one offset is converted."""
    offset = to_double(form.b)
    answer = Answer(accepted=[True], value=(form.name, form.k, form.inverse, offset == 0, slack(form)))
    if form.kind == PRODUCT:
        answer.store = answer.edit = answer.display = Pieces()
        return answer
    for operand_form, place in (
        (Parser.store_operand, "store"),
        (Parser.edit_operand, "edit"),
        (Parser.display_operand, "display"),
    ):
        pieces = [offset_text(project, operand_form, number, form) for number in (offset, -offset)]
        missing = sum(piece is None for piece in pieces)
        if missing == 0:
            setattr(answer, place, Pieces(*pieces))
        else:
            # Refused whatever its sign: the text stays; otherwise the library is free.
            setattr(answer, place, [text] if missing == len(pieces) else None)
        if missing and place == "store":
            answer.accepted = [False] if missing == len(pieces) else [True, False]
    return with_unfolded_text(project, text, form, root, answer)


def slack(form):
    return 2e-14 * float(form.spread / abs(form.b)) if form.b != 0 else 0.0


def with_unfolded_text(project, text, form, root, answer):
    """An offset that nothing was folded into keeps its text: "45.0" is refused where "45" is not."""
    if len(float_to_str(form.b)) > 14:
        answer.display = None  # the noise of folding may be shown
    if form.imperial_terms > 0 or form.plain_terms != 1:
        return answer
    direct = [child for child in (root.left, root.right) if child.kind == NUM and not child.var]
    unfolded = direct or [operand for operand in root.operands() if not operand.var]
    results = [converted(project, operand.store) for operand in unfolded]
    if results == [converted(project, float_to_str(operand.number)) for operand in unfolded]:
        return answer
    kept = direct and not any(node.negative for node in root.nodes())
    answer.store = [text] if kept and results[0] is None else None
    answer.accepted = [False] if kept and results[0] is None else [True, False]
    return answer


def converted(project, text):
    """The stored value of an offset text; None when it is refused."""
    command = facade.Command(project, MEASURE)
    return command.display_to_store(text, SCALE) if command.check_display(text) else None


def offset_text(project, operand_form, number, form):
    """The offset as an elevation operand; None where writing it is refused."""
    writer = Parser(project, "")
    node = Node(NUM, float_to_str(number))
    node.imperial = form.imperial_terms > 0
    writer.process_node(node)
    node.elev = True
    try:
        piece = operand_form(writer, node)
    except OracleError:
        return None
    if writer.failed:
        return None
    return f"({piece})" if node.number < 0 else piece
