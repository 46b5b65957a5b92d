"""Templates: carried into unsent notifications, and what they can be filled with."""

from pathlib import Path

from console import ConsoleTest

class Templates(ConsoleTest):
    def test_what_templates_hold_and_what_becomes_of_them(self):
        self.follow_each("a field is whole however it is written", "checking a template",
                         "changing a template", "a template with faults is refused",
                         "edited texts are spared", "what comes to nothing for a client is carried too",
                         "a changed template reaches what is unsent", "kinds are listed and checked",
                         "fields that cannot be read are told")

    def test_a_file_of_a_word_processor(self):
        self.file("new.rtf", Path(__file__).with_name("word_processor.rtf").read_bytes())
        task = self.free_task()
        company = self.one("SELECT CompanyName FROM Companies JOIN ClientData ON CompanyIDNum=CompanyID "
                           "JOIN Schedule ON ClientNum=ClientDataID WHERE ScheduleID=?", task)
        self.expect(f"check new.rtf --task {task}", "The template is sound.\n")
        lines = self.done(f"merge {task} --template new.rtf --plain").split("\n")
        self.assertRegex(lines[0], "^Dear [A-Z].*,$")
        self.assertRegex(lines[1], r"^your [A-Z].* is due on [A-Z][a-z]+ \d+, 20\d\d\.$")
        self.assertRegex(lines[2], f"^{company} — [A-Za-z0-9].+$")

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
