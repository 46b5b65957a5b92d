"""Where the tests' databases live: in files, or on the server that AUTONOTIFY_TEST_DATABASE names.

A database is named as a member of staff would name it, to be given to --database. Each has its
emails in a folder firm.db.outbox of the test's own folder.
"""

import contextlib
import itertools
import os
import shutil
import sqlite3


class Files:
    on_server = False
    options = ()
    locked = "The database is locked by another user: database is locked (engine code 5)"
    # What a column of dates or of numbers can hold and nobody can read, and what is said of it.
    unreadable = {"date": {text: f'"{text}" is no date' for text in ("", "2026-13-45", "31.1.2026",
                                                                     "soon")},
                  "number": {2**31: "2147483648 is out of range"}}

    def empty(self, test, name="firm.db"):
        """Where `init` may make a database; it goes with the test or its class."""
        return name

    def copy(self, test, folder, original):
        """A copy of an original, named by its folder and database, that nothing has open."""
        shutil.copy(original[0] / original[1], folder)
        return original[1]

    def prepare(self, folder):
        pass

    @contextlib.contextmanager
    def connection(self, folder, database):
        with contextlib.closing(sqlite3.connect(folder / database)) as connection:
            yield lambda statement, values=(): connection.execute(statement, values).fetchall()
            connection.commit()

    @contextlib.contextmanager
    def held(self, folder, database):
        """Others may read meanwhile but not write."""
        with contextlib.closing(sqlite3.connect(folder / database)) as connection:
            connection.execute("BEGIN IMMEDIATE")
            yield


class Server:
    on_server = True
    outbox = "firm.db.outbox"
    options = ("--outbox", outbox)
    locked = ("The row is being changed by another user: canceling statement due to lock timeout "
              "(SQLSTATE 55P03)")
    unreadable = {"date": {"infinity": '"infinity" is no date',
                           "20266-04-01": '"20266-04-01 00:00:00" is no date'}, "number": {}}
    names = (f"console_{os.getpid()}_{number}" for number in itertools.count(1))

    def __init__(self, url):
        import psycopg2
        from psycopg2 import extensions
        self.url, self.library = url, psycopg2
        dates = extensions.new_type((1082, 1114), "DATE_AS_TEXT", lambda text, _: text)
        extensions.register_type(dates)

    def url_of(self, name):
        head, tail = self.url.split("?", 1) if "?" in self.url else (self.url, "")
        return f"{head.rsplit('/', 1)[0]}/{name}" + (f"?{tail}" if tail else "")

    def administer(self, statement):
        with contextlib.closing(self.library.connect(self.url)) as connection:
            connection.autocommit = True
            connection.cursor().execute(statement)

    def make(self, test, template):
        cleanup = test.addClassCleanup if isinstance(test, type) else test.addCleanup
        name = next(self.names)
        self.administer(f"CREATE DATABASE {name} TEMPLATE {template}")
        cleanup(self.administer, f"DROP DATABASE {name} WITH (FORCE)")
        return self.url_of(name)

    def empty(self, test, name=None):
        return self.make(test, "template0")

    def copy(self, test, folder, original):
        return self.make(test, original[1].split("?")[0].rsplit("/", 1)[1])

    def prepare(self, folder):
        (folder / self.outbox).mkdir()

    @contextlib.contextmanager
    def connection(self, folder, database):
        with contextlib.closing(self.library.connect(database)) as connection:
            def execute(statement, values=()):
                cursor = connection.cursor()
                cursor.execute(statement.replace("%", "%%").replace("?", "%s"), tuple(values))
                return cursor.fetchall() if cursor.description else []
            yield execute
            connection.commit()

    @contextlib.contextmanager
    def held(self, folder, database):
        with self.connection(folder, database) as execute:
            execute("LOCK TABLE ClientNotification, Schedule IN SHARE ROW EXCLUSIVE MODE")
            yield


def chosen():
    """Files, unless CONSOLE_TEST_ENGINE says "server"."""
    if os.environ.get("CONSOLE_TEST_ENGINE") == "server":
        return Server(os.environ["AUTONOTIFY_TEST_DATABASE"])
    return Files()
