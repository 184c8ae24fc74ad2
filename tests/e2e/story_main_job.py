"""The main job: an entry is written, listed, found again the next day, and changed."""
from driver import main
from screens import MAIN, JournalStory

SUBJECT = "Walk by the river"
NOTE = ["Two herons at the weir.", "Ask Maria about the boat!"]


class MainJob(JournalStory):
    def test_an_entry_is_written_found_again_and_changed(self):
        journal, window = self.open_journal()
        self.assertEqual(self.entries(window), [])

        form = self.new_entry(window)
        self.display.picture("new-entry")
        self.fill_text(form, "Subject", SUBJECT)
        self.display.picture("subject")
        self.pick(form, "Entry Type", "Phone call")
        self.pick(form, "Duration", "2 hours")
        self.display.picture("type-and-duration")
        self.write_note(form, *NOTE)
        self.display.picture("note")
        self.ok(form)

        window = self.window(MAIN)
        self.wait_for_subjects(window, SUBJECT)
        self.display.picture("listed")
        date = self.entries(window)[0][0]
        self.assertRegex(date, r"^\d+/\d+/\d+$")
        self.close_journal(journal)
        self.check_stored(SUBJECT)

        journal, window = self.open_journal()
        self.assertEqual(self.entries(window), [[date, SUBJECT]])
        self.display.picture("listed-again")
        form = self.open_entry(window, SUBJECT)
        values = self.values(form)
        self.assertEqual({caption: values[caption] for caption in ("Subject", "Entry Type", "Duration", "Priority")},
                         {"Subject": SUBJECT, "Entry Type": "Phone call", "Duration": "2 hours", "Priority": "Normal"})
        self.assertTrue(values["Start"].startswith(date), values["Start"])
        self.display.picture("opened-again")
        self.go_to_page(form, "Note")
        self.assertEqual(self.lines_of(form, self.note(form)), NOTE)
        self.display.picture("note-again")
        self.go_to_page(form, "Entry")
        self.fill_text(form, "Subject", "Row on the river")
        self.ok(form)

        window = self.window(MAIN)
        self.wait_for_subjects(window, "Row on the river")
        self.display.picture("changed")
        self.close_journal(journal)
        self.check_stored("Row on the river")

    def check_stored(self, subject):
        entry, = self.stored()
        self.assertEqual({name: entry[name] for name in ("subject", "type", "duration", "priority", "body")},
                         {"subject": subject, "type": "Phone call", "duration": "120", "priority": "Normal",
                          "body": r"\n".join(NOTE)})


if __name__ == "__main__":
    main()
