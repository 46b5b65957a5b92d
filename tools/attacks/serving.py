"""The attack by a PostgreSQL server that goes away while the program works."""

import functools
import itertools
import json
import subprocess
import threading
import time
from pathlib import Path

from attacks import works
from attacks.firms import Firm, finish

PRIVATE = Path(__file__).parent.parent / "private_postgres"
ENDING = "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname='{}'"

DIGESTS = """SELECT table_name, md5(query_to_xml('SELECT * FROM ' || table_name || ' ORDER BY 1',
    true, false, '')::text) FROM information_schema.tables WHERE table_schema='public' AND
    table_name<>'databaseidentity'"""


# Only a machine that goes down would show the difference.
QUICK = ("-c", "fsync=off")


class PrivateServer:
    def __init__(self, folder):
        self.folder = folder
        self.url = self.control("start")

    def control(self, action):
        options = QUICK if action == "start" else ()
        done = subprocess.run([PRIVATE, action, self.folder, *options], text=True,
                              capture_output=True)
        if done.returncode != 0:
            raise SystemExit(f"The server does not {action}: {done.stderr}")
        return done.stdout.strip()

    def place(self, name):
        return self.url.replace("/postgres?", f"/{name}?")

    def sql(self, statement, name="postgres"):
        return subprocess.run(["psql", "-XqAt", "-v", "ON_ERROR_STOP=1", self.place(name), "-c",
                               statement], check=True, text=True, capture_output=True).stdout


class ServerFirm(Firm):
    """A database on the server, and another for its copy."""

    has_copy = False

    def __init__(self, program, folder, server, name, template):
        super().__init__(program, folder)
        self.server, self.name = server, name
        self.outbox.mkdir()
        self.options = ["--outbox", self.outbox]
        self.place = server.place(name)
        server.sql(f"CREATE DATABASE {name} TEMPLATE {template}")

    def copy_place(self):
        name = self.name + "_copy"
        if not self.has_copy:
            self.server.sql(f"CREATE DATABASE {name} TEMPLATE template0")
            self.has_copy = True
        return self.server.place(name)

    def rows(self, statement):
        out = self.server.sql(f"SELECT to_json(row) FROM ({statement}) AS row", self.name)
        return [tuple(json.loads(line).values()) for line in out.splitlines()]

    def tables(self, place=None):
        digests = self.server.sql(DIGESTS, self.name if place in (None, self.place)
                                  else self.name + "_copy")
        return dict(line.split("|") for line in digests.splitlines())

    def require_sound(self):
        pass

    def remove(self):
        for name in (self.name, self.name + "_copy"):
            self.server.sql(f"DROP DATABASE IF EXISTS {name} WITH (FORCE)")
        super().remove()


class Server:
    """A PostgreSQL server stops, restarts and ends sessions while the program works."""

    # One server, so one after the other.
    name, share, workers = "server", 10, 1
    makers = {"send": works.Send, "arm": works.Arm, "submit": works.Submit, "init": works.Init,
              "copy": works.Copy}

    def __init__(self, kit):
        self.kit = kit
        self.server = PrivateServer(kit.folder / "server")
        self.origin = self.firm("origin", "template0")
        ended = self.origin.run(*works.DEMO)
        if ended.code != 0:
            raise SystemExit(f"No firm on a server: {ended.err}")
        control = self.server.control
        self.faults = {
            "ends the session": lambda firm, _: self.server.sql(ENDING.format(firm.name)),
            "crashes": lambda *_: control("kill"),
            "stops": lambda *_: control("stop"),
            "restarts": lambda *_: (control("stop"), control("start")),
            "outlives the program": lambda _, process: process.kill(),
        }
        cases = list(itertools.product(self.makers, self.faults))
        kit.chance(self.name).shuffle(cases)
        self.cases = itertools.cycle(cases)

    def firm(self, name, template="origin"):
        return ServerFirm(self.kit.program, self.kit.folder / "on the server" / name, self.server,
                          name, template)

    @functools.cache
    def work(self, name):
        """With the seconds that it takes."""
        template = "template0" if name == "init" else "origin"
        firm = self.firm("undisturbed", template)
        work = self.makers[name](firm)
        firm.remove()
        firm = self.firm("timed", template)
        begin = time.monotonic()
        finish(work.start(firm))
        taken = time.monotonic() - begin
        firm.remove()
        return work, taken

    def label(self, case):
        return "{}, {}".format(*case)

    def run(self, case, _firm_name, chance):
        name, fault = case
        work, taken = self.work(name)
        firm = self.firm("tried", "template0" if name == "init" else "origin")
        moment = chance.uniform(0, taken)
        try:
            works.interrupt(work, firm, lambda: self.disturbed(work, firm, moment, fault), True)
        finally:
            self.server.control("start")
            firm.remove()

    def disturbed(self, work, firm, moment, fault):
        process = work.start(firm)
        time.sleep(moment)
        disturbing = threading.Thread(target=self.faults[fault], args=(firm, process))
        disturbing.start()
        try:
            return finish(process)
        finally:
            disturbing.join()
            self.server.control("start")

    def close(self):
        self.server.control("remove")
