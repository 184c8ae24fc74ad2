"""The program is killed: what was acknowledged is there at the next start, and nothing else."""
from driver import main
from screens import MAIN, JournalStory


class Killed(JournalStory):
    def write(self, window, subject):
        form = self.new_entry(window)
        self.fill_text(form, "Subject", subject)
        self.ok(form)
        return self.window(MAIN)

    def test_an_entry_survives_a_kill_right_after_ok(self):
        journal, window = self.open_journal()
        window = self.write(window, "Seen before the cut")
        self.wait_for_subjects(window, "Seen before the cut")
        self.kill(journal)
        self.check_store("Seen before the cut")

        journal, window = self.open_journal()
        self.wait_for_subjects(window, "Seen before the cut")
        self.display.picture("after-the-cut")
        self.close_journal(journal)

    def test_an_entry_that_was_never_saved_is_not_there(self):
        journal, window = self.open_journal()
        window = self.write(window, "Saved")
        form = self.new_entry(window)
        self.fill_text(form, "Subject", "Only typed")
        self.display.picture("only-typed")
        self.kill(journal)
        self.check_store("Saved")

        journal, window = self.open_journal()
        self.wait_for_subjects(window, "Saved")
        self.write(window, "Written afterwards")
        self.close_journal(journal)
        self.check_store("Saved", "Written afterwards")

    def check_store(self, *subjects):
        self.assertEqual(sorted(entry["subject"] for entry in self.stored()), sorted(subjects))
        self.assertIn("the store is sound", self.tool("check"))


if __name__ == "__main__":
    main()
