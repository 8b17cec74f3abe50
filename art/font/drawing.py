# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads a piece's drawing: SVG with paths of absolute M, L, C and Z, circles, and groups.

A filled shape is a part of the piece, painted over what lies below it; what it shows is its paper, and its
stroke is ink. A stroke without a filling is ink, and so is a filling without a stroke.
`{mirror M0,66 L34,66 ...}` is the right half of an outline, top to bottom.
"""
import re
import xml.etree.ElementTree

from shapely.geometry import LineString, Point, Polygon

SVG = "{http://www.w3.org/2000/svg}"
CURVE_STEPS = 24


class Piece:
    """`ink` is what is black of the white piece, `silhouette` all that it covers."""

    def __init__(self):
        self.ink = Polygon()
        self.silhouette = Polygon()

    def add(self, points, style):
        filled, stroked = (style.get(name, "none") != "none" for name in ("fill", "stroke"))
        width = float(style["stroke-width"]) / 2 if stroked else 0
        shape = Polygon(points) if filled else Polygon()
        line = shape.boundary if filled else LineString(points)
        pen = line.buffer(width) if stroked else shape
        self.ink = (self.ink - shape) | pen
        self.silhouette = self.silhouette | shape | pen


def read_piece(path):
    piece = Piece()
    _add_shapes(piece, xml.etree.ElementTree.parse(path).getroot(), {})
    return piece


def _add_shapes(piece, element, inherited):
    style = inherited | element.attrib
    if element.tag == SVG + "path":
        piece.add(_points(element.get("d")), style)
    elif element.tag == SVG + "circle":
        x, y, r = (float(element.get(name)) for name in ("cx", "cy", "r"))
        piece.add(Point(x, y).buffer(r).exterior.coords, style)
    for child in element:
        _add_shapes(piece, child, style)


def _points(path):
    half = re.fullmatch(r"\{mirror\s(.*)\}", path, re.DOTALL)
    if not half:
        return _walk(path)
    right = _walk(half[1])
    return right + [(-x, y) for x, y in reversed(right)]


def _walk(path):
    points = []
    for letter, words in re.findall(r"([A-Z])([^A-Z]*)", path):
        numbers = [float(word) for word in re.findall(r"-?[\d.]+", words)]
        ends = list(zip(numbers[::2], numbers[1::2]))
        if len(numbers) != {"M": 2, "L": 2, "C": 6, "Z": 0}.get(letter):
            raise ValueError(f"an outline has {letter} with {len(numbers)} numbers")
        points += _curve(points[-1], *ends) if letter == "C" else ends
    return points


def _curve(*corners):
    """The points of a cubic curve behind its first."""
    for step in range(1, CURVE_STEPS + 1):
        t = step / CURVE_STEPS
        weights = ((1 - t) ** 3, 3 * t * (1 - t) ** 2, 3 * t ** 2 * (1 - t), t ** 3)
        yield tuple(sum(w * corner[axis] for w, corner in zip(weights, corners)) for axis in (0, 1))
