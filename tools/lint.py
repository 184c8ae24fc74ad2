#!/usr/bin/env python3
"""Checks the rules of this source that no compiler checks; prints each breach as file:line: text.

usage: tools/lint.py          (run by ./test; exits with 1 when a rule is broken)

Every rule is one function below, and its first line says what it asks for and why.
"""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# What each folder may include from, besides itself. Arrows only point down.
PLATFORM = {"platform"}
BLOCKS = PLATFORM | {"text", "ui", "data"}
EXCHANGE = PLATFORM | {"text", "data"}
SCREENS = {"filter", "lock", "list", "export", "pickers", "editor", "outlook", "find"}
MAY_USE = {
    "platform": set(),
    "text": PLATFORM,
    "ui": PLATFORM | {"text"},
    "data": PLATFORM | {"text"},
    "exchange": EXCHANGE,
    **{screen: BLOCKS | SCREENS | {"exchange"} for screen in SCREENS},
    "app": BLOCKS | SCREENS | {"exchange"},
    "tools": BLOCKS | {"export", "exchange"},  # readers and writers of its files
    "bench": BLOCKS | SCREENS | {"app"},
}
# Screens may know each other, but not in a circle: no screen includes one that stands to its right.
SCREEN_ORDER = ["filter", "lock", "list", "export", "pickers", "editor", "outlook", "find"]

SYSTEM_HEADERS = re.compile(
    r"(windows|windowsx|winbase|winuser|wingdi|winnt|winreg|winnls|commctrl|commdlg|richedit|richole|ole2|objbase"
    r"|oleauto|ocidl|shellapi|shlobj|shlwapi|uxtheme|tchar)\.h", re.IGNORECASE)
SYSTEM_TYPES = re.compile(
    r"\b(HWND|HINSTANCE|HMODULE|HMENU|HDC|HFONT|HBITMAP|HBRUSH|HICON|HANDLE|HKEY|HRESULT|BOOL|BYTE|WORD|DWORD|UINT|INT_PTR"
    r"|LONG|LRESULT|LPARAM|WPARAM|RECT|POINT|SIZE|FILETIME|SYSTEMTIME|NMHDR|MSG|CALLBACK|WINAPI|IUnknown|BSTR)\b")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^">]+)[">]')

# Calls whose argument is an id of ours. Such an id has a name in res/ids.h; the number alone tells a reader nothing.
ID_CALLS = re.compile(
    r"\b(?:GetDlgItem|SetDlgItemText|GetDlgItemText|SetDlgItemInt|GetDlgItemInt|CheckDlgButton|IsDlgButtonChecked"
    r"|SendDlgItemMessage|EndDialog)W?\s*\(\s*[^,()]+,\s*(\d{2,})\b"
    r"|\b(?:LoadText|MAKEINTRESOURCEW?)\s*\(\s*(\d{2,})\b"
    r"|\bLoadStringW?\s*\(\s*[^,]+,\s*(\d{2,})\b")


def tracked():
    """The files of the repository, those not yet added included."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                            check=True, capture_output=True).stdout.decode()
    return [path for path in map(pathlib.PurePosixPath, sorted(set(filter(None, listed.split("\0")))))
            if (ROOT / path).is_file()]


def source_lines(path):
    return (ROOT / path).read_text(encoding="utf-8").splitlines()


def is_cpp(path):
    return path.suffix in (".cpp", ".h")


def system_headers_come_through_one_door(files):
    """Only platform/include/win.h includes the system's headers: its macros rename methods, so all must see them."""
    for path in filter(is_cpp, files):
        if str(path) == "platform/include/win.h":
            continue
        for number, line in enumerate(source_lines(path), 1):
            found = INCLUDE.match(line)
            if found and SYSTEM_HEADERS.fullmatch(found[2]):
                yield path, number, f"include <win.h> instead of <{found[2]}>"


