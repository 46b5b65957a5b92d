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
        self.write(self.letter, Memo="Zoë, Привет, 你好\r\n" + "another line\r\n" * 11000 + "the end")
        results, run = self.print(self.fax, self.letter)
        self.assertEqual((0, "", ["printed"] * 2),
                         (run.code, run.err, [result for result, _ in results.values()]))
        self.assertGreater(run.json()["pages"], 200)
        fax = self.read_back("pdftotext", "-l", "1", "out.pdf", "-")
        letter = self.read_back("pdftotext", "-f", "2", "out.pdf", "-")
        for text in ("Harbour & Pine LLP", "Ann", "Bo", "(613) 555-0177", "Returns", "2026-04-15"):
            self.assertIn(text, fax)
        for text in ("Zoë, Привет, 你好", "Page 200\n", "the end", "2026-04-15"):
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
