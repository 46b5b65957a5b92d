#!/usr/bin/env python3
"""Keyed reads in proportion to their floor, and the exchanges with the server that commands take.

Usage: report_postgres.py RESULTS.json HVNOTIFY SERVER_FOLDER
"""

import json
import socket
import statistics
import subprocess
import sys
import tempfile
import threading
from pathlib import Path

TODAY = "2026-04-15"


class Counter:
    """Stands between a program and the server and counts how often the word passes to the server."""

    def __init__(self, server, folder):
        self.server, self.exchanges = str(server / ".s.PGSQL.5432"), 0
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(str(folder / ".s.PGSQL.5432"))
        self.listener.listen()
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            client, _ = self.listener.accept()
            server = socket.socket(socket.AF_UNIX)
            server.connect(self.server)
            speaker = [None]
            for source, target in ((client, server), (server, client)):
                threading.Thread(target=self.pass_on, args=(source, target, speaker, client),
                                 daemon=True).start()

    def pass_on(self, source, target, speaker, client):
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
            target.sendall(data)


def median(results, name):
    return statistics.median(run["real_time"] for run in results["benchmarks"]
                             if run["run_type"] == "iteration" and run["name"].startswith(name))


def main():
    results = json.loads(Path(sys.argv[1]).read_text())
    program, server = sys.argv[2], Path(sys.argv[3]).resolve()
    ours, floor = (median(results, "keyed_row/" + part) / 1000 for part in ("ours", "floor"))
    print("| work | ours | raw libpqxx | ratio | aim |\n|---|---|---|---|---|")
    print(f"| single row by key, over a local socket | {ours:.1f} µs | {floor:.1f} µs | "
          f"{ours / floor:.2f} x | 1.40 x |\n")
    with tempfile.TemporaryDirectory(prefix="count-") as name:
        folder = Path(name)
        (folder / "outbox").mkdir()
        counter = Counter(server, folder)

        def run(*arguments):
            before = counter.exchanges
            done = subprocess.run(
                [program, "--batch", "--json", "--database", f"postgresql://firm@/postgres?host={name}",
                 "--today", TODAY, "--outbox", folder / "outbox", *map(str, arguments)],
                check=True, text=True, stdout=subprocess.PIPE)
            return counter.exchanges - before, json.loads(done.stdout)

        alone, _ = run("show", 1)
        tasks = [row["task"] for row in run("tasks")[1] if not row["channels"]]
        due = [row for row in run("due")[1] if row["channel"] == "email"]
        print("| command, a process of its own | exchanges with the server |\n|---|---|")
        print(f"| show one notification | {alone} |")
        print(f"| list what is due ({len(due)} emails among it) | {run('due')[0]} |")
        print(f"| arm one email | {run('arm', tasks[-1], '--channel', 'email')[0]} |")
        print(f"| send one email | {run('send', due[0]['notification'])[0]} |")
        count, sent = run("send", "--due")
        print(f"| send all that is due ({len(sent)} rows) | {count} |")


if __name__ == "__main__":
    main()
