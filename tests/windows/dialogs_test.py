#!/usr/bin/env python3
"""Drives the dialogs of unitlib.dll in the sample host under Wine, by real keys and mouse on an X server.

  dialogs_test.py --spy SPY.EXE --host HOST.EXE --folder FOLDER --run COMMAND...

Screenshots of every step stay in FOLDER/screens.
"""

import argparse
import pathlib
import shutil
import subprocess
import sys
import time
import unittest
import xml.etree.ElementTree

OPTIONS = None
PATIENCE = 30  # seconds, for a slow machine; everything usually takes a fraction of one


def wait_for(question, what, patience=PATIENCE):
    """The first true answer."""
    end = time.monotonic() + patience
    while True:
        answer = question()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.05)


class Window:
    def __init__(self, line):
        depth, self.kind, x, y, width, height, enabled, focused, self.state, self.text = line.split("\t")
        self.depth, self.x, self.y, self.width, self.height = map(int, (depth, x, y, width, height))
        self.enabled, self.focused = enabled == "1", focused == "1"

    @property
    def right(self):
        return self.x + self.width

    @property
    def bottom(self):
        return self.y + self.height

    @property
    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2

    def __repr__(self):
        return f"{self.kind} [{self.text}] {self.width}x{self.height}+{self.x}+{self.y}"


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True, stdout=subprocess.DEVNULL)


def click_at(x, y):
    xdotool("mousemove", x, y)
    time.sleep(0.15)  # the program sees the pointer arrive before the button goes down
    xdotool("click", 1)


def keys(*names):
    for name in names:
        xdotool("key", name)
        time.sleep(0.05)


def windows_path(path):
    """A path of this machine as Wine sees it: / is drive Z."""
    return "Z:" + str(path).replace("/", "\\")


