#!/usr/bin/env python3
"""Reads NC files of the RS-274 kind back and compares what they cut with a drawing, or with what another NC file cuts.

    ngc_reader.py [OPTIONS] DRAWING.cf2 FILE.nc     every line and arc of the drawing is cut once, and nothing else is
    ngc_reader.py [OPTIONS] OTHER.nc FILE.nc        both files cut the same

It follows the machine, not the program that wrote the file: it knows what G, M and axis words do and nothing of
templates. What no machine would take is an error: an unknown code, a rapid move or a tool change with the tool on, an
arc whose ends are not on one circle, a cut with no feed or no tool.
"""
import argparse
import collections
import dataclasses
import math
import re
import sys

TOLERANCE = 0.0025  # of an end point, mm: three digits of the drawing, three of the NC file
CENTER_TOLERANCE = 0.006
ANGLE_TOLERANCE = 0.06  # degrees; two ends of a short chord, each on the grid, turn it by so much


class Fault(Exception):
    """What no machine would take."""

    def __init__(self, text, place=None):
        super().__init__(text)
        self.place = place


# ---- Plane ----

def distance(a, b):
    return math.hypot(a[0] - b[0], a[1] - b[1])


def direction(a, b):
    return math.atan2(b[1] - a[1], b[0] - a[0])


@dataclasses.dataclass
class Frame:
    """Where a program's coordinates lie: first turned, then mirrored, then shifted."""
    shift: tuple = (0.0, 0.0)
    mirror_x: bool = False
    mirror_y: bool = False
    turn: float = 0.0

    @property
    def mirrors(self):
        return self.mirror_x != self.mirror_y

    def vector(self, v):
        c, s = math.cos(self.turn), math.sin(self.turn)
        x, y = v[0] * c - v[1] * s, v[0] * s + v[1] * c
        return (-x if self.mirror_x else x, -y if self.mirror_y else y)

    def point(self, p):
        x, y = self.vector(p)
        return (x + self.shift[0], y + self.shift[1])

    def inverse(self, p):
        x, y = p[0] - self.shift[0], p[1] - self.shift[1]
        x, y = -x if self.mirror_x else x, -y if self.mirror_y else y
        c, s = math.cos(self.turn), math.sin(self.turn)
        return (x * c + y * s, y * c - x * s)


@dataclasses.dataclass
class Stroke:
    """A line or an arc that is cut. A line has no center."""
    tool: int
    start: tuple
    end: tuple
    center: tuple = None
    clockwise: bool = False
    place: str = ""

    @property
    def sweep(self):
        turn = direction(self.center, self.end) - direction(self.center, self.start)
        turn = (-turn if self.clockwise else turn) % math.tau
        closed = distance(self.start, self.end) < TOLERANCE
        return math.tau if closed else turn

    def tangent(self, at):
        if self.center is None:
            return direction(self.start, self.end)
        return direction(self.center, at) + (-math.pi / 2 if self.clockwise else math.pi / 2)

    def __str__(self):
        form = "line" if self.center is None else f"{'clockwise' if self.clockwise else 'counter-clockwise'} arc"
        where = f" around ({self.center[0]:.3f}, {self.center[1]:.3f})" if self.center else ""
        (x1, y1), (x2, y2) = self.start, self.end
        return f"{self.place}: {form} of tool {self.tool} from ({x1:.3f}, {y1:.3f}) to ({x2:.3f}, {y2:.3f}){where}"


# ---- Drawings ----

def read_drawing(path):
    programs, main, current = collections.defaultdict(list), "", None
    for number, line in enumerate(open(path, encoding="utf-8"), 1):
        words = line.strip().split(",")
        if words[0] == "MAIN":
            main = words[1]
        elif words[0] == "UR":
            current = programs[main]
        elif words[0] == "SUB":
            current = programs[words[1]]
        elif words[0] in ("L", "A", "C"):
            current.append((f"{path}:{number}", words))
    return list(drawing_strokes(programs, main, Frame()))


