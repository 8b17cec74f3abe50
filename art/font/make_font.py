#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the font of the printed diagrams: make_font.py FOLDER-OF-DRAWINGS FONT.ttf

A letter is a square with what stands on it, a digit a piece of the border. Each is one em wide and high,
so that lines set without leading make a board. All is laid out as the drawings are: a square is 1000 wide
and high, x = 0 is its middle and y = 0 its top.
"""
import os
import pathlib
import sys

# The same drawings make the same file, whenever that is; the font library asks this.
os.environ["SOURCE_DATE_EPOCH"] = "1735689600"

import fontforge  # noqa: E402
from shapely import affinity  # noqa: E402
from shapely.geometry import JOIN_STYLE, LineString, Polygon, box  # noqa: E402
from shapely.geometry.polygon import orient  # noqa: E402

from drawing import read_piece  # noqa: E402

FAMILY = "Tarvolenix Diagrams"
VERSION = "1.0"
EM, ASCENT = 2048, 1536
SQUARE = box(-500, 0, 500, 1000)
NOTHING = Polygon()

# White's and Black's letter, on a light square and on a dark one.
PIECES = {"rook": ("rR", "tT"), "knight": ("nN", "mM"), "bishop": ("bB", "vV"),
          "queen": ("qQ", "wW"), "king": ("kK", "lL"), "pawn": ("pP", "oO")}
EMPTY_LIGHT, EMPTY_DARK = " ", "/"
# The border's squares, by where the board lies from them: to the right is 1, 0, below is 0, 1.
BORDER = {"5": (1, 1), "1": (0, 1), "6": (-1, 1),
          "3": (1, 0), "2": (-1, 0),
          "7": (1, -1), "4": (0, -1), "8": (-1, -1)}

HATCH_STEP, HATCH_WIDTH = 100, 16
HALO = 44
RIM = 40  # of a black piece; as wide as the drawings' outline and a little more
SLIVER = 7  # half the width of what is left out of a black piece's white lines
FRAME = ((0, 16), (48, 84))  # its lines, from the board outwards: from where to where
OVERLAP = 4  # of neighbours' lines, which stay closed however a device rounds their ends


def hatching():
    """Lines rising to the right. One that leaves the square goes on in the next dark one."""
    middles = range(-500 - 1000 + HATCH_STEP // 2, 500, HATCH_STEP)
    lines = NOTHING
    for x in middles:
        lines |= LineString([(x - 500, 1500), (x + 1500, -500)]).buffer(HATCH_WIDTH / 2)
    return lines & SQUARE


def on_both_grounds(piece, hatches):
    """The white and the black piece on a light and on a dark square. Black is White's negative in a rim."""
    inside = piece.silhouette.buffer(-RIM, join_style=JOIN_STYLE.mitre)
    scratches = (piece.ink & inside).buffer(-SLIVER).buffer(SLIVER)
    white, black = piece.ink, piece.silhouette - scratches
    ground = hatches - piece.silhouette.buffer(HALO)
    return (white, black), (ground | white, ground | black)


def frame(towards_x, towards_y):
    """The lines round a board of which the square sees a side or a corner."""
    def board(distance):
        reach = 2000  # as good as without end
        left, right = {1: (500, reach), 0: (-reach, reach), -1: (-reach, -500)}[towards_x]
        top, bottom = {1: (1000, reach), 0: (-reach, reach), -1: (-reach, 0)}[towards_y]
        return box(left - distance, top - distance, right + distance, bottom + distance)

    cut = SQUARE.buffer(OVERLAP, join_style=JOIN_STYLE.mitre) - board(0)
    lines = NOTHING
    for near, far in FRAME:
        lines |= (board(far) - board(near)) & cut
    return lines


def letters(drawings):
    hatches = hatching()
    yield EMPTY_LIGHT, NOTHING
    yield EMPTY_DARK, hatches
    for digit, towards in BORDER.items():
        yield digit, frame(*towards)
    for name, letter_pairs in PIECES.items():
        squares = on_both_grounds(read_piece(drawings / f"{name}.svg"), hatches)
        for pair, areas in zip(letter_pairs, squares):
            yield from zip(pair, areas)


def contours(area):
    """Round what is black clockwise, round its holes the other way."""
    scale = EM / 1000
    placed = affinity.affine_transform(area, (scale, 0, 0, -scale, EM / 2, ASCENT))
    polygons = [placed] if placed.geom_type == "Polygon" else placed.geoms
    for polygon in polygons:
        outline = orient(polygon, -1)
        yield from (outline.exterior, *outline.interiors)


def add_letter(font, letter, area):
    glyph = font.createChar(ord(letter))
    pen = glyph.glyphPen()
    for ring in () if area.is_empty else contours(area):
        first, *rest = [(round(x), round(y)) for x, y in ring.coords[:-1]]
        pen.moveTo(first)
        for point in rest:
            pen.lineTo(point)
        pen.closePath()
    glyph.width = EM


def new_font():
    font = fontforge.font()
    font.encoding = "UnicodeBmp"
    font.em, font.ascent, font.descent = EM, ASCENT, EM - ASCENT
    font.familyname = font.fullname = FAMILY
    font.fontname = FAMILY.replace(" ", "") + "-Regular"
    font.version = VERSION
    font.copyright = "The Tarvolenix authors"
    font.appendSFNTName("English (US)", "License", "GPL-3.0-or-later")
    font.appendSFNTName("English (US)", "UniqueID", f"{FAMILY} {VERSION}")
    font.os2_fstype = 0  # may be put into documents
    # What is added to the em is nothing: lines lie as close as letters do.
    for ascent in ("hhea_ascent", "os2_typoascent", "os2_winascent"):
        descent = ascent.replace("ascent", "descent")
        setattr(font, ascent + "_add", False)
        setattr(font, descent + "_add", False)
        setattr(font, ascent, ASCENT)
        setattr(font, descent, EM - ASCENT if "win" in descent else ASCENT - EM)
    font.hhea_linegap = font.os2_typolinegap = 0
    return font


def main(drawings, target):
    font = new_font()
    try:
        for letter, area in letters(pathlib.Path(drawings)):
            add_letter(font, letter, area)
    except FileNotFoundError as missing:
        sys.exit(f"The drawing {missing.filename} is missing, so the font can't be made.")
    pathlib.Path(target).parent.mkdir(parents=True, exist_ok=True)
    font.generate(target, flags=("no-FFTM-table", "opentype"))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
