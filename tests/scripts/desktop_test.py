"""tools/desktop.sh finds out what the desktop looks like and tells it to a Wine prefix, once."""
import os
import pathlib
import shutil
import struct
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


class DesktopTest(unittest.TestCase):
    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="journal desktop "))
        self.addCleanup(shutil.rmtree, self.home)
        self.programs = self.home / "bin"
        self.programs.mkdir()
        # Whatever this machine's desktop would say is not asked.
        for name in ("xrdb", "xprop", "dump_xsettings", "gsettings", "fc-match", "fc-list"):
            self.program(name, "exit 1")
        self.environment = {"HOME": str(self.home), "PATH": f"{self.programs}:{os.environ['PATH']}"}

    def program(self, name, script):
        file = self.programs / name
        file.write_text(f"#!/bin/bash\n{script}\n")
        file.chmod(0o755)

    def ask(self, function, *arguments, **variables):
        script = 'set -u; journal=$1; shift; source tools/common.sh; source tools/desktop.sh; "$@"'
        return subprocess.run(["bash", "-c", script, "test", str(ROOT), function, *arguments], cwd=ROOT, check=True,
                              env={**self.environment, **variables}, stdout=subprocess.PIPE, text=True).stdout

    def dpi(self, **variables):
        return self.ask("desktop_dpi", **variables).strip()

    def test_a_desktop_that_says_nothing_has_the_usual_scale(self):
        self.assertEqual(self.dpi(), "96")

    def test_the_resources_of_the_x_server_say_the_scale(self):
        self.program("xrdb", r"printf 'Xcursor.size:\t24\nXft.dpi:\t144\nXft.hinting: 1\n'")
        self.assertEqual(self.dpi(), "144")

    def test_they_are_read_without_xrdb_too(self):
        (self.programs / "xrdb").unlink()
        if shutil.which("xrdb"):
            self.skipTest("this machine has an xrdb of its own")
        self.program("xprop", r"""echo 'RESOURCE_MANAGER = "Xcursor.size:\t24\nXft.dpi:\t192\n"'""")
        self.assertEqual(self.dpi(), "192")

    def test_so_do_the_settings_of_the_desktop(self):
        self.program("dump_xsettings", "echo 'Xft/DPI 122880'")
        self.assertEqual(self.dpi(), "120")

    def test_the_toolkits_variables_count_where_they_are_larger(self):
        self.assertEqual(self.dpi(GDK_SCALE="2"), "192")
        self.assertEqual(self.dpi(GDK_SCALE="2", GDK_DPI_SCALE="0.75"), "144")
        self.assertEqual(self.dpi(QT_SCALE_FACTOR="1.25"), "120")
        self.program("xrdb", "echo 'Xft.dpi: 192'")
        self.assertEqual(self.dpi(GDK_SCALE="2"), "192")

    def test_kde_says_it_in_its_settings(self):
        settings = self.home / ".config/kdeglobals"
        settings.parent.mkdir()
        settings.write_text("[General]\nColorScheme=Breeze\n[KScreen]\nScaleFactor=1.5\n")
        self.assertEqual(self.dpi(XDG_CURRENT_DESKTOP="KDE"), "144")
        self.assertEqual(self.dpi(XDG_CURRENT_DESKTOP="XFCE"), "96")

    def test_gnome_says_it_in_its_settings(self):
        self.program("gsettings", 'case $3 in scaling-factor) echo "uint32 2" ;; *) echo 1.25 ;; esac')
        self.assertEqual(self.dpi(), "240")
        self.program("gsettings", 'case $3 in scaling-factor) echo "uint32 0" ;; *) echo 1.0 ;; esac')
        self.assertEqual(self.dpi(), "96")

    def test_ce_scale_wins(self):
        self.program("xrdb", "echo 'Xft.dpi: 192'")
        self.assertEqual(self.dpi(CE_SCALE="125", GDK_SCALE="2"), "120")
        self.assertEqual(self.dpi(CE_SCALE="050"), "48")

    def test_what_is_no_scale_does_not_count(self):
        for garbage in ("", "large", "-2", "2x", "401", "99999", "1e9", "$(id)"):
            with self.subTest(garbage):
                self.assertEqual(self.dpi(CE_SCALE=garbage, GDK_SCALE="x" + garbage), "96")

    def test_no_scale_is_beyond_what_the_program_draws(self):
        self.assertEqual(self.dpi(GDK_SCALE="9"), "384")

    def test_each_font_of_another_script_is_linked_once(self):
        self.program("fc-list", "printf 'Greek.ttf,Greek\\nHan.ttc,Han Sans\\n'")
        self.program("fc-match", "case $* in *:lang=zh*) printf 'Latin.ttf,Latin\\nHan.ttc,Han Sans\\n' ;;"
                                 " *) printf 'Latin.ttf,Latin\\nGreek.ttf,Greek\\n' ;; esac")
        self.assertEqual(self.ask("script_fonts").splitlines(), ["Greek.ttf,Greek", "Han.ttc,Han Sans"])
        keys = self.ask("desktop_registry")
        text = "".join(c + "\0" for c in "Greek.ttf,Greek\0Han.ttc,Han Sans\0\0").encode()
        self.assertIn('"Tahoma"=hex(7):' + ",".join(f"{byte:02x}" for byte in text) + "\n", keys)

    def test_a_desktop_without_fonts_gives_no_links(self):
        self.assertNotIn("FontLink", self.ask("desktop_registry"))

    def test_the_font_of_menus_is_a_whole_logfont(self):
        line = next(line for line in self.ask("desktop_registry").splitlines() if line.startswith('"MenuFont"=hex:'))
        font = bytes.fromhex(line.partition(":")[2].replace(",", ""))
        height, width, _, _, weight = struct.unpack_from("<5i", font)
        self.assertEqual((len(font), height, width, weight), (92, 11, 0, 400))
        self.assertEqual(font[28:].decode("utf-16-le").rstrip("\0"), "Tahoma")

    def test_a_prefix_is_told_when_something_has_changed(self):
        prefix = self.home / "prefix"
        prefix.mkdir()
        self.program("wine", f'echo "$WINEPREFIX $1 $2" >>"{self.home}/told"')
        for scale, times in (("150", 1), ("150", 1), ("200", 2)):
            self.ask("suit_prefix", str(prefix), CE_SCALE=scale)
            self.assertEqual((self.home / "told").read_text().splitlines(), [f"{prefix} regedit /S"] * times)
        self.assertIn('"LogPixels"=dword:000000c0', (prefix / "desktop.reg").read_text())
        self.assertEqual([file.name for file in prefix.iterdir()], ["desktop.reg"])

    def test_a_prefix_that_could_not_be_told_is_told_again(self):
        prefix = self.home / "prefix"
        prefix.mkdir()
        self.program("wine", "exit 1")
        self.ask("suit_prefix", str(prefix))
        self.assertEqual(list(prefix.iterdir()), [])


if __name__ == "__main__":
    unittest.main()
