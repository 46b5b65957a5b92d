"""Templates: carried into unsent notifications, and what they can be filled with."""

from console import ConsoleTest


class Templates(ConsoleTest):
    def kind_of_unsent(self):
        """The ScheduleTypes row that most unsent notifications follow."""
        return self.sql(
            "SELECT ScheduleTypeID, t.TotalNum, t.ScheduleNum FROM ScheduleTypes t JOIN Schedule s "
            "ON s.totalNum=t.TotalNum AND s.scheduleNum=t.ScheduleNum JOIN ClientNotification n ON "
            "n.ScheduleIDNum=s.ScheduleID WHERE n.NotificationSent=FALSE AND s.ClientNum>=0 GROUP BY 1 "
            "ORDER BY COUNT(*) DESC LIMIT 1")[0]

    def memos(self):
        return dict(self.sql("SELECT ClientNotificationID, Memo FROM ClientNotification"))

    def test_a_changed_template_reaches_what_is_unsent(self):
        kind, total, number = self.kind_of_unsent()
        self.sql("UPDATE ScheduleTypes SET NotificationComment=? WHERE ScheduleTypeID=?",
                 "{\\rtf1\\ansi A wholly new reminder for \\'abCompany Name\\'bb of its duty.}", kind)
        before = self.memos()
        told = self.done(f"--json propagate {kind}")
        after = self.memos()
        changed = {row for row in before if before[row] != after[row]}
        covered = {row for (row,) in self.sql(
            "SELECT ClientNotificationID FROM ClientNotification JOIN Schedule ON "
            "ScheduleIDNum=ScheduleID WHERE NotificationSent=FALSE AND ClientNum>=0 AND totalNum=? AND "
            "scheduleNum=?", total, number)}
        self.assertEqual(changed, covered)
        self.assertGreater(len(covered), 0)
        self.assertEqual(told["composed"], len(covered))
        for row in covered:
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
