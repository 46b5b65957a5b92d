"""Templates: carried into unsent notifications, and what they can be filled with."""

from collections import defaultdict

from console import ConsoleTest


class Templates(ConsoleTest):
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
                         f"there is no schedule type {kind} (see the list: hvnotify propagate)")

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
