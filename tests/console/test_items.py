"""Reminders of appointments, time entries and tasks of the diary."""

from console import ConsoleTest

ITEMS = [("appointment", "Appointments", "AppointmentID", "ApptIDNum"),
         ("time-entry", "Dockets", "DocketID", "DocketIDNum")]


class ItemTest(ConsoleTest):
    def test_the_last_working_day_before_the_item(self):
        for kind, table, key, link in ITEMS:
            self.follow("the last working day before an item", kind=kind, table=table, key=key,
                        link=link)

    def test_what_is_armed_what_not_and_what_is_listed(self):
        self.follow_each("a time entry is for its own client", "a task is armed through its entry",
                         "items that cannot be armed", "the diary cut by date, client and kind")
