"""The unitctl program at a terminal, in pipes, on full disks and under signals.

Usage: unitctl_program_test.py PROGRAM SAMPLE_FOLDER
"""
import csv
import io
import os
import pty
import random
import shutil
import signal
import stat
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = ""
SAMPLES = ""
SYSTEMS = ["US Imperial System", "UK Imperial System", "Standard Metric System", "Taiwan Metric System"]
HEADER = b"item,measure,value\n"
ROW = b"wall,0,1676.4\n"
SHOWN = b"wall,0,1676.4,\"5' 6\"\"\"\n"


class Program(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="unitctl-test-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.settings = self.path("UnitConfig.xml")
        self.run_ok("init", "--system", "0")

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, content):
        with open(self.path(name), "wb") as file:
            file.write(content)
        return self.path(name)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def command(self, *arguments):
        return [PROGRAM, "--settings", self.settings, *arguments]

    def run_program(self, *arguments, **options):
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        return subprocess.run(self.command(*arguments), timeout=120, **options)

    def run_ok(self, *arguments, **options):
        result = self.run_program(*arguments, **options)
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        return result.stdout

    def run_shell(self, line):
        """A shell line in which $U is the program."""
        environment = dict(os.environ, U=PROGRAM, S=self.settings)
        return subprocess.run(["bash", "-c", line], cwd=self.folder, env=environment, capture_output=True, timeout=120)

    def start(self, *arguments, **options):
        process = subprocess.Popen(self.command(*arguments), stdin=subprocess.PIPE, **options)
        self.addCleanup(process.stdin.close)
        return process

    # ---- standard streams

    def test_closed_standard_output_is_an_error(self):
        result = self.run_shell('"$U" --settings "$S" show >&-')
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"unitctl: standard output: Cannot be written: ", result.stderr)

    def test_closed_standard_output_does_not_end_in_another_file(self):
        self.write("in.csv", HEADER + ROW)
        result = self.run_shell('"$U" --settings "$S" schedule in.csv -o out.csv >&- 2>&-')
        self.assertEqual(self.read("in.csv"), HEADER + ROW)
        self.assertEqual(self.read("out.csv"), b"item,measure,value,display\n" + SHOWN)
        self.assertEqual(result.returncode, 0)

    def test_full_disk_behind_standard_output(self):
        for command in ("show", "--help", "format 0 1", "schedule in.csv", "schedule in.csv --table", "eval 1"):
            self.write("in.csv", HEADER + ROW)
            result = self.run_shell('"$U" --settings "$S" %s > /dev/full' % command)
            self.assertEqual(result.returncode, 1, command)
            self.assertEqual(result.stderr, b"unitctl: standard output: Cannot be written: No space left on device\n")

    def test_closed_standard_input(self):
        result = self.run_shell('"$U" --settings "$S" schedule <&-')
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"unitctl: standard input: Cannot be read: ", result.stderr)

    def test_reader_that_goes_away(self):
        self.write("in.csv", HEADER + ROW * 200000)
        result = self.run_shell('"$U" --settings "$S" schedule in.csv | head -n 2; exit ${PIPESTATUS[0]}')
        self.assertEqual(result.stdout, b"item,measure,value,display\n" + SHOWN)
        self.assertEqual(result.returncode, 128 + signal.SIGPIPE)

    def test_rows_appear_as_they_arrive(self):
        process = self.start("schedule", stdout=subprocess.PIPE)
        self.addCleanup(process.stdout.close)
        process.stdin.write(HEADER + ROW)
        process.stdin.flush()
        self.assertEqual(process.stdout.readline(), b"item,measure,value,display\n")
        self.assertEqual(process.stdout.readline(), SHOWN)
        process.stdin.close()
        self.assertEqual(process.wait(timeout=60), 0)

    # ---- output files

    def test_full_disk_behind_an_output_file(self):
        self.write("in.csv", HEADER + ROW)
        result = self.run_program("schedule", self.path("in.csv"), "-o", "/dev/full")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr, b"unitctl: /dev/full: Cannot be written: No space left on device\n")
        self.assertTrue(stat.S_ISCHR(os.stat("/dev/full").st_mode))

    def test_file_size_limit_leaves_the_output_as_it_was(self):
        self.write("in.csv", HEADER + ROW * 20000)
        self.write("out.csv", b"old")
        result = self.run_shell('trap "" XFSZ; ulimit -f 64; "$U" --settings "$S" schedule in.csv -o out.csv')
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"out.csv: Cannot be written: File too large", result.stderr)
        self.assertEqual(self.read("out.csv"), b"old")
        self.assertEqual(sorted(os.listdir(self.folder)), ["UnitConfig.xml", "in.csv", "out.csv"])

    def test_signals_leave_no_temporary_file(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            self.write("out.csv", b"old")
            process = self.start("schedule", "-o", self.path("out.csv"))
            process.stdin.write(HEADER + ROW)
            process.stdin.flush()
            deadline = time.monotonic() + 60
            while len(os.listdir(self.folder)) < 3 and time.monotonic() < deadline:
                time.sleep(0.01)
            self.assertEqual(len(os.listdir(self.folder)), 3, "settings, out.csv and the temporary file")
            process.send_signal(number)
            self.assertEqual(process.wait(timeout=60), -number)
            self.assertEqual(sorted(os.listdir(self.folder)), ["UnitConfig.xml", "out.csv"])
            self.assertEqual(self.read("out.csv"), b"old")

    def test_output_keeps_permissions_and_links(self):
        self.write("in.csv", HEADER + ROW)
        self.write("real.csv", b"old")
        os.chmod(self.path("real.csv"), 0o640)
        os.symlink("real.csv", self.path("link.csv"))
        self.run_ok("schedule", self.path("in.csv"), "-o", self.path("link.csv"))
        self.assertTrue(os.path.islink(self.path("link.csv")))
        self.assertEqual(self.read("real.csv"), b"item,measure,value,display\n" + SHOWN)
        self.assertEqual(stat.S_IMODE(os.stat(self.path("real.csv")).st_mode), 0o640)

    def test_new_output_file_follows_the_mask(self):
        self.write("in.csv", HEADER + ROW)
        self.run_shell('umask 027; "$U" --settings "$S" schedule in.csv -o out.csv')
        self.assertEqual(stat.S_IMODE(os.stat(self.path("out.csv")).st_mode), 0o640)

    def test_named_pipe_as_output(self):
        self.write("in.csv", HEADER + ROW)
        result = self.run_shell('mkfifo pipe; "$U" --settings "$S" schedule in.csv -o pipe & cat pipe; wait $!')
        self.assertEqual((result.returncode, result.stdout), (0, b"item,measure,value,display\n" + SHOWN))

    # ---- another reader and writer

    def test_agrees_with_another_csv_implementation(self):
        seed = 20261121
        source = random.Random(seed)
        pieces = ["a", ",", '"', "'", "\n", "\r\n", " ", "é", "混"]
        for quoting in (csv.QUOTE_MINIMAL, csv.QUOTE_ALL, csv.QUOTE_NONNUMERIC):
            for line_end in ("\n", "\r\n"):
                rows = [["item", "measure", "value", "note"]]
                for _ in range(300):
                    texts = ["".join(source.choices(pieces, k=source.randrange(8))) for _ in range(2)]
                    rows.append([texts[0], "0", str(25.4 * source.randrange(1000)), texts[1]])
                text = io.StringIO(newline="")
                csv.writer(text, quoting=quoting, lineterminator=line_end).writerows(rows)
                shown = self.run_ok("schedule", input=text.getvalue().encode()).decode()
                read = list(csv.reader(io.StringIO(shown, newline="")))
                self.assertEqual([row[:-1] for row in read], rows, "seed %d" % seed)
                for row in read[1:]:
                    inches = round(float(row[2]) / 25.4)
                    self.assertEqual(row[-1], "%d' %d\"" % divmod(inches, 12))

    # ---- a terminal

    def run_with_terminal(self, *arguments, seconds):
        """Feeds rows for a while, with a terminal as standard error; gives what the terminal got."""
        master, slave = pty.openpty()
        process = self.start(*arguments, stdout=subprocess.DEVNULL, stderr=slave)
        os.close(slave)
        process.stdin.write(HEADER)
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            process.stdin.write(ROW)
            process.stdin.flush()
            time.sleep(0.02)
        process.stdin.close()
        self.assertEqual(process.wait(timeout=60), 0)
        shown = b""
        try:
            while piece := os.read(master, 4096):
                shown += piece
        except OSError:  # the other end is closed
            pass
        os.close(master)
        return shown

    def test_progress_on_a_terminal(self):
        shown = self.run_with_terminal("schedule", seconds=1.5)
        self.assertRegex(shown, rb"\r\d+ rows")
        self.assertRegex(shown, rb"\r +\r$")  # wiped at the end

    def test_no_progress_for_a_short_run(self):
        self.assertEqual(self.run_with_terminal("schedule", seconds=0.05), b"")

    # ---- memory

    def peak_memory(self, rows):
        """Peak memory in kB after these rows; asked while the program lives, as it starts as a copy of this one."""
        # The address sanitizer holds freed memory back; a little will do here.
        options = os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=1:thread_local_quarantine_size_kb=64"
        environment = dict(os.environ, ASAN_OPTIONS=options)
        process = self.start("schedule", stdout=subprocess.DEVNULL, env=environment)
        process.stdin.write(HEADER + ROW * rows)
        process.stdin.flush()
        with open("/proc/%d/status" % process.pid) as file:
            peak = next(int(line.split()[1]) for line in file if line.startswith("VmHWM:"))
        process.stdin.close()
        self.assertEqual(process.wait(timeout=120), 0)
        return peak

    def test_memory_does_not_grow_with_the_file(self):
        small, large = self.peak_memory(50000), self.peak_memory(500000)
        self.assertLess(large, small + 1024, "10 times the rows, %d and %d kB" % (small, large))

    # ---- settings and samples

    def test_default_settings_lie_beside_the_program(self):
        copy = shutil.copy(PROGRAM, self.path("unitctl-copy"))
        os.remove(self.settings)
        result = subprocess.run([copy, "init"], capture_output=True, timeout=60)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertTrue(os.path.exists(self.settings))

    def test_sample_in_all_systems(self):
        sample = os.path.join(SAMPLES, "small-house.csv")
        for system in SYSTEMS:
            text = self.run_ok("--system", system, "schedule", sample).decode()
            rows = list(csv.DictReader(text.splitlines()))
            self.assertGreater(len(rows), 30)
            self.assertTrue(all(row["display"] for row in rows), system)

    def test_sample_side_by_side(self):
        text = self.run_ok("compare", os.path.join(SAMPLES, "small-house.csv")).decode()
        lines = text.splitlines()
        self.assertEqual(len({len(line) for line in lines}), 1, "every line ends in the same column")
        for system in SYSTEMS:
            self.assertIn(system, lines[0])
        # 35040 mm: / 304.8 = 114.9606 feet, / 1000 = 35.04 m
        self.assertRegex(text, r"Strip footing, centre line +114\.961 FT +114\.961 FT +35\.040 m +35\.040 m\n")
        # 0.15 m3/m / 2.50838208 = 0.0598 cubic yards per foot
        self.assertRegex(text, r"Concrete per metre of wall \(500 x 300\) +0\.060 CY/FT +0\.060 CY/FT +0\.150 m3/m")

    def test_number_texts_do_not_depend_on_the_locale(self):
        environment = dict(os.environ, LC_ALL="de_DE.UTF-8")
        self.assertEqual(self.run_ok("format", "7", "1000.5", env=environment), b"3.282\n")


if __name__ == "__main__":
    PROGRAM, SAMPLES = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
