"""Printing: letters and faxes in one PDF and in their clients' folders, each told of."""

import random
import subprocess
from pathlib import Path
from resource import RLIMIT_FSIZE

from console import NOTIFICATION, PRINT_RUN, ConsoleTest, at_most, files_only

ADDRESSED = "Field1='Ann', Field2='Bo', Field4='(613) 555-0177', Field6='Returns'"
BESIDE = " (beside another one of this day)"


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

    def test_a_second_time_is_told_until_it_is_marked(self):
        details = [self.print(self.letter, *more, pdf=pdf)[0][self.letter][1]
                   for pdf, more in (("a.pdf", ()), ("b.pdf", ("--mark",)), ("c.pdf", ("--again",)))]
        self.assertEqual([False, True, True], [BESIDE in detail for detail in details])
        self.assertEqual((1, 2), self.state(self.letter))
        results, run = self.print(self.letter, "--mark", pdf="d.pdf")
        self.assertEqual((1, "skipped"), (run.code, results[self.letter][0]))
        self.assertEqual((3, ["a.pdf", "b.pdf", "c.pdf"]),
                         (len(self.filed()), sorted(p.name for p in self.folder.glob("*.pdf"))))
        said = self.done(f"print {self.fax} {self.letter} --again --documents docs")
        self.assertTrue(said.endswith("Nothing was marked sent. When it has gone out: hvnotify send "
                                      f"--mark-only {self.fax}\n"), said)

    def test_what_is_left_out_and_why(self):
        (self.folder / "there.pdf").write_text("mine")
        self.write(self.fax, NotificationSent=True, NotificationSentStatus=1)
        reasons = {self.call: "a notification by phone has no document", self.fax:
                   "it cannot be known whether it was sent: its marking was interrupted (print it "
                   "with --again, or settle it with send --mark-only)",
                   999999: "there is no such notification"}
        results, run = self.print(*reasons, "--mark")
        self.assertEqual((1, {row: ("skipped", why) for row, why in reasons.items()}),
                         (run.code, results))
        self.assertEqual([f"hvnotify: notification {row} was not printed: {why}"
                          for row, why in reasons.items()], run.err.splitlines())
        self.refuses_each("of printing", letter=self.letter)
        self.refuses("print", "name notifications, or give --due (see: hvnotify print --help)", 2)
        self.assertEqual(([], ["there.pdf"], (0, 1)),
                         (self.filed(), [p.name for p in self.folder.glob("*.pdf")],
                          self.state(self.letter)))

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

    def test_all_that_is_due_beside_what_cannot_be_filed(self):
        due = [row for row, in self.sql(
            "SELECT ClientNotificationID FROM ClientNotification WHERE NotificationSent=FALSE AND "
            "NotificationDate<='2026-04-15' AND NotificationType IN (2, 4)")]
        self.write(due[0], ContactIDNum=-1, CompanyIDNum=-1, ScheduleIDNum=-1)
        results, run = self.print("--due", "--mark")
        self.assertEqual((1, sorted(due)), (run.code, sorted(results)))
        self.assertEqual((("failed", "There is no place to write the file to"), (0, 1)),
                         (results[due[0]], self.state(due[0])))
        self.assertEqual(len(due) - 1, run.json()["pages"])
        self.assertEqual({(1, 2)}, {self.state(row) for row in due[1:]})

    @files_only("the lock is one on a file, the colleague a trigger in it")
    def test_what_other_desks_do(self):
        with self.claimed(PRINT_RUN, 0):
            self.refuses(f"print {self.fax} --pdf a.pdf --documents docs",
                         "a.pdf: another desk is printing; try again when it has finished")
        with self.claimed(NOTIFICATION, self.letter):
            results, run = self.print(self.letter, self.fax)
        self.assertEqual((1, ("skipped", "another desk is at work on it"), "printed"),
                         (run.code, results[self.letter], results[self.fax][0]))
        self.sql(f"CREATE TRIGGER a AFTER UPDATE ON ClientNotification WHEN NEW.ClientNotificationID="
                 f"{self.fax} BEGIN UPDATE ClientNotification SET NotificationSent=1, "
                 f"NotificationSentStatus=3 WHERE ClientNotificationID={self.letter}; END")
        results, run = self.print(self.fax, self.letter, "--mark", pdf="marked.pdf")
        self.assertRegex(run.err, "not be marked sent: it was cancelled meanwhile\n$")
        self.assertEqual([(1, 2), (1, 3)], [self.state(self.fax), self.state(self.letter)])
