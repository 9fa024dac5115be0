"""Hand-worked rows for the slow second implementation itself: python3 -m unittest test_oracle."""

import sys
import unittest

import elevation
import facade
import imperial_text as imperial
import merging
import number_text as numbers
from defaults import elements
from expression import Parser, parse_messages
from number_text import OracleError
from units import Round, Settings, Unit, get_unit_parser, group_digits

sys.setrecursionlimit(20_000)
NONE = (False, False, False, False)


def decimal_unit(parser, increment="0.01", can_edit=False, checked=(), symbols=("None", "m"), index=0, code=14):
    return Unit(parser, code, Round(increment, can_edit), list(symbols), index, set(checked), "m")


def feet_unit(increment="1/16", checked=(), parser="TFeetAndFractionalInchParser", code=11):
    return Unit(parser, code, Round(increment), [], 0, set(checked), "FT-IN")


def shown(unit, value, flags=NONE, scale=0, group="TDigitGroup3CommaParser"):
    return get_unit_parser(unit.parser, unit, Settings(group)).as_string(value, scale, *flags)


def inches(unit, value, flags=NONE):
    return shown(unit, value * 25.4, flags)


def parser_of(unit):
    return get_unit_parser(unit.parser, unit, Settings())


class Numbers(unittest.TestCase):
    def test_what_is_a_number(self):
        for text in ["0", " 1.5 ", "+.5", "5.", "-1e5", "1E-400", "1.7976931348623157e308"]:
            self.assertTrue(numbers.is_numeric(text), text)
        for text in ["", " ", "1e400", "- 1", "+-1", "0x1", "inf", "nan", ".", "1e", "1,0", "\t1", "1\x00", "\uff11"]:
            self.assertFalse(numbers.is_numeric(text), text)

    def test_64_bit_integers(self):
        for text in ["9223372036854775807", "-9223372036854775808", "  7", "+7"]:
            self.assertTrue(numbers.is_int64(text), text)
        for text in ["9223372036854775808", "-9223372036854775809", "7 ", "1.0", "- 7", ""]:
            self.assertFalse(numbers.is_int64(text), text)

    def test_general_text(self):
        rows = [
            (0.1 + 0.2, "0.3"), (-0.0, "0"), (0.00001, "0.00001"), (1.5e-7, "1.5E-7"), (1e15, "1E15"), (-1e15, "-1E15"),
            (999999999999999.0, "999999999999999"), (999999999999999.5, "1E15"), (9.999999999999999e-6, "0.00001"),
            (1000000000000.0625, "1000000000000.06"), (1000000000000.1875, "1000000000000.19"), (100.0, "100"),
        ]  # fmt: skip
        for value, text in rows:
            self.assertEqual(numbers.float_to_str(value), text)

    def test_exact_ties_go_to_the_even_digit(self):
        self.assertEqual(numbers.float_to_str(10000000000000.125), "10000000000000.1")
        self.assertEqual(numbers.float_to_str(100000000000000.25), "100000000000000")
        self.assertEqual(numbers.float_to_str(100000000000000.5), "100000000000000")
        self.assertEqual(numbers.float_to_str(100000000000001.5), "100000000000002")

    def test_plain_text(self):
        self.assertEqual(numbers.float_to_plain_str(1e20), "100000000000000000000")
        self.assertEqual(numbers.float_to_plain_str(1.5e-7), "0.00000015")
        self.assertEqual(numbers.float_to_plain_str(-1.25e16), "-12500000000000000")
        self.assertEqual(numbers.float_to_plain_str(2.5), "2.5")
        self.assertEqual(numbers.float_to_plain_str(3.0), "3")

    def test_round_classic(self):
        exact = numbers.Fraction
        rows = [("0.5", 1), ("-0.5", -1), ("0.4999999999995", 1), ("0.499999999998", 0), ("1.4999999999990", 2), ("2.4", 2), ("-2.5", -3)]
        for text, rounded in rows:
            self.assertEqual(numbers.round_classic(exact(text)), rounded, text)
        with self.assertRaises(OracleError):
            numbers.round_classic(exact(2**63))
        self.assertEqual(numbers.round_classic(exact(2**63 - 1)), 2**63 - 1)


