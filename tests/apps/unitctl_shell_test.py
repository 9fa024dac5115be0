"""Completion in real shells, the man page, the texts in other languages.

Usage: unitctl_shell_test.py PROGRAM SOURCE_FOLDER
"""
import json
import os
import pathlib
import pty
import re
import select
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = ""
ROOT = pathlib.Path()


class Shell(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="unitctl-shell-")
        self.addCleanup(shutil.rmtree, self.folder)
        shutil.copy(PROGRAM, self.folder)
        self.environment = {**os.environ, "PATH": self.folder + os.pathsep + os.environ["PATH"], "HOME": self.folder}
        self.environment.pop("UNITLIB_TEXTS", None)
        self.run_ok("unitctl", "init", "--system", "0")

    def run_ok(self, *command, **options):
        result = subprocess.run(command, cwd=self.folder, env=self.environment, capture_output=True, timeout=60, **options)
        self.assertEqual((result.returncode, result.stderr), (0, b""), command)
        return result.stdout.decode()

    # ---- completion

    def complete(self, *words):
        return self.run_ok("unitctl", "complete", "--", *words).splitlines()

    def test_candidates(self):
        rows = [
            (["sho"], ["show"]), (["el"], ["elev"]), (["elev", ""], ["store", "edit", "display", "check"]),
            (["--sys"], ["--system"]), (["use", "t"], ["Taiwan Metric System"]),
            (["--system", "us"], ["US Imperial System"]), (["--system=us"], ["--system=US Imperial System"]),
            (["format", "are"], ["Area"]), (["set", "Mass", "--unit", ""], ["Pounds", "Kilograms"]),
            (["set", "Area", "--unit", "Square meters", "--symbol", "m"], ["m2"]),
            (["set", "Area", "--check", "SuppressT"], ["SuppressTrail0=on", "SuppressTrail0=off"]),
            (["group", "1,"], ["1,2345,6789.00"]), (["names", "r"], ["roundings"]), (["doctor", "x"], [":files"]),
            (["--settings", ""], [":files"]), (["diff", "a.xml", ""], [":files"]), (["schedule", "-o", ""], [":files"]),
            (["help", "dia"], ["dialog"]), (["format", "Area", ""], []), (["nonsense", ""], None),
            (["--settings", "none.xml", "use", ""], []), (["eval", "--", "--"], []),
            (["--system", "2", "set", "Area", "--unit", "Square m"], ["Square meters", "Square millimeters"]),
        ]
        for words, expected in rows:
            with self.subTest(" ".join(words)):
                found = self.complete(*words)
                if expected is not None:
                    self.assertEqual(found, expected)
        self.assertNotIn("complete", self.complete(""))

    def bash_replies(self, line):
        """COMPREPLY for a line with the cursor at its end, from a bash that has split it itself, at a terminal."""
        script = ROOT / "apps/unitctl/completions/unitctl.bash"
        code = (f"source '{script}'\n_show() {{ _unitctl; printf '%s\\n' \"${{COMPREPLY[@]}}\" > '{self.folder}/replies'; }}\n"
                "complete -F _show unitctl\nPS1='ready$ '\n")
        with open(os.path.join(self.folder, "rc"), "w", encoding="utf-8") as file:
            file.write(code)
        replies = os.path.join(self.folder, "replies")
        if os.path.exists(replies):
            os.remove(replies)
        main, other = pty.openpty()
        process = subprocess.Popen(["bash", "--noprofile", "--rcfile", os.path.join(self.folder, "rc"), "-i"], stdin=other,
                                   stdout=other, stderr=other, cwd=self.folder, env=self.environment, start_new_session=True)
        os.close(other)
        try:
            self.read_until(main, b"ready$ ")
            os.write(main, line.encode() + b"\t")
            for _ in range(600):
                if os.path.exists(replies) and os.path.getsize(replies) > 0:
                    break
                time.sleep(0.05)
            with open(replies, encoding="utf-8") as file:
                return file.read().splitlines()
        finally:
            process.kill()
            process.wait()
            os.close(main)

    def read_until(self, descriptor, mark):
        seen = b""
        while mark not in seen:
            self.assertTrue(select.select([descriptor], [], [], 60)[0], seen)
            seen += os.read(descriptor, 4096)

    def test_bash(self):
        rows = [
            ("unitctl sho", ["show"]), ("unitctl use tai", [r"Taiwan\ Metric\ System"]),
            ('unitctl use "US', ["US Imperial System"]), (r"unitctl use US\ Imp", [r"US\ Imperial\ System"]),
            ('unitctl set "Area" --unit Square\\ me', [r"Square\ meters"]),
            ("unitctl set Area --check UseD", ["UseDigitGroup=on", "UseDigitGroup=off"]),
            ("unitctl set Area --check UseDigitGroup=o", ["on", "off"]),
            ("unitctl --system=uk", [r"UK\ Imperial\ System"]), ("unitctl set 3 --round 'To the nearest 6", [r"""To the nearest 6\""""[:-2] + '"']),
        ]
        for line, expected in rows:
            with self.subTest(line):
                self.assertEqual(self.bash_replies(line), expected)

    def test_zsh(self):
        script = ROOT / "apps/unitctl/completions/_unitctl"
        self.run_ok("zsh", "-n", str(script))
        code = (f"compadd() {{ shift; print -rl -- \"$@\" }}; _files() {{ print files }}\n"
                f"words=(unitctl {{}}); CURRENT=$#words; source '{script}'")
        for words, expected in (("use tai", "Taiwan Metric System\n"), (r"use 'US\ Imp'", "US Imperial System\n"),
                                ("doctor ''", "files\n"), ("use nothing", "")):
            self.assertEqual(self.run_ok("zsh", "-f", "-c", code.replace("{}", words)), expected, words)

    # ---- man page

    def test_man_page(self):
        page = pathlib.Path(PROGRAM).parent / "unitctl.1"
        text = page.read_text(encoding="utf-8").replace("\\-", "-").replace("\\(aq", "'")
        commands = self.complete("")
        for command in commands:
            self.assertRegex(text, f'(?m)^\\.SS "{command}\\b')
            for option in re.findall(r"^  (?:-\w,)?(--[\w-]+)", self.run_ok("unitctl", command, "--help"), re.M):
                self.assertIn(option, text)
        # Without a date, so that building twice gives the same file.
        lint = subprocess.run(["mandoc", "-Tlint", "-Wwarning", str(page)], capture_output=True, timeout=60, text=True).stdout
        self.assertEqual([line for line in lint.splitlines() if "missing date" not in line], [])

    # ---- texts

    def texts(self, *options):
        return json.loads(self.run_ok("unitctl", *options, "texts", "--json"))

    def test_chinese_is_complete(self):
        english, chinese = self.texts(), {}
        for path in sorted((ROOT / "examples/texts").glob("*.txt")):
            for line in path.read_text(encoding="utf-8").splitlines():
                if line and not line.startswith("#"):
                    key, _, text = line.partition(" = ")
                    chinese[key] = text
            self.assertEqual(sorted(chinese), sorted(english), path.name)
            for key, text in english.items():
                self.assertEqual(sorted(set(re.findall(r"\{\d\}", text))), sorted(set(re.findall(r"\{\d\}", chinese[key]))), key)
            shown = self.texts("--texts", str(path))
            same = [key for key in english if shown[key] == english[key] and re.search("[a-z]{2}", english[key])]
            self.assertEqual(same, [], "not translated")

    def test_the_table_it_writes_is_one_it_reads(self):
        with open(os.path.join(self.folder, "own.txt"), "w", encoding="utf-8") as file:
            file.write(self.run_ok("unitctl", "texts"))
        self.assertEqual(self.texts("--texts", "own.txt"), self.texts())

    def test_every_text_comes_from_the_table(self):
        """With every text in brackets, nothing readable stands outside of them but names, options and examples."""
        english = self.texts()
        with open(os.path.join(self.folder, "marked.txt"), "w", encoding="utf-8") as file:
            for key, text in english.items():
                file.write(f"{key} = <{text.strip()}>\n".replace("\n", "\\n", text.count("\n")))
        self.environment["UNITLIB_TEXTS"] = os.path.join(self.folder, "marked.txt")
        commands = [[]] + [[command] for command in self.complete("")] + [["elev", form] for form in ("store", "check")]
        for command in commands:
            help_text = self.run_ok("unitctl", *command, "--help")
            example = False
            for line in help_text.splitlines():
                example = line == "<Example>:" or example and bool(line)
                if line and not example:
                    self.assertIn("<", line, help_text) if not self.in_brackets(help_text, line) else None
        outside = subprocess.run(["unitctl", "format", "lenght", "1"], cwd=self.folder, env=self.environment, capture_output=True)
        self.assertEqual(outside.stderr.decode(), 'unitctl: <no <<measure> "lenght">; the nearest is "Length (Basic Information)">\n')

    @staticmethod
    def in_brackets(text, line):
        before = text[:text.index(line)]
        return before.count("<") > before.count(">")

    def test_wrong_tables(self):
        for content, message in ((b"nonsense", "1: Not of the form key = text"), (b"a = b\na = c", "2: The key occurs twice"),
                                 (b"\xff", "1: Not a text in UTF-8")):
            path = os.path.join(self.folder, "wrong.txt")
            with open(path, "wb") as file:
                file.write(content)
            result = subprocess.run([PROGRAM, "--texts", path, "names", "systems"], capture_output=True, timeout=60)
            self.assertEqual(result.returncode, 1)
            self.assertIn(f"wrong.txt:{message}", result.stderr.decode())


if __name__ == "__main__":
    PROGRAM, ROOT = os.path.abspath(sys.argv.pop(1)), pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
