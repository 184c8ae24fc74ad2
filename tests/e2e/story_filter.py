"""A big journal: by category, sorted, copied, deleted, by months, and the filter after the next start."""
from collections import Counter

from driver import main, until
from screens import (CONFIRM, COPY, DELETE, IDC_ENTRY_LIST, IDC_FILTER_BY_MONTH, IDC_FILTER_CATEGORIES, IDC_FILTER_CATEGORIES_ONLY, IDC_FILTER_MONTHS,
                     IDM_SHOW, IDM_SHOW_ALL, IDM_SORT, MAIN, JournalStory)

ENTRIES = 2000
FIRST_CATEGORY = "Business"  # the first by name of those that entries have


class Filter(JournalStory):
    def setUp(self):
        super().setUp()
        self.assertIn(f"{ENTRIES} entries added", self.tool("seed", str(ENTRIES)))
        self.before = self.stored()
        self.assertEqual(len(self.before), ENTRIES)

    def in_category(self, entries, category):
        return [entry["subject"] for entry in entries if category in entry["categories"].split("|")]

    def in_months(self, *months):
        return [entry["subject"] for entry in self.before if int(entry["start"][5:7]) in months]

    def check_in_sight(self, window, subjects):
        """The list counts these subjects and shows the first of them, in their order."""
        self.wait_for_count(window, len(subjects))
        shown = lambda: self.seen(window)[1]
        until(lambda: shown() and shown() == subjects[:len(shown())],
              lambda: f"{subjects[:12]} in the list; there is {shown()}")

    def check_store(self, subjects):
        self.assertEqual(Counter(entry["subject"] for entry in self.stored()), Counter(subjects))
        self.assertIn("the store is sound", self.tool("check"))

    def test_two_thousand_entries_are_filtered_sorted_copied_and_deleted(self):
        all_subjects = [entry["subject"] for entry in self.before]
        business = self.in_category(self.before, FIRST_CATEGORY)
        self.assertGreater(len(business), 20)
        journal, window = self.open_journal()
        self.check_in_sight(window, all_subjects)

        self.from_bar_menu(window, IDM_SHOW, "Down")
        self.wait_for_bar_text(window, IDM_SHOW, FIRST_CATEGORY)
        self.check_in_sight(window, business)
        self.display.picture("one-category")

        self.wait_for_bar_text(window, IDM_SORT, "Start")
        self.from_bar_menu(window, IDM_SORT, "Down")
        self.wait_for_bar_text(window, IDM_SORT, "Subject")
        self.check_in_sight(window, sorted(business))
        self.from_bar_menu(window, IDM_SORT, "Up")
        descending = sorted(business, reverse=True)
        self.check_in_sight(window, descending)
        self.assertEqual(self.bar_text(window, IDM_SORT), "Subject")
        self.assertEqual(self.bar_text(window, IDM_SHOW), FIRST_CATEGORY)
        self.display.picture("by-subject-descending")

        self.select(window, 0, 1, 3)
        chosen = [descending[index] for index in (0, 1, 3)]
        self.display.picture("three-selected")
        self.from_context_menu(window, 1, COPY)
        copied = sorted(business + chosen, reverse=True)
        self.wait_for_count(window, len(copied))
        self.go_to_top(window)
        self.check_in_sight(window, copied)
        self.display.picture("three-copied")
        self.check_store(all_subjects + chosen)

        again = [copied.index(subject) for subject in chosen]
        self.assertEqual(again[0], 0)  # selected already
        self.select(window, *again[1:])
        self.display.picture("three-selected-again")
        self.delete_selected(window, again[1], "n")
        self.assertEqual(self.selected(window), again)
        self.check_in_sight(window, copied)
        self.check_store(all_subjects + chosen)
        self.delete_selected(window, again[1], "y")
        self.wait_for_count(window, len(descending))
        self.go_to_top(window)
        self.check_in_sight(window, descending)
        self.display.picture("three-deleted")
        self.check_store(all_subjects)

        months = self.filter_by_months(window)
        self.close_journal(journal)

        journal, window = self.open_journal()
        self.check_in_sight(window, months)
        self.assertEqual(self.bar_text(window, IDM_SHOW), "Months...")
        self.assertEqual(self.bar_text(window, IDM_SORT), "Subject")
        self.display.picture("months-after-a-new-start")
        self.clear_in_the_dialog(window, sorted(all_subjects, reverse=True))
        self.close_journal(journal)

        journal, window = self.open_journal()
        self.check_in_sight(window, sorted(all_subjects, reverse=True))
        self.assertEqual(self.bar_text(window, IDM_SHOW), "All")
        self.assertEqual(self.bar_text(window, IDM_SORT), "Subject")
        self.display.picture("all-after-a-new-start")
        self.close_journal(journal)
        self.check_store(all_subjects)

    def go_to_top(self, window):
        """Selects the first row and no other, as the Home key does; a rebuilt list shows the entry it had selected."""
        self.display.key("Home")
        until(lambda: self.row_of_entry(window, 0).selected and
              self.page(self.control(window, id=IDC_ENTRY_LIST)).top == 0, "the first row to be selected")

    def selected(self, window):
        rows = self.page(self.control(window, id=IDC_ENTRY_LIST)).rows
        return [index for index, row in enumerate(rows) if row.selected]

    def delete_selected(self, window, index, answer):
        self.from_context_menu(window, index, DELETE)
        box = self.window(CONFIRM)
        self.assertEqual([c.text for c in self.controls(box, cls="Static") if c.text], ["Delete record?"])
        self.display.picture("confirm")
        self.display.key(answer)
        self.window(MAIN)

    def filter_by_months(self, window):
        form = self.open_filter(window)
        self.display.picture("filter-by-category")
        carriers = len(self.in_category(self.before, FIRST_CATEGORY))
        self.wait_for_status(form, f"Categories decide: {carriers} of {ENTRIES} entries pass")
        self.push(form, IDC_FILTER_CATEGORIES_ONLY)
        self.toggle(form, IDC_FILTER_CATEGORIES, FIRST_CATEGORY)
        self.push(form, IDC_FILTER_BY_MONTH)
        self.wait_for_status(form, "Months decide: none is chosen, nothing passes")
        self.toggle(form, IDC_FILTER_MONTHS, "January")
        self.wait_for_status(form, f"Months decide: {len(self.in_months(1))} of {ENTRIES} entries pass")
        self.toggle(form, IDC_FILTER_MONTHS, "March")
        months = sorted(self.in_months(1, 3), reverse=True)
        self.wait_for_status(form, f"Months decide: {len(months)} of {ENTRIES} entries pass")
        self.display.picture("filter-by-months")
        self.ok(form)
        self.check_in_sight(window, months)
        self.wait_for_bar_text(window, IDM_SHOW, "Months...")
        self.display.picture("months")
        return months

    def clear_in_the_dialog(self, window, subjects):
        form = self.open_filter(window)
        self.wait_for_status(form, f"Months decide: {len(self.in_months(1, 3))} of {ENTRIES} entries pass")
        self.display.click(self.bar_button(form, IDM_SHOW_ALL))
        self.wait_for_status(form, f"{ENTRIES} of {ENTRIES} entries pass")
        self.display.picture("filter-cleared")
        self.ok(form)
        self.check_in_sight(window, subjects)
        self.wait_for_bar_text(window, IDM_SHOW, "All")

    def test_a_category_chosen_from_show_lasts_until_the_program_ends(self):
        subjects = [entry["subject"] for entry in self.before]
        business = self.in_category(self.before, FIRST_CATEGORY)
        journal, window = self.open_journal()
        self.from_bar_menu(window, IDM_SHOW, "Down")
        self.check_in_sight(window, business)
        self.close_journal(journal)

        journal, window = self.open_journal()
        self.check_in_sight(window, subjects)
        self.assertEqual(self.bar_text(window, IDM_SHOW), "All")
        # The dialog's OK keeps it.
        self.from_bar_menu(window, IDM_SHOW, "Down")
        self.check_in_sight(window, business)
        self.ok(self.open_filter(window))
        self.close_journal(journal)

        journal, window = self.open_journal()
        self.check_in_sight(window, business)
        self.assertEqual(self.bar_text(window, IDM_SHOW), FIRST_CATEGORY)
        self.from_bar_menu(window, IDM_SHOW, "End", "Up")
        self.check_in_sight(window, subjects)
        self.close_journal(journal)


if __name__ == "__main__":
    main()
