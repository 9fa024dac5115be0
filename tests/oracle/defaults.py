"""The factory-default configuration, written down a second time from the tables.

The library's generated file must hold exactly this.
"""

CONFIGS = ["US Imperial System", "UK Imperial System", "Standard Metric System", "Taiwan Metric System"]

# description, classify code, example value, default unit of the four configurations
MEASURES = [
    ("Length (Basic Information)", 0, "1234.56789012345", [1, 1, 6, 5]),
    ("Length (Calculation Result)", 7, "1234.56789012345", [0, 0, 4, 4]),
    ("Elevation/Segment", 3, "1234.56789012345", [1, 1, 4, 4]),
    ("Area", 1, "1234567890.12345", [0, 0, 2, 2]),
    ("Volume", 2, "1234567890123.45", [0, 0, 3, 3]),
    ("Mass", 6, "1.000", [0, 0, 1, 1]),
    ("Mass Density", 4, "1234.56789012345", [2, 2, 0, 0]),
    ("Volume per Unit Length", 5, "1234.56789012345", [2, 2, 0, 0]),
    ("Volume per Unit Length", 0, "1234.56789012345", [-1, -1, -1, -1]),
]

# description, identify code, text for "None", parser class, default round, symbols after "None"
# (no list at all: None), round list
_LENGTHS = [
    ("Decimal feet", 10, "FT", "TDecimalFeetParser", 6, ["'", "LF", "FT"], "D"),
    ("Feet and fractional inches", 11, "FT-IN", "TFeetAndFractionalInchParser", 7, None, "F"),
    ("Decimal inches", 12, "IN", "TDecimalInchParser", 6, ['"', "LI", "IN"], "D"),
    ("Fractional inches", 13, "IN", "TFractionalInchParser", 5, None, "I"),
    ("Meters", 14, "m", "TMetreParser", 6, ["m"], "D"),
    ("Centimeters", 15, "cm", "TCentimeterParser", 4, ["cm"], "D"),
    ("Millimeters", 16, "mm", "TMillimetreParser", 3, ["mm"], "D"),
]
UNITS = [
    _LENGTHS,
    _LENGTHS,
    _LENGTHS,
    [
        ("Square feet", 100, "SF", "TSquareFootParser", 6, ["SF", "ft2"], "D"),
        ("Square inches", 101, "SI", "TSquareInchParser", 6, ["SI", "in2"], "D"),
        ("Square meters", 102, "m2", "TSquareMeterParser", 6, ["m2"], "D"),
        ("Square centimeters", 103, "cm2", "TSquareCentimetreParser", 6, ["cm2"], "D"),
        ("Square millimeters", 104, "mm2", "TSquareMillimeterParser", 6, ["mm2"], "D"),
    ],
    [
        ("Cubic yards", 200, "CY", "TCubicYardParser", 6, ["CY", "yd3"], "D"),
        ("Cubic feet", 201, "CF", "TCubicFootParser", 6, ["CF", "ft3"], "D"),
        ("Cubic inches", 202, "CI", "TCubicInchParser", 6, ["CI", "in3"], "D"),
        ("Cubic meters", 203, "m3", "TCubicMeterParser", 6, ["m3"], "D"),
        ("Cubic centimeters", 204, "cm3", "TCubicCentimeterParser", 6, ["cm3"], "D"),
    ],
    [
        ("Pounds", 501, "lb", "TBangParser", 6, ["lb"], "D"),
        ("Kilograms", 500, "kg", "TKilogramsParser", 6, ["kg"], "D"),
    ],
    [
        ("Kilograms per cubic meter", 300, "kg/m3", "TKiogramsPerCubicMeterParser", 6, ["kg/m3"], "D"),
        ("Pounds per cubic foot", 301, "LB/CF", "TPoundPerCubicFootParser", 6, ["lb/ft3", "LB/CF"], "D"),
        ("Pounds per cubic yard", 302, "LB/CY", "TPoundPerCubicYardParser", 6, ["lb/yd3", "LB/CY"], "D"),
    ],
    [
        ("Cubic meters per meter", 400, "m3/m", "TCubicMetersPerMeterParser", 6, ["m3/m"], "D"),
        ("Cubic feet per foot", 401, "CF/FT", "TCubicFeetPerFootParser", 6, ["ft3/ft", "CF/FT"], "D"),
        ("Cubic yards per foot", 402, "CY/FT", "TCubicYardsPerFootParser", 6, ["yd3/ft", "CY/FT"], "D"),
    ],
    [
        ("Kilograms per meter", 600, "kg/m", "TKilogramsPerMeterParser", 6, None, None),
        ("Pounds per Foot", 601, "LB/FT", "TPoundPerFootParser", 6, None, None),
    ],
]

