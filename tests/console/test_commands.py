"""What the commands say and do when all goes well, whole outputs compared."""

from pathlib import Path

from console import NOTIFICATION, ConsoleTest, files_only

CHANNELS = ["email", "fax", "letter", "phone"]


class ArmTest(ConsoleTest):
    def rows_of(self, task):
        return self.sql("SELECT NotificationType, date(NotificationDate) FROM ClientNotification "
                        "WHERE ScheduleIDNum=? ORDER BY ClientNotificationID", task)

    def bits_of(self, task):
        return self.one("SELECT notifyType FROM Schedule WHERE ScheduleID=?", task)

    def test_all_channels_at_once(self):
        task = self.free_task()
        first = self.one("SELECT max(ClientNotificationID)+1 FROM ClientNotification")
        out = self.done(f"arm {task} --channel Email,fax --channel letter phone fax")
        rows = self.rows_of(task)
        self.assertEqual([1, 2, 4, 8], [channel for channel, _ in rows])
        self.assertEqual(1, len({day for _, day in rows}), "all on one day")
        self.assertEqual(15, self.bits_of(task))
        for number, line in enumerate(out.splitlines()):
            self.assertRegex(line, f"^{CHANNELS[number]:<7} armed: notification {first + number}, "
                             f"to be sent {rows[0][1]}")

    def test_again_changes_nothing_and_half_done_is_made_good(self):
        task, (notification,) = self.arm("letter")
        (row,) = self.rows_of(task)
        for bits, words in [(4, "already armed"), (0, "armed")]:
            self.sql("UPDATE Schedule SET notifyType=? WHERE ScheduleID=?", bits, task)
            self.expect(f"arm {task} --channel letter",
                        f"letter  {words}: notification {notification}, to be sent {row[1]}\n")
            self.assertEqual(([row], 4), (self.rows_of(task), self.bits_of(task)))

    def test_a_past_date_is_told(self):
        task = self.free_task()
        self.sql("UPDATE Schedule SET DueDate='2026-04-20' WHERE ScheduleID=?", task)
        (armed,) = self.done(f"--json arm {task} --channel letter", today="2026-04-18")
        self.assertTrue(armed["past"])
        self.expect(f"arm {task} --channel letter", today="2026-04-18",
                    out=f"letter  already armed: notification {armed['notification']}, to be sent "
                        f"{armed['date']}, which is past: it is due at once\n")

    def test_a_missing_address_is_told(self):
        task, (notification,) = self.arm("fax")
        for number, words in [("4165550100", ""), ("", "; it lacks a fax number")]:
            self.write(notification, Field4=number)
            self.assertRegex(self.done(f"arm {task} --channel fax"),
                             rf"to be sent [-0-9]+{words}\n$")

    def test_disarm(self):
        task, (email, fax) = self.arm("email,fax")
        day = self.rows_of(task)[0][1]
        self.expect(f"disarm {task} --channel fax", "fax     disarmed\n")
        self.refuses(f"disarm {task} --channel fax", f"task {task}, fax: not armed")
        self.assertEqual(([(1, day)], 1), (self.rows_of(task), self.bits_of(task)))
        self.done(f"send {email} --mark-only")
        self.refuses_each("of what was sent", task=task, email=email)
        self.expect(f"disarm {task} --channel email --force", "email   disarmed\n")
        self.assertEqual(([], 0), (self.rows_of(task), self.bits_of(task)))

    def test_one_refused_channel_does_not_hold_up_the_others(self):
        task, (fax,) = self.arm("fax")
        self.run_program("cancel", fax)
        run = self.run_program("arm", task, "--channel", "email,fax,letter")
        self.assertEqual((1, f"hvnotify: task {task}, fax: notification {fax} of this channel is "
                             "cancelled; disarm it first\n"), (run.code, run.err))
        self.assertEqual([2, 1, 4], [channel for channel, _ in self.rows_of(task)])

    @files_only("a server's claims are its own locks")
    def test_what_another_desk_is_at_work_on_does_not_hide_what_was_done(self):
        task, (fax, email) = self.arm("fax,email")
        busy = (f"task {task}, email: another desk is at work on notification {email}; try again "
                "later")
        with self.claimed(NOTIFICATION, email):
            self.expect(f"disarm {task} --channel fax,email", "fax     disarmed\n", busy, 1)
        self.assertEqual(([1], 1), ([row for row, _ in self.rows_of(task)], self.bits_of(task)))