class Grouping(unittest.TestCase):
    def test_rows(self):
        three, four = "TDigitGroup3CommaParser", "tdigitgroup4commaparser"
        rows = [
            (three, "123456789.00", "123,456,789.00"), (four, "123456789.00", "1,2345,6789.00"), (three, "1234567", "1,234,567"),
            (four, "1000", "1000"), (three, "1000", "1,000"), (three, ".5", ".5"), (three, "-123456", "-,123,456"), ("", "1000", "1000"),
            (three, "999", "999"), (three, "", ""), (three, "1000000.", "1,000,000."),
        ]  # fmt: skip
        for name, text, grouped in rows:
            self.assertEqual(group_digits(name, text), grouped)


class DecimalUnits(unittest.TestCase):
    def test_registry(self):
        unit = decimal_unit("TDecimalFeetParser")
        self.assertIsNotNone(get_unit_parser("tdecimalfeetparser", unit, Settings()))
        self.assertIsNone(get_unit_parser("TFoo", unit, Settings()))

    def test_signs(self):
        plus = decimal_unit("TMillimetreParser", checked=["ShowPlus"])
        self.assertEqual(shown(plus, 0.0), "0.00")
        self.assertEqual(shown(plus, 2.5), "+2.50")
        self.assertEqual(shown(plus, 2.5, (False, False, False, True)), "2.50")
        self.assertEqual(shown(plus, -2.5), "-2.50")

    def test_increments(self):
        rows = [("0.5", 2.26, "2.5"), ("0.5", 2.24, "2.0"), ("0.01", 3.0, "3.00"), ("1", 2.5, "3"), ("", 2.5, "3"), ("0", 2.25, "2.25"), ("10", 14.9, "10")]
        for increment, value, text in rows:
            self.assertEqual(shown(decimal_unit("TMillimetreParser", increment), value), text)
        self.assertEqual(shown(decimal_unit("TMillimetreParser", "0.01", checked=["SuppressTrail0"]), 2.5), "2.5")
        self.assertEqual(shown(decimal_unit("TMillimetreParser", "0.500", True), 2.26), "2.500")
        self.assertEqual(shown(decimal_unit("TMillimetreParser", "0.500", False), 2.26), "2.5")
        self.assertEqual(shown(decimal_unit("TMillimetreParser", "1e-3", False), 2.5), "2.500")
        self.assertEqual(shown(decimal_unit("TMillimetreParser", "1e-3", True), 2.5), "2.5")

    def test_ties_in_display_units(self):
        # 1.005 as a double lies 1.1e-16 below the half of a hundredth: within 1e-12 it counts as the half.
        self.assertEqual(shown(decimal_unit("TMillimetreParser"), 1.005), "1.01")
        self.assertEqual(shown(decimal_unit("TMetreParser", "0.001"), 1234.5), "1.235")

    def test_beyond_64_bits_the_value_is_unrounded(self):
        self.assertEqual(shown(decimal_unit("TMillimetreParser", "0.001"), 1.25e17), "125000000000000000.000")

    def test_refusals(self):
        for value in [float("nan"), float("inf"), float("-inf")]:
            with self.assertRaises(OracleError) as caught:
                shown(decimal_unit("TMillimetreParser"), value)
            self.assertEqual(caught.exception.kind, "range")
        with self.assertRaises(OracleError) as caught:
            shown(decimal_unit("TMillimetreParser", "abc"), 1.0)
        self.assertEqual(caught.exception.kind, "convert")

    def test_grouping_and_symbol(self):
        unit = decimal_unit("TMillimetreParser", "0.01", checked=["UseDigitGroup"], index=1)
        self.assertEqual(shown(unit, 1234567.5), "1,234,567.50 m")
        self.assertEqual(shown(unit, 1234567.5, group="TDigitGroup4CommaParser"), "123,4567.50 m")
        self.assertEqual(shown(unit, 1234567.5, (True, True, False, False)), "1234567.50")
        unit.symbol_index = 0
        self.assertEqual(shown(unit, 1000.0), "1,000.00")

    def test_validity(self):
        parser = parser_of(decimal_unit("TMillimetreParser"))
        for text, valid in [("1e15", False), ("0", True), ("1e-16", False), ("1,234.5", True), ("1e-400", False), ("1e400", False), ("12 m", True), ("x", False)]:
            self.assertEqual(parser.is_valid(text), valid, text)
        self.assertEqual(parser.remove_symbol("12 m"), "12 ")
        self.assertEqual(parser.remove_symbol("12 M"), "12 ")

    def test_scales(self):
        metre = parser_of(decimal_unit("TMetreParser"))
        self.assertEqual(metre.as_double("2.5", 0), 2500.0)
        self.assertEqual(metre.as_double("2.5", 3), 2.5)
        self.assertEqual(parser_of(decimal_unit("TSquareFootParser")).get_scale(4), 0.09290304)
        self.assertEqual(shown(decimal_unit("TShortTonParser"), 907.0), "1.00")
        with self.assertRaises(OracleError):
            metre.as_double("abc", 0)

    def test_decimal_imperial(self):
        feet = decimal_unit("TDecimalFeetParser", "1", symbols=["None", "'", "LF"], index=1, code=10)
        self.assertEqual(shown(feet, 1524.0), "5'")
        parser = parser_of(feet)
        self.assertEqual(parser.as_double("5'", 0), 1524.0)
        self.assertEqual(parser.as_double("5'6\"", 0), 1676.4)
        inch = parser_of(decimal_unit("TDecimalInchParser", symbols=["None", '"'], code=12))
        self.assertFalse(inch.is_valid("abc"))
        self.assertEqual(inch.remove_symbol("abc"), "abc")