def folders_depend_downwards(files):
    """A folder includes only what lies below it, so that each can be built, read and tested without those above."""
    for path in filter(is_cpp, files):
        folder = path.parts[0]
        if folder not in MAY_USE:
            continue
        for number, line in enumerate(source_lines(path), 1):
            found = INCLUDE.match(line)
            other = found and found[1] == '"' and found[2].split("/")[0]
            if not other or other == folder or other not in MAY_USE:
                continue
            if other not in MAY_USE[folder]:
                yield path, number, f"{folder}/ may not include from {other}/"
            elif folder in SCREENS and other in SCREENS and SCREEN_ORDER.index(other) > SCREEN_ORDER.index(folder):
                yield path, number, f"{folder}/ may not include from {other}/, which builds on it"


def text_knows_no_window(files):
    """text/ compiles without a window library, so that its rules can be tested in milliseconds."""
    for path in filter(is_cpp, files):
        if path.parts[0] != "text":
            continue
        for number, line in enumerate(source_lines(path), 1):
            found = INCLUDE.match(line)
            if found and found[2] in ("aygshell.h", "richink.h", "inkx.h", "px.h"):
                yield path, number, "text/ knows no window library"


def dates_are_written_one_way(files):
    """GetDateFormatW is called through <dateformat.h>: Wine's own writes an era twice."""
    for path in filter(is_cpp, files):
        if path.parts[0] not in MAY_USE or path.parts[0] == "platform":
            continue
        lines = source_lines(path)
        calls = [number for number, line in enumerate(lines, 1) if "GetDateFormatW(" in line]
        if calls and not any("<dateformat.h>" in line for line in lines):
            yield path, calls[0], "include <dateformat.h>"


def headers_are_guarded_one_way(files):
    """Every header starts (after its comment) with #pragma once."""
    for path in files:
        if path.suffix != ".h" or str(path) == "res/ids.h":
            continue
        code = [line for line in source_lines(path) if line.strip() and not line.startswith("//")]
        if not code or code[0] != "#pragma once":
            yield path, 1, "the first line of code must be #pragma once"


def headers_come_first_in_their_own_file(files):
    """x.cpp includes x.h before anything else, which proves that the header leans on nothing."""
    for path in filter(lambda path: path.suffix == ".cpp", files):
        own = path.with_suffix(".h")
        if own not in files:
            continue
        first = next((found[2] for found in map(INCLUDE.match, source_lines(path)) if found), None)
        if first != str(own) and not str(own).endswith(f"/{first}"):
            yield path, 1, f"the first include must be {own}"


def headers_include_the_system_they_name(files):
    """A header that names a type of the system's reaches win.h: the build, which has it compiled already, cannot tell."""
    headers = {path for path in files if path.suffix == ".h"}
    includes = {}
    for path in headers:
        named = [found[2] for found in map(INCLUDE.match, source_lines(path)) if found]
        includes[path] = [pathlib.PurePosixPath(folder + name) for name in named for folder in ("", "platform/include/")]

    def reaches_the_system(path, seen):
        if path.name == "win.h":
            return True
        seen.add(path)
        return any(reaches_the_system(other, seen) for other in includes.get(path, [])
                   if other in headers and other not in seen)

    for path in sorted(headers):
        if str(path) == "res/ids.h" or path.parts[0] == "tests" or reaches_the_system(path, set()):
            continue
        for number, line in enumerate(source_lines(path), 1):
            if SYSTEM_TYPES.search(line.split("//")[0]):
                yield path, number, "include <win.h> for the system's types"
                break


def ids_have_names(files):
    """Ids of controls, strings and resources are written by their names from res/ids.h."""
    for path in filter(is_cpp, files):
        if path.parts[0] not in SCREENS | {"app", "ui"}:
            continue
        for number, line in enumerate(source_lines(path), 1):
            found = ID_CALLS.search(line)
            if found:
                yield path, number, f"the id {next(filter(None, found.groups()))} needs a name in res/ids.h"


