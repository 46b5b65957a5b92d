"""Templates: carried into unsent notifications, and what they can be filled with."""

from collections import defaultdict
from pathlib import Path

from console import TEMPLATES, ConsoleTest, files_only

# How programs write «Company Name» and a mark that stands alone.
SPELLINGS = [
    b"{\\rtf1\\ansi\\ansicpg1252 (\\'abCompany Name\\'BB)}",
    b"{\\rtf1\\ansi\\uc1 (\\u171?Company {\\b Name}\\u187?)}",
    b"{\\rtf1\\ansi (\\u171\\'ab{\\b Comp}any\\~Name\\u187\\'bb)}",
    b"{\\rtf1\\ansi\\uc0 (\\u171 Company {\\i\\u78 ame}{\\cf1\\u187 })}",
    b"{\\rtf1\\mac (\\'c7Company Name\\'c8)}",
    b"{\\rtf1\\ansi (\xabCompany Name\xbb)}",
    b"{\\rtf1\\ansi (<{\\b <}Company Name>{\\b >})}",
    b"(\xabCompany\xa0Name\xbb)", "\ufeff(«\u202fCompany Name\u202f»)".encode(),
]


class Templates(ConsoleTest):
    def setUp(self):
        super().setUp()
        self.task = self.free_task()
        self.kind, self.name = self.sql(
            "SELECT ScheduleTypeID, ScheduleTypeName FROM ScheduleTypes t JOIN Schedule s ON "
            "s.totalNum=t.TotalNum AND s.scheduleNum=t.ScheduleNum WHERE ScheduleID=?", self.task)[0]
        self.company = self.one("SELECT CompanyName FROM Companies JOIN ClientData ON CompanyIDNum="
                                "CompanyID JOIN Schedule ON ClientNum=ClientDataID WHERE ScheduleID=?",
                                self.task)

    def file(self, content, name="new.rtf"):
        (self.folder / name).write_bytes(content if isinstance(content, bytes) else content.encode())
        return name

    def test_a_field_is_whole_however_it_is_written(self):
        for content in SPELLINGS:
            with self.subTest(content):
                self.expect(f"check {self.file(content)}", "The template is sound.\n")
                self.expect(f"merge {self.task} --template new.rtf --plain", f"({self.company})\n")

    def test_a_file_of_a_word_processor(self):
        self.file(Path(__file__).with_name("word_processor.rtf").read_bytes())
        self.expect(f"check new.rtf --task {self.task}", "The template is sound.\n")
        lines = self.done(f"merge {self.task} --template new.rtf --plain").split("\n")
        self.assertRegex(lines[0], "^Dear [A-Z].*,$")
        self.assertRegex(lines[1], r"^your [A-Z].* is due on [A-Z][a-z]+ \d+, 20\d\d\.$")
        self.assertRegex(lines[2], f"^{self.company} — [A-Za-z0-9].+$")

    def test_what_there_is_to_say_of_a_template(self):
        self.file("«Nonsense» for «Company Name» of «(Task Due Date, MMM)», «Nonsense»,\n"
                  "«Task Due Date» «Your Company Name» «Web Site» «(Todays Date, d)»")
        self.sql("UPDATE Companies SET WebSite=NULL")
        faults = ("The Morvane Pad did not recognize: «Nonsense» as a valid placeholder field name.\n"
                  "hvnotify: The date format of: 'MMM' is not valid.  Please see help for valid date "
                  "formats. (at: (Task Due Date, MMM))")
        empty = "Empty in every notification: «Task Due Date», «Your Company Name»\n"
        self.expect("check new.rtf", empty, faults, 1)
        self.expect(f"check new.rtf --task {self.task}",
                    f"{empty}Without a value for {self.company}: «Web Site»\n", faults, 1)

    def test_a_template_is_changed(self):
        standard, own = (f"{self.name} has a new template.\n", "Dear «Company Name»,\n")
        self.file(own)
        self.file("another one", "other.txt")
        before = self.done(f"template show {self.kind} --rtf")
        self.file(before, "former.rtf")
        for line, *told in [
                (f"set {self.kind} new.rtf --former other.txt", "", f"{self.name} has another "
                 f"template by now; see it: hvnotify template show {self.kind}", 1),
                (f"set {self.kind} new.rtf --former former.rtf", standard),
                (f"set {self.kind} new.rtf", f"{self.name} has this template already.\n"),
                (f"show {self.kind}", own),
                (f"test {self.kind} --task {self.task}",
                 f"The template is sound.\n\nDear {self.company},\n"),
                (f"reset {self.kind}", standard),
                (f"reset {self.kind}", f"{self.name} has this template already.\n"),
                ("show nothing", "", "there is no schedule type nothing (see the list: hvnotify "
                 "template list)", 1)]:
            with self.subTest(line):
                self.expect(f"template {line}", *told)
        run = self.run_program("template", "show", self.name.upper())
        self.assertIn("«(Task Due Date, dddd, mmmm d yyyy)»", run.out)
        self.assertEqual([(self.kind, True)], [
            (row["scheduleType"], row["standard"]) for row in self.done("--json template list")
            if row["standard"]])

    def test_a_template_with_faults_is_refused(self):
        self.file("Dear «Nonsense» and «(Task Due Date, x)»")
        run = self.run_program("template", "set", self.kind, "new.rtf")
        self.assertEqual((1, "", 3), (run.code, run.out, run.err.count("\n")))
        self.done(f"template set {self.kind} new.rtf --anyway")
        faulty = next(row for row in self.done("--json template list") if row["faults"])
        self.assertEqual((self.kind, 2), (faulty["scheduleType"], faulty["faults"]))

    @files_only("the other desk is a lock on a file")
    def test_one_desk_at_a_time_changes_templates(self):
        with self.claimed(TEMPLATES, 0):
            self.refuses(f"template set {self.kind} {self.file('new')}",
                         "another desk is at work on the templates; try again later")

    def test_edited_texts_are_spared(self):
        self.file(self.done(f"template show {self.kind} --rtf"), "former.rtf")
        armed = self.done(f"--json arm {self.task} --channel email,letter,phone")
        email, letter, phone = (row["notification"] for row in armed)
        self.sql("UPDATE ClientNotification SET NotificationSent=TRUE WHERE ClientNotificationID "
                 "NOT IN (?, ?, ?)", email, letter, phone)
        self.done(f"call {phone} --no-answer")
        self.done(f"template set {self.kind} {self.file('Dear «Company Name», on «(Todays Date, d)»')}")
        before, line = self.memos(), f"propagate {self.kind} --former former.rtf"
        later = {"today": "2026-04-16"}  # the texts have the day on which they were composed
        texts = self.done(f"--json {line} --dry-run", **later)["texts"]
        self.assertEqual([(email, False), (letter, False), (phone, True)],
                         [(text["notification"], text["edited"]) for text in texts])
        self.assertEqual(before, self.memos())
        told = self.done(f"{line} --keep-edited", **later)
        self.assertTrue(told.endswith(f"{self.name}: 2 composed anew, 1 edited since stay.\n"), told)
        after = self.memos()
        self.assertEqual({email, letter}, {row for row in after if before[row] != after[row]})
        told = self.done(f"{line} --keep-edited", **later)
        self.assertTrue(told.endswith("0 composed anew, 1 edited since stay, 2 already so.\n"), told)

    def memos(self):
        return dict(self.sql("SELECT ClientNotificationID, Memo FROM ClientNotification"))

    def test_a_changed_template_reaches_what_is_unsent(self):
        covered = defaultdict(dict)  # by the kind: unsent notifications and their tasks
        for kind, row, task in self.sql(
                "SELECT ScheduleTypeID, ClientNotificationID, ScheduleID FROM ScheduleTypes t JOIN "
                "Schedule s ON s.totalNum=t.TotalNum AND s.scheduleNum=t.ScheduleNum JOIN "
                "ClientNotification ON ScheduleIDNum=ScheduleID WHERE NotificationSent=FALSE"):
            covered[kind][row] = task
        kind = max(covered, key=lambda each: len(covered[each]))
        personal = min(covered[kind].values())
        self.sql("UPDATE Schedule SET ClientNum=-1 WHERE ScheduleID=?", personal)
        rewritten = {row for row, task in covered[kind].items() if task != personal}
        self.sql("UPDATE ScheduleTypes SET NotificationComment=? WHERE ScheduleTypeID=?",
                 "{\\rtf1\\ansi A wholly new reminder for \\'abCompany Name\\'bb of its duty.}", kind)
        before = self.memos()
        told = self.done(f"--json propagate {kind}")
        after = self.memos()
        changed = {row for row in before if before[row] != after[row]}
        self.assertEqual((rewritten, len(changed), len(covered[kind]) - len(changed)),
                         (changed, told["composed"], told["left"]))
        for row in changed:
            self.assertIn("A wholly new reminder for ", after[row])
            self.assertNotIn("Company Name", after[row])

    def test_kinds_are_listed_and_checked(self):
        kinds = self.done("--json propagate")
        self.assertEqual(len(kinds), self.one("SELECT COUNT(*) FROM ScheduleTypes"))
        for kind in (99999, -1):
            self.refuses(f"propagate {kind}",
                         f"there is no schedule type {kind} (see the list: hvnotify template list)")

    def test_fields_depend_on_the_use(self):
        fields = {use: {row["field"]: row for row in
                        self.done(f"--json fields --type {use}")}
                  for use in ("task", "appointment", "time-entry", "client")}
        self.assertEqual(fields["task"]["«Task Name»"]["type"], "text")
        self.assertEqual(fields["task"]["«(Task Due Date, mmmm d yyyy)»"]["type"], "date")
        for use, others in fields.items():
            self.assertEqual("«Task Name»" in others, use == "task")
            self.assertIn("«Company Name»", others)
        # What is listed is what a template may hold.
        template = self.folder / "all.rtf"
        template.write_text("{\\rtf1 " + " ".join(
            field.replace("«", "\\'ab").replace("»", "\\'bb") for field in fields["task"]) + "}")
        self.done("check all.rtf")
        self.assertEqual(self.done("fields"), self.done("fields --type TASK"))

    def test_fields_that_cannot_be_read_are_told(self):
        (self.folder / "template").write_text("Dear client, this is sound and without fields.")
        self.done("check template")
        self.sql("ALTER TABLE CustomFields RENAME TO Elsewhere")
        for line, subject in [("fields", "fields"), ("--json check template", "template")]:
            run = self.run_program(*line.split())
            self.assertEqual((1, ""), (run.code, run.out), line)
            self.assertRegex(run.err, f"^hvnotify: {subject}: .+\n$")
