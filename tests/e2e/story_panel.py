"""An entry written without a keyboard: with the mouse on the keys of the input panel."""
from driver import main, until
from screens import IDC_ENTRY_LIST, JournalStory

KEYBOARD = 2999  # the command of the menu bar's button for the panel
PANEL = "cehost.InputPanel"
ENTER, BACKSPACE, SHIFT = "\n", "\b", "^"
# The panel's rows; each key with its width in halves of a letter's.
ROWS = [
    [(c, 2) for c in "1234567890"] + [(BACKSPACE, 4)],
    [(c, 2) for c in "qwertyuiop'-"],
    [("\t", 2)] + [(c, 2) for c in "asdfghjkl"] + [(ENTER, 4)],
    [(SHIFT, 4)] + [(c, 2) for c in "zxcvbnm,.?"],
    [("accents", 4), ("/", 2), ("@", 2), (" ", 8), (":", 2), ("left", 3), ("right", 3)],
]


class InputPanel(JournalStory):
    def raise_panel(self, window):
        self.display.click(self.bar_button(window, KEYBOARD))
        return self.control(window, cls=PANEL)

    def lower_panel(self, window):
        self.display.click(self.bar_button(window, KEYBOARD))
        until(lambda: not self.controls(window, cls=PANEL), "the panel to go")

    def tap(self, panel, keys):
        left, top, right, bottom = panel.place
        for key in keys:
            for number, row in enumerate(ROWS):
                at = 0
                for name, width in row:
                    if name == key:
                        self.display.click((left + (right - left) * (2 * at + width) // 48,
                                            top + (bottom - top) * (2 * number + 1) // 10))
                    at += width

    def focused(self, window):
        """Waits for an edit of the window to have the keys."""
        def found():
            return next((control for control in self.controls(window)
                         if control.focus and getattr(control, "class") in ("Edit", "CAPEDIT")), None)
        return until(found, "an edit to have the keys")

    def assert_not_covered(self, panel, control):
        self.assertLessEqual(control.place[3], panel.place[1], f"{control} is under {panel}")

    def test_a_subject_and_a_note_are_tapped(self):
        journal, window = self.open_journal()
        form = self.new_entry(window)
        self.open_field(form, "Subject")
        panel = self.raise_panel(form)
        self.display.picture("raised")
        edit = self.focused(form)
        self.assert_not_covered(panel, edit)
        self.tap(panel, SHIFT + "walk wiht" + BACKSPACE * 2 + "th " + SHIFT + "anna, 3 km")
        until(lambda: self.text_of(form, edit) == "Walk with Anna, 3 km",
              lambda: f"the tapped subject; there is {self.text_of(form, edit)!r}")
        self.display.picture("subject")

        self.go_to_page(form, "Note")
        body = self.note(form)
        self.display.click(body)
        until(lambda: self.has_focus(form, body), "the keys to go to the note")
        panel = self.control(form, cls=PANEL)
        self.assert_not_covered(panel, self.note(form))
        self.tap(panel, "one line" + ENTER + "and another.")
        until(lambda: [line.lower() for line in self.lines_of(form, body)] == ["one line", "and another."],
              lambda: f"the tapped note; there is {self.lines_of(form, body)}")
        self.display.picture("note")
        self.lower_panel(form)
        self.ok(form)
        self.wait_for_subjects(self.window("Quillon Journal"), "Walk with Anna, 3 km")
        self.close_journal(journal)
        self.assertEqual([entry["subject"] for entry in self.stored()], ["Walk with Anna, 3 km"])

    def test_a_field_low_on_the_form_comes_up_from_under_it(self):
        journal, window = self.open_journal()
        form = self.new_entry(window)
        self.open_field(form, "Company")
        low = self.focused(form)
        panel = self.raise_panel(form)
        edit = self.element(form, low)
        self.assert_not_covered(panel, edit)
        self.assertTrue(edit.visible and edit.focus)
        self.tap(panel, "quay co")
        until(lambda: self.text_of(form, edit) == "Quay co",
              lambda: f"the tapped company; there is {self.text_of(form, edit)!r}")
        self.display.picture("company")
        self.ok(form)
        window = self.window("Quillon Journal")
        self.assert_not_covered(self.control(window, cls=PANEL), self.control(window, id=IDC_ENTRY_LIST))
        self.lower_panel(window)
        self.close_journal(journal)
        self.assertEqual([entry["company"] for entry in self.stored()], ["Quay co"])


if __name__ == "__main__":
    main()
