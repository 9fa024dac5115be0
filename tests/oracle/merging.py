"""Simplified trees of the slow second implementation.

Where a tree holds no variable, every folded text is determined and compared as it is. Around
variables the library is free in what it writes, so only what must come out is worked out here:
the exact value for given values of the variables, and what the one offset must be.
"""

from dataclasses import dataclass
from fractions import Fraction

from expression import (
    E_ADD,
    E_IMPERIAL_BY_IMPERIAL,
    E_MUL,
    E_PLAIN_BY_IMPERIAL,
    E_SUB,
    E_VAR,
    NUM,
    Node,
)
from number_text import OracleError, float_to_str


def merge_numbers(parser, node):
    """The folded operand of a tree without variables; every message is kept in parser.errors."""
    if node.kind == NUM:
        return folded(parser, node.number, True, node.imperial) if node.negative else node
    node.left = merge_numbers(parser, node.left)
    node.right = merge_numbers(parser, node.right)
    value = parser.get_double_value(node)
    return folded(parser, value, node.negative, node.left.imperial or node.right.imperial)


def folded(parser, value, negative, imperial):
    try:
        text = float_to_str(-value if negative else value)
    except OracleError:
        parser.fail("* is too big")
        parser.fail("* is too Small")
        text = "0"
    node = Node(NUM, text)
    node.imperial = imperial
    parser.process_node(node)
    return node


def variables(node):
    return [operand.value for operand in node.operands() if operand.var]


def evaluate(node, values):
    """(exact value, sum of the magnitudes that went into it), None where it is not defined."""
    if node.kind == NUM:
        value = values[node.value] if node.var else Fraction(node.number)
        result = value, abs(value)
    else:
        left, right = evaluate(node.left, values), evaluate(node.right, values)
        if left is None or right is None:
            return None
        if node.value in "+-":
            right_value = right[0] if node.value == "+" else -right[0]
            result = left[0] + right_value, left[1] + right[1]
        elif node.value == "*":
            result = left[0] * right[0], left[1] * right[1]
        else:
            if right[0] == 0:
                return None
            grown = right[1] / abs(right[0])
            result = left[0] / right[0], left[1] / abs(right[0]) * grown
    return (-result[0], result[1]) if node.negative else result


OFFSET, PRODUCT, MIXED = "offset", "product", "mixed"


@dataclass
class Linear:
    """k * x + b, or k / x + b when inverse; kind says how the tree is built around the variable."""

    kind: str = PRODUCT
    k: Fraction = Fraction(1)
    b: Fraction = Fraction(0)
    spread: Fraction = Fraction(0)  # sum of the magnitudes that went into b
    inverse: bool = False
    name: str = ""
    plain_terms: int = 0
    imperial_terms: int = 0
    imperial_factor: bool = False
    unsure: bool = False
    only_the_variable: bool = True  # no operator at all

    def negate(self):
        self.k, self.b = -self.k, -self.b


def linear(parser, node):
    """Form of a tree around its one variable; a folded operand where it has none."""
    if not variables(node):
        return merge_numbers(parser, node)
    if node.kind == NUM:
        form = Linear(name=node.value)
    else:
        form = _combined(parser, node)
    if node.negative:
        form.negate()
    return form


def _combined(parser, node):
    left, right = linear(parser, node.left), linear(parser, node.right)
    variable_left = isinstance(left, Linear)
    form, number = (left, right) if variable_left else (right, left)
    form.only_the_variable = False
    n = Fraction(number.number)
    if node.value in "+-":
        return _add(form, number, n, node.value, variable_left)
    form.imperial_factor = form.imperial_factor or number.imperial
    if form.kind != PRODUCT:
        form.kind = MIXED
    if node.value == "*":
        form.k, form.b, form.spread = form.k * n, form.b * n, form.spread * abs(n)
    elif variable_left:
        form.unsure = form.unsure or n == 0
        if n != 0:
            form.k, form.b, form.spread = form.k / n, form.b / n, form.spread / abs(n)
    else:
        _divide_by(form, n)
    if n == 0:
        form.unsure = True
    return form


def _add(form, number, n, operator, variable_left):
    if form.kind == PRODUCT:
        form.kind = OFFSET
    form.spread += abs(n)
    if number.imperial:
        form.imperial_terms += 1
    else:
        form.plain_terms += 1
    if operator == "-" and not variable_left:
        form.negate()
        form.b += n
    else:
        form.b += n if operator == "+" else -n
    return form


def _divide_by(form, n):
    """n / form"""
    if form.kind == PRODUCT and form.k != 0:
        form.k, form.inverse = n / form.k, not form.inverse
    else:
        form.kind, form.unsure = MIXED, True


def expected_refusals(form):
    """(messages, whether the tree must be refused, whether it may be)"""
    if form.imperial_factor:
        return {E_VAR}, form.kind != MIXED, True
    mixed_terms = form.imperial_terms > 0 and form.plain_terms > 0
    too_big = abs(form.b) > Fraction(10) ** 14 or abs(form.k) > Fraction(10) ** 14
    tiny = form.k == 0 or abs(form.k) < Fraction(1, 10**250)
    return {E_ADD, E_SUB}, False, mixed_terms or too_big or tiny or form.unsure


def several_variables(parser, root):
    """(messages, whether the tree must be refused, whether it may be) with two or more variables."""
    found = {"must": False, "may": False}

    def walk(node):
        if not variables(node):
            return merge_numbers(parser, node)
        if node.kind == NUM:
            return node
        left, right = walk(node.left), walk(node.right)
        if node.value in "*/" and (left.imperial or right.imperial):
            other = right if left.imperial else left
            found["must" if other.var else "may"] = True
        return node

    walk(root)
    numbers = [operand for operand in root.operands() if not operand.var]
    mixed = any(n.imperial for n in numbers) and not all(n.imperial for n in numbers)
    return {E_ADD, E_SUB, E_VAR}, found["must"], found["may"] or mixed


def possible_messages(root):
    """What regrouping may come upon in a tree that is refused anyway: any of these may be the last."""
    messages = {E_VAR}
    if any(operand.imperial for operand in root.operands()):
        messages |= {E_ADD, E_SUB, E_MUL, E_PLAIN_BY_IMPERIAL, E_IMPERIAL_BY_IMPERIAL}
    if any(abs(operand.number) > 1e6 for operand in root.operands()):
        messages |= {"* is too big", "* is too Small"}
    return messages
