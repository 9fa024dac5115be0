"""Whole files: unitctl schedule beside cat, numfmt and awk, and the start of unitctl format.

files.py UNITCTL FOLDER ROWS -> a JSON object on standard output. Seconds are medians of several runs; every program
reads the file from memory (it has just been written) and writes a file into FOLDER.
"""
import json
import os
import random
import shutil
import statistics
import subprocess
import sys
import time


def write_schedule(path, rows):
    """Rows "id,measure,value" with lengths, areas, volumes and masses of every magnitude."""
    draw = random.Random(20240601)
    block = ["Length (Basic Information)", "Area", "Volume", "Mass"]
    values = [f"{10 ** draw.uniform(1, 8):.{draw.randint(0, 4)}f}" for _ in range(100_003)]
    with open(path, "w", encoding="ascii", newline="\n") as out:
        out.write("id,measure,value\n")
        for start in range(0, rows, 10_000):
            stop = min(start + 10_000, rows)
            out.write("".join(f"{i},{block[i * 7 % 4]},{values[i % 100_003]}\n" for i in range(start, stop)))


def peak_memory(pid):
    """Most memory in MiB that the process has used; 0 when it is gone. (What wait4 tells starts at our own size.)"""
    try:
        with open(f"/proc/{pid}/status", encoding="ascii") as status:
            for line in status:
                if line.startswith("VmHWM:"):
                    return int(line.split()[1]) / 1024
    except OSError:
        pass
    return 0


def run(command, out_path, cores=None, env=None):
    """Wall and processor seconds, and the most memory in MiB, of one run."""
    if cores:
        command = ["taskset", "-c", cores, *command]
    memory = 0
    with open(out_path, "wb") as out:
        start = time.perf_counter()
        process = subprocess.Popen(command, stdout=out, env=env)
        while True:
            done, status, usage = os.wait4(process.pid, os.WNOHANG)
            if done:
                break
            memory = max(memory, peak_memory(process.pid))
            time.sleep(0.002)
        wall = time.perf_counter() - start
    if status != 0:
        raise SystemExit(f"{command} failed")
    return wall, usage.ru_utime + usage.ru_stime, memory


def median_of(times, command, out_path, **how):
    runs = [run(command, out_path, **how) for _ in range(times)]
    wall, cpu, memory = (statistics.median(column) for column in zip(*runs))
    return {"wall": wall, "cpu": cpu, "memory_mib": memory}


def grouping_locale(folder):
    """A locale with groups of three, made where the machine has none."""
    path = os.path.join(folder, "locales")
    os.makedirs(path, exist_ok=True)
    if not os.path.exists(os.path.join(path, "en_US.UTF-8")):
        subprocess.run(["localedef", "--no-archive", "-i", "en_US", "-f", "UTF-8", os.path.join(path, "en_US.UTF-8")],
                       check=True)
    return {**os.environ, "LOCPATH": path, "LC_ALL": "en_US.UTF-8"}


AWK = r"""NR == 1 { print $0 ",display"; next }
{ t = sprintf("%.3f", $3 / 1000); p = index(t, "."); h = substr(t, 1, p - 1); r = substr(t, p);
  while (length(h) > 3) { r = "," substr(h, length(h) - 2) r; h = substr(h, 1, length(h) - 3) }
  print $0 ",\"" h r " m\"" }"""


def start_of_format(unitctl, settings):
    """Milliseconds of wall of unitctl format, and of a program that does nothing."""
    def measure(command):
        times = []
        for _ in range(41):
            start = time.perf_counter()
            subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
            times.append((time.perf_counter() - start) * 1000)
        return statistics.median(times)
    return {"unitctl format": measure([unitctl, "--settings", settings, "format", "0", "1234.5"]),
            "true": measure(["true"])}


def main():
    unitctl, folder, rows = sys.argv[1], sys.argv[2], int(sys.argv[3])
    settings = os.path.join(folder, "units.xml")
    if os.path.exists(settings):
        os.remove(settings)
    subprocess.run([unitctl, "init", settings], check=True, stdout=subprocess.DEVNULL)
    subprocess.run([unitctl, "--settings", settings, "use", "Standard Metric System"], check=True,
                   stdout=subprocess.DEVNULL)
    result = {"rows": rows, "cores": len(os.sched_getaffinity(0)), "programs": {}, "growth": {}}
    source, target = os.path.join(folder, "schedule.csv"), os.path.join(folder, "out.csv")
    schedule = [unitctl, "--settings", settings, "schedule", source]
    locale = grouping_locale(folder)
    for count in (rows // 100, rows // 10, rows):
        write_schedule(source, count)
        result["growth"][count] = median_of(3, schedule, target)
    result["bytes"] = os.path.getsize(source)
    one = "0"
    programs = result["programs"]
    programs["cat"] = median_of(3, ["cat", source], target)
    programs["ours"] = result["growth"][rows]
    programs["ours, one core"] = median_of(3, schedule, target, cores=one)
    numfmt = 'numfmt --grouping --delimiter=, --field=3 --header=1 < "$0"'
    programs["numfmt --grouping, one core"] = median_of(3, ["sh", "-c", numfmt, source], target, cores=one, env=locale)
    programs["awk, one core"] = median_of(3, ["awk", "-F,", AWK, source], target, cores=one)
    result["start_ms"] = start_of_format(unitctl, settings)
    for path in (source, target, settings):
        os.remove(path)
    shutil.rmtree(os.path.join(folder, "locales"))
    json.dump(result, sys.stdout, indent=1)


main()
