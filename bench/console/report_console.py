#!/usr/bin/env python3
"""Whole runs of the console program, each beside its floor, ours and floor in turns.

Usage: report_console.py PROGRAMS FOLDER

PROGRAMS holds hvnotify, console_floors and arm_floor. In FOLDER a firm of 50,000 clients is made, and
kept for the next time.
"""
import contextlib
import os
import re
import shutil
import sqlite3
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

TODAY = "2026-04-15"
CLIENTS, EMAILS, TASKS, TURNS, ARM_TURNS, IMPORTED = 50_000, 2_000, 1_000, 5, 3, 20_000
# A day that no other notification has.
DAY = "2001-01-02"
# Nothing but these emails is due.
PREPARED = f"""
    UPDATE ClientNotification SET NotificationSent=1, NotificationSentStatus=2
        WHERE NotificationSent=0 AND NotificationDate<='{TODAY}';
    UPDATE ClientNotification SET NotificationDate='{DAY}' WHERE ClientNotificationID IN
        (SELECT ClientNotificationID FROM ClientNotification WHERE NotificationType=1 AND
         NotificationSent=0 AND Field1<>'' ORDER BY ClientNotificationID LIMIT {EMAILS})"""
UNSENT = f"""UPDATE ClientNotification SET NotificationSent=0, NotificationSentStatus=1, SentTime=NULL
    WHERE NotificationDate='{DAY}'"""
FREE = """SELECT ScheduleID FROM Schedule WHERE Closed=0 AND notifyType=0 AND ClientNum>=0 AND
    DueDate>'2026-07-01' ORDER BY ScheduleID LIMIT {}"""


class Firm:
    def __init__(self, programs, folder):
        self.programs, self.folder = programs, folder
        self.place, self.outbox = folder / "clients.db", folder / "clients.db.outbox"
        if not self.place.exists():
            self.make()

    def make(self):
        draft = self.folder / "clients.draft.db"
        for suffix in ("", "-wal", "-shm"):
            Path(f"{draft}{suffix}").unlink(missing_ok=True)
        subprocess.run([self.programs / "hvnotify", "--database", draft, "--today", TODAY, "init",
                        "--demo", "--clients", str(CLIENTS)], check=True, stdout=subprocess.DEVNULL)
        with contextlib.closing(sqlite3.connect(draft)) as connection:
            connection.executescript(PREPARED)
        draft.rename(self.place)

    def write(self, statement):
        """What was written is on the disk before a turn begins."""
        with contextlib.closing(sqlite3.connect(self.place)) as connection:
            connection.execute(statement)
            connection.commit()
            connection.execute("PRAGMA wal_checkpoint(TRUNCATE)")

    def ids(self, statement):
        with contextlib.closing(sqlite3.connect(self.place)) as connection:
            return [str(row[0]) for row in connection.execute(statement)]

    def run(self, *arguments):
        return Run([self.programs / "hvnotify", "--batch", "--database", self.place, "--today", TODAY,
                    *arguments])

    def floor(self, work, *arguments):
        return Run([self.programs / "console_floors", work, self.place, *arguments])


class Run:
    """A process: its seconds by the clock and of the processor, the most memory, and its lines."""

    def __init__(self, command):
        begin = time.monotonic()
        with subprocess.Popen(command, stdout=subprocess.PIPE) as process:
            self.lines = process.stdout.read().count(b"\n")
            _, status, used = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
        self.clock = time.monotonic() - begin
        self.processor, self.megabytes = used.ru_utime + used.ru_stime, used.ru_maxrss / 1024
        if process.returncode != 0:
            sys.exit(f"{command} ended with {process.returncode}")


def turns(*sides, of="processor", times=TURNS):
    """The medians of what each side takes, in turns."""
    taken = [[getattr(side(), of) for side in sides] for _ in range(times)]
    return [statistics.median(column) for column in zip(*taken)]


def row(work, ours, floor, ratio="-", aim="-"):
    return f"| {work} | {ours} | {floor} | {ratio} | - | {aim} |"


def sending(firm):
    folder = firm.folder / "floor.outbox"

    def prepared(run):
        firm.write(UNSENT)
        for each in (folder, firm.outbox):
            shutil.rmtree(each, ignore_errors=True)
        folder.mkdir()
        return run()

    ours, floor = turns(lambda: prepared(lambda: firm.run("send", "--due")),
                        lambda: prepared(lambda: firm.floor("send", folder)), of="clock")
    return row(f"`send --due`, {EMAILS:,} emails into the outbox", f"{EMAILS / ours:,.0f}/s",
               f"{EMAILS / floor:,.0f}/s (write, sync, name and mark, 64 at a time)",
               f"{ours / floor:.2f} x", "1.5 x")