class FractionalUnits(unittest.TestCase):
    def test_fractional_inches(self):
        unit = feet_unit(parser="TFractionalInchParser", code=13)
        rows = [(2.5, '2 1/2"'), (0.5, '0 1/2"'), (2.97, '3"'), (0.0, '0"'), (0.999, '1"'), (-2.5, '-2 1/2"')]
        for value, text in rows:
            self.assertEqual(inches(unit, value), text)
        self.assertEqual(inches(unit, 2.5, (True, False, False, False)), "2 1/2")
        unit.checked = {"ShowPlus"}
        self.assertEqual(inches(unit, 0.0), '0"')
        unit.round = Round("1/256")
        self.assertEqual(inches(unit, 2 + 1 / 256), '+2 1/256"')
        unit.round = Round("1/4")
        self.assertEqual(inches(unit, 2.5), '+2 1/2"')

    def test_feet_and_inches(self):
        rows = [
            ("1/16", (), 66.5, "5' 6 1/2\""), ("1/16", ("SuppressSpace",), 66.5, "5'6 1/2\""), ("1/16", (), 6.5, "0' 6 1/2\""),
            ("1/16", ("Suppress0Feet",), 6.5, '6 1/2"'), ("1", (), 66.5, "5' 7\""), ("6", (), 66.5, "5' 6\""), ("12", (), 66.5, "6'"),
            ("1/16", (), -66.5, "-5' 6 1/2\""), ("1/8", (), 11.99, "1' 0\""), ("1/16", (), 60.0, "5' 0\""), ("1/16", (), 3.0, "0' 3\""),
            ("0.5", (), 66.5, "5'"), ("24", (), 66.5, "6'"), ("1.5", (), 66.5, "5' 6\""),
        ]  # fmt: skip
        for increment, checked, value, text in rows:
            self.assertEqual(inches(feet_unit(increment, checked), value), text)
        self.assertEqual(inches(feet_unit(), 66.5, (True, True, True, True)), "5' 6 1/2\"")

    def test_refused_increments(self):
        for increment in ["", "0", "0/16", "1/0", "x", "1/x"]:
            for parser in ["TFractionalInchParser", "TFeetAndFractionalInchParser"]:
                with self.assertRaises(OracleError) as caught:
                    inches(feet_unit(increment, parser=parser), 1.0)
                self.assertEqual(caught.exception.kind, "convert")

    def test_reading(self):
        parser = parser_of(feet_unit())
        self.assertEqual(parser.as_double("66", 0), 66 * 25.4)
        self.assertEqual(parser.as_double("5'6 1/2\"", 0), 66.5 * 25.4)
        self.assertTrue(parser.is_valid("66"))
        self.assertFalse(parser.is_valid("2.5"))
        self.assertFalse(parser.is_valid("2.5'"))


