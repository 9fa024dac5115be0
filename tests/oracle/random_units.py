"""Random unit settings for generated cases."""

from units import PARSERS, SWITCHES, Round, Settings, Unit, is_fractional_class

# class name -> (identify code, symbol list, text for "None")
LENGTHS = {
    "TDecimalFeetParser": (10, ["None", "'", "LF", "FT"], "FT"),
    "TFeetAndFractionalInchParser": (11, [], "FT-IN"),
    "TDecimalInchParser": (12, ["None", '"', "LI", "IN"], "IN"),
    "TFractionalInchParser": (13, [], "IN"),
    "TMetreParser": (14, ["None", "m"], "m"),
    "TCentimeterParser": (15, ["None", "cm"], "cm"),
    "TMillimetreParser": (16, ["None", "mm"], "mm"),
}
OTHER_SYMBOLS = [
    ["None", "SF", "ft2"],
    ["None", "m2"],
    ["None", "CY", "yd3"],
    ["None", "lb"],
    ["None", "kg/m3"],
    ["None", "lb/yd3", "LB/CY"],
    ["None"],
    [],
]
ODD_SYMBOLS = [
    ["None", ""],
    ["None", "", "m"],
    ["none", "M", "mM"],
    ["NONE", "5", "e5"],
    ["None", " m", "m"],
    ["None", "None"],
    ["m", "None", "mm"],
    ["None", ",", "."],
    ["None", "\u5e73\u65b9", "\u03a9\u017f", "\u00c4"],
    ["None", "\ud83d", "\ud83d\ude00"],
]

DECIMAL_INCREMENTS = ["1000", "100", "10", "1", "0.1", "0.01", "0.001"]
CUSTOM_INCREMENTS = [
    "", "0.5", "0.25", "2.5", "3", "7", "0.125", "1e-3", "1E2", ".5", "5.", " 0.1", "0.1 ", "+0.2",
    "0", "0.0", "-0", "-0.5", "0.05", "0.0001", "0.00001", "0.000001", "1e-7", "1e-12", "1e-15", "1.50", "1.0",
    "0.3333333333333333", "123456789.123456789", "123456789012345678", "1e15", "1e16", "1e300",
    "0.1234567890123456789", "1e-9", "0.00000025",
]  # fmt: skip
BAD_INCREMENTS = ["abc", "1/16", "0,5", "1e400", "- 1", "0x10", "1e", ".", "inf", "nan", "\uff11", "1 2", "1\t", "\x00", "--1"]

FRACTION_INCREMENTS = ["12", "6", "1", "1/2", "1/4", "1/8", "1/16", "1/32", "1/64", "1/128", "1/256"]
CUSTOM_FRACTIONS = [
    "3/8", "5/16", "2/1", "1.5/2", "1 / 16", " 1/16 ", "24", "13", "0.5", "1.5", "1/1000", "1/3",
    "2/3", "36", "1/1024", "7", "3", "1/7", "+1/2", "1/+2", "120", "0.25", "11.99", "12.5", "1e1", "1/1e2", "10/4",
    "1/99999", "144/2", "12/1", "0.001",
]  # fmt: skip
BAD_FRACTIONS = ["", "abc", "0", "0/16", "1/0", "1/x", "x/2", "1/", "/2", "1/2/3", "1/-0", "0.0", '1/16"', "1-1/2"]

GROUP_PARSERS = ["TDigitGroup3CommaParser", "TDigitGroup4CommaParser"]


def pick_parser(rng):
    # Half of the cases go to the imperial lengths, where the shapes are.
    if rng.random() < 0.5:
        return rng.choice(list(LENGTHS)[:4])
    return rng.choice(list(PARSERS))


def random_round(rng, name, bad=True):
    chance = rng.random()
    usual, custom, refused = (
        (FRACTION_INCREMENTS, CUSTOM_FRACTIONS, BAD_FRACTIONS)
        if is_fractional_class(name)
        else (DECIMAL_INCREMENTS, CUSTOM_INCREMENTS, BAD_INCREMENTS)
    )
    if bad and chance < 0.01:
        return None
    if bad and chance < 0.04:
        return Round(rng.choice(refused), rng.random() < 0.5)
    if chance < 0.35:
        return Round(rng.choice(custom), rng.random() < 0.5)
    return Round(rng.choice(usual), rng.random() < 0.1)


def random_unit(rng, name=None, bad=True):
    name = name or pick_parser(rng)
    code, symbols, none_symbol = LENGTHS.get(name, (rng.choice([100, 200, 300, 500]), None, "U"))
    if symbols is None or rng.random() < 0.1:
        symbols = rng.choice(OTHER_SYMBOLS)
    if rng.random() < 0.08:
        symbols = rng.choice(ODD_SYMBOLS)
    index = rng.randrange(len(symbols)) if symbols else 0
    if rng.random() < 0.03:
        index = rng.choice([-1, len(symbols), 99])
    checked = {switch for switch in SWITCHES if rng.random() < 0.35}
    if rng.random() < 0.05:
        none_symbol = rng.choice(["", "\u7acb\u65b9", "None"])
    return Unit(name, code, random_round(rng, name, bad), list(symbols), index, checked, none_symbol)


def random_settings(rng, bad=True):
    chance = rng.random()
    if bad and chance < 0.02:
        return Settings(None)
    if chance < 0.05:
        return Settings(rng.choice(["", "TDigitGroupParser", "tdigitgroup4commaparser", "TFoo"]))
    return Settings(rng.choice(GROUP_PARSERS))