def listing(firm):
    last = firm.run("tasks")
    ours, floor = turns(lambda: firm.run("tasks"), lambda: firm.floor("tasks"))
    return row(f"`tasks`, {last.lines - 1:,} rows", f"{ours:.2f} s, {last.megabytes:.0f} MiB",
               f"{floor:.2f} s (the SELECT raw)", f"{ours / floor:.2f} x", "1.5 x, 40 MiB")


def armed(firm, tasks, seconds):
    """What it takes to arm the tasks; afterwards they are free again."""
    taken = seconds(firm, tasks)
    firm.run("disarm", *tasks, "--channel", "email")
    return taken


def arm_seconds(firm, tasks):
    return firm.run("arm", *tasks, "--channel", "email").clock


def arm_floor_seconds(firm, tasks):
    return float(subprocess.check_output([firm.programs / "arm_floor", firm.place, *tasks]))


def arming(firm):
    tasks = firm.ids(FREE.format(TASKS))
    one = statistics.median(armed(firm, [task], arm_seconds) for task in tasks[:TURNS])
    yield row(f"`arm` of one email, a process, {CLIENTS:,} clients", f"{one * 1e3:.1f} ms", "-",
              aim="15 ms")
    turns = [[armed(firm, tasks, side) for side in (arm_seconds, arm_floor_seconds)]
             for _ in range(ARM_TURNS)]
    ours, floor = (statistics.median(column) for column in zip(*turns))
    yield row(f"`arm` of {TASKS:,} emails, one process", f"{ours / TASKS * 1e3:.2f} ms each",
              f"{floor / TASKS * 1e3:.2f} ms (its SELECTs, INSERT and mark raw)",
              f"{ours / floor:.2f} x", "1.5 x")


def no_work(program, folder):
    """A program that loads what the other one does, and does nothing."""
    listed = subprocess.run(["readelf", "-d", program], check=True, capture_output=True, text=True).stdout
    libraries = [f"-l:{name}" for name in re.findall(r"NEEDED.*\[(.*)\]", listed)]
    made = folder / "no_work"
    subprocess.run(["c++", "-x", "c++", "-", "-o", made, "-Wl,--no-as-needed", *libraries],
                   input="int main() {}", check=True, text=True)
    return made


def starting(firm):
    empty = no_work(firm.programs / "hvnotify", firm.folder)
    ours, floor = turns(lambda: firm.run("--help"), lambda: Run([empty]), times=25)
    return row("start of the console", f"{ours * 1e3:.1f} ms",
               f"{floor * 1e3:.1f} ms (an empty program with the same libraries)",
               f"{ours / floor:.2f} x")


def import_files(folder):
    companies, tasks = folder / "companies.csv", folder / "tasks.csv"
    companies.write_text("Client Number,Name,Address 1,City,Phone,Email\n" + "".join(
        f"C{each},Company {each},{each} Main Street,Hull,555-{each:05},office{each}@example.com\n"
        for each in range(IMPORTED)))
    tasks.write_text("Client,Kind,Name,Due Date,Period\n" + "".join(
        f"C{each},101/10,Return {month},2026-{month:02}-28,Period {month}\n"
        for each in range(IMPORTED) for month in range(1, 6)))
    return companies, tasks


def raw_inserts(source, target):
    """The seconds in which the rows that are in the source alone are inserted."""
    with contextlib.closing(sqlite3.connect(source)) as read, \
            contextlib.closing(sqlite3.connect(target)) as written:
        names = [name for name, in read.execute(
            "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite%'")]
        tables = {name: read.execute(f"SELECT * FROM {name} WHERE rowid>?", written.execute(
            f"SELECT coalesce(max(rowid), 0) FROM {name}").fetchone()).fetchall() for name in names}
        written.execute("PRAGMA synchronous=FULL")
        begin = time.monotonic()
        for name, rows in tables.items():
            if rows:
                written.executemany(f"INSERT INTO {name} VALUES ({','.join('?' * len(rows[0]))})", rows)
        written.commit()
        return time.monotonic() - begin


def importing(firm):
    with tempfile.TemporaryDirectory(dir=firm.folder) as name:
        folder = Path(name)
        files = import_files(folder)
        ours, floor = folder / "ours.db", folder / "floor.db"

        def run(place, *arguments):
            return Run([firm.programs / "hvnotify", "--batch", "--database", place, *arguments]).clock

        for place in (ours, floor):
            run(place, "init")
        first = run(ours, "import", *files)
        least = raw_inserts(ours, floor)
        again = run(ours, "import", *files)
    what = f"{IMPORTED:,} clients with {5 * IMPORTED:,} tasks"
    yield row(f"`import`, {what}", f"{first:.1f} s", f"{least:.1f} s (its rows inserted raw, from Python)",
              f"{first / least:.2f} x", "3 x, 20 s")
    yield row(f"`import`, {what}, again", f"{again:.1f} s", "-", aim="20 s")


firm = Firm(Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve())
for line in (sending(firm), listing(firm), *arming(firm), starting(firm), *importing(firm)):
    print(line, flush=True)
