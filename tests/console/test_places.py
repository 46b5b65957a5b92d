"""The demo firm works in every province and in both countries."""

import shutil
import tempfile
from pathlib import Path
import unittest

from console import ENGINE, call

PROVINCES = ["AB", "BC", "MB", "ON", "SK", "QC", "NS", "NB", "NL", "PE"]


class PlaceTest(unittest.TestCase):
    def test_every_kind_of_task_merges_whole(self):
        places = [["--province", province] for province in PROVINCES] + [["--country", "us"]]
        for place in places:
            with self.subTest(place):
                folder = Path(tempfile.mkdtemp(prefix="hvnotify-test-"))
                self.addCleanup(shutil.rmtree, folder)
                ENGINE.prepare(folder)
                firm = ENGINE.empty(self)
                made = call(folder, "init", "--demo", "--clients", 30, "--seed", 3, *place,
                            database=firm)
                self.assertEqual((0, f"Made {firm} with 30 clients.\n", ""),
                                 (made.code, made.out, made.err))
                listed = call(folder, "--json", "tasks", database=firm).json()
                tasks = {row["name"]: row["task"] for row in listed}
                self.assertGreater(len(tasks), 3)
                for name, task in tasks.items():
                    self.check_text(folder, firm, name, task)

    def check_text(self, folder, firm, name, task):
        for option, marks in [([], ["\\'ab", "\\'bb"]), (["--plain"], ["«", "»", "\\'"])]:
            merged = call(folder, "merge", task, *option, database=firm)
            self.assertEqual((0, ""), (merged.code, merged.err))
            self.assertGreater(len(merged.out), 200)
            for mark in marks:
                self.assertNotIn(mark, merged.out, f"{name}, task {task}")
