"""The password: three tries at the start, with nothing of the journal to be seen before the right digits."""
import subprocess
import threading

from driver import Peek, main, until
from screens import IDC_ENTRY_LIST, IDOK, MAIN, JournalStory

DIALOG = "#32770"  # the class of pads and boxes
PAD = "Journal Password"
FIRST_DIGIT = 101
ZERO = 110
CLEAR = 111


class Watch(threading.Thread):
    """Looks at the journal's windows without a pause; notes those that are neither a pad nor a message box."""

    def __init__(self, folder):
        super().__init__(daemon=True)
        self.peek = Peek(folder)
        self.going_on = True
        self.looks = 0
        self.others = []
        self.start()

    def run(self):
        while self.going_on:
            self.others += [w for w in self.peek.elements("windows") if getattr(w, "class") != DIALOG]
            self.looks += 1
        self.peek.close()

    def stop(self):
        """Answers what was noted."""
        self.going_on = False
        self.join()
        return self.others


class Lock(JournalStory):
    def setUp(self):
        super().setUp()
        self.tool("seed", "3")

    def lock(self, digits):
        """Turns the lock on behind the journal's back, which does not run."""
        key = r"HKCU\Software\Talvern\Journal\Options"
        for name, kind, value in (("vacc", "REG_SZ", digits), ("pwActive", "REG_DWORD", "1")):
            subprocess.run(["wine", "reg", "add", key, "/v", name, "/t", kind, "/d", value, "/f"], check=True,
                           stdout=subprocess.DEVNULL, timeout=60)

    def pad(self):
        """Waits for the pad, and for the keys to go to it."""
        pad = self.window(PAD)
        until(lambda: self.display.active_window() == PAD, "the pad to have the keys")
        until(lambda: any(control.focus for control in self.controls(pad)), "a control of the pad to have the keys")
        return pad

    def tap(self, pad, keys):
        for key in keys:
            id = {"0": ZERO, "C": CLEAR}.get(key) or FIRST_DIGIT + int(key) - 1
            self.display.click(self.control(pad, id=id))

    def ok(self, pad):
        self.display.click(self.bar_button(pad, IDOK))

    def deny(self):
        """Waits for the refusal and closes it."""
        self.window(MAIN)
        box, = self.windows()
        self.assertEqual(getattr(box, "class"), DIALOG)
        until(lambda: self.display.active_window() == MAIN, "the refusal to have the keys")
        self.display.key("Return")
        until(lambda: box.window not in [w.window for w in self.windows()], "the refusal to close")

    def test_three_wrong_tries_end_the_journal_with_nothing_shown(self):
        self.lock("1204")
        watch = Watch(self.bin)
        journal = self.start()
        for digits in ("1", "1205", ""):
            pad = self.pad()
            self.tap(pad, digits)
            self.display.picture("pad")
            self.ok(pad)
            self.deny()
        self.assertEqual(self.wait_for_end(journal), 0)
        self.assertEqual(self.windows(), [])
        self.assertEqual(watch.stop(), [])
        self.assertGreater(watch.looks, 10)

    def test_the_third_try_opens(self):
        self.lock("1204")
        watch = Watch(self.bin)
        journal = self.start()
        pad = self.pad()
        self.tap(pad, "7")
        self.ok(pad)
        self.deny()
        self.pad()
        self.display.type("99")
        self.display.key("Return")
        self.deny()
        pad = self.pad()
        self.tap(pad, "8C12")
        self.display.type("045")
        self.display.key("BackSpace")
        self.display.picture("third-try")
        self.assertEqual(watch.stop(), [])
        self.display.key("Return")
        window = self.window(MAIN)
        self.assertEqual(len(self.entries(window)), 3)
        until(lambda: self.windows()[0].foreground, "the journal to be in front")
        until(lambda: self.control(window, id=IDC_ENTRY_LIST).focus, "the keys to go to the list")
        self.display.picture("open")
        self.close_journal(journal)


if __name__ == "__main__":
    main()
