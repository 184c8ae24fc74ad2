#!/usr/bin/env python3
"""Draws the program's pictures into res/ and the installer's beside its script. Run it after changing a drawing; the
files it writes are checked in.

    python3 tools/draw_bitmaps.py

Small pictures are drawn pixel by pixel, as letters; the icon, and what larger screens show, as shapes, once for each
size.
"""
import pathlib
import struct
import zlib

# What a letter in a pixel drawing stands for. A transparent colour is the one the screens leave out when they draw.
COLOURS = {
    "#": (0x1F, 0x2A, 0x37),  # outline
    "b": (0x2E, 0x6D, 0xA4),  # blue
    "l": (0xBF, 0xDD, 0xF4),  # light blue
    "w": (0xFF, 0xFF, 0xFF),
    "k": (0x00, 0x00, 0x00),
    "y": (0xE3, 0xA8, 0x2B),  # yellow
    "d": (0xA8, 0x76, 0x14),  # dark yellow
    "g": (0x59, 0x63, 0x6E),  # grey
    "r": (0xC0, 0x22, 0x22),  # red
    ".": (0xC0, 0xC0, 0xC0),  # transparent in menu bar pictures
    "_": (0xFF, 0xFF, 0xFF),  # transparent in the arrow and the check
}

FIND = """
................
....####........
..##llll##......
..#lwwlll#......
.#lwwlllll#.....
.#lwllllll#.....
.#llllllll#.....
.#llllllll#.....
..#llllll#......
..##llll###.....
....####.yd#....
.........#yd#...
..........#yd#..
...........#y#..
............##..
................
"""

FILTER = """
................
.##############.
.#llllllllllll#.
..#lbbbbbbbbl#..
...#lbbbbbbl#...
....#lbbbbl#....
.....#lbbl#.....
......#bb#......
......#bb#......
......#bb#......
......#bb#......
......#bb#......
......#b#.......
......##........
................
................
"""

TIME_STAMP = """
................
.....#####......
...##wwwww##....
..#wwwwbwwww#...
.#wwwwwbwwwww#..
.#wwwwwbwwwww#..
#wwwwwwbwwwwww#.
#wwwwwwbwwwwww#.
#wwwwwwbbbbwww#.
#wwwwwwwwwwwww#.
.#wwwwwwwwwww#..
.#wwwwwwwwwww#..
..#wwwwwwwww#...
...##wwwww##....
.....#####......
................
"""

DATE_STAMP = """
...##....##.....
.############...
.#bbbbbbbbbb#...
.#bbbbbbbbbb#...
.############...
.#wwwwwwwwww#...
.#wgwgwgwgww#...
.#wwww######....
.#wgw#wwwwww#...
.#ww#wwwbwwww#..
.#wg#wwwbwwww#..
.###wwwwbbbwww#.
....#wwwwwwww#..
....#wwwwwwww#..
.....#wwwwww#...
......######....
"""

PEN = """
................
............##..
...........#yy#.
..........#yyyd#
.........#yyydd#
........#yyydd#.
.......#yyydd#..
......#yyydd#...
.....#yyydd#....
....#wyydd#.....
....#wwdd#......
...#www##.......
...###..........
................
.bb..bbb..bb....
b..bb...bb..bb..
"""

BLANK = "\n".join(["." * 16] * 16)

ARROW = """
____________
____________
____________
____________
__gggggggg__
___gggggg___
____gggg____
_____gg_____
____________
____________
____________
____________
"""

CHECK = """
____________
____________
__________k_
_________kk_
________kkk_
_k_____kkk__
_kk___kkk___
_kkk_kkk____
__kkkkk_____
___kkk______
____k_______
____________
"""

# Priorities and sensitivities, one picture for each row of their tables, on the detail view's white.
LOW = """
____________
____bbb_____
____bbb_____
____bbb_____
____bbb_____
____bbb_____
_bbbbbbbbb__
__bbbbbbb___
___bbbbb____
____bbb_____
_____b______
____________
"""

NORMAL = """
____________
____________
____________
____________
__ggggggg___
__ggggggg___
____________
__ggggggg___
__ggggggg___
____________
____________
____________
"""

