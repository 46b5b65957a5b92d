"""Runs the console program in a folder of its own; shared by the tests."""

import contextlib
import json
import os
import shutil
import sqlite3
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = os.environ["HVNOTIFY"]
TODAY = "2026-04-15"


class Run:
    """What one call of the program gave: out, err, code."""

    def __init__(self, done):
        self.out, self.err, self.code = done.stdout, done.stderr, done.returncode

    def json(self):
        return json.loads(self.out)


def call(folder, *arguments, today=TODAY, database="firm.db", environment=None):
    """The program without a terminal, on a fixed date."""
    return Run(subprocess.run(command(*arguments, today=today, database=database), cwd=folder,
                              capture_output=True, text=True, stdin=subprocess.DEVNULL,
                              timeout=60, env={**os.environ, **(environment or {})}))


def command(*arguments, today=TODAY, database="firm.db"):
    return [PROGRAM, "--database", database, "--today", today, *map(str, arguments)]


class ConsoleTest(unittest.TestCase):
    """Each test has a fresh copy of one small demo firm, firm.db."""

    maxDiff = None
    demo = ["--clients", "40", "--seed", "7"]

    @classmethod
    def setUpClass(cls):
        cls.store = Path(tempfile.mkdtemp(prefix="hvnotify-test-"))
        cls.addClassCleanup(shutil.rmtree, cls.store)
        made = call(cls.store, "init", "--demo", *cls.demo)
        assert made.code == 0, made.err

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="hvnotify-test-"))
        self.addCleanup(shutil.rmtree, self.folder)
        shutil.copy(self.store / "firm.db", self.folder)

    def run_program(self, *arguments, **options):
        return call(self.folder, *arguments, **options)

    def expect(self, arguments, out="", err="", code=0, **options):
        """Compares everything that the call gives; an error line comes without its prefix."""
        run = self.run_program(*arguments, **options)
        wanted = "".join(f"hvnotify: {line}\n" for line in ([err] if isinstance(err, str) and err
                                                            else err))
        self.assertEqual((out, wanted, code), (run.out, run.err, run.code))

    def sql(self, statement, *values):
        """Rows of the database, or a change of it behind the program's back."""
        with contextlib.closing(sqlite3.connect(self.folder / "firm.db")) as connection:
            rows = connection.execute(statement, values).fetchall()
            connection.commit()
            return rows

    def one(self, statement, *values):
        return self.sql(statement, *values)[0][0]

    def free_task(self):
        """An open task of a company, due late enough to be told of in time, with no channel."""
        return self.one("SELECT ScheduleID FROM Schedule WHERE Closed=0 AND notifyType=0 AND "
                        "ClientNum>=0 AND DueDate>'2026-07-01' ORDER BY ScheduleID LIMIT 1")

    def arm(self, channels="email"):
        """A free task armed: its number and its notifications'."""
        task = self.free_task()
        rows = self.run_program("--json", "arm", task, "--channel", channels).json()
        return task, [row["notification"] for row in rows]

    def due_email(self):
        """A notification by email that is due and has an address."""
        return self.one("SELECT ClientNotificationID FROM ClientNotification WHERE "
                        "NotificationSent=0 AND NotificationType=1 AND Field1 IS NOT NULL AND "
                        "NotificationDate<='2026-04-15' ORDER BY ClientNotificationID LIMIT 1")

    def state(self, notification):
        return self.sql("SELECT NotificationSent, NotificationSentStatus FROM ClientNotification "
                        "WHERE ClientNotificationID=?", notification)[0]

    def messages(self, folder="firm.db.outbox"):
        return sorted(Path(self.folder, folder).glob("*.eml"))
