"""Addresses, lists of recipients and default contacts, against what the database holds."""

from pathlib import Path

from console import ConsoleTest


class ContactsTest(ConsoleTest):
    def setUp(self):
        super().setUp()
        self.company, self.contact = self.sql(
            "SELECT CompanyNum, ContactIDNum FROM ContactLinks WHERE DefaultContact=TRUE AND "
            "CompanyNum>0 ORDER BY CompanyNum LIMIT 1")[0]
        acme = Path(__file__).with_name("acme.sql").read_text(encoding="utf-8")
        for statement in acme.format(company=self.company, contact=self.contact).split(";"):
            self.sql(statement)

    def test_address(self):
        block = "Acme\nZoë\n1 Elm\nOttawa, ON  K2G 0Z1"
        self.expect(f"address company {self.company}", block + "\n")
        self.expect(f"address Company {self.company} --phones --email",
                    block + "\nPhone: 1\nFax: 2\nEmail: acme@x\n")
        self.expect(f"address contact {self.contact} --rtf",
                    "Zoë\\par \n9 Oak\\par \nHull\\par \nUSA\n")
        self.expect(f"address contact {self.contact} --company {self.company} --phones",
                    "Zoë\n1 Elm\nOttawa, ON  K2G 0Z1\nPhone: 3\nFax: 2\n")
        self.assertEqual({"contact": self.contact, "address": "Zoë\r\n5 Fir\r\n"},
                         self.done(f"--json address contact {self.contact} --home"))

    def test_recipients(self):
        listed = self.done(f"--json recipients company {self.company} --kind email")
        self.assertEqual(["acme@x", "zoe@x"], [row["text"] for row in listed[:2]])
        self.assertEqual(["zoe@x"], [row["text"] for row in listed if row["default"]])
        staff = self.sql("SELECT BusinessEmail FROM AccountantEmployeeInfo")
        self.assertLessEqual({email for (email,) in staff}, {row["text"] for row in listed})
        self.expect(f"recipients company {self.company} --kind name", "  Acme\n* Zoë\n")
        faxes = self.done("recipients firm --kind fax")
        self.assertNotIn("*", faxes)
        self.assertEqual(len(faxes.splitlines()), len(set(faxes.splitlines())))

    def test_default_contact(self):
        shown = f"Acme: contact {self.contact}, Zoë\n"
        self.expect(f"contact-default {self.company}", shown)
        self.expect(f"contact-default {self.company} none", "Acme: no default contact\n")
        told = ("SELECT DefaultContactName, DefaultContactEmail, PortalChangedFlag FROM Companies "
                "WHERE CompanyID=?")
        self.assertEqual((0, "", 1), (self.default_count(), *self.sql(told, self.company)[0][::2]))
        self.expect(f"contact-default {self.company} {self.contact}", shown)
        self.assertEqual([("Zoë", "zoe@x", 1)], self.sql(told, self.company))
        self.assertIn("zoe@x", self.one("SELECT ContactNotes FROM CompaniesNotes WHERE CompanyNum=?",
                                        self.company))
        self.assertEqual({"company": self.company, "contact": self.contact, "name": "Zoë"},
                         self.done(f"--json contact-default {self.company}"))

    def default_count(self):
        return self.one("SELECT count(*) FROM ContactLinks WHERE CompanyNum=? AND DefaultContact=TRUE",
                        self.company)

    def test_refusals(self):
        self.refuses_each("of contacts", company=self.company, contact=self.contact)
        self.refuses("recipients company --kind fax", "name the company by its number", 2)
        self.refuses("recipients firm --kind email", "the firm has a list of fax numbers only", 2)
