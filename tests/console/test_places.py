"""The demo firm works in every province and in both countries."""

from console import ENGINE, ConsoleTest

PROVINCES = "AB BC MB ON SK QC NS NB NL PE".split()


class PlaceTest(ConsoleTest):
    def test_every_kind_of_task_merges_whole(self):
        for place in [f"--province {province}" for province in PROVINCES] + ["--country us"]:
            firm = {"database": ENGINE.empty(self, f"{place.split()[1]}.db")}
            self.expect(f"init --demo --clients 30 --seed 3 {place}",
                        f"Made {firm['database']} with 30 clients.\n", **firm)
            tasks = {row["name"]: row["task"] for row in self.done("--json tasks", **firm)}
            self.assertGreater(len(tasks), 3)
            for name, task in tasks.items():
                for option, marks in [("", "\\\\'ab|\\\\'bb"), ("--plain", "[«»]|\\\\'")]:
                    merged = self.done(f"merge {task} {option}", **firm)
                    self.assertGreater(len(merged), 200)
                    self.assertNotRegex(merged, marks, f"{name}, {place}, task {task}")
