"""The export: through the system's file dialog into files that are compared byte by byte."""
from driver import main, until
from screens import IDOK, MAIN, JournalStory

IDM_TOOLS = 40011
IDC_EXPORT_ALL = 1034
IDC_EXPORT_SELECTED = 1035
IDC_EXPORT_FILTERED = 1036
IDC_EXPORT_FIELDS = 1037
IDC_EXPORT_LABELS = 1038
IDC_EXPORT_FORMAT = 1039
IDC_EXPORT_PROGRESS = 1040
FILE_NAME = 1148  # of the system's file dialog
FILE_TYPES = 1136

EXPORT_SCREEN = "Export..."
BOX = "Journal Export"

ROWS = """start\tsubject\tbody\tcategories\tcontacts\ttype\tpriority\tsensitivity\tduration\tcompany
2004-05-07 14:30\tTwo "herons", late\tat the weir\\nand caf\u00e9 \u0416\tGarden|River\tAda|Ben\tPhone call\tHigh\tPrivate\t135\tTalvern
2004-05-08 09:05\tEmpty\t\t\t\tNote\tNormal\tNormal\t0\t
2004-05-09 00:00\tLast\tone line\t\t\tMeeting\tLow\tConfidential\t60\t
"""

CSV = ('"Subject","Entry Type","Start","Duration","Priority","Sensitivity","Company","Contacts","Categories","Note"\r\n'
       '"Two "herons", late","Phone call","5/7/2004 2:30 PM","2 hrs 15 min","High","Private","Talvern","Ada; Ben",'
       '"Garden, River","at the weir\r\nand caf\u00e9 ?"\r\n'
       '"Empty","Note","5/8/2004 9:05 AM","0 minutes","Normal","Normal","","","",""\r\n'
       '"Last","Meeting","5/9/2004 12:00 AM","1 hour","Low","Confidential","","","","one line"\r\n')

TEXT_OF_LAST = ("Subject: Last\r\nEntry Type: Meeting\r\nStart: 5/9/2004 12:00 AM\r\nDuration: 1 hour\r\nPriority: Low\r\n"
                "Sensitivity: Confidential\r\nCompany: \r\nContacts: \r\nCategories: \r\nNote:\r\none line\r\n")


