"""Drives the real journal.exe as a person does: looks at the display, moves the mouse, clicks, types.

A story is a class derived from Story with test_ methods (Python's unittest). It gets a journal of its own: an empty
store, no settings, the display of this process (DISPLAY) and its Wine prefix (WINEPREFIX), which ./test sets up.
Everything is acted out through xdotool; what the screen shows comes from peek.exe (see peek.cpp) and from pictures.
Nothing here sleeps for a guessed time: until() asks again and again until what is awaited is there.
"""
import argparse
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

MENU = "#32768"  # the window class of menus
PATIENCE = 20.0  # seconds until something awaited counts as never coming

_arguments = None


class Element:
    """Something on the display: a window, a control, a row, a tab or a button, as peek.exe described it."""

    def __init__(self, fields):
        self.__dict__.update(fields)

    @property
    def middle(self):
        left, top, right, bottom = self.place
        return (left + right) // 2, (top + bottom) // 2

    def __repr__(self):
        return "Element(%s)" % ", ".join(f"{name}={value!r}" for name, value in self.__dict__.items())


def until(condition, what, patience=PATIENCE):
    """Answers condition()'s first true result; fails with what(), or the text `what`, when none comes in time."""
    end = time.monotonic() + patience
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise AssertionError(f"waited {patience:g} seconds in vain for {what() if callable(what) else what}")
        time.sleep(0.03)


def run(*command, **more):
    return subprocess.run([str(word) for word in command], check=True, stdout=subprocess.PIPE, timeout=60, **more).stdout


class Display:
    """The mouse, the keys and the pictures."""

    def __init__(self, pictures):
        self.pictures = pictures
        self.taken = 0

    def click(self, place, times=1, button=1, holding=None):
        """Clicks the middle of an element, or a point; `holding` is a key that is held meanwhile ("ctrl")."""
        x, y = place.middle if isinstance(place, Element) else place
        # Both presses of a double click go out at once, so that a busy machine cannot tear them apart.
        press = ["mousemove", x, y, "click", "--repeat", times, "--delay", 40, button]
        run("xdotool", *(["keydown", holding, *press, "keyup", holding] if holding else press))

    def double_click(self, place):
        self.click(place, times=2)

    def right_click(self, place):
        self.click(place, button=3)

    def draw(self, points):
        """Drags the pressed mouse along the points."""
        (x, y), *others = points
        run("xdotool", "mousemove", x, y, "mousedown", 1)
        for x, y in others:
            run("xdotool", "mousemove", x, y)
        run("xdotool", "mouseup", 1)

    def wheel_down(self, place):
        run("xdotool", "mousemove", *place, "click", 5)

    def type(self, text):
        run("xdotool", "type", "--delay", 15, "--", text)

    def key(self, *names):
        run("xdotool", "key", "--delay", 15, *names)

    def active_window(self):
        """The title of the window that has the keys, whichever program's it is."""
        found = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True, timeout=60)
        return found.stdout.strip()

    def picture(self, name):
        """Saves what the display shows, for people to look at; answers the file."""
        self.taken += 1
        file = self.pictures / f"{self.taken:02d}-{name}.png"
        run("import", "-silent", "-window", "root", file)
        return file


