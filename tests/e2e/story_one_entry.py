"""One entry, from reading it to changing what was tapped."""
import subprocess

from driver import main, run, until
from screens import (IDC_DETAIL_DURATION, IDC_DETAIL_NOTE, IDC_DETAIL_SUBJECT, IDC_EDITOR_TABS, IDC_ENTRY_LIST,
                     IDM_VIEW_MODE, MAIN, JournalStory)

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

    def empty_elsewhere(self):
        """Another program deletes every entry."""
        subprocess.run(["wine", str(self.bin / "journal_helper.exe"), "empty"], env=self.environment, timeout=60)

    def test_an_entry_deleted_elsewhere_closes_its_view(self):
        self.show_entry(self.main, SUBJECT)
        self.empty_elsewhere()
        box = self.window(MAIN)  # the box's title is the program's
        self.display.picture("deleted-elsewhere")
        self.display.key("Return")
        until(lambda: box.window not in [w.window for w in self.windows()], "the box to close")
        main = self.window(MAIN, keys=False)
        self.assertEqual(self.controls(main, id=IDC_DETAIL_NOTE), [])
        # Two windows went at once; the window manager may have given the keyboard to none.
        self.display.click(self.control(main, id=IDC_ENTRY_LIST))
        self.close_journal(self.journal)

    def test_an_entry_deleted_while_it_is_edited_is_not_lost(self):
        form = self.open_entry(self.main, SUBJECT)
        self.empty_elsewhere()
        self.fill_text(form, "Company", "Talvern")
        self.ok(form)
        self.wait_for_subjects(self.window(MAIN), SUBJECT)
        self.close_journal(self.journal)
        entry, = self.stored()
        self.assertEqual((entry["subject"], entry["company"], entry["duration"]), (SUBJECT, "Talvern", "45"))

    def ink(self, form):
        """Which of the note's pixels are dark, once they rest; the caret's place and the scroll bar left out."""
        def look():
            file = self.display.picture("note-ink")
            left, top, right, bottom = self.note(form).place
            return run("convert", file, "-crop", f"{right - left - 50}x{bottom - top}+{left + 25}+{top}", "+repage",
                       "-colorspace", "gray", "-threshold", "30%", "-depth", "8", "gray:-")
        looks = [look()]

        def rests():
            looks.append(look())
            return looks[-1] == looks[-2]
        until(rests, "the note to rest")
        return looks[-1]

    def test_a_stroke_of_the_pen_is_kept_and_shown(self):
        form = self.new_entry(self.main)
        self.fill_text(form, "Subject", "Drawn")
        self.go_to_page(form, "Note")
        self.display.click(self.bar_button(form, IDM_VIEW_MODE))
        blank = self.ink(form)
        left, top, _, _ = self.note(form).place
        self.display.draw([(left + 40 + step * 4, top + 60 + (step % 8) * 5) for step in range(24)])
        until(lambda: self.ink(form) != blank, "the stroke to be seen")
        drawn = self.ink(form)
        self.assertGreater(drawn.count(0), blank.count(0) + 100)
        self.ok(form)

        self.main = self.window(MAIN)
        self.wait_for_subjects(self.main, SUBJECT, "Call", "Drawn")
        form = self.open_entry(self.main, "Drawn")
        self.go_to_page(form, "Note")
        until(lambda: self.ink(form) == drawn, "the same stroke again")
        self.ok(form)
        view = self.show_entry(self.window(MAIN), "Drawn")
        note = self.control(view, id=IDC_DETAIL_NOTE)
        left, top, right, bottom = note.place
        shown = lambda: run("convert", self.display.picture("ink-to-read"), "-crop",
                            f"{right - left - 50}x{bottom - top}+{left + 25}+{top}", "+repage", "-colorspace", "gray",
                            "-threshold", "30%", "-depth", "8", "gray:-")
        until(lambda: abs(shown().count(0) - drawn.count(0)) < drawn.count(0) // 10, "the stroke in the view")
        self.ok(view)

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
