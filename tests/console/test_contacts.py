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

    def test_addresses_default_contacts_and_refusals(self):
        for title in ("addresses", "default contacts", "recipients", "contacts that are not there"):
            self.follow(title, company=self.company, contact=self.contact)

    def test_lists_of_the_firm(self):
        listed = self.done(f"recipients company {self.company} --kind email").split()
        staff = self.sql("SELECT BusinessEmail FROM AccountantEmployeeInfo")
        self.assertLessEqual({email for (email,) in staff}, set(listed))
        faxes = self.done("recipients firm --kind fax").splitlines()
        self.assertEqual(len(faxes), len(set(faxes)))
