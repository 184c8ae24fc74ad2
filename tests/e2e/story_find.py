"""Looking for entries: by subject, by note, by date; from the top and from the current entry; what was found, edited."""
from driver import main, until
from screens import (DETAIL, FIND, FOUND, IDC_DETAIL_SUBJECT, IDC_EDITOR_TABS, IDC_ENTRY_LIST, IDC_FIND_BY_DATE, IDC_FIND_BY_ENTRY,
                     IDC_FIND_BY_SUBJECT, IDC_FIND_DATE, IDC_FIND_FROM_CURRENT, IDC_FIND_MATCH_CASE, IDC_FIND_TEXT,
                     IDC_FOUND_COUNT, IDC_FOUND_LIST, IDM_FIND, MAIN, JournalStory)

ENTRIES = ("start\tsubject\tbody\n"
           "2026-03-14 09:00\tGarden plan\tBeans along the wall.\n"
           "2026-03-14 18:30\tCall Anna\tShe saw two herons.\n"
           "2026-03-15 10:00\tPlan the trip\tBy train to the coast.\n"
           "2026-03-16 08:00\tМорской план\tЛодка и парус.\n"
           "2026-03-17 12:00\tLunch\tSoup, no plan at all.\n"
           "2026-03-18 20:00\tgarden party\tLanterns.\n")


