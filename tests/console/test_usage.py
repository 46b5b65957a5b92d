"""What is typed wrong is answered in plain words, with exit code 2 and nothing on standard output."""

import subprocess

from console import ConsoleTest, refusals

COMMANDS = ("init, copy, import, export, role, clients, staff, firm, holidays, tasks, arm, disarm, year, appointments, "
            "arm-item, disarm-item, show, day, due, notifications, history, merge, check, explain, send, print, "
            "worklist, calls, call, cancel, move, refresh, address, recipients, contact-default, template, "
            "propagate, fields, help")
NAMES = COMMANDS.split(", ")


class UsageTest(ConsoleTest):
    def test_wrong_arguments_are_named(self):
        names = {"commands": COMMANDS}
        self.refuses_each("of the program", 2, " (see: hvnotify --help)", **names)
        for line, words in refusals("of a command"):
            command = next(name for name in ["template set", "address", *NAMES] if f" {name} " in f" {line} ")
            self.refuses(line, f"{words} (see: hvnotify {command} --help)", 2)
        self.refuses("call 5 --made --note \udcff",
                     "--note: the text is not UTF-8 (see: hvnotify call --help)", 2)
        self.refuses("due", "--database: the value is empty (see: hvnotify --help)", 2, database="")

    def test_help_tells_commands_exit_codes_and_who_is_asked(self):
        shown = self.done("--help")
        for command in NAMES:
            with self.subTest(command):
                self.assertRegex(shown, rf"(?m)^  {command}  ")
                own = self.done(f"{command} --help")
                self.assertIn(f"Usage: hvnotify {command} [OPTIONS]", own)
                self.assertTrue(own.endswith("\nOptions of all commands: hvnotify --help\n"))
        self.assertIn("\nEach is filed too, in its client's folder below the one that --documents names.\n",
                      self.done("print --help"))
        self.assertIn("0 done, 1 refused or nothing found, 2 usage, 3 database unusable", shown)
        self.assertIn("--batch, or without a terminal, the procedure is left", shown)

    def test_help_by_name_is_what_the_command_tells(self):
        for name in ["", "arm", "template set"]:
            self.assertEqual(self.done(f"{name} --help"), self.done(f"help {name}"))
        self.refuses("help tempalte", 'there is no command "tempalte"; did you mean template? (see: hvnotify --help)', 2)
        self.refuses("help template sit", 'there is no command "template sit"; did you mean set? (see: hvnotify --help)', 2)
        self.expect("--version", "hvnotify …\ncomponent: hvAutoNotifyCtrl6.ClassObject/…, …/hvAutoNotifyCtrl6.so\n"
                    "databases: schema …, SQLite 3.…, PostgreSQL client …\n")

    def test_manual_and_completions_know_all_that_can_be_typed(self):
        page = self.done("help --as man")
        for name in [*NAMES, "template set"]:
            self.assertIn(f'\n.SS "{name}"\n', page)
        self.assertIn("\n.TP\n\\fB\\-\\-until\\fR \\fIDATE\\fR\n", page)
        (self.folder / "completion").write_text(self.done("help --as bash"))
        for typed, words in [("holi", "holidays"), ("template sh", "show"), ("--json template set --for", "--former"),
                             ("show --rt", "--rtf"), ("--database show tem", "template"), ("print --pdf s", ""),
                             ("notifications --state un", "unsent"), ("arm 5 --channel l", "letter"),
                             ("export tas", "tasks"), ("appointments --kind time", "time-entry")]:
            script = f'. ./completion; COMP_WORDS=(hvnotify {typed}); COMP_CWORD={len(typed.split())}; _hvnotify'
            shown = subprocess.run(["bash", "-c", script + '; echo "${COMPREPLY[*]}"'], cwd=self.folder,
                                   capture_output=True, text=True)
            self.assertEqual((words + "\n", ""), (shown.stdout, shown.stderr), typed)
        for form, line in [("zsh", " '--former:the template"), ("zsh", "  '/fields--type') entries=(appointment task "),
                           ("fish", "-l former -r -d "), ("fish", "-l state -r -f -a 'due unsent ")]:
            self.assertIn(line, self.done(f"help --as {form}"))

    def test_global_options_may_follow_the_command_and_the_last_of_repeated_ones_counts(self):
        self.assertEqual(self.done("--json due"), self.done("due --json"))
        self.expect(f"--database {self.database} --today 2026-04-15 due", self.done("due"),
                    database="nowhere.db", today="2001-01-01")

    def test_a_password_in_an_address_is_not_printed(self):
        for address in ("postgresql://u:s3cret@h/d", "postgresql://u:s3/c?r&e@t@h/d",
                        "postgresql://u:s3cret", "PostgreSQL://h/d?pass%77ord=s3cret",
                        "postgres:/u:s3cret@h/d", "mysql://u:s3cret@h/d", "host=h password=s3cret"):
            for line in (["--database", address, "due"], ["--database", address, "--json", "show"],
                         [address, "due"], ["due", address], ["--smtp", address, "due"]):
                run = self.run_program(*line)
                self.assertNotEqual(0, run.code, line)
                self.assertNotRegex(run.out + run.err, "s3|cret|e@t", line)
