#!/usr/bin/env python3
"""Counts the instructions of the benchmarks' two sides, which no other load on the machine changes.

Usage: instructions.py PROGRAMS FOLDER COUNTS.json

PROGRAMS holds autonotify_bench. It makes its databases in FOLDER. COUNTS.json takes, for each row,
the instructions of ours and floor.
"""
import json
import re
import subprocess
import sys
import tempfile
from pathlib import Path

# Turns of each row: rows of a kind share a run, in which their firm is made once.
RUNS = [
    ("single_row|merge_.*", 3000),
    ("open_.*", 100),
    ("comments|add_(email|letter)_memory|propagation_memory", 1),
    ("bulk_year|list_(default|all)", 1),
]
# The benchmark library measures between these.
BEGIN = ("benchmark::State::StartKeepRunning()", "benchmark::State::ResumeTiming()")
PAUSE, END = "benchmark::State::PauseTiming()", "benchmark::State::FinishKeepRunning()"


def benchmarks(program, databases, rows):
    told = subprocess.run([program, databases, f"--benchmark_filter=^({rows})/", "--benchmark_list_tests"],
                          check=True, capture_output=True, text=True).stdout
    return [tuple(line.split("/")[:2]) for line in told.split()]


def dumps(program, databases, rows, turns):
    """What was counted in each span that is measured, and whether it was the last of its benchmark."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={folder}/out",
                        *(f"--zero-before={name}" for name in BEGIN),
                        *(f"--dump-before={name}" for name in (PAUSE, END)),
                        program, databases, str(turns), f"--benchmark_filter=^({rows})/"],
                       check=True, stdout=sys.stderr)
        for path in sorted(Path(folder).glob("out.*"), key=lambda path: int(path.suffix[1:])):
            text = path.read_text()
            trigger = re.search(r"^desc: Trigger: (.*)$", text, re.M)[1]
            if "--dump-before" in trigger:
                yield int(re.search(r"^summary: (\d+)", text, re.M)[1]), END in trigger


def count(program, databases):
    counts = {}
    for rows, turns in RUNS:
        sides = iter(benchmarks(program, databases, rows))
        sum_of_spans = 0
        for instructions, is_last in dumps(program, databases, rows, turns):
            sum_of_spans += instructions
            if is_last:
                row, side = next(sides)
                counts.setdefault(row, {})[side] = sum_of_spans
                sum_of_spans = 0
    return counts


programs, databases, result = sys.argv[1:]
Path(result).write_text(json.dumps(count(f"{programs}/autonotify_bench", databases)))
