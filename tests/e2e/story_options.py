"""The options: changed by tapping their values, and the password set there asked for at the next start."""
import subprocess

from driver import main, until
from screens import IDC_EDITOR_FIELDS, IDOK, MAIN, JournalStory

OPTIONS = "Options"
PAD = "Journal Password"
IDM_TOOLS = 40011
IDC_OPTIONS_LIST = 102
IDC_OPTIONS_CHOICES = 20900
FIRST_DIGIT = 101
IDC_CATEGORY_LIST = 102


class Options(JournalStory):
    def open_options(self):
        main = self.window(MAIN)
        self.display.click(self.bar_button(main, IDM_TOOLS))
        left, top, right, bottom = self.menu().place
        self.display.click(((left + right) // 2, top + (bottom - top) * 3 // 8))  # the second of four items
        screen = self.window(OPTIONS)
        until(lambda: self.control(screen, id=IDC_OPTIONS_LIST).focus, "the keys to go to the options")
        return screen

    def values(self, screen):
        return dict(self.texts(self.control(screen, id=IDC_OPTIONS_LIST)))

    def tap_value(self, screen, caption):
        row = next(row for row in self.rows(self.control(screen, id=IDC_OPTIONS_LIST)) if row.texts[0] == caption)
        left, top, right, bottom = row.place
        self.display.click(((left + right * 2) // 3, (top + bottom) // 2))

    def enter(self, digits):
        """Taps digits on a pad, then OK."""
        pad = self.window(PAD)
        until(lambda: any(control.focus for control in self.controls(pad)), "the pad to have the keys")
        for digit in digits:
            self.display.click(self.control(pad, id=FIRST_DIGIT + int(digit) - 1))
        self.display.picture("pad")
        self.display.click(self.bar_button(pad, IDOK))
        until(lambda: pad.window not in [w.window for w in self.windows()], "the pad to close")

    def answer(self, title, *keys):
        box = self.window(title)
        until(lambda: self.display.active_window() == title, f"the box {title} to have the keys")
        self.display.picture("box")
        self.display.key(*keys)
        until(lambda: box.window not in [w.window for w in self.windows()], f"the box {title} to close")

    def confirm_deletes(self):
        found = subprocess.run(["wine", "reg", "query", r"HKCU\Software\Talvern\Journal\Options", "/v",
                                "Confirm Deletes"], capture_output=True, text=True, timeout=60)
        return found.stdout.split()[-1] if found.returncode == 0 else None

    def test_ok_keeps_what_was_chosen_and_escape_does_not(self):
        journal, _ = self.open_journal()
        screen = self.open_options()
        self.display.picture("options")
        self.assertEqual(self.values(screen)["Confirm Deletes"], "Yes")
        self.tap_value(screen, "Confirm Deletes")
        choices = self.control(screen, id=IDC_OPTIONS_CHOICES)
        self.display.picture("choices")
        self.choose(choices, "No")
        self.display.key("Escape")
        self.window(MAIN)
        self.assertIsNone(self.confirm_deletes())

        screen = self.open_options()
        self.tap_value(screen, "Confirm Deletes")
        self.choose(self.control(screen, id=IDC_OPTIONS_CHOICES), "No")
        self.display.click(self.bar_button(screen, IDOK))
        self.window(MAIN)
        self.assertEqual(self.confirm_deletes(), "No")
        self.close_journal(journal)

    def test_a_password_that_was_set_is_asked_for_and_can_be_cleared(self):
        journal, _ = self.open_journal()
        screen = self.open_options()
        self.assertEqual(self.values(screen)["Password"], "<Disabled>")
        self.tap_value(screen, "Password")
        self.enter("42")
        self.enter("42")
        self.answer(PAD, "Return")
        until(lambda: self.values(screen)["Password"] == "********", "the password to be on")
        self.display.picture("on")
        self.display.key("Escape")
        self.window(MAIN)
        self.close_journal(journal)

        journal = self.start()
        self.enter("42")
        self.window(MAIN)
        screen = self.open_options()
        self.tap_value(screen, "Password")
        self.enter("42")
        self.answer(PAD, "y")
        until(lambda: self.values(screen)["Password"] == "<Disabled>", "the password to be off")
        self.display.key("Escape")
        self.window(MAIN)
        self.close_journal(journal)

    def test_quick_subjects_and_categories_are_kept_from_here_and_used_in_an_entry(self):
        journal, window = self.open_journal()
        screen = self.open_options()
        self.tap_value(screen, "Subjects")
        subjects = self.window("Journal Subjects...")
        self.type_into_panel(subjects, "Boat club")
        self.display.picture("subjects")
        self.ok(subjects)
        screen = self.window(OPTIONS)
        self.tap_value(screen, "Categories")
        categories = self.window("Categories")
        self.type_into_panel(categories, "Aboard")
        self.display.picture("categories")
        self.ok(categories)
        screen = self.window(OPTIONS)
        self.assertEqual(self.values(screen)["Subjects"], "<Edit Quick Subjects>")
        self.assertEqual(self.values(screen)["Categories"], "<Edit Categories>")
        self.display.key("Escape")

        form = self.new_entry(self.window(MAIN))
        self.pick(form, "Subject", "Boat club")
        fields = self.rows(self.control(form, id=IDC_EDITOR_FIELDS))
        row = next(row for row in fields if row.texts[0] == "Categories")
        self.display.click((row.place[0] + 20, (row.place[1] + row.place[3]) // 2))
        picker = self.window("Categories")
        self.assertIn("Aboard", [texts[0] for texts in self.texts(self.control(picker, id=IDC_CATEGORY_LIST))])
        self.ok(picker)
        self.ok(form)
        self.close_journal(journal)
        entry, = self.stored()
        self.assertEqual(entry["subject"], "Boat club")

    def test_a_label_does_nothing(self):
        journal, _ = self.open_journal()
        screen = self.open_options()
        for row in self.rows(self.control(screen, id=IDC_OPTIONS_LIST)):
            left, top, right, bottom = row.place
            self.display.click((left + 15, (top + bottom) // 2))
            until(lambda: self.display.active_window() == OPTIONS, "the options to stay")
        self.assertEqual([w.text for w in self.windows()], [OPTIONS, MAIN])
        self.display.key("Escape")
        self.window(MAIN)
        self.close_journal(journal)


if __name__ == "__main__":
    main()