def drawing_strokes(programs, name, frame):
    for place, words in programs[name]:
        if words[0] == "C":
            x, y, turn, mirror_x, mirror_y = map(float, words[2:7])
            yield from drawing_strokes(programs, words[1], Frame((x, y), bool(mirror_x), bool(mirror_y), turn))
            continue
        numbers = list(map(float, words[1:]))
        start, end = frame.point(numbers[3:5]), frame.point(numbers[5:7])
        stroke = Stroke(int(numbers[1]), start, end, place=place)
        if words[0] == "A":
            stroke.center = frame.point(numbers[7:9])
            stroke.clockwise = (numbers[9] > 0) != frame.mirrors
        yield stroke


# ---- NC files ----

WORD = re.compile(r"([A-Z])\s*([-+]?(?:\d+\.?\d*|\.\d+))")
IGNORED_G = {17, 40, 61, 64}  # plane, no compensation, exact stop and continuous path
IGNORED_M = {7, 8, 9, 15}  # coolant or gas, head parked
TEXT_CYCLE = 810


def blocks_of(path):
    """Place and words of each block: a dictionary from letter to numbers, with the signs of C words beside them."""
    for number, line in enumerate(open(path, encoding="utf-8", newline=""), 1):
        place = f"{path}:{number}"
        text = re.sub(r"\([^)]*\)", "", line.strip())
        text = re.sub(r'"[^"]*"', "", text)
        if text in ("", "%"):
            continue
        words = collections.defaultdict(list)
        for letter, value in WORD.findall(text):
            words[letter].append(float(value))
            if letter == "C":
                words["sign of C"].append(-1 if value.startswith("-") else 1)
        if WORD.sub("", text).strip():
            raise Fault(f"not understood: {text}", place)
        yield place, words