_FRACTIONS = ["1/2", "1/4", "1/8", "1/16", "1/32", "1/64", "1/128", "1/256"]
_INCHES = [(f'To the nearest {step}"', step, False, False) for step in ["1", *_FRACTIONS]]
# description, increment, can edit, can visible
ROUNDS = {
    "F": [("To the nearest 1'", "12", False, False), ('To the nearest 6"', "6", False, False), *_INCHES],
    "I": _INCHES,
    "D": [
        ("To the nearest 1000", "1000", False, True),
        ("To the nearest 100", "100", False, True),
        ("To the nearest 10", "10", False, True),
        ("0 decimal places", "1", False, True),
        ("1 decimal place", "0.1", False, True),
        ("2 decimal places", "0.01", False, True),
        ("3 decimal places", "0.001", False, True),
        ("Custom", "", True, True),
    ],
    None: [],
}

# (enabled, checked) of the six check boxes
FRACTIONAL_FORMAT = [(False, False), (False, False), (True, False), (True, False), (True, False), (True, False)]
DECIMAL_FORMAT = [(False, False), (True, False), (False, False), (True, False), (True, False), (False, False)]
GROUPED = {"Square feet", "Cubic yards", "Pounds"}  # digit grouping ticked by default

DIGIT_GROUPS = [("123,456,789.00", "TDigitGroup3CommaParser"), ("1,2345,6789.00", "TDigitGroup4CommaParser")]
BOXES = ["UseProjectSetting", "SuppressTrail0", "Suppress0Feet", "ShowPlusSymbolForPosValue", "UseDigitGroup", "SuppressSpace"]


def format_of(unit):
    if unit[6] in ("F", "I"):
        return FRACTIONAL_FORMAT
    if unit[0] in GROUPED:
        return [*DECIMAL_FORMAT[:4], (True, True), DECIMAL_FORMAT[5]]
    return DECIMAL_FORMAT


def symbols_of(unit):
    return [] if unit[5] is None else ["None", *unit[5]]


def boolean(value):
    return "true" if value else "false"


def elements():
    """The whole file as (depth, element name, attributes), in document order."""
    yield 0, "Unit", {}
    yield 1, "TemplateConfig", {"CurConfigIndex": "-1"}
    for index, description in enumerate(CONFIGS):
        yield 2, "Config", {"Description": description, "OrderIndex": str(index)}
        for order, measure in enumerate(MEASURES):
            yield from _measure(index, order, measure)
    yield 1, "DigitGroup", {"CurDigitGroupIndex": "0"}
    for order, (description, parser) in enumerate(DIGIT_GROUPS):
        yield 2, "CGroup", {"Description": description, "OrderIndex": str(order), "DigitGroupParserClassName": parser}


def _measure(config, order, measure):
    description, code, example, default = measure
    yield 3, "Measurement", {
        "ExampleValue": example,
        "ClassifyCode": str(code),
        "Description": description,
        "OrderIndex": str(order),
        "DefUnitIndex": str(default[config]),
        "CurUnitIndex": str(default[config]),
    }
    for position, unit in enumerate(UNITS[order]):
        yield from _unit(position, unit)


def _unit(position, unit):
    yield 4, "Unit", {
        "UnitIdentifyCode": str(unit[1]),
        "Description": unit[0],
        "OrderIndex": str(position),
        "DefUnitSymbolWhenNone": unit[2],
        "UnitParserClassName": unit[3],
        "DefRoundIndex": str(unit[4]),
        "CurRoundIndex": str(unit[4]),
        "DefUnitSymbolIndex": "0",
        "CurUnitSymbolIndex": "0",
    }
    yield 5, "Rounds", {}
    for order, (description, increment, edit, visible) in enumerate(ROUNDS[unit[6]]):
        yield 6, "Round", {
            "Description": description,
            "Increment": increment,
            "IncrementCanEdit": boolean(edit),
            "IncrementCanVisible": boolean(visible),
            "OrderIndex": str(order),
        }
    yield 5, "UnitSymbols", {}
    for order, symbol in enumerate(symbols_of(unit)):
        yield 6, "UnitSymbol", {"Description": symbol, "OrderIndex": str(order)}
    yield 5, "Format", {}
    for name, (enable, checked) in zip(BOXES, format_of(unit)):
        yield 6, name, {
            "DefEnable": boolean(enable),
            "Enable": boolean(enable),
            "DefChecked": boolean(checked),
            "Checked": boolean(checked),
        }