def ids_header_holds_only_defines(files):
    """res/ids.h is read by the resource compiler, which knows nothing else; and no name is given twice."""
    for path in files:
        if str(path) != "res/ids.h":
            continue
        seen = {}
        for number, line in enumerate(source_lines(path), 1):
            text = line.strip()
            found = re.match(r"#define\s+(\w+)", text)
            if found and found[1] in seen:
                yield path, number, f"{found[1]} was defined in line {seen[found[1]]}"
            elif found:
                seen[found[1]] = number
            elif text and not text.startswith(("//", "#pragma once")):
                yield path, number, "only #define and comments"


def texts_are_clean(files):
    """No tabs where spaces belong, no blanks at a line's end, LF line ends, one line end at a file's end."""
    for path in files:
        if path.suffix not in (".cpp", ".h", ".py", ".rc", ".rc2", ".md", ".txt", ".cmake", ".json", ".sh", ""):
            continue
        data = (ROOT / path).read_bytes()
        if b"\0" in data:
            continue
        if data and (not data.endswith(b"\n") or data.endswith(b"\n\n")):
            yield path, data.count(b"\n") + 1, "the file must end with one line end"
        for number, line in enumerate(data.split(b"\n"), 1):
            # In Python a blank may be part of a picture drawn with letters.
            if line.endswith((b"\r",) if path.suffix == ".py" else (b" ", b"\t", b"\r")):
                yield path, number, "blank, tab or carriage return at the end of the line"
            elif is_cpp(path) and b"\t" in line:
                yield path, number, "a tab; indent with spaces, write \\t in texts"


def file_names_are_lower_snake_case(files):
    """entry_list.h, not EntryList.h: a name is found the same way on every system."""
    for path in files:
        if is_cpp(path) or path.suffix in (".rc", ".rc2", ".py"):
            if not re.fullmatch(r"[a-z0-9_]+\.[a-z0-9]+", path.name):
                yield path, 1, "file names are lower_snake_case"


def the_lock_file_names_no_server(files):
    """npm takes packages from wherever its user's settings say; the hashes tell whether they are the right ones."""
    for path in files:
        if path.name == "package-lock.json":
            for number, line in enumerate(source_lines(path), 1):
                if "://" in line or '"resolved"' in line:
                    yield path, number, "remove the address (npm's omit-lockfile-registry-resolved)"


def documents_are_short_and_their_links_lead_somewhere(files):
    """README and docs/ stay under 150 lines each, and every relative link and picture exists."""
    for path in files:
        if path.suffix != ".md":
            continue
        lines = source_lines(path)
        if len(lines) > 150:
            yield path, 150, f"{len(lines)} lines; 150 is the most"
        for number, line in enumerate(lines, 1):
            for target in re.findall(r"\]\(([^)#\s]+)[^)]*\)", line):
                if "://" not in target and not (ROOT / path.parent / target).exists():
                    yield path, number, f"{target} does not exist"


def scripts_are_sound(files):
    """Shell scripts parse, and so does Python."""
    for path in files:
        if path.suffix == ".py":
            try:
                compile((ROOT / path).read_text(encoding="utf-8"), str(path), "exec")
            except SyntaxError as error:
                yield path, error.lineno or 1, f"not Python: {error.msg}"
        elif path.suffix == ".sh" or str(path) in ("run", "test", "compile", "package", "journal-tool", ".ci/run"):
            checked = subprocess.run(["bash", "-n", path], cwd=ROOT, capture_output=True, text=True)
            if checked.returncode:
                yield path, 1, checked.stderr.strip()


RULES = [
    system_headers_come_through_one_door, folders_depend_downwards, text_knows_no_window, dates_are_written_one_way,
    headers_are_guarded_one_way, headers_come_first_in_their_own_file, headers_include_the_system_they_name,
    ids_have_names, ids_header_holds_only_defines, texts_are_clean, file_names_are_lower_snake_case,
    the_lock_file_names_no_server, documents_are_short_and_their_links_lead_somewhere, scripts_are_sound,
]


def main():
    files = tracked()
    breaches = [breach for rule in RULES for breach in rule(files)]
    for path, number, text in breaches:
        print(f"{path}:{number}: {text}")
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