class Peek:
    """Asks peek.exe, which runs as long as the story."""

    def __init__(self, folder):
        self.process = subprocess.Popen(["wine", str(folder / "peek.exe")], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True)

    def ask(self, command, window=0):
        self.process.stdin.write(f"{command} {window}\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline()
        if not answer:
            raise AssertionError("peek.exe has ended")
        return json.loads(answer)

    def elements(self, command, window=0):
        return [Element(fields) for fields in self.ask(command, window)]

    def close(self):
        self.process.stdin.close()
        self.process.stdout.close()
        self.process.wait(PATIENCE)


class Story(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.bin = pathlib.Path(_arguments.bin).resolve()
        pictures = cls.bin.parent / "screens" / cls.__name__
        shutil.rmtree(pictures, ignore_errors=True)
        pictures.mkdir(parents=True)
        cls.display = Display(pictures)

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="journal-story-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.store = self.folder / "store.db"
        # A device of the classic size, unless somebody asks for a look at another.
        self.environment = dict({"CE_SCREEN": "240x320"}, **os.environ,
                                CE_OBJECT_STORE="Z:" + str(self.store).replace("/", "\\"))
        self.programs = []
        self.addCleanup(self.end_programs)
        self.peek = Peek(self.bin)
        self.addCleanup(self.peek.close)
        if not self.peek.ask("forget-settings"):
            raise AssertionError("the settings of an earlier story cannot be removed")

    # ---- the program ----

    def start(self):
        """Starts the journal; answers its process at once."""
        process = subprocess.Popen(["wine", str(self.bin / "journal.exe")], env=self.environment, cwd=self.folder,
                                   stdin=subprocess.DEVNULL)
        self.programs.append(process)
        return process

    def wait_for_end(self, process):
        try:
            return process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            raise AssertionError("the journal does not end") from None

    def kill(self, process):
        """Ends the program with no chance to write anything, as a power cut would."""
        process.send_signal(signal.SIGKILL)
        process.wait(PATIENCE)
        until(lambda: not self.windows(), "the killed program's windows to go")

    def end_programs(self):
        if not self._outcome.success:
            print("the display at that moment:", self.display.picture("failed"), file=sys.stderr)
        for process in self.programs:
            if process.poll() is None:
                process.kill()
                process.wait(PATIENCE)

    def tool(self, *arguments):
        """Runs journal-tool on this story's store; answers what it prints."""
        return run("wine", self.bin / "journal-tool.exe", *arguments, env=self.environment).decode().replace("\r\n", "\n")

    # ---- what is there to see ----

    def windows(self):
        return self.peek.elements("windows")

    def window(self, title, keys=True):
        """Waits for the window with that title to be on top, to take input and, unless `keys` is false, to have the
        keyboard: a window manager need not give that on when a screen closes of itself, and a person clicks then."""
        def found():
            windows = self.windows()
            return (windows and windows[0].text == title and windows[0].enabled
                    and (not keys or self.display.active_window() == title) and windows[0])
        return until(found, lambda: f'the window "{title}"; there are {[w.text for w in self.windows()]}')

    def controls(self, window, *, id=None, cls=None, visible=True):
        return [element for element in self.peek.elements("tree", window.window)[1:]
                if (id is None or element.id == id) and (cls is None or getattr(element, "class") == cls)
                and (not visible or element.visible)]

    def control(self, window, **description):
        """Waits for the one visible control that fits id= and cls=."""
        return until(lambda: (self.controls(window, **description) or [None])[0],
                     f"the control {description} in {window.text!r}")

    def rows(self, list_view):
        return self.peek.elements("rows", list_view.window)

    def page(self, list_view):
        """What can be seen of a list view: `count`, all its rows; `rows`, those that are in sight."""
        page = Element(self.peek.ask("page", list_view.window))
        page.rows = [Element(row) for row in page.rows]
        return page

    def texts(self, list_view):
        return [row.texts for row in self.rows(list_view)]

    def tab(self, tabs, text):
        return next(tab for tab in self.peek.elements("tabs", tabs.window) if tab.text == text)

    def bar_button(self, window, command):
        """The button of the window's menu bar (or another toolbar) that gives this command."""
        def found():
            for toolbar in self.controls(window, cls="ToolbarWindow32"):
                for button in self.peek.elements("buttons", toolbar.window):
                    if button.command == command and not button.hidden:
                        return button
        return until(found, f"a button for the command {command}")

    def menu(self):
        """Waits for a menu to open; answers its window."""
        return until(lambda: next((w for w in self.windows() if getattr(w, "class") == MENU), None), "a menu to open")

    def until_no_menu(self):
        until(lambda: MENU not in [getattr(w, "class") for w in self.windows()], "the menu to close")

    def choices(self, combo):
        return Element(self.peek.ask("choices", combo.window))

    def open_list(self, combo):
        """Clicks the arrow of a drop-down; answers the list that opens."""
        _, top, right, bottom = combo.place
        self.display.click((right - 8, (top + bottom) // 2))
        return until(lambda: next((w for w in self.windows() if getattr(w, "class") == "ComboLBox"), None),
                     "a list to drop down")

    def choose(self, combo, text):
        """Picks a line from a drop-down's list with the mouse, turning the wheel when it is further down."""
        opened = self.open_list(combo)
        left, top, right, bottom = opened.place
        lines = lambda: self.peek.elements("lines", opened.window)
        line = lambda: next((line for line in lines() if line.text == text), None)
        if not line():
            raise AssertionError(f"{text!r} is not among {[line.text for line in lines()]}")
        while line().middle[1] >= bottom - 1:
            before = line().place
            self.display.wheel_down(((left + right) // 2, (top + bottom) // 2))
            until(lambda: line().place != before, "the list to scroll")
        self.display.click((left + 12, line().middle[1]))
        until(lambda: opened.window not in [w.window for w in self.windows()], "the list to close")


def main():
    global _arguments
    parser = argparse.ArgumentParser(description="A story against the real journal.exe.")
    parser.add_argument("--bin", required=True, help="the folder of journal.exe, journal-tool.exe and peek.exe")
    _arguments, rest = parser.parse_known_args()
    for name in ("WINEPREFIX", "DISPLAY"):
        if not os.environ.get(name):
            sys.exit(f"{name} is not set; a story clears the journal's settings, so it wants a prefix of its own")
    unittest.main(argv=[sys.argv[0], *rest], verbosity=2)
