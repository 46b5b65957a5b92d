"""What the commands say and do when all goes well, whole outputs compared."""

import csv
import io
from datetime import date, timedelta

from console import ENGINE, ConsoleTest, files_only


class ArmTest(ConsoleTest):
    def test_arming_and_disarming(self):
        self.follow_each("arming all channels at once", "arming again", "arming many tasks", "arming late",
                         "arming without an address", "arming without a kind to take the text from",
                         "arming beside a channel that is refused", "disarming")

    def test_what_moves_and_what_stays(self):
        self.follow_each("moving", "refreshing", "what is done stays")

    def test_calls(self):
        self.follow_each("the worklist of calls", "what came of a call",
                         "a call is noted below a line of its own")

    @files_only("a server's claims are its own locks, and its triggers others")
    def test_beside_other_desks(self):
        self.follow_each("another desk does not hide what was done", "what a colleague is writing stays",
                         "one desk at a time prints", "one desk at a time changes templates")


class ListTest(ConsoleTest):
    demo = [*ConsoleTest.demo, "--past-notifications", "300"]

    def test_what_is_listed(self):
        self.follow_each("what is due until a day", "what is due", "nothing due",
                         "notifications that are named", "clients and staff by a part of their name",
                         "tasks until a day and of a client", "the days on which the firm is closed")

    def test_notifications_of_what_a_member_of_staff_does(self):
        rows = self.done("--json notifications")
        name = next(row["assigned"] for row in rows if row["assigned"] and row["task"] < 0)
        run = self.run_program("--json", "notifications", "--assigned", name.upper())
        self.assertEqual([row for row in rows if row["assigned"] == name], run.json())

    def test_the_day_agrees_with_the_lists(self):
        call, email, fax, letter = (self.one(
            "SELECT min(ClientNotificationID) FROM ClientNotification WHERE NotificationSent=FALSE "
            "AND NotificationDate<'2026-05-01' AND NotificationType=?", kind) for kind in (8, 1, 2, 4))
        self.write(call, NotificationDate="2026-04-14", Field2="555")
        self.write(email, NotificationDate="2026-04-14", Field1=None)
        self.write(fax, NotificationDate="2026-04-17", Field4="555")
        self.write(letter, NotificationDate="2026-04-15", NotificationSentStatus=3)
        self.done(f"call {call} --no-answer --note later")
        self.sql("UPDATE ClientNotification SET SentTime='2026-04-15 09:00' WHERE "
                 "ClientNotificationID=(SELECT max(ClientNotificationID) FROM ClientNotification "
                 "WHERE NotificationSent=TRUE AND NotificationSentStatus=2)")
        day = self.done("--json day")
        unsent = "SELECT {} FROM ClientNotification WHERE NotificationSent=FALSE AND {}"
        days = {"overdue": "NotificationDate<'2026-04-15'", "today": "NotificationDate='2026-04-15'",
                "thisWeek": "NotificationDate>'2026-04-15' AND NotificationDate<'2026-04-20'"}
        rows = {row["notification"]: row for row in self.done("--json notifications")}
        for group, condition in days.items():
            wanted = [number for number, in self.sql(
                unsent.format("ClientNotificationID", condition) +
                " ORDER BY NotificationDate, ClientNotificationID")]
            lines = day[group]["notifications"]
            self.assertEqual((wanted, len(wanted), True), (
                [line["notification"] for line in lines], day[group]["count"], bool(wanted)), group)
            for line in lines:
                shared = ("date", "channel", "client", "task", "name")
                self.assertEqual({key: rows[line["notification"]][key] for key in shared},
                                 {key: line[key] for key in shared})
                if line["task"] > 0:
                    self.assertEqual(line["due"], self.one(
                        "SELECT date(DueDate) FROM Schedule WHERE ScheduleID=?", line["task"]))
        states = {line["notification"]: line["state"] for group in days
                  for line in day[group]["notifications"]}
        self.assertEqual(["call again", "no address", "scheduled", "interrupted"],
                         [states[each] for each in (call, email, fax, letter)])
        self.assertEqual(len(self.done("--json due")), sum(day["due"].values()))
        sent = self.one("SELECT count(*) FROM ClientNotification WHERE SentTime>='2026-04-15' AND "
                        "NotificationSentStatus=2")
        self.assertEqual((12, "2026-04-13", "2026-06-29", max(sent, 1)),
                         (len(day["weeks"]), day["weeks"][0]["monday"], day["weeks"][-1]["monday"],
                          day["sentToday"]))
        for week in day["weeks"]:
            for name, kind in zip(("email", "fax", "letter", "phone"), (1, 2, 4, 8)):
                wanted = self.one(unsent.format("count(*)", "NotificationType=? AND NotificationDate>="
                                                "'2026-04-15' AND NotificationDate>=? AND "
                                                "NotificationDate<?"), kind, week["monday"],
                                  str(date.fromisoformat(week["monday"]) + timedelta(7)))
                self.assertEqual(wanted, week[name], (week["monday"], name))

    def test_the_day_of_one_member_of_staff(self):
        rows = self.done("--json notifications --state due")
        clients = dict(self.sql("SELECT CompanyName, AccountantName FROM Companies UNION SELECT "
                                "DisplayName, AccountantName FROM Contacts"))
        some = 0
        for user, name in self.sql("SELECT ContactID, DisplayName FROM AccountantEmployeeInfo"):
            for option, whose in [("--mine", lambda row: row["assigned"]),
                                  ("--my-clients", lambda row: clients[row["client"]])]:
                wanted = [row["notification"] for row in rows if whose(row) == name]
                day = self.done(f"--user {user} --json day {option}")
                lines = [*day["overdue"]["notifications"], *day["today"]["notifications"]]
                self.assertEqual((wanted, len(wanted)), (
                    [line["notification"] for line in lines], sum(day["due"].values())), option)
                some += 0 < len(wanted) < len(rows)
        self.assertGreater(some, 2)

    def test_notifications_sort_by_every_column(self):
        odd = self.one("SELECT min(ClientNotificationID) FROM ClientNotification")
        self.write(odd, NotificationDate=None, NotificationSentStatus=7, NotificationSent=False)
        self.assertEqual("pending (unknown status 7)",
                         self.done("--json notifications --limit 1")[0]["state"])
        states = ["pending", "sent", "cancelled", "pending (unknown status 7)"]
        keys = {"task": "name", "sent": "sentTime", "sent-by": "sentBy"}
        for word in self.run_program("notifications", "--sort", "x").err.split("is not ")[1].split(
                " (see")[0].replace(" or ", ", ").split(", "):
            key = keys.get(word, word)
            rows = self.done(f"--json notifications --sort {word}")
            place = states.index if word == "state" else lambda value: (
                value if word == "notification" else (value or "").lower().encode())
            wanted = sorted(rows, key=lambda row: (place(row[key]), row["notification"]))
            self.assertEqual(wanted, rows, word)
            last = self.done(f"--json notifications --sort {word} --descending --limit 3")
            self.assertEqual(wanted[:-4:-1], last, word)

    def test_notifications_for_a_spreadsheet_and_as_a_table(self):
        self.sql("UPDATE Companies SET CompanyName=?", 'Smith, "Sons" &\r\nDaughters')
        listed = self.done("--json notifications")
        self.assertGreater(len(listed), 300)
        text = self.run_program("notifications", "--csv", text=False).out.decode()
        rows = list(csv.DictReader(io.StringIO(text, newline="")))
        self.assertEqual([{key: "" if value is None else str(value) for key, value in row.items()}
                          for row in listed], rows)
        self.assertEqual("\r\n", text[-2:])
        table = self.done("notifications").split("\n")[:-1]
        self.assertEqual([str(row["notification"]) for row in listed],
                         [line.split(" ", 1)[0] for line in table[1:]])
        self.assertEqual("NOTIFICATION  DATE        CHANNEL  STATE", table[0][:40].rstrip())

    def test_what_is_shown_and_explained(self):
        self.follow_each("the fields of each channel", "a notification shown", "a date explained",
                         "the steps of a date as data")

    def test_a_demo_firm_for_every_place(self):
        for place in [*(f"--province {name}" for name in "AB BC MB ON SK QC NS NB NL PE".split()),
                      "--country us"]:
            firm = ENGINE.empty(self, f"{place.split()[1]}.db")
            self.expect(f"init --demo --clients 2 {place}", f"Made {firm} with 2 clients.\n",
                        database=firm)
            for row in self.done("--json tasks", database=firm)[:1]:
                self.assertNotRegex(self.done(f"merge {row['task']} --plain", database=firm),
                                    "[«»]|\\\\'", place)
