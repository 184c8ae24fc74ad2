"""A card and an appointment from files: entries begun for them, and the person picked for an entry."""
import pathlib
import subprocess

from driver import main, until
from screens import IDC_DETAIL_SUBJECT, IDC_EDITOR_FIELDS, IDC_EDITOR_TABS, MAIN, JournalStory

IDC_CONTACT_LIST = 20703

CARDS = """BEGIN:VCARD
VERSION:3.0
UID:1
N:Abel;Anna;;;
ORG:Talvern
END:VCARD
BEGIN:VCARD
VERSION:3.0
UID:2
N:Brook;Ben;;;
ORG:Acme
END:VCARD
"""
CALENDAR = """BEGIN:VCALENDAR
VERSION:2.0
BEGIN:VEVENT
UID:3
DTSTART:20040507T143000
SUMMARY:Boat review
END:VEVENT
END:VCALENDAR
"""


class Link(JournalStory):
    def file(self, name, text):
        path = pathlib.Path(self.folder) / name
        path.write_text(text, encoding="utf-8")
        return "Z:" + str(path).replace("/", "\\")

    def id_of(self, command, text):
        line = next(line for line in self.tool(command).splitlines() if text in line)
        return line.split("\t")[0]

    def test_entries_are_begun_for_imported_items_and_a_person_is_picked(self):
        self.assertIn("2 added", self.tool("import", self.file("people.vcf", CARDS)))
        self.assertIn("1 added", self.tool("import", self.file("calendar.ics", CALENDAR)))
        journal, window = self.open_journal()

        self.tool("link", "contact", self.id_of("contacts", "Abel"))
        form = self.screen_with(IDC_EDITOR_TABS)
        self.display.picture("linked-contact")
        values = self.values(form)
        self.assertEqual((values["Subject"], values["Company"]), ("Abel, Anna", "Talvern"))
        self.ok(form)
        window = self.window(MAIN)
        self.wait_for_subjects(window, "Abel, Anna")

        self.tool("link", "appointment", self.id_of("appointments", "Boat review"))
        form = self.screen_with(IDC_EDITOR_TABS)
        values = self.values(form)
        self.assertEqual(values["Subject"], "Boat review")
        self.assertIn("5/7/2004", values["Start"])

        fields = self.rows(self.control(form, id=IDC_EDITOR_FIELDS))
        row = next(row for row in fields if row.texts[0] == "Contacts")
        self.display.click((row.place[0] + 20, (row.place[1] + row.place[3]) // 2))
        picker = self.window("Contacts")
        people = self.control(picker, id=IDC_CONTACT_LIST)
        self.assertEqual([row.texts[:2] for row in self.rows(people)], [["Abel, Anna", "Talvern"], ["Brook, Ben", "Acme"]])
        for name in ("Brook, Ben", "Abel, Anna"):
            row = next(row for row in self.rows(people) if row.texts[0] == name)
            self.display.click((row.place[0] + 40, (row.place[1] + row.place[3]) // 2))
        self.display.picture("contacts-checked")
        self.ok(picker)
        until(lambda: self.values(form)["Contacts"] == "Brook, Ben; Abel, Anna", "the names in the order of the taps")
        self.display.picture("contacts-in-the-form")
        self.ok(form)

        window = self.window(MAIN)
        self.wait_for_subjects(window, "Boat review", "Abel, Anna")
        view = self.show_entry(window, "Boat review")
        until(lambda: self.detail(view, IDC_DETAIL_SUBJECT) == "Boat review", "the entry in the detail view")
        self.display.picture("contacts-in-the-detail-view")
        self.ok(view)
        self.close_journal(journal)
        entries = {entry["subject"]: entry for entry in self.stored()}
        self.assertEqual(entries["Boat review"]["contacts"], "Brook, Ben|Abel, Anna")
        self.assertEqual(entries["Boat review"]["start"], "2004-05-07 14:30")
        self.assertEqual(entries["Abel, Anna"]["company"], "Talvern")

    def test_linking_says_when_no_journal_runs(self):
        self.tool("import", self.file("people.vcf", CARDS))
        with self.assertRaises(subprocess.CalledProcessError) as failure:
            self.tool("link", "contact", self.id_of("contacts", "Abel"))
        self.assertEqual(failure.exception.returncode, 1)


if __name__ == "__main__":
    main()
