"""Expression engine of the slow second implementation: reading, evaluating, writing.

Messages: where one text holds several errors any of their messages may be the last, so every
message that comes up on the way is kept in a list.
"""

import facade
from number_text import float_to_plain_str, float_to_str, is_numeric, str_to_float, trim

UNKNOWN, NUM, OP = "unknown", "num", "op"
MEASURE, SCALE = 3, 3
METRIC = (14, 15, 16)
IMPERIAL = (10, 11, 12, 13)
FRACTIONAL_INCHES = 13
DEEPEST = 1000

E_FUNCTION = "unsupport function!"
E_CLOSE = "missing ) error!"
E_OPEN = "missing ( error!"
E_OPERATOR = "missing operator!"
E_NIL = "can not be nil afer operator"
E_DEEP = "too many nested brackets!"
E_ADD = "imperial number can not add with const!"
E_SUB = "imperial number can not sub with const!"
E_MUL = "imperial can not mul by imperial!"
E_ZERO = "can not div by zero!"
E_PLAIN_BY_IMPERIAL = "not imperial can not div by imperial!"
E_IMPERIAL_BY_IMPERIAL = "imperial can not div by imperial!"
E_VAR = "var can not div or mul with imperial"


class Node:
    def __init__(self, kind=UNKNOWN, value=""):
        self.left = None
        self.right = None
        self.kind = kind
        self.value = trim(value)
        self.store = ""
        self.number = 0.0
        self.block = self.negative = self.var = self.elev = self.imperial = False

    def binds_tighter(self, other, respect_block):
        if other.block and respect_block:
            return False
        if self.value not in ("*", "/"):
            return False
        return other.value in ("+", "-")

    def nodes(self):
        """Every node of the tree, left before right."""
        waiting = [self]
        while waiting:
            node = waiting.pop()
            yield node
            waiting += [child for child in (node.right, node.left) if child is not None]

    def operands(self):
        return (node for node in self.nodes() if node.kind != OP)


