"""Files and rows that are not as they should be: one clear line, the right exit code, no harm done."""

import contextlib
import os
import socket
import sqlite3
import subprocess
import threading
import time
import unittest
from resource import RLIMIT_DATA, RLIMIT_FSIZE

from console import ENGINE, ConsoleTest, at_most, call, files_only, refusals


@files_only("whole files are missing, damaged or shut off")
class DatabaseFileTest(ConsoleTest):
    def test_what_is_no_sound_database(self):
        whole = (self.folder / "firm.db").read_bytes()
        for name, content in [("empty.db", b""), ("text.db", b"no database " * 200),
                              ("short.db", whole[:60000]), ("newer.db", whole),
                              ("scribbled.db", whole[:4096] + b"Z" * (len(whole) - 4096))]:
            (self.folder / name).write_bytes(content)
        (self.folder / "folder").mkdir()
        (self.folder / "first.db").write_bytes(whole)
        os.link(self.folder / "first.db", self.folder / "second.db")
        for name, statement in [("foreign.db", "CREATE TABLE Schedule (ScheduleID)"),
                                ("newer.db", "PRAGMA user_version=99")]:
            with contextlib.closing(sqlite3.connect(self.folder / name)) as connection:
                connection.execute(statement)
        for name, words in refusals("of files that are no sound database"):
            for line in ("due", "send --due"):
                self.refuses(line, words, 3, database=name)

    def test_held_by_another_program(self):
        with contextlib.closing(sqlite3.connect(self.folder / "firm.db")) as holder:
            holder.execute("PRAGMA locking_mode=EXCLUSIVE")
            holder.execute("BEGIN EXCLUSIVE")
            begin = time.monotonic()
            self.refuses("due", f"firm.db: {ENGINE.locked}", 3)
            self.assertLess(time.monotonic() - begin, 20)

    def test_mounted_without_its_folder(self):
        (self.folder / "mounted.db").touch()
        mounting = ["unshare", "-rm", "sh", "-c", 'mount --bind firm.db mounted.db && exec "$@"', "-"]
        if subprocess.run([*mounting, "true"], cwd=self.folder, capture_output=True).returncode:
            self.skipTest("nothing can be mounted here")
        run = subprocess.run([*mounting, *self.command("due", database="mounted.db")],
                             cwd=self.folder, capture_output=True, text=True)
        self.assertEqual((3, "hvnotify: mounted.db is mounted as a single file, without the log "
                          "beside it; mount its folder\n"), (run.returncode, run.stderr))

    def test_a_file_that_may_not_grow(self):
        for line in ("init --demo", "copy --from firm.db --to new.db"):
            run = self.run_program(*line.split(), database="new.db", **at_most(500_000, RLIMIT_FSIZE))
            self.assertEqual((3, ""), (run.code, run.out), line)
            self.assertRegex(run.err, r"^hvnotify: new\.db: The .*\n$")

    def test_where_memory_is_short(self):
        (self.folder / "long.txt").write_bytes(b"word " * 3_000_000)
        due, check = (self.run_program(*line.split(), **at_most(8 << 20, RLIMIT_DATA))
                      for line in ("due", "check long.txt"))
        if due.code:
            self.skipTest("the program does not start with so little")
        self.assertEqual((3, "hvnotify: there is not enough memory\n"), (check.code, check.err))

    def test_without_permission(self):
        self.folder.chmod(0o755)
        for mode, arguments, words in [
                (0o444, ["due"], "hvnotify: firm.db: The database can only be read: "),
                (0o000, ["due"], "hvnotify: firm.db: The database file cannot be opened: "),
                (0o444, ["init", "--database", "new.db"],
                 "hvnotify: new.db: The database file cannot be opened")]:
            (self.folder / "firm.db").chmod(mode)
            run = self.run_as_nobody(*arguments)
            self.assertEqual((3, "", words), (run.code, run.out, run.err[:len(words)]))

    def test_a_folder_for_documents_that_is_read_only(self):
        for path, mode in ((self.folder, 0o777), (self.folder / "firm.db", 0o666)):
            path.chmod(mode)
        _, (letter,) = self.arm("letter")
        (self.folder / "docs").mkdir(0o555)
        run = self.run_as_nobody("print", letter, "--documents", "docs", "--pdf", "a.pdf")
        self.assertEqual((1, "hvnotify: a.pdf: The folder for documents docs cannot be written to: "
                          "Permission denied\n"), (run.code, run.err))

    def test_init_leaves_what_is_there(self):
        (self.folder / "notes.txt").write_text("mine")
        os.symlink("nowhere", self.folder / "link.db")
        for name in ("firm.db", "notes.txt", "link.db", "."):
            self.refuses("init --demo", f"{name} exists already and stays as it is", database=name)
        self.assertEqual("mine", (self.folder / "notes.txt").read_text())
        run = self.run_program("init", database="no/where.db")
        self.assertEqual((3, ""), (run.code, run.out))
        self.assertEqual({"firm.db", "notes.txt", "link.db"}, set(os.listdir(self.folder)))

    def test_every_name_that_is_no_url_is_a_files(self):
        for name in ("file:a.db", ":memory:", "a?mode=memory#%41.db", " '\"\n.db", "postgresql:a",
                     "-a"):
            made = self.run_program("init", database=name)
            due = self.run_program("due", database=name)
            self.assertEqual((0, "", "Nothing is due.\n"), (made.code, made.err, due.out), name)
            self.assertTrue((self.folder / name).is_file(), name)

    def test_a_draft_goes_when_nobody_works_on_it(self):
        drafts = lambda: [name for name in os.listdir(self.folder) if name.endswith(".new")]
        (self.folder / "new.db.notes.new").write_text("mine")
        with subprocess.Popen(self.command("init", "--demo", "--clients", 100000, database="new.db"),
                              cwd=self.folder) as maker:
            while len(drafts()) < 2:
                time.sleep(0.01)
            made = self.run_program("init", database="new.db")
            self.assertEqual((0, None, 2), (made.code, maker.poll(), len(drafts())))
            maker.kill()
        self.refuses("init", "new.db exists already and stays as it is", database="new.db")
        self.assertEqual({"firm.db", "new.db", "new.db.notes.new"}, set(os.listdir(self.folder)))


