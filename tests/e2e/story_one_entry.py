"""One entry, from reading it to changing what was tapped."""
from driver import main, until
from screens import (IDC_DETAIL_DURATION, IDC_DETAIL_NOTE, IDC_DETAIL_SUBJECT, IDC_EDITOR_TABS, MAIN, JournalStory)

SUBJECT = "Walk by the river"
ENTRIES = ("start\tsubject\tbody\tduration\ttype\n"
           f"2026-03-14 15:09\t{SUBJECT}\tTwo herons at the weir.\t45\tMeeting\n"
           "2026-03-15 09:00\tCall\tShort.\t5\tPhone call\n")


class OneEntry(JournalStory):
    def setUp(self):
        super().setUp()
        table = self.folder / "entries.tsv"
        table.write_text(ENTRIES)
        self.tool("load", table)
        self.journal, self.main = self.open_journal()

    def test_a_tap_shows_the_entry_and_a_tapped_line_is_edited(self):
        view = self.show_entry(self.main, SUBJECT)
        self.assertEqual(self.detail(view, IDC_DETAIL_SUBJECT), SUBJECT)
        self.assertEqual(self.detail(view, IDC_DETAIL_DURATION), "45 minutes")
        self.assertEqual(self.detail(view, IDC_DETAIL_NOTE), "Two herons at the weir.")
        self.display.picture("detail")

        form = self.tap_detail(view, IDC_DETAIL_DURATION)
        until(lambda: self.selected_field(form) == "Duration",
              lambda: f"the row Duration to be selected; it is {self.selected_field(form)}")
        self.display.picture("duration")
        self.fill_text(form, "Duration", "1.5h")
        self.ok(form)

        self.main = self.window(MAIN)
        view = self.show_entry(self.main, SUBJECT)
        self.assertEqual(self.detail(view, IDC_DETAIL_DURATION), "1 hour 30 min")
        self.display.picture("detail-again")
        self.ok(view)
        self.close_journal(self.journal)
        self.assertEqual([entry["duration"] for entry in self.stored() if entry["subject"] == SUBJECT], ["90"])

    def test_a_tapped_note_is_edited(self):
        view = self.show_entry(self.main, SUBJECT)
        form = self.tap_detail(view, IDC_DETAIL_NOTE)
        self.assertEqual(self.lines_of(form, self.note(form)), ["Two herons at the weir."])
        self.display.picture("note")
        self.ok(form)

    def test_a_double_tap_opens_the_editor_at_once(self):
        for _ in range(3):
            form = self.open_entry(self.main, SUBJECT)
            self.ok(form)
            self.main = self.window(MAIN)

    def test_keys_alone_show_edit_and_close(self):
        view = self.show_entry(self.main, "Call")
        self.display.key("Escape")
        self.main = self.window(MAIN)
        self.display.key("Return")
        view = self.screen_with(134)
        self.assertEqual(self.detail(view, IDC_DETAIL_SUBJECT), "Call")
        self.display.key("Tab")
        self.display.picture("focus-on-a-line")
        self.display.key("Return")
        form = self.screen_with(IDC_EDITOR_TABS)
        self.ok(form)
        self.window(MAIN)


if __name__ == "__main__":
    main()