class ChangeTest(ConsoleTest):
    def test_move(self):
        _, (fax,) = self.arm("fax")
        for day, note in [("2026-06-06", "; the firm is closed that day"), ("2026-04-15", ""),
                          ("2026-04-14", ", which is past: it is due at once")]:
            self.expect(f"move {fax} {day}", f"notification {fax} by fax: pending, date {day}{note}\n")
        self.expect(f"--json move {fax} 2026-05-01",
                    f'{{\n  "notification": {fax},\n  "channel": "fax",\n  "state": "pending",\n'
                    '  "date": "2026-05-01"\n}\n')

    def test_refresh_follows_the_due_date(self):
        task, ids = self.arm("fax,phone")
        self.done(f"move {ids[0]} 2026-04-16")
        days = [row["date"] for row in self.done(f"--json refresh {task}")]
        self.assertEqual([self.done(f"--json explain {task}")["date"]] * 2, days)
        free = self.free_task()
        self.refuses(f"refresh {free}", f"task {free} has no notifications")

    def test_done_rows_stay(self):
        _, (fax, phone, letter) = self.arm("fax,phone,letter")
        self.done(f"send {fax} --mark-only")
        self.done(f"move {phone} 2026-05-04")
        self.expect(f"cancel {phone}",
                    f"notification {phone} by phone: cancelled, date 2026-05-04\n")
        self.write(letter, NotificationSentStatus=3)
        self.refuses_each("of what is done", fax=fax, phone=phone, letter=letter)
        self.done(f"cancel {letter}")
        self.assertEqual([(1, 2), (1, 3), (1, 3)],
                         [self.state(row) for row in (fax, phone, letter)])


class CallTest(ConsoleTest):
    def waits(self, phone, memo):
        self.write(phone, Field1="Jo", Field2="555-0100", Field3=None, Memo=memo,
                   NotificationDate="2001-01-01", NotificationSent=False, NotificationSentStatus=1)

    def test_the_worklist(self):
        others = [row["notification"] for row in self.done("--json due") if row["channel"] == "phone"]
        _, (phone,) = self.arm("phone")
        self.waits(phone, "{\\rtf1 Call {\\b now}\\par}")
        shown = self.done(f"--json show {phone}")
        self.assertEqual([phone, *others],
                         [row["notification"] for row in self.done("--json calls")])
        self.expect("calls", "No call is due.\n", today="2000-12-31")
        self.expect("calls", today="2001-01-01", out=(
            f"Notification {phone}, due 2001-01-01\nTo:             Jo\nPhone number:   555-0100\n"
            f"Times to call:\nClient:         {shown['client']}\nTask:           {shown['name']}\n"
            f"Called:         hvnotify call {phone} --made\n"
            f"No answer:      hvnotify call {phone} --no-answer\n\nCall now\n"))

    def test_what_came_of_a_call(self):
        _, (phone, fax) = self.arm("phone,fax")
        for memo, text in [("{\\rtf1 Call {\\b now}\\par}", "Call now\n"), ("{\\rtf1 Now}", "Now\n"),
                           ("Now\r\n", "Now\n"), ("Now", "Now\n"), (None, "")]:
            self.waits(phone, memo)
            lines = [self.done(f"--json call {phone} {result}")["line"] for result in
                     ("--no-answer", "--no-answer --note Caf\xe9{«Name»}", "--made --note Done")]
            for line, words in zip(lines, ("no answer", "no answer; Caf\xe9{«Name»}", "called; Done")):
                self.assertRegex(line, rf"^2026-04-15 \d\d:\d\d:\d\d, \w.+: {words}$")
            shown = self.done(f"--json show {phone}")["text"].replace("\r\n", "\n")
            self.assertEqual((text + "\n".join(lines), (1, 2)), (shown, self.state(phone)))
        self.refuses_each("of calls", phone=phone, fax=fax)
        self.write(phone, NotificationSentStatus=1)
        self.refuses(f"call {phone} --no-answer", f"notification {phone} was interrupted while "
                     "being sent; nothing was noted")
        self.done(f"call {phone} --made")
        self.assertEqual([(1, 2), (0, 1)], [self.state(phone), self.state(fax)])


