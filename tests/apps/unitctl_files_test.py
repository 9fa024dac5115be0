"""unitctl doctor and diff on every attribute of a settings file, JSON of every listing, exit statuses.

Usage: unitctl_files_test.py PROGRAM
"""
import json
import os
import random
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

PROGRAM = ""
SEED = 20240611


class Files(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="unitctl-files-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.settings = self.path("a.xml")
        self.run_program("init", self.settings, "--system", "0", status=0)

    def path(self, name):
        return os.path.join(self.folder, name)

    def run_program(self, *arguments, status=None, **options):
        result = subprocess.run([PROGRAM, *arguments], capture_output=True, timeout=120, cwd=self.folder, **options)
        if status is not None:
            self.assertEqual(result.returncode, status, (arguments, result.stdout, result.stderr))
        return result

    def text(self, *arguments, status=0):
        return self.run_program(*arguments, status=status).stdout.decode()

    def document(self):
        return ElementTree.parse(self.settings)

    def write(self, tree, name="b.xml"):
        tree.write(self.path(name), encoding="UTF-8", xml_declaration=True)
        return self.path(name)

    def edited(self, old, new, count=1, name="b.xml"):
        with open(self.settings, encoding="utf-8") as file:
            content = file.read()
        self.assertIn(old, content)
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(content.replace(old, new, count))
        return self.path(name)

    # ---- doctor

    def findings(self, path, *options, status=2):
        return json.loads(self.text("doctor", path, "--json", *options, status=status))["findings"]

    def repaired(self, path):
        """The repaired copy of a file: sound, loadable, and the file itself is as it was."""
        with open(path, "rb") as file:
            before = file.read()
        answer = json.loads(self.text("doctor", path, "--fix", "--force", "--json"))
        with open(path, "rb") as file:
            self.assertEqual(file.read(), before)
        self.assertEqual(self.findings(answer["repaired"], status=0), [])
        json.loads(self.text("--settings", answer["repaired"], "show", "--json"))
        return answer["repaired"]

    def test_factory_settings_are_sound(self):
        self.assertEqual(self.text("doctor", self.settings), f"{self.settings}: nothing is wrong\n")
        for system in range(4):
            self.run_program("--settings", self.settings, "use", str(system), status=0)
            self.assertEqual(self.findings(self.settings, status=0), [])

    AREA = '<Measurement ExampleValue="1234567890.12345" ClassifyCode="1" Description="Area" OrderIndex="3"'
    FAULTS = {  # kind: (old, new, what the repaired file holds)
        "current-system": ('CurConfigIndex="0"', 'CurConfigIndex="4"', 'CurConfigIndex="-1"'),
        "current-digit-group": ('CurDigitGroupIndex="0"', 'CurDigitGroupIndex="-1"', 'CurDigitGroupIndex="0"'),
        "duplicate-code": (AREA, AREA.replace('Code="1"', 'Code="3"'), AREA),
        "default-unit": (AREA + ' DefUnitIndex="0"', AREA + ' DefUnitIndex="5"', AREA + ' DefUnitIndex="0"'),
        "current-unit": (AREA + ' DefUnitIndex="0" CurUnitIndex="0"', AREA + ' DefUnitIndex="0" CurUnitIndex="-1"',
                         AREA + ' DefUnitIndex="0" CurUnitIndex="0"'),
        "default-rounding": ('DefRoundIndex="6"', 'DefRoundIndex="-1"', 'DefRoundIndex="6"'),
        "current-rounding": ('CurRoundIndex="6"', 'CurRoundIndex="99"', 'CurRoundIndex="6"'),
        "default-symbol": ('DefUnitSymbolIndex="0" CurUnitSymbolIndex="0"', 'DefUnitSymbolIndex="9" CurUnitSymbolIndex="0"',
                           'DefUnitSymbolIndex="0" CurUnitSymbolIndex="0"'),
        "current-symbol": ('CurUnitSymbolIndex="0"', 'CurUnitSymbolIndex="-5"', 'CurUnitSymbolIndex="0"'),
        "empty-increment": ('DefRoundIndex="6" CurRoundIndex="6"', 'DefRoundIndex="6" CurRoundIndex="7"',
                            'DefRoundIndex="6" CurRoundIndex="6"'),
        "unknown-parser": ('"TDecimalFeetParser"', '"TDezimalFeetParser"', '"TDecimalFeetParser"'),
        "unknown-digit-group-class": ('"TDigitGroup4CommaParser"', '"TDigits"', '"TDigitGroup4CommaParser"'),
        "duplicate-name": ('Description="UK Imperial System"', 'Description="US Imperial System"',
                           'Description="US Imperial System (2)"'),
        "missing-attribute": (' ClassifyCode="1"', '', 'ClassifyCode="1"'),
        "bad-attribute": ('CurConfigIndex="0"', 'CurConfigIndex="x"', 'CurConfigIndex="-1"'),
        "bad-example": ('ExampleValue="1234.56789012345"', 'ExampleValue="1,234"', 'ExampleValue="1234.56789012345"'),
        "missing-element": ('<UnitSymbols>', '<Symbols/><UnitSymbols2>', '<UnitSymbols>'),
        "empty-list": None, "not-xml": None, "not-settings": None, "bad-increment": None,
    }

    def test_each_fault_is_found_with_its_line_and_repaired(self):
        for kind, row in self.FAULTS.items():
            if not row:
                continue
            with self.subTest(kind):
                old, new, repaired = row
                path = self.edited(old, new)
                if kind == "missing-element":
                    path = self.edited("<UnitSymbols>", "<!-- ", name="c.xml")
                    with open(path, encoding="utf-8") as file:
                        content = file.read()
                    with open(path, "w", encoding="utf-8") as file:
                        file.write(content.replace("</UnitSymbols>", " -->", 1))
                found = self.findings(path)
                self.assertIn(kind, [finding["kind"] for finding in found], found)
                for finding in found:
                    self.assertTrue(finding["problem"] and finding["advice"] and finding["repairable"], finding)
                    if finding["place"]:
                        self.assertGreater(finding["line"], 1, finding)
                with open(self.repaired(path), encoding="utf-8") as file:
                    self.assertIn(repaired, file.read())

    def test_bad_increments(self):
        for increment in ("abc", "0", "-1", "0.0", "1/0", "nan", "", "1,5", "1e999"):
            for old in ('Increment="0.01"', 'Increment="1/16"'):
                with self.subTest(f"{old} {increment}"):
                    path = self.edited(old, f'Increment="{increment}"')
                    found = self.findings(path)
                    self.assertEqual([finding["kind"] for finding in found], ["bad-increment"], found)
                    self.repaired(path)
                    self.assertEqual(self.text("diff", self.settings, self.path("b-repaired.xml")), "")

    def test_an_unknown_rounding_with_a_bad_increment_is_left_out(self):
        path = self.edited('Description="1 decimal place" Increment="0.1"', 'Description="Tenths" Increment="tenth"')
        self.assertEqual(self.findings(path)[0]["kind"], "bad-increment")
        self.repaired(path)
        differences = self.text("diff", self.settings, self.path("b-repaired.xml"), status=1)
        self.assertIn('the rounding "1 decimal place" is missing', differences)
        self.assertNotIn("in use", differences)  # the rounding in use is the same one, at another position

    def test_empty_lists(self):
        for tag in ("TemplateConfig", "Config", "Measurement", "Rounds", "UnitSymbols", "DigitGroup"):
            with self.subTest(tag):
                tree = self.document()
                element = next(e for e in tree.iter(tag) if len(e))
                for child in list(element):
                    element.remove(child)
                path = self.write(tree)
                self.assertIn("empty-list", [finding["kind"] for finding in self.findings(path)])
                self.repaired(path)
                if tag not in ("TemplateConfig", "DigitGroup"):
                    self.assertEqual(self.text("diff", self.settings, self.path("b-repaired.xml")), "")

    def test_what_cannot_be_repaired(self):
        for name, content, kind, line in (
                ("empty", b"", "not-xml", None), ("nonsense", b"\x00\xff\x01nonsense", "not-xml", 1),
                ("cut", b"<Unit>\n<TemplateConfig CurConfigIndex=\"0\">\n<Config Descr", "not-xml", 3),
                ("tag", b"<Unit>\n<TemplateConfig>\n</Unit>", "not-xml", 3),
                ("other", b"<html><body/></html>", "not-settings", 1)):
            with self.subTest(name):
                with open(self.path("b.xml"), "wb") as file:
                    file.write(content)
                found = self.findings("b.xml")
                self.assertEqual([finding["kind"] for finding in found], [kind])
                self.assertFalse(found[0]["repairable"])
                if line:
                    self.assertEqual(found[0]["line"], line)
                self.run_program("doctor", "b.xml", "--fix", status=2)
                self.assertFalse(os.path.exists(self.path("b-repaired.xml")))

    def test_classes_of_the_host(self):
        path = self.edited('"TDecimalFeetParser"', '"TSurveyFeetParser"')
        self.assertEqual(self.findings(path, "--known", "tsurveyfeetparser", status=0), [])
        path = self.edited('Description="Decimal feet" OrderIndex="0" DefUnitSymbolWhenNone="FT" UnitParserClassName="TDecimalFeetParser"',
                           'Description="Survey feet" OrderIndex="0" DefUnitSymbolWhenNone="FT" UnitParserClassName="TSurveyFeetParser"')
        self.assertNotIn("Survey feet", self.text("--settings", self.repaired(path), "names", "units", "0"))

    def test_random_damage_is_repaired(self):
        choice = random.Random(SEED)
        values = ["", "-1", "0", "1", "7", "99", "4294967296", "x", "true", "None", "Area", "1/16", "T\u5355"]
        for number in range(20):
            tree = self.document()
            elements = list(tree.iter())
            for _ in range(choice.randint(1, 6)):
                element = choice.choice(elements)
                if element.attrib and choice.random() < 0.8:
                    name = choice.choice(sorted(element.attrib))
                    if choice.random() < 0.2:
                        del element.attrib[name]
                    else:
                        element.attrib[name] = choice.choice(values)
                elif len(element) and element.tag not in ("Unit",):
                    element.remove(choice.choice(list(element)))
            path = self.write(tree)
            with self.subTest(f"seed {SEED}, file {number}"):
                result = self.run_program("doctor", path, "--fix", "--force", "--json")
                self.assertIn(result.returncode, (0, 2), result.stderr)
                answer = json.loads(result.stdout)
                if answer["findings"]:
                    self.assertTrue(answer["repaired"], answer)
                    self.assertEqual(self.findings(answer["repaired"], status=0), [])
                    self.run_program("--settings", answer["repaired"], "--system", "0", "show", "--json", status=0)
                else:
                    self.run_program("--settings", path, "--system", "0", "show", "--json", status=0)

    def test_where_the_copy_goes(self):
        path = self.edited('CurConfigIndex="0"', 'CurConfigIndex="9"')
        self.assertIn("is the file itself", self.run_program("doctor", path, "--fix", "-o", path, status=1).stderr.decode())
        os.symlink(path, self.path("link.xml"))
        self.run_program("doctor", path, "--fix", "--force", "-o", "link.xml", status=1)
        self.text("doctor", path, "--fix", "-o", "new.xml")
        self.assertIn("is there already", self.run_program("doctor", path, "--fix", "-o", "new.xml", status=1).stderr.decode())
        self.run_program("doctor", path, "--fix", "-o", "none/new.xml", status=1)
        self.run_program("doctor", path, "-o", "other.xml", status=1)
        self.run_program("doctor", "none.xml", status=1)
        self.assertEqual(self.text("doctor", self.settings, "--fix"), f"{self.settings}: nothing is wrong\n")
        self.assertFalse(os.path.exists(self.path("a-repaired.xml")))

    # ---- diff

    def test_same_files(self):
        self.assertEqual(self.text("diff", self.settings, self.settings), "")
        answer = json.loads(self.text("diff", self.settings, self.settings, "--json"))
        self.assertEqual((answer["same"], answer["differences"]), (True, []))

    def test_in_words(self):
        other = shutil.copy(self.settings, self.path("b.xml"))
        self.text("--settings", other, "set", "Length (Calculation Result)", "--unit", "11", "--round", "To the nearest 1/16\"")
        self.assertIn("US Imperial System / Length (Calculation Result): is shown in Feet and fractional inches, To the nearest "
                      "1/16\" instead of Decimal feet, 3 decimal places, symbol None\n", self.text("diff", self.settings, other, status=1))
        self.text("--settings", other, "use", "2")
        self.assertIn('the unit system in use is "Standard Metric System" instead of "US Imperial System"\n',
                      self.text("diff", self.settings, other, status=1))

    def test_every_attribute_counts(self):
        tree = self.document()
        seen = set()
        for element in tree.iter():
            for name in sorted(element.attrib):
                if (element.tag, name) in seen:
                    continue
                # Each attribute once, in the first element that has it.
                seen.add((element.tag, name))
                old = element.attrib[name]
                element.attrib[name] = {"true": "false", "false": "true"}.get(old, old + "1")
                path = self.write(tree)
                element.attrib[name] = old
                result = self.run_program("diff", self.settings, path)
                if name == "OrderIndex" and result.returncode == 0:
                    self.fail(f"{element.tag} {name}: no difference told")
                self.assertEqual(result.returncode, 1, f"{element.tag} {name}: {result.stderr.decode()}")
                self.assertTrue(result.stdout)
        self.assertGreater(len(seen), 50)

    def test_added_removed_and_moved_parts(self):
        for tag in ("Config", "Measurement", "Unit", "Round", "UnitSymbol", "CGroup"):
            tree = self.document()
            parent = next(e for e in tree.iter() if any(c.tag == tag for c in e) and e is not tree.getroot())
            gone = [c for c in parent if c.tag == tag][-2]
            parent.remove(gone)
            path = self.write(tree)
            name = gone.attrib["Description"]
            self.assertIn(f'"{name}" is missing', self.text("diff", self.settings, path, status=1))
            self.assertIn(f'"{name}" is new', self.text("diff", path, self.settings, status=1))
            parent.append(gone)
            self.text("diff", self.settings, self.write(tree), status=1)

    # ---- JSON and exit statuses

    def test_json_of_every_listing(self):
        with open(self.path("t.csv"), "w", encoding="utf-8") as file:
            file.write("item,measure,value\nwall,0,1676.4\n")
        listings = {
            ("show",): dict, ("show", "Area"): dict, ("names", "systems"): list, ("names", "units", "Area"): list,
            ("texts",): dict, ("doctor", self.settings): dict, ("diff", self.settings, self.settings): dict,
            ("check", "0", "5'", "x"): list, ("compare", "t.csv"): list}
        for arguments, kind in listings.items():
            result = self.run_program("--settings", self.settings, *arguments, "--json")
            self.assertIsInstance(json.loads(result.stdout), kind, arguments)

    EXITS = [
        (0, "show"), (0, "--help"), (1, "nonsense"), (1,), (1, "show", "--nonsense"), (1, "format"),
        (1, "--settings", "none.xml", "show"), (1, "set", "Area"), (2, "format", "0", "x"), (2, "parse", "0", "x"),
        (2, "check", "0", "x"), (0, "diff", "a.xml", "a.xml"), (1, "diff", "a.xml", "metric.xml"),
        (2, "diff", "a.xml", "none.xml"), (2, "diff", "a.xml"), (2, "diff", "--nonsense", "a.xml", "a.xml"),
        (0, "doctor", "a.xml"), (1, "doctor", "none.xml"), (2, "doctor", "bad.xml"), (0, "doctor", "bad.xml", "--fix"),
        (1, "names", "nonsense"), (1, "names", "units"), (1, "names", "systems", "Area"), (0, "texts"),
        (1, "--texts", "none.txt", "show"), (1, "schedule", "none.csv"),
    ]

    def test_exit_statuses(self):
        self.run_program("init", "metric.xml", "--system", "2", status=0)
        self.edited('CurConfigIndex="0"', 'CurConfigIndex="9"', name="bad.xml")
        for status, *arguments in self.EXITS:
            given = [] if "--settings" in arguments or "doctor" in arguments else ["--settings", "a.xml"]
            with self.subTest(" ".join(arguments)):
                result = self.run_program(*(given if arguments else []), *arguments, status=status)
                if status and "doctor" not in arguments and "check" not in arguments and status != 1:
                    self.assertTrue(result.stderr, arguments)

    def test_closed_output(self):
        for command in ("texts", "names systems", "doctor a.xml", "--help"):
            result = subprocess.run(["bash", "-c", f'"$0" --settings a.xml {command} >&-', PROGRAM], cwd=self.folder,
                                    capture_output=True, timeout=60)
            self.assertEqual(result.returncode, 1, command)
            self.assertIn(b"standard output: Cannot be written", result.stderr)


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
