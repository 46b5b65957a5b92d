"""Firms to attack: a database and an outbox of their own, and the program at work on them."""

import collections
import contextlib
import hashlib
import os
import shutil
import sqlite3
import subprocess
from pathlib import Path
from typing import NamedTuple

from attacks.evidence import Finding, require
from drill import TODAY

PATIENCE = 60  # seconds, after which a program counts as hung


class Ended(NamedTuple):
    code: int
    out: str
    err: str


def finish(process, patience=PATIENCE):
    try:
        out, err = process.communicate(timeout=patience)
    except subprocess.TimeoutExpired:
        process.kill()
        process.communicate()
        raise Finding("unclear", "hangs:", *process.args[5:]) from None
    return Ended(process.returncode, out.decode(errors="replace"), err.decode(errors="replace"))


class Firm:
    """A database in a file."""

    def __init__(self, program, folder, origin=None):
        self.program, self.folder = program, Path(folder)
        self.folder.mkdir(parents=True)
        self.place, self.outbox = self.folder / "firm.db", self.folder / "firm.db.outbox"
        self.options, self.mail, self.on_their_way = [], None, None
        # What was told to be made once more, and how many lines a call may have by now.
        self.repeated, self.lines = collections.Counter(), 1
        if origin:
            shutil.copy(origin.place, self.place)

    def start(self, *arguments, place=None, environment=None, folder=None):
        return subprocess.Popen(
            [self.program, "--database", place or self.place, "--today", TODAY, *self.options,
             *map(str, arguments)],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            env={**os.environ, **(environment or {})}, cwd=folder or self.folder)

    def run(self, *arguments, **options):
        return finish(self.start(*arguments, **options))

    def rows(self, statement):
        with contextlib.closing(sqlite3.connect(self.place)) as connection:
            return connection.execute(statement).fetchall()

    def ids(self, statement):
        return [row[0] for row in self.rows(statement)]

    def copy_place(self):
        """Where a copy of the database may go."""
        return self.folder / "copied.db"

    def tables(self, place=None):
        """A digest of each table but that of the identity, which no two databases share."""
        with contextlib.closing(sqlite3.connect(place or self.place)) as connection:
            names = [row[0] for row in connection.execute(
                "SELECT name FROM sqlite_master WHERE type='table' AND name<>'DatabaseIdentity'")]
            return {name: hashlib.sha256(repr(connection.execute(
                f"SELECT * FROM {name} ORDER BY 1").fetchall()).encode()).hexdigest()
                for name in names}

    def require_sound(self):
        if not self.place.exists():
            return
        try:
            verdict = self.rows("PRAGMA integrity_check")
        except sqlite3.Error as fault:
            verdict = fault
        require(verdict == [("ok",)], "half written", "the database is damaged:", verdict)

    def entries(self):
        """What lies about, but for the files that belong to a database in use."""
        return {str(path.relative_to(self.folder)) for path in self.folder.rglob("*")
                if not path.name.endswith(("-wal", "-shm", ".claims")) and path.is_file()}

    def remove(self):
        if self.mail:
            self.mail.close()
        shutil.rmtree(self.folder)
