"""The demo firm works in every province and in both countries."""

import shutil
import tempfile
from pathlib import Path
import unittest

from console import call

PROVINCES = ["AB", "BC", "MB", "ON", "SK", "QC", "NS", "NB", "NL", "PE"]


class PlaceTest(unittest.TestCase):
    def test_every_kind_of_task_merges_whole(self):
        places = [["--province", province] for province in PROVINCES] + [["--country", "us"]]
        for place in places:
            with self.subTest(place):
                folder = Path(tempfile.mkdtemp(prefix="hvnotify-test-"))
                self.addCleanup(shutil.rmtree, folder)
                made = call(folder, "init", "--demo", "--clients", 30, "--seed", 3, *place)
                self.assertEqual((0, "Made firm.db with 30 clients.\n", ""),
                                 (made.code, made.out, made.err))
                tasks = {row["name"]: row["task"] for row in call(folder, "--json", "tasks").json()}
                self.assertGreater(len(tasks), 3)
                for name, task in tasks.items():
                    self.check_text(folder, name, task)

    def check_text(self, folder, name, task):
        for option, marks in [([], ["\\'ab", "\\'bb"]), (["--plain"], ["«", "»", "\\'"])]:
            merged = call(folder, "merge", task, *option)
            self.assertEqual((0, ""), (merged.code, merged.err))
            self.assertGreater(len(merged.out), 200)
            for mark in marks:
                self.assertNotIn(mark, merged.out, f"{name}, task {task}")
