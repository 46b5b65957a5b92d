"""Reminders of appointments, time entries and tasks of the diary."""

from console import ConsoleTest

ITEMS = [("appointment", "Appointments", "AppointmentID", "ApptIDNum"),
         ("time-entry", "Dockets", "DocketID", "DocketIDNum")]


class ItemTest(ConsoleTest):
    def add_item(self, table, day="2026-05-04", company=-1, contact=-1):
        self.sql(f"INSERT INTO {table} (CompanyIDNum, ContactIDNum, Subject, DateFrom, TimeFrom, "
                 "TimeTo) VALUES (?, ?, 'Year end', ?, '1899-12-30 09:00:00', "
                 "'1899-12-30 09:45:00')", company, contact, day)
        return self.one(f"SELECT max({table.rstrip('s')}ID) FROM {table}")

    def company(self):
        return self.one("SELECT min(CompanyIDNum) FROM ClientData WHERE ShowThisClient=TRUE")

    def contact(self):
        return self.one("SELECT min(ContactID) FROM Contacts WHERE PersonalEmail<>''")

    def test_the_last_working_day_before_the_item(self):
        for kind, table, key, link in ITEMS:
            item = self.add_item(table, company=self.company())  # a Monday
            first = self.one("SELECT max(ClientNotificationID)+1 FROM ClientNotification")
            self.assertIn(f"letter  armed: notification {first}, to be sent 2026-05-01\n",
                          self.done(f"arm-item {kind} {item} --channel letter,phone"))
            self.assertEqual([(4, "2026-05-01"), (8, "2026-05-01")],
                             self.sql("SELECT NotificationType, date(NotificationDate) FROM "
                                      f"ClientNotification WHERE {link}=? ORDER BY 1", item))
            self.assertEqual((12, 1), self.sql(f"SELECT notifyType, ClientNotifiedFlag FROM {table} "
                                               f"WHERE {key}=?", item)[0])
            self.expect(f"arm-item {kind} {item} --channel letter",
                        f"letter  already armed: notification {first}, to be sent 2026-05-01\n")
            self.expect(f"disarm-item {kind} {item} --channel letter", "letter  disarmed\n")
            (listed,) = [row for row in self.done("--json appointments")
                         if (row["kind"], row["id"]) == (kind, item)]
            self.assertEqual(("2026-05-04", "09:00-09:45", ["phone"], "Year end"),
                             tuple(listed[name] for name in ("date", "time", "channels", "subject")))

    def test_a_time_entry_is_for_its_own_client(self):
        contact = self.contact()
        item = self.add_item("Dockets", contact=contact)
        self.sql("DELETE FROM Appointments WHERE AppointmentID=?", item)
        self.sql("INSERT INTO Appointments (AppointmentID, CompanyIDNum) VALUES (?, ?)", item,
                 self.company())
        (armed,) = self.done(
            f"--json arm-item time-entry {item} --channel email --date 2026-05-04")
        shown = self.done(f"--json show {armed['notification']}")
        self.assertEqual((contact, "2026-05-04"), (shown["contactId"], shown["date"]))
        self.assertEqual(self.one("SELECT DisplayName FROM Contacts WHERE ContactID=?", contact),
                         shown["client"])
        self.assertEqual("", armed["lacks"])
        firm = self.one("SELECT CompanyName FROM AccountantFirmInfo")
        self.assertIn(f"a time entry scheduled with {firm}  on Monday, May 4 2026 at 9:00 am.",
                      shown["text"])

    def test_a_task_is_armed_through_its_entry(self):
        entry = self.free_task()
        task = self.one("SELECT TaskID FROM Tasks WHERE ScheduleIDNum=?", entry)
        (armed,) = self.done(f"--json arm-item task {task} --channel fax")
        self.assertEqual([(entry, -1)], self.sql("SELECT ScheduleIDNum, TaskIDNum FROM "
                                                 "ClientNotification WHERE ClientNotificationID=?",
                                                 armed["notification"]))
        self.assertEqual(2, self.one("SELECT notifyType FROM Schedule WHERE ScheduleID=?", entry))
        self.refuses(f"arm-item task {task} --channel fax --date 2026-05-01",
                     "--date does not go with a task", 2)

    def test_the_list_is_cut_by_date_client_and_kind(self):
        company, client = self.sql("SELECT CompanyIDNum, ClientDataID FROM ClientData WHERE "
                                   "CompanyIDNum=?", self.company())[0]
        for day in ("2026-06-01", "2026-06-02 10:00:00", "2026-06-03"):
            self.add_item("Appointments", day, company)
        for since, days in [("", ["2026-06-01", "2026-06-02"]),
                            ("--since 2026-06-02", ["2026-06-02"])]:
            rows = self.done(f"--json appointments --client {client} --kind Appointment --until "
                             f"2026-06-02 {since}")
            self.assertEqual({company}, {row["companyId"] for row in rows})
            self.assertEqual(days, [row["date"] for row in rows if row["date"] > "2026-05-31"])
        self.refuses("appointments --since 2031-01-01", "nothing found in the diary")

    def test_refusals(self):
        past = self.add_item("Appointments", "2026-04-01", self.company())
        lonely = self.add_item("Appointments")
        timeless = self.add_item("Appointments", company=self.company())
        self.sql("UPDATE Appointments SET TimeTo=NULL WHERE AppointmentID=?", timeless)
        self.sql("INSERT INTO Tasks (Subject) VALUES ('Filing')")
        task = self.one("SELECT max(TaskID) FROM Tasks")
        ahead = self.add_item("Appointments", company=self.company())
        now = self.add_item("Appointments", "2026-04-15", self.company())
        self.assertIn("2026-04-14, which is past", self.done(f"arm-item appointment {now} --channel fax"))
        before = self.one("SELECT count(*) FROM ClientNotification")
        self.refuses_each("of items", past=past, lonely=lonely, timeless=timeless, ahead=ahead,
                          task=task)
        self.assertEqual(before, self.one("SELECT count(*) FROM ClientNotification"))
