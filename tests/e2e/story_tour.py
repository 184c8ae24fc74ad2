"""A tour of all screens, each opened and closed as a person does, and its picture taken.

tools/contact_sheet.py joins the pictures. CE_SCREEN and CE_SCALE go through to the journal.
"""
from driver import main, run, until
from screens import (FIND, IDC_CONTACT_LIST, IDC_DETAIL_SUBJECT, IDC_EDITOR_FIELDS, IDC_FILTER_MONTHS, IDC_PICKER_TABS,
                     IDM_EDIT_MENU, IDM_FIND, IDM_SHOW, IDM_SORT, IDM_TOOLS, IDM_VIEW_MODE, IDM_ZOOM_MENU, MAIN,
                     JournalStory)

SUBJECT = "Plans for the boat house"
ENTRIES = (
    "start\tsubject\tbody\tduration\ttype\tcompany\tcontacts\tcategories\tpriority\tsensitivity\n"
    f"2026-03-14 15:09\t{SUBJECT}\tTwo herons at the weir.\\n\\nAsk Maria about the boat!\t90\tMeeting\tTalvern\t"
    "Fox, Ada|Lund, Per\tBoat|Family\tHigh\tPersonal\n"
    "2026-03-15 09:00\tCall the ferry\tThe first one leaves at six.\t5\tPhone call\t\t\tBoat\tLow\tPrivate\n"
    "2026-03-16 11:30\tA subject that is a good deal longer than any screen of a pocket computer is wide, so that it "
    "has to be cut\tShort.\t60\tE-mail message\tOrvane\t\tWork\tNormal\tConfidential\n"
    "2026-03-17 08:15\tNothing but a subject\t\t\tNote\t\t\t\tNormal\tNormal\n")
PAD = "Journal Password"
FIRST_DIGIT = 101


