"""What is typed wrong is answered in plain words, with exit code 2 and nothing on standard output."""

from console import ConsoleTest

COMMANDS = ("init, copy, role, tasks, arm, disarm, appointments, arm-item, disarm-item, show, due, "
            "merge, check, explain, send, print, calls, call, cancel, move, refresh, address, recipients, "
            "contact-default, propagate, fields")
NAMES = COMMANDS.split(", ")
NO_DATE = "is no date; write it as 2026-04-30"

# What is typed -> the answer; behind it stands the help of the program, or of the command.
OF_THE_PROGRAM = f"""
 -> name a command: {COMMANDS}
foo -> there is no command "foo"; commands: {COMMANDS}
due --today -> --today: a value is missing
due --today 2026-02-30 -> --today: "2026-02-30" {NO_DATE}
due --today tomorrow -> --today: "tomorrow" {NO_DATE}
due --today 10:30 -> --today: "10:30" {NO_DATE}
due --user x -> --user: "x" is no number
"""
OF_THE_COMMAND = f"""
--nope due -> there is no option "--nope"
due --nope -> there is no option "--nope"
due extra -> "extra" is one argument too many
tasks --until 30 -> --until: "30" {NO_DATE}
tasks --client 1.5 -> --client: "1.5" is no number
arm -> TASK is required
arm 5 -> --channel is required
arm 5 --channel pigeon -> --channel: "pigeon" is not email, fax, letter or phone
arm 5 --channel email,1 -> --channel: "1" is not email, fax, letter or phone
show abc -> NOTIFICATION: "abc" is no number
show 12x -> NOTIFICATION: "12x" is no number
show 2147483648 -> NOTIFICATION: 2147483648 is out of range
show -2147483649 -> NOTIFICATION: -2147483649 is out of range
explain 99999999999999999999 -> TASK: 99999999999999999999 is out of range
move 1 -> DATE is required
move 1 2026-13-01 -> DATE: "2026-13-01" {NO_DATE}
send -> name notifications, or give --due
send 5 x -> NOTIFICATION: "x" is no number
call 5 -> give --made or --no-answer
call 5 --made --no-answer -> --made does not go with --no-answer
call 5 --made --note \udcff -> --note: the text is not UTF-8
send 5 --due -> NOTIFICATION does not go with --due
init --clients 5 -> --clients requires --demo
init --demo --clients 0 -> --clients: 0 is not from 1 to 100000
init --demo --seed -1 -> --seed: "-1" is no number
init --province ZZ -> --province: "ZZ" is no Canadian province, such as ON or QC
init --demo --country us --province ON -> --province does not go with --country us: firms have \
one in Canada alone
init --country fr -> --country: "fr" is no country: ca or us
address firm 1 -> CLIENT: "firm" is not company or contact
recipients contact 1 --kind post -> --kind: "post" is not email, fax, phone or name
contact-default 1 -1 -> CONTACT: -1 is not from 0 to 2147483647
arm-item meeting 1 --channel email -> KIND: "meeting" is not appointment, time-entry or task
"""


class UsageTest(ConsoleTest):
    def test_wrong_arguments_are_named(self):
        for faults, is_of_command in (OF_THE_PROGRAM, False), (OF_THE_COMMAND, True):
            for line, words in (fault.split(" -> ") for fault in faults.strip("\n").split("\n")):
                command = next((word for word in line.split() if word in NAMES), "")
                shown = f"hvnotify {command} --help" if is_of_command else "hvnotify --help"
                self.refuses(line, f"{words} (see: {shown})", 2)
        self.refuses("due", "--database: the value is empty (see: hvnotify --help)", 2, database="")

    def test_help_tells_commands_exit_codes_and_who_is_asked(self):
        shown = self.done("--help")
        for command in NAMES:
            with self.subTest(command):
                self.assertRegex(shown, rf"(?m)^  {command}  ")
                own = self.done(f"{command} --help")
                self.assertIn(f"Usage: hvnotify {command} [OPTIONS]", own)
                self.assertTrue(own.endswith("\nOptions of all commands: hvnotify --help\n"))
        self.assertIn("0 done, 1 refused or nothing found, 2 usage, 3 database unusable", shown)
        self.assertIn("--batch, or without a terminal, the procedure is left", shown)

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
