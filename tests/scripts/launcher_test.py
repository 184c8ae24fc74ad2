"""tools/launcher.sh enters the journal in the desktop's menu and takes out what it has put there, and nothing else."""
import configparser
import os
import pathlib
import re
import shutil
import struct
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
SIZES = (16, 32, 48, 64, 128, 256)


def unescaped(value):
    """A value of a desktop file as the desktop reads it."""
    return re.sub(r"\\(.)", lambda found: {"s": " ", "n": "\n", "t": "\t", "r": "\r"}.get(found[1], found[1]), value)


def words_of(command):
    """The words of an Exec key that a desktop would start."""
    words = []
    for quoted, plain in re.findall(r'"((?:[^"\\]|\\.)*)"|([^\s"]+)', unescaped(command)):
        word = re.sub(r"\\(.)", r"\1", quoted) if quoted else plain
        assert not re.search("(?<!%)(%%)*%(?!%)", word), f"a field code in {word}"
        words.append(word.replace("%%", "%"))
    return words


class LauncherTest(unittest.TestCase):
    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="journal launcher "))
        self.addCleanup(shutil.rmtree, self.home)
        self.data = self.home / "data"
        self.environment = dict(os.environ, HOME=str(self.home), XDG_DATA_HOME=str(self.data))

    def install(self, journal=ROOT):
        script = 'set -u; journal=$1; source tools/common.sh; source tools/launcher.sh; install_launcher'
        subprocess.run(["bash", "-c", script, "test", journal], cwd=ROOT, env=self.environment, check=True)

    def folder(self, name):
        """Another folder of the journal's."""
        folder = self.home / name
        folder.mkdir()
        (folder / "res").symlink_to(ROOT / "res")
        return folder

    def uninstall(self):
        subprocess.run([ROOT / "run", "--uninstall"], env=self.environment, check=True, stdout=subprocess.DEVNULL)

    def files(self):
        return {str(path.relative_to(self.data)) for path in self.data.rglob("*") if path.is_file()}

    def entry(self):
        parser = configparser.RawConfigParser(strict=True)
        parser.optionxform = str
        parser.read(self.data / "applications/quillon-journal.desktop", encoding="utf-8")
        return parser["Desktop Entry"]

    def test_enters_a_valid_entry_that_starts_this_folders_journal(self):
        self.install()
        subprocess.run(["desktop-file-validate", self.data / "applications/quillon-journal.desktop"], check=True)
        self.assertEqual(words_of(self.entry()["Exec"]), [str(ROOT / "run"), "--from-menu"])
        self.assertEqual(unescaped(self.entry()["TryExec"]), str(ROOT / "run"))
        self.assertEqual(self.entry()["StartupWMClass"], "journal.exe")

    def test_brings_an_icon_of_every_size(self):
        self.install()
        for size in SIZES:
            data = (self.data / f"icons/hicolor/{size}x{size}/apps/quillon-journal.png").read_bytes()
            self.assertEqual(struct.unpack(">8s8xII", data[:24]), (b"\x89PNG\r\n\x1a\n", size, size))

    def test_installing_again_changes_nothing(self):
        self.install()
        before = {name: (self.data / name).read_bytes() for name in self.files()}
        self.install()
        self.assertEqual({name: (self.data / name).read_bytes() for name in self.files()}, before)

    def test_a_moved_folder_is_entered_anew(self):
        self.install(self.folder("before"))
        self.install()
        self.assertEqual(words_of(self.entry()["Exec"])[0], str(ROOT / "run"))
        self.assertEqual(len(self.files()), 1 + len(SIZES))

    def test_any_name_of_the_folder_will_do(self):
        odd = self.folder('it\'s "odd"; $HOME 100% %u \\n `id` \u00e4')
        self.install(odd)
        subprocess.run(["desktop-file-validate", self.data / "applications/quillon-journal.desktop"], check=True)
        self.assertEqual(words_of(self.entry()["Exec"]), [str(odd / "run"), "--from-menu"])
        self.assertEqual(unescaped(self.entry()["TryExec"]), str(odd / "run"))

    def test_uninstalling_leaves_entries_and_everything_else(self):
        store = self.data / "quillon-journal/wine/drive_c/users/me/AppData/Local/Pocket PC/ObjectStore.db"
        other = self.data / "icons/hicolor/48x48/apps/other.png"
        for file in store, other, self.data / "applications/other.desktop":
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text("somebody's")
        before = self.files()
        self.install()
        self.uninstall()
        self.assertEqual(self.files(), before)
        self.assertEqual(store.read_text(), "somebody's")

    def test_uninstalling_what_is_not_installed_is_no_failure(self):
        self.uninstall()

    def test_a_relative_data_home_does_not_count(self):
        self.environment["XDG_DATA_HOME"] = "relative"
        self.install()
        self.data = self.home / ".local/share"
        self.assertIn("applications/quillon-journal.desktop", self.files())


if __name__ == "__main__":
    unittest.main()