class Tour(JournalStory):
    def setUp(self):
        super().setUp()
        table = self.folder / "entries.tsv"
        table.write_text(ENTRIES)
        self.tool("load", table)
        self.tool("seed", "7")

    def shoot(self, name):
        """A picture of the screen that is shown, cut out of the display."""
        file = self.display.picture(name)
        places = [window.place for window in self.windows()]
        left, top, right, bottom = max(places, key=lambda place: place[2] - place[0])
        run("convert", file, "-crop", f"{right - left}x{bottom - top}+{left}+{top}", "+repage", file)

    def shoot_menu(self, name, button):
        self.display.click(button)
        self.menu()
        self.shoot(name)
        self.display.key("Escape")
        self.until_no_menu()

    def press_for(self, title, *keys):
        """Presses keys; answers the window that comes."""
        self.display.key(*keys)
        return self.window(title)

    def close(self, screen):
        self.window(screen.text)  # wait for the keys to go there
        self.display.key("Escape")
        until(lambda: screen.window not in [w.window for w in self.windows()], f"{screen.text!r} to close")

    def open_from_tools(self, main, title, *keys):
        self.display.click(self.bar_button(main, IDM_TOOLS))
        self.menu()
        return self.press_for(title, *keys, "Return")

    def pages(self, screen, tabs, name):
        """Goes to another page of a screen with tabs."""
        strip = self.control(screen, id=tabs)
        self.display.click(self.tab(strip, name))
        until(lambda: self.tab(strip, name).selected, f"the page {name}")

    def launch(self, form, caption, title):
        """Taps a field that is picked elsewhere; answers the screen that opens."""
        row = next(row for row in self.rows(self.control(form, id=IDC_EDITOR_FIELDS)) if row.texts[0] == caption)
        self.display.click((row.place[0] + 20, row.middle[1]))
        return self.window(title)

    def test_every_screen_opens_and_closes(self):
        journal, main = self.open_journal()
        for show in (self.show_list, self.show_entry_screens, self.show_pickers, self.show_note, self.show_options,
                     self.show_export, self.show_find, self.show_filter):
            show(self.window(MAIN))
        self.window(MAIN)
        self.close_journal(journal)

    def show_list(self, main):
        self.shoot("list")
        self.shoot_menu("menu-show", self.bar_button(main, IDM_SHOW))
        self.shoot_menu("menu-sort", self.bar_button(main, IDM_SORT))
        self.shoot_menu("menu-tools", self.bar_button(main, IDM_TOOLS))
        left, top, _, bottom = self.row_of_entry(main, 2).place
        self.display.right_click((left + 30, (top + bottom) // 2))
        self.menu()
        self.shoot("menu-of-an-entry")
        self.display.key("Escape")
        self.until_no_menu()
        about = self.open_from_tools(main, "About", "Down")
        self.shoot("about")
        self.close(about)

    def show_entry_screens(self, main):
        form = self.open_entry(main, SUBJECT)
        self.shoot("form")
        for caption, name in (("Start", "form-start"), ("Entry Type", "form-type"), ("Company", "form-company")):
            self.open_field(form, caption)
            self.shoot(name)
        duration = self.open_field(form, "Duration")
        self.shoot("form-duration")
        self.open_list(duration)
        self.shoot("form-duration-list")
        self.display.key("Escape")
        self.close(form)
        self.shown(SUBJECT, "entry", "entry-by-keys")
        self.shown("Nothing but a subject", "entry-short")

    def shown(self, subject, name, by_keys=None):
        view = self.show_entry(self.window(MAIN), subject)
        until(lambda: self.detail(view, IDC_DETAIL_SUBJECT) == subject, "the subject")
        self.shoot(name)
        if by_keys:
            self.display.key("Tab", "Tab", "Tab", "Tab")
            self.shoot(by_keys)
        self.close(view)

    def show_pickers(self, main):
        form = self.open_entry(main, SUBJECT)
        self.pick(form, "Subject", "<Edit Quick Subjects>")
        subjects = self.window("Journal Subjects...")
        for text in ("Boat club", "Call home", "Walk"):
            self.display.type(text)
            self.display.key("Return")
        until(lambda: len(self.lines_of_box(subjects)) == 3, "three subjects")
        self.shoot("quick-subjects")
        self.ok(subjects)
        self.open_list(self.open_field(form, "Subject"))
        self.shoot("form-subject-list")
        self.display.key("Escape")
        picker = self.launch(form, "Categories", "Categories")
        self.shoot("categories-select")
        self.pages(picker, IDC_PICKER_TABS, "Add/Delete")
        self.shoot("categories-add-delete")
        self.ok(picker)
        picker = self.launch(form, "Contacts", "Contacts")
        self.control(picker, id=IDC_CONTACT_LIST)
        self.shoot("contacts")
        self.ok(picker)
        self.ok(form)

    def lines_of_box(self, screen):
        return self.peek.elements("lines", self.control(screen, cls="ListBox").window)

    def show_note(self, main):
        form = self.open_entry(main, SUBJECT)
        self.go_to_page(form, "Note")
        self.shoot("note")
        self.shoot_menu("note-edit", self.bar_button(form, IDM_EDIT_MENU))
        self.shoot_menu("note-zoom", self.bar_button(form, IDM_ZOOM_MENU))
        self.display.click(self.bar_button(form, IDM_VIEW_MODE))
        left, top, right, bottom = self.note(form).place
        step = (right - left) // 40
        self.display.draw([(left + (8 + i) * step, (top + bottom) // 2 + (i % 8) * step) for i in range(24)])
        self.shoot("note-ink")
        self.ok(form)

    def show_options(self, main):
        screen = self.open_from_tools(main, "Options", "Down", "Down")
        self.shoot("options")
        row = next(row for row in self.rows(self.control(screen, id=IDC_EDITOR_FIELDS)) if row.texts[0] == "Password")
        left, _, right, _ = row.place
        self.display.click(((left + 2 * right) // 3, row.middle[1]))
        pad = self.window(PAD)
        self.display.click(self.control(pad, id=FIRST_DIGIT))
        self.shoot("password")
        for title in (PAD, PAD, "Password NOT Set"):
            self.close(self.window(title))
        self.close(screen)

    def show_export(self, main):
        self.open_from_tools(main, "Save As", "Down", "Down", "Down")
        self.display.type("Z:" + str(self.folder / "export.csv").replace("/", "\\"))
        screen = self.press_for("Export...", "Return")
        self.shoot("export")
        self.close(screen)

    def show_find(self, main):
        self.display.click(self.bar_button(main, IDM_FIND))
        form = self.window(FIND)
        self.shoot("find")
        self.close(form)

    def show_filter(self, main):
        form = self.open_filter(main)
        self.toggle(form, IDC_FILTER_MONTHS, "March")
        self.shoot("filter")
        self.close(form)


if __name__ == "__main__":
    main()
