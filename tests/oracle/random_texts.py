"""Random number, imperial and arithmetic texts for generated cases."""

ODD = [
    "\x00", "\t", "\n", "\r", "\u00a0", "\uff11", "\uff0b", "\ud800", "\udc00", "\ud83d\ude00", "\u2019",
    "\u2033", "\u0661", ",", ".", "e", "E", "+", "-", "*", "/", "^", "(", ")", " ", "  ", "'", '"', "0",
    "x", "mod", "m", "FT", "inf", "nan", "\x1f", "\x7f", "\x85", "\x0b", "\x0c", "$", "_", "\u212a",
]  # fmt: skip


def digits(rng, usual=3):
    length = rng.randint(1, usual)
    if rng.random() < 0.04:
        length = rng.choice([14, 15, 16, 17, 18, 19, 20, 25])
    text = "".join(rng.choice("0123456789") for _ in range(length))
    if length == 19 and rng.random() < 0.5:
        return rng.choice(["9223372036854775807", "9223372036854775808", "9999999999999999999"])
    return text


def number(rng):
    """A plain number text, nearly always valid."""
    sign = rng.choice(["", "", "", "-", "+"])
    form = rng.random()
    if form < 0.4:
        body = digits(rng, 6)
    elif form < 0.8:
        body = digits(rng, 5) + "." + digits(rng, 6)
    elif form < 0.85:
        body = "." + digits(rng)
    elif form < 0.9:
        body = digits(rng) + "."
    else:
        body = rng.choice(BORDER_NUMBERS)
        return body
    if rng.random() < 0.15:
        body += rng.choice("eE") + rng.choice(["", "+", "-"]) + str(rng.choice([0, 1, 2, 3, 7, 12, 15, 16, 20, 300, 308, 309, 400]))
    return sign + body


BORDER_NUMBERS = [
    "0", "-0", "+0", "0.0", ".0", "0.", "1e15", "1E15", "999999999999999", "999999999999999.9", "999999999999999.99",
    "1000000000000000", "-1000000000000000", "1000000000000001", "-1000000000000001", "1e-15", "1.1e-15", "-1e-15", "1e-16", "9.99e-16",
    "1e-400", "-1e-400", "0e-400", "1e400", "-1e400", "0e400", "1e308", "1.7976931348623157e308", "1.7976931348623159e308",
    "4.9e-324", "2e-324", "9223372036854775807", "9223372036854775808", "-9223372036854775808", "-9223372036854775809",
    "0.1", "0.3", "2.5", "1,234.5", "1,,2", ",", "1e", "1e+", "e5", ".", "+", "-", "", "+-1", "--1", "- 1", "+ 1", "1 2", "inf", "nan",
    "INF", "0x10", "$10", "1_000", "1.2.3", " 1", "1 ", "  1.5  ", "\t1", "1\t", "1\n", "00012", "-00.50", "9007199254740993", "000000000000000000001",
    "0.000000000000001", "0.0000000000000010000000000000001", "1e99999999999999999999", "1e-99999999999999999999", "0.99999999999999999",
]  # fmt: skip


def imperial(rng):
    """One of the imperial shapes, or nearly one."""
    sign = rng.choice(["", "", "", "", "-", "+"])
    shape = rng.randrange(9)
    if shape == 0:
        body = digits(rng) + rng.choice(["", "'", '"'])
    elif shape <= 5:
        feet = rng.choice([digits(rng) + "'", digits(rng) + "' ", digits(rng) + "-", ""])
        inch = rng.choice(
            [digits(rng), f"{digits(rng)}/{digits(rng)}", f"{digits(rng)} {digits(rng)}/{digits(rng)}"]
        )
        body = feet + inch + rng.choice(["", '"'])
    elif shape == 6:
        body = f"{digits(rng)}'{digits(rng)} {digits(rng)}/{digits(rng)}\""
    elif shape == 7:
        body = number(rng) + rng.choice(["'", '"'])
    else:
        body = f"{rng.randint(0, 99)}' {rng.randint(0, 11)} {rng.randint(1, 15)}/{rng.choice([2, 4, 8, 16, 32, 64])}\""
    return sign + body


def spread(rng, text):
    """Blanks and white space between characters."""
    out = ""
    for c in text:
        if rng.random() < 0.15:
            out += rng.choice([" ", " ", " ", "  ", "\t", "\n", "\r\n", "\x0b", "\x0c"])
        out += c
    return out + (" " if rng.random() < 0.2 else "")


def mutated(rng, text):
    """A valid text with one to three characters changed, inserted or removed."""
    for _ in range(rng.randint(1, 3)):
        at = rng.randint(0, len(text))
        kind = rng.random()
        if kind < 0.45:
            text = text[:at] + rng.choice(ODD) + text[at:]
        elif kind < 0.7:
            text = text[:at] + text[at + 1 :]
        elif kind < 0.85 and text:
            at = min(at, len(text) - 1)
            text = text[:at] + rng.choice(ODD + list("0123456789")) + text[at + 1 :]
        else:
            other = rng.randint(0, len(text))
            text = text[:at] + text[min(at, other) : max(at, other)] + text[at:]
    return text


def garbage(rng):
    alphabet = list("0123456789'\"/ -+.,") + ODD
    return "".join(rng.choice(alphabet) for _ in range(rng.randint(0, 12)))


def value_text(rng):
    """What a user may type into a value field, valid or not."""
    chance = rng.random()
    if chance < 0.3:
        text = number(rng)
    elif chance < 0.75:
        text = imperial(rng)
    elif chance < 0.8:
        return garbage(rng)
    else:
        text = rng.choice(BORDER_NUMBERS)
    if rng.random() < 0.2:
        text = spread(rng, text)
    if rng.random() < 0.25:
        text = mutated(rng, text)
    return text


ANCHORED = [
    "3/0", "1/05", "1/0", "5-6", '5-6"', "5 ' 6", '5\'6 1/2"', "-3/4", "abc", "1 2 3/4", "1 2", "1  2/3", "5'-6", "5'6-1/2\"",
    "1'2'3'", '1"2"', "--5'", "+5'", "-5'6 1/2\"", "+5'6 1/2\"", "5'6", "5'3/4", "5-6 3/4", "5-3/4", "'", '"', "''", "' ", "-", "/", "1/2/3",
    "0'0 0/1\"", "-0'0 0/1\"", "5'6 1/0\"", "9223372036854775807'0 0/1\"", "9223372036854775808'0 0/1\"", "0'0 1/9223372036854775808\"",
    "9223372036854775807'9223372036854775807 9223372036854775807/1\"", "1234567890123456'", "123456789012345'", "2.5'", '2.5"', ".5'", "1e2'",
    " 2.5'", "2.5 '", "2.5' ", "5'\n", "\n5'", "1 2'3", "5 6'7", "5'6 7 8/9\"", "5'6 7/8 \"", "5' 6\" ", "5'6''", "12\"'", "1/2'", "1/2'3\"",
    "\u00005'", "5'\u0000", "\uff15'", "5\u2019", "5'\ud800", "5\u00a0'", "1\u00852/3",
]  # fmt: skip
