#!/usr/bin/env python3
"""Keyed reads in proportion to their floor, and the exchanges with the server that commands take.

Usage: report_postgres.py RESULTS.json PROGRAMS SERVER_FOLDER

PROGRAMS holds hvnotify and exchanges.
"""

import json
import re
import socket
import statistics
import subprocess
import sys
import tempfile
import threading
from pathlib import Path

TODAY = "2026-04-15"


CONTROL = re.compile(rb"(BEGIN|COMMIT|ROLLBACK|SAVEPOINT|RELEASE|SET)\b")


class Statements:
    """Counts the statements in what a client says: each asks for an exchange at least, as the next
    one depends on its answer. What only parts transactions from each other is none of them."""

    def __init__(self):
        self.heard, self.isStarted, self.count = b"", False, 0

    def hear(self, data):
        self.heard += data
        while (size := self.sizeOfFirst()) and len(self.heard) >= size:
            message, self.heard = self.heard[:size], self.heard[size:]
            if self.isStarted:
                self.count += message[:1] == b"E" or (
                    message[:1] == b"Q" and not CONTROL.match(message[5:]))
            self.isStarted = True

    def sizeOfFirst(self):
        """The first message of all has no letter before its size."""
        before = 1 if self.isStarted else 0
        if len(self.heard) < before + 4:
            return 0
        return before + int.from_bytes(self.heard[before:before + 4], "big")


class Counter:
    """Stands between a program and the server and counts how often the word passes to the server, and
    the statements."""

    def __init__(self, server, folder):
        self.server, self.exchanges, self.clients = str(server / ".s.PGSQL.5432"), 0, []
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(str(folder / ".s.PGSQL.5432"))
        self.listener.listen()
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            client, _ = self.listener.accept()
            server = socket.socket(socket.AF_UNIX)
            server.connect(self.server)
            speaker, statements = [None], Statements()
            self.clients.append(statements)
            for source, target in ((client, server), (server, client)):
                threading.Thread(target=self.pass_on, args=(source, target, speaker, client, statements),
                                 daemon=True).start()

    def counts(self):
        return self.exchanges, sum(client.count for client in self.clients)

    def pass_on(self, source, target, speaker, client, statements):
        while True:
            try:
                data = source.recv(1 << 16)
            except OSError:
                data = b""
            if not data:
                target.close()
                return
            if source is client and speaker[0] is not client:
                self.exchanges += data[:1] != b"X"
            speaker[0] = source
            if source is client:
                statements.hear(data)
            target.sendall(data)


def median(results, name):
    return statistics.median(run["real_time"] for run in results["benchmarks"]
                             if run["run_type"] == "iteration" and run["name"].startswith(name))


def tell_operations(program, url, counter):
    print("| operation | exchanges with the server | least | ratio |\n|---|---|---|---|")
    with subprocess.Popen([program, url], text=True, stdin=subprocess.PIPE,
                          stdout=subprocess.PIPE) as operations:
        for _ in range(int(operations.stdout.readline())):
            before = counter.counts()[0]
            operations.stdin.write("\n")
            operations.stdin.flush()
            work, least = operations.stdout.readline().rstrip("\n").split("\t")
            exchanges = counter.counts()[0] - before
            print(f"| {work} | {exchanges} | {least} | {exchanges / int(least):.2f} x |")
    if operations.returncode:
        sys.exit(f"{program} failed")
    print()


def main():
    results = json.loads(Path(sys.argv[1]).read_text())
    programs, server = Path(sys.argv[2]), Path(sys.argv[3]).resolve()
    ours, floor = (median(results, "keyed_row/" + part) / 1000 for part in ("ours", "floor"))
    print("| work | ours | raw libpqxx | ratio | aim |\n|---|---|---|---|---|")
    print(f"| single row by key, over a local socket | {ours:.1f} µs | {floor:.1f} µs | "
          f"{ours / floor:.2f} x | 1.40 x |\n")
    with tempfile.TemporaryDirectory(prefix="count-") as name:
        folder = Path(name)
        (folder / "outbox").mkdir()
        counter = Counter(server, folder)
        url = f"postgresql://firm@/postgres?host={name}"

        def run(*arguments):
            before = counter.counts()
            done = subprocess.run(
                [programs / "hvnotify", "--batch", "--json", "--database", url, "--today", TODAY,
                 "--outbox", folder / "outbox", *map(str, arguments)],
                check=True, text=True, stdout=subprocess.PIPE)
            counted = [after - former for after, former in zip(counter.counts(), before)]
            return counted, json.loads(done.stdout)

        tell_operations(programs / "exchanges", url, counter)

        def tell(work, counted):
            exchanges, statements = counted
            print(f"| {work} | {exchanges} | {statements} | {exchanges / statements:.2f} x |")

        open_tasks = run("tasks")[1]
        tasks = [row["task"] for row in open_tasks if not row["channels"]]
        due = run("due")[1]
        email, letter = (next(row["notification"] for row in due if row["channel"] == channel)
                         for channel in ("email", "letter"))
        print("| command, a process of its own | exchanges with the server | its statements | ratio |\n"
              "|---|---|---|---|")
        for work, arguments in (
                ("show one notification", ("show", 1)),
                (f"list the open tasks ({len(open_tasks)})", ("tasks",)),
                ("list 1,000 notifications", ("notifications", "--limit", 1000)),
                (f"list what is due ({len(due)})", ("due",)),
                ("arm one email", ("arm", tasks[-1], "--channel", "email")),
                ("disarm it", ("disarm", tasks[-1], "--channel", "email")),
                ("arm a client's year by email", ("year", 1, "--channel", "email")),
                ("print one letter", ("print", letter, "--pdf", folder / "letter.pdf", "--documents",
                                      folder / "outbox")),
                ("send one email", ("send", email))):
            tell(work, run(*arguments)[0])
        counted, carried = run("propagate", 3)
        tell(f"carry a template into {carried['composed']} texts", counted)
        counted, sent = run("send", "--due")
        tell(f"send all that is due ({len(sent)} rows)", counted)


if __name__ == "__main__":
    main()
