"""Generated cases of the expression engine and the elevation functions."""

from fractions import Fraction

import elevation
import facade
import merging
import number_text as numbers
import random_texts as texts
import random_units
from case_format import bits, each, escape, flag, line, unit_field
from expression import OP, Parser, parse_messages

MESSAGES = [
    "", " ", "1+2*3", "1*2+3", "8-2-1", "(1+2)*3", "-5+3", "--5", "---5", "+5", "+-5", "-+5", "2*-3", "2--3", "2---3", "-(1+2)", "2*-(3+4)",
    "f(3)", "2 * (3)", "(1+2) * 3", "- 5", "1 2", "1+", "(1+2", "((1+2)", "(1", "(", ")", "()", "-()", "(())", "1+()", "()+1", "(1+)*2", "2*/", "*/5",
    "*5", "2**3", "2*/5", "*", "*/", "+", "-", "--", "-*5", "2*-", "2*+", "1+ +2", "2* *3", "(1+2)(3+4)", "(1)2", "(1)(2)", "2(3)", "(1)()",
    "2**(3)", "2**(3+4)", "2**", "2**3*", "2***3", "1//2", "-(-(5))", "-(-(1+2))", "-(5)", "--(5)", "-(-5)", "(-(5))", "3-(-(2))", "2*(-(3)+4)",
    "1000000000000000", "1000000000000001", "-1000000000000001", "1e15", "1.1e15", "-1e16", "1e400", "1000000000000000*2", "1e15/1e-300",
    "-1e15-1", "6/0", "0/0", "6/(2-2)", "5'+3", "5'-3", "5'*2", "5'*2'", "2/5'", "5'/2'", "5'/0", "5'/2", "5'+6\"", "(5'+6\")*2", "(5'+6\")+2",
    "5'*(2'-1')", "A*5'", "5'*A", "A/5'", "5'/A", "A+5'", "A*(2'+3')", "A*2*3'", "(A+5)*5'", "5' 6 1/2\"", "6/2", "1/2\"+5'", "-1/2\"", "5'6-1/2\"",
    "5' 6 1/2", "1/2\"/2", "3/4/5\"", "5'6/2\"", "5''", "5'x'", "x'", "x\"", "1'2'", "2.5'", "A+5+3", "5+A", "5-A", "1000-(A+500)", "-(A+5)", "-(A)", "-(A-5)+3",
    "A-5-3", "3-(2-A)", "A*2*3", "2*A*3", "A/2*3", "6/A", "6/A*2", "2*(A+5)", "A*2+5+3", "0*A", "A+0", "A-A", "A+B", "A+B+5", "A*B", "-A", "-A+5", "((A))", "(A)+(5)",
    "2-(3-(4-(5-A)))", "(1+2)-(A-(3+4))", "1-(A)", "-(-(A))", "-(-(A+1))+2", "A+5'+3", "A+5'+6'", "A-(5'+6\")", "(2+3)*(A)", "A/(2+3)", "(1+2)/(A)", "A+1/3", "A-1/3-2/3",
    "\uff11+2", "A\u0000+1", "\ud800", "1+\ud83d\ude00", "1\t+2", "\t1+2\t", "1+\n2", "5\u2019+1", "1)", "1)+2", "(1))", "((1)", "1e5+1", "1e-5", "1e+5", "1E5*2",
    "A(", "-A(2)", "1+A(2)", "1,000+1", ".5+.5", "5.+1", "0", "-0", "0*-5", "1-1", "0.1+0.2", "1/3", "2/3*3", "100000000000000+0.12345", "123456789.123456789-0.000000001",
    "-(1'+2)", "-(5')", "-(5')+1'", "1'-(-(2'))", "3*(1'-2')", "A*(5-5)", "A/(5-5)", "-(A*2)", "-(A/2)+1", "1-(2*A)", "(A+1)+(2+3)", "(1+2)+(A+3)", "(1+(2+(3+(4+A))))",
]  # fmt: skip

DEEP = [
    "(" * 1000 + "5" + ")" * 1000, "(" * 1001 + "5" + ")" * 1001, "-(" * 999 + "5" + ")" * 999,
    "-(1-" * 501 + "2" + ")" * 501, "(1+" * 500 + "A" + ")" * 500, "2-" * 400 + "A", "1-(" * 300 + "A" + ")" * 300, "2*-(" * 40 + "3" + ")" * 40,
]  # fmt: skip

NAMES = ["A", "B", "F1", "Level_2", "L.top", "\u6807\u9ad8", "x"]
ASSIGNED = [[7.25, -3.5, 11.0, 0.75, 2.0], [-2.5, 8.0, 0.5, 5.0, -1.25], [1234.5, 17.0, -6.0, 3.0, 0.125]]


