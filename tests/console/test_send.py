"""Sending: each email once, whatever was interrupted, and a clear list of what stayed behind."""

import email
import email.policy
import fcntl
import html.parser
import shutil
import subprocess

from console import ENGINE, STATE, ConsoleTest, files_only

class SendTest(ConsoleTest):
    def due(self):
        return self.sql("SELECT ClientNotificationID, NotificationType FROM ClientNotification "
                        "WHERE NotificationSent=FALSE AND NotificationDate<='2026-04-15' "
                        "ORDER BY NotificationDate, ClientNotificationID")

    def results(self, *arguments):
        run = self.run_program("--json", "send", *arguments)
        return {row["notification"]: (row["result"], row["detail"]) for row in run.json()}, run

    def interrupt(self, notification, sent, status):
        self.write(notification, NotificationSent=bool(sent), NotificationSentStatus=status,
                   SentTime=None)

    def test_all_that_is_due(self):
        emails = [row for row, channel in self.due() if channel == 1]
        self.follow("all that is due is sent")
        self.assertEqual(len(emails), len(self.messages()))

    def test_the_message(self):
        row = self.due_email()
        shown = self.done(f"--json show {row}")
        self.done(f"send {row}")
        (file,) = self.messages()
        message = email.message_from_bytes(file.read_bytes(), policy=email.policy.default)
        text, page = (message.get_body([kind]).get_content() for kind in ("plain", "html"))
        self.assertEqual((shown["fields"]["To"], shown["fields"]["Subject"]),
                         (message["To"], message["Subject"]))
        words = []
        parser = html.parser.HTMLParser()
        parser.handle_data = lambda data: words.extend(data.split())
        parser.feed(page)
        self.assertEqual([shown["text"].split()] * 2, [text.split(), words])
        self.write(row, NotificationSent=False, NotificationSentStatus=1)
        file.unlink()
        self.done(f"--plain-mail send {row}")
        (plain,) = self.messages()
        plain = email.message_from_bytes(plain.read_bytes(), policy=email.policy.default)
        self.assertEqual((text, message["Message-ID"]), (plain.get_content(), plain["Message-ID"]))
        self.assertEqual("2026-04-15", message["Date"].datetime.date().isoformat())

    @files_only("a server's claims are its own locks")
    def test_each_email_is_told_as_it_goes(self):
        row, other = self.due_email(), self.arm()[1][0]
        task = self.one("SELECT ScheduleIDNum FROM ClientNotification WHERE "
                        "ClientNotificationID=?", row)
        with self.claimed("task", task), \
                subprocess.Popen(self.command("send", other, row), cwd=self.folder, text=True,
                                 stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as run:
            lines = [run.stdout.readline() for _ in range(2)]
            self.assertIsNone(run.poll(), "it waits for the second one's claim")
        self.assertRegex(lines[1], f"^{other} +sent ")

    def test_what_nobody_finished_writing_goes_unless_it_is_out(self):
        left, doubted, out = [row for row, channel in self.due() if channel == 1][:3]
        task = self.done(f"--json show {out}")["task"]
        (self.folder / "firm.db.outbox" / "sending").mkdir(parents=True)
        self.done(f"send {doubted}")
        (file,) = self.messages()
        file.rename(file.parent / "sending" / file.name)
        self.done(f"send {out}")
        for row in (left, doubted, out):
            self.write(row, DocketIDNum=-2, NotificationSent=False, NotificationSentStatus=1)
        if not ENGINE.on_server:
            with self.claimed("notification", left):
                self.assertEqual("being written", self.done(f"--json show {left}")["state"])
                self.assertEqual("another desk is at work on it", self.results(left)[0][left][1])
                self.assertNotIn(f"\n{left} ", self.done("due"))
        results, run = self.results("--due")
        self.assertEqual((1, False), (run.code, left in results))
        self.assertIn("It is not known whether", results[doubted][1])
        self.assertEqual(([], (0, 1), (1, 2)),
                         (self.sql(f"{STATE}?", left), self.state(doubted), self.state(out)))
        links = self.sql("SELECT ScheduleIDNum, DocketIDNum FROM ClientNotification WHERE "
                         "ClientNotificationID=?", out)
        self.assertEqual(([(-1, -1)], task), (links, self.done(f"--json show {out}")["task"]))

    def everything(self):
        """The rows that sending may change, and the names of all files."""
        return (self.sql("SELECT * FROM ClientNotification ORDER BY 1"),
                self.sql("SELECT * FROM Schedule ORDER BY 1"),
                sorted(file.relative_to(self.folder) for file in self.folder.rglob("*")
                       if not file.name.endswith((".claims", "-wal", "-shm"))))

    def test_dry_run_changes_nothing(self):
        before = self.everything()
        results, run = self.results("--due", "--dry-run")
        self.assertEqual((0, ""), (run.code, run.err))
        self.assertEqual({"would be sent", "skipped"}, {result for result, _ in results.values()})
        self.assertEqual(before, self.everything())

    def test_bad_rows_do_not_hold_up_the_others(self):
        emails = [row for row, channel in self.due() if channel == 1]
        self.follow("bad rows do not hold up the others")
        self.assertEqual(len(emails) - 3, len(self.messages()))

    @files_only("a trigger is in the words of the engine")
    def test_a_mark_that_cannot_be_written_holds_up_no_other(self):
        emails = [row for row, channel in self.due() if channel == 1]
        bad = emails[1]
        self.sql("CREATE TRIGGER Bad BEFORE UPDATE OF SentTime ON ClientNotification WHEN "
                 f"old.ClientNotificationID={bad} BEGIN SELECT RAISE(ABORT, 'bad'); END")
        results, run = self.results("--due")
        self.assertEqual((1, "not marked"), (run.code, results[bad][0]))
        self.assertEqual({(1, 2)}, {self.state(row) for row in emails if row != bad})
        self.sql("DROP TRIGGER Bad")
        self.write(bad, NotificationSent=False, NotificationSentStatus=1)
        self.assertEqual("was in the outbox already", self.results("--due")[0][bad][1])
        self.assertEqual(len(emails), len(self.messages()))

    def test_named_rows_that_cannot_go(self):
        self.follow("rows that cannot go")
        self.assertEqual(1, len(self.messages()))

    def test_interrupted_between_outbox_and_mark(self):
        row = self.due_email()
        self.run_program("send", row)
        (file,) = self.messages()
        content = file.read_bytes()
        for sent, status in [(0, 1), (1, 1)]:
            self.interrupt(row, sent, status)
            results, run = self.results("--due")
            self.assertEqual((0, ("sent", "was in the outbox already")), (run.code, results[row]))
            self.assertEqual((1, 2), self.state(row))
            self.assertEqual(content, file.read_bytes())
        (file.parent / "sent").mkdir()
        file.rename(file.parent / "sent" / file.name)  # as a mail system does
        self.interrupt(row, 1, 1)
        self.assertEqual(("sent", "was in the outbox already"), self.results("--due")[0][row])
        self.assertNotIn(file, self.messages())

    def test_what_cannot_be_known_is_said_and_not_sent(self):
        row, (task, (fax,)) = self.due_email(), self.arm("fax")
        of_row = self.one("SELECT ScheduleIDNum FROM ClientNotification WHERE ClientNotificationID=?",
                          row)
        self.follow("what cannot be known", row=row, task=of_row, channel="email")
        self.follow("what cannot be known", row=fax, task=task, channel="fax")
        count = len(self.messages())
        self.interrupt(row, 1, 1)
        self.assertEqual("sent", self.results(row, "--again")[0][row][0])
        self.assertEqual((count + 1, (1, 2)), (len(self.messages()), self.state(row)))

    def test_interrupted_cancel_and_what_a_person_has_sent(self):
        emails = [row for row, channel in self.due() if channel == 1]
        self.follow("an interrupted cancelling, and what a person has sent")
        self.assertEqual(len(emails) - 1, len(self.messages()))

    def test_unusable_outboxes(self):
        (self.folder / "file").touch()
        self.follow("outboxes that cannot be used")

    def test_several_programs_at_once_send_each_once_by_any_name(self):
        emails = {row for row, channel in self.due() if channel == 1}
        names = [self.database] * 3
        if not ENGINE.on_server:
            (self.folder / "link.db").symlink_to(self.database)
            names = [self.database, "link.db", f"{self.folder}/./{self.database}"]
        for goes_on in (True, False) * 3:  # as after a kill, or anew
            runs = [subprocess.Popen(self.command("send", "--due", database=name), text=True,
                                     cwd=self.folder, stdout=subprocess.PIPE,
                                     stderr=subprocess.PIPE) for name in names]
            for run in runs:
                _, errors = run.communicate(timeout=60)
                self.assertEqual((0, ""), (run.returncode, errors))
            self.assertEqual({(1, 2)}, {self.state(row) for row in emails})
            self.assertEqual((len(emails), False), (len([*self.folder.rglob("*.eml")]),
                                                    (self.folder / "link.db.claims").exists()))
            for row, file in zip(emails, self.messages(), strict=True):
                self.interrupt(row, 0, 1)
                goes_on or file.unlink()

    @files_only("beside a file lies its outbox")
    def test_an_outbox_beside_a_link_is_not_passed_over(self):
        row = self.due_email()
        (self.folder / "link.db").symlink_to("firm.db")
        (self.folder / "link.db.outbox").mkdir()
        run = self.run_program("send", row, database="link.db")
        self.assertIn("move all that is in link.db.outbox there and remove it", run.err)
        self.assertEqual((1, (0, 1)), (run.code, self.state(row)))

    @files_only("each server has its databases to itself")
    def test_what_may_be_another_databases_message_is_told(self):
        row = self.due_email()
        self.sql("DELETE FROM DatabaseIdentity")
        shutil.copy(self.folder / "firm.db", self.folder / "second.db")
        self.done(f"send {row} --outbox .")
        self.database = "second.db"
        for options in ([], ["--dry-run"]):
            run = self.run_program("send", row, "--outbox", ".", *options)
            self.assertIn("the database has no identity that tells its messages", run.err)
            self.assertEqual((1, (0, 1)), (run.code, self.state(row)))
        self.done(f"send {row} --again --outbox .")
        self.assertEqual((2, (1, 2)), (len(self.messages(".")), self.state(row)))

    def test_what_was_left_half_written_goes(self):
        outbox = self.folder / "firm.db.outbox"
        outbox.mkdir(exist_ok=True)
        left, others = outbox / f".{'0' * 40}.1.tmp", outbox / ".theirs.tmp"
        others.touch()
        for expected in (True, False):  # once a program still writes it
            with open(left, "w") as file:
                fcntl.flock(file, fcntl.LOCK_EX if expected else fcntl.LOCK_UN)
                self.done(f"send {self.due_email()}")
            self.assertEqual((expected, True), (left.exists(), others.exists()))
