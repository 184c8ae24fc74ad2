"""A new entry with a quick subject that is made on the way, and a category that is, too."""
from driver import main, until
from screens import IDC_EDITOR_FIELDS, IDM_SHOW, MAIN, JournalStory

IDC_CATEGORY_LIST = 102
IDC_PICKER_TABS = 20702

EDIT_SUBJECTS = "<Edit Quick Subjects>"
SUBJECT = "Boat club"
CATEGORY = "Aboard"


class Pickers(JournalStory):
    def test_a_subject_and_a_category_are_made_and_chosen(self):
        journal, window = self.open_journal()
        form = self.new_entry(window)

        self.pick(form, "Subject", EDIT_SUBJECTS)
        subjects = self.window("Journal Subjects...")
        self.type_into_panel(subjects, SUBJECT)
        self.display.picture("quick-subjects")
        self.ok(subjects)
        self.pick(form, "Subject", SUBJECT)
        self.display.picture("subject-chosen")

        fields = self.rows(self.control(form, id=IDC_EDITOR_FIELDS))
        row = next(row for row in fields if row.texts[0] == "Categories")
        self.display.click((row.place[0] + 20, (row.place[1] + row.place[3]) // 2))
        picker = self.window("Categories")
        self.display.picture("categories")
        tabs = self.control(picker, id=IDC_PICKER_TABS)
        self.display.click(self.tab(tabs, "Add/Delete"))
        until(lambda: self.tab(tabs, "Add/Delete").selected, "the page Add/Delete")
        self.type_into_panel(picker, CATEGORY)
        self.display.picture("category-added")
        self.display.click(self.tab(tabs, "Select"))
        categories = until(lambda: self.control(picker, id=IDC_CATEGORY_LIST), "the page Select")
        row = until(lambda: next((row for row in self.rows(categories) if row.texts[0] == CATEGORY), None),
                    f"{CATEGORY} among the categories")
        self.display.click(row)
        self.display.picture("category-checked")
        self.ok(picker)
        until(lambda: self.values(form)["Categories"] == CATEGORY, f"{CATEGORY} in the row")
        self.display.picture("entry")
        self.ok(form)

        window = self.window(MAIN)
        self.wait_for_subjects(window, SUBJECT)
        self.from_bar_menu(window, IDM_SHOW, "Down")  # the first category that is used, and the only one
        self.wait_for_bar_text(window, IDM_SHOW, CATEGORY)
        self.wait_for_subjects(window, SUBJECT)
        self.display.picture("shown-by-category")
        self.close_journal(journal)
        entry, = self.stored()
        self.assertEqual((entry["subject"], entry["categories"]), (SUBJECT, CATEGORY))


if __name__ == "__main__":
    main()
