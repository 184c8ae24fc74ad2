"""Every rule of tools/lint.py finds its breach and leaves sound files alone."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import lint  # noqa: E402

SOUND = {
    "platform/include/win.h": "#pragma once\n#include <windows.h>\n",
    "res/ids.h": "// Ids.\n#pragma once\n#define IDC_LIST 101\n",
    "text/date_time.h": "// A date.\n#pragma once\n#include <string>\n",
    "list/entry_list.cpp": '#include "ui/window.h"\n#include "filter/filter_settings.h"\n'
                           "int f() { return GetDlgItem(w, IDC_LIST) ? Px(26) : 0; }\n",
    "ui/a.h": '#pragma once\n#include "ui/c.h"\nHWND f();\n',
    "ui/c.h": "#pragma once\n#include <win.h>\n",
    "app/main.cpp": '#include "list/entry_list.h"\n',
    "docs/testing.md": "See [the readme](../README.md).\n",
    "README.md": "# Journal\n",
    "third_party/package-lock.json": '{ "packages": {} }\n',
}

# file, its content, what the report says
BREACHES = [
    ("list/a.cpp", "#include <windows.h>\n", "include <win.h>"),
    ("ui/d.cpp", "#  include <CommCtrl.h>\n", "include <win.h>"),
    ("ui/d.cpp", '#include "data/db_journal.h"\n', "ui/ may not include from data/"),
    ("data/a.cpp", '#include "ui/window.h"\n', "data/ may not include from ui/"),
    ("platform/shell/a.cpp", '#include "text/date_time.h"\n', "platform/ may not include from text/"),
    ("list/a.cpp", '#include "app/main_window.h"\n', "list/ may not include from app/"),
    ("filter/a.cpp", '#include "list/entry_list.h"\n', "builds on it"),
    ("text/a.cpp", "#include <richink.h>\n", "no window library"),
    ("list/a.cpp", "f(GetDateFormatW(a, b));\n", "include <dateformat.h>"),
    ("ui/d.h", "#ifndef A\n#define A\n#endif\n", "#pragma once"),
    ("ui/a.cpp", '#include "ui/b.h"\n#include "ui/a.h"\n', "the first include must be ui/a.h"),
    ("ui/b.h", "#pragma once\n#include <string>\nHWND f();\n", "include <win.h>"),
    ("editor/a.cpp", "f(GetDlgItem(window, 102));\n", "the id 102"),
    ("editor/a.cpp", "f(LoadText(40039));\n", "the id 40039"),
    ("app/a.cpp", "LoadIconW(i, MAKEINTRESOURCEW(103));\n", "the id 103"),
    ("res/ids.h", "#define A 1\nenum { B };\n", "only #define"),
    ("res/ids.h", "#define A 1\n#define A 2\n", "defined in line 1"),
    ("ui/d.cpp", "int a; \n", "at the end of the line"),
    ("ui/d.cpp", "int a;\r\n", "at the end of the line"),
    ("ui/d.cpp", "\tint a;\n", "a tab"),
    ("ui/d.cpp", "int a;", "one line end"),
    ("ui/EntryList.cpp", "int a;\n", "lower_snake_case"),
    ("third_party/package-lock.json", '{ "resolved": "x" }\n', "remove the address"),
    ("docs/testing.md", "![a picture](pictures/none.png)\n", "does not exist"),
    ("docs/testing.md", "a\n" * 151, "150 is the most"),
    ("tools/a.py", "def f(:\n", "not Python"),
    ("tools/a.sh", "if then\n", "tools/a.sh:1"),
]


class LintTest(unittest.TestCase):
    def breaches(self, files):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            subprocess.run(["git", "init", "-q", folder], check=True)
            for path, text in files.items():
                (root / path).parent.mkdir(parents=True, exist_ok=True)
                (root / path).write_bytes(text.encode())
            kept, lint.ROOT = lint.ROOT, root
            try:
                return [f"{path}:{number}: {text}" for rule in lint.RULES for path, number, text in rule(lint.tracked())]
            finally:
                lint.ROOT = kept

    def test_leaves_sound_files_alone(self):
        self.assertEqual(self.breaches(SOUND), [])

    def test_finds_each_breach_once(self):
        for path, text, report in BREACHES:
            with self.subTest(report=report, text=text[:40]):
                found = self.breaches({**SOUND, path: text})
                self.assertEqual(len(found), 1, found)
                self.assertIn(report, found[0])
                self.assertTrue(found[0].startswith(path), found[0])


if __name__ == "__main__":
    unittest.main()