class Export(JournalStory):
    def load(self):
        rows = self.folder / "rows.txt"
        rows.write_text(ROWS, encoding="utf-8")
        self.tool("load", self.wine_path(rows))

    def wine_path(self, path):
        return "Z:" + str(path).replace("/", "\\")

    def open_export(self, window):
        """Opens the file dialog from the menu; answers its window."""
        self.display.click(self.bar_button(window, IDM_TOOLS))
        left, top, right, bottom = self.menu().place
        self.display.click(((left + right) // 2, top + (bottom - top) * 5 // 8))  # the third of four items
        return self.file_dialog()

    def file_dialog(self):
        def found():
            windows = self.windows()
            return windows and windows[0].enabled and self.controls(windows[0], id=FILE_NAME, cls="Edit") and windows[0]
        dialog = until(found, "the file dialog")
        until(lambda: self.display.active_window() == dialog.text, "the file dialog to have the keys")
        return dialog

    def name_file(self, dialog, path):
        """Types the file's name and goes on; answers the export's screen."""
        edit = self.control(dialog, id=FILE_NAME, cls="Edit")
        self.display.click(edit)
        until(lambda: self.has_focus(dialog, edit), "the keys to go to the file's name")
        self.display.type(self.wine_path(path))
        until(lambda: self.text_of(dialog, edit) == self.wine_path(path), "the file's name in the dialog")
        self.display.picture("file-dialog")
        self.display.key("Return")

    def export_screen(self):
        screen = self.window(EXPORT_SCREEN)
        until(lambda: any(control.focus for control in self.controls(screen)), "the screen to have the keys")
        return screen

    def enabled(self, screen, id):
        return self.control(screen, id=id).enabled

    def run_export(self, screen, message):
        self.display.click(self.bar_button(screen, IDOK))
        self.close_box(message)

    def close_box(self, message):
        box = self.window(BOX)
        self.assertIn(message, [control.text for control in self.controls(box, cls="Static")])
        self.display.picture("exported")
        self.display.key("Return")
        until(lambda: self.windows()[0].text == MAIN and self.windows()[0].enabled, "the journal to be in front")
        # Two windows go at once, after which openbox now and then gives the keys to nobody until somebody clicks.
        left, top, _, _ = self.windows()[0].place
        self.display.click((left + 60, top + 12))  # the caption
        self.window(MAIN)

    def test_everything_goes_into_a_csv_file(self):
        self.load()
        journal, window = self.open_journal()
        target = self.folder / "journal.csv"
        self.name_file(self.open_export(window), target)
        screen = self.export_screen()
        self.display.picture("export")
        self.assertEqual(self.control(screen, id=IDC_EXPORT_FORMAT).text, "Format\nComma Separated Value")
        self.assertEqual([self.enabled(screen, id) for id in (IDC_EXPORT_ALL, IDC_EXPORT_SELECTED, IDC_EXPORT_FILTERED)],
                         [True, False, False])
        self.assertEqual(self.controls(screen, id=IDC_EXPORT_PROGRESS), [])
        self.run_export(screen, "Exported 3 records")
        self.assertEqual(target.read_bytes(), CSV.encode("cp1252"))
        self.close_journal(journal)

    def test_chosen_entries_go_into_a_text_file_over_an_older_one(self):
        self.load()
        journal, window = self.open_journal()
        target = self.folder / "journal.txt"
        target.write_bytes(b"x" * 5000)
        self.select(window, 2)
        dialog = self.open_export(window)
        self.choose(self.control(dialog, id=FILE_TYPES), "Text Files")
        self.name_file(dialog, target)
        question = until(lambda: next((w for w in self.windows()
                                       if w.enabled and w.window != dialog.window and w.text), None), "a question")
        self.display.picture("replace")
        until(lambda: self.display.active_window() == question.text, "the question to have the keys")
        self.display.key("y")
        screen = self.export_screen()
        self.assertEqual(self.control(screen, id=IDC_EXPORT_FORMAT).text, "Format\nSimple Text")
        self.assertFalse(self.enabled(screen, IDC_EXPORT_FIELDS))
        self.assertEqual(self.control(screen, id=IDC_EXPORT_LABELS).text, "Write Labels to File")
        self.push(screen, IDC_EXPORT_SELECTED)
        self.display.picture("export-text")
        self.run_export(screen, "Exported 1 record")
        self.assertEqual(target.read_bytes(), TEXT_OF_LAST.encode("cp1252"))
        self.close_journal(journal)

    def test_two_fields_without_a_header(self):
        self.load()
        journal, window = self.open_journal()
        target = self.folder / "two.csv"
        self.name_file(self.open_export(window), target)
        screen = self.export_screen()
        fields = self.control(screen, id=IDC_EXPORT_FIELDS)
        lines = lambda: self.peek.elements("lines", fields.window)
        for label in [line.text for line in lines()]:
            if label in ("Subject", "Priority"):
                continue
            place = lambda: next(line for line in lines() if line.text == label).place
            while place()[3] > fields.place[3]:
                before = place()
                self.display.wheel_down(fields.middle)
                until(lambda: place() != before, "the fields to scroll")
            left, top, _, bottom = place()
            self.display.click((left + 20, (top + bottom) // 2))
        self.push(screen, IDC_EXPORT_LABELS)
        self.display.picture("two-fields")
        self.run_export(screen, "Exported 3 records")
        self.assertEqual(target.read_bytes(),
                         b'"Two "herons", late","High"\r\n"Empty","Normal"\r\n"Last","Low"\r\n')
        self.close_journal(journal)

    def test_a_cancelled_file_dialog_writes_nothing(self):
        self.load()
        journal, window = self.open_journal()
        self.open_export(window)
        self.display.key("Escape")
        window = self.window(MAIN)
        self.assertEqual(len(self.entries(window)), 3)
        self.assertEqual([path for path in self.folder.iterdir() if path.suffix in (".csv", ".txt")],
                         [self.folder / "rows.txt"])
        self.close_journal(journal)


if __name__ == "__main__":
    main()