def number(rng, plain):
    if plain:
        return rng.choice([str(rng.randint(0, 1000)), str(rng.randint(1, 12)), f"{rng.randint(0, 5000) / 100}", f"{rng.uniform(0, 100):.6f}"])
    return rng.choice([texts.number(rng), str(rng.randint(0, 10**15)), f"{rng.uniform(0, 1e6)!r}"])


def length(rng):
    return rng.choice(
        [
            f"{rng.randint(0, 60)}'",
            f'{rng.randint(0, 11)}"',
            f"{rng.randint(0, 60)}'{rng.randint(0, 11)}\"",
            f"{rng.randint(0, 60)}' {rng.randint(0, 11)} {rng.randint(1, 15)}/{rng.choice([2, 4, 8, 16, 32])}\"",
            f"{rng.randint(0, 11)} {rng.randint(1, 7)}/8\"",
            f"{rng.randint(1, 15)}/16\"",
            f"{rng.randint(0, 60)}' {rng.randint(0, 11)}",
        ]
    )


class Maker:
    """One random expression text: how many variables, how many imperial lengths, how clean."""

    def __init__(self, rng):
        self.rng = rng
        self.variables = rng.choice([0, 0, 0, 1, 1, 1, 1, 2, 3])
        self.imperial = rng.choice([0.0, 0.0, 0.0, 0.15, 0.5, 0.9])
        self.operators = rng.choice(["+-", "+-", "+-*/", "+-*/", "*/"])
        self.plain = self.variables > 0 or rng.random() < 0.7
        self.blanks = rng.random() < 0.2

    def operand(self):
        rng = self.rng
        if self.variables and rng.random() < 0.4:
            self.variables -= 1
            name = rng.choice(NAMES)
            return "-" + name if rng.random() < 0.05 else name
        text = length(rng) if rng.random() < self.imperial else number(rng, self.plain)
        return rng.choice(["", "", "", "", "-", "+", "--"]) + text

    def expression(self, depth):
        rng = self.rng
        out = self.factor(depth)
        for _ in range(rng.choice([0, 1, 1, 1, 2, 3])):
            blank = " " if self.blanks and not out.endswith(")") and rng.random() < 0.4 else ""
            out += blank + rng.choice(self.operators)
            right = self.factor(depth)
            out += (" " if self.blanks and right and right[0] not in "(-+" else "") + right
        return out

    def factor(self, depth):
        rng = self.rng
        if depth > 0 and rng.random() < 0.4:
            return rng.choice(["", "", "-", "+", "--"]) + "(" + self.expression(depth - 1) + ")"
        return self.operand()


def expression_text(rng):
    chance = rng.random()
    if chance < 0.08:
        return rng.choice(MESSAGES)
    if chance < 0.12:
        return texts.garbage(rng)
    text = Maker(rng).expression(rng.randint(0, 6) if rng.random() < 0.5 else rng.randint(0, 2))
    if chance < 0.25:
        text = texts.mutated(rng, text)
    return text


def tree_tokens(node):
    """Prefix order; operators with their flags, operands with value, store text and number."""
    flags = "".join(c for c, on in zip("bnvi", (node.block, node.negative, node.var, node.imperial)) if on)
    if node.kind == OP:
        return f";o:{flags}:{escape(node.value)}" + tree_tokens(node.left) + tree_tokens(node.right)
    return f";v:{flags}:{escape(node.value)}:{escape(node.store)}:{bits(node.number)}"


def has_negative_block(root):
    return any(node.negative for node in root.nodes())


def expression_case(rng, text=None):
    settings = random_units.random_settings(rng, bad=False)
    unit = length_unit(rng)
    if text is None:
        text = expression_text(rng)
    project = facade.Project({3: unit}, settings)
    root, messages = parse_messages(project, text)
    fields = [unit_field(unit, settings), escape(text), each(sorted(messages))]
    if root is None:
        return line("expr", *fields, "", "", "", "", "", "", "")
    fields.append(tree_tokens(root))
    fields += before_merging(project, text, root)
    fields += after_merging(project, text, root)
    return line("expr", *fields)


def before_merging(project, text, root):
    """GetDoubleValue with its messages, and the store text where no sign stands outside it."""
    parser = Parser(project, text)
    value = parser.get_double_value(root)
    store = "?"
    if not has_negative_block(root):
        store = "=" + escape(Parser(project, text).get_store_value(root))
    return [each(sorted(set(parser.errors))) + ";" + bits(value), store]


def after_merging(project, text, root):
    """Status (ok, err, may), messages, the folded operand, and values around variables."""
    names = sorted(set(merging.variables(root)))
    if not names:
        parser = Parser(project, text)
        node = merging.merge_numbers(parser, parse_messages(project, text)[0])
        if parser.failed:
            return ["err", each(sorted(set(parser.errors))), "", ""]
        return ["ok", "", tree_tokens(node), ""]
    status, messages = variable_status(project, text, root)
    return [status, each(sorted(messages)), "", assigned_values(root, names)]


