"""Runs the console program in a folder of its own; shared by the tests."""

import contextlib
import fcntl
import json
import os
import re
import shutil
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path
from resource import setrlimit

import engines

PROGRAM = os.environ["HVNOTIFY"]
TODAY = "2026-04-15"
ENGINE = engines.chosen()
# Items that a desk claims.
ITEMS = {"notification": 1, "task": 2, "printing": 5, "templates": 6}
# What cannot be seen in a transcript.
PICTURES = str.maketrans("␀␊␍", "\0\n\r")
# Whether a notification is sent, and its status.
STATE = ("SELECT NotificationSent, NotificationSentStatus FROM ClientNotification WHERE "
         "ClientNotificationID=")


def refusals(table):
    """The rows of a table of refusals.txt: what is typed, and what is answered."""
    text = Path(__file__).with_name("refusals.txt").read_text(encoding="utf-8")
    rows = text.split(f"[{table}]\n")[1].split("\n\n")[0].strip("\n")
    return [row.split(" -> ") for row in rows.split("\n")]


def transcript(title):
    """The steps of a transcript: a mark, what is behind it, the lines below."""
    files = sorted(Path(__file__).parent.glob("*transcripts.txt"))
    text = "\n==\n".join(file.read_text(encoding="utf-8") for file in files)
    told = text.split(f"== {title}\n")[1].split("\n\n==")[0]
    steps = re.split(r"^([$%>@]) ", told, flags=re.M)
    return [(mark, *(text.translate(PICTURES) for text in step.rstrip("\n").split("\n")))
            for mark, step in zip(steps[1::2], steps[2::2])]


def word(value):
    """A value as the transcripts have it: a flag as a number, and of several their names."""
    if isinstance(value, (list, dict)):
        return ",".join(map(word, value))
    value = "" if value is None else int(value) if value in (False, True) else value
    return str(value).replace("\r\n", "\n")


def pattern(text):
    """The lines of a text as an expression: "…" for any lines, or for anything in a line."""
    lines = (r"(.*\n)*" if line == "…" else re.escape(line).replace("…", ".*") + r"\n"
             for line in text.splitlines())
    return r"\A" + "".join(lines) + r"\Z"


class Run:
    """What one call of the program gave: out, err, code."""

    def __init__(self, done):
        self.out, self.err, self.code = done.stdout, done.stderr, done.returncode

    def json(self):
        return json.loads(self.out)


def call(folder, *arguments, today=TODAY, database="firm.db", environment=None, **process):
    """The program without a terminal, on a fixed date."""
    return Run(subprocess.run(command(*arguments, today=today, database=database), cwd=folder,
                              capture_output=True, stdin=subprocess.DEVNULL, timeout=60,
                              env={**os.environ, **(environment or {})},
                              **{"text": True, **process}))


def at_most(size, resource):
    """Options of a call that gets no more of a resource."""
    return {"preexec_fn": lambda: setrlimit(resource, (size, size)), "restore_signals": False}


def command(*arguments, today=TODAY, database="firm.db"):
    return [PROGRAM, "--database", database, "--today", today, *ENGINE.options,
            *map(str, arguments)]


def files_only(reason):
    """Marks a test or a class of tests that means nothing on a server."""
    return unittest.skipIf(ENGINE.on_server, f"files only: {reason}")


