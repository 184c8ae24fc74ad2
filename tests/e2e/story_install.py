"""The packages for Windows: installed and taken away again, or just unpacked, the journal writes entries and keeps them."""
import os
import pathlib
import pwd
import shutil
import subprocess
import zipfile

from driver import main, run, until
from screens import JournalStory

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAMS = {"journal.exe", "journal-tool.exe", "cehost.dll", "ORVANE.DLL"}
UNINSTALL_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\QuillonJournal"
SUBJECT = "Written after setup"


class Install(JournalStory):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        subprocess.run([ROOT / "package", "--checked"], check=True, stdout=subprocess.DEVNULL, timeout=150)
        packages = cls.bin.parent / "package"
        cls.setup = next(packages.glob("*-setup.exe"))
        cls.zip = next(packages.glob("*.zip"))

    def setUp(self):
        super().setUp()
        self.user = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c" / "users" / pwd.getpwuid(os.getuid()).pw_name
        self.installed = self.user / "AppData/Local/Programs/Quillon Journal"
        self.shortcut = self.user / "AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Quillon Journal.lnk"

    def tearDown(self):
        # A journal that was started by the shortcut is no child of this program's.
        if self.windows():
            subprocess.run(["wine", "taskkill", "/f", "/im", "journal.exe"], timeout=60, capture_output=True)

    def use_the_usual_store(self):
        """From here on the entries are where a person's are: in a place that must be free in this prefix."""
        self.store = self.user / "AppData/Local/Pocket PC/ObjectStore.db"
        self.assertFalse(self.store.parent.exists(), "somebody keeps entries in this prefix")
        self.addCleanup(shutil.rmtree, self.store.parent, ignore_errors=True)
        del self.environment["CE_OBJECT_STORE"]

    def launch(self, *command):
        process = subprocess.Popen([str(word) for word in command], env=self.environment, cwd=self.folder,
                                   stdin=subprocess.DEVNULL)
        self.programs.append(process)
        return process, self.window("Quillon Journal")

    def install(self):
        return subprocess.run(["wine", self.setup, "/S"], timeout=60).returncode

    def uninstall(self):
        """Runs what "Apps & features" would; answers once the uninstaller, which goes on by itself, has ended."""
        _, program, options = self.registered()["QuietUninstallString"].split('"')
        run("wine", program, *options.split())
        until(lambda: not self.registered(), "the program to go from the list of programs")

    def registered(self):
        """What the list of installed programs holds about the journal."""
        found = subprocess.run(["wine", "reg", "query", UNINSTALL_KEY], capture_output=True, text=True, timeout=60)
        lines = [line.split(None, 2) for line in found.stdout.splitlines() if line.startswith("    ")]
        return {name: value for name, kind, value in lines}

    def write_entry(self, main):
        form = self.new_entry(main)
        self.fill_text(form, "Subject", SUBJECT)
        self.write_note(form, "The first line.", "The second line.")
        self.display.picture("written")
        self.ok(form)
        main = self.window("Quillon Journal")
        self.wait_for_subjects(main, SUBJECT)

    def subjects(self, folder):
        """What the journal-tool of that folder finds."""
        listed = run("wine", folder / "journal-tool.exe", "list", env=self.environment).decode()
        return [line.split("\t") for line in listed.splitlines()][1:]

    def test_installed_used_and_taken_away(self):
        self.use_the_usual_store()
        self.assertEqual(self.install(), 0)
        self.assertEqual({file.name for file in self.installed.iterdir()}, PROGRAMS | {"readme.txt", "uninstall.exe"})
        entry = self.registered()
        self.assertEqual(entry["DisplayName"], "Quillon Journal")
        self.assertIn(entry["DisplayVersion"], self.setup.name)
        self.assertTrue(entry["DisplayIcon"].endswith(r"\Programs\Quillon Journal\journal.exe"), entry)
        self.assertGreater(int(entry["EstimatedSize"], 16), 1000)

        process, window = self.launch("wine", "start", "/wait", "/unix", self.shortcut)
        self.write_entry(window)
        self.assertEqual(self.install(), 2, "installed over a journal that runs")
        self.close_journal(process)
        self.assertEqual(self.install(), 0, "installed over itself")
        listed = self.subjects(self.installed)
        self.assertEqual(len(listed), 1)
        self.assertIn(SUBJECT, listed[0])

        kept = self.installed / "backup.db"
        kept.write_text("the person's own")
        before = self.store.read_bytes()
        self.uninstall()
        until(lambda: list(self.installed.iterdir()) == [kept], "the program's files to go and no other")
        self.assertFalse(self.shortcut.exists())
        self.assertEqual(self.store.read_bytes(), before)
        kept.unlink()

        self.assertEqual(self.install(), 0, "installed anew")
        process, window = self.launch("wine", self.installed / "journal.exe")
        self.wait_for_subjects(window, SUBJECT)
        self.close_journal(process)
        self.uninstall()
        until(lambda: not self.installed.exists(), "the program's folder to go")
        self.assertTrue(self.store.exists())

    def test_unpacked_and_used(self):
        folder = self.folder / "un zipped"
        with zipfile.ZipFile(self.zip) as archive:
            archive.extractall(folder)
        (programs,) = folder.iterdir()
        self.assertEqual({file.name for file in programs.iterdir()}, PROGRAMS | {"readme.txt"})
        self.assertTrue((programs / "readme.txt").read_bytes().startswith(b"Quillon Journal\r\n"))

        process, window = self.launch("wine", programs / "journal.exe")
        self.write_entry(window)
        self.close_journal(process)
        (entry,) = self.subjects(programs)
        self.assertIn(SUBJECT, entry)


if __name__ == "__main__":
    main()
