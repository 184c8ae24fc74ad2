"""Starting, starting twice and closing the journal."""
import subprocess

from driver import main, until
from screens import JournalStory


class StartStop(JournalStory):
    def test_an_empty_journal_opens_and_closes(self):
        journal, window = self.open_journal()
        self.assertEqual(self.entries(window), [])
        self.display.picture("empty")
        self.close_journal(journal)
        self.assertEqual(self.windows(), [])
        self.assertEqual(self.stored(), [])

    def test_a_second_start_brings_the_first_window_forward_and_ends(self):
        # What can be seen is the order the windows have for Windows programs: Wine tells it the window manager only
        # when the window changes within its own program, so on Linux it is ./run that also raises the window.
        first, window = self.open_journal()
        until(lambda: self.windows()[0].foreground, "the journal to be in front")
        above = subprocess.Popen(["wine", "notepad"])
        self.addCleanup(above.wait, 20)
        self.addCleanup(above.kill)
        until(lambda: self.display.active_window().endswith("Notepad"), "another program's window")
        until(lambda: not self.windows()[0].foreground, "another program's window to be in front")

        second = self.start()
        self.assertEqual(self.wait_for_end(second), 0)
        until(lambda: self.windows()[0].foreground, "the journal to be in front again")
        self.assertEqual([w.window for w in self.windows()], [window.window])
        self.assertIsNone(first.poll())


if __name__ == "__main__":
    main()