class Parser:
    """lazy: what stands wrongly in an operand's place is reported only when nothing else is wrong."""

    def __init__(self, project, text, lazy=False, depth=0):
        self.project = project
        self.text = trim(text)
        self.total = len(self.text) + 1
        self.point = 1
        self.errors = []
        self.lazy = lazy
        self.depth = depth

    @property
    def failed(self):
        return bool(self.errors)

    def fail(self, message):
        self.errors.append(message)

    def unit_code(self):
        unit = self.project.units.get(MEASURE)
        return None if unit is None else unit.code

    # --- tokens -----------------------------------------------------------------------------

    def get_node(self):
        tok = ""
        while True:
            if self.point == self.total:
                return self.operand(tok) if tok else None
            c = self.text[self.point - 1]
            at = self.point
            self.point += 1
            keep = True
            if c == "(":
                if tok not in ("", "-", "+"):
                    self.fail(E_FUNCTION)
                    return None
                return self.bracket(tok == "-")
            if c in "+-*/":
                is_sign = c in "+-"
                after_operator = at > 1 and self.text[at - 2] in "*+-/"
                if is_sign and (at == 1 or after_operator):
                    if c == "+":
                        keep = False
                    elif tok == "-":
                        tok = ""
                        keep = False
                elif c == "/" and self.unit_code() in IMPERIAL and tok != "":
                    if not self.is_fraction_bar(tok):
                        self.point -= 1
                        return self.operand(tok)
                elif tok:
                    self.point -= 1
                    return self.operand(tok)
                else:
                    return Node(OP, c)
            if keep:
                tok += c

    def is_fraction_bar(self, tok):
        if any(c not in " '0123456789" for c in tok):
            return False
        ahead = self.point
        while ahead < self.total and self.text[ahead - 1] in "0123456789":
            ahead += 1
        return ahead > self.point and ahead < self.total and self.text[ahead - 1] == '"'

    def operand(self, tok):
        node = Node(NUM, tok)
        if node.value in ("", "-"):
            return node  # judged by the place where it stands
        before = len(self.errors)
        self.process_node(node)
        return None if len(self.errors) > before else node

    def bracket(self, negative):
        sub = self.sub_string_in_bracket()
        if sub is None:
            return None
        if self.depth + 1 > DEEPEST:
            self.fail(E_DEEP)
            return None
        parser = Parser(self.project, sub, self.lazy, self.depth + 1)
        root = parser.parse()
        if parser.failed or root is None:
            if E_DEEP in parser.errors:
                self.fail(E_DEEP)
                return None
            return Node(UNKNOWN)  # stands for the operand that is missing here
        root.block = True
        root.negative = root.negative != negative  # two minus signs cancel
        return root

    def sub_string_in_bracket(self):
        nesting = 0
        start = self.point
        while True:
            if self.point == self.total:
                self.fail(E_CLOSE)
                return None
            c = self.text[self.point - 1]
            if c == ")" and nesting == 0:
                self.point += 1
                return self.text[start - 1 : self.point - 2]
            if c == "(":
                nesting += 1
            elif c == ")":
                nesting -= 1
            self.point += 1
            if self.point == self.total:
                self.fail(E_OPEN if nesting < 1 else E_CLOSE)
                return None

    # --- tree -------------------------------------------------------------------------------

    def parse(self):
        if self.text == "":
            return None
        root = self.parse_lazily() if self.lazy else self.parse_eagerly()
        return None if self.failed else root

    @staticmethod
    def is_operator(node):
        return node is not None and node.kind == OP and not node.block

    @staticmethod
    def is_missing(node):
        """No operand at all: nothing, failed brackets, blanks only or a lone sign."""
        if node is None or node.kind == UNKNOWN:
            return True
        return node.kind == NUM and not node.block and node.value in ("", "-")

    def parse_lazily(self):
        """A missing operand is reported at the end, when nothing else was wrong."""
        wrong = False
        root = self.get_node()
        if self.failed:
            return None
        wrong = self.is_missing(root) or self.is_operator(root)
        while True:
            op = self.get_node()
            if self.failed:
                return None
            if op is None:
                break
            if not self.is_operator(op):
                self.fail(E_OPERATOR)
                return None
            right = self.get_node()
            if self.failed:
                return None
            if right is None:
                self.fail(E_NIL)
                return None
            wrong = wrong or self.is_missing(right) or self.is_operator(right)
            if root is None:
                root = op
                continue
            root = self.attach(root, op, right)
        if wrong:
            self.fail(E_NIL)
        return root

    def parse_eagerly(self):
        """A missing operand is reported where it is missed, an operator one token later."""
        root = self.get_node()
        if self.failed:
            return None
        if self.is_missing(root):
            self.fail(E_NIL)
            return None
        suspect = self.is_operator(root)
        while True:
            op = self.get_node()
            if self.failed:
                return None
            if op is not None and not self.is_operator(op):
                self.fail(E_NIL if op.kind == UNKNOWN else E_OPERATOR)
                return None
            if suspect:
                self.fail(E_NIL)
                return None
            if op is None:
                return root
            right = self.get_node()
            if self.failed:
                return None
            if self.is_missing(right):
                self.fail(E_NIL)
                return None
            suspect = self.is_operator(right)
            root = self.attach(root, op, right)

    @staticmethod
    def attach(root, op, right):
        op.right = right
        if op.binds_tighter(root, True):
            op.left = root.right
            root.right = op
            return root
        op.left = root
        return op

    # --- operands ---------------------------------------------------------------------------

    def process_node(self, node):
        if not is_numeric(node.value):
            ends_with_mark = node.value.endswith(("'", '"'))
            if self.unit_code() in METRIC or not ends_with_mark:
                node.store, node.var = node.value, True
                return
            self.imperial_operand(node)
            return
        value = str_to_float(node.value)
        if value > 1e15:
            self.placeholder(node, node.value + " is too big")
        elif value < -1e15:
            self.placeholder(node, node.value + " is too Small")
        else:
            node.number, node.store = value, node.value

    def imperial_operand(self, node):
        node.imperial = True
        command = facade.Command(self.project, MEASURE)
        if command.check_display(node.value):
            node.number = command.display_to_store(node.value, SCALE)
            node.store = float_to_str(node.number)
        else:
            self.placeholder(node, "Imperial format error: " + node.value)

    def placeholder(self, node, message):
        self.fail(message)
        node.number, node.store = 1.0, "1"

    # --- value ------------------------------------------------------------------------------

    def get_double_value(self, node):
        if node.kind != OP:
            return node.number
        if node.left is None or node.right is None:
            self.fail(E_NIL)
            return 0.0
        left = self.get_double_value(node.left)
        right = self.get_double_value(node.right)
        li, ri = node.left.imperial, node.right.imperial
        if node.value == "+":
            return self.refuse(E_ADD) if li != ri else left + right
        if node.value == "-":
            return self.refuse(E_SUB) if li != ri else left - right
        if node.value == "*":
            return self.refuse(E_MUL) if li and ri else left * right
        if node.value == "/":
            if right == 0:
                return self.refuse(E_ZERO)
            if ri:
                return self.refuse(E_IMPERIAL_BY_IMPERIAL if li else E_PLAIN_BY_IMPERIAL)
            return left / right
        return 0.0

    def refuse(self, message):
        self.fail(message)
        return 0.0

    # --- text -------------------------------------------------------------------------------

    def get_store_value(self, node):
        return self.write(node, self.store_operand)

    def get_edit_value(self, node):
        return self.write(node, self.edit_operand)

    def get_display_value(self, node):
        return self.write(node, self.display_operand)

    def write(self, node, operand):
        if node.kind == OP:
            if self.failed or node.left is None or node.right is None:
                return ""
            text = self.write(node.left, operand) + node.value + self.write(node.right, operand)
            return f"({text})" if node.block else text
        text = operand(node)
        return f"({text})" if node.number < 0 else text

    def store_operand(self, node):
        if not node.elev or node.var or node.imperial:
            return node.store
        command = facade.Command(self.project, MEASURE)
        if not command.check_display(node.store):
            self.fail("")
            return ""
        return float_to_plain_str(command.display_to_store(node.store, SCALE))

    def edit_operand(self, node):
        if not node.elev or node.var:
            return node.store
        if not is_numeric(node.store):
            return ""
        flags = (True, True, True, True)
        text = facade.store_to_display_second(
            self.project, MEASURE, str_to_float(node.store), SCALE, False, flags
        )
        if self.unit_code() == FRACTIONAL_INCHES and text != "" and not text.endswith('"'):
            text += '"'
        return text

    def display_operand(self, node):
        if not node.elev or node.var:
            return node.store
        flags = (False, False, False, False)
        return facade.store_to_display_second(self.project, MEASURE, node.number, SCALE, False, flags)


def parse_messages(project, text):
    """(tree or None, the set of messages of which one must be the library's)."""
    eager = Parser(project, text)
    root = eager.parse()
    lazy = Parser(project, text, lazy=True)
    lazy.parse()
    messages = set(eager.errors[-1:]) | set(lazy.errors[-1:])
    assert bool(eager.errors) == bool(lazy.errors), text
    return root, messages