HIGH = """
____rrr_____
___rrrrr____
___rrrrr____
___rrrrr____
___rrrrr____
____rrr_____
____rrr_____
_____r______
____________
____rrr_____
____rrr_____
____________
"""

OPEN_PAGE = """
__ggggggg___
__gwwwwgwg__
__gwwwwgggg_
__gwwwwwwwg_
__gwgggggwg_
__gwwwwwwwg_
__gwgggggwg_
__gwwwwwwwg_
__gwgggwwwg_
__gwwwwwwwg_
__ggggggggg_
____________
"""

PERSON = """
____####____
___#llll#___
___#llll#___
___#llll#___
____####____
___#bbbb#___
__#bbbbbb#__
_#bbbbbbbb#_
_#bbbbbbbb#_
_#bbbbbbbb#_
_##########_
____________
"""

KEY = """
____________
__ddd_______
_dyyyd______
dyydyyd_____
dyd_dyddddd_
dyydyyyyyyyd
_dyyyddydyd_
__ddd_dydyd_
_______d_d__
____________
____________
____________
"""

LOCK = """
____####____
___#gggg#___
__#g####g#__
__#g#__#g#__
_##########_
_#yyyyyyyy#_
_#yyy##yyy#_
_#yyy##yyy#_
_#yyyy#yyy#_
_#yyyyyyyy#_
_##########_
____________
"""

# Before each contact: white is transparent.
UNCHECKED = """
______________
______________
__gggggggggg__
__g________g__
__g________g__
__g________g__
__g________g__
__g________g__
__g________g__
__g________g__
__g________g__
__gggggggggg__
______________
______________
"""

CHECKED = """
______________
______________
__gggggggggg__
__g________g__
__g______b_g__
__g_____bb_g__
__gb___bbb_g__
__gbb_bbb__g__
__gbbbbb___g__
__g_bbb____g__
__g__b_____g__
__gggggggggg__
______________
______________
"""

# Menu background: a paper tone with a faint weave.
WEAVE = [[(0xF7, 0xF5, 0xEF) if (x + y) % 4 else (0xF0, 0xED, 0xE4) for x in range(8)] for y in range(8)]


def pixels(drawing):
    rows = [line for line in drawing.split("\n") if line]
    return [[COLOURS[c] for c in line] for line in rows]


def strip(*drawings):
    """Pictures side by side."""
    parts = [pixels(d) for d in drawings]
    return [sum((part[y] for part in parts), []) for y in range(len(parts[0]))]


def write_bmp(path, rows):
    """24 bits a pixel."""
    height, width = len(rows), len(rows[0])
    pad = b"\0" * (-width * 3 % 4)
    body = b"".join(b"".join(bytes((b, g, r)) for r, g, b in row) + pad for row in reversed(rows))
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(body), 2835, 2835, 0, 0)
    path.write_bytes(struct.pack("<2sIHHI", b"BM", 54 + len(body), 0, 0, 54) + info + body)


# ---- The icon: a closed book with a pen across it, in units of a 48-pixel square ----

def inside_polygon(points, x, y):
    inside = False
    for (x1, y1), (x2, y2) in zip(points, points[1:] + points[:1]):
        if (y1 > y) != (y2 > y) and x < (x2 - x1) * (y - y1) / (y2 - y1) + x1:
            inside = not inside
    return inside


def inside_round_box(box, radius, x, y):
    left, top, right, bottom = box
    if not (left <= x <= right and top <= y <= bottom):
        return False
    dx = max(left + radius - x, x - (right - radius), 0)
    dy = max(top + radius - y, y - (bottom - radius), 0)
    return dx * dx + dy * dy <= radius * radius


def polygon(colour, *points):
    return colour, lambda x, y: inside_polygon(list(points), x, y)


def round_box(colour, box, radius):
    return colour, lambda x, y: inside_round_box(box, radius, x, y)


def circle(colour, x, y, radius):
    return round_box(colour, (x - radius, y - radius, x + radius, y + radius), radius)


def box(colour, left, top, right, bottom):
    return polygon(colour, (left, top), (right, top), (right, bottom), (left, bottom))