class Find(JournalStory):
    def setUp(self):
        super().setUp()
        table = self.folder / "entries.tsv"
        table.write_text(ENTRIES, encoding="utf-8")
        self.tool("load", table)
        self.journal, self.main = self.open_journal()

    # ---- the question ----

    def ask(self, *buttons):
        """Opens the dialog from the menu bar and clicks these of its buttons."""
        self.display.click(self.bar_button(self.main, IDM_FIND))
        form = self.window(FIND)
        for button in buttons:
            self.push(form, button)
        return form

    def edit_of(self, form):
        box = self.control(form, id=IDC_FIND_TEXT)
        return self.controls_in(form, box, "Edit")[0]

    def fill(self, form, text):
        self.display.click(self.edit_of(form))
        until(lambda: self.has_focus(form, self.edit_of(form)), "the keys to go to the text")
        self.display.key("End", "shift+Home")
        self.display.type(text)
        until(lambda: self.text_of(form, self.edit_of(form)) == text, f"the text {text!r}")

    def ask_for(self, text, *buttons):
        form = self.ask(*buttons)
        self.fill(form, text)
        self.display.picture("question")
        self.display.key("Return")

    # ---- the answer ----

    def found(self, *subjects):
        """Waits for the screen with these and no others; answers it."""
        screen = self.window(FOUND)
        shown = lambda: [texts[1] for texts in self.texts(self.control(screen, id=IDC_FOUND_LIST))]
        until(lambda: shown() == list(subjects), lambda: f"{subjects} among what was found; there is {shown()}")
        self.assertEqual(self.control(screen, id=IDC_FOUND_COUNT).text, f" Found: {len(subjects)}")
        self.display.picture("found")
        return screen

    def nothing_found(self):
        def box():
            top = self.windows()[0]
            return "No Records Found" in [c.text for c in self.controls(top, cls="Static")] and top
        found = until(box, "the word that nothing was found")
        self.assertEqual(found.text, MAIN)
        until(lambda: self.windows()[0].foreground, "the box to have the keys")
        self.display.picture("nothing")
        self.display.key("Return")
        until(lambda: found.window not in [w.window for w in self.windows()], "the box to close")
        self.window(MAIN)

    def close(self, screen):
        self.ok(screen)
        self.window(MAIN)

    def selected_subject(self):
        rows = self.rows(self.control(self.main, id=IDC_ENTRY_LIST))
        return [row.texts[1] for row in rows if row.selected]

    # ---- the stories ----

    def test_an_entry_is_found_by_its_subject_read_edited_and_looked_for_again(self):
        form = self.ask(IDC_FIND_BY_SUBJECT)
        self.assertEqual(self.controls(form, id=IDC_FIND_DATE), [])
        self.fill(form, "plan")
        self.ok(form)
        self.close(self.found("Garden plan"))

        self.ask_for("plan", IDC_FIND_MATCH_CASE)
        screen = self.found("Garden plan", "Plan the trip")
        rows = self.rows(self.control(screen, id=IDC_FOUND_LIST))
        self.display.click(rows[1])
        view = self.window(DETAIL)
        self.assertEqual(self.detail(view, IDC_DETAIL_SUBJECT), "Plan the trip")
        self.display.picture("detail")
        form = self.tap_detail(view, IDC_DETAIL_SUBJECT)
        until(lambda: self.selected_field(form) == "Subject", "the subject to be edited")
        self.fill_text(form, "Subject", "The trip")
        self.ok(form)
        self.close(self.found("Garden plan"))
        self.assertEqual(self.selected_subject(), ["The trip"])
        self.assertEqual([entry["subject"] for entry in self.stored()][2], "The trip")

    def test_a_double_tap_opens_the_form(self):
        self.ask_for("garden", IDC_FIND_BY_SUBJECT)
        screen = self.found("garden party")
        self.display.double_click(self.rows(self.control(screen, id=IDC_FOUND_LIST))[0])
        form = self.screen_with(IDC_EDITOR_TABS)
        self.assertEqual(self.values(form)["Subject"], "garden party")
        self.ok(form)
        self.close(self.found("garden party"))

    def test_notes_are_found_by_their_text(self):
        self.ask_for("herons", IDC_FIND_BY_ENTRY)
        self.close(self.found("Call Anna"))
        self.ask_for("plan")
        self.close(self.found("Lunch"))
        self.ask_for("Tahoma", IDC_FIND_MATCH_CASE)
        self.nothing_found()

    def test_a_day_is_found_and_the_search_goes_on_from_the_current_entry(self):
        form = self.ask(IDC_FIND_BY_DATE)
        picker = self.control(form, id=IDC_FIND_DATE)
        left, top, _, bottom = picker.place
        self.display.click((left + 8, (top + bottom) // 2))
        self.display.type("03")
        self.display.key("Right")
        self.display.type("14")
        self.display.key("Right")
        self.display.type("2026")
        self.display.picture("day")
        self.ok(form)
        screen = self.found("Garden plan", "Call Anna")
        self.display.click(self.rows(self.control(screen, id=IDC_FOUND_LIST))[0])
        self.ok(self.window(DETAIL))
        self.close(self.found("Garden plan", "Call Anna"))
        self.assertEqual(self.selected_subject(), ["Garden plan"])

        self.ok(self.ask(IDC_FIND_FROM_CURRENT))
        screen = self.found("Call Anna")
        self.display.click(self.rows(self.control(screen, id=IDC_FOUND_LIST))[0])
        self.ok(self.window(DETAIL))
        self.close(self.found("Call Anna"))
        self.ok(self.ask())
        self.nothing_found()

    def test_what_was_looked_for_is_offered_again_after_a_new_start(self):
        self.ask_for("garden", IDC_FIND_BY_SUBJECT)
        self.close(self.found("garden party"))
        for text in ("lunch", "nowhere", "garden"):
            self.ask_for(text)
            if text == "garden":
                self.close(self.found("garden party"))
            else:
                self.nothing_found()
        self.close_journal(self.journal)

        self.journal, self.main = self.open_journal()
        form = self.ask()
        self.assertEqual(self.choices(self.control(form, id=IDC_FIND_TEXT)).texts, ["garden", "nowhere", "lunch"])
        opened = self.open_list(self.control(form, id=IDC_FIND_TEXT))
        self.display.picture("history")
        line = next(line for line in self.peek.elements("lines", opened.window) if line.text == "garden")
        self.display.click((line.place[0] + 12, line.middle[1]))
        until(lambda: self.text_of(form, self.edit_of(form)) == "garden", "the text out of the history")
        self.push(form, IDC_FIND_MATCH_CASE)
        self.ok(form)
        self.close(self.found("Garden plan", "garden party"))

        form = self.ask()
        self.display.picture("as-it-was-left")
        self.display.key("Escape")
        until(lambda: self.windows()[0].text == MAIN, "the dialog to close")
        self.close_journal(self.journal)


if __name__ == "__main__":
    main()