class RowFaultTest(ConsoleTest):
    def test_what_others_have_written(self):
        self.follow_each("written by another program", "quotes and number signs in names",
                         "what was made with errors is taken back", "what cannot be looked up stays")

    @files_only("a server's columns hold no such number")
    def test_numbers_out_of_range(self):
        self.follow("numbers out of range behind what is listed")

    LISTS = [("due", "ClientNotification", "notification", "ClientNotificationID",
              {"NotificationDate": "date", "NotificationType": "number", "CompanyIDNum": "number",
               "NotificationSentStatus": "number"}),
             ("tasks --until 2026-12-31", "Schedule", "task", "ScheduleID",
              {"DueDate": "date", "ClientNum": "number", "notifyType": "number"}),
             ("appointments --kind appointment --until 2026-12-31", "Appointments", "id",
              "AppointmentID", {"DateFrom": "date", "TimeTo": "date", "ContactIDNum": "number"})]

    def test_lists_name_what_cannot_be_read_and_go_on(self):
        for line, table, name, key, columns in self.LISTS:
            whole = [row[name] for row in self.done(f"--json {line}")]
            faults = [(column, value, words) for column, kind in columns.items()
                      for value, words in ENGINE.unreadable[kind].items()]
            bad = dict(zip(whole, faults))
            # A date in other words is one, though it stands where it does not belong.
            later = whole.pop()
            self.assertLess(len(faults), len(whole))
            self.sql(f"UPDATE {table} SET {next(iter(columns))}='12/31/2027' WHERE {key}=?", later)
            for row, (column, value, _) in bad.items():
                self.sql(f"UPDATE {table} SET {column}=? WHERE {key}=?", value, row)
            run = self.run_program("--json", *line.split())
            self.assertEqual((1, [row for row in whole if row not in bad]),
                             (run.code, [row[name] for row in run.json()]), line)
            self.assertEqual(sorted(f"hvnotify: {table} {row} cannot be read until its {column} is "
                                    f"mended: {words}" for row, (column, _, words) in bad.items()),
                             sorted(run.err.splitlines()), line)

    def test_what_cannot_be_read_is_sent_when_it_is_mended(self):
        task, (bad, _) = self.arm("email,fax")
        emails = [row["notification"] for row in self.done("--json due") if row["channel"] == "email"]
        value, words = next(iter(ENGINE.unreadable["date"].items()))
        for column, sound in [("SentTime", None), ("NotificationDate", "4/1/2026")]:
            self.write(bad, NotificationDate="2026-04-01")
            self.write(bad, **{column: value})
            self.follow("what cannot be read", bad=bad, task=task, column=column, words=words)
            self.assertEqual(len(emails), len(self.messages()))
            self.write(bad, **{column: sound})
        self.done("send --due")
        self.assertEqual((len(emails) + 1, (1, 2)), (len(self.messages()), self.state(bad)))

    def test_ids_that_do_not_exist(self):
        for number in (0, -1, -2147483648, 2147483647):
            self.refuses_each("of numbers of nothing", number=number)
        self.refuses("--user 999999 due", "there is no user 999999")
        self.refuses("tasks --client 999999", "no open task found")
        self.expect("--json tasks --client 999999", "[]\n", "no open task found", 1)

    def test_control_characters_do_not_reach_the_terminal(self):
        task, (notification,) = self.arm()
        self.write(notification, Field4="a\x1b[2Jb", Memo="one\ttwo\n\x07\x9bthree\x7f\r\n",
                   NotificationDate="2026-04-01")
        self.sql("UPDATE Schedule SET scheduleName=? WHERE ScheduleID=?", "x\x1b]0;y\x07\nz", task)
        for line in (f"show {notification}", "due", "tasks", f"merge {task} --plain",
                     f"explain {task}", f"show {notification} --json", f"send {notification}"):
            run = self.run_program(*line.split())
            self.assertEqual((0, ""), (run.code, run.err), line)
            self.assertNotRegex(run.out, "[\x00-\x08\x0b-\x1f\x7f-\x9f]", line)
        shown = self.done(f"show {notification}")
        self.assertIn("a?[2Jb", shown)
        self.assertIn("one\ttwo\n??three?\n", shown)


