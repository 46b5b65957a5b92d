"""A firm's own data, from files and into files."""

import csv
import io
import os
import subprocess

from console import ENGINE, ConsoleTest, call, command

KINDS = ["kinds", "holidays", "staff", "companies", "contacts", "links", "tasks"]


class ExchangeTest(ConsoleTest):
    def setUp(self):
        super().setUp()
        self.young = ENGINE.empty(self, "young.db")
        self.done(f"--database {self.young} init --firm Ours")

    def bring(self, *arguments, code=0, says=(), by=("import",)):
        run = call(self.folder, *by, *arguments, database=self.young)
        self.assertEqual(code, run.code, run.out + run.err)
        for words in says:
            self.assertIn(words, run.out + run.err)
        return run

    def export(self, kind, database):
        (self.folder / "exported.csv").unlink(missing_ok=True)
        self.done(f"--database {database} export {kind} --to exported.csv")
        return (self.folder / "exported.csv").read_bytes().decode()

    def entries(self, kind, *headings):
        """What the young firm has below these headings, a line each."""
        rows = csv.DictReader(io.StringIO(self.export(kind, self.young), newline=""))
        return [",".join(row[heading] for heading in headings) for row in rows]

    def test_what_one_firm_writes_another_one_reads(self):
        self.sql("UPDATE Companies SET CompanyName=?, Address1=?", " Padded ", "  lead\nline")
        self.sql("UPDATE AccountantEmployeeInfo SET BusinessNotes=?", "two\n\n")
        self.sql("UPDATE ScheduleTypes SET NotificationComment=?", "{\\rtf1 \"x\"}\r\n")
        files = [self.file(f"{kind}.csv", self.export(kind, self.database)) for kind in KINDS]
        self.done(f"--database {self.young} import {' '.join(reversed(files))}")
        for kind, file in zip(KINDS, files):
            written = (self.folder / file).read_bytes().decode()
            self.assertEqual(sorted(written.split("\n")),
                             sorted(line for line in self.export(kind, self.young).split("\n")
                                    if kind != "staff" or not line.startswith("Administrator,")))
        again = self.done(f"--database {self.young} import {' '.join(files)}")
        self.assertNotRegex(again, r"[1-9]\d* (new|changed|refused)")

    def test_what_is_read_told_and_refused(self):
        for title in ("what people write is read", "changes are told first, and one fault keeps all out",
                      "headings and cells of other programs", "what is wrong with a file"):
            self.follow(title, young=self.young)
            self.setUp()

    def test_a_line_of_an_address_may_go_on(self):
        self.bring(self.file("companies.csv", 'Company,Address\nTwo,"12 Main\nSuite 5"\n'))
        company = self.bring("clients", by=("--json",)).json()[0]["company"]
        address = self.bring(company, "--rtf", by=("address", "company")).out
        self.assertRegex(address, r"12 Main\\par *\n*Suite 5\\par")

    def test_one_file_may_change_a_default_contact_twice(self):
        self.bring(self.file("companies.csv", "Name\nAcme\n"))
        self.bring(self.file("contacts.csv", "Name\nAnn Lee\nBob Roy\n"))
        for lines in ("Ann Lee,Acme,yes\nBob Roy,Acme,no\n", "Bob Roy,Acme,yes\nAnn Lee,Acme,yes\n"):
            self.bring(self.file("links.csv", "Contact,Company,Default\n" + lines))
            self.assertEqual(["Ann Lee,yes", "Bob Roy,no"],
                             sorted(self.entries("links", "Contact", "Default")))

    def test_counts_refusals_beyond_those_that_are_told(self):
        many = self.file("companies.csv", "Name,Colour" + ",x" * 30 + "\n" + "New Inc.\n" * 10003)
        run = self.bring(many, code=1, says=["line 10002: New Inc., refused", "hvnotify: 2 more are refused",
                                             " and 11 more"])
        self.assertEqual(10001, len(run.err.splitlines()))

    def started(self, file):
        return subprocess.Popen(command("import", file, database=self.young), cwd=self.folder,
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True)

    def test_an_import_that_is_killed_leaves_nothing_and_two_at_once_bring_each_client_once(self):
        names = [f"Client {number}" for number in range(20000)]
        os.mkfifo(self.folder / "companies.csv")
        with self.started("companies.csv") as run, open(self.folder / "companies.csv", "w") as pipe:
            pipe.write("\n".join(["Name", *names]))
            pipe.flush()
            run.kill()
        self.assertEqual([], self.entries("companies", "Company Name"))
        file = self.file("the companies.csv", "\n".join(["Name", *names[:300]]))
        told = [run.communicate()[0] for run in [self.started(file) for _ in range(3)]]
        self.assertEqual(1, len([text for text in told if " 300 new" in text]), told)
        self.assertEqual(sorted(names[:300]), sorted(self.entries("companies", "Company Name")))

    def test_reads_holidays_of_calendars(self):
        events = ["DTSTART;VALUE=DATE:20280101\nDTEND;VALUE=DATE:20280103\nSUMMARY:New Year\\, fo\n r all",
                  "DTSTART;VALUE=DATE:20280102\nSUMMARY:Day After",
                  "DTSTART;TZID=Paris:20281224T000000\nDTEND;TZID=Paris:20281226T000000\nSUMMARY:Noël",
                  "DTSTART:20280704T100000Z\nDTEND:20280704T110000Z\nSUMMARY:Meeting",
                  "DTSTART;VALUE=DATE:20280230\nSUMMARY:Nowhere", "DTSTART:20280701T000000\nRRULE:FREQ=SECONDLY",
                  "DTSTART;VALUE=DATE:20280705\nSTATUS:CANCELLED\nSUMMARY:Off",
                  "UID:l\nRECURRENCE-ID;VALUE=DATE:20270906\nDTSTART;VALUE=DATE:20270906\nSTATUS:CANCELLED",
                  "UID:l\nDTSTART;VALUE=DATE:19900901\nRRULE:FREQ=YEARLY;BYDAY=1MO;BYMONTH=9;UNTIL=20301231\n"
                  "EXDATE;VALUE=DATE:20290903\nSUMMARY:Labour Day\nBEGIN:VALARM\nEND:VALARM",
                  "UID:l\nRECURRENCE-ID;VALUE=DATE:20300902\nDTSTART;VALUE=DATE:20300903\nSUMMARY:Moved"]
        file = self.file("days.ics", "BEGIN:VCALENDAR\n" + "".join(
            f"BEGIN:VEVENT\n{event}\nEND:VEVENT\n" for event in events) + "END:VCALENDAR\n")
        holidays = "holidays", "import"
        warning = "2028 has no holidays yet: its dates pass over weekends alone"
        self.assertIn(warning, call(self.folder, "due", "--until", "2028-01-31", database=self.young).err)
        self.bring(file, "--kind", "tasks", code=1, says=["days.ics holds holidays, not tasks"])
        self.bring(file, "--skip-refused", by=holidays, code=1, says=[
            "Meeting, refused: it lasts less than a day", "Nowhere, refused: it has no date that exists",
            "refused: it comes round more than once a day"])
        self.assertEqual(["2028-01-01,New Year, for all", "2028-01-02,New Year, for all / Day After",
                          "2028-09-04,Labour Day", "2028-12-24,Noël", "2028-12-25,Noël",
                          "2030-09-03,Moved"],
                         [line for line in self.entries("holidays", "Date", "Name") if line > "2028"])
        self.bring(file, "--skip-refused", by=holidays, code=1, says=["0 new, 0 changed, 8 the same"])
        self.assertEqual("", call(self.folder, "due", "--until", "2028-01-31", database=self.young).err)

    def test_reads_contacts_of_address_books(self):
        cards = ["VERSION:2.1\nN;CHARSET=ISO-8859-2;ENCODING=QUOTED-PRINTABLE:B=E9langer;=AEo=E9;;Ms.;\n"
                 "FN;CHARSET=ISO-8859-2;QUOTED-PRINTABLE:=AEo=E9 B=\n=E9langer\nTEL;HOME;VOICE:1\nTEL;WORK;FAX:2\n"
                 "ADR;HOME;QUOTED-PRINTABLE:;;12 Main St.=0D=0AFloor 2;Toronto;ON;M5V;Canada\n"
                 "PHOTO;BASE64;JPEG:\n AAAA\n BBBB\n\nEMAIL;INTERNET:zoe@x.example\nBDAY:19700131",
                 "VERSION:3.0\nN:Smith;John;Q\\, R.;;Jr.\nFN:John Smith\nORG:Acme\\; Ltd.;Books\nTITLE:CFO\n"
                 "TEL;TYPE=WORK,VOICE:3\nTEL;TYPE=\"cell\":4\nitem1.EMAIL;type=WORK;type=pref:john@a\n cme.example\n"
                 "ADR;TYPE=WORK:PO 3;Suite 4;1 King St.;Ottawa;ON;K1A;Canada\nBEGIN:VCARD\nFN:Agent\nEND:VCARD",
                 "VERSION:4.0\nFN:Ada King\nTEL;TYPE=\"voice,home\":tel:+1-5\nEMAIL:mailto:ada@x.example\nBDAY:--0203"]
        file = self.file("people.vcf", "".join(f"BEGIN:VCARD\r\n{card}\nEND:VCARD\n" for card in cards))
        self.bring(file, says=['3 new, 0 changed, 0 the same, 0 refused; not read: "BDAY", "PHOTO"'])
        self.assertEqual(
            ["Žoé Bélanger,Žoé,Ms.,1,,2,,zoe@x.example,,12 Main St.,Floor 2,Toronto,,,1970-01-31",
             "John Smith,John,,,3,,4,,john@acme.example,,,,Acme; Ltd.,1 King St.,",
             "Ada King,Ada,,+1-5,,,,ada@x.example,,,,,,,"],
            self.entries("contacts", "Name", "First Name", "Prefix", "Home Phone", "Work Phone", "Work Fax",
                         "Cell", "Email", "Work Email", "Home Address 1", "Home Address 2", "Home City",
                         "Company", "Work Address 1", "Birthday"))
        self.assertEqual("Q, R.,Jr.,Books,CFO,Suite 4, PO 3,K1A", self.entries(
            "contacts", "Middle Name", "Suffix", "Department", "Job Title", "Work Address 2",
            "Work Postal Code")[1])
        self.bring(file, says=["0 new, 0 changed, 3 the same"])
