"""Sending: each email once, whatever was interrupted, and a clear list of what stayed behind."""

import email
import email.policy
import fcntl
import shutil
import subprocess

from console import ENGINE, TASK, ConsoleTest, files_only

UNKNOWN = ("it cannot be known whether it was sent: its marking was interrupted and it is not in "
           "the outbox (settle it with send --mark-only or send --again)")
REASONS = {2: "a fax to print: hvnotify print {} --mark", 4: "a letter to print: hvnotify print {} --mark",
           8: "a phone call: hvnotify call {} --made"}


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
        due = self.due()
        emails = [row for row, channel in due if channel == 1]
        results, run = self.results("--due")
        self.assertEqual((0, ""), (run.code, run.err))
        self.assertEqual([row for row, _ in due], list(results))
        for row, channel in due:
            sent = ("sent", results[row][1]), (1, 2)
            self.assertEqual(sent if channel == 1 else (("skipped", REASONS[channel].format(row)), (0, 1)),
                             (results[row], self.state(row)))
        self.assertEqual(len(emails), len(self.messages()))
        again, _ = self.results("--due")
        self.assertEqual([row for row, channel in due if channel != 1], list(again))

    def test_the_message(self):
        row = self.due_email()
        shown = self.done(f"--json show {row}")
        self.done(f"send {row}")
        (file,) = self.messages()
        message = email.message_from_bytes(file.read_bytes(), policy=email.policy.default)
        text = message.get_content().replace("\r\n", "\n").strip()
        self.assertEqual((shown["fields"]["To"], shown["fields"]["Subject"], shown["text"].strip()),
                         (message["To"], message["Subject"], text))
        self.assertEqual("2026-04-15", message["Date"].datetime.date().isoformat())

    @files_only("a server's claims are its own locks")
    def test_what_a_colleague_is_writing_stays(self):
        row = self.due_email()
        task = self.one("SELECT ScheduleIDNum FROM ClientNotification WHERE "
                        "ClientNotificationID=?", row)
        with self.claimed(TASK, task):
            results, _ = self.results("--due")
            self.assertEqual(("skipped", "another desk is at work on it"), results[row])
            self.assertEqual("would be sent", self.results("--due", "--dry-run")[0][row][0])
            for line in (f"cancel {row}", f"call {row} --made"):
                self.refuses(line, f"another desk is at work on notification {row}; try again later")
        self.assertEqual("sent", self.results("--due")[0][row][0])

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
        bad = {emails[0]: (None, "There is no email address entered for this notification"),
               emails[1]: ("jo@", None), emails[2]: ("a@x.example b@x.example", None)}
        for row, (address, _) in bad.items():
            self.write(row, Field1=address)
        for options in (["--dry-run"], []):
            results, run = self.results("--due", *options)
            for row, (_, reason) in bad.items():
                self.assertEqual(("failed", reason or results[row][1]), results[row])
            self.assertEqual(
                (1, [f"hvnotify: notification {row} was not sent: {results[row][1]}"
                     for row in results if row in bad]), (run.code, run.err.splitlines()))
        self.assertEqual(len(emails) - len(bad), len(self.messages()))
        self.assertEqual({(0, 1)}, {self.state(row) for row in bad})

    def test_named_rows_that_cannot_go(self):
        row = self.due_email()
        _, (fax,) = self.arm("fax")
        self.done(f"send {row}")
        run = self.run_program("send", fax, row, 999999)
        self.assertEqual((1, [
            f"hvnotify: notification {fax} was not sent: {REASONS[2].format(fax)}",
            f"hvnotify: notification {row} was not sent: This notification has already been sent.",
            "hvnotify: notification 999999 was not sent: there is no such notification",
        ]), (run.code, run.err.splitlines()))
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
        for each in (row, fax):
            self.interrupt(each, 1, 1)
            for options in (["--due"], [each], ["--due", "--dry-run"]):
                results, run = self.results(*options)
                # Such a row comes first.
                self.assertEqual((1, (each, ("failed", UNKNOWN))),
                                 (run.code, next(iter(results.items()))))
                self.assertIn(f"hvnotify: notification {each} was not sent: {UNKNOWN}\n", run.err)
                self.assertEqual((1, 1), self.state(each))
            if each == fax:
                self.refuses(f"disarm {task} --channel fax", f"task {task}, fax: notification {fax} "
                             "was interrupted while being sent; --force deletes its record")
            self.results(each, "--mark-only")
            self.assertEqual((1, 2), self.state(each))
        count = len(self.messages())
        self.interrupt(row, 1, 1)
        self.assertEqual("sent", self.results(row, "--again")[0][row][0])
        self.assertEqual((count + 1, (1, 2)), (len(self.messages()), self.state(row)))

    def test_interrupted_cancel_and_what_a_person_has_sent(self):
        row, (_, (phone,)) = self.due_email(), self.arm("phone")
        self.interrupt(row, 0, 3)
        results, run = self.results("--due")
        self.assertEqual((0, ("skipped", "its cancelling was interrupted; it stays cancelled")),
                         (run.code, results[row]))
        self.assertEqual((1, 3), self.state(row))
        self.interrupt(row, 1, 1)
        self.done(f"cancel {row}")
        self.assertEqual((1, 3), self.state(row))
        messages = self.messages()
        self.interrupt(row, 0, 1)
        self.done(f"send {row} {phone} --mark-only")
        self.assertEqual([(1, 2), (1, 2), messages],
                         [self.state(row), self.state(phone), self.messages()])

    def test_unusable_outboxes(self):
        row = self.due_email()
        (self.folder / "file").touch()
        for name, reason in [("file", "Not a directory"), ("nowhere", "No such file or directory")]:
            words = f'The outbox folder "{name}" cannot be opened: {reason}.'
            results, run = self.results(row, "--outbox", name)
            self.assertEqual((1, ("failed", words)), (run.code, results[row]))
            self.assertEqual((0, 1), self.state(row))

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
