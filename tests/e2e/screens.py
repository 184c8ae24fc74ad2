"""The journal's screens as a story needs them: the list of entries and the form of one entry."""
from driver import Story, until

# Ids and commands, as res/ids.h has them.
IDOK = 1
IDM_SHAREDNEW = 10
IDC_ENTRY_LIST = 101
IDC_EDITOR_FIELDS = 102
IDC_EDITOR_BODY = 103
IDC_EDITOR_TABS = 20100
IDC_EDITOR_FIELD = 20101

MAIN = "Quillon Journal"
EDITOR = "Journal Entry"

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

    def open_entry(self, main, subject):
        """Double taps the entry with that subject; answers the form."""
        rows = self.rows(self.control(main, id=IDC_ENTRY_LIST))
        self.display.double_click(next(row for row in rows if row.texts[1] == subject))
        return self.window(EDITOR)

    # ---- the form ----

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