class ImperialTexts(unittest.TestCase):
    def test_fraction_shapes(self):
        accepted = ["12", "-12", "+12", "5'", '6"', "3/4", "6 3/4", "5'6", "5'6 3/4", "5'3/4", "5-6", "5-6 3/4", "5 ' 6", "5'6 3/4\"", "5-3/4"]
        refused = ["3/0", "1/05", '1234567890123456"', '5-6"', "", "abc", "1 2 3/4", "2.5'", "5''", "'", "--5", "5'-6"]
        for text in accepted:
            self.assertTrue(imperial.is_fraction(text), text)
        for text in refused:
            self.assertFalse(imperial.is_fraction(text), text)

    def test_white_space(self):
        self.assertEqual(imperial.get_identifiable_form("5 ' 6  1 / 2"), "5'6 1/2")
        self.assertEqual(imperial.get_identifiable_form("1 2 3/4"), "1 2 3/4")
        self.assertEqual(imperial.get_identifiable_form(" \t1\n2\r\n "), "1 2")

    def test_standard_form(self):
        rows = [('6"', "0'6 0/1\""), ("5'6 1/2", "5'6 1/2\""), ("-3/4", "-0'0 3/4\""), ("+5'", "5'0 0/1\""), ("5-6", "5'6 0/1\"")]
        for text, standard in rows:
            self.assertEqual(imperial.get_fraction_standard_format(text), standard)
            self.assertTrue(imperial.is_standard_format(standard))

    def test_inches(self):
        rows = [
            ("5'6 1/2\"", 66.5), ("-3/4", -0.75), ("abc", 0.0), ("1/0", 0.0), ("9223372036854775808'0 0/1\"", 0.0), ("1 2", 2.0),
        ]  # fmt: skip
        for text, value in rows:
            self.assertEqual(imperial.get_inch_num_by_fraction(text), value)

    def test_imperial_numbers(self):
        for text in ["5'", "2.5'", "1234567890123456'", "12"]:
            self.assertTrue(imperial.is_imperial_num(text, False), text)
        self.assertFalse(imperial.is_imperial_num("12", True))
        self.assertFalse(imperial.is_imperial_num("2.5", False))

    def test_replacing(self):
        rows = [
            ("3'6\"+2", "1066.8+2"), ('10/5"', "50.8"), ('10/ 5"', "10/ 127"), ("5'6 1/2+1", "1689.1+1"), ("5' 1/2\"", "1536.7"), ('6 1/2"', "165.1"),
            ("5'1/2", "1549.4/2"), ("5'6/2", "1676.4/2"), ("1/2", "1/2"), ("2.5", "2.5"), ("2.5'*2", "762*2"), ("5' + 1", "1524+ 1"),
            ("5'mod2", "1524mod2"), ("A+5'", "A+1524"), ("A5'", "A1524"), ("1234567890123456/5\"", "1234567890123456/5\""), ("", ""),
        ]  # fmt: skip
        for text, replaced in rows:
            self.assertEqual(imperial.replace_imperial_numbers(text, 0, 1000.0), replaced)
        self.assertEqual(imperial.replace_imperial_numbers("18\"", 2, 1.0), "1.5")


class Facade(unittest.TestCase):
    def setUp(self):
        self.none = decimal_unit("TMillimetreParser", symbols=["None"], code=16)
        self.feet = feet_unit()
        self.project = facade.Project({0: self.none, 3: self.feet, 1: self.none})

    def second(self, measure, value, append=False):
        return facade.store_to_display_second(self.project, measure, value, -1, append, NONE)

    def test_tiny_values(self):
        self.assertEqual(self.second(0, 1e-13), "0.00")
        self.assertEqual(self.second(0, -0.0), "0.00")

    def test_no_measure(self):
        for value, text in [(1.25, "1.25"), (1.125, "1.12500"), (2.0, "2")]:
            self.assertEqual(self.second(-1, value), text)
        self.assertEqual(facade.store_to_display_first(self.project, -1, 1.125, -1, False, NONE, True), ("1.125", True))

    def test_appended_symbols(self):
        self.assertEqual(self.second(0, 2.5, True), "2.50 m")
        self.assertEqual(self.second(3, 25.4, True), "0' 1\"")
        self.assertEqual(self.second(99, 2.5), "2.5")

    def test_expressions(self):
        self.assertEqual(facade.expr_to_store(self.project, 1, "5'+1", False), "5'+1")
        self.assertEqual(facade.expr_to_store(self.project, 0, "5'6\"", True), "5'6\"")
        self.assertEqual(facade.expr_to_store(self.project, 0, "5'6\"", False), "1676.4")
        self.assertEqual(facade.expr_to_store(self.project, 3, "5'6\"", False), "5.5")

    def test_is_a_num(self):
        for text in ["3-4", "3/4"]:
            self.assertFalse(facade.is_a_num(self.project, 0, text, True), text)
            self.assertTrue(facade.is_a_num(self.project, 0, text, False), text)
        self.assertTrue(facade.is_a_num(self.project, 0, "1.5", True))
        self.assertFalse(facade.is_a_num(self.project, 0, "1-1/0", False))

    def test_symbols(self):
        command = facade.Command(self.project, 3)
        self.assertEqual(command.unit_symbol(True), "")
        self.assertEqual(command.unit_symbol(False), "FT-IN")
        self.assertEqual(facade.decimal_value_to_store(self.project, 3, 2.0, 0), 25.4 * 12 * 2)