def assigned_values(root, names):
    out = "".join(";" + escape(name) for name in names)
    for values in ASSIGNED:
        given = {name: Fraction(values[i % len(values)]) for i, name in enumerate(names)}
        result = merging.evaluate(root, given)
        out += "|" + ",".join(bits(float(given[name])) for name in names) + "="
        out += "?" if result is None else written_value(result)
    return out


def written_value(result):
    try:
        return bits(numbers.to_double(result[0])) + ":" + bits(numbers.to_double(result[1]))
    except numbers.OracleError:
        return "?"


def variable_status(project, text, root):
    parser = Parser(project, text)
    tree = parse_messages(project, text)[0]
    names = merging.variables(root)
    may = any(abs(operand.number) > 1e12 for operand in root.operands())
    for values in ASSIGNED:
        result = merging.evaluate(root, {name: Fraction(values[0]) for name in names})
        may = may or result is None or result[1] > 10**13
    if len(names) == 1:
        form = merging.linear(parser, tree)
        if parser.failed:
            return "err", set(parser.errors) | merging.possible_messages(root)
        messages, must, may_form = merging.expected_refusals(form)
        may = may or may_form
    else:
        messages, must, may_form = merging.several_variables(parser, tree)
        if parser.failed:
            return "err", set(parser.errors) | merging.possible_messages(root)
        may = may or may_form
    return ("err", merging.possible_messages(root)) if must else (("may", messages) if may else ("ok", set()))


def length_unit(rng):
    """A current unit for the elevation measure: mostly one of the seven lengths."""
    name = rng.choice(list(random_units.LENGTHS))
    if rng.random() < 0.02:
        name = random_units.pick_parser(rng)
    unit = random_units.random_unit(rng, name, bad=rng.random() < 0.1)
    if rng.random() < 0.02:
        unit.code = rng.choice([0, 9, 17, 99])
    if rng.random() < 0.005:
        unit.parser = "TFoo"
    return unit


OFFSETS = ["+", "-"]


def elevation_text(rng, unit):
    chance = rng.random()
    if chance < 0.3:
        return expression_text(rng)
    if chance < 0.5:
        return rng.choice(["", "-", "+"]) + rng.choice([number(rng, True), number(rng, False), length(rng), texts.value_text(rng)])
    if chance < 0.75:
        name = rng.choice(NAMES)
        offset = rng.choice([number(rng, True), length(rng)])
        second = rng.choice(["", "", rng.choice(OFFSETS) + number(rng, True)])
        if rng.random() < 0.3:
            return offset + rng.choice(OFFSETS) + name + second
        return name + rng.choice(OFFSETS) + offset + second
    return chain_around_variable(rng)


def chain_around_variable(rng):
    """Sums with one variable somewhere, brackets and negated brackets."""
    terms = [number(rng, True) for _ in range(rng.randint(1, 5))]
    terms.insert(rng.randint(0, len(terms)), rng.choice(NAMES) if rng.random() < 0.8 else "2*" + rng.choice(NAMES))
    while len(terms) > 1:
        at = rng.randint(0, len(terms) - 2)
        joined = terms[at] + rng.choice("+-") + terms[at + 1]
        if rng.random() < 0.5:
            joined = rng.choice(["", "-"] if at == 0 else [""]) + f"({joined})"
        terms[at : at + 2] = [joined]
    return terms[0]


def texts_field(wanted):
    """Nothing: free; "|" and a text; "#" and the two spellings of an offset, none for no offset."""
    if wanted is None:
        return ""
    if isinstance(wanted, elevation.Pieces):
        return "#" + ("" if wanted.offset is None else escape(wanted.offset) + "|" + escape(wanted.opposite))
    return each(wanted)


def elevation_case(rng, text=None):
    settings = random_units.random_settings(rng, bad=rng.random() < 0.1)
    unit = length_unit(rng)
    if text is None:
        text = rng.choice(MESSAGES) if rng.random() < 0.05 else elevation_text(rng, unit)
    project = facade.Project({3: unit}, settings)
    answer = elevation.elevation(project, text)
    value = ""
    if answer.value is not None:
        name, k, inverse, no_offset, slack = answer.value
        value = ";".join([escape(name), bits(float(k)), flag(inverse), flag(no_offset), bits(slack)])
    return line(
        "elev",
        unit_field(unit, settings),
        escape(text),
        texts_field(answer.store),
        texts_field(answer.edit),
        texts_field(answer.display),
        "".join(flag(accepted) for accepted in answer.accepted),
        value,
    )


FAMILIES = {"expr": expression_case, "elev": elevation_case}
