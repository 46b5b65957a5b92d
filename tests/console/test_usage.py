"""What is typed wrong is answered in plain words, with exit code 2 and nothing on standard output."""

from console import ConsoleTest

COMMANDS = ("init, copy, role, tasks, arm, disarm, appointments, arm-item, disarm-item, show, due, merge, check, explain, send, cancel, "
            "move, refresh, address, recipients, contact-default, propagate, fields")

# Arguments and the line that answers them.
WRONG = [
    ("", f"name a command: {COMMANDS} (see: hvnotify --help)"),
    ("foo", f'there is no command "foo"; commands: {COMMANDS} (see: hvnotify --help)'),
    ("--nope due", 'there is no option "--nope" (see: hvnotify due --help)'),
    ("due --nope", 'there is no option "--nope" (see: hvnotify due --help)'),
    ("due extra", '"extra" is one argument too many (see: hvnotify due --help)'),
    ("due --today", "--today: a value is missing (see: hvnotify --help)"),
    ("due --today 2026-02-30",
     '--today: "2026-02-30" is no date; write it as 2026-04-30 (see: hvnotify --help)'),
    ("due --today tomorrow",
     '--today: "tomorrow" is no date; write it as 2026-04-30 (see: hvnotify --help)'),
    ("due --today 10:30",
     '--today: "10:30" is no date; write it as 2026-04-30 (see: hvnotify --help)'),
    ("due --user x", '--user: "x" is no number (see: hvnotify --help)'),
    ("tasks --until 30", '--until: "30" is no date; write it as 2026-04-30 (see: hvnotify tasks '
     '--help)'),
    ("tasks --client 1.5", '--client: "1.5" is no number (see: hvnotify tasks --help)'),
    ("arm", "TASK is required (see: hvnotify arm --help)"),
    ("arm 5", "--channel is required (see: hvnotify arm --help)"),
    ("arm 5 --channel pigeon",
     '--channel: "pigeon" is not email, fax, letter or phone (see: hvnotify arm --help)'),
    ("arm 5 --channel email,1",
     '--channel: "1" is not email, fax, letter or phone (see: hvnotify arm --help)'),
    ("show abc", 'NOTIFICATION: "abc" is no number (see: hvnotify show --help)'),
    ("show 12x", 'NOTIFICATION: "12x" is no number (see: hvnotify show --help)'),
    ("show 2147483648", "NOTIFICATION: 2147483648 is out of range (see: hvnotify show --help)"),
    ("show -2147483649", "NOTIFICATION: -2147483649 is out of range (see: hvnotify show --help)"),
    ("explain 99999999999999999999",
     "TASK: 99999999999999999999 is out of range (see: hvnotify explain --help)"),
    ("move 1", "DATE is required (see: hvnotify move --help)"),
    ("move 1 2026-13-01",
     'DATE: "2026-13-01" is no date; write it as 2026-04-30 (see: hvnotify move --help)'),
    ("send", "name notifications, or give --due (see: hvnotify send --help)"),
    ("send 5 x", 'NOTIFICATION: "x" is no number (see: hvnotify send --help)'),
    ("send 5 --due", "NOTIFICATION does not go with --due (see: hvnotify send --help)"),
    ("init --clients 5", "--clients requires --demo (see: hvnotify init --help)"),
    ("init --demo --clients 0", "--clients: 0 is not from 1 to 100000 (see: hvnotify init --help)"),
    ("init --demo --seed -1", '--seed: "-1" is no number (see: hvnotify init --help)'),
    ("init --province ZZ",
     '--province: "ZZ" is no Canadian province, such as ON or QC (see: hvnotify init --help)'),
    ("init --demo --country us --province ON", "--province does not go with --country us: firms "
     "have one in Canada alone (see: hvnotify init --help)"),
    ("init --country fr", '--country: "fr" is no country: ca or us (see: hvnotify init --help)'),
]


class UsageTest(ConsoleTest):
    def test_wrong_arguments_are_named(self):
        for line, words in WRONG:
            with self.subTest(line):
                self.expect(line.split(), err=words, code=2)

    def test_empty_database_name_is_refused(self):
        self.expect(["due"], database="", code=2,
                    err="--database: the value is empty (see: hvnotify --help)")

    def test_each_command_has_a_help_of_its_own(self):
        for command in COMMANDS.split(", "):
            with self.subTest(command):
                run = self.run_program(command, "--help")
                self.assertEqual((0, ""), (run.code, run.err))
                self.assertIn(f"Usage: hvnotify {command} [OPTIONS]", run.out)
                self.assertTrue(run.out.endswith("\nOptions of all commands: hvnotify --help\n"))

    def test_help_tells_commands_exit_codes_and_who_is_asked(self):
        run = self.run_program("--help")
        self.assertEqual(0, run.code)
        for command in COMMANDS.split(", "):
            self.assertRegex(run.out, rf"(?m)^  {command}  ")
        self.assertIn("0 done, 1 refused or nothing found, 2 usage, 3 database unusable", run.out)
        self.assertIn("--batch, or without a terminal, the procedure is left", run.out)

    def test_last_of_repeated_options_counts(self):
        once = self.run_program("due")
        self.expect(["--database", self.database, "--today", "2026-04-15", "due"], once.out,
                    database="nowhere.db", today="2001-01-01")

    def test_global_options_may_follow_the_command(self):
        self.assertEqual(self.run_program("--json", "due").out,
                         self.run_program("due", "--json").out)
