"""Elevation functions of the slow second implementation.

Each answers a list of texts of which one must be the library's, and whether the text is
accepted; None where the library is free.
"""

from dataclasses import dataclass, field
from fractions import Fraction

import facade
from expression import MEASURE, NUM, SCALE, Node, Parser, parse_messages
from merging import MIXED, OFFSET, Linear, expected_refusals, linear, merge_numbers, variables
from number_text import OracleError, float_to_str, to_double


@dataclass
class Answer:
    store: list | None = field(default_factory=list)
    edit: list | None = field(default_factory=list)
    display: list | None = field(default_factory=list)
    accepted: list = field(default_factory=list)
    # When no listed text is met, the store text may still be another spelling of this value:
    value: tuple | None = None  # name, k, converted offset, inverse


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
    if may or form.kind == MIXED:
        return Answer(None, None, None, [True, False])
    if form.only_the_variable and form.k == 1:
        return Answer([form.name], [form.name], [form.name], [True])
    return written_around(project, text, form)


def written_around(project, text, form):
    """Every spelling of k * x + b whose one offset is converted."""
    offset = to_double(form.b)
    imperial = form.imperial_terms > 0
    answer = Answer(accepted=[True])
    if form.kind != OFFSET:
        for place in ("store", "edit", "display"):
            setattr(answer, place, side_texts(form))
        answer.value = (form.name, form.k, Fraction(0), form.inverse)
        return answer
    for operand_form, place in (
        (Parser.store_operand, "store"),
        (Parser.edit_operand, "edit"),
        (Parser.display_operand, "display"),
    ):
        pieces = {number: offset_text(project, operand_form, number, imperial) for number in (offset, -offset)}
        missing = sum(piece is None for piece in pieces.values())
        if missing == 0:
            setattr(answer, place, spellings(form, offset, pieces))
        else:
            # Refused whatever its sign: the text stays; otherwise the library is free.
            setattr(answer, place, [text] if missing == len(pieces) else None)
        if missing and place == "store":
            answer.accepted = [False] if missing == len(pieces) else [True, False]
    if answer.accepted == [True]:
        converted = Fraction(offset) if imperial else converted_offset(project, offset)
        answer.value = (form.name, form.k, converted, form.inverse)
    return answer


def converted_offset(project, offset):
    command = facade.Command(project, MEASURE)
    return Fraction(command.display_to_store(float_to_str(offset), SCALE))


def offset_text(project, operand_form, number, imperial):
    """The offset as an elevation operand; None where writing it is refused."""
    writer = Parser(project, "")
    node = Node(NUM, float_to_str(number))
    node.imperial = imperial
    writer.process_node(node)
    node.elev = True
    try:
        piece = operand_form(writer, node)
    except OracleError:
        return None
    if writer.failed:
        return None
    return f"({piece})" if node.number < 0 else piece


def side_texts(form):
    """Spellings of the variable side k * x or k / x."""
    if form.inverse:
        sides = [f"{number_text(form.k)}/{form.name}"]
        return sides
    if form.k == 1:
        return [form.name]
    sides = [f"{number_text(form.k)}*{form.name}", f"{form.name}*{number_text(form.k)}"]
    if (1 / form.k).denominator == 1:
        sides.append(f"{form.name}/{number_text(1 / form.k)}")
    return sides


def number_text(exact):
    text = float_to_str(exact)
    return f"({text})" if exact < 0 else text


def spellings(form, offset, pieces):
    texts = []
    for side in side_texts(form):
        texts += [f"{side}+{pieces[offset]}", f"{side}-{pieces[-offset]}", f"{pieces[offset]}+{side}"]
        if offset == 0:
            texts.append(side)
    opposite = Linear(k=-form.k, inverse=form.inverse, name=form.name)
    for side in side_texts(opposite):
        texts.append(f"{pieces[offset]}-{side}")
        texts.append(f"{pieces[offset]}-({side})")
    return sorted(set(texts))