def project_of(unit):
    return facade.Project({3: unit})


METRIC = project_of(decimal_unit("TMillimetreParser", code=16))
FEET = project_of(feet_unit("1/32"))


class Expressions(unittest.TestCase):
    def shape(self, project, text):
        root, messages = parse_messages(project, text)
        if messages:
            return sorted(messages)

        def write(node):
            if node.kind == "num":
                return ("-" if node.negative else "") + node.value
            body = f"({write(node.left)}{node.value}{write(node.right)})"
            return ("-" if node.negative else "") + ("b" if node.block else "") + body

        return None if root is None else write(root)

    def test_trees(self):
        rows = [
            ("1+2*3", "(1+(2*3))"), ("1*2+3", "((1*2)+3)"), ("8-2-1", "((8-2)-1)"), ("(1+2)*3", "(b(1+2)*3)"), ("-5+3", "(-5+3)"),
            ("--5", "5"), ("+5", "5"), ("2*-3", "(2*-3)"), ("-(1+2)", "-b(1+2)"), ("-(-(1+2))", "b(1+2)"), ("1 2", "1 2"), ("", None), ("- 5", "- 5"),
            ("5'/2", "(5'/2)"), ("1*2*3+4*5*6", "(((1*2)*3)+((4*5)*6))"),
        ]  # fmt: skip
        for text, shape in rows:
            self.assertEqual(self.shape(METRIC, text), shape, text)

    def test_fraction_bars(self):
        self.assertEqual(self.shape(FEET, "5' 6 1/2\""), "5' 6 1/2\"")
        self.assertEqual(self.shape(FEET, "6/2"), "(6/2)")
        self.assertEqual(self.shape(FEET, "1/2\"+5'"), "(1/2\"+5')")
        self.assertEqual(self.shape(METRIC, '1/2"'), '(1/2")')

    def test_messages(self):
        rows = [
            ("f(3)", "unsupport function!"), ("2 * (3)", "unsupport function!"), ("(1+2) * 3", "missing operator!"), ("1+", "can not be nil afer operator"),
            ("(1+2", "missing ( error!"), ("((1", "missing ) error!"), ("(", "missing ) error!"), ("()", "can not be nil afer operator"),
            ("2*/", "can not be nil afer operator"), ("*/5", "can not be nil afer operator"), ("*5", "missing operator!"), ("2**3", "missing operator!"),
            ("(1+2)(3+4)", "missing operator!"), ("(1+)*2", "can not be nil afer operator"), ("2* *3", "can not be nil afer operator"),
            ("-", "can not be nil afer operator"), ("1000000000000001", "1000000000000001 is too big"),
            ("-1000000000000001", "-1000000000000001 is too Small"), ("(" * 1001 + "1" + ")" * 1001, "too many nested brackets!"),
        ]  # fmt: skip
        for text, message in rows:
            self.assertEqual(self.shape(METRIC, text), [message], text)
        self.assertEqual(self.shape(FEET, "5'x'"), ["Imperial format error: 5'x'"])
        self.assertEqual(self.shape(METRIC, "(" * 1000 + "1" + ")" * 1000), "1")

    def value(self, project, text):
        parser = Parser(project, text)
        value = parser.get_double_value(parser.parse())
        return sorted(set(parser.errors)) or value

    def test_values(self):
        rows = [
            ("5'+3", ["imperial number can not add with const!"]), ("5'*2", 3.048), ("5'*2'", ["imperial can not mul by imperial!"]),
            ("5'/0", ["can not div by zero!"]), ("2/5'", ["not imperial can not div by imperial!"]), ("5'-3", ["imperial number can not sub with const!"]),
            ("5'/2'", ["imperial can not div by imperial!"]), ("7-2*3", 1.0), ("1000000000000000", 1e15),
        ]  # fmt: skip
        for text, value in rows:
            self.assertEqual(self.value(FEET, text), value, text)

    def merged(self, project, text):
        parser = Parser(project, text)
        node = merging.merge_numbers(parser, parser.parse())
        return sorted(set(parser.errors)) or node.value

    def test_merging_numbers(self):
        rows = [
            ("-(-(5))", "5"), ("-(5)", "-5"), ("-(1+2)*3", "-9"), ("3-(-(2))", "5"), ("1/3", "0.333333333333333"), ("1-1", "0"),
            ("1000000000000000*2", ["2E15 is too big"]),
        ]  # fmt: skip
        for text, value in rows:
            self.assertEqual(self.merged(METRIC, text), value, text)
        self.assertEqual(self.merged(FEET, "(5'+6\")*2"), "3.3528")
        self.assertEqual(self.merged(FEET, "-(5')"), "-1.524")

    def test_text_forms(self):
        for text, written in [("-3", "(-3)"), ("(1+2)*3", "(1+2)*3"), ("A+5", "A+5"), ("2*-3", "2*(-3)")]:
            parser = Parser(METRIC, text)
            self.assertEqual(parser.get_store_value(parser.parse()), written)