class TemplateFaultTest(ConsoleTest):
    NO_TEXT = "cannot read template: it is no text; save it as RTF or plain text"

    def test_check_and_merge_of_every_kind_of_file(self):
        task = self.free_task()
        templates = [(text.encode(), fault) for text, fault in refusals("of templates")]
        templates += [(b"Dear \0 client", self.NO_TEXT), (b"hello", ""),
                      (b" \n", "cannot read template: it holds no words")]
        for content, fault in templates:
            (self.folder / "template").write_bytes(content)
            with self.subTest(content):
                self.expect("check template", *(("", fault, 1) if fault else
                                                ("The template is sound.\n",)))
                merged = self.run_program("merge", task, "--template", "template")
                self.assertEqual((1, f"hvnotify: {fault}\n") if fault else (0, ""),
                                 (merged.code, merged.err))
                self.assertEqual(content == b"hello", merged.out == "hello\n")

    def test_no_file(self):
        for path, reason in [("nowhere", "No such file or directory"), (".", "Is a directory")]:
            for line in (f"check {path}", f"merge {self.free_task()} --template {path}"):
                self.refuses(line, f"cannot read {path}: {reason}")

    def test_a_template_has_a_limit(self):
        task, limit, file = self.free_task(), 16 << 20, "cannot read large: it"
        for size in (limit, limit + 1):
            (self.folder / "large").write_text("x" * size)
            self.sql("UPDATE ScheduleTypes SET NotificationComment=?", "x" * size)
            column = f"task {task}: The template in ScheduleTypes.NotificationComment"
            for line, subject in [("check large", file), (f"merge {task}", column),
                                  (f"merge {task} --template large", file)]:
                run = self.run_program(*line.split())
                told = f"hvnotify: {subject} is larger than 16 MiB\n"
                self.assertEqual((1, told) if size > limit else (0, ""), (run.code, run.err), line)

    def test_a_template_of_a_megabyte_is_quick(self):
        line = "Dear \\'abContact Display Name\\'bb, of \\'abCompany Name\\'bb: a letter.\\par\r\n"
        unknown = "".join(f"«{number}»" for number in range(90000))
        for text, code in [("{\\rtf1\\ansi " + line * ((1 << 20) // len(line)) + "}", 0),
                           ("<<" * (1 << 19), 1), ("« " + unknown + ".", 1),
                           (unknown + "««7»x».", 1)]:
            (self.folder / "large").write_text(text, encoding="utf-8")
            begin = time.monotonic()
            self.assertEqual(code, self.run_program("check", "large").code)
            merged = self.run_program("merge", self.free_task(), "--template", "large")
            self.assertEqual(code, merged.code)
            self.assertNotIn("Name", merged.out)
            self.assertLess(time.monotonic() - begin, 10)


class FarewellTest(unittest.TestCase):
    # The session is ready, and ended in the same breath.
    WORDS = (b"R\0\0\0\x08\0\0\0\0S\0\0\0\x18server_version\x0015.0\0Z\0\0\0\x05I"
             b"E\0\0\0\x1fSFATAL\0C57P01\0Mgoing down\0\0")

    def test_a_server_that_ends_the_session_at_once(self):
        with socket.create_server(("localhost", 0)) as server:
            threading.Thread(target=self.serve, args=(server,), daemon=True).start()
            place = f"postgresql://localhost:{server.getsockname()[1]}/a?sslmode=disable"
            run = call(".", "due", database=place)
        self.assertEqual((3, 1, True), (run.code, run.err.count("\n"), run.err.startswith(
            f"hvnotify: {place}: The database server cannot be reached: ")), run.err)

    def serve(self, server):
        with contextlib.suppress(OSError):
            while True:
                with server.accept()[0] as session:
                    if session.recv(4096):
                        session.sendall(self.WORDS)