class Machine:
    """A controller. Positions are millimetres in the machine's plane, whatever the program's units and frame."""

    def __init__(self, options):
        self.options = options
        self.strokes = []
        self.position, self.depth, self.angle = (0.0, 0.0), 1.0, 0.0
        self.frame = Frame()
        self.unit, self.absolute, self.motion = 1.0, True, None
        self.tool, self.on, self.feed = None, False, 0.0
        self.programs, self.main = {}, None

    def run(self, path):
        body = None
        for place, words in blocks_of(path):
            if words["O"]:
                body = self.programs.setdefault(int(words["O"][0]), [])
            elif body is None:
                body = self.programs.setdefault(0, [])
            body.append((place, words))
        if not self.execute(self.programs[next(iter(self.programs))]):
            raise Fault("no end of program")
        if self.is_cutting():
            raise Fault("ends with the tool on")
        return self.strokes

    def execute(self, body):
        """Whether the program was ended, by M30 or M99."""
        for place, words in body:
            try:
                if self.block(words, place):
                    return True
            except Fault as fault:
                fault.place = fault.place or place
                raise
        return False

    def is_cutting(self):
        return self.depth < 0 if self.options.depth else self.on

    def block(self, words, place):
        for value in words["F"]:
            self.feed = value
        for value in words["T"]:
            self.next_tool = int(value)
        for value in words["G"]:
            self.prepare(value, words)
        self.miscellaneous(words)
        if words["Z"]:
            self.plunge(words["Z"][0])
        if words["X"] or words["Y"] or words["C"] or words["I"] or words["J"] or words["R"]:
            self.move(words, place)
        if 98 in words["M"] and not self.execute(self.programs[int(words["P"][0])]):
            raise Fault("the called program has no end")
        return 30 in words["M"] or 99 in words["M"]

    def prepare(self, code, words):
        if code in (0, 1, 2, 3):
            self.motion = int(code)
        elif code in (20, 21):
            self.unit = 25.4 if code == 20 else 1.0
        elif code in (90, 91):
            self.absolute = code == 90
        elif code in (52, 51.1, 50.1, 68, 69):
            self.change_frame(code, words)
        elif code == TEXT_CYCLE:
            words.pop("R", None)
        elif code not in IGNORED_G:
            raise Fault(f"unknown code G{code:g}")

    def change_frame(self, code, words):
        x, y, turn = words.pop("X", None), words.pop("Y", None), words.pop("R", None)
        if code == 52:
            self.frame = dataclasses.replace(self.frame, shift=(x[0] * self.unit, y[0] * self.unit))
        elif code == 51.1:
            self.frame = dataclasses.replace(self.frame, mirror_x=x is not None, mirror_y=y is not None)
        elif code == 50.1:
            self.frame = dataclasses.replace(self.frame, mirror_x=False, mirror_y=False)
        else:
            self.frame = dataclasses.replace(self.frame, turn=math.radians(turn[0]) if code == 68 else 0.0)

    def miscellaneous(self, words):
        for code in map(int, words["M"]):
            if code == 6:
                if self.is_cutting():
                    raise Fault("tool change with the tool on")
                self.tool = self.next_tool
            elif code in self.options.on + self.options.off:
                self.on = code in self.options.on
            elif code not in IGNORED_M | {30, 98, 99}:
                raise Fault(f"unknown code M{code}")

    def plunge(self, depth):
        if self.motion == 0 and depth * self.unit < 0:
            raise Fault("rapid move into the material")
        self.depth = depth * self.unit

    def move(self, words, place):
        here = self.frame.inverse(self.position)
        there = [self.target(words[letter], here[axis]) for axis, letter in enumerate("XY")]
        stroke = Stroke(self.tool, self.position, self.frame.point(there), place=place)
        if self.motion in (2, 3):
            self.set_center(stroke, words, here, there)
        travel = self.turn(words)
        if self.is_cutting() and (words["X"] or words["Y"] or stroke.center):
            self.cut(stroke, travel)
        self.position = stroke.end

    def target(self, values, here):
        if not values:
            return here
        return values[0] * self.unit + (0.0 if self.absolute else here)

    def set_center(self, stroke, words, here, there):
        clockwise = self.motion == 2
        if words["R"]:
            center = center_of_radius(here, there, words["R"][0] * self.unit, clockwise)
        else:
            offset = [words[letter][0] * self.unit if words[letter] else 0.0 for letter in "IJ"]
            center = (here[0] + offset[0], here[1] + offset[1])
        radii = distance(here, center), distance(there, center)
        if abs(radii[0] - radii[1]) > self.options.radius_tolerance:
            raise Fault(f"the ends of the arc are not on one circle: radii {radii[0]:.4f} and {radii[1]:.4f}")
        stroke.center = self.frame.point(center)
        stroke.clockwise = clockwise != self.frame.mirrors

    def turn(self, words):
        """The turn of the tool in this block, degrees. The sign of the word gives the way round to the angle."""
        before = self.angle
        for value, sign in zip(words["C"], words["sign of C"]):
            self.angle = abs(value)
            return ((self.angle - before) % 360) if sign > 0 else -((before - self.angle) % 360)
        return 0.0

    def cut(self, stroke, travel):
        if self.motion == 0:
            raise Fault("rapid move with the tool on")
        if self.tool is None or self.feed <= 0:
            raise Fault("cut without tool or feed")
        if self.tool in self.options.tangential:
            self.check_tangent(stroke, travel)
        self.strokes.append(stroke)

    def check_tangent(self, stroke, travel):
        period = 180 if self.tool in self.options.symmetric else 360
        due = 0.0
        if stroke.center:
            due = math.degrees(-stroke.sweep if stroke.clockwise else stroke.sweep)
        for at, angle in ((stroke.start, self.angle - travel), (stroke.end, self.angle)):
            error = (angle - math.degrees(stroke.tangent(at)) + period / 2) % period - period / 2
            if abs(error) > ANGLE_TOLERANCE:
                raise Fault(f"the tool points {error:.3f} degrees off the path")
        if abs(travel - due) > 2 * ANGLE_TOLERANCE:
            raise Fault(f"the tool turns by {travel:.3f} degrees where the path turns by {due:.3f}")


