#!/usr/bin/env python3
"""Joins the pictures of all screens into one sheet for each of three screens, in docs/pictures/.

    WINEPREFIX=~/some/prefix DISPLAY=:5 python3 tools/contact_sheet.py [--bin build/checked/bin]

The pictures come from tests/e2e/story_tour.py, which goes through the screens of the real program; it clears the
journal's settings. Needs ImageMagick, as the stories do.
"""
import argparse
import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
COLUMNS = 9
SHEETS = (  # name, what the journal is given, how large a screen is in the sheet
    ("240x320", {"CE_SCREEN": "240x320"}, "100%"),
    ("480x640", {"CE_SCREEN": "480x640"}, "50%"),
    ("200-percent", {"CE_SCALE": "200"}, "50%"),
)


def main():
    parser = argparse.ArgumentParser(description="Makes the sheets of docs/pictures anew.")
    parser.add_argument("--bin", default=ROOT / "build" / "checked" / "bin", type=pathlib.Path)
    folder = parser.parse_args().bin.resolve()
    for name, settings, size in SHEETS:
        subprocess.run([sys.executable, "-B", ROOT / "tests" / "e2e" / "story_tour.py", "--bin", folder], check=True,
                       env={**os.environ, **settings})
        pictures = sorted((folder.parent / "screens" / "Tour").glob("*.png"))
        sheet = ROOT / "docs" / "pictures" / f"screens-{name}.png"
        subprocess.run(["montage", *pictures, "-filter", "triangle", "-resize", size, "-tile", f"{COLUMNS}x",
                        "-geometry", "+4+4", "-background", "gray80", "-depth", "8", "-strip",
                        "-define", "png:compression-level=9", f"PNG24:{sheet}"], check=True)
        print(name, "joined of", len(pictures), "pictures")


if __name__ == "__main__":
    main()