class ListTest(ConsoleTest):
    def test_due_is_unsent_and_dated_today_or_before(self):
        wanted = self.sql("SELECT ClientNotificationID, date(NotificationDate) FROM "
                          "ClientNotification WHERE NotificationSent=FALSE AND NotificationDate<="
                          "'2026-04-15' ORDER BY NotificationDate, ClientNotificationID")
        rows = [(row["notification"], row["date"]) for row in self.done("--json due")]
        self.assertEqual((wanted, True), (rows, len(rows) > 1))
        self.expect("due", "Nothing is due.\n", today="2001-01-01")
        self.expect("--json due", "[]\n", today="2001-01-01")

    def test_due_as_a_table(self):
        keep = self.due_email()
        self.sql("DELETE FROM ClientNotification WHERE NotificationSent=FALSE AND "
                 "ClientNotificationID<>?", keep)
        company = "A very long name of a company that goes on beyond forty characters Inc."
        self.sql("UPDATE Companies SET CompanyName=?", company)
        self.write(keep, ScheduleIDNum=-1, ApptIDNum=-1, TaskIDNum=-1, DocketIDNum=-1,
                   ContactIDNum=-1, CompanyIDNum=self.one("SELECT min(CompanyID) FROM Companies"),
                   NotificationDate="2026-04-01")
        self.expect("due", "NOTIFICATION  DATE        CHANNEL  CLIENT  TASK\n"
                           f"{keep:<12}  2026-04-01  email    {company}  \n")

    def test_tasks(self):
        wanted = self.sql("SELECT ScheduleID, notifyType FROM Schedule WHERE Closed=FALSE AND "
                          "DueDate<='2026-05-31' ORDER BY DueDate, ScheduleID")
        rows = self.done("--json tasks --until 2026-05-31")
        names = dict(zip(CHANNELS, (1, 2, 4, 8)))
        self.assertEqual(wanted, [(row["task"], sum(names[name] for name in row["channels"]))
                                  for row in rows])
        client, contact = rows[0]["clientId"], rows[0]["contactId"]
        own = self.done("--json tasks " + (f"--client {client}" if client >= 0 else
                                           f"--contact {contact}"))
        self.assertIn(rows[0], own)
        self.assertEqual({rows[0]["client"]}, {row["client"] for row in own})

    def test_show_names_the_fields_of_each_channel(self):
        task, ids = self.arm("email,fax,letter,phone")
        fields = [["To", "Cc", "Bcc", "Subject"],
                  ["To", "From", "Sender's fax", "Receiver's fax", "Pages", "Subject"], None,
                  ["To", "Phone number", "Times to call"]]
        for notification, channel, names in zip(ids, CHANNELS, fields):
            shown = self.done(f"--json show {notification}")
            self.assertEqual((channel, "pending", task),
                             (shown["channel"], shown["state"], shown["task"]))
            self.assertEqual(names, list(shown["fields"]) if names else shown.get("fields"))

    def test_show_as_text(self):
        _, (phone,) = self.arm("phone")
        self.write(phone, Field1="Jo", Field2="555-0100", Field3=None,
                   Memo="{\\rtf1\\ansi Call \\b now\\b0\\par\r\n}", NotificationDate="2026-06-01")
        shown = self.done(f"--json show {phone}")
        head = (f"Notification {phone} by phone, pending\nClient:         {shown['client']}\n"
                f"Task:           {shown['name']}\nDate:           2026-06-01\n"
                "To:             Jo\nPhone number:   555-0100\nTimes to call:\n\n")
        self.expect(f"show {phone}", head + "Call now\n")
        self.expect(f"show {phone} --rtf", head + "{\\rtf1\\ansi Call \\b now\\b0\\par\n}\n")


class ExplainTest(ConsoleTest):
    def explain(self, due):
        task = self.free_task()
        self.sql("UPDATE Schedule SET totalNum=103, scheduleNum=1, DueDate=?, scheduleName='T', "
                 "notifyType=0 WHERE ScheduleID=?", due, task)
        return task, self.done(f"--json explain {task}")

    def test_as_data(self):
        for due in ("2026-10-15", "2026-07-06", "2027-01-06", "2026-09-12"):
            _, why = self.explain(due)
            days = [day["day"] for day in why["walk"]]
            counted = [day for day in why["walk"] if day["verdict"] == "working day"]
            self.assertEqual((due, abs(why["days"])), (why["due"], len(counted)))
            self.assertEqual(why["calculated"], (why["settling"] or why["walk"])[-1]["day"])
            self.assertEqual(sorted(days, reverse=True), days)

    def test_whole_text(self):
        task, _ = self.explain("2026-10-15")
        explained = Path(__file__).with_name("explained.txt").read_text(encoding="utf-8")
        self.assertEqual(explained, self.done(f"explain {task}").split("\n", 1)[1])

    def test_agrees_with_arming_and_knows_the_sibling(self):
        task, _ = self.explain("2026-10-15")
        (fax,) = self.done(f"--json arm {task} --channel fax")
        self.assertEqual("2026-10-07", fax["date"])
        self.done(f"move {fax['notification']} 2026-10-10")  # a Saturday
        why = self.done(f"--json explain {task}")
        self.assertEqual(("fax", "2026-10-07", "2026-10-09"),
                         (why["sibling"], why["calculated"], why["date"]))
        (letter,) = self.done(f"--json arm {task} --channel letter")
        self.assertEqual("2026-10-09", letter["date"])
