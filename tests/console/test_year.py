"""A client's tasks of a year, armed at once."""

from console import ConsoleTest, files_only

FAMILIES = ["gst", "pst", "payroll-remittance", "year-end", "corporate-tax", "wsib", "eht", "law",
            "other", "payroll", "custom", "federal-payroll", "projects", "bookkeeping"]


class YearTest(ConsoleTest):
    def setUp(self):
        super().setUp()
        self.client, self.year = self.sql(
            "SELECT ClientNum, Year FROM Schedule WHERE Closed=FALSE AND ClientNum>=0 GROUP BY "
            "ClientNum, Year ORDER BY COUNT(*) DESC, ClientNum, Year LIMIT 1")[0]
        self.sql("DELETE FROM ClientNotification")
        self.sql("UPDATE Schedule SET notifyType=0")
        self.tasks = [row[0] for row in self.sql(
            "SELECT ScheduleID FROM Schedule WHERE Closed=FALSE AND ClientNum=? AND Year=? "
            "ORDER BY DueDate, ScheduleID", self.client, self.year)]
        self.assertGreater(len(self.tasks), 1)
        self.line = f"year {self.client} --year {self.year} --channel email,letter"

    def rows(self):
        return self.sql("SELECT * FROM ClientNotification ORDER BY ClientNotificationID")

    def armed(self):
        return [row[0] for row in self.sql(
            "SELECT ScheduleID FROM Schedule WHERE notifyType=5 ORDER BY DueDate, ScheduleID")]

    def test_arms_each_task_once_and_says_so_in_a_line(self):
        self.follow("each task of a year is armed once and told of in a line")

    def test_what_is_there_already_stays_as_it_is(self):
        self.follow("a year beside what is there", first=self.tasks[0], line=self.line)
        self.assertEqual(2 * len(self.tasks) + 1, len(self.rows()))

    @files_only("the triggers are written as SQLite has them")
    def test_a_pass_that_fails_leaves_what_was_there(self):
        first, second = self.tasks[:2]
        self.done(f"arm {first} --channel email")
        before = [row[0] for row in self.rows()]
        self.sql(f"""CREATE TRIGGER Doubled AFTER INSERT ON ClientNotification WHEN
                     NEW.ScheduleIDNum={first} BEGIN INSERT INTO ClientNotification
                     (ClientNotificationID, ScheduleIDNum, NotificationType)
                     VALUES (900000, {first}, 1); END""")
        self.sql(f"""CREATE TRIGGER Failing BEFORE INSERT ON ClientNotification WHEN
                     NEW.ScheduleIDNum={second} BEGIN SELECT RAISE(ABORT, 'no room'); END""")
        self.assertEqual(1, self.run_program(*self.line.split()).code)
        self.assertEqual((before, [(first,)]), (
            [row[0] for row in self.rows()],
            self.sql("SELECT ScheduleID FROM Schedule WHERE notifyType<>0")))

    def test_kinds_and_personal_clients(self):
        for number, word in enumerate(FAMILIES, 101):
            with self.subTest(word):
                tasks = self.sql("SELECT ScheduleID, ContactIDNum, Year, ClientNum FROM Schedule "
                                 "WHERE Closed=FALSE AND totalNum=? ORDER BY ScheduleID LIMIT 1",
                                 number)
                for task, contact, year, client in tasks:
                    who = client if client is not None and client >= 0 else f"--contact {contact}"
                    rows = self.done(f"--json year {who} --year {year} --kind {word} "
                                     "--channel phone")
                    kinds = {self.one("SELECT totalNum FROM Schedule WHERE ScheduleID=?",
                                      row["task"]) for row in rows}
                    self.assertEqual({number}, kinds)
                    self.assertIn(task, [row["task"] for row in rows if row["isNew"]])

    @files_only("a server's claims are its own locks")
    def test_nothing_is_done_while_another_desk_is_at_work(self):
        with self.claimed("task", self.tasks[-1]):
            self.refuses(self.line, f"another desk is at work on task {self.tasks[-1]}; try again "
                                    "later")
        self.assertEqual([], self.rows() + self.armed())

    def test_refusals(self):
        company = self.one("SELECT CompanyIDNum FROM ClientData WHERE ClientDataID=?", self.client)
        self.follow("years that cannot be armed", client=self.client, company=company, line=self.line)