class Host:
    """The sample host with settings of its own."""

    def __init__(self, folder):
        shutil.rmtree(folder, ignore_errors=True)
        (folder / "documents").mkdir(parents=True)
        self.settings = folder / "UnitConfig.xml"
        self.working_copy = folder / "documents" / "Quillmere" / "ZEL" / "9.0" / "SysUnit.xml"
        self.process = subprocess.Popen(
            [*OPTIONS.run, OPTIONS.spy, windows_path(OPTIONS.host), windows_path(self.settings), windows_path(folder / "documents")],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, encoding="utf-8")  # fmt: skip
        wait_for(lambda: self.status().startswith("Units: "), "the host")

    def ask(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()

    def windows(self):
        self.ask("list")
        lines = []
        for line in self.process.stdout:
            line = line.rstrip("\r\n")
            if line == ".":
                return [Window(each) for each in lines]
            lines.append(line)
        raise AssertionError("the spy has ended")

    def controls(self, title):
        """The window with this title and what is in it; empty when there is none."""
        found = []
        for window in self.windows():
            if window.depth == 0 and found:
                break
            if found or (window.depth == 0 and window.text == title):
                found.append(window)
        return found

    def window(self, title):
        return wait_for(lambda: self.controls(title), f"a window [{title}]")

    def gone(self, title):
        wait_for(lambda: not self.controls(title), f"the end of the window [{title}]")

    def control(self, title, text=None, kind=None, nth=0):
        """The nth control with this text or of this class, when it is there."""

        def find():
            fitting = [w for w in self.controls(title)[1:] if (text is None or w.text == text) and (kind is None or w.kind == kind)]
            return fitting[nth] if len(fitting) > nth else None

        return wait_for(find, f"a control {kind or ''} [{text}] in [{title}]")

    def click(self, title, text=None, kind=None, nth=0):
        click_at(*self.control(title, text, kind, nth).centre)

    def status(self):
        return self.control("Quantities", kind="Static").text

    def open_units(self):
        """By the mouse: the menu Project, its first item."""
        menu = self.open_menu()
        click_at(menu.x + menu.width // 2, menu.y + 10)
        self.window("Project Units")

    def open_menu(self):
        """Under load Wine loses a click that comes in the moment in which the window does; as a user would, click again."""
        for attempt in range(3):
            frame = self.window("Quantities")[0]
            click_at(frame.x + 25, frame.y + 31)
            try:
                return wait_for(lambda: [w for w in self.windows() if w.depth == 0 and w.kind == "#32768"], "the menu", 5)[0]
            except AssertionError:
                if attempt == 2:
                    raise

    def close(self):
        keys("alt+F4")
        self.ask("wait")
        answer = self.process.stdout.readline().strip()
        self.end()
        return answer

    def end(self):
        if self.process.poll() is None:
            self.process.stdin.close()
            self.process.wait(PATIENCE)
        self.process.stdout.close()


def screenshot(name):
    folder = OPTIONS.folder / "screens"
    folder.mkdir(parents=True, exist_ok=True)
    subprocess.run(["import", "-window", "root", str(folder / (name + ".png"))], check=True)


def current_config(path):
    return xml.etree.ElementTree.parse(path).getroot().find("TemplateConfig").get("CurConfigIndex")


class Dialogs(unittest.TestCase):
    def setUp(self):
        xdotool("mousemove", 1200, 1000)
        self.host = Host(OPTIONS.folder / self.id().rsplit(".", 1)[-1])
        self.addCleanup(self.host.end)

    def tearDown(self):
        outcome = getattr(self._outcome, "result", None)
        if outcome and any(test is self for test, _ in [*outcome.failures, *outcome.errors]):
            screenshot("failed-" + self.id().rsplit(".", 1)[-1])

    def captions(self):
        return [w.text for w in self.host.controls("Project Units") if w.kind == "Button"]

    def test_ok_saves_and_the_host_redraws(self):
        host = self.host
        self.assertEqual("Units: US Imperial System", host.status())
        screenshot("host-before")
        before = host.settings.read_bytes()
        host.open_units()
        screenshot("project-units")
        self.assertFalse(host.window("Quantities")[0].enabled, "the owner waits while the dialog is open")
        self.assertIn("4' 0 19/32\"", self.captions())
        self.assertIn("13,288.778 [SF]", self.captions())
        # The configuration by key: Alt+C leads to the list, Down to the third entry.
        keys("alt+c", "Down", "Down")
        wait_for(lambda: "1235 [mm]" in self.captions(), "metric examples")
        screenshot("project-units-metric")
        host.click("Project Units", "OK")
        host.gone("Project Units")
        wait_for(lambda: host.status() == "Units changed: Standard Metric System", "the status line")
        screenshot("host-after")
        self.assertTrue(host.window("Quantities")[0].enabled)
        self.assertNotEqual(before, host.settings.read_bytes())
        self.assertEqual("2", current_config(host.settings))
        self.assertTrue(host.working_copy.exists())
        self.assertEqual("exit 0", host.close())

    def test_cancel_changes_nothing(self):
        host = self.host
        before = host.settings.read_bytes()
        host.open_units()
        keys("alt+c", "Down")
        wait_for(lambda: host.control("Project Units", kind="ComboBox").state.startswith("1/"), "the second configuration")
        host.click("Project Units", "Cancel")
        host.gone("Project Units")
        wait_for(lambda: host.status() == "Units unchanged: US Imperial System", "the status line")
        self.assertEqual(before, host.settings.read_bytes())
        self.assertEqual("exit 0", host.close())

    def test_escape_cancels_and_enter_saves(self):
        host = self.host
        before = host.settings.read_bytes()
        host.open_units()
        keys("alt+g", "Down", "Escape")
        host.gone("Project Units")
        self.assertEqual(before, host.settings.read_bytes())
        host.open_units()
        keys("alt+g", "Down")
        wait_for(lambda: "1,3288.778 [SF]" in self.captions(), "groups of four digits")
        keys("Return")
        host.gone("Project Units")
        wait_for(lambda: host.status() == "Units changed: US Imperial System", "the status line")
        self.assertNotEqual(before, host.settings.read_bytes())
        self.assertEqual("exit 0", host.close())

    def test_format_dialog_changes_one_measure(self):
        host = self.host
        before = host.settings.read_bytes()
        host.open_units()
        host.click("Project Units", "13,288.778 [SF]")
        host.window("Format")
        screenshot("format")
        self.assertFalse(host.window("Project Units")[0].enabled)
        # Square feet, square inches, square meters: two down from the first.
        unit = host.control("Format", kind="ComboBox")
        click_at(*unit.centre)
        keys("Down", "Down", "Return")
        wait_for(lambda: host.control("Format", kind="ComboBox").text == "Square meters", "square metres")
        host.click("Format", "Suppress trailing 0's")
        wait_for(lambda: host.control("Format", "Suppress trailing 0's").state == "1", "the switch")
        screenshot("format-square-metres")
        host.click("Format", "OK")
        host.gone("Format")
        wait_for(lambda: "1234.568 [m2]" in self.captions(), "the new example")
        screenshot("project-units-square-metres")
        # Cancelled: the one after stays as it is.
        host.click("Project Units", "2.205 [lb]")
        host.window("Format")
        keys("Down", "Escape")
        host.gone("Format")
        self.assertIn("2.205 [lb]", self.captions())
        host.click("Project Units", "OK")
        host.gone("Project Units")
        wait_for(lambda: host.status() == "Units changed: US Imperial System", "the status line")
        self.assertNotEqual(before, host.settings.read_bytes())
        # Opened again, the settings are those that were saved.
        host.open_units()
        self.assertIn("1234.568 [m2]", self.captions())
        screenshot("project-units-opened-again")
        keys("Escape")
        host.gone("Project Units")
        self.assertEqual("exit 0", host.close())

    def test_nothing_is_cut_or_overlapping(self):
        host = self.host
        host.open_units()
        self.check_layout("Project Units")
        for caption in ("4' 0 19/32\"", "13,288.778 [SF]"):
            host.click("Project Units", caption)
            host.window("Format")
            self.check_layout("Format")
            screenshot("layout-format-" + "".join(filter(str.isalnum, caption)))
            keys("Escape")
            host.gone("Format")
        keys("Escape")
        host.gone("Project Units")
        self.assertEqual("exit 0", host.close())

    def check_layout(self, title):
        """Controls lie inside their dialog, and no two of those with text share a place."""
        frame, *controls = self.host.window(title)
        leaves = [w for w in controls if w.kind in ("Button", "ComboBox", "Edit", "Static") and w.text]
        self.assertGreater(len(leaves), 4)
        for w in leaves:
            self.assertTrue(frame.x <= w.x and w.right <= frame.right and frame.y <= w.y and w.bottom <= frame.bottom, f"{w} leaves {frame}")
        for i, a in enumerate(leaves):
            for b in leaves[i + 1 :]:
                if "Button" in (a.kind, b.kind) and "[" in a.text + b.text:
                    continue  # rows of the grid scroll below each other
                apart = a.right <= b.x or b.right <= a.x or a.bottom <= b.y or b.bottom <= a.y
                self.assertTrue(apart, f"{a} overlaps {b}")


def main():
    global OPTIONS
    parser = argparse.ArgumentParser()
    parser.add_argument("--spy", required=True)
    parser.add_argument("--host", required=True)
    parser.add_argument("--folder", required=True, type=pathlib.Path)
    parser.add_argument("--only", help="one test")
    parser.add_argument("--run", required=True, nargs=argparse.REMAINDER, help="what runs a Windows program")
    OPTIONS = parser.parse_args()
    OPTIONS.folder.mkdir(parents=True, exist_ok=True)
    unittest.main(argv=[sys.argv[0], "-v", *(["Dialogs." + OPTIONS.only] if OPTIONS.only else [])])


if __name__ == "__main__":
    main()