BOOK = [
    round_box((0x16, 0x37, 0x52), (5, 2, 41, 46), 4),      # back cover
    round_box((0xF6, 0xF2, 0xE6), (8, 5, 40, 43), 2),      # pages
    round_box((0x2E, 0x6D, 0xA4), (5, 2, 38, 43), 4),      # front cover
    polygon((0x21, 0x54, 0x82), (5, 5), (11, 3), (11, 43), (5, 42)),  # spine
    round_box((0xF6, 0xF2, 0xE6), (15, 9, 34, 20), 1.5),   # label
    polygon((0x8F, 0xA6, 0xB8), (18, 12.5), (31, 12.5), (31, 14), (18, 14)),
    polygon((0x8F, 0xA6, 0xB8), (18, 15.8), (27, 15.8), (27, 17.3), (18, 17.3)),
    polygon((0x7A, 0x54, 0x0C), (41, 17), (47, 23), (27, 43), (19, 46), (21, 37)),  # pen: rim
    polygon((0xE3, 0xA8, 0x2B), (41, 19.2), (44.8, 23), (27.5, 40.3), (23.7, 36.5)),
    polygon((0xF4, 0xCF, 0x7A), (41, 19.2), (42.3, 20.5), (25, 37.8), (23.7, 36.5)),
    polygon((0xF6, 0xE3, 0xBE), (22.7, 38), (26, 41.3), (20.9, 43.4), (20.6, 43.1)),
    polygon((0x1F, 0x2A, 0x37), (21.3, 41.3), (22.7, 42.7), (19, 46)),
]


# The detail view's icons once more for larger screens, in units of a 12-pixel square.
def large_icons():
    dark, blue, light, white, yellow, brown, grey, red = (COLOURS[c] for c in "#blwydgr")
    low = [box(blue, 4, 1, 7, 6.5), polygon(blue, (0.8, 6), (10.2, 6), (5.5, 11))]
    normal = [box(grey, 2, 3, 9, 5), box(grey, 2, 7, 9, 9)]
    high = [polygon(red, (4, 0.5), (4.6, 0), (6.4, 0), (7, 0.5), (8, 1.6), (8, 4.4), (6.3, 8), (4.7, 8), (3, 4.4),
                    (3, 1.6)),
            circle(red, 5.5, 9.8, 1.3)]
    page = [polygon(grey, (2, 0), (8, 0), (11, 3), (11, 11), (2, 11)),
            polygon(white, (3, 1), (7, 1), (7, 4), (10, 4), (10, 10), (3, 10)),
            polygon(white, (7.8, 1.3), (9.6, 3.2), (7.8, 3.2)),
            box(grey, 4, 4, 6, 4.9), box(grey, 4, 6, 9, 6.9), box(grey, 4, 8, 9, 8.9)]
    person = [circle(dark, 5.5, 2.5, 2.5), circle(light, 5.5, 2.5, 1.6),
              round_box(dark, (1, 5, 10, 11), 3), box(dark, 1, 8, 10, 11),
              round_box(blue, (1.9, 5.9, 9.1, 10.1), 2.2), box(blue, 1.9, 8, 9.1, 10.1)]
    key = [circle(brown, 3.5, 4.5, 3.5), box(brown, 6, 4, 11, 7), box(brown, 7, 6, 8.6, 9), box(brown, 9.4, 6, 11, 9),
           circle(yellow, 3.5, 4.5, 2.6), box(yellow, 5.5, 4.9, 10.1, 6.1),
           circle(brown, 3.1, 4.1, 1.4), circle(white, 3.1, 4.1, 0.8)]
    lock = [round_box(dark, (2, 0, 9, 8), 3.2), round_box(grey, (2.9, 0.9, 8.1, 8), 2.4),
            round_box(dark, (4, 2, 7, 8), 1.4), round_box(white, (4.6, 2.6, 6.4, 8), 0.8),
            round_box(dark, (1, 4, 10, 11), 0.8), box(yellow, 1.9, 4.9, 9.1, 10.1),
            circle(dark, 5.5, 6.8, 1.1), polygon(dark, (5.1, 7), (5.9, 7), (6.2, 9), (4.8, 9))]
    return (low, normal, high), (page, person, key, lock)


