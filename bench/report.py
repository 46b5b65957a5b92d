#!/usr/bin/env python3
"""Puts the benchmarks in proportion to their floors. Usage: report.py RESULTS_FOLDER MEMORY.json COUNTS.json PROGRAMS MILLION.db"""
import json
import resource
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

# Row -> words and what is aimed at, if anything: a ratio, or a time in words.
ROWS = [
    ("single_row", "single row by key: open, read 3 columns, close", "raw prepared SQLite", 1.2),
    ("merge_seen", "merge of a 1.5 kB letter, 12 fields, template seen before", "ctemplate, parsed once", 0.85),
    ("merge_new", "the same, template never seen", "ctemplate, parse and render", 0.75),
    ("merge_turns", "the same, 100 templates in turn", "ctemplate, all parsed once", None),
    ("open_records", "its records looked up, opened and closed, without a merge", "its statements raw, no column read", None),
    ("comments", "`generateClientAutoNotifyComment`, 1,000 tasks, in memory", "the same SELECTs raw", 1.25),
    ("comments_disk", "the same on disk", "the same SELECTs raw", 1.25),
    ("add_email_disk", "add one email notification, on disk", "its SELECTs and INSERT raw", 1.4),
    ("add_letter_disk", "add one letter notification, on disk", "its SELECTs and INSERT raw", 1.4),
    ("add_email_memory", "add one email notification, in memory", "its SELECTs and INSERT raw", 1.4),
    ("add_letter_memory", "add one letter notification, in memory", "its SELECTs and INSERT raw", 1.4),
    ("open_email", "opening the composer of an email, and closing it", "its statements raw, no column read", None),
    ("open_letter", "the same of a letter", "its statements raw, no column read", None),
    ("open_editor", "opening the editor of templates on 250 kinds", "its statements raw, no column read", "100 ms"),
    ("propagation_memory", "a template carried into 10,000 unsent notifications, in memory", "its SELECTs and UPDATEs raw", 1.4),
    ("propagation_disk", "the same into 200, on disk", "its SELECTs and UPDATEs raw", 1.4),
    ("bulk_year", "a year of 10,000 tasks armed by four channels", "its statements raw, key by key", 1.5),
    ("list_default", "100,000 notifications into the list, its default columns", "the columns and names in one raw scan, a look at the clock a row", 2.0),
    ("list_all", "the same with all columns", "the same", 2.0),
]


NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6}


def readings(results):
    """Name -> times in nanoseconds, one a repetition; and name -> most bytes in use."""
    times, memory = {}, {}
    for run in results["benchmarks"]:
        if run["run_type"] != "iteration":
            continue
        name, _, rest = run["name"].partition("/")
        part = rest.split("/")[0]
        elapsed = run["real_time"] if rest.endswith("real_time") else run["cpu_time"]
        elapsed *= NANOSECONDS[run["time_unit"]]
        if name.startswith("add_"):  # a turn adds many
            elapsed = 1e9 / run["items_per_second"]
        times.setdefault((name, part), []).append(elapsed)
        memory[name, part] = max(memory.get((name, part), 0), run.get("max_bytes_used", 0))
    return times, memory


def human(nanoseconds):
    for unit, size in (("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def by_instructions(counts, name):
    if name not in counts:
        return "-"
    return f"{counts[name]['ours'] / counts[name]['floor']:.2f} x"


def table(times, alone, counts):
    """`alone`: the readings of runs that told their memory."""
    alone_times, memory = alone
    yield "| work | ours | floor in the same run | ratio | by instructions | aim |"
    yield "|---|---|---|---|---|---|"
    for name, words, floor_words, aim in ROWS:
        ours, floor = (statistics.median(times[name, part]) for part in ("ours", "floor"))
        yield (f"| {words} | {human(ours)} | {human(floor)} ({floor_words}) | "
               f"{ours / floor:.2f} x | {by_instructions(counts, name)} | {f'{aim:g} x' if isinstance(aim, float) else aim or '-'} |")
    yield (f"| a handle for adding on 1,000,000 rows | {human(alone_times['adding_handle', 'ours'][0])}, "
           f"{memory['adding_handle', 'ours'] / 1024:.0f} KiB | - | - | - | 1 ms, 1 MiB |")
    yield f"| memory of one merge | {memory['merge_new', 'ours'] / 1024:.0f} KiB | - | - | - | - |"


def loaded_list(results):
    """A million rows in the list's window, the least disturbed of the loads, and a load that is cancelled."""
    runs = {name: [run for run in results["benchmarks"] if run["run_type"] == "iteration" and
                   run["name"].startswith(name)] for name in ("list_million", "list_cancel")}
    million = min(runs["list_million"], key=lambda run: run["longest_pause_ms"])
    answers = [run["real_time"] for run in runs["list_cancel"]]
    yield (f"| {million['rows']:,.0f} notifications into the list | {million['cpu_time'] / 1e3:.1f} s, "
           f"{million['bytes_a_row']:.0f} bytes a row, no pause over {million['longest_pause_ms']:.0f} ms "
           "| - | - | - | 200 bytes, 100 ms |")
    yield f"| Cancel in the middle of 100,000, to the answer | {statistics.median(answers):.1f} ms | - | - | - | 100 ms |"


def due_on(hvnotify, database):
    """What is due among a million rows: time and memory of the whole process."""
    start = time.monotonic()
    done = subprocess.run([hvnotify, "--batch", "--database", database, "--today", "2026-04-15", "due"],
                          capture_output=True, text=True, check=True)
    seconds = time.monotonic() - start
    kilobytes = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss
    rows = len(done.stdout.splitlines()) - 1
    return (f"| `due` among 1,000,000 rows, {rows} due | {seconds:.2f} s, {kilobytes / 1024:.1f} MiB "
            "(the whole process) | - | - | - | - |")


def letters_printed(program):
    """Letters of two pages into one PDF: pages a second of processor time, and the memory of the whole process."""
    with tempfile.TemporaryDirectory() as folder:
        runs = [subprocess.run([program, str(count), f"{folder}/letters.pdf"], capture_output=True,
                               text=True, check=True).stdout.split() for count in (10, 1000)]
    return (f"| 1,000 letters into one PDF | {runs[1][0]} pages/s, {runs[1][1]} MiB "
            f"({runs[0][1]} MiB for 10) | - | - | - | 200 pages/s |")


def rows_of_a_grid(program, count):
    """A grid filled with the list's columns: what a row takes, and how long a sort by two keys."""
    told = subprocess.run([program, str(count)], capture_output=True, text=True, check=True).stdout.strip()
    return f"| {count:,} rows in a grid | {told} | - | - | - | 150 bytes a row, 100,000 sorted in 50 ms |"


def load(path):
    with open(path, encoding="utf-8") as file:
        return json.load(file)


folder, memory_file, counts_file, programs, million = sys.argv[1:]
results = {"benchmarks": [run for path in Path(folder).glob("*.json") for run in load(path)["benchmarks"]]}
print("\n".join(table(readings(results)[0], readings(load(memory_file)), load(counts_file))))
print("\n".join(loaded_list(results)))
print(due_on(f"{programs}/hvnotify", million))
print(letters_printed(f"{programs}/many_letters"))
for count in (100_000, 1_000_000):
    print(rows_of_a_grid(f"{programs}/grid_rows", count))