class Elevations(unittest.TestCase):
    def test_single_values(self):
        answer = elevation.elevation(METRIC, "1234.5")
        self.assertEqual((answer.store, answer.edit, answer.accepted), (["1.2345"], ["1234500.00"], [True]))
        answer = elevation.elevation(FEET, "5'6 1/2\"")
        self.assertEqual((answer.store, answer.edit), (["1.6891"], ["5' 6 1/2\""]))
        self.assertEqual(elevation.elevation(FEET, "-5'").edit, ["-5' 0\""])

    def test_refused_texts_stay(self):
        for text in ["A+B", "1+", " ", "5'+3"]:
            answer = elevation.elevation(FEET, text)
            self.assertEqual((answer.store, answer.edit, answer.display), ([text], [text], [text]))
            self.assertEqual(answer.accepted, [False])
        self.assertEqual(elevation.elevation(FEET, "").store, [""])

    def test_around_a_variable(self):
        pieces = elevation.Pieces
        answer = elevation.elevation(METRIC, "A+500+300")
        self.assertEqual((answer.store, answer.value[:4]), (pieces("0.8", "(-0.8)"), ("A", 1, False, False)))
        answer = elevation.elevation(METRIC, "1000-(A+500)")
        self.assertEqual((answer.store, answer.value[:4]), (pieces("0.5", "(-0.5)"), ("A", -1, False, False)))
        answer = elevation.elevation(FEET, "A+5'6\"")
        self.assertEqual((answer.store, answer.edit), (pieces("1.6764", "(-1.6764)"), pieces("5' 6\"", "(-5' 6\")")))
        self.assertEqual(elevation.elevation(METRIC, "A").store, ["A"])
        # The unfolded text of the offset decides: 45.0 inches are no inch fraction.
        self.assertEqual(elevation.elevation(FEET, "A+45.0").accepted, [False])
        self.assertEqual(elevation.elevation(FEET, "A+45").accepted, [True])
        self.assertEqual(elevation.elevation(FEET, "A+44.5+0.5").accepted, [True])


class Defaults(unittest.TestCase):
    def test_counts(self):
        names = [name for _, name, _ in elements()]
        self.assertEqual(names.count("Config"), 4)
        self.assertEqual(names.count("Measurement"), 36)
        self.assertEqual(names.count("Unit"), 1 + 4 * (21 + 5 + 5 + 2 + 3 + 3 + 2))
        # Per configuration: 3 x (5 x 8 + 11 + 9) lengths, 18 other units of 8 rounds.
        self.assertEqual(names.count("Round"), 4 * (180 + 18 * 8))


if __name__ == "__main__":
    unittest.main()