def draw_strip(size, icons):
    """Icons side by side on white."""
    drawn = [draw_shapes(shapes, 12, size) for shapes in icons]
    on_white = lambda r, g, b, a: tuple((c * a + 255 * (255 - a)) // 255 for c in (r, g, b))
    return [[on_white(*pixel) for rows in drawn for pixel in rows[y]] for y in range(size)]


def draw_shapes(shapes, units, size, samples=6):
    """Rows of (red, green, blue, alpha): shapes in a square of so many units, drawn in so many pixels."""
    rows = []
    for py in range(size):
        row = []
        for px in range(size):
            total = [0, 0, 0]
            hits = 0
            for sy in range(samples):
                for sx in range(samples):
                    x = (px + (sx + 0.5) / samples) * units / size
                    y = (py + (sy + 0.5) / samples) * units / size
                    for colour, inside in reversed(shapes):
                        if inside(x, y):
                            total = [t + c for t, c in zip(total, colour)]
                            hits += 1
                            break
            colour = tuple(t // hits for t in total) if hits else (0, 0, 0)
            row.append(colour + (hits * 255 // samples**2,))
        rows.append(row)
    return rows


def write_ico(path, sizes):
    images = []
    for size in sizes:
        rows = draw_shapes(BOOK, 48, size)
        body = b"".join(b"".join(bytes((b, g, r, a)) for r, g, b, a in row) for row in reversed(rows))
        # The one-bit mask, for whoever cannot blend: its rows are whole multiples of 32 bits.
        mask = b""
        for row in reversed(rows):
            bits = "".join("0" if a > 127 else "1" for *_, a in row).ljust((size + 31) // 32 * 32, "1")
            mask += int(bits, 2).to_bytes(len(bits) // 8, "big")
        info = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(body) + len(mask), 0, 0, 0, 0)
        images.append(info + body + mask)
    head = struct.pack("<HHH", 0, 1, len(sizes))
    offset = len(head) + 16 * len(sizes)
    for size, image in zip(sizes, images):
        head += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    path.write_bytes(head + b"".join(images))


def setup_side(width=164, height=314, size=112):
    """The left side of the installer's last page: the icon on paper."""
    paper = (0xF6, 0xF2, 0xE6)
    rows = [[paper] * width for _ in range(height)]
    left, top = (width - size) // 2, (height - size) // 3
    for y, row in enumerate(draw_icon(size, samples=3)):
        for x, (*colour, alpha) in enumerate(row):
            rows[top + y][left + x] = tuple((c * alpha + p * (255 - alpha)) // 255 for c, p in zip(colour, paper))
    return rows


def write_png(path, size):
    """The icon for the desktop menus of Linux, which want one file a size."""
    # Large ones have soft edges enough with fewer samples a pixel.
    rows = draw_icon(size, samples=6 if size <= 64 else 3)
    lines = b"".join(b"\0" + b"".join(bytes(pixel) for pixel in row) for row in rows)

    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))
    head = struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(lines, 9))
                     + chunk(b"IEND", b""))


def main():
    folder = pathlib.Path(__file__).resolve().parent.parent / "res"
    # The menu bar's strip: Find is picture 0, the filter picture 8; the places between are free.
    write_bmp(folder / "main_bar.bmp", strip(FIND, *[BLANK] * 7, FILTER))
    write_bmp(folder / "editor_bar.bmp", strip(TIME_STAMP, DATE_STAMP, PEN))
    write_bmp(folder / "priorities.bmp", strip(LOW, NORMAL, HIGH))
    write_bmp(folder / "sensitivities.bmp", strip(OPEN_PAGE, PERSON, KEY, LOCK))
    priorities, sensitivities = large_icons()
    for size in (18, 24, 36):
        write_bmp(folder / f"priorities_{size}.bmp", draw_strip(size, priorities))
        write_bmp(folder / f"sensitivities_{size}.bmp", draw_strip(size, sensitivities))
    write_bmp(folder / "drop_arrow.bmp", pixels(ARROW))
    write_bmp(folder / "check.bmp", pixels(CHECK))
    write_bmp(folder / "contact_checks.bmp", strip(UNCHECKED, CHECKED))
    write_bmp(folder / "menu_weave.bmp", WEAVE)
    write_ico(folder / "journal.ico", (16, 32, 48))
    for size in (16, 32, 48, 64, 128, 256):
        write_png(folder / f"journal_{size}.png", size)
    write_bmp(folder.parent / "tools/package/setup_side.bmp", setup_side())


if __name__ == "__main__":
    main()
