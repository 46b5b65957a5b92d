"""The program with a person before it: output fits the screen, errors are asked about."""

import contextlib
import fcntl
import os
import pty
import struct
import subprocess
import termios

from console import ENGINE, ConsoleTest


class TerminalTest(ConsoleTest):
    def at_terminal(self, *arguments, columns=80, answers=""):
        """What a person sees who types `answers`, and the exit code."""
        screen, terminal = pty.openpty()
        fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        process = subprocess.Popen(self.command(*arguments), cwd=self.folder, stdin=terminal,
                                   stdout=terminal, stderr=terminal)
        os.close(terminal)
        os.write(screen, answers.encode())
        seen = b""
        with contextlib.suppress(OSError):  # the terminal is gone when the program has ended
            while chunk := os.read(screen, 65536):
                seen += chunk
        os.close(screen)
        return seen.decode().replace("\r\n", "\n"), process.wait(timeout=60)

    def test_tables_fit_the_screen(self):
        whole = self.done("tasks").splitlines()
        for columns in (200, 80, 50):
            shown, code = self.at_terminal("tasks", columns=columns)
            lines = shown.splitlines()
            self.assertEqual((0, columns < 100), (code, "…" in shown))
            self.assertLessEqual(max(map(len, lines)), columns)
            self.assertEqual([line.split()[0] for line in whole],
                             [line.split()[0] for line in lines])

    def test_stored_text_cannot_drive_the_terminal(self):
        _, (letter,) = self.arm("letter")
        self.write(letter, Memo="{\\rtf1 \x1b]0;title\x07}")
        self.assertIn("\x1b", self.done(f"show --rtf {letter}"))  # as it is stored
        self.assertNotIn("\x1b", self.at_terminal("show", "--rtf", letter)[0])

    def test_errors_are_asked_about_unless_in_batch(self):
        question = "1 continue, 2 leave, 3 retry?"
        task = self.free_task()
        with self.writes_held():
            for options, asked in [([], 2), (["--batch"], 0)]:
                shown, code = self.at_terminal(*options, "arm", task, "--channel", "fax",
                                               answers="x\n2\n")
                self.assertEqual((asked, 1), (shown.count(question), code), shown)
        self.assertEqual([], self.sql("SELECT * FROM ClientNotification WHERE ScheduleIDNum=?",
                                      task))


class LargeFirmTest(ConsoleTest):
    demo = ["--clients", "40", "--seed", "7", "--past-notifications", "100000"]

    def memory_of(self, database, *arguments):
        """Kilobytes at most."""
        process = subprocess.Popen(self.command(*arguments, database=database), cwd=self.folder,
                                   stdout=subprocess.DEVNULL)
        _, status, used = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        self.assertEqual(0, process.returncode)
        return used.ru_maxrss

    def test_a_long_past_costs_no_memory(self):
        young = ENGINE.empty(self, "young.db")
        self.run_program("init", "--demo", *self.demo[:4], database=young)
        for arguments in (["due"], ["send", "--due", "--dry-run"]):
            self.assertLess(self.memory_of(self.database, *arguments),
                            self.memory_of(young, *arguments) + 10_000)