class ConsoleTest(unittest.TestCase):
    """Each test has a fresh copy of one small demo firm, self.database."""

    maxDiff = None
    demo = ["--clients", "40", "--seed", "7"]

    @classmethod
    def setUpClass(cls):
        folder = Path(tempfile.mkdtemp(prefix="hvnotify-test-"))
        cls.addClassCleanup(shutil.rmtree, folder)
        cls.original = folder, ENGINE.empty(cls)
        ENGINE.prepare(folder)
        made = call(folder, "init", "--demo", *cls.demo, database=cls.original[1])
        assert made.code == 0, made.err

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="hvnotify-test-"))
        self.addCleanup(shutil.rmtree, self.folder)
        ENGINE.prepare(self.folder)
        self.database = ENGINE.copy(self, self.folder, self.original)

    def command(self, *arguments, **options):
        return command(*arguments, **{"database": self.database, **options})

    def run_program(self, *arguments, **options):
        return call(self.folder, *arguments, **{"database": self.database, **options})

    def run_as_nobody(self, *arguments):
        try:
            return self.run_program(*arguments, **({"user": 65534} if os.geteuid() == 0 else {}))
        except PermissionError:
            self.skipTest("the program lies where others may not run it")

    def expect(self, line, out="", err="", code=0, keys=(), **options):
        """Compares everything that the call gives, of data the values under the keys, a row a line; an
        error line comes without its prefix."""
        run = self.run_program(*(text.replace("␠", " ") for text in line.split()), **options)
        if keys:
            data = run.json()
            run.out = "".join("|".join(word(row.get(key)) for key in keys) + "\n"
                              for row in (data if isinstance(data, list) else [data]))
        wanted = f"hvnotify: {err}\n" if err else ""
        if "…" in out + err:
            self.assertRegex(run.out, pattern(out))
            self.assertRegex(run.err, pattern(wanted))
            out, wanted = run.out, run.err
        self.assertEqual((out, wanted, code), (run.out, run.err, run.code))

    def refuses(self, line, words, code=1, **options):
        with self.subTest(line):
            self.expect(line, err=words, code=code, **options)

    def refuses_each(self, table, code=1, ending="", **names):
        for line, words in refusals(table):
            self.refuses(line.format(**names), words.format(**names) + ending, code)

    def follow(self, title, **names):
        """Does the steps of a transcript and compares all that they give."""
        steps = transcript(title)
        names.setdefault("locked", ENGINE.locked)
        for name, find in ("free", self.free_task), ("due", self.due_email):
            if f"{{{name}}}" in str(steps):
                names.setdefault(name, find())
        with contextlib.ExitStack() as others:
            for mark, *step in steps:
                line, *answer = (re.sub(r"\{(\w+)\}", lambda name: str(names.get(name[1], name[0])),
                                        text) for text in step)
                with self.subTest(line):
                    if mark == "$":
                        self.compare(line, answer)
                    elif mark == "%":
                        self.look_up(line, answer, names)
                    elif mark == ">":
                        name, _, encoding = line.partition(" in ")
                        self.file(name, "".join(f"{text}\n" for text in answer), encoding or "utf-8")
                    else:
                        others.close()
                        others.enter_context(self.at_work(*line.split()))

    def follow_each(self, *titles):
        """Each on a copy of its own."""
        for title in titles:
            self.follow(title)
            self.setUp()

    def compare(self, line, answer):
        line, _, kept = line.partition(" > ")
        line, _, keys = line.partition(" ? ")
        faults = [text.split(" ", 1) for text in answer if text.startswith("!")]
        rows = [self.selected(text[2:]) if text.startswith("= ") else [text] for text in answer
                if text[:1] != "!"]
        self.assertNotIn([], rows)
        self.expect(line, "".join(f"{text}\n" for each in rows for text in each),
                    "\nhvnotify: ".join(words for _, words in faults),
                    max((len(marks) for marks, _ in faults), default=0), keys.split())
        if kept:
            self.file(kept, self.done(line))

    def selected(self, statement):
        return ["|".join(map(word, row)) for row in self.sql(statement.replace("STATE OF ", STATE))]

    def look_up(self, statement, answer, names):
        """Compares the rows, or keeps the first under a name: "% name = SELECT ..."."""
        name, _, statement = statement.rpartition(" = ")
        rows = self.selected(statement)
        if name:
            names[name] = rows[0]
        else:
            self.assertEqual(answer, rows)

    def file(self, name, content, encoding="utf-8"):
        content = content.encode(encoding) if isinstance(content, str) else content
        (self.folder / name).write_bytes(content)
        return name

    def done(self, line, **options):
        """What a call has to say that goes well: the data of one with --json, else the text."""
        run = self.run_program(*line.split(), **options)
        self.assertEqual((0, ""), (run.code, run.err), line)
        return run.json() if "--json" in line else run.out

    def sql(self, statement, *values):
        """Rows of the database, or a change of it behind the program's back."""
        with ENGINE.connection(self.folder, self.database) as execute:
            return execute(statement, values)

    def write(self, notification, **columns):
        places = ", ".join(f"{name}=?" for name in columns)
        self.sql(f"UPDATE ClientNotification SET {places} WHERE ClientNotificationID=?",
                 *columns.values(), notification)

    def writes_held(self):
        """While it lasts, another program is at work on the database: it can be read only."""
        return ENGINE.held(self.folder, self.database)

    @contextlib.contextmanager
    def claimed(self, item, number):
        """While it lasts, another desk is at work on the item; for tests of files only."""
        with open(self.folder / "firm.db.claims", "w+b") as claims:
            of_item = struct.pack("hhlli", fcntl.F_WRLCK, 0, (ITEMS[item] << 32) + int(number), 1, 0)
            fcntl.fcntl(claims, fcntl.F_OFD_SETLK, of_item)
            yield

    def at_work(self, who, *item):
        others = {"nobody": contextlib.nullcontext, "program": self.writes_held, "desk": self.claimed}
        return others[who](*item)

    def one(self, statement, *values):
        return self.sql(statement, *values)[0][0]

    def free_task(self):
        """An open task of a company, due late enough to be told of in time, with no channel."""
        return self.one("SELECT ScheduleID FROM Schedule WHERE Closed=FALSE AND notifyType=0 AND "
                        "ClientNum>=0 AND DueDate>'2026-07-01' ORDER BY ScheduleID LIMIT 1")

    def arm(self, channels="email"):
        """A free task armed: its number and its notifications'."""
        task = self.free_task()
        rows = self.done(f"--json arm {task} --channel {channels}")
        return task, [row["notification"] for row in rows]

    def due_email(self):
        """A notification by email that is due and has an address."""
        return self.one("SELECT ClientNotificationID FROM ClientNotification WHERE "
                        "NotificationSent=FALSE AND NotificationType=1 AND Field1 IS NOT NULL AND "
                        "NotificationDate<='2026-04-15' ORDER BY ClientNotificationID LIMIT 1")

    def state(self, notification):
        return self.sql(f"{STATE}?", notification)[0]

    def messages(self, folder="firm.db.outbox"):
        return sorted(Path(self.folder, folder).glob("*.eml"))
