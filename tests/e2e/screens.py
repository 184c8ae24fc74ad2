"""The journal's screens as a story needs them: the list of entries and the form of one entry."""
from driver import Story, until

# Ids and commands, as res/ids.h has them.
IDOK = 1
IDM_SHAREDNEW = 10
IDC_ENTRY_LIST = 101
IDC_DETAIL_SUBJECT = 124
IDC_DETAIL_DATE = 125
IDC_DETAIL_DURATION = 126
IDC_DETAIL_PANEL = 134
IDC_DETAIL_NOTE = 135
IDC_EDITOR_FIELDS = 102
IDC_EDITOR_BODY = 103
IDC_EDITOR_TABS = 20100
IDC_EDITOR_FIELD = 20101
IDM_EDIT_MENU = 20110
IDM_ZOOM_MENU = 20111
IDM_VIEW_MODE = 40027
IDC_PANEL_ADD = 1026
IDC_PANEL_TEXT = 1402
IDC_CATEGORY_LIST = 102
IDC_CONTACT_LIST = 20703
IDC_PICKER_TABS = 20702

IDC_BUTTON_BAR = 110
IDM_SORT = 111
IDM_SHOW = 112
IDM_SHOW_ALL = 115
IDM_FILTER = 121
IDM_TOOLS = 40011
IDC_FILTER_CATEGORIES = 1005
IDC_FILTER_MONTHS = 1006
IDC_FILTER_BY_RANGE = 1012
IDC_FILTER_BY_MONTH = 1013
IDC_FILTER_CATEGORIES_ONLY = 1023
IDC_FILTER_STATUS = 1024
IDM_FIND = 40003
IDC_FIND_DATE = 104
IDC_FIND_TEXT = 1105
IDC_FIND_BY_DATE = 1106
IDC_FIND_BY_SUBJECT = 1107
IDC_FIND_BY_ENTRY = 1108
IDC_FIND_FROM_TOP = 1047
IDC_FIND_FROM_CURRENT = 1049
IDC_FIND_MATCH_CASE = 1407
IDC_FOUND_LIST = 1041
IDC_FOUND_COUNT = 1042

MAIN = "Quillon Journal"
DETAIL = "Journal Entry"  # two screens of one title: show_entry and open_entry tell them apart by their controls
FIND = "Find"
FOUND = "Found..."
EDITOR = "Journal Entry"
FILTER = "Journal Filter..."
CONFIRM = "Confirm"

COPY, DELETE, EXPORT = range(3)  # the items of the context menu

VALUE = 1  # the column of a form's row that holds the value