def center_of_radius(start, end, radius, clockwise):
    """A positive radius is that of the arc of up to half a turn, a negative one that of the longer arc."""
    half = distance(start, end) / 2
    if half < 0.0005 or abs(radius) < half - TOLERANCE:
        raise Fault("no arc of that radius")
    height = math.sqrt(max(0.0, radius * radius - half * half))
    side = 1 if (radius > 0) != clockwise else -1
    normal = direction(start, end) + math.pi / 2
    middle = ((start[0] + end[0]) / 2, (start[1] + end[1]) / 2)
    return (middle[0] + side * height * math.cos(normal), middle[1] + side * height * math.sin(normal))


# ---- Comparison ----

class Pool:
    """Strokes that have not been matched yet, found by where they start."""
    CELL = 0.01

    def __init__(self, strokes):
        self.cells = collections.defaultdict(list)
        for stroke in strokes:
            self.cells[self.cell(stroke.start)].append(stroke)

    def cell(self, point, dx=0, dy=0):
        return (math.floor(point[0] / self.CELL) + dx, math.floor(point[1] / self.CELL) + dy)

    def take(self, is_wanted, start):
        for cell in (self.cell(start, dx, dy) for dx in (-1, 0, 1) for dy in (-1, 0, 1)):
            for stroke in self.cells.get(cell, ()):
                if distance(stroke.start, start) <= TOLERANCE and is_wanted(stroke):
                    self.cells[cell].remove(stroke)
                    return stroke
        return None

    def rest(self):
        return [stroke for strokes in self.cells.values() for stroke in strokes]


def take_line(pool, line):
    def is_same(stroke):
        return stroke.tool == line.tool and stroke.center is None and distance(stroke.end, line.end) <= TOLERANCE

    return pool.take(is_same, line.start)


def take_arc(pool, arc):
    """An arc may be cut in pieces, as a circle by radius is."""
    def continues(stroke):
        return (stroke.tool == arc.tool and stroke.center is not None and stroke.clockwise == arc.clockwise
                and distance(stroke.center, arc.center) <= CENTER_TOLERANCE and stroke.sweep <= left + slack)

    slack = 4 * TOLERANCE / distance(arc.center, arc.start)
    left, at = arc.sweep, arc.start
    while left > slack:
        piece = pool.take(continues, at)
        if piece is None:
            return None
        left, at = left - piece.sweep, piece.end
    return piece if distance(at, arc.end) <= TOLERANCE else None


def compare(expected, found):
    """The differences, as texts."""
    pool = Pool(found)
    differences = [f"not cut: {stroke}" for stroke in expected
                   if (take_line if stroke.center is None else take_arc)(pool, stroke) is None]
    return differences + [f"cut, but not drawn: {stroke}" for stroke in pool.rest()]


def numbers(text):
    return [int(number) for number in text.split(",") if number]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("expected")
    parser.add_argument("nc")
    parser.add_argument("--on", type=numbers, default=[3], help="M codes that switch the tool on")
    parser.add_argument("--off", type=numbers, default=[5], help="M codes that switch it off")
    parser.add_argument("--depth", action="store_true", help="the tool is on below Z0, whatever the M codes")
    parser.add_argument("--tangential", type=numbers, default=[], help="tools that point along the path, by C words")
    parser.add_argument("--symmetric", type=numbers, default=[], help="those of them that may point backwards")
    parser.add_argument("--radius-tolerance", type=float, default=0.002, help="of the two ends of an arc")
    options = parser.parse_args()
    try:
        reads = read_drawing if options.expected.endswith(".cf2") else Machine(options).run
        differences = compare(reads(options.expected), Machine(options).run(options.nc))
    except Fault as fault:
        differences = [f"{fault.place or options.nc}: {fault}"]
    for difference in differences[:10]:
        print(difference, file=sys.stderr)
    return 1 if differences else 0


if __name__ == "__main__":
    sys.exit(main())
