"""Printing: letters and faxes in one PDF and in their clients' folders, each told of."""

import random
import subprocess
from pathlib import Path
from resource import RLIMIT_FSIZE

from console import ConsoleTest, at_most

ADDRESSED = "Field1='Ann', Field2='Bo', Field4='(613) 555-0177', Field6='Returns'"


class PrintTest(ConsoleTest):
    def setUp(self):
        super().setUp()
        (self.folder / "docs").mkdir()
        _, (self.fax, self.letter, self.call) = self.arm("fax,letter,phone")
        self.sql(f"UPDATE ClientNotification SET {ADDRESSED} WHERE ClientNotificationID=?", self.fax)

    def print(self, *arguments, pdf="out.pdf", **process):
        run = self.run_program("--json", "print", *arguments, "--pdf", pdf, "--documents", "docs",
                               **process)
        rows = run.json()["notifications"] if run.out else []
        return {row["notification"]: (row["result"], row["detail"]) for row in rows}, run

    def read_back(self, *command):
        return subprocess.run(command, cwd=self.folder, capture_output=True, text=True,
                              check=True).stdout

    def filed(self):
        return sorted(path.name for path in Path(self.folder, "docs").glob("*/*"))

    def test_a_letter_and_a_fax_are_read_back(self):
        self.write(self.letter, Memo="Zoë, Привет, 你好, 🎉\r\n" + "another line\r\n" * 11000 + "the end")
        results, run = self.print(self.fax, self.letter)
        self.assertEqual((0, "", ["printed"] * 2),
                         (run.code, run.err, [result for result, _ in results.values()]))
        self.assertGreater(run.json()["pages"], 200)
        fax = self.read_back("pdftotext", "-l", "1", "out.pdf", "-")
        letter = self.read_back("pdftotext", "-f", "2", "out.pdf", "-")
        for text in ("Harbour & Pine LLP", "Ann", "Bo", "(613) 555-0177", "Returns", "2026-04-15"):
            self.assertIn(text, fax)
        for text in ("Zoë, Привет, 你好, 🎉", "Page 200\n", "the end", "2026-04-15"):
            self.assertIn(text, letter)
        self.assertNotIn("Page 1\n", letter)
        self.assertEqual(11000, letter.count("another line"))
        fonts = self.read_back("pdffonts", "out.pdf").splitlines()[2:]
        self.assertEqual({"yes"}, {font.split()[-5] for font in fonts})
        self.assertEqual(["Fax - Apr 15 2026.mvw", "Letter - Apr 15 2026.mvw"], self.filed())

    def test_what_is_told_of_a_second_time_and_of_all_that_is_due(self):
        self.follow_each("a second time is told until it is marked",
                         "all that is due is printed beside what cannot be filed")

    def test_what_is_left_out_and_why(self):
        (self.folder / "there.pdf").write_text("mine")
        self.follow("what is not printed", fax=self.fax, letter=self.letter, call=self.call)
        self.assertEqual(([], ["there.pdf"]),
                         (self.filed(), [p.name for p in self.folder.glob("*.pdf")]))

    def test_a_list_on_paper_of_what_is_done_by_hand(self):
        rows = [(n, {"Field1": "Zoë", field: f"555-{n}", "Memo": f"words {n}\r\n" * 90,
                     "NotificationDate": "2026-04-18"})
                for n, field in ((self.call, "Field2"), (self.fax, "Field4"), (self.letter, "Field6"))]
        for number, columns in rows:
            self.write(number, **columns)
        self.refuses("worklist --channel phone,email",
                     "emails are on no list: they are sent (see: hvnotify worklist --help)", 2)
        self.expect("worklist --until 2000-01-01", "Nothing is due.\n")
        self.assertEqual(self.done("worklist --until 2026-04-18")[-28:], " in worklist-2026-04-15.pdf\n")
        told = self.done("worklist --until 2026-04-18 --channel phone --pdf calls.pdf")
        self.assertRegex(told, r"^\d+ entries on \d+ pages in calls.pdf\n$")
        self.refuses("worklist --until 2026-04-18 --pdf calls.pdf", "calls.pdf: there is a file of this name already")
        names = ["worklist-2026-04-15.pdf", "calls.pdf"]
        whole, calls = (self.read_back("pdftotext", "-layout", name, "-") for name in names)
        self.assertRegex(calls, r"Calls to be made by 2026-04-18\n(.*\n)*Date +By +Client +Task +To +Number +Times\n"
                                rf"(.*\n)*2026-04-18 +phone .* Zoë +555-{self.call}")
        self.assertEqual(2, calls.count(" Client "), "the headings stand on each page")
        self.assertEqual([90, 0, 0], [calls.count(f"words {n}\n") for n, _ in rows])
        self.assertEqual([90, 0, 0], [whole.count(f"words {n}\n") for n, _ in rows])
        self.assertEqual([True, True, False], [f"555-{n}" in whole for n, _ in rows])
        self.assertEqual((0, 1), self.state(self.call))

    def test_a_disk_that_fills(self):
        for size, files, why in (
                (44_000, [], r"Cannot write out\.pdf: File too large; it was filed as .*mvw$"),
                (60_000, ["out.pdf"], "Cannot write docs/.*mvw: File too large$")):
            self.write(self.letter, Memo=random.Random(1).randbytes(size // 2).hex())
            results, run = self.print(self.letter, self.fax, "--mark",
                                      **at_most(45_000, RLIMIT_FSIZE))
            self.assertRegex(results[self.letter][1], why)
            self.assertEqual((1, files, (0, 1)), (run.code, [
                path.name for path in self.folder.rglob("*") if path.suffix in (".pdf", ".tmp")],
                self.state(self.letter)))