class JournalStory(Story):
    # ---- the list ----

    def open_journal(self):
        """Starts the journal; answers its process and its window once it is there."""
        process = self.start()
        return process, self.window(MAIN)

    def close_journal(self, process):
        self.display.key("alt+F4")
        self.assertEqual(self.wait_for_end(process), 0)

    def entries(self, main):
        return self.texts(self.control(main, id=IDC_ENTRY_LIST))

    def wait_for_subjects(self, main, *subjects):
        until(lambda: [texts[1] for texts in self.entries(main)] == list(subjects),
              lambda: f"the subjects {subjects} in the list; there are {self.entries(main)}")

    def new_entry(self, main):
        self.display.click(self.bar_button(main, IDM_SHAREDNEW))
        return self.window(EDITOR)

    def row_of(self, main, subject):
        rows = self.rows(self.control(main, id=IDC_ENTRY_LIST))
        return next(row for row in rows if row.texts[1] == subject)

    def open_entry(self, main, subject):
        """Double taps the entry with that subject; answers the form."""
        self.display.double_click(self.row_of(main, subject))
        return self.screen_with(IDC_EDITOR_TABS)

    def show_entry(self, main, subject):
        """Taps the entry with that subject; answers the detail view."""
        self.display.click(self.row_of(main, subject))
        return self.screen_with(IDC_DETAIL_PANEL)

    def screen_with(self, control):
        """Waits for the topmost window to be the one of an entry that has this control; answers it."""
        def found():
            window = self.window(EDITOR)
            return self.controls(window, id=control) and window
        return until(found, f"a screen with the control {control}")

    # ---- the detail view ----

    def detail(self, view, control):
        """What a line of the detail view says."""
        return self.control(view, id=control).text

    def tap_detail(self, view, control):
        """Taps a line of the detail view; answers the form that opens."""
        self.display.click(self.control(view, id=control))
        return self.screen_with(IDC_EDITOR_TABS)

    def seen(self, main):
        """How many entries the list has, and the subjects in sight."""
        page = self.page(self.control(main, id=IDC_ENTRY_LIST))
        return page.count, [row.texts[1] for row in page.rows]

    def wait_for_count(self, main, count):
        until(lambda: self.seen(main)[0] == count, lambda: f"{count} entries in the list; there are {self.seen(main)[0]}")

    def row_of_entry(self, main, index):
        """The row `index` of those in sight."""
        return self.page(self.control(main, id=IDC_ENTRY_LIST)).rows[index]

    def select(self, main, *indexes):
        """Selects rows among those in sight, as one does without opening any: with Ctrl held down."""
        for index in indexes:
            self.display.click(self.row_of_entry(main, index), holding="ctrl")
            until(lambda: self.row_of_entry(main, index).selected, f"row {index} to be selected")

    def from_context_menu(self, main, index, item):
        """Opens the context menu of a row in sight and picks one of its three items."""
        self.click_context_menu(main, index, item)
        self.until_no_menu()

    def click_context_menu(self, main, index, item):
        """The same without a look at what comes of it: that would wait until the program has done it."""
        self.display.right_click(self.row_of_entry(main, index))
        left, top, right, bottom = self.menu().place
        self.display.click(((left + right) // 2, top + (bottom - top) * (2 * item + 1) // 6))

    # ---- the lists a person keeps ----

    def type_into_panel(self, screen, text):
        """Adds a line in the quick subjects or the categories editor."""
        edit = self.control(screen, id=IDC_PANEL_TEXT)
        self.display.click(edit)
        until(lambda: self.has_focus(screen, edit), "the keys to go to the edit")
        self.display.type(text)
        until(lambda: self.text_of(screen, edit) == text, f"{text!r} in the edit")
        self.display.click(self.control(screen, id=IDC_PANEL_ADD))
        until(lambda: self.text_of(screen, edit) == "", f"{text!r} to be added")

    # ---- the button bar ----

    def bar_text(self, main, command):
        return self.bar_button(main, command).text

    def wait_for_bar_text(self, main, command, text):
        until(lambda: self.bar_text(main, command) == text,
              lambda: f"{text!r} on the button {command}; there is {self.bar_text(main, command)!r}")

    def from_bar_menu(self, main, command, *keys):
        """Opens the menu of a button in the bar and picks an item with the keys."""
        self.display.click(self.bar_button(main, command))
        self.menu()
        self.display.picture("menu")
        self.display.key(*keys, "Return")
        self.until_no_menu()

    # ---- the filter ----

    def open_filter(self, main):
        self.display.click(self.bar_button(main, IDM_FILTER))
        return self.window(FILTER)

    def push(self, form, id):
        """Clicks a radio button or a check box."""
        self.display.click(self.control(form, id=id))

    def toggle(self, form, id, text):
        """Taps the label of a row with a check box, which has to be in sight."""
        rows = lambda: self.page(self.control(form, id=id)).rows
        row = lambda: next(row for row in rows() if row.texts[0] == text)
        before = row()
        left, top, _, bottom = before.place
        self.display.click((left + 40, (top + bottom) // 2))
        until(lambda: row().checked != before.checked, f"the check of {text} to change")

    def wait_for_status(self, form, text):
        status = lambda: self.control(form, id=IDC_FILTER_STATUS).text
        until(lambda: status() == text, lambda: f"{text!r} as the status; there is {status()!r}")

    # ---- the form ----

    def selected_field(self, form):
        """The caption of the row that is selected."""
        rows = self.rows(self.control(form, id=IDC_EDITOR_FIELDS))
        return next((row.texts[0] for row in rows if row.selected), None)

    def values(self, form):
        """What the rows of the form show, by their captions."""
        return {texts[0]: texts[VALUE] for texts in self.texts(self.control(form, id=IDC_EDITOR_FIELDS))}

    def open_field(self, form, caption):
        """Taps a field's row; answers the control that opens in its place."""
        fields = self.control(form, id=IDC_EDITOR_FIELDS)
        row = next(row for row in self.rows(fields) if row.texts[0] == caption)
        _, top, _, bottom = row.place
        left = row.place[0]
        self.display.click((left + 20, (top + bottom) // 2))

        def opened():
            for control in self.controls(form, id=IDC_EDITOR_FIELD):
                if top <= control.middle[1] < bottom:
                    return control
        return until(opened, f"the editor of {caption}")

    def fill_text(self, form, caption, text):
        """Replaces the text of a field that is typed."""
        control = self.open_field(form, caption)
        edit = next(iter(self.controls_in(form, control, "Edit")), control)
        until(lambda: self.has_focus(form, edit), f"the keys to go to {caption}")
        self.display.key("End", "shift+Home")
        self.display.type(text)
        until(lambda: self.text_of(form, edit) == text, lambda: f"{text!r} in {caption}; there is "
                                                               f"{self.text_of(form, edit)!r}")

    def pick(self, form, caption, choice):
        """Picks a line from a field's list."""
        self.choose(self.open_field(form, caption), choice)

    def controls_in(self, form, parent, cls):
        return [control for control in self.controls(form, cls=cls) if control.parent == parent.window]

    def element(self, form, control):
        return next(element for element in self.controls(form, visible=False) if element.window == control.window)

    def text_of(self, form, control):
        return self.element(form, control).text

    def has_focus(self, form, control):
        return self.element(form, control).focus

    def go_to_page(self, form, name):
        tabs = self.control(form, id=IDC_EDITOR_TABS)
        self.display.click(self.tab(tabs, name))
        until(lambda: self.tab(tabs, name).selected, f"the page {name}")

    def note(self, form):
        """The control of the Note page, which has to be shown."""
        return self.control(form, id=IDC_EDITOR_BODY)

    def write_note(self, form, *lines):
        self.go_to_page(form, "Note")
        body = self.note(form)
        self.display.click(body)
        until(lambda: self.has_focus(form, body), "the keys to go to the note")
        for number, line in enumerate(lines):
            if number:
                self.display.key("Return")
            self.display.type(line)
        until(lambda: self.lines_of(form, body) == list(lines),
              lambda: f"the note {lines}; there is {self.lines_of(form, body)}")

    def lines_of(self, form, body):
        return self.text_of(form, body).splitlines()

    def ok(self, form):
        self.display.click(self.bar_button(form, IDOK))
        until(lambda: form.window not in [window.window for window in self.windows()], "the form to close")

    # ---- the store ----

    def stored(self):
        """What the store holds, one dictionary an entry, as journal-tool prints it."""
        captions, *rows = [line.split("\t") for line in self.tool("list").splitlines()]
        return [dict(zip(captions, row)) for row in rows]
